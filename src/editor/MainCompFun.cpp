// Programs from the panel to the instrument.

#include "editor/MainComp.h"

#include "device/MIDI_PORTS_Control.h"
#include "device/MidiCntrState.h"
#include "sound/AutoBank.h"

void MainComp::SEND_PROGRAM (bool toBank, int bank, int program, juce::Array<unsigned short> parameters, bool display)
{
    juce::MemoryBlock frame;

    if (toBank)
    {
        auto* store = juce::isPositiveAndBelow (bank, (int) state->banks.size()) ? state->banks[(size_t) bank] : nullptr;
        if (store == nullptr)
            return;
        if (parameters.size() == AutoBank::numParameters)
            store->setStoredProgram (program, parameters);
        frame = store->Export_Syx_Bank_Rom_MB (program, program, state->deviceId, 0);
    }
    else
    {
        auto& words = state->editBuffer->patchData;
        words.resize (AutoBank::numParameters);
        for (int i = 0; i < AutoBank::numParameters; ++i)
            words.set (i, parameters[i]); // missing values read as 0
        frame = state->editBuffer->Export_Syx_Patch_Buf_MB (state->deviceId);
    }

    state->portControl->Send_SYSEX (frame);

    if (display)
        Display_Program();
}

void MainComp::TransmitBuffer()
{
    juce::Array<unsigned short> words;
    for (int i = 0; i < AutoBank::numParameters; ++i)
        words.add (state->editBuffer->patchData[i]);
    SEND_PROGRAM (false, -1, -1, words, true);
}

void MainComp::PasteBuffer()
{
    if (! copyBufferFull || copyBuffer == nullptr)
        return;

    SEND_PROGRAM (false, 0, 0, copyBuffer->getStoredProgram (0), true);
}
