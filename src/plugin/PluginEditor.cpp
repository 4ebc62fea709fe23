#include "plugin/PluginEditor.h"

#include "editor/MainComp.h"
#include "editor/UpdHostCont.h"
#include "plugin/PluginProcessor.h"
#include "sound/AutoBank.h"

DeskerAudioProcessorEditor::DeskerAudioProcessorEditor (DeskerAudioProcessor& processor)
    : juce::AudioProcessorEditor (processor), desker (processor)
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    tooltipWindow.setAlwaysOnTop (true);

    auto& state = desker.midiCntrState;
    mainComp = std::make_unique<MainComp> (&state);
    mainComp->Constuct();

    // Registration discards the codes queued while no editor listened: the panel already shows
    // the present state.
    state.addListener (mainComp.get());
    state.editorOpen = true;

    addAndMakeVisible (*mainComp);
    mainComp->setBounds (0, 0, 10, 10);
    mainComp->addChangeListener (this);

    resizer = std::make_unique<juce::ResizableCornerComponent> (this, &resizeLimits);
    addAndMakeVisible (*resizer);
    resizeLimits.setSizeLimits (301, 100, MainComp::designWidth, MainComp::designHeight);

    setBounds (getX(), getY(), desker.editorWidth, desker.editorHeight);
    desker.addChangeListener (this);
}

DeskerAudioProcessorEditor::~DeskerAudioProcessorEditor()
{
    desker.removeChangeListener (this);
    resizer.reset();
    mainComp.reset();
}

void DeskerAudioProcessorEditor::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colour (0xff18191d));
}

void DeskerAudioProcessorEditor::resized()
{
    if (mainComp != nullptr)
        mainComp->setBounds (0, 0, getWidth(), getHeight());
    if (resizer != nullptr)
        resizer->setBounds (getWidth() - 16, getHeight() - 16, 16, 16);

    desker.editorWidth = getWidth();
    desker.editorHeight = getHeight();
}

void DeskerAudioProcessorEditor::changeListenerCallback (juce::ChangeBroadcaster* source)
{
    if (source != mainComp.get())
        updateParametersFromFilter();
}

void DeskerAudioProcessorEditor::updateParametersFromFilter()
{
    auto& state = desker.midiCntrState;
    for (juce::uint8 event = 0; state.hostEvents.pop (event);)
    {
        auto* box = mainComp->updateHostBox.get();
        if (event != 180 || box == nullptr)
            continue;
        const int program = state.hostProgram;
        box->showProgram (program, state.editBuffer->get_ProgramName (program));
    }
}
