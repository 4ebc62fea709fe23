#ifdef DESKER_TOOL

#include <gtest/gtest.h>

#include "LibraryFolder.h"
#include "ScratchFolder.h"
#include "librarian/LibraryIndex.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"
#include "sound/TolkCorvaneBanks.h"

namespace
{
struct Result { int status; juce::String output; };

struct DeskerTool : ::testing::Test
{
    ScratchFolder folder;

    // Runs the tool through the shell so that stdin can come from a file.
    Result run (const juce::String& arguments, const juce::String& stdinFile = {})
    {
        auto command = juce::String ("'") + DESKER_TOOL + "' " + arguments;
        if (stdinFile.isNotEmpty())
            command << " < " << path (stdinFile);
        juce::ChildProcess child;
        EXPECT_TRUE (child.start (juce::StringArray { "/bin/sh", "-c", command }));
        const auto output = child.readAllProcessOutput();
        child.waitForProcessToFinish (30000);
        return { (int) child.getExitCode(), output };
    }

    juce::String ok (const juce::String& arguments, const juce::String& stdinFile = {})
    {
        const auto r = run (arguments, stdinFile);
        EXPECT_EQ (r.status, 0) << arguments << ": " << r.output;
        return r.output;
    }

    juce::File file (const juce::String& name) const { return folder.dir.getChildFile (name); }
    juce::String path (const juce::String& name) const { return "'" + file (name).getFullPathName() + "'"; }
    void write (const juce::String& name, const juce::MemoryBlock& data) { ASSERT_TRUE (file (name).replaceWithData (data.getData(), data.getSize())); }
    void write (const juce::String& name, const juce::String& text) { write (name, juce::MemoryBlock (text.toRawUTF8(), text.getNumBytesAsUTF8())); }
    juce::MemoryBlock factoryBankFile (int set) { AutoBank bank (0); bank.PreloadFactoryData (set, 0); return FileMan::Bank_File_Data (bank); }
};
} // namespace

TEST_F (DeskerTool, BankFileRoundTripsThroughSysexAndListsAFactorySet)
{
    // Its programs read parameter 110 as 65, which a repack would alter: the tool must move the
    // packed bytes as they stand.
    AutoBank bank (0);
    bank.PreloadFactoryData (2, 0);
    write ("a.tkbn", factoryBankFile (2));
    ok ("convert " + path ("a.tkbn") + " " + path ("a.syx"));
    EXPECT_EQ (file ("a.syx").getSize(), 128 * 154); // numbered dumps, as the hardware sends them
    ok ("convert " + path ("a.syx") + " " + path ("b.tkbn"));
    EXPECT_TRUE (file ("b.tkbn").hasIdenticalContentTo (file ("a.tkbn")));
    auto listed = ok ("list " + path ("b.tkbn"));
    EXPECT_TRUE (listed.startsWith (file ("b.tkbn").getFullPathName() + ": bank file, 128 programs"));
    EXPECT_TRUE (listed.contains ("128    " + bank.get_ProgramName (127)));

    int size = 0;
    const char* data = nullptr;
    ASSERT_TRUE (TolkCorvaneBanks::getSet (0, data, size));
    write ("core.tkr", juce::MemoryBlock (data, (size_t) size));
    listed = ok ("list " + path ("core.tkr"));
    EXPECT_TRUE (listed.contains ("factory set, 896 programs") && listed.contains ("\nG:128  "));
    ok ("convert " + path ("core.tkr") + " " + path ("user.dat"));
    EXPECT_TRUE (ok ("list " + path ("user.dat")).contains ("data file, 896 programs"));
    ok ("convert --bank c " + path ("core.tkr") + " " + path ("c.tkbn"));
    EXPECT_TRUE (file ("user.dat").getSize() == 358427 && file ("c.tkbn").getSize() == 19072);
}

TEST_F (DeskerTool, SingleProgramRoundTripsAndUnpacksAndPacks)
{
    AutoBank bank (0);
    bank.PreloadFactoryData (0, 0);
    bank.BankToPatch (9);
    const auto frame = FileMan::Program_File_Data (bank, 0);
    write ("p.tkp", frame);
    ok ("convert " + path ("p.tkp") + " " + path ("p.syx"));
    EXPECT_TRUE (file ("p.syx").hasIdenticalContentTo (file ("p.tkp")));

    // unpack takes the whole frame, its hex text or the bare packed bytes.
    write ("hex.txt", juce::String::toHexString (frame.getData(), (int) frame.getSize(), 1) + "\n");
    write ("bare.bin", juce::MemoryBlock (static_cast<const char*> (frame.getData()) + 5, 143));
    const auto unpacked = ok ("unpack", "p.syx");
    EXPECT_EQ (ok ("unpack", "hex.txt"), unpacked);
    EXPECT_EQ (ok ("unpack", "bare.bin"), unpacked);
    juce::Array<unsigned char> body (static_cast<const unsigned char*> (frame.getData()) + 5, 143);
    juce::Array<unsigned short> expected;
    AutoBank::UnPack_Patch_Tolk (body, expected);
    juce::StringArray words;
    for (auto w : expected)
        words.add (juce::String (w));
    EXPECT_EQ (unpacked.trim(), words.joinIntoString (","));

    // pack takes the words back to the edit-buffer frame as hex.
    write ("words.txt", unpacked);
    const auto packed = ok ("pack", "words.txt");
    bank.patchData = expected;
    const auto edit = bank.Export_Syx_Patch_Buf_MB (0);
    EXPECT_EQ (packed.trim(), juce::String::toHexString (edit.getData(), (int) edit.getSize(), 1));
    EXPECT_TRUE (packed.startsWith ("f0 04 01 00 02 "));
}

