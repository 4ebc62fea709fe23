#include "editor/controls/IvrLabArr.h"

IvrLabArr::IvrLabArr (const juce::StringArray& cellPrefixes)
    : cellCount (cellPrefixes.size()), prefixes (cellPrefixes)
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);

    for (int i = 0; i < cellCount; ++i)
        captions.add ({});
}

IvrLabArr::~IvrLabArr()
{
    stopTimer();
}

void IvrLabArr::Caption (juce::String text, int)
{
    if (cellCount > 0)
        captions.set (0, text);
    repaint();
}

void IvrLabArr::CaptionNum (int value, int cell)
{
    if (! juce::isPositiveAndBelow (cell, cellCount))
        return;

    captions.set (cell, prefixes[cell] + juce::String (value));
    captionsVisible = true;
    startTimer (500);
    repaint();
}

void IvrLabArr::setScale (float newScale)
{
    scale = newScale;
    repaint();
}

void IvrLabArr::resized()
{
    // The step is taken once, at scale 1; the row keeps it when the window shrinks.
    if (scale == 1.0f && cellCount > 0)
        cellWidth = getWidth() / cellCount;
}

void IvrLabArr::timerCallback()
{
    stopTimer();
    captionsVisible = false;
    repaint();
}

void IvrLabArr::paint (juce::Graphics& g)
{
    if (! captionsVisible)
        return;

    g.setColour (textColour);
    g.setFont (juce::Font (fontName, fontHeight * scale, juce::Font::plain));

    for (int i = 0; i < cellCount; ++i)
        g.drawText (captions[i], i * cellWidth, 0, cellWidth, getHeight(), juce::Justification::centred, true);
}
