#pragma once

#include "ScratchFolder.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"
#include "sound/SoundFileReader.h"
#include "sound/TolkCorvaneBanks.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <vector>

// A library folder of factory programs written as bank, program and sysex files and as a raw
// factory set, with broken files beside them. It keeps what an index of it must hold, in path
// order: the files with their kind or reason, and every program with the packed bytes it was
// written from.
struct LibraryFolder
{
    struct Row
    {
        juce::String source, place;
        juce::Array<unsigned short> words;
        juce::String name() const { return SoundFileReader::nameOf (words); }
    };
    struct Source { juce::String name, kind, problem; int count; };

    ScratchFolder scratch;
    std::vector<Source> sources;
    std::vector<Row> rows;

    explicit LibraryFolder (juce::int64 seed)
    {
        AutoBank cobalt (0), vellum (1), amber (2);
        cobalt.PreloadFactoryData (2, 0);
        vellum.PreloadFactoryData (3, 0);
        amber.PreloadFactoryData (1, 0);

        // The two banks sort by number, not by character: 2 before 10.
        writeBank ("bank2.tkbn", cobalt);
        writeBank ("bank10.TKBN", vellum);
        write ("bank.mid", FileMan::Bank_File_Data (amber)); // no sound file by its name

        // Numbered dumps carry their own place; these are exact twins of bank10's first ten.
        juce::MemoryBlock dumps, frames;
        for (int p = 0; p < 10; ++p)
        {
            dumps.append (vellum.Export_Syx_Bank_Rom_MB (p, 20 + p, 0, 0).getData(), AutoBank::romFrameBytes);
            add ("dumps.syx", juce::String (21 + p), vellum.Pack_Tolk_From_Bank (p));
        }
        // Two programs that differ in their category only, the word before the name.
        amber.BankToPatch (0);
        amber.patchData.set (150, (unsigned short) ((amber.patchData[150] + 1) % 32));
        frames.append (amber.Export_Syx_Bank_Buf_MB (0, 0).getData(), AutoBank::patchFrameBytes);
        frames.append (amber.Export_Syx_Patch_Buf_MB (0).getData(), AutoBank::patchFrameBytes);
        add ("frames.syx", "1", amber.Pack_Tolk_From_Bank (0));
        add ("frames.syx", "2", AutoBank::Pack_Patch_Tolk (amber.patchData));
        write ("dumps.syx", dumps, "sysex");
        write ("empty.tkp", {}, {}, "empty");
        write ("frames.syx", frames, "sysex");

        std::printf ("garbage seed %lld\n", (long long) seed);
        juce::Random random (seed);
        juce::MemoryBlock garbage (4000);
        for (size_t i = 0; i < garbage.getSize(); ++i)
            garbage[i] = (char) random.nextInt (0x80); // data bytes only: no message starts
        write ("garbage.syx", garbage, {}, "no program dump");

        write ("huge.syx", {}, {}, "wrong size (52428800 bytes, more than any sound file)");
        std::filesystem::resize_file (scratch.dir.getChildFile ("huge.syx").getFullPathName().toStdString(), 50 << 20); // sparse

        // The sound of bank2's sixth program under another name.
        cobalt.BankToPatch (5);
        for (int i = 0; i < 24; ++i)
            cobalt.patchData.set (151 + i, (unsigned short) "Twin of Six             "[i]);
        add ("renamed.tkp", "1", AutoBank::Pack_Patch_Tolk (cobalt.patchData));
        write ("renamed.tkp", FileMan::Program_File_Data (cobalt, 0), "program file");

        const char* set = nullptr;
        int size = 0;
        TolkCorvaneBanks::getSet (0, set, size);
        for (int r = 0; r < 896; ++r)
            add ("sets/Core.tkr", juce::String::charToString ((juce::juce_wchar) ('A' + r / 128)) + ":" + juce::String (r % 128 + 1),
                 juce::MemoryBlock (set + r * AutoBank::patchFrameBytes + 5, AutoBank::packedBytes));
        write ("sets/Core.tkr", juce::MemoryBlock (set, (size_t) size), "factory set");

        write ("short.tkbn", juce::MemoryBlock (FileMan::Bank_File_Data (vellum).getData(), 1000), {}, "cut short");
        scratch.dir.getChildFile ("x.tkbn").createDirectory();
        sources.push_back ({ "x.tkbn", {}, "unreadable (a folder)", 0 });
    }

    const juce::File& dir() const { return scratch.dir; }

    // Writes a file; with a kind or a problem it is one the index lists, and its rows were added.
    void write (const juce::String& name, const juce::MemoryBlock& data, const juce::String& kind = {}, const juce::String& problem = {})
    {
        const auto file = scratch.dir.getChildFile (name);
        file.getParentDirectory().createDirectory();
        file.deleteFile();
        file.create();
        file.appendData (data.getData(), data.getSize());
        if (kind.isNotEmpty() || problem.isNotEmpty())
            sources.push_back ({ name, kind, problem, (int) std::count_if (rows.begin(), rows.end(), [&] (auto& r) { return r.source == name; }) });
    }

    void writeBank (const juce::String& name, AutoBank& bank)
    {
        for (int p = 0; p < AutoBank::numPrograms; ++p)
            add (name, juce::String (p + 1), bank.Pack_Tolk_From_Bank (p));
        write (name, FileMan::Bank_File_Data (bank), "bank file");
    }

    void add (const juce::String& source, const juce::String& place, const juce::MemoryBlock& packed)
    {
        juce::Array<unsigned char> bytes (static_cast<const unsigned char*> (packed.getData()), AutoBank::packedBytes);
        Row row { source, place, {} };
        AutoBank::UnPack_Patch_Tolk (bytes, row.words);
        rows.push_back (row);
    }
};
