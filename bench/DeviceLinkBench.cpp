// The device link over in-process MIDI: how fast a bank receive answers the
// instrument, and how long a whole bank takes against an instrument that
// answers at once.

#include "InProcessCorvane.h"
#include "device/InProcessMidiBackend.h"
#include "device/MIDI_PORTS_Control.h"
#include "device/MidiCntrState.h"

#include <benchmark/benchmark.h>

namespace
{
struct BenchFolder
{
    juce::File dir = juce::File::getSpecialLocation (juce::File::tempDirectory).getNonexistentChildFile ("desker-bench", "");
    BenchFolder() { (void) dir.createDirectory(); }
    ~BenchFolder() { (void) dir.deleteRecursively(); }
};

// Opens the ports named `name` on the state, as a saved setting would.
void initialise (MidiCntrState& state, const juce::File& folder, const juce::String& name)
{
    state.settingsFolder = folder;
    state.portNames = juce::StringArray (name, name, "NONE");
    state.SavePortStrings();
    state.portNames.clear();
    state.InitializeMe();
}

void drain (MidiCntrState& state)
{
    unsigned code = 0;
    while (state.popUpdateCode (code))
    {
    }
}

void BM_DumpToNextRequest (benchmark::State& bs)
{
    BenchFolder folder;
    InProcessMidiBackend backend;
    const auto out = backend.addSource ("Corvane");
    const auto in = backend.addDestination ("Corvane", nullptr);
    MidiCntrState state (&backend);
    initialise (state, folder.dir, "Corvane");

    state.transferKind = 0;
    state.transferBusy = true;
    state.bankDumpActive = true;
    state.bankNumber = 0;

    std::vector<juce::MidiMessage> dumps;
    for (int p = 0; p < 127; ++p)
    {
        const auto frame = VirtualCorvane::programFrame (VirtualCorvane::makeProgram (0, p, 1), p);
        dumps.emplace_back (frame.getData(), (int) frame.getSize());
    }

    // Each round: the dump arrives on the input, the state stores it and the
    // next request leaves on the output. The round also hands the request on
    // and clears the log, an upper bound by a few hundred nanoseconds.
    size_t n = 0;
    for (auto _ : bs)
    {
        backend.sendFromSource (out, dumps[n++ % dumps.size()]);
        backend.deliverPending();
        backend.clearLog (in);
        drain (state);
    }
}
BENCHMARK (BM_DumpToNextRequest)->Unit (benchmark::kMicrosecond);

void BM_ReceiveWholeBank (benchmark::State& bs)
{
    BenchFolder folder;
    InProcessMidiBackend backend;
    InProcessCorvane corvane (backend);
    corvane.corvane.fillAllBanks (1);
    MidiCntrState state (&backend);
    initialise (state, folder.dir, corvane.portName);

    for (auto _ : bs)
    {
        state.transferKind = 0;
        state.transferBusy = true;
        state.bankDumpActive = true;
        state.SEND_BANKch (state.midiChannel, 3);
        state.Dump_Request (6, 0, 0);
        backend.deliverPending();

        if (corvane.corvane.getRequestsAnswered() % 128 != 0)
            bs.SkipWithError ("bank receive did not finish");
        backend.clearLog (corvane.inputId);
        drain (state);
    }
}
BENCHMARK (BM_ReceiveWholeBank)->Unit (benchmark::kMillisecond);
} // namespace
