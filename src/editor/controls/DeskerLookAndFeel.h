#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// The one look of the editor's own drawing: every font the panel asks for ("Arial", or the default
// sans) is the embedded Liberation Sans, so that text has the same metrics on every machine.
// Popup menus get the colours of the panel's menus.
class DeskerLookAndFeel : public juce::LookAndFeel_V2
{
public:
    DeskerLookAndFeel();

    juce::Typeface::Ptr getTypefaceForFont (const juce::Font& font) override;

    // Scroll bars are a flat thumb in the bar's thumb colour, without arrow buttons.
    bool areScrollbarButtonsVisible() override { return false; }
    void drawScrollbar (juce::Graphics& g, juce::ScrollBar& bar, int x, int y, int width, int height, bool isScrollbarVertical,
                        int thumbStartPosition, int thumbSize, bool isMouseOver, bool isMouseDown) override;

    // The embedded faces, loaded once per process.
    static juce::Typeface::Ptr regularTypeface();
    static juce::Typeface::Ptr boldTypeface();

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (DeskerLookAndFeel)
};

// Holds the editor's look as JUCE's default for as long as any holder lives: fonts are resolved
// through the default look, whichever component asks. Editors and tools each keep one.
class DeskerLookAndFeelScope
{
public:
    DeskerLookAndFeelScope();
    ~DeskerLookAndFeelScope();

private:
    struct Shared;
    juce::SharedResourcePointer<Shared> shared;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (DeskerLookAndFeelScope)
};
