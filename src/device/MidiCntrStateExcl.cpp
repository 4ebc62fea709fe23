#include "device/MidiCntrState.h"

#include "device/MIDI_PORTS_Control.h"
#include "sound/AutoBank.h"

void MidiCntrState::MIDIExclRec (juce::Array<unsigned char> message)
{
    Internal_UpdInt (0x500000);
    if (message.size() < 5)
        return;

    // Only the type byte is looked at: the header bytes are not checked.
    if (message[4] == 3)
    {
        Rec_Sound_Dump (message);
    }
    else if (message[4] == 2)
    {
        // The settings belong to the message thread: the scan's next tick stores this pair.
        if (scanActive)
        {
            scanReplyInput = scanInput.load();
            scanReplyOutput = scanOutput.load();
        }
        deviceOnline = true;
        Rec_Sound_Dump (message);
        Internal_UpdInt (0x480000);
    }
}

void MidiCntrState::Rec_Sound_Dump (juce::Array<unsigned char> message)
{
    if (message.size() == 149)
    {
        editBuffer->PatchImport_Syx (message);
        Internal_UpdInt (0x440000);
        return;
    }
    if (message.size() != 154)
        return;

    // The program comes from the dump and the bank from the last bank select:
    // either may name a place that does not exist, and then the dump is ignored.
    const int program = message[5];
    const int bank = bankNumber;
    if (program >= 128 || bank < 0 || bank >= (int) banks.size())
        return;

    const juce::Array<unsigned char> record (message.begin() + 1, 149);

    if (! bankDumpActive)
    {
        programNumber = program;
        banks[bank]->Import_Syx_U8 (program, record);
        Internal_UpdInt (0x600000);
        editBuffer->PatchImport_Syx (message); // takes 149 bytes only: the edit buffer stays as it is
        Internal_UpdInt (0x440000);
        return;
    }

    banks[bank]->Import_Syx_U8 (program, record);
    if (! transferBusy)
        return; // cancelled

    Internal_UpdInt ((unsigned int) (0x5C0000 + (bank << 8) + program));
    if (program <= 126)
    {
        Dump_Request (6, program + 1, 0);
        return;
    }

    if (transferKind == 50 && bank != (int) banks.size() - 2)
    {
        transferBank = bank + 1;
        transferProgram = 0;
        SEND_BANKch (midiChannel, transferBank);
        Dump_Request (6, transferProgram, 0);
        return;
    }

    Internal_UpdInt (0x640000);
    Internal_UpdInt (0x580000);
}
