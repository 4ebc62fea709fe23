#include "plugin/PluginProcessor.h"

#include "device/InProcessMidiBackend.h"
#include "device/MIDI_PORTS_Control.h"
#include "editor/MainComp.h"
#include "plugin/HandlerComp.h"
#include "plugin/PluginEditor.h"
#include "sound/AutoBank.h"

#include <cmath>
#include <cstring>

namespace
{
// Largest host message (SysEx included) that is forwarded without growing the send buffer.
constexpr int sendBufferBytes = 4096;
} // namespace

DeskerAudioProcessor::DeskerAudioProcessor (const juce::File& settingsFolder, MidiBackend* midiBackend)
    : DeskerAudioProcessor (settingsFolder, midiBackend, nullptr)
{
}

DeskerAudioProcessor::DeskerAudioProcessor (Detached)
    : DeskerAudioProcessor ({}, nullptr, std::make_unique<InProcessMidiBackend>())
{
}

DeskerAudioProcessor::DeskerAudioProcessor (const juce::File& settingsFolder, MidiBackend* midiBackend,
                                            std::unique_ptr<MidiBackend> ownBackend)
    : juce::AudioProcessor (BusesProperties()
                                .withInput ("Input", juce::AudioChannelSet::stereo(), true)
                                .withOutput ("Output", juce::AudioChannelSet::stereo(), true)),
      detachedBackend (std::move (ownBackend)),
      midiCntrState (detachedBackend != nullptr ? detachedBackend.get() : midiBackend)
{
    resetPosition (hostPosition);

    midiCntrState.settingsFolder = settingsFolder;
    midiCntrState.keepsNoFiles = detachedBackend != nullptr;
    midiCntrState.InitializeMe();

    midiCntrState.handler->addChangeListener (this);

    hostValues[64] = 100; // "VOLUME": the one raw-MIDI parameter that does not start at 0
    gestureOpen.setSize (1000, true);
    if (clockBuffer.data.size() < 2048)
        clockBuffer.ensureSize (3080);
    sendBuffer.ensureSize (sendBufferBytes);

    // Headless hosts scan plug-ins with no display: then the smallest size is taken. A detached
    // processor asks no display (the desktop would start the system's settings tools).
    int displayHeight = 0;
    if (detachedBackend == nullptr && juce::MessageManager::getInstanceWithoutCreating() != nullptr)
        if (auto* display = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay())
            displayHeight = display->userArea.getHeight();

    const auto size = editorSizeForDisplayHeight (displayHeight);
    editorWidth = size.x;
    editorHeight = size.y;

    resetPosition (hostPosition);
    setLatencySamples (0);

    for (int i = 0; i < (int) initialValues.size(); ++i)
        initialValues[(size_t) i] = getParameter (i);
}

DeskerAudioProcessor::~DeskerAudioProcessor()
{
    stopTimer();
    if (midiCntrState.handler != nullptr)
        midiCntrState.handler->removeChangeListener (this);
}

//==============================================================================
int DeskerAudioProcessor::sampleRateIndexFor (int sampleRate)
{
    switch (sampleRate)
    {
        case 48100:  return 1; // not 48000: the hardware tables were measured so
        case 88200:  return 2;
        case 96000:  return 3;
        case 176400: return 4;
        case 192000: return 5;
        default:     return 0;
    }
}

juce::Point<int> DeskerAudioProcessor::editorSizeForDisplayHeight (int userAreaHeight)
{
    if (userAreaHeight >= 1410) return { 1505, 739 };
    if (userAreaHeight >= 1290) return { 1354, 665 };
    if (userAreaHeight >= 1160) return { 1279, 628 };
    if (userAreaHeight >= 1030) return { 1128, 554 };
    return { 978, 480 };
}

void DeskerAudioProcessor::resetPosition (juce::AudioPlayHead::CurrentPositionInfo& position)
{
    position = {};
    position.bpm = 120.0;
    position.timeSigNumerator = 4;
    position.timeSigDenominator = 4;
    position.frameRate = juce::AudioPlayHead::fps24;
}

