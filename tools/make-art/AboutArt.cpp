// The about box: a picture of the whole instrument built from the other images, the title, and
// the maker's logo.

#include "ArtBook.h"
#include "ArtKit.h"
#include "KnobGeometry.h"
#include "Painters.h"
#include "PanelLayout.h"

#include <cmath>

namespace
{
using namespace ArtKit;

const juce::Colour accent (0xff64ccea);

void frameAt (juce::Graphics& g, const juce::Image& strip, int sourceX, int sourceW, int sourceH, juce::Rectangle<float> dest)
{
    g.drawImage (strip, juce::roundToInt (dest.getX()), juce::roundToInt (dest.getY()), juce::roundToInt (dest.getWidth()),
                 juce::roundToInt (dest.getHeight()), sourceX, 0, sourceW, sourceH);
}

// The panel as the editor shows it, with every control at a setting of its own.
void panel (juce::Graphics& g, ArtBook& book)
{
    g.drawImage (book.get ("corvaneSkin"), 0, 0, 1505, 444, 0, 0, 3010, 888);
    int n = 0;
    for (const auto& c : PanelLayout::controls())
    {
        const auto b = c.bounds.toFloat();
        ++n;
        if (c.kind == 3 || c.kind == 5)
        {
            const float size = c.kind == 3 ? 66.0f : 44.0f;
            frameAt (g, book.get ("knobsBig"), 57 * ((n * 23) % KnobGeometry::knobFrames), 56, 56, b.withSize (size, size));
        }
        else if (c.kind == 9)
        {
            const int first = c.maximum == 3 ? 1 : 0;
            frameAt (g, book.get ("rotary"), 62 * (first + n % (c.maximum + 1)), 60, 60, b.withSize (60.0f, 60.0f));
        }
        else if (c.kind == 112)
            frameAt (g, book.get ("swRedVer"), 50 * (n % 2), 50, 100, b.withSize (25.0f, 50.0f));
        else
        {
            const auto& strip = book.get (c.kind == 113 ? "swBlueHor" : "swRedHor");
            const float x = c.kind == 113 ? b.getX() : b.getCentreX() - 25.0f;
            frameAt (g, strip, 100 * (n % 2), 100, 50, { x, b.getY(), 50.0f, 25.0f });
        }
    }
    g.drawImage (book.get ("lcd_pic"), 703, 62, 123, 68, 0, 0, 123, 68);
    g.drawImage (book.get ("woodPanelLeft"), 0, 0, 12, 444, 0, 0, 25, 887);
    g.drawImage (book.get ("woodPanelRight"), 1493, 0, 12, 444, 0, 0, 25, 887);
}

// The keyboard strip under the panel: frame, keys, wheels and switches.
void keyboard (juce::Graphics& g, ArtBook& book)
{
    g.drawImage (book.get ("pianoFrame"), 0, 0, 1505, 272, 0, 0, 1505, 272);

    // Key layout of one octave: offset and whether the key is black.
    const struct { int x; bool black; } octave[] = { { 0, false }, { 26, true }, { 40, false }, { 71, true }, { 80, false }, { 120, false },
                                                     { 145, true }, { 160, false }, { 188, true }, { 200, false }, { 230, true }, { 240, false } };
    for (int pass = 0; pass < 2; ++pass)
        for (int o = 0; o < 4; ++o)
            for (const auto& k : octave)
            {
                const int x = 250 + 160 + 280 * o + k.x - 280;
                if (k.black != (pass == 1) || x < 250 || x > 1250)
                    continue;
                if (k.black)
                    g.drawImage (book.get ("keyBlackUp"), x, 32, 26, 156, 0, 0, 26, 156);
                else
                    g.drawImage (book.get ("keyWhiteUp"), x, 32, 40, 240, 0, 0, 40, 240);
            }
    g.setOpacity (0.78f);
    g.drawImage (book.get ("Screenshadow"), 32, 32, 1440, 78, 0, 0, 1440, 78);
    g.setOpacity (1.0f);

    const auto& wheel = book.get ("modWheelfilmstrip");
    g.drawImage (wheel, 82, 120, 31, 112, 31 * 17, 0, 31, 112);
    g.drawImage (wheel, 140, 120, 31, 112, 31 * 6, 0, 31, 112);
    const auto& lever = book.get ("swWhiteHor");
    g.drawImage (lever, 106, 44, 50, 25, 100, 0, 100, 50);
    g.drawImage (lever, 106, 82, 50, 25, 0, 0, 100, 50);
}

juce::Image halve (const juce::Image& source)
{
    auto out = makeImage (source.getWidth() / 2, source.getHeight() / 2, true);
    juce::Graphics g (out);
    g.setImageResamplingQuality (juce::Graphics::highResamplingQuality);
    g.drawImage (source, 0, 0, out.getWidth(), out.getHeight(), 0, 0, out.getWidth() * 2, out.getHeight() * 2);
    return out;
}

juce::Path textPath (const juce::String& text, float height, bool bold, float kerning, juce::Rectangle<float> box)
{
    juce::GlyphArrangement glyphs;
    glyphs.addFittedText (font (height, bold, kerning), text, box.getX(), box.getY(), box.getWidth(), box.getHeight(),
                          juce::Justification::centred, 1);
    juce::Path p;
    glyphs.createPath (p);
    return p;
}

void emblem (juce::Graphics& g, juce::Point<float> c, float r)
{
    juce::Path ring;
    ring.addEllipse (c.x - r, c.y - r, r * 2.0f, r * 2.0f);
    shadow (g, ring, r * 0.2f, 0.6f, { 1, 2 });
    g.setColour (juce::Colour (0xff141518));
    g.fillPath (ring);
    juce::ColourGradient metal (juce::Colour (0xfff0f0ee), c.x - r, c.y - r, juce::Colour (0xff8a8d93), c.x + r, c.y + r, false);
    g.setGradientFill (metal);
    g.strokePath (ring, juce::PathStrokeType (r * 0.1f));

    juce::Path wave;
    for (int i = 0; i <= 64; ++i)
    {
        const float t = (float) i / 64.0f;
        const juce::Point<float> p (c.x - r * 0.62f + t * r * 1.24f, c.y - r * 0.42f * std::sin (t * juce::MathConstants<float>::twoPi));
        if (i == 0)
            wave.startNewSubPath (p);
        else
            wave.lineTo (p);
    }
    g.setColour (valueOrange.withAlpha (0.35f));
    g.strokePath (wave, juce::PathStrokeType (r * 0.22f, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));
    g.setColour (valueOrange.brighter (0.15f));
    g.strokePath (wave, juce::PathStrokeType (r * 0.1f, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));
}
} // namespace

