// desker: a command-line librarian for Corvane sound files.
//
//   desker list FILE                 places, names and categories of the programs
//   desker convert [--bank L] IN OUT between bank, program, .syx and data files
//   desker unpack                    stdin: a 149-byte frame or 143 packed bytes
//                                    (hex text or raw); prints the 200 words
//   desker pack                      stdin: 200 decimal words; prints the frame
//
// Bad input prints one line on stderr and exits with status 2.

#include "sound/AutoBank.h"
#include "sound/FileMan.h"

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
constexpr int dataFileBytes = 358427;
constexpr int dataFileBanks = 7;
constexpr int nameTableBytes = 3072;

struct BadInput
{
    std::string message;
};

using Packed = std::array<unsigned char, AutoBank::packedBytes>;

struct Entry
{
    juce::String place;
    Packed packed;
};

struct Contents
{
    juce::String kind;
    std::vector<Entry> programs;
};

juce::String placeOf (int index, bool withBank)
{
    const auto number = juce::String (index % 128 + 1);
    return withBank ? juce::String::charToString ((juce::juce_wchar) ('A' + index / 128)) + ":" + number : number;
}

Packed packedAt (const unsigned char* p)
{
    Packed packed;
    std::memcpy (packed.data(), p, packed.size());
    return packed;
}

juce::Array<unsigned short> unpack (const Packed& packed)
{
    juce::Array<unsigned char> bytes (packed.data(), (int) packed.size());
    juce::Array<unsigned short> words;
    AutoBank::UnPack_Patch_Tolk (bytes, words);
    return words;
}

Packed pack (juce::Array<unsigned short>& words)
{
    const auto block = AutoBank::Pack_Patch_Tolk (words);
    return packedAt (static_cast<const unsigned char*> (block.getData()));
}

// --- readers ---------------------------------------------------------------

std::optional<Contents> readDataFile (const std::vector<unsigned char>& d)
{
    if ((int) d.size() != dataFileBytes)
        return std::nullopt;
    Contents c { "data file", {} };
    for (int i = 0; i < dataFileBanks * 128; ++i)
    {
        const auto* p = d.data() + 14 + i * AutoBank::programBytes;
        juce::Array<unsigned short> words;
        for (int w = 0; w < AutoBank::numParameters; ++w)
            words.add ((unsigned short) (p[2 * w] | (p[2 * w + 1] << 8)));
        c.programs.push_back ({ placeOf (i, true), pack (words) });
    }
    return c;
}

std::optional<Contents> readFactorySet (const std::vector<unsigned char>& d)
{
    const auto records = ((int) d.size() - nameTableBytes) / AutoBank::patchFrameBytes;
    if ((records != 128 && records != 896) || (int) d.size() != records * AutoBank::patchFrameBytes + nameTableBytes)
        return std::nullopt;
    Contents c { "factory set", {} };
    for (int i = 0; i < records; ++i)
    {
        const auto* r = d.data() + i * AutoBank::patchFrameBytes;
        const bool unframed = r[0] == 0x04 && r[1] == 0x01 && r[3] == 0x03;
        const bool framed = r[0] == 0xF0 && r[1] == 0x04 && r[2] == 0x01 && r[148] == 0xF7;
        if (! unframed && ! framed)
            return std::nullopt;
        c.programs.push_back ({ placeOf (i, records > 128), packedAt (r + 5) });
    }
    return c;
}

