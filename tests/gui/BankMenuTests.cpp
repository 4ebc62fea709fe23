// The bank window's menus and its grid as a user works them: the "BANK" button, the window's buttons,
// presses on the grid's rows, menus chosen by mouse and JUCE's own file dialog, against the virtual
// Corvane on in-process MIDI.

#include "FileDialogDriver.h"
#include "librarian/BankComp.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"

namespace
{
using Bytes = std::vector<int>;

Bytes bytesOf (const juce::MemoryBlock& block)
{
    auto* data = static_cast<const unsigned char*> (block.getData());
    return { data, data + block.getSize() };
}

// Parameters 75 and 110 don't come through the dump's writer and reader unchanged for every value
// (75 takes bit 1 of the parameter it names, 110 gains the top bit of 101); these values do, so that a
// program saved and loaded again must come back whole.
void makeDumpSafe (AutoBank& bank, int program)
{
    auto words = bank.getStoredProgram (program);
    words.set (75, 0);
    words.set (0, (unsigned short) (words[0] & ~2));
    words.set (101, (unsigned short) (words[101] & 63));
    words.set (110, (unsigned short) (words[110] & ~1));
    bank.setStoredProgram (program, words);
}

struct BankMenus : ::testing::Test, EditorHarness
{
    BankMenus()
    {
        openReady();
        main().fileManager->nativeDialogs = false;
        toggleBanks();
        sent();
        host.changes.clear();
    }

    BankComp& banks() { return *main().bankPanel; }
    IvrGrid& grid() { return banks().grid; }
    AutoBank& bank (int b) { return *state().banks[(size_t) b]; }

    // The stores now, with the grid's own copies checked to follow them.
    std::vector<Bytes> stores()
    {
        for (int b = 0; b < 8; ++b)
            EXPECT_EQ (grid().gridBanks[(size_t) b]->bankData, bank (b).bankData) << "the grid's copy of bank " << b;
        return storesNow();
    }

    // A press of a bank window button, then the menu items of `path`; a file dialog, if one opens,
    // answered with `file`.
    bool buttonMenu (IvrBut& b, const juce::StringArray& path, const juce::File& file = {}, const char* answerButton = "Open")
    {
        click (centreOf (b));
        return chooseMenu (path) && answered (file, answerButton);
    }

    bool answered (const juce::File& file, const char* answerButton)
    {
        if (file == juce::File())
            return true;
        const bool ok = answer (file, answerButton) == "";
        pump (100);
        return ok;
    }

    void listBank (int b) { click (centreOf (*banks().bankButtons[b])); }

    // Row `row` of the view at `x` of the grid.
    juce::Point<float> row (int r, int x = 60) { return at (grid(), { x, r * grid().rowHeight + grid().rowHeight / 2 }); }

    // The program menu of row `r` of the listed bank, its item `item`, and the file dialog if any.
    bool programMenu (int r, const juce::String& item, const juce::File& file = {}, const char* answerButton = "Open")
    {
        rightPress (row (r));
        return chooseMenu ({ item }) && answered (file, answerButton);
    }

    ScratchFolder scratch;
};
} // namespace

