#include "device/MidiCntrState.h"
#include "plugin/Hn_MidiClock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace
{
struct Event
{
    int sample;
    std::vector<int> bytes;
    bool operator== (const Event& other) const { return sample == other.sample && bytes == other.bytes; }
};

std::ostream& operator<< (std::ostream& os, const Event& e)
{
    os << "@" << e.sample << ":";
    for (int b : e.bytes)
        os << " " << std::hex << b << std::dec;
    return os;
}

const std::vector<int> stop { 0xFC }, cont { 0xFB }, tick { 0xF8 };
std::vector<int> pointer (int s) { return { 0xF2, s & 127, (s >> 7) & 127 }; }

// A host transport advanced block by block, and the clock that follows it.
struct ScriptedTransport
{
    explicit ScriptedTransport (double rate = 44100.0) : sampleRate (rate)
    {
        position.bpm = 120.0;
        position.timeSigNumerator = position.timeSigDenominator = 4;
        buffer.ensureSize (3080);
    }

    std::vector<Event> block (int n, bool advance = true)
    {
        buffer.clear();
        clock.runBlock (position, sampleRate, n, buffer);

        std::vector<Event> events;
        for (const auto m : buffer)
            events.push_back ({ m.samplePosition, std::vector<int> (m.data, m.data + m.numBytes) });

        if (advance && position.isPlaying)
            position.ppqPosition += n * position.bpm / 60.0 / sampleRate;
        return events;
    }

    static std::vector<Event> without (const std::vector<int>& bytes, const std::vector<Event>& events)
    {
        std::vector<Event> kept;
        for (const auto& e : events)
            if (e.bytes != bytes)
                kept.push_back (e);
        return kept;
    }

    double sampleRate;
    juce::AudioPlayHead::CurrentPositionInfo position;
    Hn_MidiClock clock;
    juce::MidiBuffer buffer;
};
} // namespace

TEST (MidiClock, FirstBlockAfterConstructionResynchronisesOnce)
{
    ScriptedTransport host;
    EXPECT_EQ (host.block (512), (std::vector<Event> { { 0, stop }, { 0, pointer (0) } }));
    EXPECT_TRUE (host.block (512).empty());
    EXPECT_TRUE (host.block (512).empty());
}

TEST (MidiClock, StartBetweenSixteenthsWaitsForTheNextOne)
{
    ScriptedTransport host;
    host.position.ppqPosition = 2.1;
    host.block (512); // stopped: Stop and pointer, Continue armed

    host.position.isPlaying = true;
    const auto events = ScriptedTransport::without (tick, host.block (4096));

    // 0.15 quarter notes at 120 bpm and 44100 Hz is 3307.5 samples away.
    const int continueAt = (int) std::ceil ((2.25 - 2.1) * 0.5 * 44100.0);
    EXPECT_DOUBLE_EQ (host.clock.nextSixteenth, 2.25);
    EXPECT_EQ (events, (std::vector<Event> { { continueAt, cont } }));
}

TEST (MidiClock, StartAfterAJumpSendsThePointerFirst)
{
    ScriptedTransport host;
    host.block (512);
    host.position.ppqPosition = 2.1; // relocated and started in the same block
    host.position.isPlaying = true;
    const auto events = ScriptedTransport::without (tick, host.block (4096));

    ASSERT_EQ (events.size(), 2u);
    EXPECT_EQ (events[0], (Event { 0, pointer (9) }));
    EXPECT_EQ (events[1].bytes, cont);
}

TEST (MidiClock, StartOnASixteenthContinuesAtOnce)
{
    ScriptedTransport host;
    host.position.ppqPosition = 2.0;
    host.block (256);
    host.position.isPlaying = true;
    const auto events = host.block (256);
    ASSERT_FALSE (events.empty());
    EXPECT_EQ (events[0], (Event { 0, cont }));
    EXPECT_EQ (ScriptedTransport::without (tick, events).size(), 1u);
}

