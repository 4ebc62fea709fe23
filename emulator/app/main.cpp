// corvane-emulator: the virtual Corvane on the system's MIDI, so that the
// plug-in can be tried without the instrument. It creates one MIDI input and
// one MIDI output named after the instrument and answers like it; commands on
// standard input play its panel.

#include "VirtualCorvane.h"

#include <alsa/asoundlib.h>

#include <iostream>
#include <string>

namespace
{
const char* const usage =
    "usage: corvane-emulator [--name NAME] [--channel 1-16] [--seed N]\n"
    "                        [--drop N] [--wrong-length] [--garble N] [--late MS]\n"
    "commands on stdin: knob PARAM VALUE | note NOTE VELOCITY | program BANK PROGRAM | quit\n";

// ALSA reports a missing sequencer on stderr by itself; this tool says so in one line of its own.
void quietAlsa (const char*, int, const char*, int, const char*, ...) {}

int fail (const juce::String& line, int status)
{
    std::cerr << "corvane-emulator: " << line << std::endl;
    return status;
}

// Sends the replies held back by --late, once per period.
class LateReleaser : public juce::Thread
{
public:
    LateReleaser (VirtualCorvane& c, int ms) : juce::Thread ("late replies"), corvane (c), periodMs (ms) {}
    void run() override
    {
        while (! threadShouldExit())
        {
            wait (periodMs);
            corvane.releaseLateReplies();
        }
    }

private:
    VirtualCorvane& corvane;
    const int periodMs;
};
} // namespace

int main (int argc, char* argv[])
{
    juce::String name ("Corvane");
    int channel = 1;
    juce::int64 seed = 1;
    VirtualCorvane::Faults faults;
    int lateMs = 0;

    for (int i = 1; i < argc; ++i)
    {
        const juce::String arg (argv[i]);
        const bool hasValue = i + 1 < argc;
        if (arg == "--wrong-length")
            faults.wrongLength = true;
        else if (arg == "--help" || arg == "-h")
        {
            std::cout << usage;
            return 0;
        }
        else if (! hasValue || ! arg.startsWith ("--"))
            return fail ("bad argument '" + arg + "' (try --help)", 2);
        else
        {
            const juce::String value (argv[++i]);
            if (arg == "--name")
                name = value;
            else if (arg == "--channel" && value.getIntValue() >= 1 && value.getIntValue() <= 16)
                channel = value.getIntValue();
            else if (arg == "--seed")
                seed = value.getLargeIntValue();
            else if (arg == "--drop")
                faults.dropReplies = juce::jmax (0, value.getIntValue());
            else if (arg == "--garble")
                faults.garbleBytes = juce::jmax (0, value.getIntValue());
            else if (arg == "--late" && value.getIntValue() > 0)
                lateMs = value.getIntValue();
            else
                return fail ("bad argument '" + arg + " " + value + "' (try --help)", 2);
        }
    }
    faults.late = lateMs > 0;

    VirtualCorvane corvane (channel, seed);
    corvane.fillAllBanks (seed);
    corvane.setFaults (faults);

    // Asked first: the library's port creation, failing, would keep what it had allocated.
    snd_lib_error_set_handler (quietAlsa);
    snd_seq_t* sequencer = nullptr;
    if (snd_seq_open (&sequencer, "default", SND_SEQ_OPEN_DUPLEX, 0) < 0)
        return fail ("cannot publish MIDI ports: no ALSA sequencer on this machine", 1);
    snd_seq_close (sequencer);

    auto output = juce::MidiOutput::createNewDevice (name);
    auto input = output != nullptr ? juce::MidiInput::createNewDevice (name, &corvane) : nullptr;
    if (output == nullptr || input == nullptr)
        return fail ("cannot publish MIDI ports on the ALSA sequencer", 1);

    auto* out = output.get();
    corvane.setOutput ([out] (const juce::MidiMessage& m) { out->sendMessageNow (m); });
    input->start();

    LateReleaser releaser (corvane, juce::jmax (1, lateMs));
    if (lateMs > 0)
        releaser.startThread();

    std::cout << "Corvane \"" << name << "\" on MIDI channel " << channel << " (seed " << seed << ")" << std::endl;

    std::string line;
    while (std::getline (std::cin, line))
    {
        const auto words = juce::StringArray::fromTokens (juce::String (line), true);
        if (words.isEmpty())
            continue;
        const auto& cmd = words[0];
        const int a = words[1].getIntValue(), b = words[2].getIntValue();
        if (cmd == "quit")
            break;
        if (cmd == "knob" && words.size() == 3)
            corvane.movePanel (a, b);
        else if (cmd == "note" && words.size() == 3)
            corvane.playNote (a, b);
        else if (cmd == "program" && words.size() == 3)
            corvane.selectProgram (a, b);
        else
            std::cerr << usage;
    }

    releaser.stopThread (-1);
    input->stop();
    corvane.setOutput (nullptr);
    return 0;
}