TEST_F (BankMenus, GridProgramMenuCopiesPastesSavesLoadsAndInitializesOneProgram)
{
    auto& b = bank (1);
    makeDumpSafe (b, 2);
    listBank (1);
    const auto name = [&b] (int p) { return b.get_ProgramName (p); };
    const auto original = b.getStoredProgram (2);
    const auto bankBefore = b.bankData;
    const auto before = stores();

    // An empty paste buffer reads as a single space, and choosing it does nothing.
    ASSERT_TRUE (programMenu (5, " "));
    ASSERT_TRUE (programMenu (2, "Copy " + name (2)));
    EXPECT_EQ (stores(), before);
    EXPECT_TRUE (sentBytes().empty());

    ASSERT_TRUE (programMenu (5, "Paste " + name (2)));
    EXPECT_EQ (b.getStoredProgram (5), original);
    EXPECT_EQ (sentBytes(), std::vector<Bytes> { bytesOf (b.Export_Syx_Bank_Rom_MB (5, 5, state().deviceId, 0)) });

    const auto file = scratch.dir.getChildFile ("one program");
    ASSERT_TRUE (programMenu (5, "Save " + name (5), file, "Save"));
    juce::MemoryBlock saved;
    file.loadFileAsData (saved);
    EXPECT_EQ (saved, b.Export_Syx_Bank_Buf_MB (5, 0));
    ASSERT_TRUE (programMenu (7, "Load Program ", file));
    EXPECT_EQ (b.getStoredProgram (7), original);

    AutoBank expected (1);
    expected.Initialize_Bank();
    const auto initial = expected.getStoredProgram (0);
    ASSERT_TRUE (programMenu (3, "Initialize " + name (3)));
    EXPECT_EQ (b.getStoredProgram (3), initial);
    EXPECT_TRUE (sentBytes().empty()); // only the paste goes to the instrument

    // No other program of any bank moved.
    expected.bankData = bankBefore;
    for (auto [place, words] : { std::pair { 5, original }, { 7, original }, { 3, initial } })
        expected.setStoredProgram (place, words);
    auto all = before;
    all[1] = bytesOf (expected.bankData);
    EXPECT_EQ (stores(), all);
}

TEST_F (BankMenus, SavedBankLoadsIntoAnotherByteForByte)
{
    for (int p = 0; p < AutoBank::numPrograms; ++p)
        makeDumpSafe (bank (2), p);
    const auto file = scratch.dir.getChildFile ("bank.syx");
    ASSERT_TRUE (buttonMenu (banks().fileButton, { "Save Program Bank ", "Bank C" }, file, "Save"));
    juce::MemoryBlock saved;
    file.loadFileAsData (saved);
    EXPECT_EQ (saved, FileMan::Bank_File_Data (bank (2)));

    ASSERT_NE (bank (4).bankData, bank (2).bankData);
    auto expected = storesNow(); // the grid's copy of bank C has not seen the edits above
    expected[4] = expected[2];
    ASSERT_TRUE (buttonMenu (banks().fileButton, { "Load Program Bank To ", "Bank E" }, file));
    EXPECT_EQ (stores(), expected);
    EXPECT_EQ (banks().shownValue, 4); // the grid lists the bank just loaded
    EXPECT_TRUE (sentBytes().empty());
}

// A program file loads by its first frame, wherever it starts; a bank file only at its exact size.
TEST_F (BankMenus, FilesThatDoNotFitChangeNothing)
{
    listBank (0);
    const auto frame = bank (3).Export_Syx_Bank_Buf_MB (9, 0);
    juce::MemoryBlock withText ("TOLK FILE\n", 10), longBank = FileMan::Bank_File_Data (bank (2));
    withText.append (frame.getData(), frame.getSize());
    const juce::MemoryBlock shortBank (longBank.getData(), longBank.getSize() - 1);
    longBank.append ("\0", 1);
    AutoBank loaded (0);
    loaded.bankData = bank (0).bankData;
    loaded.Import_Syx_MB (6, frame);
    const struct { const char* name; juce::MemoryBlock contents; bool bankFile; Bytes result; } cases[] = {
        { "154-byte frame", bank (3).Export_Syx_Bank_Rom_MB (9, 9, state().deviceId, 0), false, {} },
        { "ten bytes of text before a program frame", withText, false, bytesOf (loaded.bankData) },
        { "bank file of one byte more", longBank, true, {} },
        { "bank file of one byte less", shortBank, true, {} },
    };
    for (auto& c : cases)
    {
        SCOPED_TRACE (c.name);
        const auto file = scratch.dir.getChildFile ("file.syx");
        ASSERT_TRUE (file.replaceWithData (c.contents.getData(), c.contents.getSize()));
        auto expected = stores();
        if (! c.result.empty())
            expected[0] = c.result;
        ASSERT_EQ (expected == storesNow(), c.result.empty()) << "a file that loads changes bank A";
        ASSERT_TRUE (c.bankFile ? buttonMenu (banks().fileButton, { "Load Program Bank To ", "Bank A" }, file)
                                : programMenu (6, "Load Program ", file));
        EXPECT_EQ (stores(), expected);
    }
    EXPECT_TRUE (sentBytes().empty());
}

