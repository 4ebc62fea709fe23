#include "editor/controls/DeskerLookAndFeel.h"

#include "DeskerResources.h"

DeskerLookAndFeel::DeskerLookAndFeel()
{
    setColour (juce::PopupMenu::backgroundColourId, juce::Colour (0xff000000));
    setColour (juce::PopupMenu::textColourId, juce::Colour (0xffffffff));
    setColour (juce::PopupMenu::headerTextColourId, juce::Colour (0xffffffff));
    setColour (juce::PopupMenu::highlightedBackgroundColourId, juce::Colour (0xff808080));
    setColour (juce::PopupMenu::highlightedTextColourId, juce::Colour (0xffffffff));
}

void DeskerLookAndFeel::drawScrollbar (juce::Graphics& g, juce::ScrollBar& bar, int x, int y, int width, int height,
                                       bool isScrollbarVertical, int thumbStartPosition, int thumbSize, bool isMouseOver, bool isMouseDown)
{
    g.setColour (bar.findColour (juce::ScrollBar::trackColourId));
    g.fillRect (x, y, width, height);

    auto thumb = isScrollbarVertical ? juce::Rectangle<int> (x, thumbStartPosition, width, thumbSize)
                                     : juce::Rectangle<int> (thumbStartPosition, y, thumbSize, height);
    const auto colour = bar.findColour (juce::ScrollBar::thumbColourId);
    g.setColour (isMouseDown ? colour.brighter (0.4f) : isMouseOver ? colour.brighter (0.2f) : colour);
    g.fillRoundedRectangle (thumb.reduced (2).toFloat(), 2.5f);
}

juce::Typeface::Ptr DeskerLookAndFeel::regularTypeface()
{
    static const auto face = juce::Typeface::createSystemTypefaceFor (DeskerData::LiberationSansRegular_ttf,
                                                                       (size_t) DeskerData::LiberationSansRegular_ttfSize);
    return face;
}

juce::Typeface::Ptr DeskerLookAndFeel::boldTypeface()
{
    static const auto face = juce::Typeface::createSystemTypefaceFor (DeskerData::LiberationSansBold_ttf,
                                                                       (size_t) DeskerData::LiberationSansBold_ttfSize);
    return face;
}

juce::Typeface::Ptr DeskerLookAndFeel::getTypefaceForFont (const juce::Font& font)
{
    // Every face is served from the embedded family: "Arial" is the panel's font, and a stray
    // request for another name must not pull in whatever the machine has.
    return font.isBold() ? boldTypeface() : regularTypeface();
}

//==============================================================================
struct DeskerLookAndFeelScope::Shared
{
    Shared()
    {
        juce::LookAndFeel::setDefaultLookAndFeel (&look);
        juce::Typeface::clearTypefaceCache();
    }

    ~Shared()
    {
        if (&juce::LookAndFeel::getDefaultLookAndFeel() == &look)
            juce::LookAndFeel::setDefaultLookAndFeel (nullptr);
        juce::Typeface::clearTypefaceCache();
    }

    DeskerLookAndFeel look;
};

DeskerLookAndFeelScope::DeskerLookAndFeelScope() = default;
DeskerLookAndFeelScope::~DeskerLookAndFeelScope() = default;
