#include "librarian/RenameCnt.h"

RenameCnt::RenameCnt (const juce::String& firstLine, const juce::String& secondLine)
{
    firstEditor.setText (firstLine, false);
    secondEditor.setText (secondLine, false);
}

RenameCnt::~RenameCnt() = default;

void RenameCnt::paint (juce::Graphics&) {}

juce::String RenameCnt::joinedName() const
{
    return {};
}
