#include "device/InProcessMidiBackend.h"
#include "editor/AdvCont.h"
#include "editor/KeyBrd.h"
#include "editor/MainComp.h"
#include "plugin/PluginEditor.h"
#include "plugin/PluginProcessor.h"

#include "../tests/ScratchFolder.h"

#include <benchmark/benchmark.h>

namespace
{
// The editor needs JUCE's message thread; the benchmarks run on it.
struct Gui
{
    juce::ScopedJuceInitialiser_GUI juce;
    ScratchFolder settings;
    InProcessMidiBackend noPorts;
    std::unique_ptr<DeskerAudioProcessor> processor;

    Gui() { processor = std::make_unique<DeskerAudioProcessor> (settings.dir, &noPorts); }
};

Gui& gui()
{
    static Gui instance;
    return instance;
}

std::unique_ptr<juce::AudioProcessorEditor> openEditor (int width)
{
    auto& processor = *gui().processor;
    processor.editorWidth = width;
    processor.editorHeight = width * 739 / 1505;
    return std::unique_ptr<juce::AudioProcessorEditor> (processor.createEditor());
}
} // namespace

// createEditor on a living processor up to the first full paint into an image.
static void BM_EditorOpen (benchmark::State& run)
{
    openEditor (1505); // the splash shows once per processor: keep it out of the figure
    for (auto _ : run)
    {
        auto editor = openEditor (1505);
        juce::Image image (juce::Image::ARGB, editor->getWidth(), editor->getHeight(), true);
        juce::Graphics g (image);
        editor->paintEntireComponent (g, true);
        benchmark::DoNotOptimize (image.getPixelAt (700, 300));
        run.PauseTiming();
        editor.reset();
        run.ResumeTiming();
    }
}
BENCHMARK (BM_EditorOpen)->Unit (benchmark::kMillisecond);

// One full repaint of the whole editor at a given width.
static void BM_EditorRepaint (benchmark::State& run)
{
    auto editor = openEditor ((int) run.range (0));
    juce::Image image (juce::Image::ARGB, editor->getWidth(), editor->getHeight(), true);
    for (auto _ : run)
    {
        juce::Graphics g (image);
        editor->paintEntireComponent (g, true);
        benchmark::DoNotOptimize (image.getPixelAt (10, 10));
    }
}
BENCHMARK (BM_EditorRepaint)->Arg (1505)->Arg (978)->Unit (benchmark::kMillisecond);

// One full repaint of the keyboard strip at a given width, a chord held so that keys of both
// states are drawn.
static void BM_KeyboardRepaint (benchmark::State& run)
{
    auto editor = openEditor ((int) run.range (0));
    auto& strip = *dynamic_cast<DeskerAudioProcessorEditor&> (*editor).getMainComp()->keyboard;
    for (int key : { 12, 16, 19, 22 })
        strip.pianoPad.NoteON_Rec (key, 100);

    juce::Image image (juce::Image::ARGB, strip.getWidth(), strip.getHeight(), true);
    for (auto _ : run)
    {
        juce::Graphics g (image);
        strip.paintEntireComponent (g, true);
        benchmark::DoNotOptimize (image.getPixelAt (10, 10));
    }
}
BENCHMARK (BM_KeyboardRepaint)->Arg (1505)->Arg (978)->Unit (benchmark::kMillisecond);

// One full repaint of the advanced page at a given editor width, with both envelope curves drawn
// afresh each time, as during a drag.
static void BM_AdvancedRepaint (benchmark::State& run)
{
    auto editor = openEditor ((int) run.range (0));
    auto* main = dynamic_cast<DeskerAudioProcessorEditor&> (*editor).getMainComp();
    main->Show_Window (106, true, 0);
    auto& page = *main->advancedPanel;

    juce::Image image (juce::Image::ARGB, page.getWidth(), page.getHeight(), true);
    for (auto _ : run)
    {
        page.filterEnvelope.repaint();
        page.volumeEnvelope.repaint();
        juce::Graphics g (image);
        page.paintEntireComponent (g, true);
        benchmark::DoNotOptimize (image.getPixelAt (100, 100));
    }
}
BENCHMARK (BM_AdvancedRepaint)->Arg (1505)->Arg (978)->Unit (benchmark::kMillisecond);

// Rewriting every control from the edit buffer.
static void BM_DisplayProgram (benchmark::State& run)
{
    auto editor = openEditor (1505);
    auto* main = dynamic_cast<DeskerAudioProcessorEditor&> (*editor).getMainComp();
    for (auto _ : run)
        main->Display_Program();
}
BENCHMARK (BM_DisplayProgram)->Unit (benchmark::kMicrosecond);
