#include <gtest/gtest.h>

#include "ScratchFolder.h"
#include "device/MidiCntrState.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"

#include <map>

namespace
{
struct SettingsFiles : ::testing::Test
{
    ScratchFolder folder;
    juce::File settingsFile() const { return folder.dir.getChildFile ("tkplugsts.dat"); }
    juce::File dataFile() const { return folder.dir.getChildFile ("tkdeskerdata.dat"); }

    // Slots "7<i>", except the ones given.
    static juce::String slots (int count, std::map<int, juce::String> set = {}, const juce::String& text = "7")
    {
        juce::StringArray a;
        for (int i = 0; i < count; ++i)
            a.add (set.count (i) ? set[i] : text + juce::String (i));
        return MidiCntrState::ArrayToString (a);
    }

    // started: the whole start-up; otherwise the settings read only, as start-up step 2 does.
    std::unique_ptr<MidiCntrState> state (bool started)
    {
        auto s = std::make_unique<MidiCntrState>();
        s->settingsFolder = folder.dir;
        s->hostPathOverride = "/usr/bin/reaper";
        started ? s->InitializeMe() : s->ReadWriteIni (0);
        return s;
    }

    static juce::MemoryBlock factoryBank (int bank) { AutoBank b (bank); b.PreloadFactoryData (0, bank); return b.bankData; }
};
} // namespace

TEST_F (SettingsFiles, MissingFileIsWrittenAsDefaultSlotsBetweenMarkers)
{
    { MidiCntrState neverStarted; neverStarted.settingsFolder = folder.dir; }
    EXPECT_FALSE (settingsFile().exists() || dataFile().exists()) << "a state that never started writes nothing";

    EXPECT_EQ (MidiCntrState::ArrayToString ({ "3.0.2", "-1", "-1" }), "^|3.0.2|^^|-1|^^|-1|^");
    MidiCntrState defaults;
    defaults.INI_Defaults();
    auto s = state (false);
    EXPECT_FALSE (s->iniFresh);
    EXPECT_EQ (s->iniStrings, defaults.iniStrings);
    // Exactly the slot text: no byte-order mark, no line end.
    const auto text = MidiCntrState::ArrayToString (defaults.iniStrings);
    EXPECT_TRUE (settingsFile().loadFileAsString() == text && settingsFile().getSize() == text.length());
}

TEST_F (SettingsFiles, ParserCases)
{
    struct Case { juce::String text; bool fresh; std::map<int, juce::String> expect; };
    const Case cases[] = {
        { slots (2), true, { { 3, "100" } } }, // too few: defaults
        { slots (3), false, { { 2, "72" }, { 3, "0" } } }, // missing slots are "0", not their defaults
        { slots (60), false, { { 59, "759" } } },
        { slots (70), false, { { 59, "759" } } }, // only 60 are kept
        { "^|1|^", true, { { 0, "3.0.2" } } }, // 5 characters count as empty
        { "^|a|^^||^^|c|^", false, { { 0, "a" }, { 1, "" }, { 2, "c" } } },
        { "^|a|^^|b|^^|c", true, {} }, // the third slot never closes
        { "|^^|a|^^|b|^^|c|^", true, {} }, // a close marker at position 0 stops the parse at once
        { "junk before ^|a|^ and ^|b|^ between ^|c|^ after", false, { { 2, "c" } } },
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE (c.text);
        ASSERT_TRUE (settingsFile().replaceWithText (c.text));
        auto s = state (false);
        EXPECT_EQ (s->iniFresh, c.fresh);
        ASSERT_EQ (s->iniStrings.size(), 60);
        for (const auto& [slot, value] : c.expect)
            EXPECT_EQ (s->iniStrings[slot], value) << slot;
    }
}

