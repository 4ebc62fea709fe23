// Sizes, scale and the places of the panels and controls, as the window's width changes.

#include "EditorHarness.h"
#include "librarian/BankComp.h"

namespace
{
struct LayoutCase
{
    int width;
    bool bankShown;
};

// A design rectangle at scale s; a negative size (banks open in a window narrower than them) is none.
juce::Rectangle<int> scaled (float x, float y, float w, float h, float s)
{
    return { (int) (x * s), (int) (y * s), juce::jmax (0, (int) (w * s)), juce::jmax (0, (int) (h * s)) };
}
} // namespace

TEST (EditorLayout, ScaleAndControlPlacesFollowTheWidth)
{
    EditorHarness h;
    h.openEditor();
    h.dismissSplash();

    for (auto c : { LayoutCase { 1505, false }, { 1279, false }, { 978, false }, { 301, false },
                    { 1505, true }, { 1279, true }, { 978, true }, { 301, true } })
    {
        SCOPED_TRACE (juce::String (c.width) + (c.bankShown ? " with banks" : ""));
        h.editor->setSize (c.width, 600);
        if (h.main().bankPanelShown != c.bankShown)
            h.main().Show_Window (103, c.bankShown, 0);
        h.pump();

        auto& m = h.main();
        const float s = (float) ((c.width - (c.bankShown ? 500 : 0)) / 1505.0);
        EXPECT_FLOAT_EQ (m.scale, s);
        EXPECT_EQ (m.appBar->getBounds(), juce::Rectangle<int> (0, 0, c.width, 23)); // never scaled
        EXPECT_EQ (m.bankPanel->getBounds(), juce::Rectangle<int> (c.bankShown ? 0 : -500, 23, 500, 444));
        EXPECT_EQ (h.panel().getBounds(),
                   juce::Rectangle<int> (c.bankShown ? 500 : 0, 23, juce::jmax (0, (int) (1505 * s)), juce::jmax (0, (int) (444 * s))));

        for (int i = 17; i <= 66; ++i)
        {
            const auto& r = h.knob (i).designRect;
            EXPECT_EQ (h.knob (i).getBounds(), scaled (r.getX(), r.getY(), r.getWidth(), r.getHeight(), s)) << i;
        }
        EXPECT_EQ (h.panel().lcd.getBounds(), scaled (703, 62, 123, 68, s));
        EXPECT_EQ (h.panel().midiLed.getBounds(), juce::Rectangle<int> ((int) (864 * s), (int) (93 * s), 8, 8));
        EXPECT_EQ (h.panel().touchCaptions.getBounds(),
                   juce::Rectangle<int> ((int) (647 * s), (int) (406 * s), 241, juce::jmax (0, (int) (14 * s))));
        EXPECT_EQ (h.panel().fineTune.getBounds(), scaled (60, 274, 44, 55, s));
        EXPECT_EQ (h.processor.editorWidth, c.width);
        EXPECT_EQ (h.state().iniStrings[6], juce::String (c.width));
    }
}

TEST (EditorLayout, AdvancedAndBankPanelsExcludeEachOther)
{
    EditorHarness h;
    h.openEditor (1279, 628);
    h.dismissSplash();
    auto& m = h.main();

    m.Show_Window (106, true, 0);
    h.pump();
    EXPECT_TRUE (m.advancedShown);
    EXPECT_TRUE (m.advancedPanel->isVisible());
    EXPECT_FALSE (h.panel().isVisible());
    EXPECT_EQ (m.advancedPanel->getBounds(), juce::Rectangle<int> ((1279 - 1000) / 2, 23, 1000, 444));

    m.Show_Window (103, true, 0); // the banks close the advanced page
    h.pump();
    EXPECT_TRUE (m.bankPanelShown);
    EXPECT_FALSE (m.advancedShown);
    EXPECT_FALSE (m.advancedPanel->isVisible());
    EXPECT_TRUE (h.panel().isVisible());

    m.Show_Window (106, true, 0); // refused while the banks are open
    h.pump();
    EXPECT_FALSE (m.advancedShown);
    EXPECT_FALSE (m.advancedPanel->isVisible());

    m.Show_Window (103, false, 0);
    h.editor->setSize (800, 600); // narrower than the page: it stays 1000 wide at x 0
    m.Show_Window (106, true, 0);
    h.pump();
    EXPECT_EQ (m.advancedPanel->getBounds(), juce::Rectangle<int> (0, 23, 1000, 444));
}