void DeskerAudioProcessor::takeSampleRate (int rate)
{
    midiCntrState.sampleRate = (double) rate;
    midiCntrState.sampleRateIndex = sampleRateIndexFor (rate);
}

//==============================================================================
void DeskerAudioProcessor::prepareToPlay (double sampleRate, int samplesPerBlock)
{
    takeSampleRate ((int) sampleRate);
    midiCntrState.blockSize = samplesPerBlock;
    setLatencySamples (0);
    midiClock.enabled = midiCntrState.localFlag.load();

    const juce::ScopedLock sl (midiCntrState.lock);
    midiCntrState.noteHeld.fill (0);
    midiCntrState.hostMidi.clear();
}

void DeskerAudioProcessor::releaseResources()
{
    midiClock.enabled = midiCntrState.localFlag.load();
    const juce::ScopedLock sl (midiCntrState.lock);
    midiCntrState.noteHeld.fill (0);
    midiCntrState.hostMidi.clear();
}

void DeskerAudioProcessor::processBlock (juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi)
{
    const int numSamples = buffer.getNumSamples();

    const int rate = (int) getSampleRate();
    if ((double) rate != midiCntrState.sampleRate.load())
        takeSampleRate (rate);
    midiCntrState.blockSize = numSamples;

    runClock (numSamples);

    {
        const juce::ScopedLock sl (midiCntrState.lock);

        for (const auto event : midi)
        {
            hostMidiToDevice (event);
            hostMidiToState (event);
        }

        // What the host sent does not pass through to its output.
        midi.clear();

        deviceNotesToHost (midi, numSamples);
    }

    for (int channel = getTotalNumInputChannels(); channel < getTotalNumOutputChannels(); ++channel)
        buffer.clear (channel, 0, numSamples);

    // Read at the end of the block: the clock works from the previous block's position.
    readPlayHead();
}

void DeskerAudioProcessor::runClock (int numSamples)
{
    const juce::ScopedLock sl (clockLock);

    auto* ports = midiCntrState.portControl.get();
    if (ports == nullptr || ! ports->outputOpen)
        return;

    const double rate = midiCntrState.sampleRate.load();
    midiClock.runBlock (hostPosition, rate, numSamples, clockBuffer);

    if (clockBuffer.isEmpty())
        return;

    // With the clock switched off not even Stop, Continue or the pointer reach the instrument.
    midiClock.enabled = midiCntrState.localFlag.load();
    if (midiClock.enabled && ports->outputOpen)
        ports->sendBlockOfMessages (clockBuffer,
                                    juce::Time::getMillisecondCounterHiRes() + midiCntrState.getCompensation(),
                                    (double) (int) rate);
    clockBuffer.clear();
}

//==============================================================================
bool DeskerAudioProcessor::sendsToDeviceAtOnce (const juce::uint8* data, int numBytes)
{
    if (numBytes < 1)
        return false;

    const int status = data[0];

    if (status >= 0xF0 || status < 0x80)
        return true;

    switch (status & 0xF0)
    {
        case 0xC0:
            return false;
        case 0xB0:
        {
            const int controller = numBytes > 1 ? data[1] : 0;
            return controller == 1 || controller == 2 || controller >= 89;
        }
        default:
            return true;
    }
}

