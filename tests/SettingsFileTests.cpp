#include <gtest/gtest.h>

#include "ScratchFolder.h"
#include "device/MidiCntrState.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"

namespace
{
struct SettingsFiles : ::testing::Test
{
    ScratchFolder folder;
    juce::File settingsFile() const { return folder.dir.getChildFile ("tkplugsts.dat"); }
    juce::File dataFile() const { return folder.dir.getChildFile ("tkdeskerdata.dat"); }

    void writeSettings (const juce::String& text) { ASSERT_TRUE (settingsFile().replaceWithText (text)); }

    juce::String slots (int count, const juce::String& text = "7")
    {
        juce::StringArray a;
        for (int i = 0; i < count; ++i)
            a.add (text + juce::String (i));
        return MidiCntrState::ArrayToString (a);
    }

    // A state that has read its settings only, as start-up step 2 does.
    std::unique_ptr<MidiCntrState> readState()
    {
        auto state = std::make_unique<MidiCntrState>();
        state->settingsFolder = folder.dir;
        state->ReadWriteIni (0);
        return state;
    }

    std::unique_ptr<MidiCntrState> startedState()
    {
        auto state = std::make_unique<MidiCntrState>();
        state->settingsFolder = folder.dir;
        state->hostPathOverride = "/usr/bin/reaper";
        state->InitializeMe();
        return state;
    }

    juce::MemoryBlock factoryBank (int bank)
    {
        AutoBank b (bank);
        b.PreloadFactoryData (0, bank);
        return b.bankData;
    }
};
} // namespace

TEST_F (SettingsFiles, TextFormIsSlotsBetweenMarkers)
{
    EXPECT_EQ (MidiCntrState::ArrayToString ({ "3.0.2", "-1", "-1" }), "^|3.0.2|^^|-1|^^|-1|^");
    EXPECT_EQ (MidiCntrState::ArrayToString ({}), "");

    MidiCntrState state;
    state.INI_Defaults();
    ASSERT_EQ (state.iniStrings.size(), 60);
    EXPECT_EQ (state.iniStrings.joinIntoString (",").substring (0, 24), "3.0.2,-1,-1,100,0,0,0,1,");
    EXPECT_EQ (state.iniStrings[59], "0");
}

TEST_F (SettingsFiles, MissingFileIsCreatedWithDefaultsAndReadBack)
{
    auto state = readState();
    EXPECT_FALSE (state->iniFresh);
    ASSERT_TRUE (settingsFile().existsAsFile());
    MidiCntrState defaults;
    defaults.INI_Defaults();
    EXPECT_EQ (state->iniStrings, defaults.iniStrings);

    // Exactly the slot text, no byte-order mark, no line end.
    juce::MemoryBlock bytes;
    settingsFile().loadFileAsData (bytes);
    EXPECT_EQ (bytes.toString(), MidiCntrState::ArrayToString (defaults.iniStrings));
    EXPECT_EQ ((unsigned char) bytes[0], '^');
}

TEST_F (SettingsFiles, ParserSlotCounts)
{
    writeSettings (slots (2));
    auto state = readState();
    EXPECT_TRUE (state->iniFresh);
    EXPECT_EQ (state->iniStrings[3], "100");

    writeSettings (slots (3));
    state = readState();
    EXPECT_FALSE (state->iniFresh);
    ASSERT_EQ (state->iniStrings.size(), 60);
    EXPECT_EQ (state->iniStrings[2], "72");
    EXPECT_EQ (state->iniStrings[3], "0"); // missing slots are "0", not their defaults

    writeSettings (slots (60));
    state = readState();
    EXPECT_EQ (state->iniStrings[59], "759");

    writeSettings (slots (70));
    state = readState();
    ASSERT_EQ (state->iniStrings.size(), 60);
    EXPECT_EQ (state->iniStrings[59], "759");
}

TEST_F (SettingsFiles, ShortGarbledAndEmptySlots)
{
    writeSettings ("^|1|^"); // 5 characters count as empty
    auto state = readState();
    EXPECT_TRUE (state->iniFresh);
    EXPECT_EQ (state->iniStrings[0], "3.0.2");

    writeSettings ("^|a|^^||^^|c|^");
    state = readState();
    EXPECT_FALSE (state->iniFresh);
    EXPECT_EQ (state->iniStrings[0], "a");
    EXPECT_EQ (state->iniStrings[1], "");
    EXPECT_EQ (state->iniStrings[2], "c");

    writeSettings ("^|a|^^|b|^^|c"); // the third slot never closes
    state = readState();
    EXPECT_TRUE (state->iniFresh);

    writeSettings ("|^^|a|^^|b|^^|c|^"); // a close marker at position 0 stops the parse at once
    state = readState();
    EXPECT_TRUE (state->iniFresh);

    writeSettings ("junk before ^|a|^ and ^|b|^ between ^|c|^ after");
    state = readState();
    EXPECT_FALSE (state->iniFresh);
    EXPECT_EQ (state->iniStrings[2], "c");
}

