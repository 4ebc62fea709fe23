#include "sound/SoundFileReader.h"

#include "sound/AutoBank.h"
#include "sound/FileMan.h"

#include <algorithm>
#include <cstring>
#include <optional>

namespace
{
using Contents = SoundFileReader::Contents;
using Program = SoundFileReader::Program;

constexpr size_t dataFileBytes = 358427;
constexpr int dataFileBanks = 7;
constexpr int dataHeadBytes = 14;
constexpr size_t nameTableBytes = 3072;
constexpr size_t frameBytes = AutoBank::patchFrameBytes;
constexpr size_t numberedBytes = AutoBank::romFrameBytes;

struct Bytes
{
    const unsigned char* data;
    size_t size;
};

Program programAt (int bank, int number, const unsigned char* packed)
{
    Program p;
    p.bank = bank;
    p.number = number;
    std::memcpy (p.packed.data(), packed, p.packed.size());
    return p;
}

std::optional<Contents> readDataFile (Bytes d)
{
    if (d.size != dataFileBytes)
        return std::nullopt;
    Contents c { "data file", {}, {} };
    juce::Array<unsigned short> words;
    words.resize (AutoBank::numParameters);
    for (int i = 0; i < dataFileBanks * AutoBank::numPrograms; ++i)
    {
        const auto* p = d.data + dataHeadBytes + i * AutoBank::programBytes;
        for (int w = 0; w < AutoBank::numParameters; ++w)
            words.setUnchecked (w, (unsigned short) (p[2 * w] | (p[2 * w + 1] << 8)));
        const auto block = AutoBank::Pack_Patch_Tolk (words);
        c.programs.push_back (programAt (i / 128, i % 128, static_cast<const unsigned char*> (block.getData())));
    }
    return c;
}

std::optional<Contents> readFactorySet (Bytes d)
{
    if (d.size < nameTableBytes)
        return std::nullopt;
    const auto records = (d.size - nameTableBytes) / frameBytes;
    if ((records != 128 && records != 896) || d.size != records * frameBytes + nameTableBytes)
        return std::nullopt;
    Contents c { "factory set", {}, {} };
    for (size_t i = 0; i < records; ++i)
    {
        const auto* r = d.data + i * frameBytes;
        const bool unframed = r[0] == 0x04 && r[1] == 0x01 && r[3] == 0x03;
        const bool framed = r[0] == 0xF0 && r[1] == 0x04 && r[2] == 0x01 && r[148] == 0xF7;
        if (! unframed && ! framed)
            return std::nullopt;
        c.programs.push_back (programAt (records > 128 ? (int) i / 128 : -1, (int) i % 128, r + 5));
    }
    return c;
}

// Program dumps one after another, as the instrument sends them: 149-byte frames or 154-byte
// numbered dumps, nothing in between.
std::optional<Contents> readSysexStream (Bytes d)
{
    Contents c { "sysex", {}, {} };
    size_t pos = 0;
    while (pos < d.size)
    {
        const auto* end = std::find (d.data + pos, d.data + d.size, (unsigned char) 0xF7);
        if (d.data[pos] != 0xF0 || end == d.data + d.size)
            return std::nullopt;
        const auto length = (size_t) (end - (d.data + pos)) + 1;
        const auto* m = d.data + pos;
        if ((length != frameBytes && length != numberedBytes) || m[1] != 0x04 || m[2] != 0x01)
            return std::nullopt;
        if (length == frameBytes)
            c.programs.push_back (programAt (-1, (int) c.programs.size() % 128, m + 5));
        else if (length == numberedBytes && m[4] == 0x03)
            c.programs.push_back (programAt (-1, m[5] & 127, m + 6));
        else
            return std::nullopt;
        pos += length;
    }
    if (c.programs.empty())
        return std::nullopt;
    if (d.size == (size_t) FileMan::bankFileBytes)
        c.kind = "bank file";
    else if (c.programs.size() == 1 && d.size == frameBytes)
        c.kind = "program file";
    return c;
}

// The plug-in's rule for a program file: anything may stand before the first message, which must
// be 149 bytes. A second message after it means a damaged stream, not a program file.
std::optional<Contents> readProgramFile (Bytes d)
{
    juce::Array<unsigned char> a (d.data, (int) d.size);
    int start = 0;
    if (d.size < 10 || FileMan::findFirstMessage (a, start) != (int) frameBytes)
        return std::nullopt;
    if (std::find (d.data + start + frameBytes, d.data + d.size, (unsigned char) 0xF0) != d.data + d.size)
        return std::nullopt;
    return Contents { "program file", {}, { programAt (-1, 0, d.data + start + 5) } };
}

// Why no reader took the file.
juce::String diagnose (Bytes d)
{
    if (d.size >= (size_t) dataHeadBytes && std::memcmp (d.data, "*CorvaneData >", (size_t) dataHeadBytes) == 0)
        return d.size < dataFileBytes ? "cut short" : "wrong size (" + juce::String ((juce::int64) d.size) + " bytes)";

    // A factory set starts with an unframed record.
    if (d.size >= 4 && d.data[0] == 0x04 && d.data[1] == 0x01 && d.data[3] == 0x03)
        return d.size < 128 * frameBytes + nameTableBytes ? "cut short" : "wrong size (" + juce::String ((juce::int64) d.size) + " bytes)";

    int dumps = 0;
    for (auto* p = std::find (d.data, d.data + d.size, (unsigned char) 0xF0); p != d.data + d.size;)
    {
        const auto* end = std::find (p, d.data + d.size, (unsigned char) 0xF7);
        if (end == d.data + d.size)
            return "cut short";
        const auto length = (size_t) (end - p) + 1;
        if ((length == frameBytes || length == numberedBytes) && p[1] == 0x04 && p[2] == 0x01)
            ++dumps;
        p = std::find (end, d.data + d.size, (unsigned char) 0xF0);
    }
    if (dumps == 0)
        return "no program dump";
    return "wrong size (" + juce::String ((juce::int64) d.size) + " bytes)";
}
} // namespace

