#include "../tests/LinkedProcessor.h"

#include <benchmark/benchmark.h>

// processBlock with the transport running and the clock going out to an attached instrument at
// 48 kHz. "cpu_per_audio_s" is the CPU time spent per second of audio: the share of one core.
static void BM_ProcessBlockWithClock (benchmark::State& run)
{
    const int numSamples = (int) run.range (0);
    LinkedProcessor linked (48000.0, numSamples);

    struct PlayHead : juce::AudioPlayHead
    {
        juce::Optional<PositionInfo> getPosition() const override { return position; }
        PositionInfo position;
    } playHead;
    playHead.position.setBpm (120.0);
    playHead.position.setIsPlaying (true);
    linked.processor.setPlayHead (&playHead);

    juce::AudioBuffer<float> audio (2, numSamples);
    audio.clear();
    juce::MidiBuffer midi;
    double ppq = 0.0;
    int blocks = 0;

    for (auto _ : run)
    {
        midi.clear();
        playHead.position.setPpqPosition (ppq);
        ppq += numSamples * 2.0 / 48000.0;
        linked.processor.processBlock (audio, midi);

        if (++blocks % 512 == 0)
            linked.backend.clearLog (linked.device.inputId); // the test log would grow without end
    }

    linked.processor.setPlayHead (nullptr);
    run.counters["cpu_per_audio_s"] = benchmark::Counter ((double) run.iterations() * numSamples / 48000.0,
                                                          benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK (BM_ProcessBlockWithClock)->Arg (32)->Arg (64)->Arg (512)->Arg (2048);
