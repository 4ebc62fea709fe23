#include "ArtKit.h"

#include <cmath>
#include <vector>

namespace ArtKit
{
juce::Image makeImage (int width, int height, bool transparent)
{
    return juce::Image (transparent ? juce::Image::ARGB : juce::Image::RGB, width, height, true,
                        juce::SoftwareImageType());
}

void brush (juce::Image& image, juce::Rectangle<int> area, float strength, int seed)
{
    area = area.getIntersection (image.getBounds());
    if (area.isEmpty())
        return;

    juce::Random rng (seed);
    const int length = area.getWidth();
    const int lines = area.getHeight();
    const int window = 23;
    std::vector<float> raw ((size_t) (length + window)), smooth ((size_t) length);

    juce::Image::BitmapData data (image, area.getX(), area.getY(), area.getWidth(), area.getHeight(),
                                  juce::Image::BitmapData::readWrite);

    for (int line = 0; line < lines; ++line)
    {
        // Each stroke of the brush leaves a slightly lighter or darker line, and along it the
        // grain wanders slowly: a box average of white noise.
        const float lineBias = (rng.nextFloat() - 0.5f) * strength;
        for (auto& v : raw)
            v = rng.nextFloat() - 0.5f;

        float sum = 0.0f;
        for (int i = 0; i < window; ++i)
            sum += raw[(size_t) i];
        for (int i = 0; i < length; ++i)
        {
            smooth[(size_t) i] = sum / (float) window;
            sum += raw[(size_t) (i + window)] - raw[(size_t) i];
        }

        for (int i = 0; i < length; ++i)
        {
            const float delta = lineBias + smooth[(size_t) i] * strength * 3.5f;
            const auto c = data.getPixelColour (i, line);
            const auto shift = [delta] (juce::uint8 v) { return (juce::uint8) juce::jlimit (0, 255, juce::roundToInt ((float) v + delta)); };
            data.setPixelColour (i, line, juce::Colour (shift (c.getRed()), shift (c.getGreen()), shift (c.getBlue()), c.getAlpha()));
        }
    }
}

void vignette (juce::Graphics& g, juce::Rectangle<float> area, float amount)
{
    const auto c = area.getCentre();
    juce::ColourGradient grad (juce::Colours::transparentBlack, c.x - area.getWidth() * 0.1f, c.y - area.getHeight() * 0.15f,
                               juce::Colours::black.withAlpha (amount), area.getX(), area.getBottom(), true);
    grad.addColour (0.55, juce::Colours::transparentBlack);
    g.setGradientFill (grad);
    g.fillRect (area);
}

void bevel (juce::Graphics& g, juce::Rectangle<float> r, float corner, float width, float strength)
{
    juce::Path p;
    p.addRoundedRectangle (r.reduced (width * 0.5f), corner);
    juce::ColourGradient grad (juce::Colours::white.withAlpha (strength), r.getX(), r.getY(),
                               juce::Colours::black.withAlpha (strength * 1.4f), r.getRight(), r.getBottom(), false);
    grad.addColour (0.5, juce::Colours::transparentWhite);
    g.setGradientFill (grad);
    g.strokePath (p, juce::PathStrokeType (width));
}

void sunken (juce::Graphics& g, juce::Rectangle<float> r, float corner, float depth)
{
    juce::Path inside;
    inside.addRoundedRectangle (r, corner);

    juce::Path frame;
    frame.addRectangle (r.expanded (depth * 4.0f + 4.0f));
    frame.addRoundedRectangle (r, corner);
    frame.setUsingNonZeroWinding (false);

    {
        juce::Graphics::ScopedSaveState save (g);
        g.reduceClipRegion (inside);
        juce::DropShadow (juce::Colours::black.withAlpha (0.85f), juce::jmax (1, juce::roundToInt (depth * 2.0f)),
                          { juce::roundToInt (depth * 0.5f), juce::roundToInt (depth * 0.8f) })
            .drawForPath (g, frame);
    }

    juce::Path edge;
    edge.addRoundedRectangle (r.expanded (0.5f), corner + 0.5f);
    juce::ColourGradient grad (juce::Colours::black.withAlpha (0.55f), r.getX(), r.getY(),
                               juce::Colours::white.withAlpha (0.16f), r.getRight(), r.getBottom(), false);
    grad.addColour (0.55, juce::Colours::black.withAlpha (0.1f));
    g.setGradientFill (grad);
    g.strokePath (edge, juce::PathStrokeType (1.0f));
}

void shadow (juce::Graphics& g, const juce::Path& p, float radius, float alpha, juce::Point<int> offset)
{
    juce::DropShadow (juce::Colours::black.withAlpha (alpha), juce::jmax (1, juce::roundToInt (radius)), offset).drawForPath (g, p);
}

juce::Font font (float height, bool bold, float kerning)
{
    juce::Font f ("Arial", height, bold ? juce::Font::bold : juce::Font::plain);
    f.setExtraKerningFactor (kerning);
    return f;
}

float textWidth (const juce::String& text, float height, bool bold, float kerning)
{
    return font (height, bold, kerning).getStringWidthFloat (text);
}

void print (juce::Graphics& g, const juce::String& text, juce::Rectangle<float> box, float height,
            juce::Justification just, bool bold, juce::Colour colour, float kerning)
{
    g.setFont (font (height, bold, kerning));
    const float d = juce::jmax (0.35f, height * 0.06f);
    g.setColour (juce::Colours::black.withAlpha (0.55f * colour.getFloatAlpha()));
    g.drawText (text, box.translated (d, d), just, false);
    g.setColour (colour);
    g.drawText (text, box, just, false);
}

void metalDisc (juce::Graphics& g, juce::Point<float> c, float r, juce::Colour dark, juce::Colour light)
{
    const int wedges = 144;
    const float step = juce::MathConstants<float>::twoPi / (float) wedges;
    for (int i = 0; i < wedges; ++i)
    {
        // Angle clockwise from 12 o'clock; the reflections face the light (top left) and its
        // opposite, the brighter one towards the light.
        const float a = (float) i * step;
        const float rel = a + juce::MathConstants<float>::pi * 0.25f;
        const float t = juce::jlimit (0.0f, 1.0f, 0.5f + 0.38f * std::cos (2.0f * rel) + 0.14f * std::cos (rel)
                                                      + 0.05f * std::cos (6.0f * rel + 0.7f));
        juce::Path wedge;
        wedge.addPieSegment (c.x - r, c.y - r, r * 2.0f, r * 2.0f, a - step * 0.6f, a + step * 0.6f, 0.0f);
        g.setColour (dark.interpolatedWith (light, t));
        g.fillPath (wedge);
    }

    // A faint ring pattern from the lathe, and a darker edge where the disc turns away.
    for (float rr = r * 0.2f; rr < r; rr += r * 0.11f)
    {
        g.setColour (juce::Colours::black.withAlpha (0.05f));
        g.drawEllipse (c.x - rr, c.y - rr, rr * 2.0f, rr * 2.0f, r * 0.03f);
    }
    juce::ColourGradient edge (juce::Colours::transparentBlack, c.x, c.y, juce::Colours::black.withAlpha (0.35f), c.x + r, c.y, true);
    edge.addColour (0.75, juce::Colours::transparentBlack);
    g.setGradientFill (edge);
    g.fillEllipse (c.x - r, c.y - r, r * 2.0f, r * 2.0f);
}

void screw (juce::Graphics& g, juce::Point<float> c, float r, float slotAngle)
{
    juce::Path head;
    head.addEllipse (c.x - r, c.y - r, r * 2.0f, r * 2.0f);
    shadow (g, head, r * 0.6f, 0.7f, { 0, juce::roundToInt (r * 0.25f) });
    metalDisc (g, c, r, juce::Colour (0xff4a4c50), juce::Colour (0xffb4b7bc));
    g.setColour (juce::Colours::black.withAlpha (0.6f));
    g.drawEllipse (c.x - r, c.y - r, r * 2.0f, r * 2.0f, r * 0.12f);

    const auto dir = juce::Point<float> (std::cos (slotAngle), std::sin (slotAngle)) * (r * 0.8f);
    g.setColour (juce::Colour (0xff151517));
    g.drawLine ({ c - dir, c + dir }, r * 0.32f);
    g.setColour (juce::Colours::white.withAlpha (0.25f));
    g.drawLine ({ c - dir + juce::Point<float> (0.0f, r * 0.2f), c + dir + juce::Point<float> (0.0f, r * 0.2f) }, r * 0.08f);
}

void led (juce::Graphics& g, juce::Rectangle<float> r, juce::Colour hue, bool lit)
{
    const auto c = r.getCentre();
    if (lit)
    {
        juce::ColourGradient glow (hue.withAlpha (0.55f), c.x, c.y, hue.withAlpha (0.0f), c.x + r.getWidth() * 1.1f, c.y, true);
        g.setGradientFill (glow);
        g.fillEllipse (r.expanded (r.getWidth() * 0.6f));
    }

    // Bezel ring.
    g.setColour (juce::Colour (0xff101012));
    g.fillEllipse (r.expanded (r.getWidth() * 0.12f));

    const auto core = lit ? hue.brighter (0.9f) : hue.darker (2.6f);
    const auto rim = lit ? hue : hue.darker (3.6f);
    juce::ColourGradient body (core, c.x - r.getWidth() * 0.1f, c.y - r.getHeight() * 0.1f, rim, r.getRight(), r.getBottom(), true);
    g.setGradientFill (body);
    g.fillEllipse (r);

    juce::ColourGradient gloss (juce::Colours::white.withAlpha (lit ? 0.85f : 0.35f), c.x - r.getWidth() * 0.18f, c.y - r.getHeight() * 0.22f,
                               juce::Colours::transparentWhite, c.x - r.getWidth() * 0.18f + r.getWidth() * 0.3f, c.y - r.getHeight() * 0.22f, true);
    g.setGradientFill (gloss);
    g.fillEllipse (r.reduced (r.getWidth() * 0.12f).translated (-r.getWidth() * 0.08f, -r.getHeight() * 0.1f));
}

void buttonFace (juce::Graphics& g, juce::Rectangle<float> r, float corner, juce::Colour top, juce::Colour bottom, bool down)
{
    juce::Path face;
    face.addRoundedRectangle (r, corner);

    g.setColour (juce::Colours::black.withAlpha (0.8f));
    g.fillRoundedRectangle (r.expanded (0.5f), corner + 0.5f);

    juce::ColourGradient fill (down ? bottom.darker (0.25f) : top, r.getX(), r.getY(),
                               down ? top.darker (0.35f) : bottom, r.getX(), r.getBottom(), false);
    g.setGradientFill (fill);
    g.fillPath (face);

    if (! down)
    {
        g.setColour (juce::Colours::white.withAlpha (0.28f));
        g.drawLine (r.getX() + corner, r.getY() + 0.75f, r.getRight() - corner, r.getY() + 0.75f, 1.0f);
        g.setColour (juce::Colours::black.withAlpha (0.3f));
        g.drawLine (r.getX() + corner, r.getBottom() - 0.75f, r.getRight() - corner, r.getBottom() - 0.75f, 1.0f);
    }
    else
    {
        g.setColour (juce::Colours::black.withAlpha (0.35f));
        g.drawLine (r.getX() + corner, r.getY() + 0.75f, r.getRight() - corner, r.getY() + 0.75f, 1.0f);
    }
}
} // namespace ArtKit
