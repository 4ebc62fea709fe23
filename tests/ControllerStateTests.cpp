#include "device/MidiCntrState.h"
#include "ScratchFolder.h"

#include <gtest/gtest.h>

#include <random>
#include <thread>
#include <vector>

namespace
{
struct RecordingListener : MidiCntrStateListener
{
    explicit RecordingListener (std::vector<int>& log, int id) : calls (log), tag (id) {}
    void handle_Update (MidiCntrState*) override { calls.push_back (tag); }

    std::vector<int>& calls;
    int tag;
};

std::vector<unsigned> drain (MidiCntrState& state)
{
    std::vector<unsigned> codes;
    unsigned code = 0;
    while (state.popUpdateCode (code))
        codes.push_back (code);
    return codes;
}
} // namespace

TEST (ControllerState, ListenersAreToldLastFirstAndOnlyOnce)
{
    MidiCntrState state;
    std::vector<int> calls;
    RecordingListener a (calls, 1), b (calls, 2), c (calls, 3);

    state.addListener (&a);
    state.addListener (&b);
    state.addListener (&a); // already there: not added twice
    state.addListener (&c);

    state.Internal_UpdInt (0x440000);
    EXPECT_EQ (calls, (std::vector<int> { 3, 2, 1 }));

    calls.clear();
    state.removeListener (&b);
    state.removeListener (&b); // not found: no effect
    state.Internal_UpdInt (0x440000);
    EXPECT_EQ (calls, (std::vector<int> { 3, 1 }));

    EXPECT_EQ (drain (state), (std::vector<unsigned> { 0x440000, 0x440000 }));
}

TEST (ControllerState, NoteOffAndControllerCodes)
{
    MidiCntrState state;

    state.Internal_NoteOff (3, 60);
    state.Internal_NoteOff (3, 128); // no such note: nothing
    state.Internal_ControlChange (16, 7, 100);
    state.Internal_ControlChange (1, 128, 1); // no such controller: nothing
    state.Internal_UpdInt (0x600000);         // passes through, no one acts on it

    EXPECT_EQ (drain (state), (std::vector<unsigned> {
        0x880000u + (3u << 14) + 60u,
        0x800000u + (16u << 14) + (7u << 7) + 100u,
        0x600000u }));
}

TEST (ControllerState, QueueKeepsEachProducersOrderUnderConcurrency)
{
    const unsigned seed = (unsigned) std::random_device{}();
    std::printf ("seed %u\n", seed);
    std::mt19937 random (seed);

    MidiCntrState state;
    constexpr unsigned producers = 3, perProducer = 20000;

    std::vector<unsigned> received;
    std::atomic<bool> done { false };

    std::thread consumer ([&] {
        unsigned code = 0;
        for (;;)
        {
            const bool finished = done.load();
            while (state.popUpdateCode (code))
                received.push_back (code);
            if (finished)
                break;
            std::this_thread::yield();
        }
    });

    std::vector<std::thread> threads;
    for (unsigned p = 0; p < producers; ++p)
    {
        const unsigned pause = random() % 64;
        threads.emplace_back ([&state, p, pause] {
            for (unsigned i = 0; i < perProducer; ++i)
            {
                state.Internal_UpdInt ((p << 20) | i);
                if (i % 256 == pause)
                    std::this_thread::yield();
            }
        });
    }

    for (auto& t : threads)
        t.join();
    done = true;
    consumer.join();

    ASSERT_EQ (received.size(), (size_t) producers * perProducer);
    std::vector<unsigned> next (producers, 0);
    for (auto code : received)
    {
        const unsigned p = code >> 20;
        ASSERT_LT (p, producers);
        ASSERT_EQ (code & 0xFFFFF, next[p]) << "producer " << p;
        ++next[p];
    }
}

TEST (ControllerState, FullQueueDropsNewCodesWithoutBlocking)
{
    LockFreeQueue<uint32_t> queue (8);
    for (uint32_t i = 0; i < 8; ++i)
        EXPECT_TRUE (queue.push (i));
    EXPECT_FALSE (queue.push (99));
    EXPECT_EQ (queue.droppedCount(), 1u);

    uint32_t code = 0;
    for (uint32_t i = 0; i < 8; ++i)
    {
        ASSERT_TRUE (queue.pop (code));
        EXPECT_EQ (code, i);
    }
    EXPECT_FALSE (queue.pop (code));
    EXPECT_TRUE (queue.push (100)); // room again after the drain
}

TEST (ControllerState, HostTypeTable)
{
    struct Case { const char* path; int type; };
    const Case cases[] = {
        { "/Applications/Live 8.2/Live", 3 },
        { "/opt/Live 6.0/Live", 1 },
        { "/Applications/Live 7.0.1/Live", 2 },
        { "/opt/daw/LIVE", 4 },
        { "/Applications/Logic Pro.app/Contents/MacOS/Logic Pro", 6 },
        { "/Applications/logic pro", 0 },                      // the Logic test minds case
        { "/usr/bin/Pro Tools", 9 },
        { "/opt/hosts/Cubase 5/Cubase5", 17 }, // the name, not the path
        { "/opt/hosts/Cubase 5", 15 },
        { "/opt/hosts/cubase 7", 19 },
        { "/opt/hosts/Cubase 12", 17 },
        { "/opt/hosts/WaveLab 7/WaveLab", 22 },
        { "/opt/hosts/wavelab", 23 },
        { "/Applications/Digital Performer", 28 },
        { "/Applications/digital performer", 0 },
        { "/usr/local/bin/REAPER", 11 },
        { "/Applications/Studio One 5.app/x", 29 },
        { "/usr/bin/somehost", 0 },
    };

    for (const auto& c : cases)
        EXPECT_EQ (MidiCntrState::getHostTypeFor (c.path), c.type) << c.path;
}

TEST (ControllerState, StartUpDefaultsAndLogicCompensation)
{
    ScratchFolder settings;
    {
        MidiCntrState state;
        state.settingsFolder = settings.dir;
        state.hostPathOverride = "/usr/bin/reaper";
        state.InitializeMe();

        EXPECT_EQ (state.midiChannel.load(), 1);
        EXPECT_EQ (state.isLogicHost, 0);
        EXPECT_EQ (state.syncMode.load(), 0);
        EXPECT_EQ (state.paramMax.size(), 556);
        EXPECT_EQ (state.syncValueCount.load(), 7);
        EXPECT_FALSE (state.localFlag.load());
    }
    {
        MidiCntrState state;
        state.settingsFolder = settings.dir;
        state.hostPathOverride = "/Applications/Logic Pro X";
        state.InitializeMe();
        EXPECT_EQ (state.isLogicHost, 1);
    }
}

TEST (ControllerState, MissingSettingsSlotsReadZeroAndIgnoreWrites)
{
    MidiCntrState state;
    state.iniStrings.add ("12");
    EXPECT_EQ (state.iniSlotInt (0), 12);
    EXPECT_EQ (state.iniSlotInt (1), 0);
    EXPECT_EQ (state.iniSlotInt (-1), 0);
    state.setIniSlot (5, "7");
    state.setIniSlot (-3, "7");
    EXPECT_EQ (state.iniStrings.size(), 1);
}
