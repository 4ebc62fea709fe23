#include "device/MidiCntrState.h"

#include "device/MIDI_PORTS_Control.h"
#include "plugin/HandlerComp.h"
#include "sound/AutoBank.h"

void MidiCntrState::getPOLL()
{
    deviceOnline = false;
    Internal_UpdInt (0x4C0000);
    Dump_Request (5, 0, 0);
}

void MidiCntrState::Dump_Request (int kind, int program, int)
{
    if (! portControl->outputOpen)
        return;

    const auto id = (juce::uint8) (deviceId & 127);
    if (kind == 5)
    {
        const juce::uint8 request[] = { 0xF0, 0x04, 0x01, id, 0x05, 0xF7 };
        portControl->Send_SYSEX (juce::MemoryBlock (request, sizeof (request)));
    }
    else if (kind == 6)
    {
        const juce::uint8 request[] = { 0xF0, 0x04, 0x01, id, 0x06, (juce::uint8) (program & 127), 0xF7 };
        portControl->Send_SYSEX (juce::MemoryBlock (request, sizeof (request)));
    }
    else
    {
        const juce::uint8 header[] = { 0xF0, 0x04, 0x01 };
        portControl->Send_SYSEX (juce::MemoryBlock (header, sizeof (header)));
    }
}

void MidiCntrState::SEND_HOST_DISPLAY()
{
    editBuffer->BankToPatch (hostProgram);

    static const int tsParams[] = { 83, 87, 91, 94 };
    for (int i = 0; i < 4; ++i)
        tsCtrl[i] = editBuffer->patchData[tsParams[i]];

    portControl->Send_SYSEX (editBuffer->Export_Syx_Patch_Buf_MB (deviceId));
    Internal_UpdInt (0x440000);
}

void MidiCntrState::SEND_BNPR (int channel, int bank, int program, bool sendToDevice, bool tellHost)
{
    if (tellHost)
    {
        handler->SendParam (89, normalisedFor (89, bank));
        handler->SendParam (56, normalisedFor (56, program));
    }

    if (sendToDevice)
    {
        portControl->Send_CC (channel, 0, 0);
        portControl->Send_CC (channel, 32, bank);
        if (program < 128 && channel >= 0 && channel < 17)
        {
            const juce::uint8 change[] = { (juce::uint8) (0xC0 + juce::jmax (channel, 1) - 1), (juce::uint8) (program & 127) };
            portControl->sendShortMessage (change, 2);
        }
    }
}

void MidiCntrState::SEND_BANKch (int channel, int bank)
{
    bankNumber = bank;
    portControl->Send_CC (channel, 0, 0);
    portControl->Send_CC (channel, 32, bank);
}

void MidiCntrState::PROGRAM_MESSAGE (int bank, int program, bool sendToDevice, bool tellHost)
{
    // A bank or program from the wire may lie outside the store: such a
    // selection is ignored whole.
    if (bank < 0 || bank >= (int) banks.size() || program < 0 || program >= 128)
        return;

    if (bankNumber != bank)
        bankNumber = bank;
    if (programNumber != program)
        programNumber = program;

    banks[bank]->copyStoredProgram (program, editBuffer->patchData);

    Internal_UpdInt (0x440000);
    SEND_BNPR (midiChannel, bankNumber, programNumber, sendToDevice, tellHost);
}
