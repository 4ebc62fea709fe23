// The program grid and the bank window: a grid in a window of its own where the grid alone decides,
// the real editor where the bank window's buttons reach MainComp.

#include "EditorHarness.h"
#include "device/MidiCntrState.h"
#include "librarian/BankComp.h"
#include "librarian/IvrGrid.h"
#include "sound/AutoBank.h"

#include <utility>
#include <vector>

namespace
{
using Mods = juce::ModifierKeys;

// A grid of the bank window's size on the desktop, driven through its peer.
struct LoneGrid
{
    LoneGrid()
    {
        grid.setBounds (0, 0, 270, 324);
        grid.Initialize ({ 45, 95, 85, 0 });
        grid.addToDesktop (0);
        grid.setVisible (true);
    }

    void mouse (juce::Point<float> p, Mods mods)
    {
        Mods::currentModifiers = mods;
        grid.getPeer()->handleMouseEvent (juce::MouseInputSource::InputSourceType::mouse, p, mods,
                                          juce::MouseInputSource::defaultPressure, 0.0f, ++clock);
    }
    // A second after the last event, so that two presses never make a double click.
    void press (juce::Point<float> p, Mods mods = Mods::leftButtonModifier)
    {
        clock += 1000;
        mouse (p, {});
        mouse (p, mods);
    }
    void click (juce::Point<float> p, Mods mods = Mods::leftButtonModifier)
    {
        press (p, mods);
        mouse (p, {});
        pump();
    }
    void moveHeld (float x, float y) { mouse ({ x, y }, Mods::leftButtonModifier); }
    void wheel (float deltaY)
    {
        juce::MouseWheelDetails details {};
        details.deltaY = deltaY;
        grid.getPeer()->handleMouseWheel (juce::MouseInputSource::InputSourceType::mouse, { 100.0f, 100.0f }, ++clock, details);
    }

    // The word of a stored program in the grid's own copy of the bank.
    void setWord (int bank, int program, int word, int value)
    {
        auto words = grid.gridBanks[(size_t) bank]->getStoredProgram (program);
        words.set (word, (unsigned short) value);
        grid.gridBanks[(size_t) bank]->setStoredProgram (program, words);
    }

    juce::Image render()
    {
        grid.repaint();
        return grid.createComponentSnapshot (grid.getLocalBounds());
    }

    IvrGrid grid;
    juce::int64 clock = juce::Time::currentTimeMillis();
};

// The area where two images differ, empty when they are the same.
juce::Rectangle<int> difference (const juce::Image& a, const juce::Image& b, juce::Rectangle<int> area)
{
    juce::Rectangle<int> found;
    for (int y = area.getY(); y < area.getBottom(); ++y)
        for (int x = area.getX(); x < area.getRight(); ++x)
            if (a.getPixelAt (x, y) != b.getPixelAt (x, y))
                found = found.isEmpty() ? juce::Rectangle<int> (x, y, 1, 1) : found.getUnion ({ x, y, 1, 1 });
    return found;
}

struct GridWindow : ::testing::Test, EditorHarness
{
    void SetUp() override { openReady(); }

    BankComp& banks() { return *main().bankPanel; }
    IvrGrid& grid() { return banks().grid; }
};
} // namespace

TEST (Grid, PressOnARowSelectsItAndTellsWhichMenu)
{
    const Mods right (Mods::rightButtonModifier), ctrl (Mods::leftButtonModifier | Mods::ctrlModifier);
    const struct { float x; Mods mods; int action; } cases[] = {
        { 20, Mods::leftButtonModifier, IvrGrid::actionRow },   { 200, Mods::leftButtonModifier, IvrGrid::actionRow },
        { 20, right, IvrGrid::actionProgramMenu },              { 129, right, IvrGrid::actionProgramMenu },
        { 130, right, IvrGrid::actionCategoryMenu },            { 220, right, IvrGrid::actionCategoryMenu },
        { 100, ctrl, IvrGrid::actionProgramMenu },              { 150, ctrl, IvrGrid::actionCategoryMenu },
    };

    LoneGrid lone;
    auto& grid = lone.grid;
    grid.Populate (0, 3);
    grid.firstRow = 10;
    for (const auto& c : cases)
    {
        SCOPED_TRACE (juce::String (c.x) + " mods " + juce::String (c.mods.getRawFlags()));
        grid.action = 0;
        lone.click ({ c.x, 2 * 36 + 5.0f }, c.mods);
        EXPECT_EQ (grid.action, c.action);
        EXPECT_EQ (grid.selectedRow, 12);
        EXPECT_EQ (grid.selectedBank, 3);
        EXPECT_EQ (grid.selectedProgram, 12);
    }

    // A second press at once is a double click.
    lone.click ({ 20, 5 });
    lone.mouse ({ 20, 5 }, Mods::leftButtonModifier);
    lone.mouse ({ 20, 5 }, {});
    pump();
    EXPECT_EQ (grid.action, IvrGrid::actionDoubleClick);

    // The left edge of the scroll bar's strip and the strip select nothing; nor does an empty list.
    grid.action = 0;
    for (float x : { 234.0f, 250.0f })
        lone.click ({ x, 40 });
    EXPECT_EQ (grid.selectedRow, 10);
    grid.Populate (5, 0);
    lone.click ({ 20, 5 });
    EXPECT_EQ (grid.selectedRow, -1);
    EXPECT_EQ (grid.action, 0);
}

