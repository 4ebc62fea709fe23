#pragma once

#include <juce_graphics/juce_graphics.h>

#include <span>

// The controls of the front panel by their rectangles in design pixels: the panel prints its
// captions around them, and the about picture puts their filmstrips on it.
struct PanelLayout
{
    // Where a control's caption goes: above or below its rectangle, or nowhere (the control
    // prints its own).
    enum class Place
    {
        above,
        below,
        none
    };

    struct Control
    {
        int index;           // sound parameter, or 100 for the disabled fine tune knob
        const char* caption; // as printed on the panel
        int kind;            // 3, 5: knobs; 9: selector; 111, 112, 113: lever switches
        int code;            // display code of the value texts
        int maximum;
        juce::Rectangle<int> bounds;
        Place place;
    };

    static std::span<const Control> controls();
};
