// The keyboard strip: its frame with the wheel wells, the keys, the shadows beside the black
// keys, the wheel filmstrip, the halo behind the wheels and the shadow over the keys.

#include "ArtBook.h"
#include "ArtKit.h"
#include "Painters.h"

#include <cmath>

namespace
{
using namespace ArtKit;

const juce::Colour ivory (0xfff4f1e8);

juce::Image whiteKey (bool down)
{
    auto image = makeImage (40, 240, true);
    juce::Graphics g (image);
    const juce::Rectangle<float> key (0.0f, 0.0f, 39.0f, 240.0f);

    // A pressed key tips down at the front: its face darkens and the front edge shrinks.
    const float front = down ? 5.0f : 9.0f;
    juce::ColourGradient face (down ? ivory.darker (0.22f) : ivory.darker (0.08f), 0.0f, 0.0f,
                               down ? ivory.darker (0.12f) : ivory, 0.0f, 240.0f - front, false);
    face.addColour (0.12, down ? ivory.darker (0.16f) : ivory.darker (0.02f));
    g.setGradientFill (face);
    g.fillRoundedRectangle (key.withTrimmedBottom (front - 3.0f), 2.5f);

    juce::ColourGradient lip (ivory.darker (0.35f), 0.0f, 240.0f - front, ivory.darker (0.75f), 0.0f, 240.0f, false);
    g.setGradientFill (lip);
    g.fillRoundedRectangle (key.withTop (240.0f - front), 2.5f);
    g.setColour (juce::Colours::white.withAlpha (down ? 0.2f : 0.6f));
    g.fillRect (1.0f, 240.0f - front, 37.0f, 1.0f);

    // Sides: light on the left, shade on the right, and the gap to the next key.
    g.setColour (juce::Colours::white.withAlpha (0.7f));
    g.fillRect (0.0f, 0.0f, 1.0f, 240.0f - front);
    juce::ColourGradient side (juce::Colours::transparentBlack, 33.0f, 0.0f, juce::Colours::black.withAlpha (0.16f), 39.0f, 0.0f, false);
    g.setGradientFill (side);
    g.fillRect (33.0f, 0.0f, 6.0f, 240.0f);
    g.setColour (juce::Colour (0xff16161a));
    g.fillRect (39.0f, 0.0f, 1.0f, 240.0f);
    return image;
}

juce::Image blackKey (bool down)
{
    auto image = makeImage (26, 156, true);
    juce::Graphics g (image);
    const juce::Rectangle<float> key (0.0f, 0.0f, 26.0f, 156.0f);
    g.setColour (juce::Colour (0xff060607));
    g.fillRoundedRectangle (key, 2.0f);

    // Top face, narrower than the body, with a sloped front bevel.
    const float front = down ? 7.0f : 13.0f;
    const auto top = juce::Rectangle<float> (3.0f, 0.0f, 20.0f, 156.0f - front - 2.0f);
    juce::ColourGradient face (juce::Colour (down ? 0xff141416 : 0xff1e1f22), top.getX(), 0.0f,
                               juce::Colour (down ? 0xff0a0a0b : 0xff101012), top.getRight(), 0.0f, false);
    g.setGradientFill (face);
    g.fillRoundedRectangle (top, 1.5f);
    juce::ColourGradient gloss (juce::Colours::white.withAlpha (down ? 0.03f : 0.07f), 0.0f, top.getBottom() - 50.0f,
                                juce::Colours::transparentWhite, 0.0f, top.getBottom(), false);
    g.setGradientFill (gloss);
    g.fillRect (top.withTop (top.getBottom() - 50.0f).reduced (1.0f, 0.0f));

    juce::Path bevelPath;
    bevelPath.startNewSubPath (top.getX(), top.getBottom());
    bevelPath.lineTo (top.getRight(), top.getBottom());
    bevelPath.lineTo (25.0f, 155.0f);
    bevelPath.lineTo (1.0f, 155.0f);
    bevelPath.closeSubPath();
    juce::ColourGradient frontFill (juce::Colour (down ? 0xff2a2b2e : 0xff3c3d42), 0.0f, top.getBottom(), juce::Colour (0xff141416), 0.0f, 156.0f, false);
    g.setGradientFill (frontFill);
    g.fillPath (bevelPath);

    g.setColour (juce::Colours::white.withAlpha (0.16f));
    g.fillRect (top.getX() + 1.0f, 2.0f, 0.8f, top.getHeight() - 6.0f);
    return image;
}

juce::Image keyShadow (bool left)
{
    auto image = makeImage (8, 246, true);
    // The light comes from the left: the shadow on the right of a black key is the deeper one.
    // It is darkest against the key and fades out across the white key and towards the front.
    const float strength = left ? 0.2f : 0.42f;
    juce::Image::BitmapData data (image, juce::Image::BitmapData::writeOnly);
    for (int y = 0; y < 246; ++y)
    {
        const float along = juce::jlimit (0.0f, 1.0f, (246.0f - (float) y) / 76.0f);
        for (int x = 0; x < 8; ++x)
        {
            const float across = left ? ((float) x + 0.5f) / 8.0f : 1.0f - ((float) x + 0.5f) / 8.0f;
            data.setPixelColour (x, y, juce::Colours::black.withAlpha (strength * across * across * along));
        }
    }
    return image;
}

void well (juce::Graphics& g, juce::Rectangle<float> r)
{
    g.setColour (juce::Colour (0xff050506));
    g.fillRoundedRectangle (r, 4.0f);
    sunken (g, r, 4.0f, 2.5f);
}
} // namespace

