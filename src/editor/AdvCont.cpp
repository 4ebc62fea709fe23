#include "editor/AdvCont.h"

#include "editor/ControlTable.h"
#include "editor/controls/IvrResor.h"

namespace
{
struct Rule
{
    int x1, y1, x2, y2;
    juce::uint32 colour;
};

// Engraved rules: a light line over a dark one.
const Rule rules[] = {
    { 36, 36, 964, 36, 0xff373737 },   { 36, 37, 964, 37, 0xff242424 },
    { 657, 280, 964, 280, 0xff373737 }, { 657, 281, 964, 281, 0xff242424 },
    { 657, 306, 964, 306, 0xff373737 }, { 657, 307, 964, 307, 0xff242424 },
    { 341, 399, 657, 399, 0xff373737 }, { 341, 400, 657, 400, 0xff242424 },
    { 36, 169, 657, 169, 0xff373737 },  { 36, 170, 657, 170, 0xff242424 },
    { 36, 195, 657, 195, 0xff373737 },  { 36, 196, 657, 196, 0xff242424 },
    { 341, 7, 341, 437, 0xff373737 },   { 657, 7, 657, 437, 0xff373737 },
};

enum CaptionStyle
{
    heading,
    label,
    labelLeft,
    labelRight,
    labelWide
};

struct Caption
{
    const char* text;
    int x, y;
    CaptionStyle style;
    int width; // 0: the style's own
};

const Caption captions[] = {
    { "FILTER ENVELOPE", 38, 14, heading, 0 },
    { "FILTER ENV GATE SRC", 38, 42, label, 130 },
    { "VOLUME ENVELOPE", 354, 14, heading, 0 },
    { "VOLUME ENV GATE SRC", 354, 42, label, 130 },
    { "PGM", 38, 173, heading, 0 },
    { "MIDI CLOCK DIVIDER", 38, 199, label, 0 },
    { "PGM M-WHEEL SRC.", 38, 239, label, 0 },
    { "PGM M-WHEEL DST.", 38, 279, label, 0 },
    { "PMG SHAPING 1 SRC", 38, 319, label, 0 },
    { "OFFSET VALUE", 38, 359, label, 0 },
    { "PGM PEDAL SRC.", 199, 239, label, 0 },
    { "PGM PEDAL DST", 199, 279, label, 0 },
    { "PMG SHAPING 2 SRC", 199, 319, label, 0 },
    { "OFFSET VALUE", 199, 359, label, 0 },
    { "POT MAP", 354, 173, heading, 0 },
    { "POT MAP 1 SOURCE", 354, 199, label, 0 },
    { "DESTINATION", 354, 239, label, 0 },
    { "POT MAP 2 SOURCE", 354, 299, label, 0 },
    { "DESTINATION", 354, 339, label, 0 },
    { "POT MAP 3 SOURCE", 515, 199, label, 0 },
    { "DESTINATION", 515, 239, label, 0 },
    { "POT MAP 4 SOURCE", 515, 299, label, 0 },
    { "DESTINATION", 515, 339, label, 0 },
    { "GLIDE MODE", 354, 407, labelWide, 0 },
    { "TOUCH SURFACE", 670, 14, heading, 0 },
    { "X DESTINATION", 670, 40, label, 0 },
    { "X CONTROL NO.", 670, 80, label, 0 },
    { "Y DESTINATION", 670, 140, label, 0 },
    { "Y CONTROL NO.", 670, 180, label, 0 },
    { "X LFO S&H", 670, 240, labelLeft, 0 },
    { "Y LFO S&H", 670, 240, labelRight, 124 },
    { "A DESTINATION", 831, 40, label, 0 },
    { "A CONTROL NO.", 831, 80, label, 0 },
    { "GATE DESTINATION", 831, 140, label, 0 },
    { "GATE CONTROL NO.", 831, 180, label, 0 },
    { "DIRECTION", 831, 200, labelLeft, 0 },
    { "A LFO S&H", 831, 240, labelLeft, 0 },
    { "GATE LFO", 831, 240, labelRight, 124 },
    { "KEYBOARD / TS MEMORY", 670, 284, heading, 0 },
    { "KEYBOARD MODE", 670, 310, label, 0 },
    { "TRIGGER MODE", 670, 350, label, 0 },
    { "PITCH BEND UP AMT", 670, 390, label, 0 },
    { "MODULATION BUS", 831, 310, label, 0 },
    { "GLOBAL", 831, 350, label, 0 },
    { "PITCH BEND DN AMT", 831, 390, label, 0 },
};
} // namespace

