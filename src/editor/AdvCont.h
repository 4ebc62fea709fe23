#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "editor/Envelope.h"
#include "editor/controls/IvrBut.h"
#include "editor/controls/IvrCont.h"

// The page of the settings that the instrument keeps behind its menus. Control k edits sound
// parameter k, as on the instrument panel. It never scales: it stays 1000 by 444.
class AdvCont : public juce::Component
{
public:
    AdvCont();
    ~AdvCont() override;

    // The range of every parameter of the page, by parameter; run once before SetInitial.
    void LoadMinMax();
    void SetInitial();

    void paint (juce::Graphics& g) override;

    IvrCont* control (int parameter) const { return controls[parameter]; }

    static constexpr int numControls = 114;

    juce::OwnedArray<IvrCont> controls;
    juce::Array<int> maxValues, minValues;
    Envel filterEnvelope { 0 }, volumeEnvelope { 1 };
    IvrBut closeButton { "OK", 1111, 140 };
    juce::Image background;

private:
    // Background, rules and captions, drawn once per screen density: a paint is then one copy.
    juce::Image face;
    float faceDensity = 0.0f;
    void renderFace (float density);

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (AdvCont)
};
