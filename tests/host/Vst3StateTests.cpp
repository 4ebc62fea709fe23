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
    if (found.isEmpty())
        return {};

    juce::String error;
    return format.createInstanceFromDescription (*found[0], 44100.0, 512, error);
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
        if (xml != nullptr)
            if (auto* component = xml->getChildByName ("IComponent"))
                componentBytes.fromBase64Encoding (component->getAllSubText());
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

    std::unique_ptr<juce::XmlElement> xml;
    juce::MemoryBlock componentBytes;
};

void setWord (juce::uint8* bank, int program, int element, int value)
{
    bank[program * 400 + element * 2] = (juce::uint8) (value & 0xFF);
    bank[program * 400 + element * 2 + 1] = (juce::uint8) (value >> 8);
}

juce::AudioProcessorParameter* parameter (juce::AudioPluginInstance& instance, int index)
{
    return instance.getParameters()[index];
}
} // namespace

TEST (HostProject, AutomationMovesSoundParametersAndTheirTexts)
{
    auto instance = loadInstance();
    ASSERT_NE (instance, nullptr);

    auto* cutoff = parameter (*instance, 15);
    ASSERT_EQ (cutoff->getName (64), "Filter Cutoff");
    cutoff->setValue (0.7f); // 178.5, ties to even: 178
    EXPECT_EQ (cutoff->getCurrentValueAsText(), "178");

    auto* mode = parameter (*instance, 48);
    mode->setValue (1.0f);
    EXPECT_EQ (mode->getCurrentValueAsText(), "HIGHPASSLOWPASS");

    auto* bank = parameter (*instance, 89);
    bank->setValue (1.0f);
    EXPECT_EQ (bank->getCurrentValueAsText(), "G");
}

TEST (HostProject, StateOfOneInstanceRestoresTheSameBankInAnother)
{
    auto first = loadInstance();
    auto second = loadInstance();
    ASSERT_NE (first, nullptr);
    ASSERT_NE (second, nullptr);

    HostState saved (*first);
    ASSERT_NE (saved.xml, nullptr);
    ASSERT_GE (saved.componentBytes.getSize(), 27u + 51200u);
    EXPECT_EQ (juce::String::fromUTF8 (static_cast<const char*> (saved.componentBytes.getData()), 27),
               "CorvanePluginBankVersion100");

    // A bank unlike any default: every program its own cutoff, LFO rate and name.
    for (int p = 0; p < 128; ++p)
    {
        setWord (saved.bank(), p, 32, ((p * 2) & 255) << 8);
        setWord (saved.bank(), p, 17, p << 8);
        const auto name = ("Program " + juce::String (p)).paddedRight (' ', 24);
        for (int c = 0; c < 24; ++c)
            setWord (saved.bank(), p, 151 + c, name[c]);
    }
    saved.restoreInto (*first);

    HostState reloaded (*first);
    ASSERT_GE (reloaded.componentBytes.getSize(), 27u + 51200u);
    reloaded.restoreInto (*second);

    HostState check (*second);
    ASSERT_GE (check.componentBytes.getSize(), 27u + 51200u);
    EXPECT_EQ (std::memcmp (check.bank(), saved.bank(), 51200), 0);

    // Selecting a host program recalls that program of the restored bank.
    for (int p : { 9, 100, 0 })
    {
        second->setCurrentProgram (p);
        EXPECT_EQ (parameter (*second, 15)->getCurrentValueAsText(), juce::String ((p * 2) & 255)) << p;
        EXPECT_EQ (parameter (*second, 0)->getCurrentValueAsText(), juce::String (p)) << p;
    }
}

TEST (HostProject, ForeignOrShortChunkChangesNothing)
{
    auto instance = loadInstance();
    ASSERT_NE (instance, nullptr);

    HostState before (*instance);
    ASSERT_GE (before.componentBytes.getSize(), 27u + 51200u);

    HostState foreign (*instance);
    std::memcpy (foreign.componentBytes.getData(), "CorvanePluginSettings", 17);
    std::memset (foreign.bank(), 0x55, 51200);
    foreign.restoreInto (*instance);

    HostState shortOne (*instance);
    shortOne.componentBytes.setSize (500);
    shortOne.restoreInto (*instance);

    HostState after (*instance);
    ASSERT_GE (after.componentBytes.getSize(), 27u + 51200u);
    EXPECT_EQ (std::memcmp (after.bank(), before.bank(), 51200), 0);
}
