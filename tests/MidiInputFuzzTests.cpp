// A long seeded stream of MIDI, valid and broken, through the input path.

#include "DeviceLinkFixture.h"

#include <gtest/gtest.h>

#include <random>

namespace
{
class StreamMaker
{
public:
    explicit StreamMaker (std::uint64_t seed) : rng (seed) {}

    std::vector<juce::uint8> next()
    {
        switch (pick (10))
        {
            case 0: return channelMessage();
            case 1: return channelMessage();
            case 2: return controller();
            case 3: return dump (149);
            case 4: return dump (154);
            case 5: return cut (dump (pick (2) == 0 ? 149 : 154));
            case 6: return garbage (1 + pick (300));
            case 7: return { 0xF0, 0x04, 0x01, 0x00, (juce::uint8) pick (8), (juce::uint8) pick (256), 0xF7 };
            case 8: return cut (garbage (2 + pick (40)));
            default: return { (juce::uint8) (0xF0 + pick (16)) };
        }
    }

private:
    int pick (int n) { return (int) (rng() % (std::uint64_t) n); }

    std::vector<juce::uint8> channelMessage()
    {
        return { (juce::uint8) (0x80 + pick (128)), (juce::uint8) pick (256), (juce::uint8) pick (256) };
    }

    std::vector<juce::uint8> controller()
    {
        static const int interesting[] = { 0, 1, 3, 4, 19, 32, 35, 51, 60, 63, 65, 67, 73, 74, 76, 77, 79, 80, 85, 88, 123 };
        const int cc = pick (3) == 0 ? pick (128) : interesting[pick ((int) std::size (interesting))];
        return { (juce::uint8) (0xB0 + pick (16)), (juce::uint8) cc, (juce::uint8) pick (128) };
    }

    std::vector<juce::uint8> dump (int size)
    {
        std::vector<juce::uint8> d ((size_t) size);
        for (auto& b : d)
            b = (juce::uint8) pick (128);
        d[0] = 0xF0;
        d[1] = 0x04;
        d[2] = 0x01;
        d[4] = (juce::uint8) (size == 149 ? 2 : 3);
        if (pick (8) == 0)
            d[5] = (juce::uint8) (128 + pick (128)); // a program that does not exist
        d.back() = 0xF7;
        return d;
    }

    std::vector<juce::uint8> garbage (int size)
    {
        std::vector<juce::uint8> d ((size_t) size);
        for (auto& b : d)
            b = (juce::uint8) pick (256);
        return d;
    }

    // A SysEx cut anywhere, as a piece of a longer stream.
    std::vector<juce::uint8> cut (std::vector<juce::uint8> d)
    {
        const size_t from = (size_t) pick ((int) d.size());
        const size_t to = from + 1 + (size_t) pick ((int) (d.size() - from));
        return std::vector<juce::uint8> (d.begin() + (std::ptrdiff_t) from, d.begin() + (std::ptrdiff_t) to);
    }

    std::mt19937_64 rng;
};
} // namespace

TEST (MidiInputFuzz, HundredThousandMessagesLeaveTheStateInRange)
{
    const std::uint64_t seed = 0xC0A1A2E5ull;
    std::cout << "seed " << seed << std::endl;

    LinkedState link;
    StreamMaker stream (seed);
    std::mt19937_64 modes (seed + 1);

    for (int i = 0; i < 100000; ++i)
    {
        // Now and then a bank receive is under way, or a scan, or the touch
        // surface listens on some controller.
        if (i % 997 == 0)
        {
            link.state.bankDumpActive = (modes() & 1) != 0;
            link.state.transferBusy = (modes() & 1) != 0;
            link.state.transferKind = (modes() & 1) != 0 ? 50 : 0;
            link.state.tsCtrl[(size_t) (modes() % 4)] = (int) (modes() % 130) - 1;
            link.backend.clearLog (link.device.inputId);
            link.drainCodes();
            link.drainHost();
        }

        const auto bytes = stream.next();
        link.receive (juce::MidiMessage (bytes.data(), (int) bytes.size()));

        ASSERT_GE (link.state.programNumber, 0) << "message " << i;
        ASSERT_LE (link.state.programNumber, 127) << "message " << i;
        ASSERT_GE (link.state.bankNumber, 0) << "message " << i;
        ASSERT_LE (link.state.bankNumber, 127) << "message " << i;
        ASSERT_LE (link.state.sysexBuffer.size(), 65536) << "message " << i;
    }

    for (auto* bank : link.state.banks)
        EXPECT_EQ (bank->bankData.getSize(), 51200u);
    EXPECT_EQ (link.state.editBuffer->patchData.size(), 200);
}
