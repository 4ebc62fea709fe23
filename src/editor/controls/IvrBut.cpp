#include "editor/controls/IvrBut.h"

#include "editor/controls/IvrResor.h"

namespace
{
juce::Font arial (float height)
{
    return juce::Font ("Arial", height, juce::Font::plain);
}

bool hasInnerButton (int kind)
{
    return kind >= 130;
}
} // namespace

IvrBut::IvrBut (juce::String buttonLabel, int buttonId, int buttonKind)
    : label (buttonLabel), id (buttonId), kind (buttonKind)
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);

    if (hasInnerButton (kind))
    {
        innerButton = std::make_unique<juce::TextButton>();
        innerButton->setWantsKeyboardFocus (false);
        innerButton->setMouseClickGrabsKeyboardFocus (false);
        innerButton->addListener (this);
        addAndMakeVisible (*innerButton);
    }
}

IvrBut::~IvrBut()
{
    if (innerButton != nullptr)
        innerButton->removeListener (this);
}

void IvrBut::InitializeMe (int x, int y, int width, int height, bool)
{
    const auto stockColours = [this] (juce::uint32 button, juce::uint32 buttonOn)
    {
        innerButton->setColour (juce::TextButton::buttonColourId, juce::Colour (button));
        innerButton->setColour (juce::TextButton::buttonOnColourId, juce::Colour (buttonOn));
    };

    switch (kind)
    {
        case 1:
        case 5:
            frameColours[0] = juce::Colour (0xff000000);
            frameColours[1] = juce::Colour (0xff000000);
            frameColours[2] = juce::Colour (0xff202d31);
            frameColours[3] = juce::Colour (0xff040405);
            fontHeight = 13.0f;
            if (kind == 1)
            {
                textColour = juce::Colour (0xfff0f0f0);
                images[0] = IvrResor::get ("iledR0");
                images[1] = IvrResor::get ("iledR1");
            }
            else
            {
                textColour = juce::Colours::white;
            }
            break;

        case 6:
            images[0] = IvrResor::get ("butTolk");
            fontHeight = 12.0f;
            textColour = juce::Colour (0xff000000);
            break;

        case 7:
            images[0] = IvrResor::get ("bankButton");
            fontHeight = 12.0f;
            textColour = juce::Colours::white;
            break;

        case 8:
            images[0] = IvrResor::get ("ledXx");
            break;

        case 90:
            textColour = juce::Colours::white;
            break;

        case 130:
        case 135:
            stockColours (0xffc87003, 0xff8b4916);
            textColour = juce::Colour (0xff000000);
            fontHeight = 12.0f;
            if (kind == 135)
            {
                images[0] = IvrResor::get ("iledR0");
                images[1] = IvrResor::get ("iledR1");
            }
            break;

        case 140:
            stockColours (0xffffffff, 0xff505050);
            textColour = juce::Colour (0xff000000);
            fontHeight = 13.0f;
            break;

        default:
            break;
    }

    setBounds (x, y, width, height);
}

void IvrBut::resized()
{
    if (innerButton != nullptr)
        innerButton->setBounds (getLocalBounds());
}

void IvrBut::mouseEnter (const juce::MouseEvent&)
{
    if (id == 777)
        hoverCode = 777;
    if (kind == 90)
        repaint();
}

void IvrBut::mouseExit (const juce::MouseEvent&)
{
    if (id == 777)
        hoverCode = 778;
    if (kind == 90)
        repaint();
}

void IvrBut::mouseDown (const juce::MouseEvent& e)
{
    if (hasInnerButton (kind))
        return;

    pressed = true;
    repaint();

    if (kind == 8)
        toggleState = ! toggleState;

    // The LED check box answers on its lamp only; its caption takes the click without a message.
    if (kind != 1 || e.x < 26)
        sendChangeMessage();
}

void IvrBut::mouseUp (const juce::MouseEvent&)
{
    if (hasInnerButton (kind))
        return;

    pressed = false;
    if (kind == 1)
        toggleState = ! toggleState;
    repaint();
}

void IvrBut::buttonClicked (juce::Button*)
{
    sendChangeMessage();
}

void IvrBut::paint (juce::Graphics& g)
{
    const auto bounds = getLocalBounds();
    const bool down = pressed || toggleState;

    const auto drawLabel = [&] (juce::Rectangle<int> box, int justification)
    {
        g.setColour (textColour);
        g.setFont (arial (fontHeight));
        g.drawText (label, box, juce::Justification (justification), true);
    };

    switch (kind)
    {
        case 1:
            g.drawImage (images[toggleState ? 1 : 0], 2, 5, 15, 11, 0, 0, 15, 11);
            drawLabel (bounds.withTrimmedLeft (22), 33);
            return;

        case 6:
            g.drawImage (images[0], 0, 0, getWidth(), getHeight(), down ? 61 : 0, 0, 60, 16);
            drawLabel (bounds, 36);
            return;

        case 7:
            g.drawImage (images[0], 0, 0, getWidth(), getHeight(), down ? 72 : 0, 0, 71, 24);
            drawLabel (bounds, 36);
            return;

        case 8:
            g.drawImage (images[0], 0, (getHeight() - 9) / 2, 14, 9, toggleState ? 15 : 0, 0, 14, 9);
            drawLabel ({ 22, getHeight() - 5, 140, 18 }, 33);
            return;

        case 90:
            // The bar is the product's face: a faint light under the pointer, a little more while held.
            if (pressed || isMouseOver())
            {
                g.setColour (juce::Colours::white.withAlpha (pressed ? 0.2f : 0.1f));
                g.fillRoundedRectangle (bounds.toFloat(), 3.0f);
            }
            drawLabel (bounds, 36);
            return;

        case 130:
        case 135:
        case 140:
            return;

        default:
            break;
    }

    // The bevel: raised when idle, sunk with the text moved by a pixel when held or on.
    const int w = getWidth();
    const int h = getHeight();
    const auto edges = [&] (juce::Colour topLeft, juce::Colour bottomRight)
    {
        g.setColour (topLeft);
        g.drawHorizontalLine (0, 0.0f, (float) w);
        g.drawVerticalLine (0, 0.0f, (float) h);
        g.setColour (bottomRight);
        g.drawHorizontalLine (h - 1, 0.0f, (float) w);
        g.drawVerticalLine (w - 1, 0.0f, (float) h);
    };

    g.setFont (arial (fontHeight));
    if (down)
    {
        g.setColour (frameColours[3]);
        g.fillRoundedRectangle (bounds.toFloat(), 4.0f);
        edges (frameColours[1], frameColours[0]);
        g.setColour (pressedTextColour);
        g.drawText (label, bounds.translated (1, 1), juce::Justification::centred, true);
    }
    else
    {
        g.setColour (frameColours[2]);
        g.fillRect (bounds.reduced (1));
        g.setColour (textColour);
        g.drawText (label, bounds, juce::Justification::centred, true);
        edges (frameColours[0], frameColours[1]);
    }
}

void IvrBut::paintOverChildren (juce::Graphics& g)
{
    if (! hasInnerButton (kind))
        return;

    g.setColour (textColour);
    g.setFont (arial (fontHeight));

    if (kind == 135)
    {
        g.drawImage (images[toggleState ? 1 : 0], 4, (getHeight() - 11) / 2, 15, 11, 0, 0, 15, 11);
        g.drawText (label, getLocalBounds().withTrimmedLeft (25), juce::Justification::centredLeft, true);
    }
    else
    {
        g.drawText (label, getLocalBounds(), juce::Justification::centred, true);
    }
}
