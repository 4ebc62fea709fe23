#pragma once

#include "InProcessCorvane.h"
#include "ScratchFolder.h"
#include "device/InProcessMidiBackend.h"
#include "plugin/PluginProcessor.h"

#include <vector>

inline std::vector<unsigned> drainCodes (MidiCntrState& state)
{
    std::vector<unsigned> codes;
    for (unsigned code = 0; state.popUpdateCode (code);)
        codes.push_back (code);
    return codes;
}

// A processor with ports closed and a settings folder of its own.
struct PlainProcessor
{
    ScratchFolder settings;
    DeskerAudioProcessor processor { settings.dir };
    MidiCntrState& state() { return processor.midiCntrState; }
};

// A processor whose saved ports name a virtual Corvane on in-process MIDI, so that it starts with
// both ports open, as the plug-in does when the instrument is attached.
class LinkedProcessor
{
public:
    struct Sent
    {
        std::vector<int> bytes;
        double timeMs;
    };

    explicit LinkedProcessor (double sampleRate = 44100.0, int blockSize = 512)
    {
        processor.setRateAndBufferSizeDetails (sampleRate, blockSize);
        processor.prepareToPlay (sampleRate, blockSize);
        state().localFlag = true;
        drainCodes();
    }

    MidiCntrState& state() { return processor.midiCntrState; }
    std::vector<unsigned> drainCodes() { return ::drainCodes (state()); }

    // What went out towards the instrument since the last call, with its scheduled time.
    std::vector<Sent> sent()
    {
        std::vector<Sent> out;
        for (auto& t : backend.messagesTo (device.inputId))
            out.push_back ({ std::vector<int> (t.message.getRawData(), t.message.getRawData() + t.message.getRawDataSize()), t.timeMs });
        backend.clearLog (device.inputId);
        return out;
    }

    std::vector<std::vector<int>> sentBytes()
    {
        std::vector<std::vector<int>> out;
        for (auto& s : sent())
            out.push_back (s.bytes);
        return out;
    }

    void process (juce::MidiBuffer& midi, int numSamples)
    {
        juce::AudioBuffer<float> audio (2, numSamples);
        audio.clear();
        processor.processBlock (audio, midi);
    }

private:
    static const juce::File& savePorts (const ScratchFolder& folder, InProcessMidiBackend& backend)
    {
        MidiCntrState writer { &backend };
        writer.settingsFolder = folder.dir;
        writer.portNames = juce::StringArray ("Corvane", "Corvane", "NONE");
        writer.SavePortStrings();
        return folder.dir;
    }

public:
    ScratchFolder folder;
    InProcessMidiBackend backend;
    InProcessCorvane device { backend };
    DeskerAudioProcessor processor { savePorts (folder, backend), &backend };
};

// A play head the test scripts block by block.
struct ScriptedPlayHead : juce::AudioPlayHead
{
    juce::Optional<PositionInfo> getPosition() const override { return position; }
    juce::Optional<PositionInfo> position;
};