juce::Image paintKeyWhiteUp (ArtBook&) { return whiteKey (false); }
juce::Image paintKeyWhiteDn (ArtBook&) { return whiteKey (true); }
juce::Image paintKeyBlackUp (ArtBook&) { return blackKey (false); }
juce::Image paintKeyBlackDn (ArtBook&) { return blackKey (true); }
juce::Image paintShadowLeftUp (ArtBook&) { return keyShadow (true); }
juce::Image paintShadowRightUp (ArtBook&) { return keyShadow (false); }

juce::Image paintPianoFrame (ArtBook& book)
{
    auto image = makeImage (1506, 272, false);
    {
        juce::Graphics g (image);
        juce::ColourGradient base (juce::Colour (0xff2a2c30), 0.0f, 0.0f, juce::Colour (0xff1a1b1e), 0.0f, 272.0f, false);
        g.setGradientFill (base);
        g.fillAll();
    }
    brush (image, image.getBounds(), 4.0f, 272);
    juce::Graphics g (image);

    // The key bed, with a felt strip under the rail and the rail's shadow on it.
    const juce::Rectangle<float> bed (246.0f, 26.0f, 1048.0f, 246.0f);
    g.setColour (juce::Colour (0xff050506));
    g.fillRect (bed);
    g.setColour (juce::Colour (0xff6b1a17));
    g.fillRect (bed.getX(), 28.0f, bed.getWidth(), 4.0f);
    g.setColour (juce::Colours::black.withAlpha (0.4f));
    g.fillRect (bed.getX(), 31.0f, bed.getWidth(), 1.0f);

    // Rail above the keys.
    juce::ColourGradient rail (juce::Colour (0xff45484d), 0.0f, 14.0f, juce::Colour (0xff1c1d20), 0.0f, 28.0f, false);
    g.setGradientFill (rail);
    g.fillRect (bed.getX() - 6.0f, 14.0f, bed.getWidth() + 12.0f, 14.0f);
    g.setColour (juce::Colours::white.withAlpha (0.25f));
    g.fillRect (bed.getX() - 6.0f, 14.0f, bed.getWidth() + 12.0f, 1.0f);

    // Wells for the wheels and a plate behind the two switches.
    well (g, { 76.0f, 114.0f, 43.0f, 124.0f });
    well (g, { 134.0f, 114.0f, 43.0f, 124.0f });
    g.setColour (juce::Colours::black.withAlpha (0.2f));
    g.fillRoundedRectangle (90.0f, 39.0f, 82.0f, 82.0f, 4.0f);
    sunken (g, { 90.0f, 39.0f, 82.0f, 82.0f }, 4.0f, 1.0f);

    // The velocity box's corner.
    g.setColour (juce::Colours::black.withAlpha (0.2f));
    g.fillRoundedRectangle (1322.0f, 32.0f, 136.0f, 28.0f, 4.0f);
    sunken (g, { 1322.0f, 32.0f, 136.0f, 28.0f }, 4.0f, 1.0f);

    g.setColour (juce::Colours::white.withAlpha (0.14f));
    g.fillRect (0, 0, 1506, 1);
    g.setColour (juce::Colours::black.withAlpha (0.6f));
    g.fillRect (0, 271, 1506, 1);

    // The same wooden cheeks as the panel's, continued down the sides of the keyboard.
    g.drawImage (book.get ("woodPanelLeft"), 0, 0, 12, 272, 0, 0, 25, 544);
    g.drawImage (book.get ("woodPanelRight"), 1494, 0, 12, 272, 0, 300, 25, 544);
    return image;
}

