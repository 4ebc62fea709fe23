#include "editor/controls/DeskerLookAndFeel.h"
#include "librarian/IvrGridLib.h"
#include "librarian/LibraryIndex.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"

#include "../tests/ScratchFolder.h"

#include <benchmark/benchmark.h>

namespace
{
// 80 bank files of 128 programs, 10,240 in all: the factory sets' first banks over and over, each
// program under a name of its own made of common words and a number.
struct LibraryOf80Banks
{
    ScratchFolder scratch;

    LibraryOf80Banks()
    {
        const char* const words[] = { "Warm", "Bright", "Dark", "Soft", "Pad", "Bass", "Lead", "Brass",
                                      "Strings", "Bell", "Sweep", "Pluck", "Vox", "Organ", "Sync", "Noise" };
        juce::Random random (80);
        AutoBank bank (0);
        for (int f = 0; f < 80; ++f)
        {
            bank.PreloadFactoryData (f % 8, 0);
            for (int p = 0; p < AutoBank::numPrograms; ++p)
            {
                const auto name = (juce::String (words[random.nextInt (16)]) + " " + words[random.nextInt (16)] + " "
                                   + juce::String (f * 128 + p)).paddedRight (' ', 24);
                auto program = bank.getStoredProgram (p);
                for (int i = 0; i < 24; ++i)
                    program.set (151 + i, (unsigned short) name[i]);
                bank.setStoredProgram (p, program);
            }
            const auto data = FileMan::Bank_File_Data (bank);
            scratch.dir.getChildFile ("bank" + juce::String (f + 1) + ".tkbn").replaceWithData (data.getData(), data.getSize());
        }
    }
};
} // namespace

// Indexing the whole folder from nothing: every file read, every program unpacked, duplicates found.
static void BM_LibraryIndex (benchmark::State& run)
{
    const LibraryOf80Banks library;
    size_t programs = 0;
    for (auto _ : run)
    {
        const auto index = LibraryIndex::build (library.scratch.dir, nullptr);
        programs = index->programs.size();
        benchmark::DoNotOptimize (index.get());
    }
    run.counters["programs"] = (double) programs;
}
BENCHMARK (BM_LibraryIndex)->Unit (benchmark::kMillisecond);

// A search by part of a name over the 10,240 programs; with range(0) 1, within one category too.
static void BM_LibrarySearch (benchmark::State& run)
{
    const LibraryOf80Banks library;
    const auto index = LibraryIndex::build (library.scratch.dir, nullptr);
    LibraryIndex::Query query;
    query.text = "BASS";
    if (run.range (0) == 1)
        query.category = index->programs[5].category;
    size_t rows = 0;
    for (auto _ : run)
    {
        const auto found = index->find (query);
        rows = found.size();
        benchmark::DoNotOptimize (found.data());
    }
    run.counters["rows"] = (double) rows;
}
BENCHMARK (BM_LibrarySearch)->Arg (0)->Arg (1)->Unit (benchmark::kMillisecond);

// The result of that search listed in the library's grid and painted whole, as the screen gets it.
static void BM_LibraryGridPaint (benchmark::State& run)
{
    const juce::ScopedJuceInitialiser_GUI gui;
    const DeskerLookAndFeelScope look;
    const LibraryOf80Banks library;
    const auto index = LibraryIndex::build (library.scratch.dir, nullptr);
    LibraryIndex::Query query;
    query.text = "BASS";
    const auto rows = index->find (query);

    IvrGridLib grid;
    grid.setBounds (0, 0, 270, 324);
    grid.Initialize ({ 45, 95, 85, 0 });
    juce::Image image (juce::Image::ARGB, 270, 324, true);
    for (auto _ : run)
    {
        grid.list (index, rows);
        juce::Graphics g (image);
        grid.paintEntireComponent (g, true);
        benchmark::DoNotOptimize (image.getPixelAt (100, 100));
    }
    run.counters["rows"] = (double) grid.rowCount;
}
BENCHMARK (BM_LibraryGridPaint)->Unit (benchmark::kMillisecond);
