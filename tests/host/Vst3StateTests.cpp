#include <juce_audio_processors/juce_audio_processors.h>

#include <gtest/gtest.h>

// What a DAW sees of automation, projects and program selection, through the built VST3 bundle.
namespace
{
std::unique_ptr<juce::AudioPluginInstance> loadInstance()
{
    juce::VST3PluginFormat format;
    juce::OwnedArray<juce::PluginDescription> found;
    format.findAllTypesForFile (found, DESKER_VST3_BUNDLE);
    juce::String error;
    return found.isEmpty() ? nullptr : format.createInstanceFromDescription (*found[0], 44100.0, 512, error);
}

// The host keeps a plug-in's state as an XML document holding the component's own bytes,
// which begin with our bank chunk.
struct HostState
{
    explicit HostState (juce::AudioPluginInstance& instance)
    {
        juce::MemoryBlock saved;
        instance.getStateInformation (saved);
        xml = juce::AudioProcessor::getXmlFromBinary (saved.getData(), (int) saved.getSize());
        if (auto* component = xml != nullptr ? xml->getChildByName ("IComponent") : nullptr)
            componentBytes.fromBase64Encoding (component->getAllSubText());
        EXPECT_GE (componentBytes.getSize(), 27u + 51200u);
        componentBytes.ensureSize (27 + 51200, true); // a failed expectation never reads past the end
    }

    void restoreInto (juce::AudioPluginInstance& instance)
    {
        xml->getChildByName ("IComponent")->deleteAllTextElements();
        xml->getChildByName ("IComponent")->addTextElement (componentBytes.toBase64Encoding());
        juce::MemoryBlock data;
        juce::AudioProcessor::copyXmlToBinary (*xml, data);
        instance.setStateInformation (data.getData(), (int) data.getSize());
    }

    juce::uint8* bank() { return static_cast<juce::uint8*> (componentBytes.getData()) + 27; }
    void setWord (int program, int element, int value)
    {
        bank()[program * 400 + element * 2] = (juce::uint8) (value & 0xFF);
        bank()[program * 400 + element * 2 + 1] = (juce::uint8) (value >> 8);
    }

    std::unique_ptr<juce::XmlElement> xml;
    juce::MemoryBlock componentBytes;
};
} // namespace

TEST (HostProject, AutomationMovesSoundParametersAndTheirTexts)
{
    auto instance = loadInstance();
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
    auto first = loadInstance(), second = loadInstance();
    ASSERT_TRUE (first != nullptr && second != nullptr);

    HostState saved (*first);
    ASSERT_NE (saved.xml, nullptr);

    // A bank unlike any default: every program its own cutoff, LFO rate and name.
    for (int p = 0; p < 128; ++p)
    {
        saved.setWord (p, 32, ((p * 2) & 255) << 8);
        saved.setWord (p, 17, p << 8);
        const auto name = ("Program " + juce::String (p)).paddedRight (' ', 24);
        for (int c = 0; c < 24; ++c)
            saved.setWord (p, 151 + c, name[c]);
    }
    saved.restoreInto (*first);
    HostState (*first).restoreInto (*second);
    HostState check (*second);
    EXPECT_EQ (std::memcmp (check.bank(), saved.bank(), 51200), 0);

    HostState foreign (*second), shortOne (*second);
    std::memcpy (foreign.componentBytes.getData(), "CorvanePluginSettings", 17);
    std::memset (foreign.bank(), 0x55, 51200);
    foreign.restoreInto (*second);
    std::memset (shortOne.bank(), 0x55, 500 - 27); // our tag, but short of a bank
    shortOne.componentBytes.setSize (500);
    shortOne.restoreInto (*second);
    EXPECT_EQ (std::memcmp (HostState (*second).bank(), saved.bank(), 51200), 0);

    for (int p : { 9, 100, 0 })
    {
        second->setCurrentProgram (p);
        EXPECT_EQ (second->getParameters()[15]->getCurrentValueAsText(), juce::String ((p * 2) & 255)) << p;
        EXPECT_EQ (second->getParameters()[0]->getCurrentValueAsText(), juce::String (p)) << p;
    }
}
