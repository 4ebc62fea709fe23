// Lever switches: a chrome plate with a slot, and a coloured paddle on a short shaft that sits at
// one end of the slot or the other. The horizontal ones keep to the upper part of their frame,
// since the controls print their state under the lever.

#include "ArtKit.h"
#include "Painters.h"

namespace
{
using namespace ArtKit;

void plate (juce::Graphics& g, juce::Rectangle<float> r, juce::Rectangle<float> slot)
{
    juce::Path p;
    p.addRoundedRectangle (r, 5.0f);
    shadow (g, p, 3.0f, 0.75f, { 1, 2 });
    juce::ColourGradient metal (juce::Colour (0xff9ea2a8), r.getX(), r.getY(), juce::Colour (0xff44474c), r.getX(), r.getBottom(), false);
    metal.addColour (0.45, juce::Colour (0xff70747a));
    g.setGradientFill (metal);
    g.fillPath (p);
    bevel (g, r, 5.0f, 1.2f, 0.5f);
    g.setColour (juce::Colours::black.withAlpha (0.7f));
    g.strokePath (p, juce::PathStrokeType (0.8f));

    g.setColour (juce::Colour (0xff060607));
    g.fillRoundedRectangle (slot, juce::jmin (slot.getWidth(), slot.getHeight()) * 0.5f);
    sunken (g, slot, juce::jmin (slot.getWidth(), slot.getHeight()) * 0.5f, 2.0f);
}

void lever (juce::Graphics& g, juce::Point<float> pivot, juce::Point<float> tip, juce::Rectangle<float> paddle, juce::Colour hue)
{
    // Shaft: a chrome rod from the pivot to the paddle.
    juce::Path rod;
    rod.addLineSegment ({ pivot, tip }, 0.0f);
    juce::Path rodStroke;
    juce::PathStrokeType (5.5f, juce::PathStrokeType::curved, juce::PathStrokeType::rounded).createStrokedPath (rodStroke, rod);
    shadow (g, rodStroke, 2.0f, 0.8f, { 1, 2 });
    const auto rb = rodStroke.getBounds();
    juce::ColourGradient chrome (juce::Colour (0xffe8eaee), rb.getX(), rb.getY(), juce::Colour (0xff55585e), rb.getRight(), rb.getBottom(), false);
    g.setGradientFill (chrome);
    g.fillPath (rodStroke);

    // Paddle: a glossy coloured cap.
    juce::Path cap;
    cap.addRoundedRectangle (paddle, 6.0f);
    shadow (g, cap, 3.5f, 0.9f, { 2, 3 });
    juce::ColourGradient body (hue.brighter (0.35f), paddle.getX(), paddle.getY(), hue.darker (0.9f), paddle.getRight(), paddle.getBottom(), false);
    body.addColour (0.5, hue);
    g.setGradientFill (body);
    g.fillPath (cap);
    g.setColour (juce::Colours::black.withAlpha (0.55f));
    g.strokePath (cap, juce::PathStrokeType (0.8f));

    // Gloss on the upper half and a thin rim light on the top edge.
    auto gloss = paddle.reduced (2.5f, 2.0f).withHeight (paddle.getHeight() * 0.42f);
    juce::ColourGradient shine (juce::Colours::white.withAlpha (0.55f), gloss.getX(), gloss.getY(),
                                juce::Colours::white.withAlpha (0.04f), gloss.getX(), gloss.getBottom(), false);
    g.setGradientFill (shine);
    g.fillRoundedRectangle (gloss, 4.0f);
    // Grip grooves across the paddle.
    g.setColour (juce::Colours::black.withAlpha (0.18f));
    const bool wide = paddle.getWidth() > paddle.getHeight();
    for (int i = -1; i <= 1; ++i)
    {
        const auto c = paddle.getCentre();
        if (wide)
            g.drawLine (c.x + (float) i * 4.0f, paddle.getY() + 4.0f, c.x + (float) i * 4.0f, paddle.getBottom() - 3.0f, 0.8f);
        else
            g.drawLine (paddle.getX() + 3.0f, c.y + (float) i * 4.0f, paddle.getRight() - 3.0f, c.y + (float) i * 4.0f, 0.8f);
    }
}

juce::Image horizontal (juce::Colour hue)
{
    return filmstrip (200, 50, 2, 100, 100, [hue] (juce::Graphics& g, int f)
    {
        plate (g, { 5.0f, 3.0f, 90.0f, 28.0f }, { 18.0f, 13.0f, 64.0f, 8.0f });
        const float tipX = f == 0 ? 27.0f : 73.0f;
        lever (g, { 50.0f, 17.0f }, { tipX, 17.0f }, juce::Rectangle<float> (24.0f, 21.0f).withCentre ({ tipX, 16.0f }), hue);
    });
}
} // namespace

juce::Image paintSwRedHor (ArtBook&) { return horizontal (juce::Colour (0xffc8302a)); }
juce::Image paintSwBlueHor (ArtBook&) { return horizontal (juce::Colour (0xff2c66cc)); }
juce::Image paintSwWhiteHor (ArtBook&) { return horizontal (juce::Colour (0xffd9d7d0)); }

juce::Image paintSwRedVer (ArtBook&)
{
    return filmstrip (100, 100, 2, 50, 50, [] (juce::Graphics& g, int f)
    {
        plate (g, { 8.0f, 4.0f, 34.0f, 90.0f }, { 21.0f, 17.0f, 8.0f, 64.0f });
        const float tipY = f == 0 ? 73.0f : 27.0f;
        lever (g, { 25.0f, 49.0f }, { 25.0f, tipY }, juce::Rectangle<float> (21.0f, 24.0f).withCentre ({ 25.0f, tipY }), juce::Colour (0xffc8302a));
    });
}
