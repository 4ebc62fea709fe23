// The bank window's menus and its grid as a user works them: the "BANK" button, the window's buttons,
// presses on the grid's rows, menus chosen by mouse and JUCE's own file dialog, against the virtual
// Corvane on in-process MIDI.

#include "FileDialogDriver.h"
#include "librarian/BankComp.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"

#include <random>

namespace
{
constexpr int cutoff = 32;

using Bytes = std::vector<int>;

Bytes bytesOf (const juce::MemoryBlock& block)
{
    auto* data = static_cast<const unsigned char*> (block.getData());
    return { data, data + block.getSize() };
}

Bytes contentsOf (const juce::File& file)
{
    juce::MemoryBlock block;
    file.loadFileAsData (block);
    return bytesOf (block);
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

juce::Array<unsigned short> initialProgram()
{
    AutoBank fresh (0);
    fresh.Initialize_Bank();
    return fresh.getStoredProgram (0);
}

struct BankMenus : ::testing::Test, EditorHarness
{
    BankMenus()
    {
        openReady();
        main().fileManager->nativeDialogs = false;
        auto& bar = *main().appBar;
        for (auto* b : bar.buttons)
            if (b->id == 99 && b != bar.lockButton)
                click (centreOf (*b));
        pumpUntil ([this] { return main().bankPanelShown; });
        sent();
        host.changes.clear();
    }

    BankComp& banks() { return *main().bankPanel; }
    IvrGrid& grid() { return banks().grid; }
    AutoBank& bank (int b) { return *state().banks[(size_t) b]; }

    std::vector<Bytes> storesNow()
    {
        std::vector<Bytes> stores;
        for (auto* b : state().banks)
            stores.push_back (bytesOf (b->bankData));
        return stores;
    }

    bool gridMatchesBanks()
    {
        for (int b = 0; b < 8; ++b)
            if (grid().gridBanks[(size_t) b]->bankData != bank (b).bankData)
                return false;
        return true;
    }

    // A press of a bank window button, then the menu items of `path`.
    bool buttonMenu (IvrBut& b, const juce::StringArray& path)
    {
        click (centreOf (b));
        return chooseMenu (path);
    }

    void listBank (int b) { click (centreOf (*banks().bankButtons[b])); }

    // Row `row` of the view at `x` of the grid.
    juce::Point<float> row (int r, int x = 60) { return at (grid(), { x, r * grid().rowHeight + grid().rowHeight / 2 }); }

    void rightPress (juce::Point<float> p)
    {
        mouse (p, {});
        mouse (p, juce::ModifierKeys::rightButtonModifier);
        mouse (p, {});
        pump();
    }

    // The program menu of row `r` of the listed bank, and its item `item`.
    bool programMenu (int r, const juce::String& item)
    {
        rightPress (row (r));
        return chooseMenu ({ item });
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
    const auto before = storesNow();

    // An empty paste buffer reads as a single space, and choosing it does nothing.
    ASSERT_TRUE (programMenu (5, " "));
    EXPECT_EQ (storesNow(), before);
    ASSERT_TRUE (programMenu (2, "Copy " + name (2)));
    EXPECT_TRUE (main().copyBufferFull);
    EXPECT_EQ (storesNow(), before);
    EXPECT_TRUE (sentBytes().empty());

    ASSERT_TRUE (programMenu (5, "Paste " + name (2)));
    EXPECT_EQ (b.getStoredProgram (5), original);
    EXPECT_EQ (sentBytes(), std::vector<Bytes> { bytesOf (b.Export_Syx_Bank_Rom_MB (5, 5, state().deviceId, 0)) });
    EXPECT_TRUE (gridMatchesBanks());
    EXPECT_EQ (banks().shownValue, 1);

    const auto file = scratch.dir.getChildFile ("one program");
    ASSERT_TRUE (programMenu (5, "Save " + name (5)));
    ASSERT_TRUE (pumpUntil ([] { return dialog() != nullptr; }));
    EXPECT_EQ (dialog()->getName(), "Save Corvane Program");
    EXPECT_NE (find<juce::TextEditor> (dialog(), [&] (auto& t) { return t.getText() == name (5).trim() + ".tkp"; }), nullptr);
    ASSERT_EQ (answer (file, "Save"), "");
    EXPECT_EQ (contentsOf (file), bytesOf (b.Export_Syx_Bank_Buf_MB (5, 0)));

    ASSERT_TRUE (programMenu (7, "Load Program "));
    ASSERT_EQ (answer (file, "Open"), "");
    pump (100);
    EXPECT_EQ (b.getStoredProgram (7), original);

    const auto neighbours = std::make_pair (b.getStoredProgram (2), b.getStoredProgram (4));
    ASSERT_TRUE (programMenu (3, "Initialize " + name (3)));
    EXPECT_EQ (b.getStoredProgram (3), initialProgram());
    EXPECT_EQ (std::make_pair (b.getStoredProgram (2), b.getStoredProgram (4)), neighbours);
    EXPECT_TRUE (gridMatchesBanks());
    EXPECT_TRUE (sentBytes().empty()); // only the paste goes to the instrument
    auto others = storesNow();
    others[1] = before[1];
    EXPECT_EQ (others, before);
}

TEST_F (BankMenus, GridLoadsAProgramFileByItsFirstMessageOnly)
{
    listBank (0);
    const auto frame = bank (3).Export_Syx_Bank_Buf_MB (9, 0);
    juce::MemoryBlock withText ("TOLK FILE\n", 10);
    withText.append (frame.getData(), frame.getSize());
    const struct { const char* name; juce::MemoryBlock contents; bool loads; } cases[] = {
        { "154-byte frame", bank (3).Export_Syx_Bank_Rom_MB (9, 9, state().deviceId, 0), false },
        { "ten bytes of text before a program frame", withText, true },
    };

    for (auto& c : cases)
    {
        SCOPED_TRACE (c.name);
        const auto file = scratch.dir.getChildFile ("program.syx");
        ASSERT_TRUE (file.replaceWithData (c.contents.getData(), c.contents.getSize()));
        bank (0).Initialize_Bank();
        auto expected = storesNow();
        if (c.loads)
        {
            AutoBank scratchBank (0);
            scratchBank.bankData = bank (0).bankData;
            scratchBank.Import_Syx_MB (6, frame);
            expected[0] = bytesOf (scratchBank.bankData);
            ASSERT_NE (storesNow(), expected);
        }

        ASSERT_TRUE (programMenu (6, "Load Program "));
        ASSERT_EQ (answer (file, "Open"), "");
        pump (100);
        EXPECT_EQ (storesNow(), expected);
    }
    EXPECT_TRUE (sentBytes().empty());
}

TEST_F (BankMenus, SavedBankLoadsIntoAnotherByteForByteAndOtherSizesAreIgnored)
{
    for (int p = 0; p < AutoBank::numPrograms; ++p)
        makeDumpSafe (bank (2), p);
    const auto file = scratch.dir.getChildFile ("bank.syx");
    ASSERT_TRUE (buttonMenu (banks().fileButton, { "Save Program Bank ", "Bank C" }));
    ASSERT_TRUE (pumpUntil ([] { return dialog() != nullptr; }));
    EXPECT_EQ (dialog()->getName(), "Save Corvane Program Bank");
    EXPECT_NE (find<juce::TextEditor> (dialog(), [] (auto& t) { return t.getText() == "Program Bank C.tkbn"; }), nullptr);
    ASSERT_EQ (answer (file, "Save"), "");
    ASSERT_EQ (contentsOf (file).size(), (size_t) FileMan::bankFileBytes);
    EXPECT_EQ (contentsOf (file), bytesOf (FileMan::Bank_File_Data (bank (2))));

    ASSERT_NE (bank (4).bankData, bank (2).bankData);
    auto expected = storesNow();
    expected[4] = expected[2];
    ASSERT_TRUE (buttonMenu (banks().fileButton, { "Load Program Bank To ", "Bank E" }));
    ASSERT_EQ (answer (file, "Open"), "");
    pump (100);
    EXPECT_EQ (storesNow(), expected);
    EXPECT_EQ (banks().shownValue, 4); // the grid lists the bank just loaded
    EXPECT_TRUE (gridMatchesBanks());

    juce::MemoryBlock bankFile;
    file.loadFileAsData (bankFile);
    const struct { const char* name; int size; } refused[] = { { "one byte more", FileMan::bankFileBytes + 1 },
                                                                { "one byte less", FileMan::bankFileBytes - 1 } };
    for (auto& r : refused)
    {
        SCOPED_TRACE (r.name);
        auto contents = bankFile;
        contents.setSize ((size_t) r.size, true);
        ASSERT_TRUE (file.replaceWithData (contents.getData(), contents.getSize()));
        const auto before = storesNow();
        ASSERT_TRUE (buttonMenu (banks().fileButton, { "Load Program Bank To ", "Bank F" }));
        ASSERT_EQ (answer (file, "Open"), "");
        pump (100);
        EXPECT_EQ (storesNow(), before);
    }
    EXPECT_TRUE (sentBytes().empty());

    ASSERT_TRUE (buttonMenu (banks().fileButton, { "Close" }));
    EXPECT_FALSE (main().bankPanelShown);
    EXPECT_FALSE (banks().isVisible());
}

TEST_F (BankMenus, PresetsLoadTheCurrentBankFromTheChosenRecordAndInitializeTheChosenBank)
{
    const auto preloaded = [this] (int into, int set, int record)
    {
        AutoBank expected (into);
        expected.bankData = bank (into).bankData;
        expected.PreloadFactoryData (set, record);
        return bytesOf (expected.bankData);
    };
    AutoBank fresh (0);
    fresh.Initialize_Bank();

    const struct { const char* name; int current; juce::StringArray path; int changed; std::function<Bytes()> result; } cases[] = {
        { "Bank C of set 0 with bank B current", 1, { "Core Refresh ", "Bank C" }, 1, [&] { return preloaded (1, 0, 2); } },
        { "Bank H of a one-bank set with bank D current", 3, { "Amber Set ", "Bank H" }, 3, [&] { return preloaded (3, 1, 7); } },
        { "initialize the current bank", 1, { "Initialize Program Bank ", "Bank B" }, 1, [&] { return bytesOf (fresh.bankData); } },
        { "initialize another bank", 0, { "Initialize Program Bank ", "Bank G" }, 6, [&] { return bytesOf (fresh.bankData); } },
    };

    for (auto& c : cases)
    {
        SCOPED_TRACE (c.name);
        state().bankNumber = c.current;
        auto expected = storesNow();
        expected[(size_t) c.changed] = c.result();
        ASSERT_NE (storesNow(), expected);

        ASSERT_TRUE (buttonMenu (banks().presetsButton, c.path));
        EXPECT_EQ (storesNow(), expected);
        EXPECT_TRUE (gridMatchesBanks());
        EXPECT_EQ (state().bankNumber, c.current);
    }
    EXPECT_TRUE (sentBytes().empty());
}

TEST_F (BankMenus, CategoryViewListsTheMatchesOfAllEightBanks)
{
    constexpr unsigned seed = 20261123;
    std::cout << "[ seed ] " << seed << std::endl;
    std::mt19937 random (seed);
    constexpr int category = 25; // "Ring"

    for (int b = 0; b < 8; ++b)
    {
        auto words = bank (b).getStoredProgram ((int) (random() % 128));
        words.set (150, (unsigned short) ((words[150] & 0xff00) | category));
        bank (b).setStoredProgram ((int) (random() % 128), words);
    }
    juce::Array<int> rowBanks, rowPrograms;
    for (int b = 0; b < 8; ++b)
        for (int p = 0; p < 128; ++p)
            if ((bank (b).getStoredProgram (p)[150] & 0xff) == category)
                rowBanks.add (b), rowPrograms.add (p);

    ASSERT_TRUE (buttonMenu (banks().categoryButton, { AutoBank::Category (category) }));
    EXPECT_EQ (banks().shownMode, 1);
    EXPECT_EQ (grid().rowBanks, rowBanks);
    EXPECT_EQ (grid().rowPrograms, rowPrograms);
    EXPECT_TRUE (grid().rowBanks.contains (7));
}

TEST_F (BankMenus, RightPressBelowX130OpensTheProgramMenuAndFromThereTheCategoryMenu)
{
    listBank (2);
    const struct { int x; bool categoryMenu; } cases[] = { { 10, false }, { 129, false }, { 130, true }, { 220, true } };
    int r = 0;
    for (auto& c : cases)
    {
        SCOPED_TRACE (c.x);
        const int program = r++;
        const auto before = storesNow();
        main().copyBufferFull = false;
        AutoBank expected (2);
        expected.bankData = bank (2).bankData;
        auto words = expected.getStoredProgram (program);
        const int newCategory = ((words[150] & 0xff) + 7) % 32;
        words.set (150, (unsigned short) ((words[150] & 0xff00) | newCategory));
        expected.setStoredProgram (program, words);

        rightPress (row (program, c.x));
        if (! c.categoryMenu)
        {
            ASSERT_TRUE (chooseMenu ({ "Copy " + bank (2).get_ProgramName (program) }));
            EXPECT_TRUE (main().copyBufferFull);
            EXPECT_EQ (storesNow(), before);
            continue;
        }
        ASSERT_TRUE (chooseMenu ({ AutoBank::Category (newCategory) }));
        EXPECT_EQ (bank (2).bankData, expected.bankData);
        EXPECT_EQ (grid().gridBanks[2]->bankData, expected.bankData);
        EXPECT_FALSE (main().copyBufferFull);
    }
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
    EXPECT_EQ (grid().gridBanks[0]->getStoredProgram (0)[150] & 0xff, 3);
    EXPECT_EQ (lcd.category, 5);
    EXPECT_EQ (lcd.categoryText, "Pads");
}

TEST_F (BankMenus, CancellingAnyMenuLeavesEverythingAlone)
{
    listBank (3);
    const auto stores = storesNow();
    const auto panelBefore = state().editBuffer->patchData;
    const std::function<void()> openers[] = {
        [this] { click (centreOf (banks().fileButton)); },
        [this] { click (centreOf (banks().presetsButton)); },
        [this] { click (centreOf (banks().categoryButton)); },
        [this] { rightPress (row (1, 60)); },
        [this] { rightPress (row (1, 200)); },
    };
    for (size_t i = 0; i < std::size (openers); ++i)
    {
        SCOPED_TRACE (i);
        openers[i]();
        ASSERT_TRUE (pumpUntil ([this] { return ! openMenus().empty(); }));
        pump (300);
        // A press outside a menu dismisses it.
        click (at (banks(), { 20, 420 }));
        ASSERT_TRUE (pumpUntil ([this] { return openMenus().empty(); }, 1000));
        EXPECT_EQ (storesNow(), stores);
        EXPECT_EQ (banks().shownMode, 0);
        EXPECT_EQ (banks().shownValue, 3);
    }
    EXPECT_EQ (dialog(), nullptr);
    EXPECT_FALSE (main().copyBufferFull);
    EXPECT_EQ (state().editBuffer->patchData, panelBefore);
    EXPECT_TRUE (sentBytes().empty());
    EXPECT_TRUE (host.changes.empty());
}
