#include "librarian/WriteSnd.h"

#include "librarian/RenameCnt.h"

WriteSnd::WriteSnd()
    : categoryButton ("Category", 8, 7)
{
}

WriteSnd::~WriteSnd() = default;

void WriteSnd::ChangeName (juce::String) {}
void WriteSnd::setCategory (int) {}
void WriteSnd::listCategory (int) {}

void WriteSnd::paint (juce::Graphics&) {}

void WriteSnd::resized() {}

void WriteSnd::changeListenerCallback (juce::ChangeBroadcaster*) {}
