#include "editor/controls/LCD_Comp.h"

#include "editor/controls/IvrResor.h"

LCD_Comp::LCD_Comp()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    background = IvrResor::get ("lcd_pic");
    setSize (123, 68);
}

LCD_Comp::~LCD_Comp() = default;

juce::String LCD_Comp::positionText (int bankNumber, int programNumber)
{
    return juce::String::charToString ((juce::juce_wchar) ('A' + bankNumber)) + ":"
         + juce::String (programNumber + 1).paddedLeft ('0', 3);
}

void LCD_Comp::Set_LCD (int bankNumber, int programNumber, int categoryNumber, juce::String name, juce::String newCategoryText)
{
    bank = bankNumber;
    program = programNumber;
    category = categoryNumber;
    positionLine = positionText (bank, program);
    fullName = name;
    nameFirstHalf = name.substring (0, 12);
    nameSecondHalf = name.substring (12, 24);
    categoryText = newCategoryText;
    repaint();
}

void LCD_Comp::Set_Num (int bankNumber, int programNumber)
{
    bank = bankNumber;
    program = programNumber;
    positionLine = positionText (bank, program);
    repaint();
}

void LCD_Comp::setScale (float newScale)
{
    scale = newScale;
}

void LCD_Comp::mouseDown (const juce::MouseEvent& e)
{
    const float y = (float) e.y;

    // A thin gap between the name and the category answers nothing.
    if (y < 18.0f * scale)
        clickCode = 1;
    else if (y < 48.0f * scale)
        clickCode = 2;
    else if (y > 50.0f * scale)
        clickCode = 3;
    else
        return;

    sendChangeMessage();
}

void LCD_Comp::paint (juce::Graphics& g)
{
    const float s = scale;
    const auto box = [s] (float x, float y, float w, float h) { return juce::Rectangle<float> (x * s, y * s, w * s, h * s); };

    g.fillAll (juce::Colours::white);
    if (background.isValid())
        g.drawImage (background, getLocalBounds().toFloat(), juce::RectanglePlacement::stretchToFit);

    g.setColour (juce::Colours::black);
    g.setFont (juce::Font ("Arial", 15.0f * s, juce::Font::bold));
    g.drawText (nameFirstHalf, box (12, 20, 108, 12), juce::Justification::centredLeft, true);
    g.drawText (nameSecondHalf, box (12, 35, 108, 12), juce::Justification::centredLeft, true);

    g.setColour (juce::Colours::white);
    g.setFont (juce::Font ("Arial", 14.0f * s, juce::Font::bold));
    g.drawText (positionLine, box (16, 5, 104, 14), juce::Justification::centredLeft, true);

    g.setFont (juce::Font ("Arial", 13.0f * s, juce::Font::plain));
    g.drawText (categoryText, box (4, 50, 108, 13), juce::Justification::centred, true);
}
