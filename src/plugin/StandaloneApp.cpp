#include "plugin/StandaloneApp.h"

namespace
{
const char* const widthKey = "editorWidth";
const char* const heightKey = "editorHeight";
} // namespace

StandaloneApp::StandaloneApp()
{
    juce::PropertiesFile::Options options;
    options.applicationName = getApplicationName();
    options.filenameSuffix = ".settings";
    options.folderName = "~/.config";
    appProperties.setStorageParameters (options);
}

void StandaloneApp::initialise (const juce::String&)
{
    auto* settings = appProperties.getUserSettings();
    // Stereo out only: with no input channel the window shows no feedback warning and opens no input.
    juce::Array<juce::StandalonePluginHolder::PluginInOuts> outputsOnly;
    outputsOnly.add ({ 0, 2 });
    window = std::make_unique<juce::StandaloneFilterWindow> (
        getApplicationName(),
        juce::LookAndFeel::getDefaultLookAndFeel().findColour (juce::ResizableWindow::backgroundColourId),
        settings, false, juce::String(), nullptr, outputsOnly);

    // The window follows the editor's size, and the editor keeps to its own limits. JUCE placed the
    // window for the first size: the larger one must still fit the display.
    const int width = settings->getIntValue (widthKey), height = settings->getIntValue (heightKey);
    if (auto* e = editor(); e != nullptr && width > 0 && height > 0)
    {
        e->setSize (width, height);
        if (auto* display = juce::Desktop::getInstance().getDisplays().getDisplayForRect (window->getBounds()))
            window->setTopLeftPosition (window->getBounds().constrainedWithin (display->userArea).getTopLeft());
    }

    window->setVisible (true);
}

void StandaloneApp::shutdown()
{
    if (auto* e = editor())
    {
        appProperties.getUserSettings()->setValue (widthKey, e->getWidth());
        appProperties.getUserSettings()->setValue (heightKey, e->getHeight());
    }
    window = nullptr;
    appProperties.saveIfNeeded();
}

void StandaloneApp::systemRequestedQuit()
{
    if (window != nullptr)
        window->pluginHolder->savePluginState();
    quit();
}

juce::AudioProcessorEditor* StandaloneApp::editor() const
{
    auto* processor = window != nullptr ? window->getAudioProcessor() : nullptr;
    return processor != nullptr ? processor->getActiveEditor() : nullptr;
}

juce::JUCEApplicationBase* juce_CreateApplication()
{
    return new StandaloneApp();
}
