// The library window as a user works it: "LIBRARY" in and out, typing a search, a file from the
// list, the filters' menus, a press that auditions a program on the instrument, and a program
// copied into a bank that the data file keeps.

#include "EditorHarness.h"
#include "LibraryFolder.h"
#include "device/MidiCntrState.h"
#include "librarian/BankComp.h"
#include "librarian/LibComp.h"

#include <set>

namespace
{
struct LibraryWindow : ::testing::Test, EditorHarness
{
    LibraryFolder files { 20261123 };

    LibraryWindow()
    {
        openReady();
        main().setLibraryFolder (files.dir());
        toggleBanks();
        click (centreOf (main().bankPanel->libraryButton));
        EXPECT_TRUE (pumpUntil ([this] { return library().isShowing() && ! library().isScanning(); }));
    }

    LibComp& library() { return *main().bankPanel->library; }
    IvrGridLib& grid() { return library().grid; }

    // The names the grid lists, in its order.
    juce::StringArray listed()
    {
        juce::StringArray names;
        for (int row = 0; row < grid().rowCount; ++row)
            names.add (grid().index->programs[(size_t) grid().rowPrograms[row]].name);
        return names;
    }

    int rowsWhere (std::function<bool (const LibraryFolder::Row&)> keep)
    {
        return (int) std::count_if (files.rows.begin(), files.rows.end(), keep);
    }

    juce::Point<float> rowCentre (int row) { return at (grid(), { 100, (row - grid().firstRow) * grid().rowHeight + 18 }); }

    void type (const juce::String& text)
    {
        for (auto c : text)
            editor->getPeer()->handleKeyPress (juce::KeyPress ((int) c, {}, c));
        pump();
    }
};
} // namespace

TEST_F (LibraryWindow, LibrarySwitchesWithTheBanksAndListsTheFolder)
{
    EXPECT_EQ (grid().rowCount, (int) files.rows.size());
    EXPECT_EQ ((int) library().index->sources.size(), (int) files.sources.size());
    EXPECT_EQ (state().iniStrings[MidiCntrState::libraryFolderSlot], files.dir().getFullPathName());

    click (centreOf (library().libraryButton));
    EXPECT_FALSE (library().isVisible());
    EXPECT_TRUE (main().bankPanel->grid.isShowing());
    click (centreOf (main().bankPanel->libraryButton));
    EXPECT_TRUE (library().isShowing());

    // A file added outside the editor is there at the next showing.
    files.dir().getChildFile ("renamed.tkp").copyFileTo (files.dir().getChildFile ("later.tkp"));
    click (centreOf (library().libraryButton));
    click (centreOf (main().bankPanel->libraryButton));
    ASSERT_TRUE (pumpUntil ([this] { return ! library().isScanning(); }));
    EXPECT_EQ (grid().rowCount, (int) files.rows.size() + 1);

    // The host may close the editor while the folder is being read.
    library().rescan();
    closeEditor();
}

