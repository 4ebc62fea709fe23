#include "plugin/PluginEditor.h"

#include "plugin/PluginProcessor.h"

DeskerAudioProcessorEditor::DeskerAudioProcessorEditor (DeskerAudioProcessor& processor)
    : juce::AudioProcessorEditor (processor), desker (processor)
{
    desker.midiCntrState.editorOpen = true;

    resizer = std::make_unique<juce::ResizableCornerComponent> (this, &resizeLimits);
    addAndMakeVisible (*resizer);
    resizeLimits.setSizeLimits (301, 100, 1505, 739);

    setBounds (getX(), getY(), desker.editorWidth, desker.editorHeight);
}

DeskerAudioProcessorEditor::~DeskerAudioProcessorEditor() = default;

void DeskerAudioProcessorEditor::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colour (0xff202020));
    g.setColour (juce::Colours::white);
    g.setFont (juce::Font ("Arial", 28.0f, juce::Font::bold));
    g.drawText ("Corvane Desker", getLocalBounds(), juce::Justification::centred);
}

void DeskerAudioProcessorEditor::resized()
{
    if (resizer != nullptr)
        resizer->setBounds (getWidth() - 16, getHeight() - 16, 16, 16);

    desker.editorWidth = getWidth();
    desker.editorHeight = getHeight();
}
