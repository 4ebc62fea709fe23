#include "editor/WheelCnt.h"

#include "editor/controls/IvrResor.h"

#include <cmath>

WheelCnt::WheelCnt (int start, bool springBack)
    : position ((float) start), spring (springBack)
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    frame = (int) (position * frameFactor);
    modWheelfilmstrip = IvrResor::get ("modWheelfilmstrip");
}

WheelCnt::~WheelCnt() = default;

void WheelCnt::setDesignRect (float x, float y, float width, float height)
{
    designRect = { x, y, width, height };
}

void WheelCnt::setScale (float newScale)
{
    scale = newScale;
    setBounds ((int) (designRect.getX() * scale), (int) (designRect.getY() * scale),
               (int) (designRect.getWidth() * scale), (int) (designRect.getHeight() * scale));
}

void WheelCnt::setPosition (int newPosition)
{
    place (newPosition);
}

void WheelCnt::moveTo (int newPosition)
{
    if (place (newPosition))
        sendChangeMessage();
}

bool WheelCnt::place (int newPosition)
{
    const float clamped = juce::jlimit (minimum, maximum, (float) newPosition);
    if (clamped == position)
        return false;

    position = clamped;
    frame = (int) (position * frameFactor);
    repaint();
    return true;
}

void WheelCnt::mouseDown (const juce::MouseEvent& e)
{
    pressY = e.y;
    positionAtPress = (int) position;
}

void WheelCnt::mouseDrag (const juce::MouseEvent& e)
{
    moveTo (positionAtPress + pressY - e.y);
}

void WheelCnt::mouseUp (const juce::MouseEvent&)
{
    if (spring)
        moveTo (springPosition);
}

void WheelCnt::mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails& wheel)
{
    // One step per event whatever its size; the spring waits for a button, so it stays.
    if (wheel.deltaY > 0.0f)
        moveTo ((int) position + 1);
    else if (wheel.deltaY < 0.0f)
        moveTo ((int) position - 1);
}

void WheelCnt::paint (juce::Graphics& g)
{
    if (! modWheelfilmstrip.isValid())
        return paintWithoutStrip (g);

    const int f = juce::jlimit (0, numFrames - 1, frame);
    g.drawImage (modWheelfilmstrip, 0, 0, (int) (31.0f * scale), (int) (112.0f * scale), 31 * f, 0, 31, 112);
}

void WheelCnt::paintWithoutStrip (juce::Graphics& g)
{
    // A drawn wheel of the strip's geometry: a slot, a rolling cylinder with ridges, and a marker
    // that rides up with the value, so that the position reads as it does on the instrument.
    const auto bounds = getLocalBounds().toFloat();
    const float s = scale;

    g.setColour (juce::Colour (0xff070708));
    g.fillRoundedRectangle (bounds, 3.0f * s);
    g.setColour (juce::Colour (0xff34363b));
    g.drawRoundedRectangle (bounds.reduced (0.5f), 3.0f * s, 1.0f);

    const auto body = bounds.reduced (4.0f * s, 5.0f * s);
    const float centreY = body.getCentreY();
    const float radius = body.getHeight() / 2.0f;

    juce::ColourGradient shade (juce::Colour (0xff101113), 0.0f, body.getY(), juce::Colour (0xff101113), 0.0f, body.getBottom(), false);
    shade.addColour (0.5, juce::Colour (0xff45474d));
    g.setGradientFill (shade);
    g.fillRoundedRectangle (body, 2.0f * s);

    // The wheel turns through about 140 degrees over its range.
    const float turn = (position - 63.5f) / 127.0f * 2.4f;
    const float ridgeStep = 0.16f;
    const auto ridgeY = [&] (float angle) { return centreY - radius * std::sin (angle); };

    for (int k = -12; k <= 12; ++k)
    {
        const float angle = turn + (float) k * ridgeStep;
        if (std::abs (angle) >= 1.45f)
            continue;
        const float light = std::cos (angle);
        g.setColour (juce::Colour (0xff000000).withAlpha (0.25f + 0.35f * light));
        g.fillRect (body.getX() + 1.0f, ridgeY (angle), body.getWidth() - 2.0f, juce::jmax (1.0f, 1.2f * s * light));
    }

    if (std::abs (turn) < 1.45f)
    {
        const float thickness = juce::jmax (1.5f, 3.0f * s * std::cos (turn));
        g.setColour (juce::Colour (0xffe8e8e8));
        g.fillRect (body.getX(), ridgeY (turn) - thickness / 2.0f, body.getWidth(), thickness);
    }
}
