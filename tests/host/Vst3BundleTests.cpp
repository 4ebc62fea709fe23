#include <juce_audio_processors/juce_audio_processors.h>

#include <gtest/gtest.h>

#include <set>

namespace
{
juce::String designedName (int index)
{
    static const char* const names[] = {
        "LFO Rate", "Glide Rate", "Mod Wheel Amt", "Pedal Amt", "Osc 2 Freq", "Osc 3 Freq", "Osc 1 Wave", "Osc 2 Wave",
        "Osc 3 Wave", "Filter Spacing", "Ext Audio", "Osc 1 level", "Osc 2 level", "Osc 3 level", "Noise level",
        "Filter Cutoff", "Filter Res", "Filter Env Amt", "Filter kb Amt", "Head Phone Amt", "Filter Attack",
        "Filter Decay", "Filter Sustain", "Filter Release", "Volume Attack", "Volume Decay", "Volume Sustain",
        "Volume Release", "Master Volume", "LFO Sync", "Wheel Src", "Wheel Dst", "Wheel Shaping", "Pedal Src",
        "Pedal Dst", "Pedal Shaping", "Octave osc 1", "Octave osc 2", "Octave osc 3", "Osc 1-2 Sync", "Osc 3-1 FM",
        "Osc 3 KB Ctrl", "Osc 3 Freq", "Ext Audio on/off", "Osc 1 on/off", "Osc 2 on/off", "Osc 3 on/off",
        "noise on/off", "Filter Mode", "Env KB Gate", "Release on/Off", "Glide on/off", "Touch Surf X", "Touch Surf Y",
        "Touch Surf A", "Touch Surf G" };

    if (index < 56) return names[index];
    if (index == 56) return "PROGRAM";
    if (index == 58) return "MOD WHEEL";
    if (index == 64) return "VOLUME";
    if (index == 89) return "BANK";
    if (index <= 184) return "CC# " + juce::String (index - 57);
    if (index <= 312) return "AT# " + juce::String (index - 185);
    return index == 313 ? "PITCHBEND" : "CHANNELPRESS";
}
} // namespace

TEST (LoadedBundle, IdentityBusesAndExactly315AutomatableParametersOfOurs)
{
    juce::VST3PluginFormat format;
    juce::OwnedArray<juce::PluginDescription> found;
    format.findAllTypesForFile (found, DESKER_VST3_BUNDLE);
    ASSERT_EQ (found.size(), 1) << "no plug-in in " << DESKER_VST3_BUNDLE;
    const auto& description = *found[0];
    juce::String error;
    auto instance = format.createInstanceFromDescription (description, 44100.0, 512, error);
    ASSERT_NE (instance, nullptr) << error;

    EXPECT_EQ (description.name, "Corvane Desker");
    EXPECT_EQ (description.manufacturerName, "Tolk Audio");
    EXPECT_TRUE (description.isInstrument);
    EXPECT_TRUE (description.category.contains ("Instrument") && description.category.contains ("Synth")) << description.category;
    EXPECT_TRUE (instance->acceptsMidi() && instance->producesMidi() && instance->hasEditor());
    EXPECT_EQ (instance->getNumPrograms(), 128);
    EXPECT_EQ (instance->getLatencySamples(), 0);
    EXPECT_EQ (instance->getTailLengthSeconds(), 0.0);

    for (bool input : { true, false })
    {
        ASSERT_EQ (instance->getBusCount (input), 1);
        auto* bus = instance->getBus (input, 0);
        EXPECT_EQ (bus->getName(), input ? "Input" : "Output");
        EXPECT_EQ (bus->getCurrentLayout(), juce::AudioChannelSet::stereo());
        EXPECT_TRUE (bus->isEnabled());
    }

    std::set<juce::String> ids;
    int ours = 0;
    for (auto* p : instance->getParameters())
    {
        auto* hosted = dynamic_cast<juce::HostedAudioProcessorParameter*> (p);
        ASSERT_NE (hosted, nullptr);
        EXPECT_TRUE (ids.insert (hosted->getParameterID()).second) << "duplicate id " << hosted->getParameterID();
        const int index = p->getParameterIndex();
        const auto name = p->getName (64);
        if (index >= 315) // the wrapper's own: bypass, program list and the hidden MIDI-controller parameters
        {
            EXPECT_TRUE (name == "Bypass" || name == "Program" || name.startsWith ("MIDI CC ")) << name;
            continue;
        }
        ++ours; // legacy ids: the parameter's own index, never one of the wrapper's
        EXPECT_TRUE (name == designedName (index) && p->isAutomatable() && hosted->getParameterID() == juce::String (index))
            << index << " " << name << " id " << hosted->getParameterID();
    }
    EXPECT_EQ (ours, 315);
}
