#include "editor/controls/BoxFrame.h"

void BoxFrame::paint (juce::Graphics& g, juce::Rectangle<int> area, juce::Rectangle<int> box)
{
    g.setColour (juce::Colour (0x55000000));
    g.fillRect (area);
    juce::DropShadow (juce::Colour (0xaa000000), 10, { 10, 10 }).drawForRectangle (g, box);
    g.setColour (juce::Colours::black);
    g.fillRect (box);
    g.setColour (juce::Colour (0xff777777));
    g.drawRect (box);
}
