// The screens: the envelope display's background and its glass, and the program display.

#include "ArtKit.h"
#include "Painters.h"

namespace
{
using namespace ArtKit;
}

juce::Image paintEnvBk (ArtBook&)
{
    auto image = makeImage (288, 107, false);
    juce::Graphics g (image);
    // A dark, faintly warm tube face: brightest in the middle, falling off to the corners.
    juce::ColourGradient face (juce::Colour (0xff1d140c), 144.0f, 55.0f, juce::Colour (0xff070504), 0.0f, 0.0f, true);
    g.setGradientFill (face);
    g.fillAll();
    g.setColour (juce::Colours::black.withAlpha (0.18f));
    for (int y = 0; y < 107; y += 2)
        g.fillRect (0, y, 288, 1);
    sunken (g, { 0.0f, 0.0f, 288.0f, 107.0f }, 2.0f, 2.5f);
    return image;
}

juce::Image paintEnvGlass (ArtBook&)
{
    // Drawn over the screen at a fifth of its strength: a bright sheen over the upper part and
    // a faint band along the lower edge.
    auto image = makeImage (210, 66, true);
    juce::Graphics g (image);
    juce::Path sheen;
    sheen.startNewSubPath (0.0f, 0.0f);
    sheen.lineTo (210.0f, 0.0f);
    sheen.lineTo (210.0f, 14.0f);
    sheen.cubicTo (150.0f, 22.0f, 70.0f, 34.0f, 0.0f, 40.0f);
    sheen.closeSubPath();
    juce::ColourGradient light (juce::Colours::white.withAlpha (0.95f), 0.0f, 0.0f, juce::Colours::white.withAlpha (0.1f), 90.0f, 40.0f, false);
    g.setGradientFill (light);
    g.fillPath (sheen);
    juce::ColourGradient low (juce::Colours::transparentWhite, 0.0f, 56.0f, juce::Colours::white.withAlpha (0.45f), 0.0f, 66.0f, false);
    g.setGradientFill (low);
    g.fillRect (0, 56, 210, 10);
    return image;
}

juce::Image paintLcdPic (ArtBook&)
{
    auto image = makeImage (123, 68, false);
    juce::Graphics g (image);

    // Dark bands at top and bottom carry the white position and category texts; the amber
    // backlit field between them carries the name in black.
    juce::ColourGradient band (juce::Colour (0xff2a2118), 0.0f, 0.0f, juce::Colour (0xff120e0a), 0.0f, 68.0f, false);
    g.setGradientFill (band);
    g.fillAll();

    const juce::Rectangle<float> field (3.0f, 19.0f, 117.0f, 30.0f);
    juce::ColourGradient lit (juce::Colour (0xfff7c868), field.getCentreX(), field.getCentreY(),
                              juce::Colour (0xffd69432), field.getX(), field.getY(), true);
    g.setGradientFill (lit);
    g.fillRoundedRectangle (field, 2.0f);
    sunken (g, field, 2.0f, 1.0f);

    // Faint cell lines of the glass, and a reflection across the top.
    g.setColour (juce::Colours::black.withAlpha (0.035f));
    for (float x = field.getX() + 2.0f; x < field.getRight(); x += 2.0f)
        g.fillRect (x, field.getY(), 0.5f, field.getHeight());
    juce::ColourGradient glass (juce::Colours::white.withAlpha (0.16f), 0.0f, 0.0f, juce::Colours::transparentWhite, 0.0f, 30.0f, false);
    g.setGradientFill (glass);
    g.fillRect (0, 0, 123, 30);
    g.setColour (juce::Colours::black.withAlpha (0.6f));
    g.drawRect (0, 0, 123, 68, 1);
    return image;
}