TEST (MidiClock, TicksFallOnExactMultiplesOfTheRoundedPeriod)
{
    EXPECT_EQ (Hn_MidiClock::samplesPerClock (120.0, 44100.0), 919); // 918.75
    EXPECT_EQ (Hn_MidiClock::samplesPerClock (120.0, 48000.0), 1000);
    EXPECT_EQ (Hn_MidiClock::samplesPerClock (120.0, 48100.0), 1002); // 1002.08: any other rate

    ScriptedTransport host;
    host.block (64);
    host.position.isPlaying = true;

    std::vector<juce::int64> tickSamples;
    juce::int64 blockStart = 0;
    for (int b = 0; b < 200; ++b)
    {
        for (const auto& e : host.block (441))
            if (e.bytes == tick)
                tickSamples.push_back (blockStart + e.sample);
        blockStart += 441;
    }

    ASSERT_EQ (tickSamples.size(), (size_t) (200 * 441 + 918) / 919);
    for (size_t k = 0; k < tickSamples.size(); ++k)
        EXPECT_EQ (tickSamples[k], (juce::int64) k * 919);
}

TEST (MidiClock, PointerBytesAreFourteenBitSixteenths)
{
    ScriptedTransport host;
    host.position.ppqPosition = 512.0; // 2048 sixteenths
    EXPECT_EQ (host.block (64), (std::vector<Event> { { 0, stop }, { 0, { 0xF2, 0, 16 } } }));
}

TEST (MidiClock, RelocationWhileStoppedAndWhilePlaying)
{
    ScriptedTransport host;
    host.block (64);

    host.position.ppqPosition = 3.3; // moved while stopped: Stop and pointer in every block it moves
    EXPECT_EQ (host.block (64), (std::vector<Event> { { 0, stop }, { 0, pointer (14) } }));
    EXPECT_TRUE (host.block (64).empty());

    host.position.ppqPosition = 4.0;
    host.position.isPlaying = true;
    host.block (512);
    host.block (512);
    EXPECT_EQ (host.clock.pending, 0);

    host.position.ppqPosition = 10.1; // moved while playing
    const auto events = ScriptedTransport::without (tick, host.block (8192));
    ASSERT_EQ (events.size(), 3u);
    EXPECT_EQ (events[0], (Event { 0, stop }));
    EXPECT_EQ (events[1], (Event { 0, pointer (41) }));
    EXPECT_EQ (events[2].bytes, cont);

    host.position.isPlaying = false; // stopping
    EXPECT_EQ (host.block (64), (std::vector<Event> { { 0, stop }, { 0, pointer ((int) std::ceil (4 * host.position.ppqPosition)) } }));
    EXPECT_TRUE (host.block (64).empty());
}

TEST (MidiClock, LoopWrapStopsOnceBeforeTheEndThenPointerAndContinue)
{
    ScriptedTransport host;
    host.position.isLooping = true;
    host.position.ppqLoopStart = 4.0;
    host.position.ppqLoopEnd = 5.0;
    host.position.ppqPosition = 4.0;
    host.block (512);
    host.position.isPlaying = true;

    std::vector<Event> seen;
    int stopsBeforeWrap = 0;
    for (int b = 0; b < 200; ++b)
    {
        const double next = host.position.ppqPosition + 512 * 2.0 / 44100.0;
        auto events = ScriptedTransport::without (tick, host.block (512));
        for (const auto& e : events)
        {
            if (e.bytes == stop)
            {
                ++stopsBeforeWrap;
                // At most one clock period before the loop's end.
                const double at = host.position.ppqPosition - 512 * 2.0 / 44100.0 + e.sample * 2.0 / 44100.0;
                EXPECT_LE ((5.0 - at) * 0.5 * 44100.0, 919.5);
            }
        }
        seen.insert (seen.end(), events.begin(), events.end());

        if (next >= 5.0) // the host wraps the loop in this block
        {
            host.position.ppqPosition = 4.0 + (next - 5.0);
            break;
        }
    }

    EXPECT_EQ (stopsBeforeWrap, 1);

    // After the wrap: the pointer to the next sixteenth, Continue when it is reached, no second Stop.
    std::vector<Event> afterWrap;
    for (int b = 0; b < 30; ++b) // less than the loop's length of 43 blocks
        for (const auto& e : ScriptedTransport::without (tick, host.block (512)))
            afterWrap.push_back (e);

    ASSERT_EQ (afterWrap.size(), 2u);
    EXPECT_EQ (afterWrap[0], (Event { 0, pointer (17) }));
    EXPECT_EQ (afterWrap[1].bytes, cont);
}

TEST (MidiClock, ALoopWithEqualEndsIsNoLoop)
{
    ScriptedTransport host;
    host.position.isLooping = true;
    host.position.ppqLoopStart = host.position.ppqLoopEnd = 1.0;
    host.block (64);
    host.position.isPlaying = true;
    for (int b = 0; b < 100; ++b)
        for (const auto& e : host.block (512))
            EXPECT_NE (e.bytes, stop);
}

