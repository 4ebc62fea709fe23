// The program grid and the bank window: a grid in a window of its own where the grid alone decides,
// the real editor where the bank window's buttons reach MainComp.

#include "EditorHarness.h"
#include "device/MidiCntrState.h"
#include "librarian/BankComp.h"
#include "librarian/IvrGrid.h"
#include "librarian/LibComp.h"
#include "sound/AutoBank.h"

#include <stdexcept>
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

    void toggleBanks()
    {
        for (auto* button : main().appBar->buttons)
            if (button->label == "BANK")
                return click (centreOf (*button));
        throw std::runtime_error ("no BANK button");
    }

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

TEST (Grid, DraggingScrolls)
{
    LoneGrid lone;
    auto& grid = lone.grid;
    grid.Populate (0, 1);

    // On the thumb: 119 rows over 281 pixels of travel, counted from the thumb's height down.
    const struct { float y; int firstRow; } thumb[] = { { 143, 42 }, { 330, 119 }, { 600, 119 }, { 60, 7 }, { 20, 0 } };
    lone.press ({ 250, 30 });
    for (const auto& step : thumb)
    {
        lone.moveHeld (252, step.y);
        EXPECT_EQ (grid.firstRow, step.firstRow) << "thumb at " << step.y;
    }
    lone.mouse ({ 252, 20 }, {});
    EXPECT_EQ (grid.selectedRow, -1);

    // Held in the list: a row per movement below or above it, nothing inside it.
    const struct { float y; int firstRow; } list[] = {
        { 330, 1 }, { 340, 2 }, { 350, 3 }, { 200, 3 }, { -4, 2 }, { -8, 1 }, { -12, 0 }, { -16, 0 },
    };
    lone.press ({ 60, 40 });
    for (const auto& step : list)
    {
        lone.moveHeld (60, step.y);
        EXPECT_EQ (grid.firstRow, step.firstRow) << "mouse at " << step.y;
    }
    lone.mouse ({ 60, -16 }, {});

    grid.showProgram (1, 127);
    lone.press ({ 60, 40 });
    lone.moveHeld (60, 400);
    lone.moveHeld (60, 410);
    lone.mouse ({ 60, 410 }, {});
    EXPECT_EQ (grid.firstRow, 119);
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

TEST (Grid, NameShowsTwelveCharactersPerLine)
{
    // The widest letter everywhere, then one narrow letter in its place: the change shows on the
    // line of that character, at its start or at its end. Line 1 has its baseline at 17, line 2 at
    // 31, and the name starts at x 51.
    LoneGrid lone;
    const auto setName = [&] (int narrow)
    {
        for (int i = 0; i < 24; ++i)
            lone.setWord (0, 0, 151 + i, i == narrow ? 'i' : 'W');
    };
    setName (-1);
    lone.grid.Populate (0, 0);
    const auto before = lone.render();

    const struct { int character, line; bool atLineStart; } cases[] = { { 0, 1, true }, { 11, 1, false }, { 12, 2, true }, { 23, 2, false } };
    for (const auto& c : cases)
    {
        SCOPED_TRACE (c.character);
        setName (c.character);
        const auto changed = difference (before, lone.render(), { 0, 3, 234, 33 });
        ASSERT_FALSE (changed.isEmpty());
        EXPECT_TRUE (c.line == 1 ? changed.getBottom() <= 19 : changed.getY() >= 19);
        EXPECT_EQ (changed.getX() < 70, c.atLineStart);
    }
}

TEST_F (GridWindow, OpensOnTheCurrentProgram)
{
    const struct { int bank, program, firstRow; } cases[] = { { 1, 100, 100 }, { 6, 125, 119 }, { 7, 3, 3 } };
    for (const auto& c : cases)
    {
        state().bankNumber = c.bank;
        state().programNumber = c.program;
        toggleBanks();
        ASSERT_TRUE (main().bankPanelShown);
        EXPECT_EQ (grid().rowBanks[0], c.bank);
        EXPECT_EQ (grid().selectedRow, c.program);
        EXPECT_EQ (grid().firstRow, c.firstRow);
        EXPECT_TRUE (banks().bankButtons[c.bank]->toggleState);
        toggleBanks();
        EXPECT_FALSE (main().bankPanelShown);
    }
}

TEST_F (GridWindow, BankButtonsListTheirBank)
{
    toggleBanks();
    for (int bank : { 2, 7, 0 })
    {
        click (centreOf (*banks().bankButtons[bank]));
        EXPECT_EQ (grid().rowCount, 128);
        EXPECT_EQ (grid().rowBanks[127], bank);
        EXPECT_EQ (banks().shownMode, 0);
        EXPECT_EQ (banks().shownValue, bank);
        for (int other = 0; other < 8; ++other)
            EXPECT_EQ (banks().bankButtons[other]->toggleState, other == bank) << other;
        EXPECT_FALSE (banks().categoryButton.toggleState);
    }

    // A press on the fifth row shown selects program 5 of the bank.
    click (at (grid(), { 100, 36 * 4 + 10 }));
    EXPECT_EQ (grid().action, IvrGrid::actionRow);
    EXPECT_EQ (grid().selectedRow, 4);
    EXPECT_EQ (grid().selectedBank, 0);
    EXPECT_EQ (grid().selectedProgram, 4);
}

TEST_F (GridWindow, CheckAndLibrary)
{
    toggleBanks();
    for (bool expected : { true, false, true })
    {
        click (at (banks().useLoadedDataCheck, { 8, 7 }));
        EXPECT_EQ (main().useLoadedData, expected);
    }

    auto& library = *banks().library;
    EXPECT_FALSE (library.isVisible());
    click (centreOf (banks().libraryButton));
    ASSERT_TRUE (library.isShowing());
    EXPECT_EQ (library.getBounds(), banks().getLocalBounds());

    // The library's own buttons reach nothing beyond it.
    const int code = banks().actionCode;
    click (centreOf (library.fileButton));
    click (at (library.useLoadedDataCheck, { 8, 7 }));
    pump (100);
    EXPECT_TRUE (openMenus().empty());
    EXPECT_EQ (banks().actionCode, code);
    EXPECT_TRUE (main().useLoadedData);
}
