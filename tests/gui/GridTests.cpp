// The program grid and the bank window: a grid on its own window where the grid alone decides,
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
// A grid of the bank window's size in a window of its own, driven through its peer.
struct LoneGrid
{
    LoneGrid()
    {
        grid.setBounds (0, 0, 270, 324);
        grid.Initialize ({ 45, 95, 85, 0 });
        grid.addToDesktop (0);
        grid.setVisible (true);
    }

    void mouse (juce::Point<float> p, juce::ModifierKeys mods)
    {
        juce::ModifierKeys::currentModifiers = mods;
        grid.getPeer()->handleMouseEvent (juce::MouseInputSource::InputSourceType::mouse, p, mods,
                                          juce::MouseInputSource::defaultPressure, 0.0f, ++clock);
    }
    // A press a second after the last event, so that two presses never make a double click.
    void press (juce::Point<float> p, juce::ModifierKeys mods = juce::ModifierKeys::leftButtonModifier)
    {
        clock += 1000;
        mouse (p, {});
        mouse (p, mods);
    }
    void moveHeld (juce::Point<float> p) { mouse (p, juce::ModifierKeys::leftButtonModifier); }
    void release (juce::Point<float> p)
    {
        mouse (p, {});
        pump();
    }
    void wheel (float deltaY)
    {
        juce::MouseWheelDetails details {};
        details.deltaY = deltaY;
        grid.getPeer()->handleMouseWheel (juce::MouseInputSource::InputSourceType::mouse, { 100.0f, 100.0f }, ++clock, details);
    }

    // Sets the category byte (the low byte of word 150) of a stored program.
    void setCategory (int bank, int program, int category)
    {
        static_cast<unsigned char*> (grid.gridBanks[(size_t) bank]->bankData.getData())[program * AutoBank::programBytes + 300] = (unsigned char) category;
    }

    void setName (int bank, int program, const juce::String& name)
    {
        auto words = grid.gridBanks[(size_t) bank]->getStoredProgram (program);
        for (int i = 0; i < 24; ++i)
            words.set (151 + i, (unsigned short) name[i]);
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

    IvrBut& toolButton (const juce::String& label)
    {
        for (auto* button : main().appBar->buttons)
            if (button->label == label)
                return *button;
        throw std::runtime_error ("no tool-bar button " + label.toStdString());
    }

    void openBanks()
    {
        click (centreOf (toolButton ("BANK")));
        ASSERT_TRUE (main().bankPanelShown);
    }

    BankComp& banks() { return *main().bankPanel; }
    IvrGrid& grid() { return banks().grid; }
};
} // namespace

TEST (Grid, PressOnARowSelectsItAndTellsWhichMenu)
{
    const struct
    {
        float x;
        juce::ModifierKeys mods;
        int action;
    } cases[] = {
        { 20.0f, juce::ModifierKeys::leftButtonModifier, IvrGrid::actionRow },
        { 200.0f, juce::ModifierKeys::leftButtonModifier, IvrGrid::actionRow },
        { 20.0f, juce::ModifierKeys::rightButtonModifier, IvrGrid::actionProgramMenu },
        { 129.0f, juce::ModifierKeys::rightButtonModifier, IvrGrid::actionProgramMenu },
        { 130.0f, juce::ModifierKeys::rightButtonModifier, IvrGrid::actionCategoryMenu },
        { 220.0f, juce::ModifierKeys::rightButtonModifier, IvrGrid::actionCategoryMenu },
        { 100.0f, juce::ModifierKeys (juce::ModifierKeys::leftButtonModifier | juce::ModifierKeys::ctrlModifier), IvrGrid::actionProgramMenu },
        { 150.0f, juce::ModifierKeys (juce::ModifierKeys::leftButtonModifier | juce::ModifierKeys::ctrlModifier), IvrGrid::actionCategoryMenu },
    };

    LoneGrid lone;
    auto& grid = lone.grid;
    grid.Populate (0, 3);
    grid.firstRow = 10;
    for (const auto& c : cases)
    {
        SCOPED_TRACE (juce::String (c.x) + " mods " + juce::String (c.mods.getRawFlags()));
        grid.action = 0;
        lone.press ({ c.x, 2 * 36 + 5.0f }, c.mods);
        lone.release ({ c.x, 2 * 36 + 5.0f });
        EXPECT_EQ (grid.action, c.action);
        EXPECT_EQ (grid.selectedRow, 12);
        EXPECT_EQ (grid.selectedBank, 3);
        EXPECT_EQ (grid.selectedProgram, 12);
    }

    // A second press at once is a double click.
    lone.press ({ 20.0f, 5.0f });
    lone.release ({ 20.0f, 5.0f });
    lone.mouse ({ 20.0f, 5.0f }, juce::ModifierKeys::leftButtonModifier);
    lone.release ({ 20.0f, 5.0f });
    EXPECT_EQ (grid.action, IvrGrid::actionDoubleClick);

    // The strip of the scroll bar and its left edge select nothing.
    for (float x : { 234.0f, 250.0f })
    {
        grid.action = 0;
        lone.press ({ x, 5.0f });
        lone.release ({ x, 5.0f });
        EXPECT_EQ (grid.action, 0);
        EXPECT_EQ (grid.selectedRow, 10);
    }

    // In an empty list a press selects nothing and says nothing.
    grid.Populate (5, 0);
    lone.press ({ 20.0f, 5.0f });
    lone.release ({ 20.0f, 5.0f });
    EXPECT_EQ (grid.selectedRow, -1);
    EXPECT_EQ (grid.action, 0);
}

