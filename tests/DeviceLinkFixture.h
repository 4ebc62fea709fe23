#pragma once

#include "InProcessCorvane.h"
#include "ScratchFolder.h"
#include "device/InProcessMidiBackend.h"
#include "device/MIDI_PORTS_Control.h"
#include "device/MidiCntrState.h"
#include "plugin/HandlerComp.h"
#include "sound/AutoBank.h"

#include <cmath>
#include <vector>

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

    std::vector<unsigned> drainCodes()
    {
        std::vector<unsigned> codes;
        unsigned code = 0;
        while (state.popUpdateCode (code))
            codes.push_back (code);
        return codes;
    }

    // Changes handed to the host, as (host parameter, value in its units).
    std::vector<std::pair<int, int>> drainHost()
    {
        std::vector<std::pair<int, int>> out;
        HandlerComp::PendingParam p;
        while (state.handler->nextPending (p))
            out.emplace_back (p.index, (int) std::lround (p.value * 255.0f));
        return out;
    }

    // Bytes that went out towards the instrument since the last call.
    std::vector<std::vector<int>> sent()
    {
        std::vector<std::vector<int>> out;
        for (auto& t : backend.messagesTo (device.inputId))
            out.emplace_back (t.message.getRawData(), t.message.getRawData() + t.message.getRawDataSize());
        backend.clearLog (device.inputId);
        return out;
    }

    void receive (const juce::MidiMessage& m) { state.handleIncomingMidiMessage (nullptr, m); }
    void receive (const juce::MemoryBlock& sysex) { receive (juce::MidiMessage (sysex.getData(), (int) sysex.getSize())); }

    // What the bank menu does to receive one bank (kind 0) or all (kind 50).
    void startBankReceive (int bank, int kind)
    {
        state.transferKind = kind;
        state.transferBusy = true;
        state.bankDumpActive = true;
        state.bankNumber = bank;
        state.SEND_BANKch (state.midiChannel, bank);
        state.Dump_Request (6, 0, 0);
    }

    // What the progress bar does when the receive ends or is cancelled.
    void endBankReceive (int savedBank)
    {
        state.SEND_BNPR (state.midiChannel, savedBank, state.programNumber, true, false);
        state.transferBusy = false;
        state.bankDumpActive = false;
        state.transferKind = -1;
    }

    ScratchFolder folder; // first: it outlives the state, which saves its files on the way out

    InProcessMidiBackend backend;
    InProcessCorvane device { backend };
    MidiCntrState state { &backend };
};

// Sound parameters that a dump carries; the others keep what they held.
inline bool carriedByDump (int i)
{
    return ! ((i >= 115 && i <= 119) || (i >= 126 && i <= 149) || i >= 175);
}
