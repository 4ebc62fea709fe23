// The host's parameter list: 56 sound parameters of the edit buffer and 259 raw MIDI parameters.

#include "plugin/PluginProcessor.h"

#include "device/MIDI_PORTS_Control.h"
#include "plugin/HandlerComp.h"
#include "sound/AutoBank.h"

#include <cmath>

namespace
{
constexpr int numHostParameters = 315;
constexpr int firstMidiParameter = 56;
} // namespace

int DeskerAudioProcessor::currentSoundValue (int index) const
{
    const auto& state = midiCntrState;
    const int s = state.hostToSound[index]; // beyond a table's end reads as 0

    if (s >= 69 && s <= 72)
        return state.tsValue[(size_t) (s - 69)].load();

    const int word = state.editBuffer != nullptr ? state.editBuffer->patchData[s] : 0;
    return (s >= 17 && s <= 45) ? word >> 8 : word;
}

float DeskerAudioProcessor::getParameter (int index)
{
    if (! juce::isPositiveAndBelow (index, numHostParameters))
        return 0.0f;

    const int value = index < firstMidiParameter ? currentSoundValue (index) : hostValues[(size_t) index].load();
    return midiCntrState.normalisedFor (index, value);
}

float DeskerAudioProcessor::getParameterDefaultValue (int index)
{
    return juce::isPositiveAndBelow (index, numHostParameters) ? initialValues[(size_t) index] : 0.0f;
}

juce::String DeskerAudioProcessor::getParameterID (int index)
{
    return "p" + juce::String (index).paddedLeft ('0', 3);
}

const juce::String DeskerAudioProcessor::getParameterText (int index)
{
    if (! juce::isPositiveAndBelow (index, numHostParameters))
        return {};

    const auto& state = midiCntrState;

    if (index < firstMidiParameter)
        return ParDes::SndParDes (state.autoParamB[index], currentSoundValue (index));

    const int bank = hostValues[89].load();
    const auto bankLetter = juce::String::charToString ((juce::juce_wchar) ('A' + bank));

    if (index == 89)
        return bankLetter;

    if (index == 56)
    {
        const int program = hostValues[56].load();
        auto* store = juce::isPositiveAndBelow (bank, (int) state.banks.size()) ? state.banks[(size_t) bank] : nullptr;
        const auto name = (store != nullptr && juce::isPositiveAndBelow (program, AutoBank::numPrograms))
                              ? store->get_ProgramName (program)
                              : juce::String();
        return bankLetter + ":" + juce::String (program + 1).paddedLeft ('0', 3) + " " + name;
    }

    return juce::String (hostValues[(size_t) index].load());
}

void DeskerAudioProcessor::setParameter (int index, float value)
{
    if (! juce::isPositiveAndBelow (index, numHostParameters) || ! std::isfinite (value))
        return;

    // Hosts pass 0 to 1; the instrument's pitch wheel arrives a little above 1.
    const int top = (juce::int16) midiCntrState.paramMax[index];
    const int v = (int) std::nearbyint (top * juce::jlimit (0.0f, 2.0f, value)); // ties to even

    if (index < firstMidiParameter)
        setSoundParameter (index, v);
    else
        setMidiParameter (index, v);
}

void DeskerAudioProcessor::setSoundParameter (int index, int v)
{
    auto& state = midiCntrState;
    const int s = state.hostToSound[index];

    if (v == currentSoundValue (index))
        return;

    if (s >= 69 && s <= 72)
        state.tsValue[(size_t) (s - 69)] = v;
    else if (state.editBuffer != nullptr)
        state.editBuffer->patchData.set (s, (unsigned short) ((s >= 17 && s <= 45) ? v << 8 : v)); // low byte lost

    state.SEND_PARAM_CC (s, v, state.getCompensation());
    state.Internal_UpdInt (0x400000u + ((unsigned) s << 8) + (unsigned) v);
}

void DeskerAudioProcessor::setMidiParameter (int index, int v)
{
    auto& state = midiCntrState;

    if (hostValues[(size_t) index].load() == v)
        return;
    hostValues[(size_t) index] = v;

    auto* ports = state.portControl.get();
    const int channel = state.midiChannel.load();
    const bool canSend = ports != nullptr && ports->outputOpen && channel >= 0 && channel <= 16;
    const auto status = [channel] (int kind) { return (juce::uint8) (kind + juce::jmax (1, channel) - 1); };

    if (index == 56)
    {
        state.programNumber = v;
        state.PROGRAM_MESSAGE (state.bankNumber.load(), v, true, false);
    }
    else if (index == 89)
    {
        state.bankNumber = v;
    }
    else if (index <= 184)
    {
        const int controller = index - 57;
        if (ports != nullptr)
            ports->Send_CC (channel, controller, v);
        if (controller == 1)
            state.Internal_ControlChange (channel, 1, v);
    }
    else if (index <= 312)
    {
        const juce::uint8 bytes[] = { status (0xA0), (juce::uint8) (index - 185), (juce::uint8) (v & 127) };
        if (canSend)
            ports->sendShortMessage (bytes, 3);
    }
    else if (index == 313)
    {
        if (ports != nullptr)
            ports->Send_PitchBend (channel, v);
        state.Internal_UpdInt (0x380000u + ((unsigned) channel << 14) + (unsigned) v);
    }
    else
    {
        const juce::uint8 bytes[] = { status (0xD0), (juce::uint8) (v & 127) };
        if (canSend)
            ports->sendShortMessage (bytes, 2);
    }
}

//==============================================================================
void DeskerAudioProcessor::changeListenerCallback (juce::ChangeBroadcaster* source)
{
    auto* handler = midiCntrState.handler.get();
    if (handler == nullptr || source != handler)
        return;

    auto* open = static_cast<juce::uint8*> (gestureOpen.getData());
    HandlerComp::PendingParam item;

    JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")
    while (handler->nextPending (item))
    {
        const int p = item.index;
        if (! juce::isPositiveAndBelow (p, numHostParameters))
            continue;

        // Truncated on purpose: any move above 0 then differs in setParameter and goes back to
        // the instrument at full value.
        if (p >= firstMidiParameter)
            hostValues[(size_t) p] = (int) item.value;

        if (open[p] == 0)
        {
            open[p] = 1;
            beginParameterChangeGesture (p);
        }

        setParameterNotifyingHost (p, item.value);

        if (p >= firstMidiParameter)
        {
            open[p] = 0;
            endParameterChangeGesture (p);
        }
        else
        {
            // A burst of knob moves is one gesture, ended by the timer 200 ms after the last.
            if (open[p] != 0)
                gesturePending.add ((juce::uint16) p);
            startTimer (200);
        }
    }
    JUCE_END_IGNORE_WARNINGS_GCC_LIKE
}

void DeskerAudioProcessor::timerCallback()
{
    auto* open = static_cast<juce::uint8*> (gestureOpen.getData());

    JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")
    for (auto p : gesturePending)
    {
        if (open[p] != 0)
        {
            open[p] = 0;
            endParameterChangeGesture (p);
        }
    }
    JUCE_END_IGNORE_WARNINGS_GCC_LIKE

    gesturePending.clearQuick();
}
