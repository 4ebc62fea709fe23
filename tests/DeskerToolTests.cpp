#ifdef DESKER_TOOL

#include <gtest/gtest.h>

#include "ScratchFolder.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"
#include "sound/TolkCorvaneBanks.h"

namespace
{
struct Result
{
    int status;
    juce::String output;
};

struct DeskerTool : ::testing::Test
{
    ScratchFolder folder;

    // Runs the tool through the shell so that stdin can come from a file.
    Result run (const juce::String& arguments, const juce::String& stdinFile = {})
    {
        auto command = juce::String ("'") + DESKER_TOOL + "' " + arguments;
        if (stdinFile.isNotEmpty())
            command << " < '" << folder.dir.getChildFile (stdinFile).getFullPathName() << "'";
        juce::ChildProcess child;
        EXPECT_TRUE (child.start (juce::StringArray { "/bin/sh", "-c", command }));
        const auto output = child.readAllProcessOutput();
        child.waitForProcessToFinish (30000);
        return { (int) child.getExitCode(), output };
    }

    juce::String path (const juce::String& name) const { return "'" + folder.dir.getChildFile (name).getFullPathName() + "'"; }

    void write (const juce::String& name, const juce::MemoryBlock& data)
    {
        ASSERT_TRUE (folder.dir.getChildFile (name).replaceWithData (data.getData(), data.getSize()));
    }

    juce::MemoryBlock read (const juce::String& name)
    {
        juce::MemoryBlock mb;
        folder.dir.getChildFile (name).loadFileAsData (mb);
        return mb;
    }

    // Its programs read parameter 110 as 65, which a repack would alter: the tool must move the
    // packed bytes as they stand.
    juce::MemoryBlock bankFile()
    {
        AutoBank bank (0);
        bank.PreloadFactoryData (2, 0);
        return FileMan::Bank_File_Data (bank);
    }
};
} // namespace

TEST_F (DeskerTool, BankFileRoundTripsThroughSysexAndBack)
{
    write ("a.tkbn", bankFile());
    auto r = run ("convert " + path ("a.tkbn") + " " + path ("a.syx"));
    ASSERT_EQ (r.status, 0) << r.output;
    EXPECT_EQ (read ("a.syx").getSize(), 128u * 154u); // numbered dumps, as the hardware sends them
    r = run ("convert " + path ("a.syx") + " " + path ("b.tkbn"));
    ASSERT_EQ (r.status, 0) << r.output;
    EXPECT_TRUE (read ("b.tkbn") == read ("a.tkbn"));

    r = run ("list " + path ("b.tkbn"));
    ASSERT_EQ (r.status, 0);
    EXPECT_TRUE (r.output.startsWith (folder.dir.getChildFile ("b.tkbn").getFullPathName() + ": bank file, 128 programs"));
    AutoBank bank (0);
    bank.PreloadFactoryData (2, 0);
    EXPECT_TRUE (r.output.contains ("128    " + bank.get_ProgramName (127)));
}

TEST_F (DeskerTool, SingleProgramRoundTripsAndUnpacksAndPacks)
{
    AutoBank bank (0);
    bank.PreloadFactoryData (0, 0);
    bank.BankToPatch (9);
    write ("p.tkp", FileMan::Program_File_Data (bank, 0));
    auto r = run ("convert " + path ("p.tkp") + " " + path ("p.syx"));
    ASSERT_EQ (r.status, 0) << r.output;
    EXPECT_TRUE (read ("p.syx") == read ("p.tkp"));

    r = run ("unpack", "p.syx");
    ASSERT_EQ (r.status, 0) << r.output;
    const auto unpacked = r.output;
    juce::StringArray words;
    words.addTokens (r.output.trim(), ",", "");
    ASSERT_EQ (words.size(), 200);
    auto frame = read ("p.tkp");
    juce::Array<unsigned char> packed (static_cast<const unsigned char*> (frame.getData()) + 5, 143);
    juce::Array<unsigned short> expected;
    AutoBank::UnPack_Patch_Tolk (packed, expected);
    for (int i = 0; i < 200; ++i)
        ASSERT_EQ (words[i].getIntValue(), expected[i]) << i;

    // pack takes the words back to the edit-buffer frame as hex.
    write ("words.txt", juce::MemoryBlock (r.output.toRawUTF8(), r.output.getNumBytesAsUTF8()));
    r = run ("pack", "words.txt");
    ASSERT_EQ (r.status, 0) << r.output;
    juce::MemoryBlock hex;
    hex.loadFromHexString (r.output);
    bank.patchData = expected;
    EXPECT_TRUE (hex == bank.Export_Syx_Patch_Buf_MB (0));
    EXPECT_TRUE (r.output.startsWith ("f0 04 01 00 02 "));
    EXPECT_EQ (r.output.trim().length(), 149 * 3 - 1);

    // unpack also takes hex text and bare packed bytes.
    const auto hexText = juce::String::toHexString (frame.getData(), (int) frame.getSize(), 1) + "\n";
    write ("hex.txt", juce::MemoryBlock (hexText.toRawUTF8(), hexText.getNumBytesAsUTF8()));
    auto fromHex = run ("unpack", "hex.txt");
    ASSERT_EQ (fromHex.status, 0) << fromHex.output;
    EXPECT_EQ (fromHex.output, unpacked);
    write ("bare.bin", juce::MemoryBlock (static_cast<const char*> (frame.getData()) + 5, 143));
    auto fromBare = run ("unpack", "bare.bin");
    ASSERT_EQ (fromBare.status, 0) << fromBare.output;
    EXPECT_EQ (fromBare.output, unpacked);
}

