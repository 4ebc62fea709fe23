#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// Drawing helpers shared by the painters: the panel's colours, brushed-metal texture, bevels,
// silk-screen text and the parts that several images repeat (screws, LEDs, buttons).
// Everything is a pure function of its arguments, so the images come out the same on every run.
namespace ArtKit
{
// Every image is lit from the top left.
const juce::Colour silk { 0xffeceae3 };
const juce::Colour silkLine { 0xffb9bbbf };
const juce::Colour valueOrange { 0xfff59b58 };

juce::Image makeImage (int width, int height, bool transparent);

// A filmstrip of `frames` frames side by side: frame f starts at x = f * step, is clipped to
// `frameWidth` by the image's height, and is drawn by draw (g, f) from its own origin.
template <typename Draw>
juce::Image filmstrip (int imageWidth, int height, int frames, int step, int frameWidth, Draw draw)
{
    auto image = makeImage (imageWidth, height, true);
    juce::Graphics g (image);
    for (int f = 0; f < frames; ++f)
    {
        juce::Graphics::ScopedSaveState save (g);
        g.reduceClipRegion (step * f, 0, frameWidth, height);
        g.setOrigin (step * f, 0);
        draw (g, f);
    }
    return image;
}

// Adds a fine brushed grain to an area: streaks along x, from a fixed seed.
void brush (juce::Image& image, juce::Rectangle<int> area, float strength, int seed);

// Darkens the edges of an area a little, as light falls off over a large plate.
void vignette (juce::Graphics& g, juce::Rectangle<float> area, float amount);

// A raised edge: light on top and left, shadow on bottom and right.
void bevel (juce::Graphics& g, juce::Rectangle<float> r, float corner, float width, float strength);

// A sunken edge: shadow on top and left, light on bottom and right, with an inner shadow.
void sunken (juce::Graphics& g, juce::Rectangle<float> r, float corner, float depth);

void shadow (juce::Graphics& g, const juce::Path& p, float radius, float alpha, juce::Point<int> offset);

// Text as printed on the panel, with a faint dark edge so it stays legible on any part of the plate.
void print (juce::Graphics& g, const juce::String& text, juce::Rectangle<float> box, float height,
            juce::Justification just, bool bold = true, juce::Colour colour = silk, float kerning = 0.04f);

float textWidth (const juce::String& text, float height, bool bold = true, float kerning = 0.04f);

juce::Font font (float height, bool bold, float kerning = 0.0f);

// A conical brushed-metal disc: the reflections stay put whatever the disc's rotation.
void metalDisc (juce::Graphics& g, juce::Point<float> c, float r, juce::Colour dark, juce::Colour light);

// A small slotted screw head.
void screw (juce::Graphics& g, juce::Point<float> c, float r, float slotAngle);

// A round lens LED, off or lit, of a hue.
void led (juce::Graphics& g, juce::Rectangle<float> r, juce::Colour hue, bool lit);

// A push button face, up or down, with a top colour and a bottom colour.
void buttonFace (juce::Graphics& g, juce::Rectangle<float> r, float corner, juce::Colour top, juce::Colour bottom, bool down);
} // namespace ArtKit
