#include "editor/PianoPad.h"

#include "editor/controls/IvrResor.h"

namespace
{
// Place of each semitone in an octave of 280 design pixels, and whether it is a black key.
constexpr int octaveOffsets[12] = { 0, 26, 40, 71, 80, 120, 145, 160, 188, 200, 230, 240 };
constexpr bool octaveBlack[12] = { false, true, false, true, false, false, true, false, true, false, true, false };

// A key state at or below this shows the key up; received velocities are raised above it.
constexpr int downThreshold = 4;
constexpr int lowestShownVelocity = 5;

void drawScaled (juce::Graphics& g, const juce::Image& image, int x, int y, int w, int h)
{
    g.drawImage (image, x, y, w, h, 0, 0, image.getWidth(), image.getHeight());
}
} // namespace

PianoPad::PianoPad()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    setMouseCursor (juce::MouseCursor::PointingHandCursor);
    setOpaque (true);

    for (int key = 0; key < numKeys; ++key)
    {
        const auto k = (size_t) key;
        const int semitone = key % 12;
        black[k] = octaveBlack[semitone];
        designX[k] = -120 + 280 * (key / 12) + octaveOffsets[semitone];
        designY[k] = 0;
        designW[k] = black[k] ? 26 : 40;
        designH[k] = black[k] ? 156 : 240;
    }
    keyX = designX;
    keyY = designY;
    keyW = designW;
    keyH = designH;

    keyWhiteUp = IvrResor::get ("keyWhiteUp");
    keyWhiteDn = IvrResor::get ("keyWhiteDn");
    keyBlackUp = IvrResor::get ("keyBlackUp");
    keyBlackDn = IvrResor::get ("keyBlackDn");
    shadowleftup = IvrResor::get ("shadowleftup");
    shadowrightup = IvrResor::get ("shadowrightup");
}

PianoPad::~PianoPad() = default;

void PianoPad::setDesignRect (float x, float y, float width, float height)
{
    designRect = { x, y, width, height };
}

void PianoPad::ScaleMe (float s)
{
    scale = s;
    whiteWidth = (int) (40.0f * s);
    whiteHeight = (int) (240.0f * s);
    blackWidth = (int) (26.0f * s);
    blackHeight = (int) (156.0f * s);

    for (size_t k = 0; k < (size_t) numKeys; ++k)
    {
        keyX[k] = (int) ((float) designX[k] * s);
        keyY[k] = (int) ((float) designY[k] * s);
        keyW[k] = (int) ((float) designW[k] * s);
        keyH[k] = (int) ((float) designH[k] * s);
    }

    setBounds ((int) (designRect.getX() * s), (int) (designRect.getY() * s),
               (int) (designRect.getWidth() * s), (int) (designRect.getHeight() * s));
}

int PianoPad::FindKey (int x, int y) const
{
    if (y < blackHeight)
    {
        // A white key owns its top only up to where the next black key begins.
        for (size_t k = 0; k <= (size_t) lastVisible + 1; ++k)
            if (x >= keyX[k] && x < keyX[k] + keyW[k] && (black[k] || keyX[k + 1] >= x))
                return (int) k;
        return -1;
    }

    // Below the black keys every point belongs to a white key.
    for (size_t k = 0; k <= (size_t) lastVisible + 1; ++k)
        if (x >= keyX[k] && x < keyX[k + 1])
            return black[k] ? (int) k - 1 : (int) k;
    return -1;
}

void PianoPad::NoteON (int key)
{
    if (! juce::isPositiveAndBelow (key, numStates) || isDown (key))
        return;

    keyState[(size_t) key] = 127;
    action = actionNoteOn;
    lastKey = key;
    lastVelocity = 127;
    // Delivered at once: a coalesced message would lose the keys of a fast glissando, and the
    // note of a click whose release comes in the same turn of the message loop.
    sendSynchronousChangeMessage();
    repaintKey (key);
}

void PianoPad::NoteON_Rec (int key, int velocity)
{
    if (! juce::isPositiveAndBelow (key, numStates) || isDown (key))
        return;

    keyState[(size_t) key] = juce::jlimit (lowestShownVelocity, 127, velocity);
    repaintKey (key);
}

void PianoPad::NoteOFF_Rec (int key)
{
    if (! juce::isPositiveAndBelow (key, numStates))
        return;

    keyState[(size_t) key] = 0;
    repaintKey (key);
}

bool PianoPad::anyDown() const
{
    for (int state : keyState)
        if (state != 0)
            return true;
    return false;
}

juce::Rectangle<int> PianoPad::keyBounds (int key) const
{
    if (! juce::isPositiveAndBelow (key, numKeys))
        return {};
    const auto k = (size_t) key;
    return { keyX[k], keyY[k], keyW[k], keyH[k] };
}

