#pragma once

#include <juce_graphics/juce_graphics.h>

#include <map>

// Every image of the resource table, drawn on demand and kept: a painter that builds on another
// image (the about picture shows the whole panel) asks the book for it instead of drawing it again.
// Each image is checked against the size that the table gives it.
class ArtBook
{
public:
    // The image by its table name; throws std::runtime_error for a name without a painter or an
    // image of the wrong size.
    const juce::Image& get (const juce::String& name);

    // The names of the resource table, in its order: every one of them must have a painter.
    static juce::StringArray names();

private:
    std::map<juce::String, juce::Image> drawn;
};