// Slot 10 not "333": the compensation slots start again. Channel 0 or 17 becomes 1.
TEST_F (SettingsFiles, StartUpRewritesChannelAndCompensationSlots)
{
    struct Case { const char* channel; const char* slot10; int midiChannel; const char* slot11; const char* slot17; };
    for (const auto& c : { Case { "0", "5", 1, "0", "402" }, Case { "17", "5", 1, "0", "402" }, Case { "9", "333", 9, "11", "17" } })
    {
        SCOPED_TRACE (c.channel);
        ASSERT_TRUE (settingsFile().replaceWithText (slots (60, { { 0, "3.0.2" }, { 1, "-1" }, { 2, "-1" }, { 10, c.slot10 }, { 41, c.channel } }, "")));
        {
            auto s = state (true);
            EXPECT_TRUE (s->midiChannel.load() == c.midiChannel && s->iniStrings.size() == 92);
            EXPECT_EQ (s->iniStrings.joinIntoString (",", 10, 2), "333," + juce::String (c.slot11));
            EXPECT_EQ (s->iniStrings[17] + "," + s->iniStrings[19], c.slot17 + juce::String (",19"));
            EXPECT_TRUE (c.midiChannel != 9 || s->syncValues[6] == 18) << "sync values come from the kept slots";
        }
        // The destructor wrote all 92 slots; the next read keeps 60.
        auto again = state (false);
        EXPECT_EQ (again->iniStrings[41] + again->iniStrings[10], juce::String (c.midiChannel) + "333");
    }
}

TEST_F (SettingsFiles, DataFileRoundTripFactoryFallbackAndWrongSize)
{
    {
        auto s = state (true); // no data file: factory data
        EXPECT_TRUE (s->banks[3]->bankData == factoryBank (3));
        EXPECT_EQ (s->editBuffer->PatchGetName(), "Preset      Default PROG");
        auto words = s->banks[3]->getStoredProgram (5);
        words.set (32, 4321);
        s->banks[3]->setStoredProgram (5, words);
        s->banks[7]->Initialize_Bank(); // bank 7 is never saved
    }
    juce::MemoryBlock bytes;
    dataFile().loadFileAsData (bytes);
    ASSERT_EQ (bytes.getSize(), 358427u);
    EXPECT_EQ (bytes.toString().substring (0, 14) + juce::String::fromUTF8 ((const char*) bytes.getData() + 358414, 13), "*CorvaneData >< CorvaneData");
    auto s = state (true);
    EXPECT_TRUE (s->banks[3]->getStoredProgram (5)[32] == 4321 && s->banks[7]->bankData == factoryBank (0));

    // Wrong markers are taken; a wrong size is ignored.
    juce::MemoryBlock data (358427, true);
    data[20] = 0x11; // bank 0, program 0, a byte of parameter 3
    std::memcpy (data.getData(), "garbage-marker", 14);
    ASSERT_TRUE (dataFile().replaceWithData (data.getData(), data.getSize()));
    EXPECT_EQ (state (true)->banks[0]->getStoredProgram (0)[3], 0x11);

    ASSERT_TRUE (dataFile().replaceWithData (data.getData(), 358426));
    s = state (true);
    for (int b = 0; b < 7; ++b)
        EXPECT_TRUE (s->banks[(size_t) b]->bankData == factoryBank (b)) << b;
}

TEST_F (SettingsFiles, InterruptedWriteLeavesTheOldFileReadable)
{
    ASSERT_TRUE (settingsFile().replaceWithText (slots (60, {}, "old")));
    // A crash between writing the temporary file and the rename.
    const auto replacement = MidiCntrState::ArrayToString ({ "new", "new", "new" });
    const auto temporary = FileMan::writeTemporaryBeside (settingsFile(), replacement.toRawUTF8(), replacement.getNumBytesAsUTF8());
    ASSERT_TRUE (temporary.existsAsFile() && temporary.getParentDirectory() == folder.dir);
    auto s = state (false);
    EXPECT_EQ (s->iniStrings[0] + s->iniStrings[59], "old0old59");

    // The rename completes the replacement whole.
    ASSERT_TRUE (FileMan::replaceWithTemporary (temporary, settingsFile()));
    EXPECT_TRUE (! temporary.exists() && settingsFile().loadFileAsString() == replacement);

    // A folder that can't take the temporary file keeps the old file and leaves nothing behind.
    const auto blocked = folder.dir.getChildFile ("blocked");
    ASSERT_TRUE (blocked.replaceWithText ("a file where a folder should be"));
    EXPECT_FALSE (FileMan::writeFileAtomically (blocked.getChildFile ("x.dat"), "abc", 3));
    EXPECT_EQ (blocked.loadFileAsString(), "a file where a folder should be");
    EXPECT_EQ (folder.dir.getNumberOfChildFiles (juce::File::findFiles), 2);
}
