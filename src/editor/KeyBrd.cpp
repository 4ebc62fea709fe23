#include "editor/KeyBrd.h"

#include "editor/controls/IvrResor.h"

namespace
{
juce::Font arial (float height)
{
    return juce::Font ("Arial", height, juce::Font::plain);
}

struct Caption
{
    const char* text;
    float x, y;
};

const Caption captions[] = { { "GLIDE", 108.0f, 65.0f }, { "RELEASE", 108.0f, 103.0f },
                             { "PITCH", 84.0f, 231.0f }, { "MOD", 133.0f, 231.0f } };

// The halo's picture is drawn at about half its size, centred on its wheel.
constexpr float haloFactor = 0.52f;

void initialiseSwitch (IvrCont& c, int parameter, const char* name, float y)
{
    c.setRange (0, 1);
    c.setDesignRect (96.0f, y, 70.0f, 34.0f);
    c.setTextBox (70, 34);
    c.InitializeMe (parameter, name, 114, parameter);
}
} // namespace

KeyBrd::KeyBrd()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    setOpaque (true);

    pitchWheel.setDesignRect (82.0f, 120.0f, 31.0f, 112.0f);
    modWheel.setDesignRect (140.0f, 120.0f, 31.0f, 112.0f);
    initialiseSwitch (release, 67, "Release", 44.0f);
    initialiseSwitch (glide, 68, "Glide", 82.0f);
    pianoPad.setDesignRect (250.0f, 32.0f, 1040.0f, 245.0f);

    // The velocity has no row of value texts: its box shows the number.
    velocity.setRange (0, 127);
    velocity.setDesignRect (1400.0f, 38.0f, 50.0f, 16.0f);
    velocity.setTextBox (50, 16);
    velocity.InitializeMe (0, "Note Velocity", 100, 0);

    for (auto* child : std::initializer_list<juce::Component*> { &pitchWheel, &modWheel, &release, &glide, &pianoPad, &velocity })
        addAndMakeVisible (child);

    octaveKeys.addChangeListener (this);

    pianoFrame = IvrResor::get ("pianoFrame");
    glowOnly = IvrResor::get ("glowOnly");
    Screenshadow = IvrResor::get ("Screenshadow");

    ScaleMe (scale);
}

KeyBrd::~KeyBrd()
{
    octaveKeys.removeChangeListener (this);
}

void KeyBrd::setDesignRect (float x, float y, float width, float height)
{
    designRect = { x, y, width, height };
}

void KeyBrd::ScaleMe (float s)
{
    scale = s;

    // The left edge is rounded: MainComp gives it as the banks' width divided by the scale, and
    // the product lands a hair under the whole number about one time in eight.
    setBounds (juce::roundToInt (designRect.getX() * s), (int) (designRect.getY() * s),
               (int) (designRect.getWidth() * s), (int) (designRect.getHeight() * s));

    pitchWheel.setScale (s);
    modWheel.setScale (s);
    release.setScale (s);
    glide.setScale (s);
    velocity.setScale (s);
    pianoPad.ScaleMe (s);
    octaveKeys.scale = s;
}

IvrCont* KeyBrd::control (int parameter)
{
    switch (parameter)
    {
        case 67: return &release;
        case 68: return &glide;
        default: return nullptr;
    }
}

