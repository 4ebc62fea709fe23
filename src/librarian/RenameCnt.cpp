#include "librarian/RenameCnt.h"

namespace
{
constexpr int lineLength = 12;

juce::String asLine (const juce::String& text)
{
    return text.substring (0, lineLength).paddedRight (' ', lineLength);
}
} // namespace

RenameCnt::RenameCnt (const juce::String& firstLine, const juce::String& secondLine)
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);

    int y = 0;
    for (auto* editor : { &firstEditor, &secondEditor })
    {
        // The lines read as on the display: black on its light glass.
        editor->setFont (juce::Font ("Arial", 15.0f, juce::Font::bold));
        editor->setColour (juce::TextEditor::backgroundColourId, juce::Colour (0xffe8efe4));
        editor->setColour (juce::TextEditor::textColourId, juce::Colours::black);
        editor->setColour (juce::TextEditor::highlightColourId, juce::Colour (0x66038fbe));
        editor->setColour (juce::TextEditor::outlineColourId, juce::Colour (0xff777777));
        editor->setColour (juce::TextEditor::focusedOutlineColourId, juce::Colour (0xff0a96fe));
        editor->setColour (juce::CaretComponent::caretColourId, juce::Colours::black);
        editor->setIndents (4, 2);
        editor->setBounds (0, y, boxWidth, 20);
        addAndMakeVisible (editor);
        y += 20;
    }
    // The padding is left out, so that the caret stands after the last character; OK pads again.
    firstEditor.setText (firstLine.trimEnd(), false);
    secondEditor.setText (secondLine.trimEnd(), false);

    okButton.InitializeMe (70, 42, 50, 18, true);
    cancelButton.InitializeMe (0, 42, 50, 18, true);
    addAndMakeVisible (okButton);
    addAndMakeVisible (cancelButton);
    setSize (boxWidth, boxHeight);
}

RenameCnt::~RenameCnt() = default;

void RenameCnt::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colour (0xff141517));
}

juce::String RenameCnt::joinedName() const
{
    return asLine (firstEditor.getText()) + asLine (secondEditor.getText());
}