TEST_F (DeskerTool, RefusesBadInputWithStatus2AndOneLine)
{
    const auto bankFile = factoryBankFile (2);
    auto oversized = bankFile;
    oversized.append ("x", 1);
    juce::MemoryBlock garbage (5000);
    juce::Random (77).fillBitsRandomly (garbage.getData(), garbage.getSize());
    write ("truncated.tkbn", juce::MemoryBlock (bankFile.getData(), bankFile.getSize() - 1));
    write ("oversized.tkbn", oversized);
    write ("garbage.syx", garbage);
    write ("empty.tkp", juce::MemoryBlock());
    write ("short.dat", juce::MemoryBlock (358426, true));
    write ("a.tkbn", bankFile);
    write ("notwords.txt", "1,2,x");
    write ("few.txt", "1,2,3");
    write ("bighex.txt", "f0 04");

    std::vector<std::pair<juce::String, juce::String>> refused = {
        { "pack", "notwords.txt" }, { "pack", "few.txt" }, { "unpack", "bighex.txt" }, { "unpack", "garbage.syx" },
        { "frobnicate", {} }, { "convert " + path ("garbage.syx"), {} },
        { "convert " + path ("a.tkbn") + " " + path ("out.txt"), {} }, { "convert " + path ("a.tkbn") + " " + path ("out.tkp"), {} },
    };
    for (auto name : { "truncated.tkbn", "oversized.tkbn", "garbage.syx", "empty.tkp", "short.dat", "missing.tkbn" })
    {
        refused.push_back ({ "list " + path (name), {} });
        refused.push_back ({ "convert " + path (name) + " " + path ("out.tkbn"), {} });
    }
    for (const auto& [command, input] : refused)
    {
        const auto r = run (command, input);
        EXPECT_EQ (r.status, 2) << command << " < " << input << ": " << r.output;
        EXPECT_TRUE (r.output.startsWith ("desker: ")) << r.output;
        EXPECT_EQ (r.output.trim().indexOfChar ('\n'), -1) << r.output;
    }
    EXPECT_FALSE (file ("out.tkbn").exists());
}

TEST_F (DeskerTool, LibraryPrintsTheIndexItsViewsAndTheReport)
{
    const LibraryFolder library (juce::Random::getSystemRandom().nextInt64());
    const auto index = LibraryIndex::build (library.dir(), nullptr);
    const auto listing = [&] (const LibraryIndex::Query& query)
    {
        juce::String text;
        for (auto row : index->find (query))
        {
            const auto& p = index->programs[(size_t) row];
            text << index->sources[(size_t) p.source].name << "  " << p.place().paddedRight (' ', 6) << " " << p.name << "  "
                 << AutoBank::Category (p.category) << "\n";
        }
        for (auto& s : index->sources)
            text << (s.problem.isEmpty() ? "read    " + s.name + ": " + s.kind + ", " + juce::String (s.count) + " programs"
                                         : "skipped " + s.name + ": " + s.problem) << "\n";
        return text;
    };

    const auto dir = "library '" + library.dir().getFullPathName() + "'";
    const int category = index->programs[300].category;
    const std::pair<juce::String, LibraryIndex::Query> views[] = {
        { "", {} },
        { " --search 'tWIN oF'", { "twin of" } },
        { " --category " + juce::String (category), { {}, category } },
        { " --search E --category " + juce::String (category), { "e", category } },
        { " --duplicates", { {}, -1, -1, LibraryIndex::Duplicates::sameSound } },
    };
    for (auto& [arguments, query] : views)
        EXPECT_EQ (ok (dir + arguments), listing (query)) << arguments;

    for (auto arguments : { "library " + path ("missing"), dir + " --category 32", dir + " --category -1", dir + " --category x" })
    {
        const auto r = run (arguments);
        EXPECT_EQ (r.status, 2) << arguments;
        EXPECT_TRUE (r.output.startsWith ("desker: ") && r.output.indexOfChar ('\n') == r.output.length() - 1) << r.output;
    }
    EXPECT_EQ (run ("library " + path ("missing")).output, "desker: cannot read " + file ("missing").getFullPathName() + ": no such folder\n");
}

#endif
