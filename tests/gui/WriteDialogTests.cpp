// The write dialog as a user works it: WRITE, a bank and a row, the name typed into the display's
// name editor, a category, OK; the program lands at that place, goes to the instrument, and is in
// the data file once the processor has gone.

#include "EditorHarness.h"
#include "device/MidiCntrState.h"
#include "librarian/BankComp.h"
#include "librarian/RenameCnt.h"
#include "librarian/WriteSnd.h"
#include "sound/AutoBank.h"

#include <memory>

namespace
{
constexpr int dataHeadBytes = 14; // "*CorvaneData >"

struct WriteDialog : ::testing::Test, EditorHarness
{
    WriteDialog() { openReady(); }

    WriteSnd& dialog() { return *main().writeDialog; }
    LCD_Comp& lcd() { return dialog().lcd; }

    void clickWrite()
    {
        for (auto* b : main().appBar->buttons)
            if (b->id == 969)
                return click (centreOf (*b));
        FAIL() << "no WRITE button";
    }

    // A row of the grid that is in view: the middle of its name column.
    void clickRow (int program)
    {
        auto& grid = dialog().grid;
        click (at (grid, { 100, (program - grid.firstRow) * grid.rowHeight + grid.rowHeight / 2 }));
    }

    void clickName() { click (at (lcd(), { 60, 30 })); }

    // Selects all of the focused field and types `text` over it, key by key through the window.
    void typeOver (const juce::String& text)
    {
        auto* peer = editor->getPeer();
        peer->handleKeyPress (juce::KeyPress ('a', juce::ModifierKeys::commandModifier, 0));
        peer->handleKeyPress (juce::KeyPress (juce::KeyPress::backspaceKey));
        for (auto c : text)
            peer->handleKeyPress (juce::KeyPress ((int) c, {}, c));
        pump();
    }

    // The name editor opened from the display, both lines typed, closed by OK or Cancel.
    void rename (const juce::String& first, const juce::String& second, bool ok)
    {
        clickName();
        auto* box = dialog().renameBox.get();
        ASSERT_NE (box, nullptr);
        ASSERT_TRUE (box->firstEditor.hasKeyboardFocus (false));
        typeOver (first);
        click (centreOf (box->secondEditor));
        ASSERT_TRUE (box->secondEditor.hasKeyboardFocus (false));
        typeOver (second);
        click (centreOf (ok ? box->okButton : box->cancelButton));
        EXPECT_EQ (dialog().renameBox, nullptr);
        EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr) << "the host gets the keyboard back";
    }

    static juce::String nameIn (const juce::Array<unsigned short>& words)
    {
        juce::String name;
        for (int i = 151; i < 175; ++i)
            name << juce::String::charToString ((juce::juce_wchar) words[i]);
        return name;
    }
};
} // namespace

TEST_F (WriteDialog, OkWritesNameAndCategoryToTheChosenPlaceAndTheDataFileKeepsIt)
{
    struct Case { const char *first, *second, *stored; int bank, program, category; };
    for (const auto& c : { Case { "ABCDEFGHIJKLMNO", "Warm pad", "ABCDEFGHIJKLWarm pad    ", 2, 6, 17 },
                           Case { "", "", "                        ", 6, 1, 5 } })
    {
        SCOPED_TRACE (c.stored);
        if (editor == nullptr)
            openReady();
        const auto before = storesNow();
        const auto working = state().editBuffer->patchData;

        clickWrite();
        ASSERT_NE (main().writeDialog, nullptr);
        click (centreOf (*dialog().bankButtons[c.bank]));
        clickRow (c.program);
        rename (c.first, c.second, true);
        click (at (lcd(), { 60, 58 })); // the category line
        ASSERT_TRUE (chooseMenu ({ AutoBank::Category (c.category) }));
        sent();

        click (centreOf (dialog().okButton));
        EXPECT_EQ (main().writeDialog, nullptr);
        auto& store = *state().banks[(size_t) c.bank];
        const auto stored = store.getStoredProgram (c.program);
        EXPECT_EQ (nameIn (stored), c.stored);
        EXPECT_EQ (stored[150], c.category);
        for (int i = 0; i < 150; ++i)
            ASSERT_EQ (stored[i], working[i]) << "the working program's sound, word " << i;

        // Only that program changed, and only that program went to the instrument.
        auto rest = storesNow();
        const int offset = c.program * AutoBank::programBytes;
        std::copy_n (before[(size_t) c.bank].begin() + offset, AutoBank::programBytes, rest[(size_t) c.bank].begin() + offset);
        EXPECT_EQ (rest, before);
        const auto frame = store.Export_Syx_Bank_Rom_MB (c.program, c.program, state().deviceId, 0);
        const auto* f = static_cast<const juce::uint8*> (frame.getData());
        EXPECT_EQ (sentBytes(), (std::vector<std::vector<int>> { { f, f + frame.getSize() } }));

        // The bank window's grid lists from its own copy, which follows.
        EXPECT_EQ (nameIn (main().bankPanel->grid.gridBanks[(size_t) c.bank]->getStoredProgram (c.program)), c.stored);

        const auto file = restartProcessor();
        ASSERT_EQ (file.getSize(), (size_t) MidiCntrState::dataFileBytes);
        juce::Array<unsigned short> words;
        const auto* record = file.begin() + dataHeadBytes + c.bank * AutoBank::bankBytes + offset;
        for (int i = 0; i < AutoBank::numParameters; ++i)
            words.add ((unsigned short) ((juce::uint8) record[2 * i] | ((juce::uint8) record[2 * i + 1] << 8)));
        EXPECT_EQ (words, stored);
        EXPECT_EQ (state().banks[(size_t) c.bank]->getStoredProgram (c.program), stored);
    }
}

TEST_F (WriteDialog, CancelsChangeNothing)
{
    state().bankNumber = 1;
    state().programNumber = 40;
    const auto before = storesNow();
    const auto working = state().editBuffer->patchData;
    const auto name = state().editBuffer->PatchGetName();

    clickWrite();
    ASSERT_NE (main().writeDialog, nullptr);
    EXPECT_EQ (lcd().positionLine, "B:041");
    auto& grid = dialog().grid;
    EXPECT_TRUE (grid.selectedRow >= grid.firstRow && grid.selectedRow < grid.firstRow + grid.visibleRows()) << "scrolled to";

    // The name editor's Cancel keeps the name on the display.
    rename ("Something", "else", false);
    EXPECT_EQ (lcd().fullName, name);

    // A row and a category chosen, then the dialog's Cancel: nothing is stored or sent.
    clickRow (3);
    click (at (lcd(), { 60, 58 }));
    ASSERT_TRUE (chooseMenu ({ "Sync" }));
    sent();
    click (centreOf (dialog().cancelButton));
    EXPECT_EQ (main().writeDialog, nullptr);
    EXPECT_TRUE (sentBytes().empty());
    EXPECT_EQ (storesNow(), before);
    EXPECT_EQ (state().editBuffer->patchData, working);

    // The dialog and the editor may close with the name editor open and typing.
    clickWrite();
    clickName();
    click (centreOf (dialog().cancelButton));
    EXPECT_EQ (main().writeDialog, nullptr);
    EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr);
    clickWrite();
    clickName();
    ASSERT_NE (dialog().renameBox, nullptr);
    closeEditor();
    EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr);
}