TEST_F (BankMenus, PresetsLoadTheCurrentBankFromTheChosenRecordAndInitializeTheChosenBank)
{
    AutoBank fresh (0);
    fresh.Initialize_Bank();
    const struct { const char* name; int current; juce::StringArray path; int changed, set, record; } cases[] = {
        { "Bank C of set 0 with bank B current", 1, { "Core Refresh ", "Bank C" }, 1, 0, 2 },
        { "Bank H of a one-bank set with bank D current", 3, { "Amber Set ", "Bank H" }, 3, 1, 7 },
        { "initialize another bank", 0, { "Initialize Program Bank ", "Bank G" }, 6, -1, 0 },
    };
    for (auto& c : cases)
    {
        SCOPED_TRACE (c.name);
        state().bankNumber = c.current;
        AutoBank preloaded (c.changed);
        preloaded.bankData = bank (c.changed).bankData;
        if (c.set >= 0)
            preloaded.PreloadFactoryData (c.set, c.record);
        auto expected = stores();
        expected[(size_t) c.changed] = bytesOf (c.set >= 0 ? preloaded.bankData : fresh.bankData);
        ASSERT_NE (storesNow(), expected);

        ASSERT_TRUE (buttonMenu (banks().presetsButton, c.path));
        EXPECT_EQ (stores(), expected);
        EXPECT_EQ (state().bankNumber, c.current);
    }
    EXPECT_TRUE (sentBytes().empty());
}

// In the category view each row stands for its own bank's program: a right press on it below x 130
// opens the program menu, from 130 up the category menu.
TEST_F (BankMenus, CategoryViewListsAllEightBanksAndItsRowsTakeBothMenus)
{
    constexpr int category = 25; // "Ring"
    for (int b = 0; b < 8; ++b)
    {
        auto words = bank (b).getStoredProgram (b * 17);
        words.set (150, (unsigned short) ((words[150] & 0xff00) | category));
        bank (b).setStoredProgram (b * 17, words);
    }
    juce::Array<int> rowBanks, rowPrograms;
    for (int b = 0; b < 8; ++b)
        for (int p = 0; p < 128; ++p)
            if ((bank (b).getStoredProgram (p)[150] & 0xff) == category)
                rowBanks.add (b), rowPrograms.add (p);

    ASSERT_TRUE (buttonMenu (banks().categoryButton, { AutoBank::Category (category) }));
    EXPECT_EQ (grid().rowBanks, rowBanks);
    EXPECT_EQ (grid().rowPrograms, rowPrograms);
    ASSERT_TRUE (rowBanks.contains (7));

    const auto before = stores();
    rightPress (row (1, 129));
    ASSERT_TRUE (chooseMenu ({ "Copy " + bank (rowBanks[1]).get_ProgramName (rowPrograms[1]) }));
    EXPECT_TRUE (main().copyBufferFull);
    EXPECT_EQ (stores(), before);

    const int r = 2, b = rowBanks[r], p = rowPrograms[r];
    AutoBank expected (b);
    expected.bankData = bank (b).bankData;
    auto words = expected.getStoredProgram (p);
    words.set (150, (unsigned short) ((words[150] & 0xff00) | 3));
    expected.setStoredProgram (p, words);
    auto after = before;
    after[(size_t) b] = bytesOf (expected.bankData);
    rightPress (row (r, 130));
    ASSERT_TRUE (chooseMenu ({ AutoBank::Category (3) }));
    EXPECT_EQ (stores(), after);
    EXPECT_TRUE (sentBytes().empty());
}

