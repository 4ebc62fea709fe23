#pragma once

#include "InProcessCorvane.h"
#include "ScratchFolder.h"
#include "device/InProcessMidiBackend.h"
#include "device/MIDI_PORTS_Control.h"
#include "device/MidiCntrState.h"
#include "plugin/HandlerComp.h"
#include "sound/AutoBank.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

using Bytes = std::vector<std::vector<int>>;
using Codes = std::vector<unsigned>;
using HostChanges = std::vector<std::pair<int, int>>;

inline juce::MidiMessage raw (std::initializer_list<int> bytes)
{
    const std::vector<juce::uint8> b (bytes.begin(), bytes.end());
    return juce::MidiMessage (b.data(), (int) b.size());
}

inline juce::MidiMessage sysexOf (const juce::MemoryBlock& m) { return juce::MidiMessage (m.getData(), (int) m.getSize()); }

// What a destination has been sent so far, as bytes; the log is emptied.
inline Bytes takeLog (InProcessMidiBackend& backend, const juce::String& destination)
{
    Bytes out;
    for (auto& t : backend.messagesTo (destination))
        out.emplace_back (t.message.getRawData(), t.message.getRawData() + t.message.getRawDataSize());
    backend.clearLog (destination);
    return out;
}

// A MidiCntrState with a settings folder of its own, whose saved ports name a
// virtual Corvane on in-process MIDI, so that InitializeMe opens both ports.
// The host tables map sound parameter s to host parameter s with a top of
// 255, so that a change handed to the host reads back as (parameter, value).
class LinkedState
{
public:
    explicit LinkedState (bool savePorts = true)
    {
        state.settingsFolder = folder.dir;
        if (savePorts)
        {
            state.portNames = juce::StringArray ("Corvane", "Corvane", "NONE");
            state.SavePortStrings();
            state.portNames.clear();
        }
        state.InitializeMe();
        state.soundToHost.clearQuick();
        state.paramMax.clearQuick();
        for (int i = 0; i < 400; ++i)
        {
            state.soundToHost.add ((juce::uint16) i);
            state.paramMax.add (255);
        }
        drainCodes();
    }

    Codes drainCodes()
    {
        Codes codes;
        for (unsigned code = 0; state.popUpdateCode (code);)
            codes.push_back (code);
        return codes;
    }

    HostChanges drainHost()
    {
        HostChanges out;
        for (HandlerComp::PendingParam p; state.handler->nextPending (p);)
            out.emplace_back (p.index, (int) std::lround (p.value * 255.0f));
        return out;
    }

    // Bytes that went out towards the instrument since the last call.
    Bytes sent() { return takeLog (backend, device.inputId); }

    void receive (const juce::MidiMessage& m) { state.handleIncomingMidiMessage (nullptr, m); }
    void receive (const juce::MemoryBlock& sysex) { receive (sysexOf (sysex)); }

    // The edit buffer holds words 0 to 199 as given, where a dump carries them.
    void expectEditBuffer (const VirtualCorvane::Program& words, bool onlyCarried = false)
    {
        for (int i = 0; i < 200; ++i)
            if (! onlyCarried || ! ((i >= 115 && i <= 119) || (i >= 126 && i <= 149) || i >= 175))
            {
                ASSERT_EQ (state.editBuffer->patchData[i], words[i]) << "word " << i;
            }
    }

    ScratchFolder folder; // first: it outlives the state, which saves its files on the way out

    InProcessMidiBackend backend;
    InProcessCorvane device { backend };
    MidiCntrState state { &backend };
};