TEST_F (SettingsFiles, StartUpChannelAndCompensationSlots)
{
    for (const char* channel : { "0", "17" })
    {
        auto s = MidiCntrState::ArrayToString ({ "3.0.2", "-1", "-1" });
        for (int i = 3; i < 60; ++i)
            s << "^|" << (i == 41 ? juce::String (channel) : (i == 10 ? juce::String ("5") : juce::String (i))) << "|^";
        writeSettings (s);
        {
            auto state = startedState();
            EXPECT_EQ (state->midiChannel.load(), 1);
            EXPECT_EQ (state->iniStrings[41], "1");
            EXPECT_EQ (state->iniStrings.size(), 92);
            // Slot 10 was not "333": the compensation slots start again.
            EXPECT_EQ (state->iniStrings[10], "333");
            EXPECT_EQ (state->iniStrings[11], "0");
            EXPECT_EQ (state->iniStrings[17], "402");
            EXPECT_EQ (state->iniStrings[19], "19");
        }
        // The destructor wrote all 92 slots; the next read keeps 60.
        auto again = readState();
        EXPECT_EQ (again->iniStrings[41], "1");
        EXPECT_EQ (again->iniStrings[10], "333");
        EXPECT_EQ (again->iniStrings.size(), 60);
    }

    auto s = MidiCntrState::ArrayToString ({ "3.0.2", "-1", "-1" });
    for (int i = 3; i < 60; ++i)
        s << "^|" << (i == 10 ? juce::String ("333") : (i == 41 ? juce::String ("9") : juce::String (i))) << "|^";
    writeSettings (s);
    auto state = startedState();
    EXPECT_EQ (state->midiChannel.load(), 9);
    EXPECT_EQ (state->iniStrings[11], "11");
    EXPECT_EQ (state->iniStrings[17], "17");
    EXPECT_EQ (state->syncValues[6], 18);
}

TEST_F (SettingsFiles, DataFileRoundTripAndFactoryFallback)
{
    {
        auto state = startedState(); // no data file: factory data
        EXPECT_TRUE (state->banks[3]->bankData == factoryBank (3));
        EXPECT_TRUE (state->banks[7]->bankData == factoryBank (0));
        EXPECT_EQ (state->editBuffer->PatchGetName(), "Preset      Default PROG");
        auto words = state->banks[3]->getStoredProgram (5);
        words.set (32, 4321);
        state->banks[3]->setStoredProgram (5, words);
        state->banks[7]->Initialize_Bank(); // bank 7 is never saved
    }
    ASSERT_EQ (dataFile().getSize(), 358427);
    juce::MemoryBlock bytes;
    dataFile().loadFileAsData (bytes);
    EXPECT_EQ (juce::String::fromUTF8 ((const char*) bytes.getData(), 14), "*CorvaneData >");
    EXPECT_EQ (juce::String::fromUTF8 ((const char*) bytes.getData() + 358414, 13), "< CorvaneData");

    auto state = startedState();
    EXPECT_EQ (state->banks[3]->getStoredProgram (5)[32], 4321);
    EXPECT_TRUE (state->banks[7]->bankData == factoryBank (0));
}

TEST_F (SettingsFiles, DataFileOfWrongSizeIsIgnoredButWrongMarkersAreNot)
{
    juce::MemoryBlock data (358427, true);
    data[20] = 0x11; // bank 0, program 0, a byte of parameter 3
    std::memcpy (data.getData(), "garbage-marker", 14);
    ASSERT_TRUE (dataFile().replaceWithData (data.getData(), data.getSize()));
    {
        auto state = startedState();
        EXPECT_EQ (state->banks[0]->getStoredProgram (0)[3], 0x11);
        EXPECT_EQ (state->banks[6]->getStoredProgram (127)[46], 0);
    }

    data.setSize (358426);
    ASSERT_TRUE (dataFile().replaceWithData (data.getData(), data.getSize()));
    auto state = startedState();
    for (int b = 0; b < 7; ++b)
        EXPECT_TRUE (state->banks[(size_t) b]->bankData == factoryBank (b)) << b;
}

TEST_F (SettingsFiles, InterruptedWriteLeavesTheOldFileReadable)
{
    writeSettings (slots (60, "old"));

    // A crash between writing the temporary file and the rename.
    const auto replacement = MidiCntrState::ArrayToString ({ "new", "new", "new" });
    const auto temporary = FileMan::writeTemporaryBeside (settingsFile(), replacement.toRawUTF8(), replacement.getNumBytesAsUTF8());
    ASSERT_TRUE (temporary.existsAsFile());
    EXPECT_EQ (temporary.getParentDirectory(), folder.dir);

    auto state = readState();
    EXPECT_EQ (state->iniStrings[0], "old0");
    EXPECT_EQ (state->iniStrings[59], "old59");

    // The rename completes the replacement whole.
    ASSERT_TRUE (FileMan::replaceWithTemporary (temporary, settingsFile()));
    EXPECT_FALSE (temporary.exists());
    EXPECT_EQ (settingsFile().loadFileAsString(), replacement);

    // A folder that can't take the temporary file keeps the old file and leaves nothing behind.
    const auto blocked = folder.dir.getChildFile ("blocked");
    ASSERT_TRUE (blocked.replaceWithText ("a file where a folder should be"));
    EXPECT_FALSE (FileMan::writeFileAtomically (blocked.getChildFile ("x.dat"), "abc", 3));
    EXPECT_EQ (blocked.loadFileAsString(), "a file where a folder should be");
    EXPECT_EQ (folder.dir.getNumberOfChildFiles (juce::File::findFiles), 2);
}

TEST_F (SettingsFiles, StateThatNeverStartedWritesNothing)
{
    {
        MidiCntrState state;
        state.settingsFolder = folder.dir;
    }
    EXPECT_FALSE (settingsFile().exists());
    EXPECT_FALSE (dataFile().exists());
}
