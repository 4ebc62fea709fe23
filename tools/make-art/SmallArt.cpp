// Buttons, value boxes, LEDs, check boxes, the rate slider and the grid's scroll bar.

#include "ArtKit.h"
#include "Painters.h"

namespace
{
using namespace ArtKit;

// Two states side by side: up at x = 0, down at x = frameWidth + 1. The image may be a pixel
// short of two full frames (the bank button's is), so the down frame keeps to what is there.
template <typename Draw>
juce::Image twoFrames (int imageWidth, int frameWidth, int height, Draw draw)
{
    auto image = makeImage (imageWidth, height, true);
    juce::Graphics g (image);
    for (int f = 0; f < 2; ++f)
    {
        const int x = f * (frameWidth + 1);
        const int w = juce::jmin (frameWidth, imageWidth - x);
        juce::Graphics::ScopedSaveState save (g);
        g.reduceClipRegion (x, 0, w, height);
        g.setOrigin (x, 0);
        draw (g, juce::Rectangle<float> (0.0f, 0.0f, (float) w, (float) height), f == 1);
    }
    return image;
}

void triangle (juce::Graphics& g, juce::Point<float> c, float size, float angle, juce::Colour colour)
{
    juce::Path p;
    p.addTriangle (0.0f, -size * 0.6f, size * 0.55f, size * 0.45f, -size * 0.55f, size * 0.45f);
    p.applyTransform (juce::AffineTransform::rotation (angle).translated (c));
    g.setColour (colour);
    g.fillPath (p);
}

juce::Image checkBox (int state)
{
    // state 0: unchecked, 1: checked, 2: held down.
    auto image = makeImage (20, 11, true);
    juce::Graphics g (image);
    const juce::Rectangle<float> box (1.0f, 0.5f, 16.0f, 10.0f);
    g.setColour (state == 2 ? juce::Colour (0xff050506) : juce::Colour (0xff101113));
    g.fillRoundedRectangle (box, 2.0f);
    sunken (g, box, 2.0f, state == 2 ? 2.0f : 1.2f);
    if (state == 1)
    {
        juce::Path tick;
        tick.startNewSubPath (box.getX() + 4.0f, box.getCentreY());
        tick.lineTo (box.getX() + 7.0f, box.getBottom() - 2.2f);
        tick.lineTo (box.getRight() - 3.5f, box.getY() + 2.0f);
        g.setColour (valueOrange.withAlpha (0.35f));
        g.strokePath (tick, juce::PathStrokeType (3.0f, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));
        g.setColour (valueOrange.brighter (0.2f));
        g.strokePath (tick, juce::PathStrokeType (1.5f, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));
    }
    return image;
}

juce::Image rateSlider (bool down)
{
    auto image = makeImage (200, 18, true);
    juce::Graphics g (image);

    // Track between the arrows, with a fine graduation.
    const juce::Rectangle<float> track (19.0f, 5.0f, 162.0f, 8.0f);
    g.setColour (juce::Colour (0xff0b0c0d));
    g.fillRoundedRectangle (track, 3.0f);
    sunken (g, track, 3.0f, 1.5f);
    g.setColour (juce::Colours::white.withAlpha (down ? 0.22f : 0.14f));
    for (int i = 0; i <= 16; ++i)
    {
        const float x = track.getX() + 4.0f + (track.getWidth() - 8.0f) * (float) i / 16.0f;
        g.fillRect (x, track.getCentreY() - (i % 4 == 0 ? 2.0f : 1.0f), 0.8f, i % 4 == 0 ? 4.0f : 2.0f);
    }

    // Arrow buttons at both ends.
    for (int side = 0; side < 2; ++side)
    {
        const juce::Rectangle<float> button (side == 0 ? 0.5f : 183.5f, 0.5f, 16.0f, 17.0f);
        buttonFace (g, button, 3.0f, juce::Colour (0xff5a5e65), juce::Colour (0xff2b2d31), down);
        triangle (g, button.getCentre().translated (down ? 0.5f : 0.0f, down ? 0.5f : 0.0f), 7.0f,
                  side == 0 ? -juce::MathConstants<float>::halfPi : juce::MathConstants<float>::halfPi,
                  down ? valueOrange : juce::Colour (0xffe6e4de));
    }
    return image;
}
} // namespace