TEST (MidiClock, OneMinuteSessionGivesExactlyTheExpectedTicksAndNeverAStart)
{
    ScriptedTransport host (48000.0);
    host.block (512);

    juce::int64 ticks = 0, expected = 0;
    int starts = 0;

    auto play = [&] (int blocks) {
        for (int b = 0; b < blocks; ++b)
        {
            // Ticks due in [S, S + n) on the host's time line, S the block's start in samples.
            const juce::int64 s = (juce::int64) std::floor (60.0 / host.position.bpm * host.position.ppqPosition * 48000.0 + 0.5);
            const juce::int64 period = Hn_MidiClock::samplesPerClock (host.position.bpm, 48000.0);
            auto floorDiv = [] (juce::int64 a, juce::int64 b) { return a >= 0 ? a / b : -((-a + b - 1) / b); };
            if (host.position.isPlaying)
                expected += floorDiv (s + 511, period) - floorDiv (s - 1, period);

            for (const auto& e : host.block (512))
            {
                ticks += e.bytes == tick ? 1 : 0;
                starts += e.bytes[0] == 0xFA ? 1 : 0;
            }
        }
    };

    const int blocksPerSecond = 48000 / 512;
    host.position.isPlaying = true;
    play (10 * blocksPerSecond);

    host.position.isLooping = true; // a two-bar loop over 20 seconds
    host.position.ppqLoopStart = 8.0;
    host.position.ppqLoopEnd = 16.0;
    host.position.ppqPosition = 8.0;
    for (int b = 0; b < 20 * blocksPerSecond; ++b)
    {
        play (1);
        if (host.position.ppqPosition >= 16.0)
            host.position.ppqPosition -= 8.0;
    }
    host.position.isLooping = false;

    host.position.isPlaying = false;
    play (5 * blocksPerSecond);
    host.position.ppqPosition = 33.0; // relocated while stopped
    play (5 * blocksPerSecond);

    host.position.isPlaying = true;
    host.position.bpm = 97.0; // tempo change
    play (20 * blocksPerSecond);

    EXPECT_GT (ticks, 1500);
    EXPECT_EQ (ticks, expected);
    EXPECT_EQ (starts, 0);
}

TEST (MidiClock, CompensationByModeAndRate)
{
    const int none[1] = { 0 };
    const int values[7] = { 5, 0, 0, 7, 0, 0, 9 };

    EXPECT_EQ (MidiCntrState::compensationFor (401, none, 0, 3), 32);  // 96000 Hz
    EXPECT_EQ (MidiCntrState::compensationFor (401, none, 0, 0), 66);  // 48000 Hz counts as "other"
    EXPECT_EQ (MidiCntrState::compensationFor (402, none, 0, 5), 20);
    EXPECT_EQ (MidiCntrState::compensationFor (403, none, 0, 1), 128);
    EXPECT_EQ (MidiCntrState::compensationFor (0, values, 7, 0), 5);
    EXPECT_EQ (MidiCntrState::compensationFor (0, values, 7, 3), 7);
    EXPECT_EQ (MidiCntrState::compensationFor (0, values, 3, 3), 0);   // past the end
    EXPECT_EQ (MidiCntrState::compensationFor (400, values, 7, 2), 9);
    EXPECT_EQ (MidiCntrState::compensationFor (400, values, 6, 2), 0);
    EXPECT_EQ (MidiCntrState::compensationFor (500, values, 7, 0), 0);

    MidiCntrState state;
    state.SetSyncModes (400, { 1, 2, 3, 4, 5, 6, 70 });
    state.sampleRateIndex = 2;
    EXPECT_EQ (state.getCompensation(), 70);
    EXPECT_EQ (state.iniStrings.size(), 19);
    EXPECT_EQ (state.iniStrings[10], "333");
    EXPECT_EQ (state.iniStrings[13], "3");
    EXPECT_EQ (state.iniStrings[17], "400");
    EXPECT_EQ (state.iniStrings[18], "70");

    state.SetSyncModes (0, { 11, 12 }); // absent values count as 0
    EXPECT_EQ (state.getCompensation(), 0);
    state.sampleRateIndex = 1;
    EXPECT_EQ (state.getCompensation(), 12);
    EXPECT_EQ (state.iniStrings[16], "0");
    EXPECT_EQ (state.iniStrings[18], "0");
}