TEST (Grid, ByCategoryListsEveryBankInBankThenProgramOrder)
{
    LoneGrid lone;
    // All programs are of category 0 but these; the high byte of word 150 plays no part.
    for (auto [bank, program] : { std::pair { 7, 2 }, { 3, 64 }, { 0, 127 }, { 3, 0 }, { 7, 127 } })
        lone.setWord (bank, program, 150, 5);
    lone.setWord (4, 9, 150, 0x105);
    lone.setWord (6, 1, 150, 0x500);

    const struct { int category; std::vector<std::pair<int, int>> rows; } cases[] = {
        { 5, { { 0, 127 }, { 3, 0 }, { 3, 64 }, { 4, 9 }, { 7, 2 }, { 7, 127 } } },
        { 6, {} },
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE (c.category);
        lone.grid.Populate (1, c.category);
        std::vector<std::pair<int, int>> rows;
        for (int row = 0; row < lone.grid.rowCount; ++row)
            rows.emplace_back (lone.grid.rowBanks[row], lone.grid.rowPrograms[row]);
        EXPECT_EQ (rows, c.rows);
    }
    lone.grid.Populate (1, 0);
    EXPECT_EQ (lone.grid.rowCount, 8 * 128 - 6);
    EXPECT_EQ (lone.grid.FormatBANK (lone.grid.rowCount - 1), "H:127");
}

TEST (Grid, WheelMovesOneRowPerEvent)
{
    const struct { float delta; int firstRow; } steps[] = {
        { 0.5f, 0 }, { -0.02f, 1 }, { -1.0f, 2 }, { -40.0f, 3 }, { 0.0f, 3 }, { 7.0f, 2 }, { 0.01f, 1 },
    };
    LoneGrid lone;
    lone.grid.Populate (0, 0);
    for (const auto& step : steps)
    {
        lone.wheel (step.delta);
        EXPECT_EQ (lone.grid.firstRow, step.firstRow) << "delta " << step.delta;
    }

    // At the end the last rows keep filling the view.
    lone.grid.showProgram (0, 127);
    lone.wheel (-1.0f);
    EXPECT_EQ (lone.grid.firstRow, 128 - 9);
    lone.wheel (1.0f);
    EXPECT_EQ (lone.grid.firstRow, 128 - 10);
}

// Held in the list, the mouse scrolls a row per movement below or above it, nothing inside it.
TEST (Grid, DraggingOutsideTheListScrolls)
{
    LoneGrid lone;
    lone.grid.Populate (0, 1);
    const struct { float y; int firstRow; } steps[] = {
        { 330, 1 }, { 340, 2 }, { 350, 3 }, { 200, 3 }, { -4, 2 }, { -8, 1 }, { -12, 0 }, { -16, 0 },
    };
    lone.press ({ 60, 40 });
    for (const auto& step : steps)
    {
        lone.moveHeld (60, step.y);
        EXPECT_EQ (lone.grid.firstRow, step.firstRow) << "mouse at " << step.y;
    }
    lone.mouse ({ 60, -16 }, {});
}

TEST (Grid, ScrollBarOnlyWhenRowsDoNotFit)
{
    LoneGrid lone;
    const juce::Rectangle<int> strip (234, 0, 36, 324);
    lone.grid.Populate (2, 0);
    const auto empty = lone.render();

    // Nine rows fill the view exactly.
    for (const auto& [rows, bar] : { std::pair { 9, false }, { 10, true }, { 128, true } })
    {
        for (int program = 0; program < 128; ++program)
            lone.setWord (6, program, 150, program < rows ? 9 : 0);
        lone.grid.Populate (1, 9);
        ASSERT_EQ (lone.grid.rowCount, rows);
        EXPECT_EQ (! difference (empty, lone.render(), strip).isEmpty(), bar) << rows << " rows";
    }
}

TEST_F (GridWindow, OpensOnTheCurrentProgram)
{
    const struct { int bank, program, firstRow; } cases[] = { { 1, 100, 100 }, { 6, 125, 119 } };
    for (const auto& c : cases)
    {
        state().bankNumber = c.bank;
        state().programNumber = c.program;
        toggleBanks();
        ASSERT_TRUE (main().bankPanelShown);
        EXPECT_EQ (grid().rowBanks[0], c.bank);
        EXPECT_EQ (grid().selectedRow, c.program);
        EXPECT_EQ (grid().firstRow, c.firstRow);
        toggleBanks();
        EXPECT_FALSE (main().bankPanelShown);
    }
}