juce::Image paintTolkSpl (ArtBook& book)
{
    // Drawn at design size, then brought down in halving steps so the fine print stays smooth.
    auto full = makeImage (1505, 716, true);
    {
        juce::Graphics g (full);
        g.setImageResamplingQuality (juce::Graphics::highResamplingQuality);
        panel (g, book);
        g.setOrigin (0, 444);
        keyboard (g, book);
    }
    const auto half = halve (full);

    auto image = makeImage (627, 241, true);
    juce::Graphics g (image);
    const float w = 475.0f, h = 226.0f;
    const juce::Rectangle<float> dest ((627.0f - w) * 0.5f, 3.0f, w, h);

    // Shadow on the surface it stands on.
    juce::Path base;
    base.addRoundedRectangle (dest.withTrimmedTop (h - 10.0f).expanded (12.0f, 0.0f), 6.0f);
    shadow (g, base, 8.0f, 0.8f, { 0, 5 });

    g.setImageResamplingQuality (juce::Graphics::highResamplingQuality);
    g.drawImage (half, dest.getX(), dest.getY(), dest.getWidth(), dest.getHeight(), 0, 0, half.getWidth(), half.getHeight());
    g.setColour (juce::Colours::black.withAlpha (0.7f));
    g.drawRect (dest, 1.0f);
    return image;
}

juce::Image paintAboutTitle (ArtBook&)
{
    auto image = makeImage (632, 131, true);
    juce::Graphics g (image);

    const auto name = textPath ("CORVANE", 72.0f, true, 0.22f, { 0.0f, 2.0f, 632.0f, 84.0f });
    shadow (g, name, 6.0f, 0.85f, { 2, 4 });
    const auto b = name.getBounds();
    juce::ColourGradient silver (juce::Colour (0xffffffff), 0.0f, b.getY(), juce::Colour (0xff7d8188), 0.0f, b.getBottom(), false);
    silver.addColour (0.48, juce::Colour (0xffd9dce0));
    silver.addColour (0.52, juce::Colour (0xff9a9ea5));
    g.setGradientFill (silver);
    g.fillPath (name);
    g.setColour (juce::Colours::black.withAlpha (0.5f));
    g.strokePath (name, juce::PathStrokeType (1.0f));

    const auto desker = textPath ("DESKER", 26.0f, true, 0.9f, { 0.0f, 88.0f, 632.0f, 34.0f });
    const auto d = desker.getBounds();
    juce::ColourGradient glow (accent.withAlpha (0.35f), d.getCentreX(), d.getCentreY(), accent.withAlpha (0.0f), d.getRight() + 30.0f, d.getCentreY(), true);
    g.setGradientFill (glow);
    g.fillRect (d.expanded (30.0f, 8.0f));
    shadow (g, desker, 3.0f, 0.8f, { 1, 2 });
    g.setColour (accent);
    g.fillPath (desker);

    // Rules either side of the second line.
    for (int side = 0; side < 2; ++side)
    {
        const float x0 = side == 0 ? 60.0f : d.getRight() + 24.0f;
        const float x1 = side == 0 ? d.getX() - 24.0f : 572.0f;
        juce::ColourGradient rule (accent.withAlpha (side == 0 ? 0.0f : 0.8f), x0, 0.0f, accent.withAlpha (side == 0 ? 0.8f : 0.0f), x1, 0.0f, false);
        g.setGradientFill (rule);
        g.fillRect (x0, d.getCentreY() - 0.75f, x1 - x0, 1.5f);
    }
    return image;
}

juce::Image paintAboutLogo (ArtBook&)
{
    auto image = makeImage (272, 113, true);
    juce::Graphics g (image);
    emblem (g, { 52.0f, 55.0f }, 38.0f);

    const auto tolk = textPath ("TOLK", 50.0f, true, 0.08f, { 100.0f, 14.0f, 166.0f, 56.0f });
    shadow (g, tolk, 3.0f, 0.8f, { 1, 2 });
    const auto b = tolk.getBounds();
    juce::ColourGradient silver (juce::Colour (0xffffffff), 0.0f, b.getY(), juce::Colour (0xffa3a7ad), 0.0f, b.getBottom(), false);
    g.setGradientFill (silver);
    g.fillPath (tolk);

    const auto audio = textPath ("AUDIO", 19.0f, true, 0.75f, { 100.0f, 70.0f, 166.0f, 26.0f });
    shadow (g, audio, 2.0f, 0.8f, { 1, 1 });
    g.setColour (valueOrange);
    g.fillPath (audio);
    return image;
}
