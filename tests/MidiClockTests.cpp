#include "device/MidiCntrState.h"
#include "plugin/Hn_MidiClock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace
{
using Event = std::pair<int, std::vector<int>>; // sample position and bytes
using Events = std::vector<Event>;
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

    Events block (int n, bool withTicks = true)
    {
        buffer.clear();
        clock.runBlock (position, sampleRate, n, buffer);
        Events events;
        for (const auto m : buffer)
            if (withTicks || m.data[0] != 0xF8)
                events.push_back ({ m.samplePosition, std::vector<int> (m.data, m.data + m.numBytes) });
        if (position.isPlaying)
            position.ppqPosition += n * position.bpm / 60.0 / sampleRate;
        return events;
    }

    void startAt (double ppq) // stopped there for one block first, as a host does
    {
        position.ppqPosition = ppq;
        block (64);
        position.isPlaying = true;
    }

    void loop (double start, double end)
    {
        position.isLooping = true;
        position.ppqLoopStart = start;
        position.ppqLoopEnd = end;
    }

    double sampleRate;
    juce::AudioPlayHead::CurrentPositionInfo position;
    Hn_MidiClock clock;
    juce::MidiBuffer buffer;
};
} // namespace

TEST (MidiClock, FirstBlockAndStartsBetweenAndOnSixteenths)
{
    ScriptedTransport first;
    EXPECT_EQ (first.block (512), (Events { { 0, stop }, { 0, pointer (0) } }));
    EXPECT_TRUE (first.block (512).empty());

    // Started at 2.1: Continue waits for 2.25, 0.15 quarter notes or 3307.5 samples away.
    ScriptedTransport at21;
    at21.startAt (2.1); // stopped: Stop and pointer, Continue armed
    EXPECT_EQ (at21.block (4096, false), (Events { { 3308, cont } }));

    // Started on a sixteenth: Continue at once, before the first tick. At 120 bpm and 44100 Hz the
    // period of 918.75 samples rounds to 919 and ticks fall on its exact multiples: 44112 = 48 * 919.
    ScriptedTransport at20;
    at20.startAt (2.0);
    EXPECT_EQ (at20.block (2048), (Events { { 0, cont }, { 12, tick }, { 931, tick }, { 1850, tick } }));
}

TEST (MidiClock, PointerAndRelocationWhileStoppedAndWhilePlaying)
{
    ScriptedTransport far;
    far.position.ppqPosition = 512.0; // 2048 sixteenths: 14 bits, low 7 first
    EXPECT_EQ (far.block (64), (Events { { 0, stop }, { 0, { 0xF2, 0, 16 } } }));

    ScriptedTransport host;
    host.block (64);
    host.position.ppqPosition = 3.3; // moved while stopped: Stop and pointer in every block it moves
    EXPECT_EQ (host.block (64), (Events { { 0, stop }, { 0, pointer (14) } }));
    EXPECT_TRUE (host.block (64).empty());

    host.startAt (4.0);
    host.block (1024);
    host.position.ppqPosition = 10.1; // moved while playing
    const auto events = host.block (8192, false);
    ASSERT_EQ (events.size(), 3u);
    EXPECT_EQ (events[0], (Event { 0, stop }));
    EXPECT_EQ (events[1], (Event { 0, pointer (41) }));
    EXPECT_EQ (events[2].second, cont);

    host.position.isPlaying = false; // stopping
    EXPECT_EQ (host.block (64), (Events { { 0, stop }, { 0, pointer ((int) std::ceil (4 * host.position.ppqPosition)) } }));
    EXPECT_TRUE (host.block (64).empty());
}