TEST_F (DeskerTool, ListsAFactorySetAndADataFile)
{
    int size = 0;
    const char* data = nullptr;
    ASSERT_TRUE (TolkCorvaneBanks::getSet (0, data, size));
    write ("core.tkr", juce::MemoryBlock (data, (size_t) size));
    auto r = run ("list " + path ("core.tkr"));
    ASSERT_EQ (r.status, 0) << r.output;
    EXPECT_TRUE (r.output.contains ("factory set, 896 programs"));
    EXPECT_TRUE (r.output.contains ("\nG:128  "));

    r = run ("convert " + path ("core.tkr") + " " + path ("user.dat"));
    ASSERT_EQ (r.status, 0) << r.output;
    EXPECT_EQ (read ("user.dat").getSize(), 358427u);
    r = run ("list " + path ("user.dat"));
    ASSERT_EQ (r.status, 0) << r.output;
    EXPECT_TRUE (r.output.contains ("data file, 896 programs"));

    r = run ("convert --bank c " + path ("core.tkr") + " " + path ("c.tkbn"));
    ASSERT_EQ (r.status, 0) << r.output;
    EXPECT_EQ (read ("c.tkbn").getSize(), 19072u);
}

TEST_F (DeskerTool, RefusesBadInputWithStatus2AndOneLine)
{
    auto bank = bankFile();
    juce::MemoryBlock truncated (bank.getData(), bank.getSize() - 1);
    auto oversized = bank;
    oversized.append ("x", 1);
    juce::MemoryBlock garbage;
    juce::Random rng (77);
    for (int i = 0; i < 5000; ++i)
    {
        const auto byte = (char) rng.nextInt (256);
        garbage.append (&byte, 1);
    }
    juce::MemoryBlock empty;
    write ("truncated.tkbn", truncated);
    write ("oversized.tkbn", oversized);
    write ("garbage.syx", garbage);
    write ("empty.tkp", empty);
    juce::MemoryBlock shortData (358426, true);
    write ("short.dat", shortData);

    for (auto name : { "truncated.tkbn", "oversized.tkbn", "garbage.syx", "empty.tkp", "short.dat", "missing.tkbn" })
    {
        for (auto command : { "list ", "convert " })
        {
            auto args = command + path (name) + (juce::String (command) == "convert " ? " " + path ("out.tkbn") : juce::String());
            auto r = run (args);
            EXPECT_EQ (r.status, 2) << name << ": " << r.output;
            EXPECT_TRUE (r.output.startsWith ("desker: ")) << r.output;
            EXPECT_EQ (r.output.trim().indexOfChar ('\n'), -1) << r.output;
        }
    }
    EXPECT_FALSE (folder.dir.getChildFile ("out.tkbn").exists());

    write ("notwords.txt", juce::MemoryBlock ("1,2,x", 5));
    write ("few.txt", juce::MemoryBlock ("1,2,3", 5));
    write ("bighex.txt", juce::MemoryBlock ("f0 04", 5));
    for (auto [command, input] : { std::pair { "pack", "notwords.txt" }, { "pack", "few.txt" }, { "unpack", "bighex.txt" },
                                   { "unpack", "garbage.syx" } })
    {
        auto r = run (command, input);
        EXPECT_EQ (r.status, 2) << command << " " << input << ": " << r.output;
        EXPECT_TRUE (r.output.startsWith ("desker: "));
    }
    EXPECT_EQ (run ("frobnicate").status, 2);
    EXPECT_EQ (run ("convert " + path ("garbage.syx")).status, 2);
    write ("a.tkbn", bank);
    EXPECT_EQ (run ("convert " + path ("a.tkbn") + " " + path ("out.txt")).status, 2);
    EXPECT_EQ (run ("convert " + path ("a.tkbn") + " " + path ("out.tkp")).status, 2);
}

#endif
