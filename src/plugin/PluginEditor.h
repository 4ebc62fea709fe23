#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include "editor/controls/DeskerLookAndFeel.h"

class DeskerAudioProcessor;
class MainComp;

// What the host shows: the main component, a resize corner and the tool-tips. Its size goes back
// to the processor on every resize, so that the next editor of this instance opens in the same size.
class DeskerAudioProcessorEditor : public juce::AudioProcessorEditor,
                                   public juce::ChangeListener
{
public:
    explicit DeskerAudioProcessorEditor (DeskerAudioProcessor& processor);
    ~DeskerAudioProcessorEditor() override;

    void paint (juce::Graphics& g) override;
    void resized() override;
    void changeListenerCallback (juce::ChangeBroadcaster* source) override;

    // Takes what the host's program choices left for the editor while the slot dialog is open.
    void updateParametersFromFilter();

    MainComp* getMainComp() const { return mainComp.get(); }

private:
    // First, so that the embedded font is in force while the tree is built.
    DeskerLookAndFeelScope look;
    DeskerAudioProcessor& desker;
    std::unique_ptr<MainComp> mainComp;
    std::unique_ptr<juce::ResizableCornerComponent> resizer;
    juce::ComponentBoundsConstrainer resizeLimits;
    juce::TooltipWindow tooltipWindow { this };

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (DeskerAudioProcessorEditor)
};