juce::Image paintUOct127 (ArtBook&)
{
    auto image = makeImage (269, 18, true);
    juce::Graphics g (image);
    g.setColour (juce::Colour (0xff0b0b0c));
    g.fillRoundedRectangle (0.0f, 0.0f, 269.0f, 18.0f, 2.0f);
    // A miniature keyboard, 25 pixels an octave.
    const float whiteW = 25.0f / 7.0f;
    for (int i = 0; i * whiteW < 269.0f; ++i)
    {
        g.setColour (ivory.darker (0.05f));
        g.fillRect ((float) i * whiteW + 0.3f, 1.0f, whiteW - 0.6f, 16.0f);
    }
    const float blackOffsets[] = { 0.65f, 1.75f, 3.6f, 4.7f, 5.75f };
    for (int octave = 0; octave < 11; ++octave)
        for (float b : blackOffsets)
        {
            const float x = (float) octave * 25.0f + b * whiteW;
            if (x + 2.2f < 269.0f)
            {
                g.setColour (juce::Colour (0xff111113));
                g.fillRect (x, 1.0f, 2.2f, 10.0f);
            }
        }
    return image;
}

juce::Image paintModWheelFilmstrip (ArtBook&)
{
    const float cy = 56.0f, radius = 56.0f;
    return filmstrip (1084, 112, 35, 31, 31, [=] (juce::Graphics& g, int f)
    {

        // The wheel is a drum seen from the front: its face is shaded as it curves away.
        const juce::Rectangle<float> face (4.0f, 1.0f, 23.0f, 110.0f);
        juce::ColourGradient drum (juce::Colour (0xff050506), 0.0f, face.getY(), juce::Colour (0xff050506), 0.0f, face.getBottom(), false);
        drum.addColour (0.3, juce::Colour (0xff2a2b2f));
        drum.addColour (0.45, juce::Colour (0xff393a3f));
        drum.addColour (0.7, juce::Colour (0xff1d1e21));
        g.setGradientFill (drum);
        g.fillRoundedRectangle (face, 3.0f);

        // Ribs turn with the wheel: the full travel turns it by 80 degrees.
        const float turn = juce::degreesToRadians (80.0f) * ((float) f / 34.0f - 0.5f);
        for (int k = -20; k <= 20; ++k)
        {
            const float a = (float) k * juce::degreesToRadians (8.0f) - turn;
            if (std::abs (a) > juce::degreesToRadians (78.0f))
                continue;
            const float y = cy + radius * std::sin (a) * 0.98f;
            const float lit = std::cos (a);
            g.setColour (juce::Colours::black.withAlpha (0.55f * lit));
            g.fillRect (face.getX() + 1.0f, y, face.getWidth() - 2.0f, 1.2f * lit + 0.3f);
            g.setColour (juce::Colours::white.withAlpha (0.12f * lit * (a < 0.0f ? 1.0f : 0.5f)));
            g.fillRect (face.getX() + 1.0f, y - 0.8f, face.getWidth() - 2.0f, 0.7f);
        }

        // The marker line: it rises as the wheel is pushed up.
        const float ym = cy - radius * std::sin (turn) * 0.98f;
        g.setColour (juce::Colour (0xfff3f1ea).withAlpha (0.9f * std::cos (turn)));
        g.fillRect (face.getX() + 1.5f, ym - 1.2f, face.getWidth() - 3.0f, 2.4f);

        // Rounded sides of the wheel.
        juce::ColourGradient sides (juce::Colours::black.withAlpha (0.6f), face.getX(), 0.0f, juce::Colours::black.withAlpha (0.7f), face.getRight(), 0.0f, false);
        sides.addColour (0.2, juce::Colours::transparentBlack);
        sides.addColour (0.75, juce::Colours::transparentBlack);
        g.setGradientFill (sides);
        g.fillRoundedRectangle (face, 3.0f);
    });
}

juce::Image paintGlowOnly (ArtBook&)
{
    auto image = makeImage (168, 291, true);
    juce::Graphics g (image);
    const juce::Point<float> c (84.0f, 145.5f);
    juce::ColourGradient halo (juce::Colour (0xffffe2b0).withAlpha (0.55f), c.x, c.y, juce::Colour (0xffffc070).withAlpha (0.0f), c.x + 84.0f, c.y, true);
    halo.addColour (0.4, juce::Colour (0xffffd08a).withAlpha (0.22f));
    g.setGradientFill (halo);
    g.addTransform (juce::AffineTransform::scale (1.0f, 291.0f / 168.0f, c.x, c.y));
    g.fillEllipse (0.0f, c.y - 84.0f, 168.0f, 168.0f);
    return image;
}

juce::Image paintScreenShadow (ArtBook&)
{
    auto image = makeImage (1440, 78, true);
    juce::Graphics g (image);
    juce::ColourGradient fall (juce::Colours::black.withAlpha (0.85f), 0.0f, 0.0f, juce::Colours::transparentBlack, 0.0f, 78.0f, false);
    fall.addColour (0.2, juce::Colours::black.withAlpha (0.45f));
    fall.addColour (0.5, juce::Colours::black.withAlpha (0.12f));
    g.setGradientFill (fall);
    g.fillRect (0, 0, 1440, 78);
    return image;
}