void DeskerAudioProcessor::hostMidiToDevice (const juce::MidiMessageMetadata& event)
{
    const auto* data = event.data;
    const int numBytes = event.numBytes;
    const int status = numBytes > 0 ? data[0] : 0;

    if (numBytes >= 3 && (status & 0xF0) == 0x90)
        midiCntrState.noteHeld[(size_t) (data[1] & 0x7F)] = data[2] > 0 ? 1 : 0;
    else if (numBytes >= 3 && (status & 0xF0) == 0x80)
        midiCntrState.noteHeld[(size_t) (data[1] & 0x7F)] = 0;

    auto* ports = midiCntrState.portControl.get();
    if (ports == nullptr || ! ports->outputOpen || ! sendsToDeviceAtOnce (data, numBytes))
        return;

    // A message at sample 0 leaves at once; later ones line up with the audio, compensated.
    double start = juce::Time::getMillisecondCounter();
    if (event.samplePosition >= 1)
        start += midiCntrState.getCompensation();

    sendBuffer.clear();
    sendBuffer.addEvent (data, numBytes, event.samplePosition);
    ports->sendBlockOfMessages (sendBuffer, start, (double) (int) midiCntrState.sampleRate.load());
}

void DeskerAudioProcessor::hostMidiToState (const juce::MidiMessageMetadata& event)
{
    const auto* data = event.data;
    const int numBytes = event.numBytes;
    if (numBytes < 1)
        return;

    const int status = data[0];
    const int kind = status & 0xF0;
    const int channel = status >= 0xF0 ? 0 : (status & 0x0F) + 1;
    const int data1 = numBytes > 1 ? data[1] & 0x7F : 0;
    const int data2 = numBytes > 2 ? data[2] & 0x7F : 0;
    auto& state = midiCntrState;

    if (kind == 0xC0 && status < 0xF0)
    {
        if (data1 != state.programNumber.load())
        {
            state.programNumber = data1;
            state.PROGRAM_MESSAGE (state.bankNumber.load(), data1, true, false);
        }
        return;
    }

    const bool isController = kind == 0xB0 && status < 0xF0;
    if (isController)
    {
        if (data1 == 0)
            return;

        if (data1 == 32)
            state.bankNumber = data2;
        else
            state.Internal_ControlChange (channel, data1, data2);
    }

    if (kind == 0x90 && data2 > 0)
        state.Internal_UpdInt (0x840000u + ((unsigned) channel << 14) + ((unsigned) data1 << 7) + (unsigned) data2);
    else if (kind == 0x80 || kind == 0x90)
        state.Internal_NoteOff (channel, data1);

    if (isController && data1 == 123)
        for (int note = 0; note < 128; ++note)
            state.Internal_NoteOff (channel, note);

    if (kind == 0xE0 && status < 0xF0)
        state.Internal_UpdInt (0x8C0000u + ((unsigned) channel << 14) + (unsigned) (data1 | (data2 << 7)));
}

int DeskerAudioProcessor::spreadPosition (int stamp, int first, int last, int numSamples)
{
    const double position = (double) (stamp - first) * numSamples / (double) (last - first + 1);
    const int rounded = (int) std::nearbyint (position); // ties to even
    return juce::jlimit (0, juce::jmax (0, numSamples - 1), rounded);
}

void DeskerAudioProcessor::deviceNotesToHost (juce::MidiBuffer& midi, int numSamples)
{
    auto& waiting = midiCntrState.hostMidi;
    if (waiting.isEmpty())
        return;

    const int first = waiting.getFirstEventTime();
    const int last = waiting.getLastEventTime();

    for (const auto event : waiting)
        midi.addEvent (event.data, event.numBytes, spreadPosition (event.samplePosition, first, last, numSamples));

    waiting.clear();
}

