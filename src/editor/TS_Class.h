#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "editor/controls/IvrCont.h"

// The on-screen touch surface. The mouse is the finger: while pressed it sends X and Y to the host
// through two unseen controls, and both spring back to the centre, 64, at release. Values from the
// instrument and the host show as a crosshair that fades half a second after the last one.
class TS_Class : public juce::Component,
                 public juce::Timer
{
public:
    TS_Class();
    ~TS_Class() override;

    // Stores the window scale and takes the surface's place and size at it.
    void ScaleMe (float s);
    // A remote position; -1 leaves that axis. The caller sets cursorShown first.
    void Set_TS_XY (int x, int y);

    void mouseDown (const juce::MouseEvent& e) override;
    void mouseDrag (const juce::MouseEvent& e) override;
    void mouseUp (const juce::MouseEvent& e) override;
    void paint (juce::Graphics& g) override;
    void timerCallback() override;

    static constexpr int designX = 647, designY = 234, designWidth = 241, designHeight = 172;

    float scale = 1.0f;
    float diameter = 20.0f;
    int xValue = 64, yValue = 64;
    int xController = 0, yController = 0;
    IvrCont xControl, yControl;
    float cursorX = 0.0f, cursorY = 0.0f;
    bool cursorShown = false;
    bool pressed = false;
    float width = (float) designWidth, height = (float) designHeight;

private:
    void moveCursor();

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (TS_Class)
};
