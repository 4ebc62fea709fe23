// The tool-bar strip, the wooden end cheeks, and the backgrounds of the advanced and bank pages.

#include "ArtKit.h"
#include "Painters.h"

#include <cmath>
#include <vector>

namespace
{
using namespace ArtKit;

// Smooth 1-D noise in -1..1: random values every `period` samples, eased between.
std::vector<float> smoothNoise (juce::Random& rng, int length, int period)
{
    std::vector<float> knots ((size_t) (length / period + 2));
    for (auto& k : knots)
        k = rng.nextFloat() * 2.0f - 1.0f;

    std::vector<float> out ((size_t) length);
    for (int i = 0; i < length; ++i)
    {
        const int k = i / period;
        const float t = (float) (i % period) / (float) period;
        const float e = t * t * (3.0f - 2.0f * t);
        out[(size_t) i] = knots[(size_t) k] + (knots[(size_t) k + 1] - knots[(size_t) k]) * e;
    }
    return out;
}

juce::Image wood (int seed, bool left)
{
    const int w = 25, h = 887;
    auto image = makeImage (w, h, false);
    juce::Random rng (seed);
    const auto warpA = smoothNoise (rng, h, 140);
    const auto warpB = smoothNoise (rng, h, 37);
    const auto tone = smoothNoise (rng, h, 260);
    std::vector<float> fibre ((size_t) w);
    for (auto& f : fibre)
        f = rng.nextFloat();

    const juce::Colour dark (0xff2e1a0f), light (0xff7a4a28);
    {
        juce::Image::BitmapData data (image, juce::Image::BitmapData::writeOnly);
        for (int y = 0; y < h; ++y)
        {
            for (int x = 0; x < w; ++x)
            {
                // Grain runs along the cheek; rings wander slowly sideways.
                const float u = (float) x + 5.0f * warpA[(size_t) y] + 1.5f * warpB[(size_t) y];
                const float ring = 0.5f + 0.5f * std::sin (u * 0.85f + 2.0f * std::sin (u * 0.17f));
                const float grain = std::pow (ring, 3.0f) * 0.55f + 0.25f * fibre[(size_t) x] + 0.12f * tone[(size_t) y];
                data.setPixelColour (x, y, dark.interpolatedWith (light, juce::jlimit (0.0f, 1.0f, 0.25f + grain * 0.7f)));
            }
        }
    }

    juce::Graphics g (image);
    // Finish: a sheen that follows the light, rounded edges.
    juce::ColourGradient sheen (juce::Colours::white.withAlpha (0.12f), 0.0f, 0.0f, juce::Colours::black.withAlpha (0.25f), 0.0f, (float) h, false);
    g.setGradientFill (sheen);
    g.fillAll();
    juce::ColourGradient edge (juce::Colours::white.withAlpha (left ? 0.22f : 0.12f), 0.0f, 0.0f,
                               juce::Colours::black.withAlpha (left ? 0.35f : 0.5f), (float) w, 0.0f, false);
    edge.addColour (0.15, juce::Colours::transparentWhite);
    edge.addColour (0.8, juce::Colours::transparentBlack);
    g.setGradientFill (edge);
    g.fillAll();
    g.setColour (juce::Colours::black.withAlpha (0.6f));
    g.fillRect (left ? w - 1 : 0, 0, 1, h);
    g.setColour (juce::Colours::white.withAlpha (0.18f));
    g.fillRect (0, 0, w, 1);
    return image;
}

void darkPlate (juce::Image& image, juce::Colour top, juce::Colour bottom, int seed)
{
    {
        juce::Graphics g (image);
        juce::ColourGradient base (top, 0.0f, 0.0f, bottom, 0.0f, (float) image.getHeight(), false);
        g.setGradientFill (base);
        g.fillAll();
    }
    brush (image, image.getBounds(), 4.0f, seed);
    juce::Graphics g (image);
    vignette (g, image.getBounds().toFloat(), 0.3f);
}

void screenBezel (juce::Graphics& g, juce::Rectangle<float> screen)
{
    const auto outer = screen.expanded (3.0f);
    juce::Path p;
    p.addRoundedRectangle (outer, 4.0f);
    shadow (g, p, 3.0f, 0.6f, { 1, 2 });
    juce::ColourGradient rim (juce::Colour (0xff45484d), outer.getX(), outer.getY(), juce::Colour (0xff141517), outer.getX(), outer.getBottom(), false);
    g.setGradientFill (rim);
    g.fillPath (p);
    bevel (g, outer, 4.0f, 1.0f, 0.4f);
    g.setColour (juce::Colour (0xff050506));
    g.fillRect (screen.expanded (1.0f));
    sunken (g, screen.expanded (1.0f), 1.0f, 1.5f);
}
} // namespace

