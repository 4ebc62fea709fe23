// desker: a command-line librarian for Corvane sound files.
//
//   desker list FILE                 places, names and categories of the programs
//   desker library DIR [--search TEXT] [--category N] [--duplicates]
//                                    the same for every sound file below DIR, then what
//                                    each file gave or why it was skipped
//   desker convert [--bank L] IN OUT between bank, program, .syx and data files
//   desker unpack                    stdin: a 149-byte frame or 143 packed bytes
//                                    (hex text or raw); prints the 200 words
//   desker pack                      stdin: 200 decimal words; prints the frame
//
// Bad input prints one line on stderr and exits with status 2.

#include "librarian/LibraryIndex.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"
#include "sound/SoundFileReader.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace
{
constexpr int dataFileBanks = 7;

struct BadInput
{
    std::string message;
};

using Program = SoundFileReader::Program;
using Packed = SoundFileReader::Packed;

struct Contents
{
    juce::String kind;
    std::vector<Program> programs;
};

juce::Array<unsigned short> unpack (const Packed& packed)
{
    juce::Array<unsigned char> bytes (packed.data(), (int) packed.size());
    juce::Array<unsigned short> words;
    AutoBank::UnPack_Patch_Tolk (bytes, words);
    return words;
}

Contents readAny (const juce::String& path)
{
    const juce::File file (juce::File::getCurrentWorkingDirectory().getChildFile (path));
    auto c = SoundFileReader::read (file);
    if (c.problem.isNotEmpty())
        throw BadInput { path.toStdString() + ": " + c.problem.toStdString() };
    return { c.kind, std::move (c.programs) };
}

// --- writers ---------------------------------------------------------------

void appendFrame (juce::MemoryOutputStream& out, const Packed& packed, int type, int programNumber)
{
    for (int byte : { 0xF0, 0x04, 0x01, 0x00, type })
        out.writeByte ((char) byte);
    if (type == 0x03)
        out.writeByte ((char) programNumber);
    out.write (packed.data(), packed.size());
    if (type == 0x03)
        out.writeRepeatedByte (0, 4);
    out.writeByte ((char) 0xF7);
}

juce::MemoryBlock encode (const std::vector<Program>& programs, const juce::String& extension)
{
    juce::MemoryOutputStream out;
    const auto count = programs.size();
    if (extension == ".tkbn")
    {
        if (count != 128)
            throw BadInput { "a bank file takes 128 programs, the input has " + std::to_string (count) + " (use --bank)" };
        for (auto& e : programs)
            appendFrame (out, e.packed, 0x02, 0);
    }
    else if (extension == ".tkp")
    {
        if (count != 1)
            throw BadInput { "a program file takes one program, the input has " + std::to_string (count) };
        appendFrame (out, programs[0].packed, 0x02, 0);
    }
    else if (extension == ".syx")
    {
        for (size_t i = 0; i < count; ++i)
            if (count == 1)
                appendFrame (out, programs[i].packed, 0x02, 0);
            else
                appendFrame (out, programs[i].packed, 0x03, (int) (i % 128));
    }
    else if (extension == ".dat")
    {
        if (count != (size_t) dataFileBanks * 128)
            throw BadInput { "a data file takes 896 programs, the input has " + std::to_string (count) };
        out.write ("*CorvaneData >", 14);
        for (auto& e : programs)
            for (auto w : unpack (e.packed))
                out.writeShort ((short) w); // low byte first
        out.write ("< CorvaneData", 13);
    }
    else
        throw BadInput { "unknown output type '" + extension.toStdString() + "' (use .tkbn, .tkp, .syx or .dat)" };
    return out.getMemoryBlock();
}

// --- commands --------------------------------------------------------------

int list (const juce::String& path)
{
    const auto c = readAny (path);
    std::printf ("%s: %s, %d programs\n", path.toRawUTF8(), c.kind.toRawUTF8(), (int) c.programs.size());
    for (auto& e : c.programs)
    {
        const auto words = unpack (e.packed);
        std::printf ("%-6s %s  %s\n", e.place().toRawUTF8(), SoundFileReader::nameOf (words).toRawUTF8(),
                     AutoBank::Category (words[150]).toRawUTF8());
    }
    return 0;
}

int library (const juce::StringArray& args)
{
    const auto usage = BadInput { "usage: desker library DIR [--search TEXT] [--category N] [--duplicates]" };
    if (args.size() < 3)
        throw usage;
    LibraryIndex::Query query;
    for (int i = 3; i < args.size(); ++i)
    {
        if (args[i] == "--duplicates")
            query.duplicates = LibraryIndex::Duplicates::sameSound;
        else if (args[i] == "--search" && i + 1 < args.size())
            query.text = args[++i];
        else if (args[i] == "--category" && i + 1 < args.size())
        {
            const auto code = args[++i];
            if (! code.containsOnly ("0123456789") || code.isEmpty() || code.length() > 2 || code.getIntValue() > 31)
                throw BadInput { "--category takes a category code from 0 to 31" };
            query.category = code.getIntValue();
        }
        else
            throw usage;
    }

    const auto folder = juce::File::getCurrentWorkingDirectory().getChildFile (args[2]);
    if (! folder.isDirectory())
        throw BadInput { "cannot read " + args[2].toStdString() + ": no such folder" };

    const auto index = LibraryIndex::build (folder, nullptr);
    for (auto row : index->find (query))
    {
        const auto& p = index->programs[(size_t) row];
        std::printf ("%s  %-6s %s  %s\n", index->sources[(size_t) p.source].name.toRawUTF8(), p.place().toRawUTF8(),
                     p.name.toRawUTF8(), AutoBank::Category (p.category).toRawUTF8());
    }
    for (auto& source : index->sources)
    {
        if (source.problem.isEmpty())
            std::printf ("read    %s: %s, %d programs\n", source.name.toRawUTF8(), source.kind.toRawUTF8(), source.count);
        else
            std::printf ("skipped %s: %s\n", source.name.toRawUTF8(), source.problem.toRawUTF8());
    }
    return 0;
}

int convert (const juce::StringArray& args)
{
    int bank = -1;
    int first = 2;
    if (args.size() == 6 && args[2] == "--bank")
    {
        const auto letter = args[3].toUpperCase();
        if (letter.length() != 1 || letter[0] < 'A' || letter[0] > 'G')
            throw BadInput { "--bank takes a letter from A to G" };
        bank = letter[0] - 'A';
        first = 4;
    }
    else if (args.size() != 4)
        throw BadInput { "usage: desker convert [--bank L] IN OUT" };

    auto c = readAny (args[first]);
    if (bank >= 0)
    {
        if ((int) c.programs.size() < (bank + 1) * 128)
            throw BadInput { "the input has no bank " + args[3].toUpperCase().toStdString() };
        c.programs = std::vector<Program> (c.programs.begin() + bank * 128, c.programs.begin() + (bank + 1) * 128);
    }
    const juce::File out (juce::File::getCurrentWorkingDirectory().getChildFile (args[first + 1]));
    const auto data = encode (c.programs, out.getFileExtension().toLowerCase());
    if (! FileMan::writeFileAtomically (out, data.getData(), data.getSize()))
    {
        std::fprintf (stderr, "desker: cannot write %s\n", out.getFullPathName().toRawUTF8());
        return 1;
    }
    return 0;
}

std::string readStdin()
{
    std::string s ((std::istreambuf_iterator<char> (std::cin)), std::istreambuf_iterator<char>());
    return s;
}

int unpackCommand()
{
    const auto input = readStdin();
    std::vector<unsigned char> bytes (input.begin(), input.end());

    // Hex text when everything but whitespace is hex digits in pairs.
    std::string digits;
    bool hex = ! input.empty();
    for (auto ch : input)
    {
        if (std::isspace ((unsigned char) ch))
            continue;
        if (! std::isxdigit ((unsigned char) ch))
        {
            hex = false;
            break;
        }
        digits += ch;
    }
    if (hex && digits.size() % 2 == 0 && (digits.size() / 2 == 143 || digits.size() / 2 == 149))
    {
        bytes.clear();
        for (size_t i = 0; i < digits.size(); i += 2)
            bytes.push_back ((unsigned char) std::stoi (digits.substr (i, 2), nullptr, 16));
    }

    Packed packed;
    if (bytes.size() == (size_t) AutoBank::packedBytes)
        std::copy_n (bytes.data(), packed.size(), packed.data());
    else if (bytes.size() == (size_t) AutoBank::patchFrameBytes)
    {
        if (bytes.front() != 0xF0 || bytes.back() != 0xF7)
            throw BadInput { "a 149-byte frame must begin with f0 and end with f7" };
        std::copy_n (bytes.data() + 5, packed.size(), packed.data());
    }
    else
        throw BadInput { "expected a 149-byte frame or 143 packed bytes, got " + std::to_string (bytes.size()) + " bytes" };

    const auto words = unpack (packed);
    juce::StringArray out;
    for (auto w : words)
        out.add (juce::String (w));
    std::printf ("%s\n", out.joinIntoString (",").toRawUTF8());
    return 0;
}

int packCommand()
{
    const auto input = juce::String::fromUTF8 (readStdin().c_str());
    juce::StringArray tokens;
    tokens.addTokens (input, ", \t\r\n", "");
    tokens.removeEmptyStrings();
    if (tokens.size() != AutoBank::numParameters)
        throw BadInput { "expected 200 words, got " + std::to_string (tokens.size()) };
    juce::Array<unsigned short> words;
    for (auto& t : tokens)
    {
        if (! t.containsOnly ("0123456789") || t.length() > 5 || t.getIntValue() > 65535)
            throw BadInput { "not a word from 0 to 65535: '" + t.substring (0, 20).toStdString() + "'" };
        words.add ((unsigned short) t.getIntValue());
    }
    AutoBank bank (0);
    bank.patchData = words;
    const auto frame = bank.Export_Syx_Patch_Buf_MB (0);
    juce::StringArray hex;
    for (size_t i = 0; i < frame.getSize(); ++i)
        hex.add (juce::String::toHexString ((int) static_cast<const unsigned char*> (frame.getData())[i]).paddedLeft ('0', 2));
    std::printf ("%s\n", hex.joinIntoString (" ").toRawUTF8());
    return 0;
}

int run (const juce::StringArray& args)
{
    const auto command = args[1];
    if (command == "list" && args.size() == 3)
        return list (args[2]);
    if (command == "convert")
        return convert (args);
    if (command == "library")
        return library (args);
    if (command == "unpack" && args.size() == 2)
        return unpackCommand();
    if (command == "pack" && args.size() == 2)
        return packCommand();
    throw BadInput { "usage: desker list FILE | library DIR [--search TEXT] [--category N] [--duplicates] | convert [--bank L] IN OUT"
                     " | unpack | pack" };
}
} // namespace

int main (int argc, char** argv)
{
    juce::StringArray args;
    for (int i = 0; i < argc; ++i)
        args.add (juce::String::fromUTF8 (argv[i]));
    try
    {
        return run (args);
    }
    catch (const BadInput& e)
    {
        std::fprintf (stderr, "desker: %s\n", e.message.c_str());
        return 2;
    }
}
