#include "host/HostProjects.h"

#include <gtest/gtest.h>

// What a DAW sees of automation, projects and program selection, through the built VST3 bundle.
namespace
{
// The host keeps a plug-in's state as an XML document holding the component's own bytes,
// which begin with our bank chunk.
struct HostState : BankChunk
{
    explicit HostState (juce::AudioPluginInstance& instance)
    {
        juce::MemoryBlock saved;
        instance.getStateInformation (saved);
        xml = juce::AudioProcessor::getXmlFromBinary (saved.getData(), (int) saved.getSize());
        if (auto* component = xml != nullptr ? xml->getChildByName ("IComponent") : nullptr)
            chunk.fromBase64Encoding (component->getAllSubText());
        expectWholeBank();
    }

    void restoreInto (juce::AudioPluginInstance& instance)
    {
        xml->getChildByName ("IComponent")->deleteAllTextElements();
        xml->getChildByName ("IComponent")->addTextElement (chunk.toBase64Encoding());
        juce::MemoryBlock data;
        juce::AudioProcessor::copyXmlToBinary (*xml, data);
        instance.setStateInformation (data.getData(), (int) data.getSize());
    }

    std::unique_ptr<juce::XmlElement> xml;
};
} // namespace

TEST (HostProject, AutomationMovesSoundParametersAndTheirTexts)
{
    auto instance = loadVst3Instance();
    ASSERT_NE (instance, nullptr);
    auto& params = instance->getParameters();
    ASSERT_EQ (params[15]->getName (64), "Filter Cutoff");
    // {index, value, text}: 0.7 * 255 = 178.5 ties to even.
    for (auto [index, value, text] : { std::tuple { 15, 0.7f, "178" }, { 48, 1.0f, "HIGHPASSLOWPASS" }, { 89, 1.0f, "G" } })
    {
        params[index]->setValue (value);
        EXPECT_EQ (params[index]->getCurrentValueAsText(), text) << index;
    }
}

TEST (HostProject, StateRestoresTheSameBankInAnotherInstanceProgramsRecallItForeignOrShortChangeNothing)
{
    auto first = loadVst3Instance(), second = loadVst3Instance();
    ASSERT_TRUE (first != nullptr && second != nullptr);

    HostState saved (*first);
    ASSERT_NE (saved.xml, nullptr);

    writeDistinctBank (saved);
    saved.restoreInto (*first);
    HostState (*first).restoreInto (*second);
    HostState check (*second);
    EXPECT_EQ (std::memcmp (check.bank(), saved.bank(), 51200), 0);
    expectForeignAndShortChunksChangeNothing (*second, saved);

    for (int p : { 9, 100, 0 })
    {
        second->setCurrentProgram (p);
        EXPECT_EQ (second->getParameters()[15]->getCurrentValueAsText(), juce::String ((p * 2) & 255)) << p;
        EXPECT_EQ (second->getParameters()[0]->getCurrentValueAsText(), juce::String (p)) << p;
    }
}
