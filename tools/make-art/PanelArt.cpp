// The front panel, at twice the design size: plate, section frames, the recesses of the display,
// the MIDI LED and the touch surface, and every caption the controls need. The controls draw
// nothing but their filmstrips and value texts, so all of the lettering lives here, laid out
// around the control rectangles of PanelLayout.

#include "ArtKit.h"
#include "KnobGeometry.h"
#include "Painters.h"
#include "PanelLayout.h"
#include "sound/ParDes.h"

#include <cmath>

namespace
{
using namespace ArtKit;

constexpr float labelSize = 9.5f;
constexpr float positionSize = 7.5f;
constexpr float headingSize = 11.0f;

struct Section
{
    const char* heading;
    juce::Rectangle<float> frame;
};

const Section sections[] = {
    { "LFO", { 16.0f, 14.0f, 112.0f, 230.0f } },
    { "GLIDE", { 16.0f, 251.0f, 112.0f, 185.0f } },
    { "MODULATION BUSSES", { 133.0f, 14.0f, 191.0f, 422.0f } },
    { "OSCILLATORS", { 330.0f, 14.0f, 286.0f, 422.0f } },
    { "MIXER", { 936.0f, 14.0f, 142.0f, 422.0f } },
    { "FILTER", { 1084.0f, 14.0f, 90.0f, 422.0f } },
    { "ENVELOPES", { 1180.0f, 14.0f, 190.0f, 422.0f } },
    { "OUTPUT", { 1376.0f, 14.0f, 110.0f, 422.0f } },
};

struct SubHeading
{
    const char* text;
    float centreX, y;
};

const SubHeading subHeadings[] = {
    { "MOD WHEEL", 180.0f, 30.0f }, { "PEDAL", 277.0f, 30.0f },
    { "OSC 1", 372.0f, 30.0f },     { "OSC 2", 466.0f, 30.0f },  { "OSC 3", 560.0f, 30.0f },
    { "FILTER", 1226.0f, 30.0f },   { "VOLUME", 1322.0f, 30.0f },
};

juce::Point<float> polar (juce::Point<float> c, float r, float angle)
{
    return { c.x + r * std::sin (angle), c.y - r * std::cos (angle) };
}

// Lines of a position caption. A long text beside the selector is broken at its middle blank or
// slash, so that neighbouring selectors keep apart.
juce::StringArray positionLines (const juce::String& text, float angle)
{
    const bool beside = std::abs (std::sin (angle)) > 0.9f;
    if (! beside || textWidth (text, positionSize, true, 0.0f) < 24.0f)
        return { text };

    int best = -1;
    for (int i = 1; i < text.length() - 1; ++i)
        if ((text[i] == ' ' || text[i] == '/') && (best < 0 || std::abs (i - text.length() / 2) < std::abs (best - text.length() / 2)))
            best = i;
    if (best < 0)
        return { text };

    const int cut = text[best] == '/' ? best + 1 : best;
    return { text.substring (0, cut).trim(), text.substring (cut).trim() };
}

// The text printed at selector position p (0 at the first frame the selector uses).
juce::String positionText (const PanelLayout::Control& c, int p)
{
    switch (c.code)
    {
        case 47: return juce::String (p + 1);
        // These rules answer for 2 to 7 while the selector goes 0 to 5.
        case 48: return ParDes::SndParDes (48, p + 2);
        case 53:
        {
            // "1o" to "32o" as organ footage: the higher the number, the shorter the pipe.
            const int factor = ParDes::SndParDes (53, p + 2).getIntValue();
            return juce::String (32 / juce::jmax (1, factor)) + "'";
        }
        default: return ParDes::SndParDes (c.code, p);
    }
}

void printPosition (juce::Graphics& g, juce::Point<float> anchor, float angle, const juce::StringArray& lines)
{
    const float lineHeight = positionSize * 1.08f;
    const float h = lineHeight * (float) lines.size();
    float w = 0.0f;
    for (const auto& l : lines)
        w = juce::jmax (w, textWidth (l, positionSize, true, 0.0f));

    const float s = std::sin (angle), k = std::cos (angle);
    // Captions over the top of the selector lean in towards its centre, which leaves the space
    // between neighbouring selectors free.
    if (k > 0.7f && std::abs (s) > 0.35f)
        anchor.x -= s > 0.0f ? 9.0f : -9.0f;
    juce::Justification just = juce::Justification::centred;
    float x = anchor.x - w * 0.5f - 2.0f;
    if (s > 0.35f)
    {
        x = anchor.x;
        just = juce::Justification::centredLeft;
    }
    else if (s < -0.35f)
    {
        x = anchor.x - w - 4.0f;
        just = juce::Justification::centredRight;
    }
    const float top = anchor.y - h * 0.5f - k * h * 0.5f;

    for (int i = 0; i < lines.size(); ++i)
        print (g, lines[i], { x, top + lineHeight * (float) i, w + 4.0f, lineHeight }, positionSize, just, true, silk, 0.0f);
}

void knobScale (juce::Graphics& g, const PanelLayout::Control& c)
{
    const bool big = c.kind == 3;
    const float size = big ? 66.0f : 44.0f;
    const float unit = size / 56.0f;
    const juce::Point<float> centre ((float) c.bounds.getX() + KnobGeometry::knobCentre * unit,
                                     (float) c.bounds.getY() + (KnobGeometry::knobCentre - 0.5f) * unit);
    const float inner = KnobGeometry::knobRadius * unit + (big ? 2.2f : 1.8f);
    const bool bipolar = c.code == 18;

    for (int i = 0; i <= 10; ++i)
    {
        const float a = juce::degreesToRadians (-150.0f + 30.0f * (float) i);
        const bool major = i == 0 || i == 10 || (bipolar && i == 5);
        const float len = major ? 3.6f : 2.4f;
        g.setColour (silk.withAlpha (major ? 0.95f : 0.7f));
        g.drawLine ({ polar (centre, inner, a), polar (centre, inner + len, a) }, major ? 1.1f : 0.8f);
    }

    if (bipolar)
    {
        const float r = inner + 4.5f;
        print (g, "-", juce::Rectangle<float> (8.0f, 8.0f).withCentre (polar (centre, r + 2.0f, juce::degreesToRadians (-150.0f))), 8.0f, juce::Justification::centred);
        print (g, "+", juce::Rectangle<float> (8.0f, 8.0f).withCentre (polar (centre, r + 2.0f, juce::degreesToRadians (150.0f))), 8.0f, juce::Justification::centred);
    }
}

void selectorScale (juce::Graphics& g, const PanelLayout::Control& c)
{
    const juce::Point<float> centre ((float) c.bounds.getX() + KnobGeometry::selectorCentre,
                                     (float) c.bounds.getY() + KnobGeometry::selectorCentre - 0.5f);
    // A four-way selector uses frames 1 to 4.
    const int first = c.maximum == 3 ? 1 : 0;
    for (int p = 0; p <= c.maximum; ++p)
    {
        const float a = KnobGeometry::selectorAngle (first + p);
        g.setColour (silk.withAlpha (0.9f));
        const auto dot = polar (centre, KnobGeometry::selectorRadius + 2.0f, a);
        g.fillEllipse (juce::Rectangle<float> (1.7f, 1.7f).withCentre (dot));
        printPosition (g, polar (centre, KnobGeometry::selectorRadius + 5.0f, a), a, positionLines (positionText (c, p), a));
    }
}

void switchEnds (juce::Graphics& g, const PanelLayout::Control& c)
{
    const auto b = c.bounds.toFloat();
    const auto on = ParDes::SndParDes (c.code, 1), off = ParDes::SndParDes (c.code, 0);
    if (c.kind == 112)
    {
        // Upright lever: up is 1.
        const float cx = b.getX() + 12.5f;
        print (g, on, { cx - 20.0f, b.getY() - 9.0f, 40.0f, 8.0f }, positionSize, juce::Justification::centred);
        print (g, off, { cx - 20.0f, b.getY() + 50.5f, 40.0f, 8.0f }, positionSize, juce::Justification::centred);
    }
    else if (c.kind == 113)
    {
        // Flat lever at the top left: left is 0, right is 1.
        print (g, off, { b.getX() + 2.0f, b.getY() - 9.0f, 30.0f, 8.0f }, positionSize, juce::Justification::centredLeft);
        print (g, on, { b.getX() + 20.0f, b.getY() - 9.0f, 28.0f, 8.0f }, positionSize, juce::Justification::centredRight);
    }
}

void caption (juce::Graphics& g, const PanelLayout::Control& c)
{
    if (c.place == PanelLayout::Place::none)
        return;

    auto b = c.bounds.toFloat();
    float centreX = b.getCentreX();
    if (c.kind == 112)
        centreX = b.getX() + 12.5f;

    juce::Rectangle<float> box;
    if (c.place == PanelLayout::Place::above)
        box = { centreX - 40.0f, b.getY() - (c.kind == 3 ? 12.0f : 13.5f), 80.0f, 10.0f };
    else if (c.kind == 112)
        box = { centreX - 40.0f, b.getBottom() + 10.0f, 80.0f, 10.0f };
    else
        box = { centreX - 40.0f, b.getBottom() + 2.0f, 80.0f, 10.0f };

    print (g, c.caption, box, labelSize, juce::Justification::centred);
}

void sectionFrame (juce::Graphics& g, const Section& s)
{
    const auto r = s.frame;
    const float w = textWidth (s.heading, headingSize, true, 0.12f) + 12.0f;
    const float cx = r.getCentreX();

    // A thin printed frame, open where the heading sits on its top edge.
    juce::Path frame;
    frame.startNewSubPath (cx - w * 0.5f, r.getY());
    frame.lineTo (r.getX() + 4.0f, r.getY());
    frame.quadraticTo (r.getX(), r.getY(), r.getX(), r.getY() + 4.0f);
    frame.lineTo (r.getX(), r.getBottom() - 4.0f);
    frame.quadraticTo (r.getX(), r.getBottom(), r.getX() + 4.0f, r.getBottom());
    frame.lineTo (r.getRight() - 4.0f, r.getBottom());
    frame.quadraticTo (r.getRight(), r.getBottom(), r.getRight(), r.getBottom() - 4.0f);
    frame.lineTo (r.getRight(), r.getY() + 4.0f);
    frame.quadraticTo (r.getRight(), r.getY(), r.getRight() - 4.0f, r.getY());
    frame.lineTo (cx + w * 0.5f, r.getY());

    g.setColour (juce::Colours::black.withAlpha (0.35f));
    g.strokePath (frame, juce::PathStrokeType (0.9f), juce::AffineTransform::translation (0.5f, 0.5f));
    g.setColour (silkLine.withAlpha (0.75f));
    g.strokePath (frame, juce::PathStrokeType (0.8f));

    print (g, s.heading, { cx - w * 0.5f, r.getY() - headingSize * 0.6f, w, headingSize * 1.2f }, headingSize,
           juce::Justification::centred, true, silk, 0.12f);
}

void plateAndTexture (juce::Image& image)
{
    {
        juce::Graphics g (image);
        juce::ColourGradient base (juce::Colour (0xff2f3236), 0.0f, 0.0f, juce::Colour (0xff222428), 0.0f, (float) image.getHeight(), false);
        g.setGradientFill (base);
        g.fillAll();
    }
    brush (image, image.getBounds(), 5.0f, 1505);

    juce::Graphics g (image);
    vignette (g, image.getBounds().toFloat(), 0.28f);

    // Folded top and bottom edges of the metal.
    g.setColour (juce::Colours::white.withAlpha (0.2f));
    g.fillRect (0, 0, image.getWidth(), 2);
    g.setColour (juce::Colours::black.withAlpha (0.45f));
    g.fillRect (0, image.getHeight() - 3, image.getWidth(), 3);
}

void middlePlate (juce::Graphics& g)
{
    // The centre of the panel sits on a slightly darker inset plate.
    const juce::Rectangle<float> plate (622.0f, 10.0f, 308.0f, 428.0f);
    g.setColour (juce::Colours::black.withAlpha (0.16f));
    g.fillRoundedRectangle (plate, 5.0f);
    sunken (g, plate, 5.0f, 1.2f);
    // Held by four screws, their slots set every which way, as a fitter leaves them.
    const float slots[] = { 0.3f, 1.1f, 2.2f, 0.7f };
    const juce::Point<float> corners[] = { { 631.0f, 19.0f }, { 921.0f, 19.0f }, { 631.0f, 429.0f }, { 921.0f, 429.0f } };
    for (int i = 0; i < 4; ++i)
        screw (g, corners[i], 3.3f, slots[i]);

    // Name plate.
    print (g, "CORVANE", { 626.0f, 17.0f, 278.0f, 30.0f }, 27.0f, juce::Justification::centred, true, silk, 0.32f);
    g.setColour (silkLine.withAlpha (0.6f));
    g.fillRect (662.0f, 48.0f, 205.0f, 0.7f);

    // Display bezel: a raised chrome-edged frame around a deep black window.
    const juce::Rectangle<float> lcd (703.0f, 62.0f, 123.0f, 68.0f);
    const auto bezel = lcd.expanded (7.0f);
    juce::Path bezelPath;
    bezelPath.addRoundedRectangle (bezel, 4.0f);
    shadow (g, bezelPath, 4.0f, 0.7f, { 1, 2 });
    juce::ColourGradient rim (juce::Colour (0xff5b5e63), bezel.getX(), bezel.getY(), juce::Colour (0xff17181a), bezel.getX(), bezel.getBottom(), false);
    g.setGradientFill (rim);
    g.fillPath (bezelPath);
    bevel (g, bezel, 4.0f, 1.0f, 0.45f);
    g.setColour (juce::Colour (0xff050506));
    g.fillRoundedRectangle (lcd.expanded (2.5f), 2.0f);
    sunken (g, lcd.expanded (2.5f), 2.0f, 1.5f);

    // MIDI activity LED, unlit; the live part lights it.
    print (g, "MIDI", { 848.0f, 80.0f, 40.0f, 9.0f }, positionSize, juce::Justification::centred);
    const juce::Rectangle<float> ledArea (864.0f, 93.0f, 8.0f, 8.0f);
    g.setColour (juce::Colour (0xff0a0a0b));
    g.fillEllipse (ledArea.expanded (2.2f));
    bevel (g, ledArea.expanded (2.6f), 6.0f, 0.8f, 0.4f);
    led (g, ledArea.reduced (0.5f), juce::Colour (0xffe02a20), false);

    print (g, "ANALOGUE SYNTHESIZER", { 640.0f, 142.0f, 250.0f, 9.0f }, 7.0f, juce::Justification::centred, true, silk.withAlpha (0.85f), 0.42f);

    // Maker's badge: a small emblem and the name.
    const float bx = 765.0f, by = 180.0f;
    const float nameW = textWidth ("Tolk Audio", 13.0f, true, 0.06f);
    const float emblemX = bx - (nameW + 22.0f) * 0.5f;
    juce::Path emblem;
    emblem.addEllipse (emblemX, by - 8.0f, 16.0f, 16.0f);
    g.setColour (silk.withAlpha (0.9f));
    g.strokePath (emblem, juce::PathStrokeType (1.2f));
    juce::Path wave;
    for (int i = 0; i <= 24; ++i)
    {
        const float t = (float) i / 24.0f;
        const juce::Point<float> p (emblemX + 3.0f + t * 10.0f, by - 3.6f * std::sin (t * juce::MathConstants<float>::twoPi));
        if (i == 0)
            wave.startNewSubPath (p);
        else
            wave.lineTo (p);
    }
    g.strokePath (wave, juce::PathStrokeType (1.1f, juce::PathStrokeType::curved, juce::PathStrokeType::rounded));
    print (g, "Tolk Audio", { emblemX + 22.0f, by - 8.0f, nameW + 4.0f, 16.0f }, 13.0f, juce::Justification::centredLeft, true, silk, 0.06f);

    // Touch surface: a recessed pad in a frame, with the readout row under it.
    print (g, "TOUCH SURFACE", { 647.0f, 213.0f, 241.0f, 10.0f }, labelSize, juce::Justification::centred, true, silk, 0.2f);
    const juce::Rectangle<float> pad (647.0f, 234.0f, 241.0f, 172.0f);
    const juce::Rectangle<float> readout (647.0f, 406.0f, 241.0f, 14.0f);
    const auto surround = pad.getUnion (readout).expanded (6.0f);
    juce::Path surroundPath;
    surroundPath.addRoundedRectangle (surround, 5.0f);
    shadow (g, surroundPath, 4.0f, 0.6f, { 1, 2 });
    juce::ColourGradient frame (juce::Colour (0xff484b50), surround.getX(), surround.getY(), juce::Colour (0xff1a1b1e), surround.getX(), surround.getBottom(), false);
    g.setGradientFill (frame);
    g.fillPath (surroundPath);
    bevel (g, surround, 5.0f, 1.0f, 0.4f);

    // A satin pad: lighter where the light falls on it, with a faint printed grid.
    juce::ColourGradient surface (juce::Colour (0xff2e3137), pad.getX(), pad.getY(), juce::Colour (0xff191a1e), pad.getRight(), pad.getBottom(), false);
    g.setGradientFill (surface);
    g.fillRect (pad);
    g.setColour (juce::Colours::white.withAlpha (0.05f));
    for (float x = pad.getX() + pad.getWidth() / 8.0f; x < pad.getRight() - 1.0f; x += pad.getWidth() / 8.0f)
        g.fillRect (x, pad.getY() + 1.0f, 0.6f, pad.getHeight() - 2.0f);
    for (float y = pad.getY() + pad.getHeight() / 6.0f; y < pad.getBottom() - 1.0f; y += pad.getHeight() / 6.0f)
        g.fillRect (pad.getX() + 1.0f, y, pad.getWidth() - 2.0f, 0.6f);
    g.setColour (juce::Colours::white.withAlpha (0.09f));
    const auto mid = pad.getCentre();
    g.fillRect (mid.x - 6.0f, mid.y - 0.4f, 12.0f, 0.8f);
    g.fillRect (mid.x - 0.4f, mid.y - 6.0f, 0.8f, 12.0f);
    sunken (g, pad, 1.0f, 2.0f);

    g.setColour (juce::Colour (0xff070708));
    g.fillRect (readout.withTrimmedTop (1.0f));
    sunken (g, readout.withTrimmedTop (1.0f), 1.0f, 1.0f);
}

void headphoneJack (juce::Graphics& g, juce::Point<float> c)
{
    juce::Path nut;
    nut.addPolygon (c, 6, 10.0f, juce::MathConstants<float>::pi / 6.0f);
    shadow (g, nut, 3.0f, 0.7f, { 1, 2 });
    juce::ColourGradient metal (juce::Colour (0xffc3c6cb), c.x - 9.0f, c.y - 9.0f, juce::Colour (0xff4b4e53), c.x + 9.0f, c.y + 9.0f, false);
    g.setGradientFill (metal);
    g.fillPath (nut);
    g.setColour (juce::Colours::black.withAlpha (0.6f));
    g.strokePath (nut, juce::PathStrokeType (0.6f));
    metalDisc (g, c, 6.5f, juce::Colour (0xff55585d), juce::Colour (0xffd0d3d8));
    g.setColour (juce::Colour (0xff030303));
    g.fillEllipse (juce::Rectangle<float> (7.0f, 7.0f).withCentre (c));
    g.setColour (juce::Colours::white.withAlpha (0.15f));
    g.drawEllipse (juce::Rectangle<float> (7.0f, 7.0f).withCentre (c).translated (0.3f, 0.5f), 0.5f);
    print (g, "HEADPHONES", { c.x - 40.0f, c.y + 14.0f, 80.0f, 9.0f }, positionSize, juce::Justification::centred);
}
} // namespace

juce::Image paintCorvaneSkin (ArtBook&)
{
    auto image = makeImage (3010, 888, false);
    plateAndTexture (image);

    juce::Graphics g (image);
    g.addTransform (juce::AffineTransform::scale (2.0f));

    for (const auto& s : sections)
        sectionFrame (g, s);
    for (const auto& h : subHeadings)
        print (g, h.text, { h.centreX - 40.0f, h.y, 80.0f, 10.0f }, 9.0f, juce::Justification::centred, true, silk, 0.14f);

    middlePlate (g);
    headphoneJack (g, { 1422.0f, 336.0f });

    for (const auto& c : PanelLayout::controls())
    {
        if (c.kind == 3 || c.kind == 5)
            knobScale (g, c);
        else if (c.kind == 9)
            selectorScale (g, c);
        else
            switchEnds (g, c);
        caption (g, c);
    }
    return image;
}