// Program dumps one after another, as the hardware sends them: 149-byte
// frames or 154-byte numbered dumps, nothing in between.
std::optional<Contents> readSysexStream (const std::vector<unsigned char>& d)
{
    Contents c { "sysex", {} };
    size_t pos = 0;
    while (pos < d.size())
    {
        size_t end = pos;
        while (end < d.size() && d[end] != 0xF7)
            ++end;
        if (d[pos] != 0xF0 || end == d.size())
            return std::nullopt;
        const auto length = end - pos + 1;
        const auto* m = d.data() + pos;
        if ((length != (size_t) AutoBank::patchFrameBytes && length != (size_t) AutoBank::romFrameBytes)
            || m[1] != 0x04 || m[2] != 0x01)
            return std::nullopt;
        if (length == (size_t) AutoBank::patchFrameBytes)
            c.programs.push_back ({ placeOf ((int) c.programs.size(), false), packedAt (m + 5) });
        else if (length == (size_t) AutoBank::romFrameBytes && m[4] == 0x03)
            c.programs.push_back ({ placeOf (m[5] & 127, false), packedAt (m + 6) });
        else
            return std::nullopt;
        pos = end + 1;
    }
    if (c.programs.empty())
        return std::nullopt;
    if (d.size() == (size_t) FileMan::bankFileBytes)
        c.kind = "bank file";
    else if (c.programs.size() == 1 && d.size() == (size_t) AutoBank::patchFrameBytes)
        c.kind = "program file";
    return c;
}

// The plug-in's rule for a program file: anything may stand before the first
// message, which must be 149 bytes. A second message after it means the file
// is a damaged stream, not a program file.
std::optional<Contents> readProgramFile (const std::vector<unsigned char>& d)
{
    juce::Array<unsigned char> a (d.data(), (int) d.size());
    int start = 0;
    if (a.size() < 10 || FileMan::findFirstMessage (a, start) != AutoBank::patchFrameBytes)
        return std::nullopt;
    if (std::find (d.begin() + start + AutoBank::patchFrameBytes, d.end(), 0xF0) != d.end())
        return std::nullopt;
    return Contents { "program file", { { "1", packedAt (d.data() + start + 5) } } };
}

std::vector<unsigned char> readFile (const juce::String& path)
{
    const juce::File file (juce::File::getCurrentWorkingDirectory().getChildFile (path));
    if (! file.existsAsFile())
        throw BadInput { "cannot read " + path.toStdString() + ": no such file" };
    juce::MemoryBlock block;
    if (! file.loadFileAsData (block))
        throw BadInput { "cannot read " + path.toStdString() };
    const auto* p = static_cast<const unsigned char*> (block.getData());
    return { p, p + block.getSize() };
}

Contents readAny (const juce::String& path)
{
    const auto d = readFile (path);
    if (d.empty())
        throw BadInput { path.toStdString() + ": empty file" };
    for (auto reader : { readDataFile, readFactorySet, readSysexStream, readProgramFile })
        if (auto c = reader (d))
            return *c;
    throw BadInput { path.toStdString() + ": not a bank, program, sysex, data or factory-set file (" + std::to_string (d.size())
                     + " bytes; truncated, oversized or damaged?)" };
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

juce::MemoryBlock encode (const std::vector<Entry>& programs, const juce::String& extension)
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
        juce::String name;
        for (int i = 0; i < 24; ++i)
        {
            const auto ch = words[151 + i] & 0xFF;
            name << juce::String::charToString ((juce::juce_wchar) (ch >= 32 && ch < 127 ? ch : '?'));
        }
        std::printf ("%-6s %s  %s\n", e.place.toRawUTF8(), name.toRawUTF8(), AutoBank::Category (words[150]).toRawUTF8());
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
        c.programs = std::vector<Entry> (c.programs.begin() + bank * 128, c.programs.begin() + (bank + 1) * 128);
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
        packed = packedAt (bytes.data());
    else if (bytes.size() == (size_t) AutoBank::patchFrameBytes)
    {
        if (bytes.front() != 0xF0 || bytes.back() != 0xF7)
            throw BadInput { "a 149-byte frame must begin with f0 and end with f7" };
        packed = packedAt (bytes.data() + 5);
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
    if (command == "unpack" && args.size() == 2)
        return unpackCommand();
    if (command == "pack" && args.size() == 2)
        return packCommand();
    throw BadInput { "usage: desker list FILE | convert [--bank L] IN OUT | unpack | pack" };
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
