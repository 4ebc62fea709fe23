#include "plugin/Hn_MidiClock.h"

#include <cmath>

namespace
{
constexpr juce::uint8 continueDue = 2;
constexpr juce::uint8 loopEndStopSent = 1;

juce::int64 roundHalfUp (double value) { return (juce::int64) std::floor (value + 0.5); }
} // namespace

Hn_MidiClock::Hn_MidiClock()
    : msgClock (std::make_unique<juce::MidiMessage> (0xF8)),
      msgContinue (std::make_unique<juce::MidiMessage> (0xFB)),
      msgStop (std::make_unique<juce::MidiMessage> (0xFC)),
      msgSongPosition (std::make_unique<juce::MidiMessage> (0xF2, 0, 0))
{
}

Hn_MidiClock::~Hn_MidiClock()
{
    msgSongPosition.reset();
    msgStop.reset();
    msgContinue.reset();
    msgClock.reset();
}

int Hn_MidiClock::samplesPerClock (double bpm, double sampleRate)
{
    return (int) std::nearbyint (60.0 * sampleRate / (bpm * 24.0));
}

void Hn_MidiClock::addPointer (int sixteenths, juce::MidiBuffer& clockBuffer)
{
    // The message's bytes are rewritten in place: no allocation on the audio thread.
    auto* bytes = const_cast<juce::uint8*> (msgSongPosition->getRawData());
    bytes[1] = (juce::uint8) (sixteenths & 127);
    bytes[2] = (juce::uint8) ((sixteenths >> 7) & 127);
    clockBuffer.addEvent (*msgSongPosition, 0);
}

void Hn_MidiClock::runBlock (const juce::AudioPlayHead::CurrentPositionInfo& position, double sampleRate,
                             int numSamples, juce::MidiBuffer& clockBuffer)
{
    const double r = sampleRate;
    const double t = position.bpm;

    // A tempo or rate that gives no clock period leaves the clock where it stands.
    if (! (r > 0.0 && t > 0.0 && std::isfinite (t) && std::isfinite (position.ppqPosition))
        || samplesPerClock (t, r) < 1)
        return;

    const double ppqPerSample = (t / 60.0) / r;
    const double ppq = offsetSamples * ppqPerSample + position.ppqPosition;
    const double window = r * toleranceSeconds * ppqPerSample;
    const bool jump = lastPpq - window > ppq || ppq > lastPpq + window;

    if (! (position.isPlaying || position.isRecording))
    {
        if (wasPlaying || jump)
        {
            clockBuffer.addEvent (*msgStop, 0);
            addPointer ((int) std::ceil (4.0 * ppq), clockBuffer);
        }

        lastPpq = ppq;
        pending = continueDue;
        wasPlaying = false;
        return;
    }

    if (wasPlaying)
    {
        if (jump)
        {
            const int s = (int) std::ceil (4.0 * ppq);
            nextSixteenth = 0.25 * s;

            if (pending == 0)
            {
                clockBuffer.addEvent (*msgStop, 0);
                addPointer (s, clockBuffer);
                pending = continueDue;
            }
            else if (! stopAtLoopEnd)
            {
                pending = 0;
            }
            else
            {
                // The Stop for the loop's end has gone out already.
                addPointer (s, clockBuffer);
                pending = continueDue;
            }
        }
    }
    else
    {
        nextSixteenth = std::ceil (4.0 * ppq) * 0.25;

        if (jump)
            addPointer ((int) std::ceil (4.0 * nextSixteenth), clockBuffer);
    }

    const juce::int64 period = samplesPerClock (t, r);
    const juce::int64 blockStart = roundHalfUp ((60.0 / t) * ppq * r);
    const bool looping = position.isLooping && position.ppqLoopStart != position.ppqLoopEnd;

    for (int i = 0; i < numSamples; ++i)
    {
        lastPpq = i * ppqPerSample + ppq;

        if (lastPpq >= nextSixteenth)
        {
            if ((pending & continueDue) != 0)
            {
                clockBuffer.addEvent (*msgContinue, i);
                pending &= (juce::uint8) ~continueDue;
            }

            if (looping && (pending & loopEndStopSent) == 0)
            {
                const auto toLoopEnd = roundHalfUp ((60.0 / t) * std::abs (position.ppqLoopEnd - lastPpq) * r);

                // Stop a moment before the loop's end; the jump back is then taken without one.
                if (period >= toLoopEnd)
                {
                    if (stopAtLoopEnd)
                        clockBuffer.addEvent (*msgStop, i);
                    pending |= loopEndStopSent;
                }
            }
        }

        // Ticks fall on exact multiples of the period on the host's time line.
        if (enabled && (blockStart + i) % period == 0)
            clockBuffer.addEvent (*msgClock, i);
    }

    wasPlaying = true;
}