TEST (Grid, ByCategoryListsEveryBankInOrder)
{
    LoneGrid lone;
    // Every program is "- Not Assigned -" (0) but these; word 150's high byte plays no part.
    const std::pair<int, int> pads[] = { { 0, 127 }, { 3, 0 }, { 3, 64 }, { 7, 2 }, { 7, 127 } };
    for (auto [bank, program] : pads)
        lone.setCategory (bank, program, 5);
    auto words = lone.grid.gridBanks[4]->getStoredProgram (9);
    words.set (150, 0x105);
    lone.grid.gridBanks[4]->setStoredProgram (9, words);

    const struct
    {
        int category;
        std::vector<std::pair<int, int>> rows;
    } cases[] = {
        { 5, { { 0, 127 }, { 3, 0 }, { 3, 64 }, { 4, 9 }, { 7, 2 }, { 7, 127 } } },
        { 6, {} },
        { 1, { { 4, 9 } } },
    };
    for (const auto& c : cases)
    {
        if (c.category == 1)
            lone.setCategory (4, 9, 1);
        lone.grid.Populate (1, c.category);
        SCOPED_TRACE (c.category);
        ASSERT_EQ (lone.grid.rowCount, (int) c.rows.size());
        for (int row = 0; row < lone.grid.rowCount; ++row)
        {
            EXPECT_EQ (lone.grid.rowBanks[row], c.rows[(size_t) row].first);
            EXPECT_EQ (lone.grid.rowPrograms[row], c.rows[(size_t) row].second);
        }
    }
    lone.grid.Populate (1, 0);
    EXPECT_EQ (lone.grid.rowCount, 8 * 128 - 6);
    EXPECT_EQ (lone.grid.FormatBANK (lone.grid.rowCount - 1), "H:127");
}

