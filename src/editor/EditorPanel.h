#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "editor/TS_Class.h"
#include "editor/controls/IvrCont.h"
#include "editor/controls/IvrLabArr.h"
#include "editor/controls/LCD_Comp.h"
#include "editor/controls/Midi_Led.h"

// The picture of the instrument's front panel with live controls laid over it. Control k edits
// sound parameter k; only 17 to 66 are placed and shown, 0 to 16 exist unseen so that the index
// is the parameter number, as on the advanced page.
class EditorPanel : public juce::Component,
                    public juce::ChangeBroadcaster
{
public:
    EditorPanel();
    ~EditorPanel() override;

    // Creates and places the controls (EditorPanelInit.cpp).
    void SetInitial();
    void ScaleMe (float s);

    void paint (juce::Graphics& g) override;

    // The control of a parameter, or null outside the array.
    IvrCont* control (int parameter) const { return controls[parameter]; }

    static constexpr int numControls = 67;
    static constexpr int designWidth = 1505;
    static constexpr int designHeight = 444;

    juce::OwnedArray<IvrCont> controls;
    float scale = 1.0f;
    LCD_Comp lcd;
    Midi_Led midiLed;
    TS_Class touchSurface;
    IvrCont fineTune;
    IvrLabArr touchCaptions { juce::StringArray ("X: ", "Y: ", "A: ", "G: ") };
    juce::Image skin, woodLeft, woodRight;

private:
    // The static art at the present scale, made once per size and screen density: a paint is then
    // one copy, pixel for pixel on the screen.
    juce::Image face;
    float faceDensity = 0.0f;
    void renderFace (float density);

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (EditorPanel)
};
