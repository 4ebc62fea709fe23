#include "editor/controls/RateSlider.h"

#include "editor/controls/IvrResor.h"

#include <cmath>

namespace
{
constexpr int thumbWidth = 6;
} // namespace

RateSlider::RateSlider (float maximumValue)
    : maximum (maximumValue),
      pixelsPerStep ((float) (rightArrowStart - 1 - trackStart) / juce::jmax (1.0f, maximumValue))
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    upImage = IvrResor::get ("rateSlider_up");
    downImage = IvrResor::get ("rateSlider_dn");
    setSize (200, 18);
}

RateSlider::~RateSlider()
{
    stopTimer();
}

void RateSlider::setValue (float newValue)
{
    value = juce::jlimit (0.0f, maximum, newValue);
    repaint();
}

void RateSlider::changeTo (float newValue)
{
    value = juce::jlimit (0.0f, maximum, newValue);
    repaint();
    sendChangeMessage();
}

void RateSlider::mouseDown (const juce::MouseEvent& e)
{
    leftArrow = rightArrow = thumb = false;
    const int x = e.getPosition().x;

    if (x <= leftArrowEnd)
    {
        leftArrow = true;
        direction = -1;
        startTimer (repeatMs);
    }
    else if (x >= rightArrowStart)
    {
        rightArrow = true;
        direction = 1;
        startTimer (repeatMs);
    }
    else
    {
        pressX = x;
        thumb = true;
    }
    repaint();
}

void RateSlider::mouseDrag (const juce::MouseEvent& e)
{
    if (! thumb)
        return;
    const float steps = std::trunc ((float) (e.getPosition().x - trackStart) / pixelsPerStep);
    changeTo (juce::jmax (0.0f, steps));
}

void RateSlider::timerCallback()
{
    changeTo (std::trunc (value) + (float) direction);
}

void RateSlider::mouseUp (const juce::MouseEvent&)
{
    leftArrow = rightArrow = thumb = false;
    stopTimer();
    repaint();
}

// The slider is set by its arrows and its thumb only.
void RateSlider::mouseDoubleClick (const juce::MouseEvent&) {}
void RateSlider::mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails&) {}

void RateSlider::paint (juce::Graphics& g)
{
    const auto area = getLocalBounds();

    if (upImage.isValid())
        g.drawImage (upImage, area.toFloat());
    else
        g.fillAll (juce::Colour (0xff0b0c0d));

    // A held arrow shows from the pressed picture.
    if (downImage.isValid() && (leftArrow || rightArrow))
    {
        juce::Graphics::ScopedSaveState saved (g);
        g.reduceClipRegion (leftArrow ? area.withWidth (leftArrowEnd + 1) : area.withTrimmedLeft (rightArrowStart));
        g.drawImage (downImage, area.toFloat());
    }

    const float centre = (float) trackStart + value * pixelsPerStep;
    const float left = juce::jlimit ((float) trackStart, (float) (rightArrowStart - thumbWidth), centre - thumbWidth / 2.0f);
    const juce::Rectangle<float> knob (left, 2.0f, (float) thumbWidth, (float) getHeight() - 4.0f);
    g.setColour (thumb ? juce::Colour (0xffe89a3c) : juce::Colour (0xffd8d6d0));
    g.fillRoundedRectangle (knob, 1.5f);
    g.setColour (juce::Colour (0xff2b2d31));
    g.drawRoundedRectangle (knob, 1.5f, 1.0f);
}
