// Sizes, scale and the places of the panels and controls, as the window's width changes.

#include "EditorHarness.h"
#include "librarian/BankComp.h"

namespace
{
// A design rectangle at scale s; a negative size (banks open in a window narrower than them) is none.
juce::Rectangle<int> scaled (juce::Rectangle<float> r, float s)
{
    return { (int) (r.getX() * s), (int) (r.getY() * s), juce::jmax (0, (int) (r.getWidth() * s)), juce::jmax (0, (int) (r.getHeight() * s)) };
}
} // namespace

TEST (EditorLayout, ScaleAndControlPlacesFollowTheWidth)
{
    EditorHarness h;
    h.openEditor();
    h.dismissSplash();

    for (auto [width, banks] : { std::pair { 1505, false }, { 1279, false }, { 978, false }, { 301, false },
                                 { 1505, true }, { 1279, true }, { 978, true }, { 301, true } })
    {
        SCOPED_TRACE (juce::String (width) + (banks ? " with banks" : ""));
        h.editor->setSize (width, 600);
        if (h.main().bankPanelShown != banks)
            h.main().Show_Window (103, banks, 0);
        h.pump();

        auto& m = h.main();
        const float s = (float) ((width - (banks ? 500 : 0)) / 1505.0);
        EXPECT_FLOAT_EQ (m.scale, s);
        EXPECT_EQ (m.appBar->getBounds(), juce::Rectangle<int> (0, 0, width, 23)); // never scaled
        EXPECT_EQ (m.bankPanel->getBounds(), juce::Rectangle<int> (banks ? 0 : -500, 23, 500, 444));
        EXPECT_EQ (h.panel().getBounds(), scaled ({ 0, 0, 1505, 444 }, s) + juce::Point<int> (banks ? 500 : 0, 23));
        for (int i = 17; i <= 66; ++i)
            EXPECT_EQ (h.knob (i).getBounds(), scaled (h.knob (i).designRect, s)) << i;
        EXPECT_EQ (h.panel().fineTune.getBounds(), scaled ({ 60, 274, 44, 55 }, s)); // the one not in the table
        EXPECT_EQ (h.state().iniStrings[6], juce::String (width)); // the width is kept for the next editor
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
    EXPECT_TRUE (m.advancedShown && m.advancedPanel->isVisible() && ! h.panel().isVisible());
    EXPECT_EQ (m.advancedPanel->getBounds(), juce::Rectangle<int> ((1279 - 1000) / 2, 23, 1000, 444));

    m.Show_Window (103, true, 0); // the banks close the advanced page
    h.pump();
    EXPECT_TRUE (m.bankPanelShown && ! m.advancedShown && ! m.advancedPanel->isVisible() && h.panel().isVisible());

    m.Show_Window (106, true, 0); // refused while the banks are open
    h.pump();
    EXPECT_FALSE (m.advancedShown || m.advancedPanel->isVisible());

    m.Show_Window (103, false, 0);
    h.editor->setSize (800, 600); // narrower than the page: it stays 1000 wide at x 0
    m.Show_Window (106, true, 0);
    h.pump();
    EXPECT_EQ (m.advancedPanel->getBounds(), juce::Rectangle<int> (0, 23, 1000, 444));
}
