#include "LinkedProcessor.h"

#include <gtest/gtest.h>

#include <random>
#include <thread>

namespace
{
struct RecordingListener : MidiCntrStateListener
{
    RecordingListener (std::vector<int>& log, int id) : calls (log), tag (id) {}
    void handle_Update (MidiCntrState*) override { calls.push_back (tag); }

    std::vector<int>& calls;
    int tag;
};
} // namespace

TEST (ControllerState, ListenersAndInternalCodes)
{
    MidiCntrState state;
    std::vector<int> calls;
    RecordingListener a (calls, 1), b (calls, 2), c (calls, 3);
    for (auto* l : { &a, &b, &a, &c }) // a second add of the same listener is ignored
        state.addListener (l);
    state.Internal_UpdInt (0x440000); // last added is told first
    state.removeListener (&b);
    state.removeListener (&b); // not found: no effect
    state.Internal_UpdInt (0x440000);
    EXPECT_EQ (calls, (std::vector<int> { 3, 2, 1, 3, 1 }));

    state.Internal_NoteOff (3, 60);
    state.Internal_NoteOff (3, 128); // no such note: nothing
    state.Internal_ControlChange (16, 7, 100);
    state.Internal_ControlChange (1, 128, 1); // no such controller: nothing
    state.Internal_UpdInt (0x600000);         // passes through, no one acts on it
    EXPECT_EQ (drainCodes (state), (std::vector<unsigned> { 0x440000, 0x440000, 0x880000u + (3u << 14) + 60u,
                                                            0x800000u + (16u << 14) + (7u << 7) + 100u, 0x600000u }));
}

TEST (ControllerState, RegistrationDropsStaleCodesAndRemovalInsideNotificationReturns)
{
    MidiCntrState state;
    for (unsigned v = 0; v < 1000; ++v)
        state.Internal_UpdInt (0x400000u + v);

    // A listener that leaves from inside its own notification, as an editor closing on an update.
    struct Leaving : MidiCntrStateListener
    {
        void handle_Update (MidiCntrState* s) override
        {
            ++calls;
            s->removeListener (this);
        }
        int calls = 0;
    } leaving;

    state.addListener (&leaving);
    EXPECT_TRUE (drainCodes (state).empty());
    state.Internal_UpdInt (0x440000);
    state.Internal_UpdInt (0x440000);
    EXPECT_EQ (leaving.calls, 1);
    EXPECT_EQ (drainCodes (state), (std::vector<unsigned> { 0x440000, 0x440000 }));
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
        for (bool finished = false; ! finished; std::this_thread::yield())
        {
            finished = done.load();
            for (unsigned code = 0; state.popUpdateCode (code);)
                received.push_back (code);
        }
    });

    std::vector<std::thread> threads;
    for (unsigned p = 0; p < producers; ++p)
        threads.emplace_back ([&state, p, pause = random() % 64] {
            for (unsigned i = 0; i < perProducer; ++i)
            {
                state.Internal_UpdInt ((p << 20) | i);
                if (i % 256 == pause)
                    std::this_thread::yield();
            }
        });
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
        ASSERT_EQ (code & 0xFFFFF, next[p]++) << "producer " << p;
    }
}

TEST (ControllerState, FullQueueDropsNewCodesWithoutBlocking)
{
    LockFreeQueue<uint32_t> queue (8);
    for (uint32_t i = 0; i < 9; ++i)
        EXPECT_EQ (queue.push (i), i < 8) << i;
    EXPECT_EQ (queue.droppedCount(), 1u);
    uint32_t code = 0;
    for (uint32_t i = 0; i < 9; ++i)
        EXPECT_EQ (queue.pop (code) ? (int) code : -1, i < 8 ? (int) i : -1) << i;
    EXPECT_TRUE (queue.push (100)); // room again after the drain
}

TEST (ControllerState, HostTypeTableAndLogicAtStartUp)
{
    const std::pair<const char*, int> cases[] = {
        { "/Applications/Live 8.2/Live", 3 }, { "/opt/Live 6.0/Live", 1 }, { "/Applications/Live 7.0.1/Live", 2 },
        { "/opt/daw/LIVE", 4 }, { "/Applications/Logic Pro.app/Contents/MacOS/Logic Pro", 6 },
        { "/Applications/logic pro", 0 }, // the Logic test minds case
        { "/usr/bin/Pro Tools", 9 }, { "/opt/hosts/Cubase 5/Cubase5", 17 }, // the name, not the path
        { "/opt/hosts/Cubase 5", 15 }, { "/opt/hosts/cubase 7", 19 }, { "/opt/hosts/Cubase 12", 17 },
        { "/opt/hosts/WaveLab 7/WaveLab", 22 }, { "/opt/hosts/wavelab", 23 }, { "/Applications/Digital Performer", 28 },
        { "/Applications/digital performer", 0 }, { "/usr/local/bin/REAPER", 11 },
        { "/Applications/Studio One 5.app/x", 29 }, { "/usr/bin/somehost", 0 } };
    for (auto [path, type] : cases)
        EXPECT_EQ (MidiCntrState::getHostTypeFor (path), type) << path;

    ScratchFolder settings;
    for (auto [path, logic] : { std::pair { "/usr/bin/reaper", 0 }, { "/Applications/Logic Pro X", 1 } })
    {
        MidiCntrState state;
        state.settingsFolder = settings.dir;
        state.hostPathOverride = path;
        state.InitializeMe();
        EXPECT_EQ (state.isLogicHost, logic) << path;
        EXPECT_EQ (state.midiChannel.load(), 1);
        EXPECT_FALSE (state.localFlag.load());
    }
}

TEST (ControllerState, MissingSettingsSlotsReadZeroAndIgnoreWrites)
{
    MidiCntrState state;
    state.iniStrings.add ("12");
    EXPECT_EQ (state.iniSlotInt (0), 12);
    EXPECT_EQ (state.iniSlotInt (1) + state.iniSlotInt (-1), 0);
    state.setIniSlot (5, "7");
    state.setIniSlot (-3, "7");
    EXPECT_EQ (state.iniStrings.size(), 1);
}
