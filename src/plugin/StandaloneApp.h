#pragma once

#include <juce_audio_plugin_client/juce_audio_plugin_client.h>
#include <juce_audio_utils/juce_audio_utils.h>
#include <juce_gui_extra/juce_gui_extra.h>

#include <juce_audio_plugin_client/Standalone/juce_StandaloneFilterWindow.h>

// The Standalone: JUCE's plug-in window around the editor, with no audio input (the plug-in makes
// no sound, so nothing can feed back and no warning is due) and the editor's size kept in the
// app's settings between runs. It starts whether or not a sound card is there.
class StandaloneApp : public juce::JUCEApplication
{
public:
    StandaloneApp();

    const juce::String getApplicationName() override { return JucePlugin_Name; }
    const juce::String getApplicationVersion() override { return JucePlugin_VersionString; }
    bool moreThanOneInstanceAllowed() override { return true; }
    void anotherInstanceStarted (const juce::String&) override {}

    void initialise (const juce::String& commandLine) override;
    void shutdown() override;
    void systemRequestedQuit() override;

private:
    juce::AudioProcessorEditor* editor() const;

    juce::ApplicationProperties appProperties;
    std::unique_ptr<juce::StandaloneFilterWindow> window;
};