void DeskerAudioProcessor::readPlayHead()
{
    auto* playHead = getPlayHead();
    const auto position = playHead != nullptr ? playHead->getPosition() : juce::Optional<juce::AudioPlayHead::PositionInfo>();

    resetPosition (hostPosition);
    if (! position.hasValue())
        return;

    auto& p = hostPosition;
    if (auto bpm = position->getBpm()) p.bpm = *bpm;
    if (auto sig = position->getTimeSignature())
    {
        p.timeSigNumerator = sig->numerator;
        p.timeSigDenominator = sig->denominator;
    }
    if (auto samples = position->getTimeInSamples()) p.timeInSamples = *samples;
    if (auto seconds = position->getTimeInSeconds()) p.timeInSeconds = *seconds;
    if (auto origin = position->getEditOriginTime()) p.editOriginTime = *origin;
    if (auto ppq = position->getPpqPosition()) p.ppqPosition = *ppq;
    if (auto bar = position->getPpqPositionOfLastBarStart()) p.ppqPositionOfLastBarStart = *bar;
    if (auto rate = position->getFrameRate()) p.frameRate = rate->getType();
    p.isPlaying = position->getIsPlaying();
    p.isRecording = position->getIsRecording();
    p.isLooping = position->getIsLooping();
    if (auto loop = position->getLoopPoints())
    {
        p.ppqLoopStart = loop->ppqStart;
        p.ppqLoopEnd = loop->ppqEnd;
    }
}

//==============================================================================
const juce::String DeskerAudioProcessor::getParameterName (int index)
{
    static const char* const soundNames[] = {
        "LFO Rate", "Glide Rate", "Mod Wheel Amt", "Pedal Amt", "Osc 2 Freq", "Osc 3 Freq", "Osc 1 Wave",
        "Osc 2 Wave", "Osc 3 Wave", "Filter Spacing", "Ext Audio", "Osc 1 level", "Osc 2 level", "Osc 3 level",
        "Noise level", "Filter Cutoff", "Filter Res", "Filter Env Amt", "Filter kb Amt", "Head Phone Amt",
        "Filter Attack", "Filter Decay", "Filter Sustain", "Filter Release", "Volume Attack", "Volume Decay",
        "Volume Sustain", "Volume Release", "Master Volume", "LFO Sync", "Wheel Src", "Wheel Dst",
        "Wheel Shaping", "Pedal Src", "Pedal Dst", "Pedal Shaping", "Octave osc 1", "Octave osc 2",
        "Octave osc 3", "Osc 1-2 Sync", "Osc 3-1 FM", "Osc 3 KB Ctrl", "Osc 3 Freq", "Ext Audio on/off",
        "Osc 1 on/off", "Osc 2 on/off", "Osc 3 on/off", "noise on/off", "Filter Mode", "Env KB Gate",
        "Release on/Off", "Glide on/off", "Touch Surf X", "Touch Surf Y", "Touch Surf A", "Touch Surf G" };

    if (juce::isPositiveAndBelow (index, (int) std::size (soundNames)))
        return soundNames[index];

    if (index == 56) return "PROGRAM";
    if (index == 58) return "MOD WHEEL";
    if (index == 64) return "VOLUME";
    if (index == 89) return "BANK";
    if (index >= 57 && index <= 184) return "CC# " + juce::String (index - 57);
    if (index >= 185 && index <= 312) return "AT# " + juce::String (index - 185);
    if (index == 313) return "PITCHBEND";
    if (index == 314) return "CHANNELPRESS";
    return {};
}

//==============================================================================
namespace
{
const char bankTag[] = "CorvanePluginBank";         // 17 bytes, no terminator
const char programTag[] = "CorvanePluginSettings";  // 21 bytes, no terminator
const char versionTag[] = "Version100";             // 10 bytes, never compared on reading
constexpr int bankTagSize = 17, programTagSize = 21, versionSize = 10;

bool startsWithTag (const void* data, int size, const char* tag, int tagSize, int needed)
{
    // A chunk too short for its layout is ignored like a foreign one.
    return data != nullptr && size >= needed && std::memcmp (data, tag, (size_t) tagSize) == 0;
}
} // namespace

int DeskerAudioProcessor::getCurrentProgram()
{
    return midiCntrState.hostProgram;
}

void DeskerAudioProcessor::setCurrentProgram (int index)
{
    if (! juce::isPositiveAndBelow (index, AutoBank::numPrograms))
        return;

    auto& state = midiCntrState;
    state.hostProgram = index;

    if (! state.updateHostActive)
    {
        state.SEND_HOST_DISPLAY();
    }
    else
    {
        // The open slot dialog follows the host's program list; the instrument stays as it is.
        state.hostEvents.push (180);
        sendChangeMessage();
    }
}