TEST (MidiClock, LoopWrapStopsOnceBeforeTheEndThenPointerAndContinue)
{
    ScriptedTransport host;
    host.loop (4.0, 5.0);
    host.startAt (4.0);

    const double blockPpq = 512 * 2.0 / 44100.0;
    int stopsBeforeWrap = 0;
    for (bool wrapped = false; ! wrapped;)
    {
        const double start = host.position.ppqPosition;
        for (const auto& e : host.block (512, false))
            if (e.second == stop)
            {
                ++stopsBeforeWrap; // at most one clock period before the loop's end
                EXPECT_LE ((5.0 - start - e.first * 2.0 / 44100.0) * 0.5 * 44100.0, 919.5);
            }
        wrapped = start + blockPpq >= 5.0; // the host wraps the loop in this block
        if (wrapped)
            host.position.ppqPosition = start + blockPpq - 1.0;
    }
    EXPECT_EQ (stopsBeforeWrap, 1);

    // After the wrap: the pointer to the next sixteenth, Continue when it is reached, no second Stop.
    Events afterWrap;
    for (int b = 0; b < 30; ++b) // less than the loop's length of 43 blocks
        for (const auto& e : host.block (512, false))
            afterWrap.push_back (e);
    ASSERT_EQ (afterWrap.size(), 2u);
    EXPECT_EQ (afterWrap[0], (Event { 0, pointer (17) }));
    EXPECT_EQ (afterWrap[1].second, cont);

    ScriptedTransport empty; // a loop with equal ends is no loop
    empty.loop (1.0, 1.0);
    empty.startAt (0.0);
    for (int b = 0; b < 100; ++b)
        for (const auto& e : empty.block (512))
            EXPECT_NE (e.second, stop);
}

TEST (MidiClock, OneMinuteSessionGivesExactlyTheExpectedTicksAndNeverAStart)
{
    ScriptedTransport host (48000.0);
    host.startAt (0.0);
    juce::int64 ticks = 0, expected = 0;
    int starts = 0;

    const int blocksPerSecond = 48000 / 512;
    auto play = [&] (double seconds, double loopLength = 0.0) {
        for (int b = 0; b < seconds * blocksPerSecond; ++b)
        {
            // Ticks due in [S, S + n) on the host's time line, S the block's start in samples.
            const juce::int64 s = (juce::int64) std::floor (60.0 / host.position.bpm * host.position.ppqPosition * 48000.0 + 0.5);
            const juce::int64 period = Hn_MidiClock::samplesPerClock (host.position.bpm, 48000.0);
            if (host.position.isPlaying)
                expected += (s + 511) / period - (s + period - 1) / period + 1;
            for (const auto& e : host.block (512))
            {
                ticks += e.second == tick ? 1 : 0;
                starts += e.second[0] == 0xFA ? 1 : 0;
            }
            if (loopLength > 0.0 && host.position.ppqPosition >= host.position.ppqLoopEnd)
                host.position.ppqPosition -= loopLength;
        }
    };

    play (10);
    host.loop (8.0, 16.0); // a two-bar loop over 20 seconds
    host.position.ppqPosition = 8.0;
    play (20, 8.0);
    host.position.isLooping = host.position.isPlaying = false;
    play (5);
    host.position.ppqPosition = 33.0; // relocated while stopped
    play (5);
    host.position.isPlaying = true;
    host.position.bpm = 97.0; // tempo change
    play (20);

    EXPECT_GT (ticks, 1500);
    EXPECT_EQ (ticks, expected);
    EXPECT_EQ (starts, 0);
}

TEST (MidiClock, CompensationByModeAndRateAndItsSettingsSlots)
{
    const int none[1] = { 0 }, values[7] = { 5, 0, 0, 7, 0, 0, 9 };
    // {mode, value count, rate index, expected}; 48000 Hz has index 0 and counts as "other".
    const int table[][4] = { { 401, 0, 3, 32 }, { 401, 0, 0, 66 }, { 402, 0, 5, 20 }, { 403, 0, 1, 128 },
                             { 0, 7, 0, 5 }, { 0, 7, 3, 7 }, { 0, 3, 3, 0 }, { 400, 7, 2, 9 }, { 400, 6, 2, 0 },
                             { 500, 7, 0, 0 } };
    for (auto& t : table)
        EXPECT_EQ (MidiCntrState::compensationFor (t[0], t[1] == 0 ? none : values, t[1], t[2]), t[3])
            << t[0] << " " << t[1] << " " << t[2];

    MidiCntrState state;
    state.SetSyncModes (400, { 1, 2, 3, 4, 5, 6, 70 });
    state.sampleRateIndex = 2;
    EXPECT_EQ (state.getCompensation(), 70);
    for (auto [slot, text] : { std::pair { 10, "333" }, { 13, "3" }, { 17, "400" }, { 18, "70" } })
        EXPECT_EQ (state.iniStrings[slot], text) << slot;

    state.SetSyncModes (0, { 11, 12 }); // absent values count as 0
    state.sampleRateIndex = 1;
    EXPECT_EQ (state.getCompensation(), 12);
    EXPECT_EQ (state.iniStrings[16] + state.iniStrings[18], "00");
}
