#include "device/InProcessMidiBackend.h"
#include "editor/MainComp.h"
#include "librarian/BankComp.h"
#include "plugin/PluginEditor.h"
#include "plugin/PluginProcessor.h"

#include "../tests/ScratchFolder.h"

#include <benchmark/benchmark.h>

namespace
{
// An editor on the factory banks with the bank window open, on JUCE's message thread.
struct BankWindow
{
    juce::ScopedJuceInitialiser_GUI juce;
    ScratchFolder settings;
    InProcessMidiBackend noPorts;
    DeskerAudioProcessor processor { settings.dir, &noPorts };
    std::unique_ptr<juce::AudioProcessorEditor> editor;
    MainComp* main = nullptr;

    BankWindow()
    {
        processor.midiCntrState.splashShown = true;
        editor.reset (processor.createEditor());
        main = dynamic_cast<DeskerAudioProcessorEditor&> (*editor).getMainComp();
        main->Show_Window (103, true, 0);
    }

    IvrGrid& grid() { return main->bankPanel->grid; }

    // The grid as the screen gets it: what the last listing invalidated is drawn again.
    void paintGrid (juce::Image& image)
    {
        juce::Graphics g (image);
        grid().paintEntireComponent (g, true);
        benchmark::DoNotOptimize (image.getPixelAt (100, 100));
    }
};
} // namespace

// A full paint of the grid listing a bank of 128 rows.
static void BM_GridPaint (benchmark::State& run)
{
    BankWindow window;
    window.main->Set_Bank_PRG (0, 0);
    juce::Image image (juce::Image::ARGB, window.grid().getWidth(), window.grid().getHeight(), true);
    for (auto _ : run)
    {
        window.grid().repaint();
        window.paintGrid (image);
    }
}
BENCHMARK (BM_GridPaint)->Unit (benchmark::kMicrosecond);

// A bank button: the eight banks copied into the grid, bank `range(0)` listed and painted.
static void BM_BankListing (benchmark::State& run)
{
    BankWindow window;
    juce::Image image (juce::Image::ARGB, window.grid().getWidth(), window.grid().getHeight(), true);
    for (auto _ : run)
    {
        window.main->Set_Bank_PRG (0, (int) run.range (0));
        window.paintGrid (image);
    }
    run.counters["rows"] = window.grid().rowCount;
}
BENCHMARK (BM_BankListing)->Arg (0)->Arg (7)->Unit (benchmark::kMicrosecond);

// The category view: every program of the eight banks of category `range(0)` listed and painted.
static void BM_CategoryListing (benchmark::State& run)
{
    BankWindow window;
    juce::Image image (juce::Image::ARGB, window.grid().getWidth(), window.grid().getHeight(), true);
    for (auto _ : run)
    {
        window.main->Set_Bank_PRG (1, (int) run.range (0));
        window.paintGrid (image);
    }
    run.counters["rows"] = window.grid().rowCount;
}
BENCHMARK (BM_CategoryListing)->Arg (0)->Arg (1)->Arg (5)->Unit (benchmark::kMicrosecond);
