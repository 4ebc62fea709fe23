#include "plugin/PluginProcessor.h"

#include "../tests/ScratchFolder.h"

#include <benchmark/benchmark.h>

// One host block with a few host MIDI events and a few device notes waiting for the host.
static void BM_ProcessBlock (benchmark::State& run)
{
    const int numSamples = (int) run.range (0);
    ScratchFolder settings;
    DeskerAudioProcessor processor { settings.dir };
    processor.setRateAndBufferSizeDetails (48000.0, numSamples);
    processor.prepareToPlay (48000.0, numSamples);

    juce::AudioBuffer<float> audio (2, numSamples);
    audio.clear();
    juce::MidiBuffer midi;
    midi.ensureSize (4096);
    unsigned code = 0;

    for (auto _ : run)
    {
        midi.clear();
        midi.addEvent (juce::MidiMessage::noteOn (1, 60, (juce::uint8) 100), 0);
        midi.addEvent (juce::MidiMessage::controllerEvent (1, 74, 40), numSamples / 4);
        midi.addEvent (juce::MidiMessage::pitchWheel (1, 9000), numSamples / 2);
        midi.addEvent (juce::MidiMessage::noteOff (1, 60), numSamples - 1);
        {
            const juce::ScopedLock sl (processor.midiCntrState.lock);
            processor.midiCntrState.hostMidi.addEvent (juce::MidiMessage::noteOn (1, 64, (juce::uint8) 90), 1000);
            processor.midiCntrState.hostMidi.addEvent (juce::MidiMessage::noteOff (1, 64), 1004);
        }

        processor.processBlock (audio, midi);
        benchmark::DoNotOptimize (midi.getNumEvents());

        while (processor.midiCntrState.popUpdateCode (code)) {}
    }
}
BENCHMARK (BM_ProcessBlock)->Arg (64)->Arg (512);

BENCHMARK_MAIN();
