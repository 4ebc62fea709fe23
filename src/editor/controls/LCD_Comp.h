#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// The backlit display: position, program name in two lines, category. A click reports which line.
class LCD_Comp : public juce::Component,
                 public juce::ChangeBroadcaster
{
public:
    LCD_Comp();
    ~LCD_Comp() override;

    void Set_LCD (int bank, int program, int category, juce::String name, juce::String categoryText);
    void Set_Num (int bank, int program);
    void setScale (float newScale);

    void mouseDown (const juce::MouseEvent& e) override;
    void paint (juce::Graphics& g) override;

    // "A:001" for bank 0, program 0.
    static juce::String positionText (int bank, int program);

    juce::String fullName;
    juce::String positionLine;
    juce::String nameFirstHalf, nameSecondHalf;
    juce::String categoryText;
    float scale = 1.0f;
    int bank = 0, program = 0, category = 0;
    // 1 position line, 2 name, 3 category.
    int clickCode = 0;
    juce::Image background;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (LCD_Comp)
};
