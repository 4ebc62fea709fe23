#include "device/TimedMidiSender.h"

#include <gtest/gtest.h>

#include <array>
#include <mutex>
#include <thread>

namespace
{
// Receives from the sender thread and signals when the expected count is reached.
struct SinkLog
{
    explicit SinkLog (size_t expectedCount) : expected (expectedCount) {}

    TimedMidiSender::Sink sink()
    {
        return [this] (const juce::uint8* d, int n)
        {
            std::lock_guard<std::mutex> g (m);
            messages.emplace_back (d, d + n);
            sentAt.push_back (TimedMidiSender::now());
            if (messages.size() == expected)
                done.signal();
        };
    }

    const size_t expected;
    std::mutex m;
    std::vector<std::vector<juce::uint8>> messages;
    std::vector<double> sentAt;
    juce::WaitableEvent done;
};
} // namespace

TEST (TimedMidiSender, SendsInTimeOrderKeepingOrderAtEqualTimesAndRefusesWhenFull)
{
    SinkLog log (4);
    TimedMidiSender sender (log.sink(), 4);
    const double t0 = TimedMidiSender::now();
    const juce::uint8 late[] = { 0xB0, 1, 2 }, first[] = { 0xF8 }, second[] = { 0xFA };
    juce::uint8 sysex[154] = { 0xF0 };
    sysex[153] = 0xF7;
    ASSERT_TRUE (sender.post (late, 3, t0 + 30.0) && sender.post (first, 1, t0) && sender.post (sysex, 154, t0) && sender.post (second, 1, t0));

    ASSERT_TRUE (log.done.wait (5000));
    std::lock_guard<std::mutex> g (log.m);
    EXPECT_EQ ((std::vector<size_t> { log.messages[0][0], log.messages[1].size(), log.messages[2][0], log.messages[3][0] }), (std::vector<size_t> { 0xF8, 154, 0xFA, 0xB0 }));
    EXPECT_GE (log.sentAt[3], t0 + 30.0); // held until due

    int accepted = 0;
    for (int i = 0; i < 20; ++i)
        accepted += sender.post (first, 1, t0 + 1.0e7) ? 1 : 0;
    // Four wait in the sender's time list, four more in the queue at most; the rest are refused, not waited for.
    EXPECT_TRUE (accepted >= 4 && accepted <= 8) << accepted;
}

TEST (TimedMidiSender, ConcurrentProducersLoseNothingAndKeepTheirOrder)
{
    constexpr int producers = 4, perProducer = 2000;
    SinkLog log (producers * perProducer);
    TimedMidiSender sender (log.sink(), producers * perProducer);

    std::vector<std::thread> threads;
    for (int p = 0; p < producers; ++p)
        threads.emplace_back ([&sender, p]
        {
            for (int i = 0; i < perProducer; ++i)
                sender.post (std::array<juce::uint8, 3> { (juce::uint8) (0xB0 + p), (juce::uint8) (i >> 7), (juce::uint8) (i & 127) }.data(), 3, 0.0);
        });
    for (auto& t : threads)
        t.join();

    ASSERT_TRUE (log.done.wait (10000));
    std::lock_guard<std::mutex> g (log.m);
    int next[producers] = {};
    for (auto& m : log.messages)
        ASSERT_EQ ((m[1] << 7) | m[2], next[m[0] - 0xB0]++);
    for (int p = 0; p < producers; ++p)
        EXPECT_EQ (next[p], perProducer);
}
