#include "host/HostProjects.h"
#include "host/Lv2Host.h"

#include <gtest/gtest.h>

#include <set>

TEST (Lv2Bundle, IdentityMidiProgramsAndTheVst3ParametersUnderUniqueIdsWithTheirStartValuesAsDefaults)
{
    Lv2Host host;
    ASSERT_EQ (host.found.size(), 1) << "no " << DESKER_LV2_URI << " in " << DESKER_LV2_BUNDLE;
    const auto& description = *host.found[0];
    EXPECT_EQ (description.name, "Corvane Desker");
    EXPECT_EQ (description.manufacturerName, "Tolk Audio");
    EXPECT_TRUE (description.isInstrument);

    auto lv2 = host.load();
    auto vst3 = loadVst3Instance();
    ASSERT_TRUE (lv2 != nullptr && vst3 != nullptr);
    EXPECT_TRUE (lv2->acceptsMidi() && lv2->producesMidi() && lv2->hasEditor());
    for (bool input : { true, false })
    {
        ASSERT_EQ (lv2->getBusCount (input), 1);
        EXPECT_EQ (lv2->getBus (input, 0)->getCurrentLayout(), juce::AudioChannelSet::stereo());
    }

    ASSERT_EQ (lv2->getNumPrograms(), 128);
    for (int p = 0; p < 128; ++p)
        EXPECT_EQ (lv2->getProgramName (p), vst3->getProgramName (p)) << p;

    // The same names in the same order; the defaults are what a fresh instance shows through VST3.
    ASSERT_EQ (lv2->getParameters().size(), 1 + 315);
    EXPECT_EQ (lv2->getParameters()[0], lv2->getBypassParameter());
    std::set<juce::String> ids;
    for (int i = 0; i < 315; ++i)
    {
        auto* ours = Lv2Host::parameter (*lv2, i);
        auto* hosted = dynamic_cast<juce::HostedAudioProcessorParameter*> (ours);
        ASSERT_NE (hosted, nullptr);
        const auto id = hosted->getParameterID();
        EXPECT_TRUE (ids.insert (id).second) << "duplicate id " << id;
        EXPECT_TRUE (id.endsWith (":p" + juce::String (i).paddedLeft ('0', 3))) << id;
        EXPECT_EQ (ours->getName (64), vst3->getParameters()[i]->getName (64)) << i;
        EXPECT_NEAR (ours->getDefaultValue(), vst3->getParameters()[i]->getValue(), 1.0e-6f) << i;
        EXPECT_EQ (ours->getValue(), ours->getDefaultValue()) << i;
    }
}
