#pragma once

#include <juce_core/juce_core.h>

#include <array>
#include <vector>

// Reads every kind of sound file the plug-in knows, by content and length, never by extension: a
// bank file, a program file, program dumps one after another as the instrument sends them, the data
// file and a factory set. Files are only read. What cannot be read comes back with the reason.
class SoundFileReader
{
public:
    using Packed = std::array<unsigned char, 143>;

    struct Program
    {
        int bank = -1;   // 0 to 6 in a file of several banks, else -1
        int number = 0;  // 0 to 127: the program's place in its bank
        Packed packed;   // the program as the dump carries it

        // "17", or "C:17" in a file of several banks.
        juce::String place() const;
    };

    struct Contents
    {
        juce::String kind;    // "bank file", "program file", "sysex", "data file", "factory set"
        juce::String problem; // empty when the file was read, else why it was not
        std::vector<Program> programs;
    };

    // No sound file is larger: a data file is 358427 bytes.
    static constexpr juce::int64 largestFile = 1 << 20;

    static Contents read (const juce::File& file);
    static Contents read (const unsigned char* data, size_t size);

    // Text of a program's name: its 24 characters, each the low byte of its word, with anything
    // outside printable ASCII as "?".
    static juce::String nameOf (const juce::Array<unsigned short>& words);
};
