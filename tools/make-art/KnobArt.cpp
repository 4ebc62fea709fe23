// The knob and the rotary selector filmstrips. Angles run clockwise from 12 o'clock; both sweep
// the same 300 degrees, from lower left (minimum) to lower right (maximum).

#include "ArtKit.h"
#include "KnobGeometry.h"
#include "Painters.h"

#include <cmath>

namespace
{
using namespace ArtKit;

juce::Point<float> polar (juce::Point<float> c, float r, float angle)
{
    return { c.x + r * std::sin (angle), c.y - r * std::cos (angle) };
}

// Grip ridges around the edge of a black knob; they turn with it, their shine stays with the light.
void ridges (juce::Graphics& g, juce::Point<float> c, float inner, float outer, float turn, int count)
{
    for (int i = 0; i < count; ++i)
    {
        const float a = turn + juce::MathConstants<float>::twoPi * (float) i / (float) count;
        const float facing = std::cos (a + juce::MathConstants<float>::pi * 0.25f);
        g.setColour (juce::Colours::white.withAlpha (0.025f + 0.06f * juce::jmax (0.0f, facing)));
        g.drawLine ({ polar (c, inner, a), polar (c, outer, a) }, 0.5f);
        g.setColour (juce::Colours::black.withAlpha (0.28f));
        g.drawLine ({ polar (c, inner, a + 0.035f), polar (c, outer, a + 0.035f) }, 0.45f);
    }
}

void blackBody (juce::Graphics& g, juce::Point<float> c, float r)
{
    juce::Path body;
    body.addEllipse (c.x - r, c.y - r, r * 2.0f, r * 2.0f);
    shadow (g, body, r * 0.22f, 0.8f, { 1, 2 });
    shadow (g, body, r * 0.5f, 0.35f, { 2, 4 });

    juce::ColourGradient side (juce::Colour (0xff46474b), c.x - r * 0.7f, c.y - r * 0.7f,
                               juce::Colour (0xff08080a), c.x + r * 0.7f, c.y + r * 0.7f, false);
    g.setGradientFill (side);
    g.fillPath (body);
}

void paintKnob (juce::Graphics& g, float angle)
{
    const juce::Point<float> c (KnobGeometry::knobCentre, KnobGeometry::knobCentre - 0.5f);
    const float r = KnobGeometry::knobRadius;

    blackBody (g, c, r);
    ridges (g, c, r - 3.2f, r - 0.3f, angle, 64);

    // The top face of the knob, a step inside the grip.
    const float face = r - 3.6f;
    g.setColour (juce::Colours::black.withAlpha (0.75f));
    g.drawEllipse (c.x - face, c.y - face, face * 2.0f, face * 2.0f, 0.9f);
    juce::ColourGradient top (juce::Colour (0xff2c2d31), c.x - face * 0.6f, c.y - face * 0.8f,
                              juce::Colour (0xff0d0d0f), c.x + face * 0.5f, c.y + face * 0.8f, false);
    g.setGradientFill (top);
    g.fillEllipse (c.x - face + 0.4f, c.y - face + 0.4f, face * 2.0f - 0.8f, face * 2.0f - 0.8f);

    // Rim light on the upper left of the grip.
    juce::ColourGradient rim (juce::Colours::white.withAlpha (0.45f), c.x - r, c.y - r,
                              juce::Colours::transparentWhite, c.x, c.y, false);
    g.setGradientFill (rim);
    g.drawEllipse (c.x - r + 0.5f, c.y - r + 0.5f, r * 2.0f - 1.0f, r * 2.0f - 1.0f, 0.9f);

    // The metal cap, seated in a dark collar.
    const float cap = KnobGeometry::capRadius;
    g.setColour (juce::Colour (0xff050506));
    g.fillEllipse (c.x - cap - 1.2f, c.y - cap - 1.2f, (cap + 1.2f) * 2.0f, (cap + 1.2f) * 2.0f);
    metalDisc (g, c, cap, juce::Colour (0xff2b2d31), juce::Colour (0xff74777d));
    juce::ColourGradient capRim (juce::Colours::white.withAlpha (0.5f), c.x - cap, c.y - cap,
                                 juce::Colours::black.withAlpha (0.6f), c.x + cap, c.y + cap, false);
    g.setGradientFill (capRim);
    g.drawEllipse (c.x - cap + 0.3f, c.y - cap + 0.3f, cap * 2.0f - 0.6f, cap * 2.0f - 0.6f, 0.6f);

    // The pointer: a bright inlaid line on the face, from the cap to the grip.
    const auto from = polar (c, cap + 2.0f, angle);
    const auto to = polar (c, r - 0.8f, angle);
    g.setColour (juce::Colours::black.withAlpha (0.6f));
    g.drawLine ({ from.translated (0.4f, 0.6f), to.translated (0.4f, 0.6f) }, 3.0f);
    juce::Path line;
    line.addLineSegment ({ from, to }, 0.0f);
    g.setColour (juce::Colour (0xfff6f3e8));
    g.strokePath (line, juce::PathStrokeType (2.4f, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));
}

void paintSelector (juce::Graphics& g, float angle)
{
    const juce::Point<float> c (KnobGeometry::selectorCentre, KnobGeometry::selectorCentre - 0.5f);
    const float r = KnobGeometry::selectorRadius;

    // The skirt: a black disc with a fine knurl and a bevelled edge.
    blackBody (g, c, r);
    ridges (g, c, r - 2.6f, r - 0.3f, angle, 72);
    juce::ColourGradient rim (juce::Colours::white.withAlpha (0.4f), c.x - r, c.y - r,
                              juce::Colours::transparentWhite, c.x, c.y, false);
    g.setGradientFill (rim);
    g.drawEllipse (c.x - r + 0.5f, c.y - r + 0.5f, r * 2.0f - 1.0f, r * 2.0f - 1.0f, 0.9f);
    const float skirtTop = r - 3.0f;
    juce::ColourGradient skirt (juce::Colour (0xff242528), c.x - skirtTop, c.y - skirtTop,
                                juce::Colour (0xff0b0b0d), c.x + skirtTop, c.y + skirtTop, false);
    g.setGradientFill (skirt);
    g.fillEllipse (c.x - skirtTop, c.y - skirtTop, skirtTop * 2.0f, skirtTop * 2.0f);

    // The pointer knob: a bar with a rounded back and a tapered nose, turned to the position.
    juce::Path bar;
    const float len = r - 2.0f, back = r * 0.55f, half = 7.0f;
    bar.startNewSubPath (-half, back * 0.2f);
    bar.quadraticTo (-half, back, 0.0f, back);
    bar.quadraticTo (half, back, half, back * 0.2f);
    bar.lineTo (half * 0.55f, -len + 3.0f);
    bar.quadraticTo (0.0f, -len - 1.0f, -half * 0.55f, -len + 3.0f);
    bar.closeSubPath();
    bar.applyTransform (juce::AffineTransform::rotation (angle).translated (c));

    shadow (g, bar, 2.5f, 0.85f, { 1, 2 });
    const auto b = bar.getBounds();
    juce::ColourGradient body (juce::Colour (0xff4a4b50), b.getX(), b.getY(), juce::Colour (0xff0a0a0c), b.getRight(), b.getBottom(), false);
    body.addColour (0.35, juce::Colour (0xff27282c));
    g.setGradientFill (body);
    g.fillPath (bar);
    g.setColour (juce::Colours::black.withAlpha (0.7f));
    g.strokePath (bar, juce::PathStrokeType (0.6f));

    // Gloss along the bar's ridge, lit from the top left.
    juce::Path ridge;
    ridge.addLineSegment ({ polar (c, back * 0.6f, angle + juce::MathConstants<float>::pi), polar (c, len - 4.0f, angle) }, 0.0f);
    const float facing = 0.5f + 0.5f * std::cos (angle + juce::MathConstants<float>::pi * 0.25f);
    g.setColour (juce::Colours::white.withAlpha (0.06f + 0.1f * facing));
    g.strokePath (ridge, juce::PathStrokeType (5.0f, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));

    // Pointer line toward the nose.
    juce::Path line;
    line.addLineSegment ({ polar (c, 4.5f, angle), polar (c, len - 3.0f, angle) }, 0.0f);
    g.setColour (juce::Colour (0xfff6f3e8));
    g.strokePath (line, juce::PathStrokeType (1.8f, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));

    // A small metal hub over the shaft.
    metalDisc (g, c, 3.4f, juce::Colour (0xff3a3c40), juce::Colour (0xff9a9da3));
    g.setColour (juce::Colours::black.withAlpha (0.6f));
    g.drawEllipse (c.x - 3.4f, c.y - 3.4f, 6.8f, 6.8f, 0.5f);
}
} // namespace

juce::Image paintKnobsBig (ArtBook&)
{
    return filmstrip (3419, 56, KnobGeometry::knobFrames, 57, 56, [] (juce::Graphics& g, int f)
    {
        paintKnob (g, KnobGeometry::knobAngle (f));
    });
}

juce::Image paintRotary (ArtBook&)
{
    return filmstrip (370, 60, KnobGeometry::selectorFrames, 62, 60, [] (juce::Graphics& g, int f)
    {
        paintSelector (g, KnobGeometry::selectorAngle (f));
    });
}
