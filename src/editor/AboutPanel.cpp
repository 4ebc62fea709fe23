#include "editor/AboutPanel.h"

#include "editor/controls/IvrResor.h"

namespace
{
// The picture's column and the extent of everything drawn around it, from the title above
// (40 over the box) to the logo's foot (510 under the box's top).
constexpr int columnWidth = 627;
constexpr int contentTop = 40;
constexpr int contentHeight = 550;

void drawLine (juce::Graphics& g, const juce::String& text, juce::Font font, juce::Colour colour,
               juce::Rectangle<int> area, juce::Justification justification)
{
    g.setFont (font);
    g.setColour (colour);
    g.drawText (text, area, justification, true);
}
} // namespace

AboutPanel::AboutPanel()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    picture = IvrResor::get ("TolkSpl");
    title = IvrResor::get ("aboutTitle");
    logo = IvrResor::get ("aboutLogo");
}

AboutPanel::~AboutPanel()
{
    stopTimer();
}

void AboutPanel::startSelfClosing (int periodMs)
{
    selfClosing = true;
    startTimer (periodMs);
}

void AboutPanel::resized()
{
    box = { (getWidth() - columnWidth) / 2, (getHeight() - contentHeight) / 2 + contentTop };
}

void AboutPanel::mouseDown (const juce::MouseEvent&)
{
    sendChangeMessage();
}

void AboutPanel::timerCallback()
{
    selfClosing = false;
    stopTimer();
    sendChangeMessage();
}

void AboutPanel::paint (juce::Graphics& g)
{
    const int x = box.x;
    const int y = box.y;
    const auto arial = [] (float height, int style) { return juce::Font ("Arial", height, style); };
    const auto light = juce::Colour (0xfffbfbfb);

    g.fillAll (juce::Colour (0x66000000));

    g.drawImage (title, x - 300, y - 40, 632, 131, 0, 0, 632, 131);
    g.drawImage (picture, x, y + 135, 627, 241, 0, 0, 627, 241);

    drawLine (g, "Corvane Desker ", arial (22.0f, juce::Font::bold), juce::Colour (0xff64ccea),
              { x + 35, y + 385, 300, 24 }, juce::Justification::centredLeft);
    drawLine (g, "Version " + version, arial (16.0f, juce::Font::plain), light,
              { x + 40, y + 405, 300, 20 }, juce::Justification::centredLeft);
    drawLine (g, "Made by the Corvane Desker team at Tolk Audio", arial (15.0f, juce::Font::plain), light,
              { x, y + 486, columnWidth, 20 }, juce::Justification::centred);

    g.drawImage (logo, x + 355, y + 397, 272, 113, 0, 0, 272, 113);
    drawLine (g, "Developed by:", arial (15.0f, juce::Font::plain), light,
              { x + 366, y + 384, 200, 18 }, juce::Justification::centredLeft);
}
