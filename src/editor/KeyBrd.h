#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "editor/OctaveKeyClass.h"
#include "editor/PianoPad.h"
#include "editor/WheelCnt.h"
#include "editor/controls/IvrCont.h"

// The strip under the panel: the keys, the pitch and modulation wheels, the "Release" and "Glide"
// switches and the velocity box, in a frame of 1505 by 272 design pixels. MainComp listens to
// every part and does all the sending; the strip itself only draws.
class KeyBrd : public juce::Component,
               public juce::ChangeListener,
               public juce::ChangeBroadcaster
{
public:
    KeyBrd();
    ~KeyBrd() override;

    static constexpr float designWidth = 1505.0f;
    static constexpr float designHeight = 272.0f;

    void setDesignRect (float x, float y, float width, float height);
    // Places the strip and each of its parts at its design rectangle times s.
    void ScaleMe (float s);

    // The switch bound to sound parameter 67 ("Release") or 68 ("Glide"); null for any other.
    IvrCont* control (int parameter);

    void paint (juce::Graphics& g) override;
    void paintOverChildren (juce::Graphics& g) override;
    // The span selector is heard and ignored: the keys keep their base note.
    void changeListenerCallback (juce::ChangeBroadcaster*) override {}

    float scale = 1.0f;
    juce::Rectangle<float> designRect { 0.0f, 467.0f, designWidth, designHeight };

    WheelCnt pitchWheel { WheelCnt::springPosition, true };
    WheelCnt modWheel { 0, false };
    IvrCont release, glide;
    PianoPad pianoPad;
    IvrCont velocity;
    OctaveKeyClass octaveKeys;

    juce::Image pianoFrame, glowOnly, Screenshadow;

private:
    void paintFrameWithoutImage (juce::Graphics& g);

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (KeyBrd)
};