juce::Image paintButTolk (ArtBook&)
{
    return twoFrames (121, 60, 16, [] (juce::Graphics& g, juce::Rectangle<float> r, bool down) {
        if (down)
            buttonFace (g, r.reduced (0.5f), 3.0f, juce::Colour (0xff5c6067), juce::Colour (0xff3a3d42), true);
        else
            buttonFace (g, r.reduced (0.5f), 3.0f, juce::Colour (0xff80858d), juce::Colour (0xff4d5158), false);
    });
}

juce::Image paintBankButton (ArtBook&)
{
    return twoFrames (142, 71, 24, [] (juce::Graphics& g, juce::Rectangle<float> r, bool down) {
        // Down is also the selected bank: it shows a lit strip along its top.
        if (down)
            buttonFace (g, r.reduced (0.5f), 3.5f, juce::Colour (0xff2d5677), juce::Colour (0xff14293a), false);
        else
            buttonFace (g, r.reduced (0.5f), 3.5f, juce::Colour (0xff44484e), juce::Colour (0xff1d1f22), false);
        if (down)
        {
            g.setColour (juce::Colour (0xff6cc4f5).withAlpha (0.9f));
            g.fillRoundedRectangle (r.getX() + 8.0f, 2.5f, r.getWidth() - 16.0f, 1.6f, 0.8f);
        }
    });
}

juce::Image paintLabelBoxL (ArtBook&)
{
    auto image = makeImage (200, 18, true);
    juce::Graphics g (image);
    // The box runs on past the right edge: its right end is a separate image.
    const juce::Rectangle<float> box (0.5f, 0.5f, 215.0f, 17.0f);
    juce::ColourGradient fill (juce::Colour (0xff141518), 0.0f, 0.0f, juce::Colour (0xff0a0a0c), 0.0f, 18.0f, false);
    g.setGradientFill (fill);
    g.fillRoundedRectangle (box, 3.0f);
    sunken (g, box, 3.0f, 1.6f);
    return image;
}

juce::Image paintLabelBoxR (ArtBook&)
{
    auto image = makeImage (14, 18, true);
    juce::Graphics g (image);
    const juce::Rectangle<float> box (-20.0f, 0.5f, 33.5f, 17.0f);
    juce::ColourGradient fill (juce::Colour (0xff141518), 0.0f, 0.0f, juce::Colour (0xff0a0a0c), 0.0f, 18.0f, false);
    g.setGradientFill (fill);
    g.fillRoundedRectangle (box, 3.0f);
    sunken (g, box, 3.0f, 1.6f);
    // The box opens a menu: a small arrow says so.
    triangle (g, { 6.5f, 9.5f }, 6.0f, juce::MathConstants<float>::pi, valueOrange.withAlpha (0.85f));
    return image;
}

juce::Image paintIledR0 (ArtBook&)
{
    auto image = makeImage (15, 11, true);
    juce::Graphics g (image);
    led (g, { 4.0f, 2.0f, 7.0f, 7.0f }, juce::Colour (0xffff3326), false);
    return image;
}

juce::Image paintIledR1 (ArtBook&)
{
    auto image = makeImage (15, 11, true);
    juce::Graphics g (image);
    led (g, { 4.0f, 2.0f, 7.0f, 7.0f }, juce::Colour (0xffff3326), true);
    return image;
}

juce::Image paintLedXx (ArtBook&)
{
    return filmstrip (28, 9, 2, 15, 14, [] (juce::Graphics& g, int f)
    {
        led (g, { 4.0f, 1.5f, 6.0f, 6.0f }, juce::Colour (0xffffa62b), f == 1);
    });
}

juce::Image paintChDn (ArtBook&) { return checkBox (2); }
juce::Image paintChOn (ArtBook&) { return checkBox (1); }
juce::Image paintChOff (ArtBook&) { return checkBox (0); }

juce::Image paintMidiLed (ArtBook&)
{
    return filmstrip (13, 7, 2, 7, 6, [] (juce::Graphics& g, int f)
    {
        led (g, { 0.8f, 1.3f, 4.4f, 4.4f }, juce::Colour (0xffff3326), f == 1);
    });
}

juce::Image paintRateSliderUp (ArtBook&) { return rateSlider (false); }
juce::Image paintRateSliderDn (ArtBook&) { return rateSlider (true); }

