#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// A button of the panel's own look: LED check boxes, tool-bar texts, bank buttons, stock buttons.
// It reports by a change message; the listener reads `id` and `toggleState`.
class IvrBut : public juce::Component,
               public juce::ChangeBroadcaster,
               public juce::Button::Listener,
               public juce::SettableTooltipClient
{
public:
    IvrBut (juce::String buttonLabel, int buttonId, int buttonKind);
    ~IvrBut() override;

    // Sets the kind's defaults (images, colours, font height) and the bounds.
    void InitializeMe (int x, int y, int width, int height, bool);

    void mouseEnter (const juce::MouseEvent& e) override;
    void mouseExit (const juce::MouseEvent& e) override;
    void mouseDown (const juce::MouseEvent& e) override;
    void mouseUp (const juce::MouseEvent& e) override;
    void paint (juce::Graphics& g) override;
    void paintOverChildren (juce::Graphics& g) override;
    void resized() override;
    void buttonClicked (juce::Button* button) override;

    juce::String label;
    int id = 0;
    int kind = 0;
    bool toggleState = false;
    bool pressed = false;
    float fontHeight = 13.0f;
    // Bevel of the fallback look: top-left edge, bottom-right edge, idle fill, pressed fill.
    juce::Colour frameColours[4];
    juce::Colour textColour { 0xffffffff };
    juce::Colour pressedTextColour { 0xffffffff };
    int hoverCode = 0;
    std::unique_ptr<juce::TextButton> innerButton;
    juce::Image images[3];

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (IvrBut)
};
