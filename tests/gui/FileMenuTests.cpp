// The FILE menu as a user works it: the menu at the tool-bar button, then the file dialog. Tests
// drive JUCE's own dialog through its window; a script in the place of zenity stands in for the
// platform's dialog, so that no test depends on what the machine has installed.

#include "FileDialogDriver.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"

namespace
{
constexpr int cutoff = 32;
const juce::String fileName = "FROM A FILE             ";

std::vector<int> bytesOf (const juce::MemoryBlock& block)
{
    return { static_cast<const unsigned char*> (block.getData()), static_cast<const unsigned char*> (block.getData()) + block.getSize() };
}

std::vector<int> contentsOf (const juce::File& file)
{
    juce::MemoryBlock block;
    return file.loadFileAsData (block), bytesOf (block);
}

struct FileMenu : ::testing::Test, EditorHarness
{
    FileMenu()
    {
        openReady();
        main().fileManager->nativeDialogs = false;
    }

    // Opens the FILE menu and picks the item titled `item`.
    bool choose (const juce::String& item)
    {
        editor->getPeer()->grabFocus(); // a dialog may have taken it
        auto& bar = *main().appBar;
        click (centreOf (**std::find_if (bar.buttons.begin(), bar.buttons.end(), [] (auto* b) { return b->id == 75; })));
        return chooseMenu ({ item });
    }

    bool load() { return choose ("Load Single Program"); }
    bool save() { return choose ("Save " + state().editBuffer->PatchGetName()); }

    // A program unlike the one on the panel, as the 149-byte frame a program file holds.
    juce::MemoryBlock otherProgram()
    {
        AutoBank source (0);
        source.patchData = state().editBuffer->patchData;
        source.patchData.set (cutoff, (unsigned short) ((source.patchData[cutoff] ^ 0x5500) & 0xff00));
        for (int i = 0; i < 24; ++i)
            source.patchData.set (151 + i, (unsigned short) fileName[i]);
        return source.Export_Syx_Patch_Buf_MB (state().deviceId);
    }

    ScratchFolder scratch;
};
} // namespace

TEST_F (FileMenu, LoadsTheFirstMessageOnlyWhenItIsOneProgramFrame)
{
    const auto frame = otherProgram();
    juce::MemoryBlock withText ("TOLK FILE\n", 10);
    withText.append (frame.getData(), frame.getSize());
    const struct { const char* name; juce::MemoryBlock contents; bool loads; } cases[] = {
        { "154-byte frame", state().banks[0]->Export_Syx_Bank_Rom_MB (3, 3, state().deviceId, 0), false },
        { "nine bytes", juce::MemoryBlock (frame.getData(), 9), false },
        { "ten bytes of text before a program frame", withText, true },
    };

    for (auto& c : cases)
    {
        SCOPED_TRACE (c.name);
        const auto file = scratch.dir.getChildFile ("program.syx");
        ASSERT_TRUE (file.replaceWithData (c.contents.getData(), c.contents.getSize()));
        const auto panelBefore = state().editBuffer->patchData;
        const auto bankBefore = state().banks[0]->bankData;

        ASSERT_TRUE (load());
        ASSERT_EQ (answer (file, "Open"), "");
        pump (100);

        // What reading the frame over the sound on the panel gives, sent as one dump.
        AutoBank expected (0);
        expected.patchData = panelBefore;
        if (c.loads)
            expected.PatchImport_Syx (juce::Array<unsigned char> (static_cast<const unsigned char*> (frame.getData()), (int) frame.getSize()));
        EXPECT_EQ (state().editBuffer->patchData, expected.patchData);
        EXPECT_EQ (state().banks[0]->bankData, bankBefore);
        EXPECT_EQ (sentBytes(), c.loads ? std::vector<std::vector<int>> { bytesOf (expected.Export_Syx_Patch_Buf_MB (state().deviceId)) }
                                        : std::vector<std::vector<int>>());
        EXPECT_EQ (state().editBuffer->PatchGetName() == fileName, c.loads);
        EXPECT_EQ (knob (cutoff).currentValue, state().editBuffer->patchData[cutoff] >> 8);
    }
}

