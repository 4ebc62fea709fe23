#include "device/MidiCntrState.h"

#include "device/MIDI_PORTS_Control.h"
#include "plugin/HandlerComp.h"

namespace
{
// Sound parameter of each high-resolution MSB controller, 3 to 31. Controller
// 4 is not used by the instrument and reads as parameter 0.
constexpr int msbParameter[29] = { 17, 0, 18, 19, 45, 20, 23, 21, 24, 22, 25, 27, 28, 29, 30,
                                   31, 32, 26, 33, 35, 37, 38, 39, 40, 34, 41, 42, 43, 44 };

// Value steps of the stepped controllers 67 to 73; 74 to 76 step by 16.
constexpr int controllerStep[7] = { 32, 16, 16, 32, 16, 16, 32 };

// An unfinished SysEx is dropped past this size: the longest message the
// instrument sends is 154 bytes.
constexpr int maxSysexBytes = 65536;
} // namespace

void MidiCntrState::handleIncomingMidiMessage (juce::MidiInput*, const juce::MidiMessage& message)
{
    const auto* raw = message.getRawData();
    const int size = message.getRawDataSize();
    if (size <= 0)
        return;

    const int status = raw[0];
    // Missing data bytes read as 0; a stray top bit is not the wire's.
    const int data1 = size > 1 ? raw[1] & 127 : 0;
    const int data2 = size > 2 ? raw[2] & 127 : 0;
    const int channelCode = status < 0xF0 ? ((status & 15) + 1) << 14 : 0;

    switch (status & 0xF0)
    {
        case 0x90:
            if (data2 > 0)
            {
                SendVST3_Message (message);
                Internal_UpdInt ((unsigned int) (0x240000 + channelCode + (data1 << 7) + data2));
                return;
            }
            [[fallthrough]];
        case 0x80:
            SendVST3_Message (message);
            Internal_UpdInt ((unsigned int) (0x200000 + channelCode + data1));
            return;
        case 0xA0:
        case 0xD0:
            SendVST3_Message (message);
            break;
        case 0xB0:
            receiveController (message, channelCode, data1, data2);
            return;
        case 0xC0:
            programNumber = data1;
            SendVST3_Message (message);
            PROGRAM_MESSAGE (bankNumber, programNumber, false, true);
            break;
        case 0xE0:
            SendVST3_Message (message);
            Internal_UpdInt ((unsigned int) (0x380000 + channelCode + ((data2 << 7) | data1)));
            return;
        default:
            break;
    }

    // SysEx, whole or in pieces. Pressure and program change fall in here as
    // well, and join a SysEx that is still unfinished.
    if (raw[0] == 0xF0)
        sysexBuffer.clearQuick();
    else if (sysexBuffer.isEmpty())
        return;

    if (sysexBuffer.size() + size > maxSysexBytes)
    {
        sysexBuffer.clear();
        return;
    }
    sysexBuffer.addArray (raw, size);

    if (sysexBuffer.getFirst() == 0xF0 && sysexBuffer.getLast() == 0xF7)
    {
        const auto complete = sysexBuffer;
        sysexBuffer.clearQuick();
        MIDIExclRec (complete);
    }
}

void MidiCntrState::receiveController (const juce::MidiMessage& message, int channelCode, int cc, int v)
{
    if (cc == 32)
    {
        bankNumber = v;
        SendVST3_Message (message);
        return;
    }
    if (cc == 1)
    {
        SendVST3_Message (message);
        Internal_UpdInt ((unsigned int) (0x2C0000 + channelCode + (1 << 7) + v));
        return;
    }
    if (cc == 0)
    {
        SendVST3_Message (message);
        return;
    }

    // The touch surface's controllers are the program's own and come first.
    for (int i = 0; i < 4; ++i)
    {
        if (cc == tsCtrl[i])
        {
            const int hostParam = soundToHost[69 + i];
            handler->SendParam (hostParam, normalisedFor (hostParam, v));
            return;
        }
    }

    if (cc >= 3 && cc <= 31)
    {
        pendingParam = (juce::uint8) msbParameter[cc - 3];
        pendingMsb = (juce::uint8) v;
    }
    else if (cc >= 35 && cc <= 63)
        PARAMETER_CHANGE (pendingParam, ((pendingMsb << 7) | v) >> 6);
    else if (cc >= 67 && cc <= 76)
        PARAMETER_CHANGE (cc - 21, v / (cc <= 73 ? controllerStep[cc - 67] : 16));
    else if (cc == 77 || cc == 78)
        PARAMETER_CHANGE (cc - 21, v / 127);
    else if (cc == 79 || cc == 80)
        PARAMETER_CHANGE (cc - 21, 1 - v / 127); // these two switches travel inverted
    else if (cc >= 81 && cc <= 85)
        PARAMETER_CHANGE (cc - 21, v / 127);
    else if (cc == 65)
        PARAMETER_CHANGE (68, v / 127);
    else if (cc >= 86 && cc <= 88)
        PARAMETER_CHANGE (cc - 21, v / 127);
    else
        SendVST3_Message (message);
}
