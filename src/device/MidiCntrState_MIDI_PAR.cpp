#include "device/MidiCntrState.h"

#include "device/MIDI_PORTS_Control.h"
#include "plugin/HandlerComp.h"

namespace
{
// MSB controller of the continuous parameters 17 to 45; the LSB is 32 above.
// Head Phone Amt (36) has no controller of its own and goes out on 0 and 32.
constexpr int pairController[29] = { 3, 5, 6, 8, 10, 12, 9, 11, 13, 20, 14, 15, 16, 17, 18,
                                     19, 21, 27, 22, 0, 23, 24, 25, 26, 28, 29, 30, 31, 7 };
} // namespace

void MidiCntrState::PARAMETER_CHANGE (int soundParam, int value)
{
    if (soundParam < 0 || soundParam >= 200)
        return;
    const int hostParam = soundToHost[soundParam];
    handler->SendParam (hostParam, normalisedFor (hostParam, value));
}

bool MidiCntrState::SEND_PARAM_CC (int soundParam, int value, int delayMs)
{
    int controller = -1, data = 0;
    bool pair = false;

    if (soundParam >= 17 && soundParam <= 45)
    {
        controller = pairController[soundParam - 17];
        pair = true;
    }
    else if (soundParam >= 46 && soundParam <= 55)
    {
        const int step = (soundParam == 46 || soundParam == 49 || soundParam == 52) ? 32 : 16;
        controller = soundParam + 21;
        data = (value * step) & 255;
    }
    else if (soundParam >= 56 && soundParam <= 66)
    {
        controller = soundParam + 21;
        data = (soundParam == 58 || soundParam == 59) ? (1 - value) * 127 : value * 127;
    }
    else if (soundParam == 67 || soundParam == 68)
    {
        controller = soundParam == 67 ? 88 : 65;
        data = value * 127;
    }
    else if (soundParam >= 69 && soundParam <= 72)
    {
        controller = tsCtrl[soundParam - 69];
        data = value;
        if (controller < 1)
            return false;
    }
    else
    {
        return false;
    }

    if (! portControl->outputOpen)
        return false;

    const auto status = (juce::uint8) (0xB0 + juce::jlimit (1, 16, midiChannel.load()) - 1);
    juce::uint8 bytes[6] = { status, (juce::uint8) (controller & 127), 0, status, (juce::uint8) ((controller + 32) & 127), 0 };
    auto& last = portControl->lastPair;

    if (pair)
    {
        bytes[2] = (juce::uint8) ((value >> 1) & 127);
        bytes[5] = (juce::uint8) (((value & 1) << 6) & 127);
        if (last[0] == bytes[1] && last[1] == bytes[2] && last[2] == bytes[4] && last[3] == bytes[5])
            return false;
        last[0] = bytes[1];
        last[1] = bytes[2];
        last[2] = bytes[4];
        last[3] = bytes[5];
    }
    else
    {
        bytes[2] = (juce::uint8) (data & 127);
        if (last[0] == bytes[1] && last[1] == bytes[2])
            return false;
        last[0] = bytes[1];
        last[1] = bytes[2];
    }

    // Live edits leave with the latency compensation; both halves of a pair at
    // the same moment, MSB first.
    const double at = delayMs < 1 ? (double) juce::Time::getMillisecondCounter()
                                  : juce::Time::getMillisecondCounterHiRes() + delayMs;
    portControl->sendMessageAt (bytes, 3, at);
    if (pair)
        portControl->sendMessageAt (bytes + 3, 3, at);
    return true;
}
