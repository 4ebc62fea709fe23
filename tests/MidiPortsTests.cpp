#include "device/InProcessMidiBackend.h"
#include "device/MIDI_PORTS_Control.h"

#include <gtest/gtest.h>

namespace
{
struct PortsFixture : ::testing::Test
{
    InProcessMidiBackend backend;
    juce::String synth = backend.addDestination ("Synth", nullptr);
    std::unique_ptr<MIDI_PORTS_Control> ports = std::make_unique<MIDI_PORTS_Control> (backend);

    void openSynth()
    {
        ports->updateDeviceList (false);
        ports->open_Device (false, 0, nullptr);
        ASSERT_TRUE (ports->outputOpen);
    }

    std::vector<std::vector<int>> sent()
    {
        std::vector<std::vector<int>> out;
        for (auto& t : backend.messagesTo (synth))
            out.emplace_back (t.message.getRawData(), t.message.getRawData() + t.message.getRawDataSize());
        return out;
    }
};
} // namespace

TEST_F (PortsFixture, SendsAreDroppedWhileNoOutputIsOpen)
{
    ports->Send_CC (1, 7, 100);
    ports->Send_PitchBend (1, 8192);
    ports->Send_SYSEX (juce::MemoryBlock (3, true));
    ports->sendBlockOfMessages (juce::MidiBuffer (juce::MidiMessage::noteOn (1, 60, (juce::uint8) 1)), 0.0, 44100.0);
    EXPECT_TRUE (sent().empty());
}

TEST_F (PortsFixture, ChannelGateAndStatusBytes)
{
    openSynth();
    ports->Send_CC (17, 7, 1);
    ports->Send_CC (-1, 7, 1);
    ports->Send_PitchBend (17, 0);
    EXPECT_TRUE (sent().empty());

    ports->Send_CC (0, 7, 100);       // channel 0 counts as the first
    ports->Send_CC (16, 135, 200);    // data masked to seven bits
    ports->Send_PitchBend (1, 8192);
    ports->Send_PitchBend (16, 16383);
    const std::vector<std::vector<int>> expected = {
        { 0xB0, 7, 100 }, { 0xBF, 7, 72 }, { 0xE0, 0x00, 0x40 }, { 0xEF, 127, 127 }
    };
    EXPECT_EQ (sent(), expected);
}

TEST_F (PortsFixture, ABlockLeavesAtStartPlusOffsetOverRate)
{
    openSynth();
    juce::MidiBuffer block;
    block.addEvent (juce::MidiMessage::noteOn (1, 60, (juce::uint8) 90), 0);
    block.addEvent (juce::MidiMessage::midiClock(), 441);
    block.addEvent (juce::MidiMessage::noteOff (1, 60), 44100);
    ports->sendBlockOfMessages (block, 1000.0, 44100.0);

    const auto log = backend.messagesTo (synth);
    ASSERT_EQ (log.size(), 3u);
    EXPECT_DOUBLE_EQ (log[0].timeMs, 1000.0);
    EXPECT_DOUBLE_EQ (log[1].timeMs, 1010.0);
    EXPECT_DOUBLE_EQ (log[2].timeMs, 2000.0);
}

TEST_F (PortsFixture, UnchangedDeviceListKeepsEveryEntryAndOpenPort)
{
    openSynth();
    auto* entry = ports->midiOutputs[0].get();
    ports->updateDeviceList (false);
    ports->updateDeviceList (false);
    EXPECT_EQ (ports->midiOutputs[0].get(), entry);
    EXPECT_NE (entry->outDevice, nullptr);
    EXPECT_TRUE (ports->outputOpen);
}

TEST_F (PortsFixture, PluggedInDeviceShiftsTheListButTheOpenEntryIsReused)
{
    openSynth();
    auto* entry = ports->midiOutputs[0].get();
    backend.addDestination ("Newcomer", nullptr, 0);
    ports->updateDeviceList (false);

    ASSERT_EQ (ports->midiOutputs.size(), 2);
    EXPECT_EQ (ports->midiOutputs[1].get(), entry);
    EXPECT_NE (entry->outDevice, nullptr);
    EXPECT_EQ (ports->currentOutput, 0); // still the old index until chosen again
    EXPECT_EQ (ports->midiOutputs[0]->deviceInfo.name, "Newcomer");

    // Sends follow the index: the newcomer has no open port, so nothing goes out.
    ports->Send_CC (1, 7, 1);
    EXPECT_TRUE (sent().empty());
    ports->open_Device (false, 1, nullptr);
    ports->Send_CC (1, 7, 1);
    EXPECT_EQ (sent().size(), 1u);
}

TEST_F (PortsFixture, OpeningBeyondTheListLeavesThePortClosed)
{
    openSynth();
    ports->open_Device (false, 5, nullptr);
    EXPECT_FALSE (ports->outputOpen);
    EXPECT_EQ (ports->currentOutput, -1);
    EXPECT_EQ (ports->outputNames, juce::StringArray ("Synth"));
    ports->open_Device (true, -1, nullptr);
    EXPECT_FALSE (ports->inputOpen);
}

TEST_F (PortsFixture, InputsDeliverToTheCallbackUntilClosed)
{
    struct Counter : juce::MidiInputCallback
    {
        int count = 0;
        void handleIncomingMidiMessage (juce::MidiInput*, const juce::MidiMessage&) override { ++count; }
    } counter;

    const auto keys = backend.addSource ("Keys");
    ports->updateDeviceList (true);
    ports->open_Device (true, 0, &counter);
    ASSERT_TRUE (ports->inputOpen);
    EXPECT_EQ (ports->currentInput, 0);

    backend.sendFromSource (keys, juce::MidiMessage::noteOn (1, 1, (juce::uint8) 1));
    backend.deliverPending();
    EXPECT_EQ (counter.count, 1);

    ports->closeDevice (true, ports->currentInput);
    EXPECT_FALSE (ports->inputOpen);
    EXPECT_EQ (ports->currentInput, 0); // left as it was
    backend.sendFromSource (keys, juce::MidiMessage::noteOn (1, 1, (juce::uint8) 1));
    backend.deliverPending();
    EXPECT_EQ (counter.count, 1);
    ports->closeDevice (true, -1); // no effect
}
