#include "editor/controls/IvrCont.h"

#include "editor/controls/IvrResor.h"

#include <cmath>

namespace
{
juce::Font arial (float height)
{
    return juce::Font ("Arial", height, juce::Font::plain);
}

// One frame of a filmstrip, scaled into its place; an invalid image draws nothing.
void drawFrame (juce::Graphics& g, const juce::Image& strip, juce::Rectangle<int> source, juce::Rectangle<float> target)
{
    const auto t = target.toNearestInt();
    g.drawImage (strip, t.getX(), t.getY(), t.getWidth(), t.getHeight(),
                 source.getX(), source.getY(), source.getWidth(), source.getHeight());
}
} // namespace

IvrCont::IvrCont()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
}

IvrCont::~IvrCont()
{
    stopTimer();
}

void IvrCont::setRange (int minimumValue, int maximumValue)
{
    minimum = minimumValue;
    maximum = maximumValue;
    range = maximumValue - minimumValue;
}

void IvrCont::setDesignRect (float x, float y, float width, float height)
{
    designRect = { x, y, width, height };
}

void IvrCont::setTextBox (int width, int height)
{
    textWidth = width;
    textHeight = height;
}

void IvrCont::InitializeMe (int parameter, juce::String controlName, int controlKind, int displayCode)
{
    id = parameter;
    name = controlName;
    kind = controlKind;
    description = displayCode;
    currentValue = 0;
    frame = 0;
    setScale (scale);

    const auto imageForKind = [] (int k) -> juce::String
    {
        switch (k)
        {
            case 3:
            case 5:   return "knobsBig";
            case 9:   return "rotary";
            case 111: return "swRedHor";
            case 112: return "swRedVer";
            case 113: return "swBlueHor";
            case 114: return "swWhiteHor";
            case 200: return "butTolk";
            default:  return {};
        }
    };

    if (kind == 100)
    {
        leftCap = IvrResor::get ("labelBoxL");
        rightCap = IvrResor::get ("labelBoxR");
    }
    else if (const auto imageName = imageForKind (kind); imageName.isNotEmpty())
    {
        filmstrip = IvrResor::get (imageName);
    }
}

void IvrCont::setScale (float newScale)
{
    scale = newScale;
    setBounds ((int) (designRect.getX() * scale), (int) (designRect.getY() * scale),
               (int) (designRect.getWidth() * scale), (int) (designRect.getHeight() * scale));
}

void IvrCont::ValueChanged (int value, juce::String text)
{
    const int clamped = juce::jlimit (minimum, maximum, value);
    if (clamped == currentValue)
        return;

    currentValue = clamped;
    frame = frameForValue (clamped);
    valueText = text;
    repaint();
}

int IvrCont::frameForValue (int value) const
{
    const double p = range > 0 ? (320.0 - (minimum - value + range) * (320.0 / range)) : 0.0;

    switch (kind)
    {
        case 3:
        case 5:
            // std::nearbyint rounds half to even under the default rounding mode.
            return (int) std::nearbyint (juce::jlimit (0.0, 59.0, p / 5.35));

        case 9:
        {
            // A four-way selector's picture has its positions on the frames 1 to 4.
            const bool fourWay = maximum == 3;
            double f = juce::jlimit (0.0, (double) maximum, p / (fourWay ? 120.35 : 60.35));
            if (fourWay)
                f += 1.0;
            return (int) std::nearbyint (f);
        }

        default:
            return value;
    }
}

int IvrCont::dragDivisor (int maximumValue)
{
    return maximumValue < 15 ? 15 : 1;
}

void IvrCont::requestValue (int value, int actionCode)
{
    requestedValue = value;
    action = actionCode;
    sendChangeMessage();
}

void IvrCont::mouseDown (const juce::MouseEvent& e)
{
    // JUCE hands the mouse to disabled components too; a disabled control must not move.
    if (! isEnabled())
        return;

    pressX = e.x;
    pressY = e.y;
    pressed = false;

    switch (kind)
    {
        case 3:
        case 5:
        case 9:
        case 201:
            dragging = true;
            valueAtPress = currentValue;
            action = actionTouchBegan;
            sendChangeMessage();
            break;

        case 100:
            // The box's own 18 pixels, not scaled: only a press on them may open the menu.
            pressed = e.y <= 17;
            break;

        case 111:
        case 112:
        case 113:
        case 114:
            requestValue (currentValue == 0 ? 1 : 0, actionToggle);
            break;

        case 200:
        {
            const int next = currentValue >= maximum ? minimum : juce::jlimit (minimum, maximum, currentValue + 1);
            if (next != currentValue)
                requestValue (next, actionStep);
            pressed = true;
            repaint();
            break;
        }

        default:
            break;
    }
}

void IvrCont::mouseDrag (const juce::MouseEvent& e)
{
    if (! dragging)
        return;

    const int divisor = dragDivisor (maximum);
    const int dx = e.x - pressX;
    const int dy = e.y - pressY;
    const int value = juce::jlimit (minimum, maximum, valueAtPress + dx / divisor - dy / divisor);

    if (value != currentValue)
        requestValue (value, actionStep);
}

