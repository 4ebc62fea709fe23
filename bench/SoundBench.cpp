#include "plugin/PluginProcessor.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"

#include "../tests/ScratchFolder.h"

#include <benchmark/benchmark.h>

namespace
{
juce::Array<unsigned short> factoryProgram()
{
    AutoBank bank (0);
    bank.PreloadFactoryData (0, 0);
    return bank.getStoredProgram (17);
}
} // namespace

// One program, 200 words to the 143 packed bytes.
static void BM_PackProgram (benchmark::State& run)
{
    auto words = factoryProgram();
    for (auto _ : run)
    {
        auto packed = AutoBank::Pack_Patch_Tolk (words);
        benchmark::DoNotOptimize (packed.getData());
    }
}
BENCHMARK (BM_PackProgram);

// One program, 143 packed bytes back to 200 words.
static void BM_UnpackProgram (benchmark::State& run)
{
    auto words = factoryProgram();
    const auto block = AutoBank::Pack_Patch_Tolk (words);
    juce::Array<unsigned char> packed (static_cast<const unsigned char*> (block.getData()), 143);
    juce::Array<unsigned short> out;
    for (auto _ : run)
    {
        AutoBank::UnPack_Patch_Tolk (packed, out);
        benchmark::DoNotOptimize (out.getRawDataPointer());
    }
}
BENCHMARK (BM_UnpackProgram);

// A whole bank file (19072 bytes, 128 frames) into a bank.
static void BM_ImportBankFile (benchmark::State& run)
{
    AutoBank source (0);
    source.PreloadFactoryData (0, 0);
    const auto file = FileMan::Bank_File_Data (source);
    juce::Array<unsigned char> data (static_cast<const unsigned char*> (file.getData()), (int) file.getSize());
    AutoBank bank (1);
    for (auto _ : run)
    {
        FileMan::Load_Bank_Data (data, bank);
        benchmark::DoNotOptimize (bank.bankData.getData());
    }
    run.SetItemsProcessed (run.iterations() * 128);
}
BENCHMARK (BM_ImportBankFile)->Unit (benchmark::kMicrosecond);

// Construction of a processor with no settings or data file: defaults and factory banks.
static void BM_ConstructProcessorFirstRun (benchmark::State& run)
{
    for (auto _ : run)
    {
        run.PauseTiming();
        auto settings = std::make_unique<ScratchFolder>();
        run.ResumeTiming();
        auto processor = std::make_unique<DeskerAudioProcessor> (settings->dir);
        run.PauseTiming();
        processor.reset();
        settings.reset();
        run.ResumeTiming();
    }
}
BENCHMARK (BM_ConstructProcessorFirstRun)->Unit (benchmark::kMillisecond);

// Construction with the files an earlier run left: settings parsed, seven banks from the data file.
static void BM_ConstructProcessorNormalRun (benchmark::State& run)
{
    ScratchFolder settings;
    std::make_unique<DeskerAudioProcessor> (settings.dir).reset();
    for (auto _ : run)
    {
        auto processor = std::make_unique<DeskerAudioProcessor> (settings.dir);
        run.PauseTiming();
        processor.reset();
        run.ResumeTiming();
    }
}
BENCHMARK (BM_ConstructProcessorNormalRun)->Unit (benchmark::kMillisecond);
