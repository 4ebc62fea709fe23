#pragma once

#include <juce_core/juce_core.h>

// Where the knob and selector frames put their pointers, shared by the filmstrips and by the
// panel, which prints scales and position captions around the same angles.
struct KnobGeometry
{
    static constexpr int knobFrames = 60;
    static constexpr int selectorFrames = 6;

    // Both turn through 300 degrees, from -150 (lower left) to +150 (lower right).
    static constexpr float sweep = 300.0f;

    // In pixels of the 56 by 56 knob frame and the 60 by 60 selector frame.
    static constexpr float knobCentre = 28.0f;
    static constexpr float knobRadius = 23.0f;
    static constexpr float capRadius = 11.5f;
    static constexpr float selectorCentre = 30.0f;
    static constexpr float selectorRadius = 23.0f;

    static float knobAngle (int frame)
    {
        return juce::degreesToRadians (-sweep * 0.5f + sweep * (float) frame / (float) (knobFrames - 1));
    }

    static float selectorAngle (int frame)
    {
        return juce::degreesToRadians (-sweep * 0.5f + sweep * (float) frame / (float) (selectorFrames - 1));
    }
};