AdvCont::AdvCont()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    setOpaque (true);
    background = IvrResor::get ("advancedPicEmp");
}

AdvCont::~AdvCont() = default;

void AdvCont::LoadMinMax()
{
    maxValues.clearQuick();
    minValues.clearQuick();

    for (int i = 0; i < numControls; ++i)
    {
        const auto& entry = *ControlTable::advanced (i);
        maxValues.add (entry.maximum);
        minValues.add (entry.minimum);
    }
    minValues.add (0);
}

void AdvCont::SetInitial()
{
    for (int i = 0; i < numControls; ++i)
    {
        const auto& entry = *ControlTable::advanced (i);
        auto* c = controls.add (new IvrCont());
        const bool onThisPage = i < 17 || i > 66;

        if (i >= 17 && i <= 19)
            c->setRange (0, 255);

        if (entry.width > 0)
        {
            c->setDesignRect ((float) entry.x, (float) entry.y, (float) entry.width, (float) entry.height);
            c->setTextBox (entry.width, entry.height);
        }

        if (onThisPage)
            c->setRange (minValues[i], maxValues[i]);

        c->InitializeMe (i, entry.label, onThisPage ? entry.kind : 0, entry.displayCode);
        addChildComponent (c);
        c->setVisible (onThisPage && i != 16 && i != 104);
    }

    filterEnvelope.setBounds (42, 59, 288, 107);
    volumeEnvelope.setBounds (358, 59, 288, 107);
    addAndMakeVisible (filterEnvelope);
    addAndMakeVisible (volumeEnvelope);

    closeButton.InitializeMe (900, 17, 45, 14, false);
    addAndMakeVisible (closeButton);
}

void AdvCont::paint (juce::Graphics& g)
{
    const float density = g.getInternalContext().getPhysicalPixelScaleFactor();
    if (density != faceDensity || ! face.isValid())
        renderFace (density);

    g.drawImage (face, { 0.0f, 0.0f, 1000.0f, 444.0f });
}

void AdvCont::renderFace (float density)
{
    faceDensity = density;
    face = juce::Image (juce::Image::RGB, juce::roundToInt (1000 * density), juce::roundToInt (444 * density), true);
    juce::Graphics g (face);
    g.addTransform (juce::AffineTransform::scale (density));
    g.fillAll (juce::Colour (0xff1c1d20));
    if (background.isValid())
        g.drawImage (background, { 0.0f, 0.0f, 1000.0f, 444.0f });

    for (const auto& r : rules)
    {
        g.setColour (juce::Colour (r.colour));
        if (r.y1 == r.y2)
            g.fillRect (r.x1, r.y1, r.x2 - r.x1, 1);
        else
            g.fillRect (r.x1, r.y1, 1, r.y2 - r.y1);
    }

    const juce::Font headingFont ("Arial", 16.0f, juce::Font::bold);
    const juce::Font labelFont ("Arial", 12.0f, juce::Font::plain);

    for (const auto& c : captions)
    {
        int width = 120, height = 14;
        auto justification = juce::Justification::centred;

        switch (c.style)
        {
            case heading:    width = 188; height = 20; justification = juce::Justification::centredLeft; break;
            case labelLeft:  justification = juce::Justification::centredLeft; break;
            case labelRight: justification = juce::Justification::centredRight; break;
            case labelWide:  width = 188; height = 20; justification = juce::Justification::centredLeft; break;
            case label:      break;
        }

        if (c.width > 0)
            width = c.width;

        g.setFont (c.style == heading ? headingFont : labelFont);
        g.setColour (juce::Colour (c.style == heading ? 0xffaaa6a6 : 0xff3397c1));
        g.drawText (c.text, c.x, c.y, width, height, justification, false);
    }
}