void KeyBrd::paint (juce::Graphics& g)
{
    const float s = scale;
    const auto scaled = [s] (float x, float y, float w, float h) { return juce::Rectangle<float> (x * s, y * s, w * s, h * s); };

    g.fillAll (juce::Colour (0xff111214));

    if (pianoFrame.isValid())
        g.drawImage (pianoFrame, scaled (0.0f, 0.0f, 1506.0f, 272.0f));
    else
        paintFrameWithoutImage (g);

    g.setColour (juce::Colours::white);
    g.setFont (arial (8.0f * s));
    for (const auto& caption : captions)
        g.drawText (caption.text, scaled (caption.x, caption.y, 30.0f, 16.0f), juce::Justification::centred, false);

    // A halo behind each wheel.
    const float haloWidth = 168.0f * haloFactor, haloHeight = 291.0f * haloFactor;
    for (float x : { 54.0f, 112.0f })
    {
        const auto area = scaled (x, 100.0f, haloWidth, haloHeight);
        if (glowOnly.isValid())
        {
            g.setOpacity (0x7b / 255.0f);
            g.drawImage (glowOnly, area);
            g.setOpacity (1.0f);
        }
        else
        {
            g.setGradientFill (juce::ColourGradient (juce::Colour (0x16ffffff), area.getCentre(),
                                                     juce::Colour (0x00ffffff), { area.getX(), area.getCentreY() }, true));
            g.fillEllipse (area);
        }
    }

    if (! velocity.leftCap.isValid())
    {
        g.setColour (juce::Colours::black);
        g.fillRect (scaled (1400.0f, 38.0f, 50.0f, 16.0f));
        g.setColour (juce::Colour (0xff6d6d6d));
        g.drawRect (scaled (1400.0f, 38.0f, 50.0f, 16.0f), 1.0f);
    }

    g.setColour (juce::Colours::white);
    g.setFont (arial (12.0f * s));
    g.drawText ("Note Velocity:", scaled (1330.0f, 38.0f, 75.0f, 16.0f), juce::Justification::centredLeft, false);
}

void KeyBrd::paintFrameWithoutImage (juce::Graphics& g)
{
    // The frame's geometry drawn plainly: a lip along the top, the cheeks, a recess for the wheels
    // and the well the keys sit in.
    const float s = scale;
    const auto scaled = [s] (float x, float y, float w, float h) { return juce::Rectangle<float> (x * s, y * s, w * s, h * s); };

    const auto cheek = [&] (juce::Rectangle<float> r)
    {
        g.setGradientFill (juce::ColourGradient (juce::Colour (0xff232428), 0.0f, r.getY(), juce::Colour (0xff16171a), 0.0f, r.getBottom(), false));
        g.fillRect (r);
    };
    cheek (scaled (0.0f, 0.0f, 246.0f, 272.0f));
    cheek (scaled (1294.0f, 0.0f, 211.0f, 272.0f));

    g.setGradientFill (juce::ColourGradient (juce::Colour (0xff2e2f34), 0.0f, 0.0f, juce::Colour (0xff18191c), 0.0f, 30.0f * s, false));
    g.fillRect (scaled (0.0f, 0.0f, 1505.0f, 30.0f));
    g.setColour (juce::Colour (0xff3c3d42));
    g.fillRect (scaled (0.0f, 0.0f, 1505.0f, 1.0f));

    g.setColour (juce::Colour (0xff050506));
    g.fillRect (scaled (246.0f, 30.0f, 1048.0f, 242.0f));

    const auto recess = scaled (70.0f, 118.0f, 113.0f, 132.0f);
    g.setColour (juce::Colour (0xff0a0a0b));
    g.fillRoundedRectangle (recess, 4.0f * s);
    g.setColour (juce::Colour (0xff2c2d32));
    g.drawRoundedRectangle (recess, 4.0f * s, 1.0f);
}

void KeyBrd::paintOverChildren (juce::Graphics& g)
{
    const float s = scale;
    if (Screenshadow.isValid())
    {
        g.setOpacity (0xc7 / 255.0f);
        g.drawImage (Screenshadow, { 32.0f * s, 32.0f * s, 1440.0f * s, 78.0f * s });
        return;
    }

    // The panel's lip casts its shadow over the top of the keys.
    const auto keys = pianoPad.getBounds().toFloat();
    g.setGradientFill (juce::ColourGradient (juce::Colour (0xa8000000), 0.0f, keys.getY(),
                                             juce::Colour (0x00000000), 0.0f, keys.getY() + 34.0f * s, false));
    g.fillRect (keys.withHeight (34.0f * s));
}