juce::Image paintTopBar (ArtBook&)
{
    auto image = makeImage (1539, 23, false);
    {
        juce::Graphics g (image);
        juce::ColourGradient base (juce::Colour (0xff2a2c31), 0.0f, 0.0f, juce::Colour (0xff131416), 0.0f, 23.0f, false);
        g.setGradientFill (base);
        g.fillAll();
    }
    brush (image, image.getBounds(), 4.0f, 23);
    juce::Graphics g (image);
    g.setColour (juce::Colours::white.withAlpha (0.16f));
    g.fillRect (0, 0, 1539, 1);
    g.setColour (juce::Colours::white.withAlpha (0.05f));
    g.fillRect (0, 1, 1539, 1);
    g.setColour (juce::Colours::black.withAlpha (0.7f));
    g.fillRect (0, 22, 1539, 1);
    g.setColour (juce::Colours::black.withAlpha (0.3f));
    g.fillRect (0, 21, 1539, 1);
    return image;
}

juce::Image paintWoodPanelLeft (ArtBook&) { return wood (7, true); }
juce::Image paintWoodPanelRight (ArtBook&) { return wood (11, false); }

juce::Image paintAdvancedPicEmp (ArtBook&)
{
    auto image = makeImage (1000, 444, false);
    darkPlate (image, juce::Colour (0xff202226), juce::Colour (0xff16171a), 1000);
    juce::Graphics g (image);

    // A slightly lighter heading band across the top, and the envelope screens in their bezels.
    juce::ColourGradient band (juce::Colours::white.withAlpha (0.045f), 0.0f, 6.0f, juce::Colours::transparentWhite, 0.0f, 36.0f, false);
    g.setGradientFill (band);
    g.fillRect (0, 6, 1000, 30);
    screenBezel (g, { 42.0f, 59.0f, 288.0f, 107.0f });
    screenBezel (g, { 358.0f, 59.0f, 288.0f, 107.0f });

    g.setColour (juce::Colours::white.withAlpha (0.12f));
    g.fillRect (0, 0, 1000, 1);
    g.setColour (juce::Colours::black.withAlpha (0.5f));
    g.fillRect (0, 443, 1000, 1);
    return image;
}

// The edge of a 500 by 444 window beside the panel: a lit top, a dark foot and right side.
static void windowEdge (juce::Graphics& g)
{
    g.setColour (juce::Colours::white.withAlpha (0.1f));
    g.fillRect (0, 0, 500, 1);
    g.setColour (juce::Colours::black.withAlpha (0.6f));
    g.fillRect (0, 443, 500, 1);
    g.fillRect (499, 0, 1, 444);
}

juce::Image paintBankSkin (ArtBook&)
{
    auto image = makeImage (500, 444, false);
    darkPlate (image, juce::Colour (0xff1f2125), juce::Colour (0xff141517), 500);
    juce::Graphics g (image);

    // The program list sits in a recessed well; the bank buttons on a faint strip beside it.
    const juce::Rectangle<float> list (168.0f, 68.0f, 274.0f, 328.0f);
    g.setColour (juce::Colour (0xff0b0c0e));
    g.fillRoundedRectangle (list, 3.0f);
    sunken (g, list, 3.0f, 2.0f);

    const juce::Rectangle<float> strip (79.0f, 68.0f, 82.0f, 298.0f);
    g.setColour (juce::Colours::black.withAlpha (0.18f));
    g.fillRoundedRectangle (strip, 4.0f);
    sunken (g, strip, 4.0f, 1.0f);

    windowEdge (g);
    return image;
}

juce::Image paintLibSkin (ArtBook&)
{
    auto image = makeImage (500, 444, false);
    darkPlate (image, juce::Colour (0xff1d2226), juce::Colour (0xff131618), 501);
    juce::Graphics g (image);

    print (g, "PROGRAM LIBRARY", { 14.0f, 18.0f, 134.0f, 24.0f }, 11.0f, juce::Justification::centredLeft, true,
           juce::Colour (0xff8fd8d8), 0.12f);

    // Recessed wells: the program list, the search field, the list of files, the status strip.
    for (auto well : { juce::Rectangle<float> (168.0f, 68.0f, 274.0f, 328.0f), juce::Rectangle<float> (10.0f, 67.0f, 152.0f, 27.0f),
                       juce::Rectangle<float> (10.0f, 132.0f, 152.0f, 264.0f), juce::Rectangle<float> (10.0f, 402.0f, 432.0f, 36.0f) })
    {
        g.setColour (juce::Colour (0xff0a0c0d));
        g.fillRoundedRectangle (well, 3.0f);
        sunken (g, well, 3.0f, 2.0f);
    }
    // A fine cyan rule under the title ties the window to its grid's colours.
    g.setColour (juce::Colour (0x5500bbbb));
    g.fillRect (14, 44, 134, 1);

    windowEdge (g);
    return image;
}
