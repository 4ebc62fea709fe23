#include "host/HostProjects.h"
#include "host/Lv2Host.h"

#include <gtest/gtest.h>

// What an LV2 host sees of automation and projects, through the built bundle.
namespace
{
// The host keeps a plug-in's state as LV2 state text; our bank chunk is in it as one string.
struct Lv2State : BankChunk
{
    explicit Lv2State (juce::AudioPluginInstance& instance)
    {
        juce::MemoryBlock saved;
        instance.getStateInformation (saved);
        text = saved.toString();
        const auto key = text.indexOf (":StateString>");
        start = key < 0 ? -1 : text.indexOfChar (key, '"') + 1;
        end = start <= 0 ? -1 : text.indexOfChar (start, '"');
        EXPECT_GT (end, start) << text;
        if (end > start)
            chunk.fromBase64Encoding (text.substring (start, end));
        expectWholeBank();
    }

    void restoreInto (juce::AudioPluginInstance& instance)
    {
        const auto changed = text.substring (0, start) + chunk.toBase64Encoding() + text.substring (end);
        instance.setStateInformation (changed.toRawUTF8(), (int) changed.getNumBytesAsUTF8());
    }

    juce::String text;
    int start = -1, end = -1;
};
} // namespace

TEST (Lv2Project, AutomationReachesTheSoundParametersThroughProcessedBlocks)
{
    Lv2Host host;
    auto instance = host.load();
    ASSERT_NE (instance, nullptr);
    instance->prepareToPlay (44100.0, 512);
    juce::AudioBuffer<float> audio (2, 512);
    juce::MidiBuffer midi;

    ASSERT_EQ (Lv2Host::parameter (*instance, 15)->getName (64), "Filter Cutoff");
    // LV2 carries no value texts: the host shows the plain value of the 0 to 1 range.
    for (auto [index, value, text] : { std::tuple { 15, 0.7f, "0.7" }, { 48, 1.0f, "1" }, { 89, 0.0f, "0" } })
    {
        auto* parameter = Lv2Host::parameter (*instance, index);
        parameter->setValue (value);
        instance->processBlock (audio, midi);
        EXPECT_EQ (parameter->getValue(), value) << index;
        EXPECT_EQ (parameter->getCurrentValueAsText(), text) << index;
    }
    instance->releaseResources();
}

TEST (Lv2Project, StateRestoresTheSameBankInAnotherInstanceForeignOrShortChangeNothing)
{
    Lv2Host host;
    auto first = host.load(), second = host.load();
    ASSERT_TRUE (first != nullptr && second != nullptr);

    Lv2State saved (*first);
    writeDistinctBank (saved);
    saved.restoreInto (*first);
    Lv2State (*first).restoreInto (*second);
    EXPECT_EQ (std::memcmp (Lv2State (*second).bank(), saved.bank(), 51200), 0);
    expectForeignAndShortChunksChangeNothing (*second, saved);
}
