#pragma once

#include "InProcessCorvane.h"
#include "ScratchFolder.h"
#include "device/InProcessMidiBackend.h"
#include "plugin/PluginProcessor.h"

#include <vector>

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

    std::vector<unsigned> drainCodes()
    {
        std::vector<unsigned> codes;
        unsigned code = 0;
        while (state().popUpdateCode (code))
            codes.push_back (code);
        return codes;
    }

    // What went out towards the instrument since the last call, with its scheduled time.
    std::vector<Sent> sent()
    {
        std::vector<Sent> out;
        for (auto& t : backend.messagesTo (device.inputId))
            out.push_back ({ std::vector<int> (t.message.getRawData(), t.message.getRawData() + t.message.getRawDataSize()), t.timeMs });
        backend.clearLog (device.inputId);
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