juce::String SoundFileReader::Program::place() const
{
    const auto text = juce::String (number + 1);
    return bank < 0 ? text : juce::String::charToString ((juce::juce_wchar) ('A' + bank)) + ":" + text;
}

SoundFileReader::Contents SoundFileReader::read (const unsigned char* data, size_t size)
{
    if (size == 0)
        return { {}, "empty", {} };
    const Bytes d { data, size };
    for (auto reader : { readDataFile, readFactorySet, readSysexStream, readProgramFile })
        if (auto c = reader (d))
            return *c;
    return { {}, diagnose (d), {} };
}

SoundFileReader::Contents SoundFileReader::read (const juce::File& file)
{
    if (file.isDirectory())
        return { {}, "unreadable (a folder)", {} };
    if (! file.existsAsFile())
        return { {}, "no such file", {} };
    const auto size = file.getSize();
    if (size > largestFile)
        return { {}, "wrong size (" + juce::String (size) + " bytes, more than any sound file)", {} };

    juce::MemoryBlock block;
    juce::FileInputStream in (file);
    if (! in.openedOk() || (size > 0 && in.readIntoMemoryBlock (block, (ssize_t) size) != (size_t) size))
        return { {}, "unreadable", {} };
    return read (static_cast<const unsigned char*> (block.getData()), block.getSize());
}

juce::String SoundFileReader::nameOf (const juce::Array<unsigned short>& words)
{
    juce::String name;
    name.preallocateBytes (32);
    for (int i = 0; i < 24; ++i)
    {
        const auto ch = words[151 + i] & 0xFF;
        name << juce::String::charToString ((juce::juce_wchar) (ch >= 32 && ch < 127 ? ch : '?'));
    }
    return name;
}