void PianoPad::repaintKey (int key)
{
    repaint (keyBounds (key));
}

void PianoPad::playAt (juce::Point<int> p)
{
    // Only what is in view plays: the keys laid out beyond the edges stay silent.
    if (! getLocalBounds().contains (p))
        return;

    const int key = FindKey (p.x, p.y);
    if (key >= 0)
        NoteON (key);
}

void PianoPad::mouseDown (const juce::MouseEvent& e)
{
    playAt (e.getPosition());
}

void PianoPad::mouseDrag (const juce::MouseEvent& e)
{
    playAt (e.getPosition());
}

void PianoPad::mouseUp (const juce::MouseEvent&)
{
    if (! anyDown())
        return;

    action = actionAllOff;
    sendSynchronousChangeMessage();
}

void PianoPad::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colours::black);

    for (int key = firstVisible; key <= lastVisible; ++key)
        if (! black[(size_t) key])
            paintKey (g, key);

    for (int key = 0; key <= lastVisible; ++key)
    {
        if (! black[(size_t) key])
            continue;

        paintKey (g, key);

        const auto k = (size_t) key;
        const int shadowWidth = (int) (8.0f * scale);
        if (shadowleftup.isValid() && shadowrightup.isValid())
        {
            drawScaled (g, shadowleftup, keyX[k] - shadowWidth, keyY[k], shadowWidth, blackHeight);
            drawScaled (g, shadowrightup, keyX[k] + blackWidth, keyY[k], shadowWidth, blackHeight);
        }
        else
        {
            // A soft shadow to the right of the black key, away from the light.
            const float top = (float) keyY[k];
            const float right = (float) (keyX[k] + blackWidth);
            const float width = 6.0f * scale;
            g.setGradientFill (juce::ColourGradient (juce::Colour (0x26000000), right, top,
                                                     juce::Colour (0x00000000), right + width, top, false));
            g.fillRect (right, top, width, (float) blackHeight);
        }
    }
}

void PianoPad::paintKey (juce::Graphics& g, int key) const
{
    const auto k = (size_t) key;
    const bool down = keyState[k] > downThreshold;
    const int x = keyX[k], y = keyY[k];
    const int w = black[k] ? blackWidth : whiteWidth;
    const int h = black[k] ? blackHeight : whiteHeight;

    if (const auto& image = black[k] ? (down ? keyBlackDn : keyBlackUp) : (down ? keyWhiteDn : keyWhiteUp); image.isValid())
        return drawScaled (g, image, x, y, w, h);

    // Drawn keys of the same geometry: a pressed key sinks, so its front lip shrinks and it darkens.
    const auto r = juce::Rectangle<int> (x, y, w, h).toFloat();
    const float s = scale;

    if (! black[k])
    {
        const auto face = r.reduced (0.5f * s, 0.0f);
        const float lip = (down ? 3.0f : 9.0f) * s;
        g.setGradientFill (juce::ColourGradient (down ? juce::Colour (0xffaea796) : juce::Colour (0xffe4e0d6), 0.0f, face.getY(),
                                                 down ? juce::Colour (0xffcbc4b4) : juce::Colour (0xfffcfaf5), 0.0f,
                                                 face.getBottom() - lip, false));
        g.fillRoundedRectangle (face, 3.0f * s);
        g.setColour (down ? juce::Colour (0xff9c9585) : juce::Colour (0xffd3cec2));
        g.fillRoundedRectangle (face.withTop (face.getBottom() - lip), 3.0f * s);
        if (down)
        {
            g.setGradientFill (juce::ColourGradient (juce::Colour (0x50000000), 0.0f, face.getY(),
                                                     juce::Colour (0x00000000), 0.0f, face.getY() + 30.0f * s, false));
            g.fillRect (face.withHeight (30.0f * s));
        }
        g.setColour (juce::Colour (0xff5a5650));
        g.fillRect (r.getRight() - juce::jmax (1.0f, 1.0f * s), r.getY(), juce::jmax (1.0f, 1.0f * s), r.getHeight());
        return;
    }

    g.setColour (juce::Colour (0xff060607));
    g.fillRoundedRectangle (r, 2.0f * s);
    const auto top = r.reduced (2.5f * s, 0.0f).withTrimmedBottom ((down ? 5.0f : 13.0f) * s);
    g.setGradientFill (juce::ColourGradient (down ? juce::Colour (0xff393b40) : juce::Colour (0xff222327), 0.0f, top.getY(),
                                             down ? juce::Colour (0xff4b4d53) : juce::Colour (0xff3a3c41), 0.0f, top.getBottom(), false));
    g.fillRoundedRectangle (top, 2.0f * s);
}
