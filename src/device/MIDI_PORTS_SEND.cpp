#include "device/MIDI_PORTS_Control.h"

namespace
{
double nowMs()
{
    return (double) juce::Time::getMillisecondCounter();
}
} // namespace

void MIDI_PORTS_Control::send (const juce::uint8* data, int numBytes, double timeMs)
{
    ++sendersInside;
    if (auto* out = sendTarget.load())
        out->send (data, numBytes, timeMs);
    --sendersInside;
}

void MIDI_PORTS_Control::Send_CC (int channel, int controller, int value)
{
    if (channel < 0 || channel >= 17 || ! outputOpen)
        return;
    const juce::uint8 bytes[] = { (juce::uint8) (0xB0 + juce::jmax (channel, 1) - 1), (juce::uint8) (controller & 127), (juce::uint8) (value & 127) };
    send (bytes, 3, nowMs());
}

void MIDI_PORTS_Control::Send_PitchBend (int channel, int value)
{
    if (channel < 0 || channel >= 17 || ! outputOpen)
        return;
    const juce::uint8 bytes[] = { (juce::uint8) (0xE0 + juce::jmax (channel, 1) - 1), (juce::uint8) (value & 127), (juce::uint8) ((value >> 7) & 127) };
    send (bytes, 3, nowMs());
}

void MIDI_PORTS_Control::Send_SYSEX (juce::MemoryBlock data)
{
    if (! outputOpen)
        return;
    send (static_cast<const juce::uint8*> (data.getData()), (int) data.getSize(), nowMs());
}

void MIDI_PORTS_Control::sendShortMessage (const juce::uint8* data, int numBytes)
{
    sendMessageAt (data, numBytes, nowMs());
}

void MIDI_PORTS_Control::sendMessageAt (const juce::uint8* data, int numBytes, double timeMs)
{
    if (outputOpen)
        send (data, numBytes, timeMs);
}

void MIDI_PORTS_Control::sendBlockOfMessages (const juce::MidiBuffer& buffer, double startMs, double sampleRate)
{
    if (! outputOpen || sampleRate <= 0.0)
        return;
    for (const auto event : buffer)
        send (event.data, event.numBytes, startMs + event.samplePosition * 1000.0 / sampleRate);
}
