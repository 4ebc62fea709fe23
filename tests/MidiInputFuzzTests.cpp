// A long seeded stream of MIDI, valid and broken, through the input path.

#include "DeviceLinkFixture.h"

#include <random>

TEST (MidiInputFuzz, HundredThousandMessagesLeaveTheStateInRange)
{
    const std::uint64_t seed = 0xC0A1A2E5ull;
    std::cout << "seed " << seed << std::endl;
    std::mt19937_64 rng (seed);
    using Stream = std::vector<juce::uint8>;
    const auto pick = [&rng] (int n) { return (juce::uint8) (rng() % (std::uint64_t) n); };
    const auto random = [&] (int size, int range)
    {
        Stream d ((size_t) size);
        for (auto& b : d)
            b = pick (range);
        return d;
    };
    const auto dump = [&] (int size)
    {
        auto d = random (size, 128);
        d[0] = 0xF0, d[1] = 0x04, d[2] = 0x01, d[4] = size == 149 ? 2 : 3, d.back() = 0xF7;
        if (pick (8) == 0)
            d[5] = 128 + pick (128); // a program that does not exist
        return d;
    };
    const auto cut = [&] (const Stream& d) // a SysEx cut anywhere, as a piece of a longer stream
    {
        const size_t from = rng() % d.size(), to = from + 1 + rng() % (d.size() - from);
        return Stream (d.begin() + (std::ptrdiff_t) from, d.begin() + (std::ptrdiff_t) to);
    };
    static const juce::uint8 controllers[] = { 0, 1, 3, 4, 19, 32, 35, 51, 60, 63, 65, 67, 73, 74, 76, 77, 79, 80, 85, 88, 123 };

    LinkedState link;
    for (int i = 0; i < 100000; ++i)
    {
        // Now and then a bank receive is under way, or the touch surface listens on some controller.
        if (i % 997 == 0)
        {
            link.state.bankDumpActive = pick (2) != 0;
            link.state.transferBusy = pick (2) != 0;
            link.state.transferKind = pick (2) != 0 ? 50 : 0;
            link.state.tsCtrl[pick (4)] = (int) pick (130) - 1;
            link.sent();
            link.drainCodes();
            link.drainHost();
        }
        Stream bytes;
        switch (pick (10))
        {
            case 0:
            case 1: bytes = { (juce::uint8) (0x80 + pick (128)), pick (256), pick (256) }; break;
            case 2: bytes = { (juce::uint8) (0xB0 + pick (16)), pick (3) == 0 ? pick (128) : controllers[pick (std::size (controllers))], pick (128) }; break;
            case 3: bytes = dump (149); break;
            case 4: bytes = dump (154); break;
            case 5: bytes = cut (dump (pick (2) == 0 ? 149 : 154)); break;
            case 6: bytes = random (1 + (int) (rng() % 300), 256); break;
            case 7: bytes = { 0xF0, 0x04, 0x01, 0x00, pick (8), pick (256), 0xF7 }; break;
            case 8: bytes = cut (random (2 + pick (40), 256)); break;
            default: bytes = { (juce::uint8) (0xF0 + pick (16)) };
        }
        link.receive (juce::MidiMessage (bytes.data(), (int) bytes.size()));

        ASSERT_TRUE (link.state.programNumber >= 0 && link.state.programNumber <= 127) << "message " << i;
        ASSERT_TRUE (link.state.bankNumber >= 0 && link.state.bankNumber <= 127) << "message " << i;
        ASSERT_LE (link.state.sysexBuffer.size(), 65536) << "message " << i;
    }
    for (auto* bank : link.state.banks)
        EXPECT_EQ (bank->bankData.getSize(), 51200u);
    EXPECT_EQ (link.state.editBuffer->patchData.size(), 200);
}