TEST_F (FileMenu, SavesExactlyTheProgramFrameAndReplacesAnExistingFileWhole)
{
    const auto name = state().editBuffer->PatchGetName();
    const auto expected = bytesOf (state().editBuffer->Export_Syx_Patch_Buf_MB (state().deviceId));
    const auto file = scratch.dir.getChildFile ("saved");

    ASSERT_TRUE (save());
    ASSERT_TRUE (pumpUntil ([] { return dialog() != nullptr; }));
    EXPECT_EQ (dialog()->getName(), "Save Corvane Program");
    EXPECT_NE (find<juce::TextEditor> (dialog(), [&] (auto& t) { return t.getText() == name.trim() + ".tkp"; }), nullptr);
    ASSERT_EQ (answer (file, "Save"), "");
    EXPECT_EQ (contentsOf (file), expected); // as the user named it: no extension added

    const juce::MemoryBlock longer (FileMan::bankFileBytes, true);
    ASSERT_TRUE (file.replaceWithData (longer.getData(), longer.getSize()));
    ASSERT_TRUE (save());
    ASSERT_EQ (answer (file, "Save", true), "");
    EXPECT_EQ (contentsOf (file), expected);
    EXPECT_EQ (scratch.dir.getNumberOfChildFiles (juce::File::findFilesAndDirectories), 1); // no temporary left
    EXPECT_TRUE (sentBytes().empty());
}

TEST_F (FileMenu, CancelAndAnEditorClosedUnderItsDialogChangeNothing)
{
    const auto panelBefore = state().editBuffer->patchData;
    ASSERT_TRUE (load());
    pumpUntil ([] { return dialog() != nullptr; });
    ASSERT_NE (button (dialog(), "Cancel"), nullptr);
    EXPECT_EQ (dialog()->getName(), "Load Single Corvane Program");
    clickThroughPeer (*button (dialog(), "Cancel"));
    EXPECT_TRUE (pumpUntil ([] { return dialog() == nullptr; }));

    ASSERT_TRUE (load());
    ASSERT_TRUE (pumpUntil ([] { return dialog() != nullptr; }));
    closeEditor();
    pump (200);
    EXPECT_EQ (dialog(), nullptr);
    EXPECT_EQ (state().editBuffer->patchData, panelBefore);
    EXPECT_TRUE (sentBytes().empty());
}

TEST_F (FileMenu, PlatformDialogGetsTitlePatternsAndProposalAndItsAnswerIsUsed)
{
    // The stand-in notes its arguments and answers with the path in "answer".
    const auto bin = scratch.dir.getChildFile ("bin");
    const auto script = bin.getChildFile ("zenity");
    bin.createDirectory();
    ASSERT_TRUE (script.replaceWithText ("#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$(dirname \"$0\")/args\"\n"
                                         "cat \"$(dirname \"$0\")/answer\"\n", false, false, "\n"));
    script.setExecutePermission (true);
    const auto path = juce::SystemStats::getEnvironmentVariable ("PATH", {});
    const auto cwd = juce::File::getCurrentWorkingDirectory(); // JUCE moves it for zenity
    ::setenv ("PATH", (bin.getFullPathName() + ":" + path).toRawUTF8(), 1);
    ::unsetenv ("KDE_FULL_SESSION");
    main().fileManager->nativeDialogs = true;

    const auto file = scratch.dir.getChildFile ("from zenity.tkp");
    bin.getChildFile ("answer").replaceWithText (file.getFullPathName());
    const auto frame = otherProgram();
    file.replaceWithData (frame.getData(), frame.getSize());
    const auto argsOfLastCall = [&] { return juce::StringArray::fromLines (bin.getChildFile ("args").loadFileAsString()); };

    EXPECT_TRUE (load());
    EXPECT_TRUE (pumpUntil ([this] { return state().editBuffer->PatchGetName() == fileName; }));
    EXPECT_EQ (sentBytes().size(), 1u);
    for (auto* expected : { "--title=Load Single Corvane Program", "--file-filter=*.tkp *.syx" })
        EXPECT_TRUE (argsOfLastCall().contains (expected)) << expected;
    EXPECT_FALSE (argsOfLastCall().contains ("--save"));

    file.deleteFile();
    EXPECT_TRUE (save());
    EXPECT_TRUE (pumpUntil ([&] { return file.existsAsFile(); }));
    for (auto* expected : { "--save", "--confirm-overwrite", "--title=Save Corvane Program", "--filename=FROM A FILE.tkp" })
        EXPECT_TRUE (argsOfLastCall().contains (expected)) << expected;
    EXPECT_EQ (contentsOf (file), bytesOf (state().editBuffer->Export_Syx_Patch_Buf_MB (state().deviceId)));

    ::setenv ("PATH", path.toRawUTF8(), 1);
    cwd.setAsCurrentWorkingDirectory();
}