TEST (Grid, WheelMovesOneRowPerEvent)
{
    const struct
    {
        float delta;
        int firstRow;
    } steps[] = {
        { 0.5f, 0 }, { -0.02f, 1 }, { -1.0f, 2 }, { -40.0f, 3 }, { 0.0f, 3 }, { 7.0f, 2 }, { 0.01f, 1 },
    };
    LoneGrid lone;
    lone.grid.Populate (0, 0);
    for (const auto& step : steps)
    {
        lone.wheel (step.delta);
        EXPECT_EQ (lone.grid.firstRow, step.firstRow) << "delta " << step.delta;
    }

    // At the end the list stays with its last rows filling the view.
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

    // The thumb: 119 rows over 281 pixels of travel, counted from the thumb's height down.
    const struct
    {
        float y;
        int firstRow;
    } thumb[] = { { 143.0f, 42 }, { 330.0f, 119 }, { 600.0f, 119 }, { 60.0f, 7 }, { 20.0f, 0 } };
    lone.press ({ 250.0f, 30.0f });
    for (const auto& step : thumb)
    {
        lone.moveHeld ({ 252.0f, step.y });
        EXPECT_EQ (grid.firstRow, step.firstRow) << "y " << step.y;
    }
    lone.release ({ 252.0f, 20.0f });
    EXPECT_EQ (grid.selectedRow, -1);

    // Held in the list: a row per movement below or above it, nothing inside it.
    const struct
    {
        float y;
        int firstRow;
    } list[] = { { 330.0f, 1 }, { 340.0f, 2 }, { 350.0f, 3 }, { 200.0f, 3 }, { -4.0f, 2 }, { -8.0f, 1 }, { -12.0f, 0 }, { -16.0f, 0 } };
    lone.press ({ 60.0f, 40.0f });
    for (const auto& step : list)
    {
        lone.moveHeld ({ 60.0f, step.y });
        EXPECT_EQ (grid.firstRow, step.firstRow) << "y " << step.y;
    }
    lone.release ({ 60.0f, -16.0f });

    grid.showProgram (1, 127);
    lone.press ({ 60.0f, 40.0f });
    lone.moveHeld ({ 60.0f, 400.0f });
    lone.moveHeld ({ 60.0f, 410.0f });
    lone.release ({ 60.0f, 410.0f });
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
            lone.setCategory (6, program, program < rows ? 9 : 0);
        lone.grid.Populate (1, 9);
        ASSERT_EQ (lone.grid.rowCount, rows);
        EXPECT_EQ (! difference (empty, lone.render(), strip).isEmpty(), bar) << rows << " rows";
    }
}

TEST (Grid, NameShowsTwelveCharactersPerLine)
{
    LoneGrid lone;
    const juce::String wide = juce::String::repeatedString ("W", 24);
    lone.setName (0, 0, wide);
    lone.grid.Populate (0, 0);
    const auto before = lone.render();

    // Line 1 has its baseline at 17, line 2 at 31; the name starts at x 51.
    const struct
    {
        int character;
        int line;
        bool atLineStart;
    } cases[] = { { 0, 1, true }, { 11, 1, false }, { 12, 2, true }, { 23, 2, false } };
    for (const auto& c : cases)
    {
        SCOPED_TRACE (c.character);
        lone.setName (0, 0, wide.replaceSection (c.character, 1, "i"));
        const auto changed = difference (before, lone.render(), { 0, 3, 234, 33 });
        ASSERT_FALSE (changed.isEmpty());
        EXPECT_TRUE (c.line == 1 ? changed.getBottom() <= 19 : changed.getY() >= 19);
        EXPECT_EQ (changed.getX() < 70, c.atLineStart);
    }
}

TEST_F (GridWindow, OpensOnTheCurrentProgram)
{
    const struct
    {
        int bank, program, firstRow;
    } cases[] = { { 1, 100, 100 }, { 6, 125, 119 }, { 7, 3, 3 } };
    for (const auto& c : cases)
    {
        state().bankNumber = c.bank;
        state().programNumber = c.program;
        openBanks();
        EXPECT_EQ (grid().rowBanks[0], c.bank);
        EXPECT_EQ (grid().selectedRow, c.program);
        EXPECT_EQ (grid().firstRow, c.firstRow);
        EXPECT_TRUE (banks().bankButtons[c.bank]->toggleState);
        click (centreOf (toolButton ("BANK")));
        EXPECT_FALSE (main().bankPanelShown);
    }
}

TEST_F (GridWindow, BankButtonsListTheirBank)
{
    openBanks();
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

    // The grid lists what the bank holds: a row press selects that program.
    const auto row = at (grid(), { 100, 36 * 4 + 10 });
    press (row);
    release (row);
    pump();
    EXPECT_EQ (grid().action, IvrGrid::actionRow);
    EXPECT_EQ (grid().selectedRow, 4);
    EXPECT_EQ (grid().selectedBank, 0);
    EXPECT_EQ (grid().selectedProgram, 4);
}

TEST_F (GridWindow, CheckAndLibrary)
{
    openBanks();
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