TEST_F (LibraryWindow, SearchFileAndFiltersNarrowTheGridAndTheKeyboardGoesBack)
{
    click (centreOf (library().searchField));
    ASSERT_TRUE (library().searchField.hasKeyboardFocus (false));
    type ("PaD");
    const int pads = rowsWhere ([] (auto& r) { return r.name().toLowerCase().contains ("pad"); });
    ASSERT_GT (pads, 0);
    EXPECT_EQ (grid().rowCount, pads);
    for (auto& name : listed())
        EXPECT_TRUE (name.containsIgnoreCase ("pad")) << name;
    editor->getPeer()->handleKeyPress (juce::KeyPress (juce::KeyPress::returnKey));
    pump();
    EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr);

    // Presses on the list of files, the grid and the buttons leave the keyboard to the host.
    auto& list = library().sourceList;
    const int frames = (int) std::distance (library().index->sources.begin(),
                                            std::find_if (library().index->sources.begin(), library().index->sources.end(),
                                                          [] (auto& s) { return s.name == "frames.syx"; }));
    click (at (list, list.getRowPosition (frames + 1, true).getCentre()));
    EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr);
    EXPECT_EQ (library().query.source, frames);
    EXPECT_EQ (grid().rowCount, rowsWhere ([] (auto& r) { return r.source == "frames.syx" && r.name().containsIgnoreCase ("pad"); }));

    library().setSearchText ({});
    click (at (list, list.getRowPosition (0, true).getCentre()));
    EXPECT_EQ (grid().rowCount, (int) files.rows.size());

    // The filters' menus, one at a time and together.
    const auto category = files.rows[0].words[150] & 0xff;
    click (centreOf (library().categoryButton));
    ASSERT_TRUE (chooseMenu ({ AutoBank::Category (category) }));
    EXPECT_EQ (grid().rowCount, rowsWhere ([&] (auto& r) { return (r.words[150] & 0xff) == category; }));
    EXPECT_TRUE (library().categoryButton.toggleState);
    click (centreOf (library().categoryButton));
    ASSERT_TRUE (chooseMenu ({ "All Categories" }));
    EXPECT_EQ (grid().rowCount, (int) files.rows.size());

    click (centreOf (library().doublesButton));
    ASSERT_TRUE (chooseMenu ({ "Same Sound" }));
    const auto& index = *library().index;
    const int doubles = (int) std::count_if (index.programs.begin(), index.programs.end(), [] (auto& p) { return p.soundTwins > 0; });
    ASSERT_GT (doubles, 0);
    EXPECT_EQ (grid().rowCount, doubles);
    // Twins stand side by side: once a group ends, none of it comes later.
    std::set<int> ended;
    for (int row = 0; row < grid().rowCount; ++row)
    {
        const auto group = index.programs[(size_t) grid().rowPrograms[row]].soundGroup;
        EXPECT_EQ (ended.count (group), 0u) << "row " << row;
        if (row + 1 == grid().rowCount || index.programs[(size_t) grid().rowPrograms[row + 1]].soundGroup != group)
            ended.insert (group);
    }
    EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr);
}

TEST_F (LibraryWindow, PressAuditionsAndCopyToBankCKeepsTheProgramInTheDataFile)
{
    click (centreOf (library().searchField));
    type ("pad");
    editor->getPeer()->handleKeyPress (juce::KeyPress (juce::KeyPress::escapeKey));
    pump();
    EXPECT_EQ (grid().rowCount, (int) files.rows.size()) << "Escape clears the search";

    const auto before = storesNow();
    sent();
    click (rowCentre (3));
    const auto words = grid().index->wordsOf (grid().rowPrograms[3]);
    EXPECT_EQ (state().editBuffer->patchData, words);
    const auto edit = state().editBuffer->Export_Syx_Patch_Buf_MB (state().deviceId);
    const auto* e = static_cast<const juce::uint8*> (edit.getData());
    EXPECT_EQ (sentBytes(), (std::vector<std::vector<int>> { { e, e + edit.getSize() } })) << "the instrument hears the edit-buffer dump";
    backend.deliverPending();
    EXPECT_EQ (SoundFileReader::nameOf (device.corvane.getEditBuffer()), SoundFileReader::nameOf (words)) << "the instrument holds it";
    EXPECT_EQ (storesNow(), before);

    const auto place = "C:005  " + state().banks[2]->get_ProgramName (4).trim();
    rightPress (rowCentre (3));
    ASSERT_TRUE (chooseMenu ({ "Copy to Bank C", "C:001 - C:016", place }));
    EXPECT_EQ (state().banks[2]->getStoredProgram (4), words);
    auto after = storesNow();
    std::copy_n (before[2].begin() + 4 * AutoBank::programBytes, AutoBank::programBytes, after[2].begin() + 4 * AutoBank::programBytes);
    EXPECT_EQ (after, before) << "nothing else changed";

    const auto file = restartProcessor();
    ASSERT_EQ (file.getSize(), (size_t) MidiCntrState::dataFileBytes);
    const auto* record = static_cast<const juce::uint8*> (file.getData()) + 14 + 2 * AutoBank::bankBytes + 4 * AutoBank::programBytes;
    for (int i = 0; i < AutoBank::numParameters; ++i)
        ASSERT_EQ (record[2 * i] | (record[2 * i + 1] << 8), words[i]) << "word " << i;
}