TEST_F (BankMenus, RowPressSelectsOnTheInstrumentAndHostOrLoadsTheStoredProgram)
{
    const int channel = state().midiChannel;
    // Bank A and program 1 included: the host's echo of a 0 stops at the host.
    for (auto [listed, pressed] : { std::pair { 2, 5 }, std::pair { 0, 0 } })
    {
        listBank (listed);
        host.changes.clear();
        sent();
        click (row (pressed));
        pump (100);
        const std::vector<Bytes> selection { { 0xB0 + channel - 1, 0, 0 }, { 0xB0 + channel - 1, 32, listed }, { 0xC0 + channel - 1, pressed } };
        const auto wire = sentBytes();
        ASSERT_GE (wire.size(), 3u);
        EXPECT_EQ (std::vector<Bytes> (wire.begin(), wire.begin() + 3), selection);
        for (auto& m : wire) // the host's echo may repeat the selection, nothing else
            EXPECT_NE (std::find (selection.begin(), selection.end(), m), selection.end());
        std::map<juce::String, float> last;
        for (auto [index, value] : host.changes)
            last[processor.getParameterName (index)] = value;
        EXPECT_FLOAT_EQ (last["BANK"], (float) listed / 6.0f);
        EXPECT_FLOAT_EQ (last["PROGRAM"], (float) pressed / 127.0f);
        EXPECT_EQ (state().editBuffer->patchData, bank (listed).getStoredProgram (pressed));
    }

    constexpr int cutoff = 32;
    listBank (2);
    click (centreOf (banks().useLoadedDataCheck));
    ASSERT_TRUE (main().useLoadedData);
    auto stored = bank (2).getStoredProgram (7);
    stored.set (cutoff, (unsigned short) ((stored[cutoff] ^ 0x4400) & 0xff00));
    bank (2).setStoredProgram (7, stored);
    host.changes.clear();
    sent();

    click (row (7));
    pump (100);
    EXPECT_EQ (state().editBuffer->patchData, stored);
    EXPECT_EQ (sentBytes(), std::vector<Bytes> { bytesOf (state().editBuffer->Export_Syx_Patch_Buf_MB (state().deviceId)) });
    EXPECT_EQ (knob (cutoff).currentValue, stored[cutoff] >> 8);
    EXPECT_TRUE (host.changes.empty());
}

TEST_F (BankMenus, DisplayCategoryClickSetsProgramA1AndShowsTheEditBuffersCategory)
{
    state().editBuffer->patchData.set (150, 5);
    auto& lcd = panel().lcd;
    click (at (lcd, { lcd.getWidth() / 2, lcd.getHeight() - 4 }));
    ASSERT_TRUE (chooseMenu ({ "Strings" }));
    EXPECT_EQ (bank (0).getStoredProgram (0)[150] & 0xff, 3);
    stores(); // and the grid's copy follows
    EXPECT_EQ (lcd.categoryText, "Pads");
}

// A press outside a menu dismisses it and does nothing.
TEST_F (BankMenus, CancellingAnyMenuLeavesEverythingAlone)
{
    listBank (3);
    const auto before = stores();
    const auto panelBefore = state().editBuffer->patchData;
    const std::function<void()> openers[] = { [this] { click (centreOf (banks().fileButton)); },
                                              [this] { click (centreOf (banks().presetsButton)); },
                                              [this] { click (centreOf (banks().categoryButton)); },
                                              [this] { rightPress (row (1, 60)); },
                                              [this] { rightPress (row (1, 200)); } };
    for (auto& open : openers)
    {
        open();
        ASSERT_TRUE (pumpUntil ([this] { return ! openMenus().empty(); }));
        pump (300);
        click (at (banks(), { 20, 420 }));
        ASSERT_TRUE (pumpUntil ([this] { return openMenus().empty(); }, 1000));
    }
    EXPECT_EQ (stores(), before);
    EXPECT_EQ (banks().shownMode, 0);
    EXPECT_EQ (banks().shownValue, 3);
    EXPECT_EQ (dialog(), nullptr);
    EXPECT_FALSE (main().copyBufferFull);
    EXPECT_EQ (state().editBuffer->patchData, panelBefore);
    EXPECT_TRUE (sentBytes().empty());
    EXPECT_TRUE (host.changes.empty());
}
