#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

class DeskerAudioProcessor;

// The editor shell. Its size goes back to the processor on every resize, so that the next editor
// of this instance opens in the same size.
class DeskerAudioProcessorEditor : public juce::AudioProcessorEditor
{
public:
    explicit DeskerAudioProcessorEditor (DeskerAudioProcessor& processor);
    ~DeskerAudioProcessorEditor() override;

    void paint (juce::Graphics& g) override;
    void resized() override;

private:
    DeskerAudioProcessor& desker;
    std::unique_ptr<juce::ResizableCornerComponent> resizer;
    juce::ComponentBoundsConstrainer resizeLimits;
    juce::TooltipWindow tooltipWindow;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (DeskerAudioProcessorEditor)
};
