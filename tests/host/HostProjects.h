#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <gtest/gtest.h>

#include <cstring>

// What the VST3 and the LV2 project tests share: the built VST3 loaded as a DAW loads it, and the
// checks on a saved bank chunk, whichever way the host wraps it. A `State` is a BankChunk that
// reads an instance's state on construction and writes it back with restoreInto().

inline std::unique_ptr<juce::AudioPluginInstance> loadVst3Instance()
{
    juce::VST3PluginFormat format;
    juce::OwnedArray<juce::PluginDescription> found;
    format.findAllTypesForFile (found, DESKER_VST3_BUNDLE);
    juce::String error;
    return found.isEmpty() ? nullptr : format.createInstanceFromDescription (*found[0], 44100.0, 512, error);
}

// Our bytes in a host's state: a 27-byte head, then the bank's 128 programs of 200 words.
struct BankChunk
{
    // A state read from an instance holds a whole bank; a failed expectation never reads past the end.
    void expectWholeBank()
    {
        EXPECT_GE (chunk.getSize(), 27u + 51200u);
        chunk.ensureSize (27 + 51200, true);
    }

    juce::uint8* bank() { return static_cast<juce::uint8*> (chunk.getData()) + 27; }
    void setWord (int program, int element, int value)
    {
        bank()[program * 400 + element * 2] = (juce::uint8) (value & 0xFF);
        bank()[program * 400 + element * 2 + 1] = (juce::uint8) (value >> 8);
    }

    juce::MemoryBlock chunk;
};

// A bank unlike any default: every program its own cutoff, LFO rate and name.
template <typename State>
void writeDistinctBank (State& state)
{
    for (int p = 0; p < 128; ++p)
    {
        state.setWord (p, 32, ((p * 2) & 255) << 8);
        state.setWord (p, 17, p << 8);
        const auto name = ("Program " + juce::String (p)).paddedRight (' ', 24);
        for (int c = 0; c < 24; ++c)
            state.setWord (p, 151 + c, name[c]);
    }
}

// Another plug-in's chunk and a chunk of ours too short for a bank leave `instance`'s bank as `saved` has it.
template <typename State>
void expectForeignAndShortChunksChangeNothing (juce::AudioPluginInstance& instance, State& saved)
{
    State foreign (instance), shortOne (instance);
    std::memcpy (foreign.chunk.getData(), "CorvanePluginSettings", 17);
    std::memset (foreign.bank(), 0x55, 51200);
    foreign.restoreInto (instance);
    std::memset (shortOne.bank(), 0x55, 500 - 27); // our tag, but short of a bank
    shortOne.chunk.setSize (500);
    shortOne.restoreInto (instance);
    EXPECT_EQ (std::memcmp (State (instance).bank(), saved.bank(), 51200), 0);
}