const juce::String DeskerAudioProcessor::getProgramName (int index)
{
    auto* store = midiCntrState.editBuffer;
    if (store == nullptr || ! juce::isPositiveAndBelow (index, AutoBank::numPrograms))
        return {};
    return store->get_ProgramName (index);
}

void DeskerAudioProcessor::changeProgramName (int index, const juce::String& newName)
{
    auto& state = midiCntrState;
    auto* store = state.editBuffer;
    if (state.updateHostActive || store == nullptr || ! juce::isPositiveAndBelow (index, AutoBank::numPrograms))
        return;

    // 24 characters stay whole; 25 or more are cut to 23, then padded to 24.
    auto name = newName.length() >= 25 ? newName.substring (0, 23) : newName;
    name = name.paddedRight (' ', 24);

    auto* bytes = static_cast<juce::uint8*> (store->bankData.getData());
    for (int n = 0; n < 24; ++n)
        bytes[index * AutoBank::programBytes + (151 + n) * 2] =
            (juce::uint8) AutoBank::fromASC (juce::String::charToString (name[n]));

    state.hostProgram = index;
    state.SEND_HOST_DISPLAY();
}

void DeskerAudioProcessor::getStateInformation (juce::MemoryBlock& destData)
{
    destData.append (bankTag, bankTagSize);
    destData.append (versionTag, versionSize);
    if (auto* store = midiCntrState.editBuffer)
        destData.append (store->bankData.getData(), AutoBank::bankBytes);
}

void DeskerAudioProcessor::setStateInformation (const void* data, int sizeInBytes)
{
    auto* store = midiCntrState.editBuffer;
    const int header = bankTagSize + versionSize;
    if (store == nullptr || ! startsWithTag (data, sizeInBytes, bankTag, bankTagSize, header + AutoBank::bankBytes))
        return;

    // Nothing goes to the instrument: it follows at the host's next program selection.
    std::memcpy (store->bankData.getData(), static_cast<const char*> (data) + header, AutoBank::bankBytes);
}

void DeskerAudioProcessor::getCurrentProgramStateInformation (juce::MemoryBlock& destData)
{
    auto* store = midiCntrState.editBuffer;
    const int program = midiCntrState.hostProgram;

    destData.append (programTag, programTagSize);
    destData.append (versionTag, versionSize);
    if (store == nullptr)
        return;

    // The current edit is folded into the store first.
    store->setStoredProgram (program, store->patchData);
    destData.append (static_cast<const char*> (store->bankData.getData()) + program * AutoBank::programBytes,
                     AutoBank::programBytes);
}

void DeskerAudioProcessor::setCurrentProgramStateInformation (const void* data, int sizeInBytes)
{
    auto& state = midiCntrState;
    auto* store = state.editBuffer;
    const int header = programTagSize + versionSize;
    if (store == nullptr || ! startsWithTag (data, sizeInBytes, programTag, programTagSize, header + AutoBank::programBytes))
        return;

    const int program = state.hostProgram;
    std::memcpy (static_cast<char*> (store->bankData.getData()) + program * AutoBank::programBytes,
                 static_cast<const char*> (data) + header, AutoBank::programBytes);
    store->BankToPatch (program);
    state.SEND_HOST_DISPLAY();
}

//==============================================================================
juce::AudioProcessorEditor* DeskerAudioProcessor::createEditor()
{
    auto* editor = new DeskerAudioProcessorEditor (*this);
    // Settings that could not be read while the instrument is silent: look for it.
    if (midiCntrState.iniFresh && ! midiCntrState.deviceOnline)
        editor->getMainComp()->show_Scan (! midiCntrState.scanActive);
    return editor;
}
