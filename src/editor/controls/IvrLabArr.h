#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// A row of equal cells that flashes the latest values for half a second (the captions under the
// touch surface).
class IvrLabArr : public juce::Component,
                  public juce::ChangeBroadcaster,
                  public juce::Timer
{
public:
    // One cell per prefix; each shown caption is its prefix and a value.
    explicit IvrLabArr (const juce::StringArray& cellPrefixes);
    ~IvrLabArr() override;

    // Stores `text` as it stands in the first cell.
    void Caption (juce::String text, int);
    // Shows prefix + value in `cell` and restarts the 500 ms fade.
    void CaptionNum (int value, int cell);
    void setScale (float newScale);

    void paint (juce::Graphics& g) override;
    void resized() override;
    void timerCallback() override;

    int cellCount = 0;
    juce::String fontName { "Arial" };
    float fontHeight = 12.0f;
    float scale = 1.0f;
    juce::Colour textColour { 0xffffffff };
    juce::StringArray prefixes;
    juce::StringArray captions;
    bool captionsVisible = false;
    // Cell step, set at scale 1 and kept at every scale.
    int cellWidth = 0;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (IvrLabArr)
};