void IvrCont::mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails& wheel)
{
    if (! isEnabled() || wheel.deltaY == 0.0f)
        return;

    const int value = juce::jlimit (minimum, maximum, currentValue + (wheel.deltaY > 0.0f ? 1 : -1));
    if (value != currentValue)
        requestValue (value, actionWheel);
}

void IvrCont::mouseUp (const juce::MouseEvent& e)
{
    if (! isEnabled())
        return;

    const bool wasPressed = pressed;
    dragging = false;
    pressed = false;

    if (kind == 200)
        repaint();

    if (kind == 100)
    {
        if (wasPressed && e.y < 18)
        {
            action = actionMenu;
            sendChangeMessage();
        }
        return;
    }

    startTimer (100);
}

void IvrCont::timerCallback()
{
    stopTimer();
    action = actionTouchEnded;
    sendChangeMessage();
}

void IvrCont::paint (juce::Graphics& g)
{
    const float s = scale;
    const float boxWidth = (float) textWidth * s;

    const auto text = [&] (const juce::String& t, float height, juce::Rectangle<float> box, int justification)
    {
        g.setFont (arial (height));
        g.drawText (t, box, juce::Justification (justification), true);
    };

    switch (kind)
    {
        case 3:
        case 5:
        {
            const bool big = kind == 3;
            const float size = (big ? 66.0f : 44.0f) * s;
            const float textY = (big ? 30.0f : 22.0f) * s;
            drawFrame (g, filmstrip, { 57 * frame, 0, 56, 56 }, { 0.0f, 0.0f, size, size });
            g.setColour (juce::Colours::white);
            text (valueText, 11.0f * s, { 0.0f, textY, boxWidth, 11.0f * s }, 36);
            break;
        }

        case 9:
            drawFrame (g, filmstrip, { 62 * frame, 0, 60, 60 }, { 0.0f, 0.0f, 60.0f * s, 60.0f * s });
            break;

        case 100:
        {
            const float height = 18.0f * s;
            const float right = (float) (textWidth - 14) * s;
            drawFrame (g, leftCap, { 0, 0, 200, 18 }, { 0.0f, 0.0f, 200.0f * s, height });
            drawFrame (g, rightCap, { 0, 0, 14, 18 }, { right, 0.0f, 14.0f * s, height });
            g.setColour (juce::Colour (0xfff59b58));
            text (valueText, 13.0f * s, { 8.0f * s, 0.0f, right - 8.0f * s, height }, 33);
            break;
        }

        case 111:
        case 114:
        {
            if (kind == 114)
                g.fillAll (juce::Colour (0xff191a1c));

            drawFrame (g, filmstrip, { 100 * frame, 0, 100, 50 }, { (boxWidth - 50.0f * s) / 2.0f, 0.0f, 50.0f * s, 25.0f * s });
            g.setColour (juce::Colours::white);

            if (kind == 114)
            {
                text (valueText, 10.0f * s, { 0.0f, 12.0f * s, boxWidth, 10.0f * s }, 36);
            }
            else if (id == 65)
            {
                // Two lines under the lever; the lower keeps its box's bottom edge.
                text (currentValue != 0 ? "HIGHPASS/" : "DUAL", 10.0f * s, { 0.0f, 15.0f * s, boxWidth, 24.0f * s }, 12);
                text ("LOWPASS", 10.0f * s, { 0.0f, 25.0f * s, boxWidth, 25.0f * s }, 12);
            }
            else if (id == 66)
            {
                text (valueText, 10.0f * s, { 0.0f, 15.0f * s, boxWidth, 25.0f * s }, 12);
            }
            break;
        }

        case 112:
            drawFrame (g, filmstrip, { 50 * frame, 0, 50, 100 }, { 0.0f, 0.0f, 25.0f * s, 50.0f * s });
            g.setColour (juce::Colours::white);
            text (valueText, 10.0f * s, getLocalBounds().toFloat(), currentValue == 0 ? 10 : 18);
            break;

        case 113:
            drawFrame (g, filmstrip, { 100 * frame, 0, 100, 50 }, { 0.0f, 0.0f, 50.0f * s, 25.0f * s });
            g.setColour (juce::Colours::white);
            text (valueText, 10.0f * s, { 0.0f, 12.0f * s, (float) getWidth(), 10.0f * s }, currentValue == 0 ? 33 : 34);
            break;

        case 200:
            drawFrame (g, filmstrip, { pressed ? 61 : 0, 0, 60, 16 }, { 0.0f, 0.0f, 60.0f * s, 16.0f * s });
            g.setColour (juce::Colours::white);
            text (valueText, 11.0f * s, { 0.0f, 0.0f, boxWidth, (float) textHeight * s }, 36);
            break;

        case 201:
            g.fillAll (juce::Colours::black);
            g.setColour (juce::Colour (0xff6d6d6d));
            g.drawRect (getLocalBounds(), 1);
            g.setColour (juce::Colours::white);
            text (valueText, 11.0f * s, getLocalBounds().toFloat(), 36);
            break;

        default:
            break;
    }
}
