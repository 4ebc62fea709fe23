#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// The graphic envelope of the advanced page: attack, decay, sustain and release as a closed polygon
// whose peak, sustain strip and end can be dragged. It holds only a picture of four values; the
// knobs of the panel keep the truth, and MainComp relays a drag to them.
class Envel : public juce::Component,
              public juce::ChangeBroadcaster,
              public juce::Timer
{
public:
    explicit Envel (int whichEnvelope);
    ~Envel() override;

    // Rebuilds the polygon from the four values.
    void PaintMeP();
    // The handle under a point: 0 attack, 1 decay and sustain, 2 release, -1 none.
    int FindControl (int x, int y) const;

    void mouseMove (const juce::MouseEvent& e) override;
    void mouseDown (const juce::MouseEvent& e) override;
    void mouseDrag (const juce::MouseEvent& e) override;
    void mouseUp (const juce::MouseEvent& e) override;
    void paint (juce::Graphics& g) override;
    void resized() override;
    void timerCallback() override;

    // As IvrCont's: 1 drag, 66 end of touch, 67 touch began.
    int action = 0;
    float attack = 30.0f, decay = 30.0f, sustain = 30.0f, release = 30.0f;
    int which = 0; // 0 filter, 1 volume
    float scale = 1.0f;
    juce::Image background, glass;
    juce::Path curve;
    float pointX[5] {}, pointY[5] {};
    float attackAtPress = 0.0f, decayAtPress = 0.0f, sustainAtPress = 0.0f, releaseAtPress = 0.0f;
    float xUnit = 62.0f / 255.0f;
    float base = 62.0f;
    float left = 24.0f;
    float top = 23.0f;
    float sustainWidth = 200.0f;
    juce::String readout;
    bool attackChanged = false, decayChanged = false, sustainChanged = false, releaseChanged = false;
    bool showReadout = false;
    int sustainMaximum = 255, timeMaximum = 255;
    int handle = -1;
    int pressY = 0, pressX = 0;
    int lastX = 0, lastY = 0;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (Envel)
};