// The grid draws the scroll bar's track 29 wide from these 36 pixels and the thumb 36 wide from its
// 25, so each is drawn here narrowed by its own factor: on the screen the thumb then sits centred on
// the track's groove, with round corners.
namespace
{
constexpr float trackScale = 29.0f / 36.0f;
constexpr float thumbScale = 36.0f / 25.0f;
// Where the thumb's image starts on the screen, from the track's left edge.
constexpr float thumbOffset = 2.0f;

// A screen x of the scroll bar, in the pixels of the track's or the thumb's image.
float onTrack (float screenX) { return screenX / trackScale; }
float onThumb (float screenX) { return (screenX - thumbOffset) / thumbScale; }
} // namespace

juce::Image paintSuvBkgrnd (ArtBook&)
{
    auto image = makeImage (36, 325, true);
    juce::Graphics g (image);
    const juce::Rectangle<float> track (onTrack (3.0f), 2.0f, onTrack (27.0f) - onTrack (3.0f), 321.0f);
    juce::ColourGradient fill (juce::Colour (0xff0b0c0e), track.getX(), 0.0f, juce::Colour (0xff17181b), track.getRight(), 0.0f, false);
    g.setGradientFill (fill);
    g.fillRoundedRectangle (track, 6.0f);
    sunken (g, track, 6.0f, 2.0f);
    const float groove = onTrack (15.0f);
    g.setColour (juce::Colours::black.withAlpha (0.7f));
    g.fillRoundedRectangle (groove - onTrack (1.0f), 8.0f, onTrack (2.0f), 309.0f, 1.0f);
    g.setColour (juce::Colours::white.withAlpha (0.07f));
    g.fillRect (groove + onTrack (1.0f), 8.0f, onTrack (1.0f), 309.0f);
    return image;
}

juce::Image paintSuvGridTmb (ArtBook&)
{
    auto image = makeImage (25, 43, true);
    juce::Graphics g (image);
    const float left = onThumb (5.0f);
    const juce::Rectangle<float> thumb (left, 1.5f, onThumb (25.0f) - left, 39.0f);
    // Corners of 5 screen pixels across and down.
    const float cornerX = 5.0f / thumbScale;
    juce::Path p;
    p.addRoundedRectangle (thumb.getX(), thumb.getY(), thumb.getWidth(), thumb.getHeight(), cornerX, 5.0f);
    shadow (g, p, 1.5f, 0.7f, { 1, 1 });
    juce::ColourGradient fill (juce::Colour (0xff9297a0), thumb.getX(), 0.0f, juce::Colour (0xff4b4f55), thumb.getRight(), 0.0f, false);
    g.setGradientFill (fill);
    g.fillPath (p);
    // The lit top and left edge and the dark bottom, drawn inside the outline.
    g.setColour (juce::Colours::white.withAlpha (0.4f));
    g.fillRect (thumb.getX() + cornerX, thumb.getY() + 0.5f, thumb.getWidth() - 2.0f * cornerX, 1.0f);
    g.setColour (juce::Colours::black.withAlpha (0.5f));
    g.fillRect (thumb.getX() + cornerX, thumb.getBottom() - 1.5f, thumb.getWidth() - 2.0f * cornerX, 1.0f);
    g.setColour (juce::Colours::black.withAlpha (0.6f));
    g.strokePath (p, juce::PathStrokeType (0.6f));
    for (int i = -1; i <= 1; ++i)
    {
        const float y = thumb.getCentreY() + (float) i * 4.0f;
        g.setColour (juce::Colours::black.withAlpha (0.45f));
        g.fillRect (thumb.getX() + 2.5f, y, thumb.getWidth() - 5.0f, 1.0f);
        g.setColour (juce::Colours::white.withAlpha (0.3f));
        g.fillRect (thumb.getX() + 2.5f, y + 1.0f, thumb.getWidth() - 5.0f, 0.8f);
    }
    return image;
}

juce::Image paintLiveGrd (ArtBook&)
{
    // The rule between two rows of the list: a dark groove with a lit edge under it, in the blue of
    // the list's text, fading out towards the category column's end.
    auto image = makeImage (240, 3, true);
    juce::Graphics g (image);
    g.setColour (juce::Colours::black.withAlpha (0.55f));
    g.fillRect (0, 0, 240, 1);
    juce::ColourGradient lit (juce::Colour (0xff2f6f9e), 0.0f, 0.0f, juce::Colour (0x002f6f9e), 240.0f, 0.0f, false);
    lit.addColour (0.6, juce::Colour (0xc02f6f9e));
    g.setGradientFill (lit);
    g.fillRect (0, 1, 240, 1);
    g.setColour (juce::Colours::white.withAlpha (0.05f));
    g.fillRect (0, 2, 240, 1);
    return image;
}
