#include "device/MIDI_scan.h"

#include "device/MIDI_PORTS_Control.h"
#include "device/MidiCntrState.h"

namespace
{
// The searching page: its title, the pair under test and how to stop.
constexpr int searchHeight = 95;
constexpr int lineStep = 20;
constexpr int firstPairLine = 105;

int indexOf (const juce::ReferenceCountedArray<MidiDeviceListEntry>& list, const juce::MidiDeviceInfo& info)
{
    for (int i = 0; i < list.size(); ++i)
        if (list.getUnchecked (i)->deviceInfo == info)
            return i;
    return -1;
}

juce::String pairLine (const juce::MidiDeviceInfo& input, const juce::MidiDeviceInfo& output)
{
    return "- Tried IN: " + input.name + "   OUT: " + output.name;
}
} // namespace

MIDI_scan::MIDI_scan (MidiCntrState* controllerState) : state (controllerState)
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);

    helpLink = std::make_unique<juce::HyperlinkButton> ("Host settings", juce::URL (helpAddress));
    helpLink->setFont (juce::Font ("Arial", 15.0f, juce::Font::underlined), false, juce::Justification::centredRight);
    helpLink->setColour (juce::HyperlinkButton::textColourId, juce::Colour (0xcc8ed3ff));
    helpLink->setWantsKeyboardFocus (false);
    helpLink->setMouseClickGrabsKeyboardFocus (false);
    helpLink->setBounds (350, 10, 150, 24);
    addChildComponent (*helpLink);
}

MIDI_scan::~MIDI_scan()
{
    stopTimer();
    // A scan that ends unfinished leaves the ports as they were before it.
    if (waitingReply)
        restorePorts();
    state->scanActive = false;
}

void MIDI_scan::startScan (int x, int y)
{
    auto& ports = *state->portControl;
    inputWasOpen = ports.inputOpen && ports.midiInputs[ports.currentInput] != nullptr;
    outputWasOpen = ports.outputOpen && ports.midiOutputs[ports.currentOutput] != nullptr;
    if (inputWasOpen)
        inputBefore = ports.midiInputs[ports.currentInput]->deviceInfo;
    if (outputWasOpen)
        outputBefore = ports.midiOutputs[ports.currentOutput]->deviceInfo;

    buildCandidates();
    portCount = (int) candidates.size();
    triesPerPort = pollsPerPair;
    portIndex = 0;
    tryIndex = 0;
    notConnected = false;
    polling = false;
    waitingReply = true;
    triedPairs.clear();

    const int lines = juce::jmax (1, juce::jmin (portCount, listedPairs) + (portCount > listedPairs ? 1 : 0));
    panelX = x;
    panelY = y;
    panelWidth = width;
    panelHeight = firstPairLine - 5 + lineStep * lines;

    // Only a reply to this scan's polls counts.
    state->deviceOnline = false;
    if (portCount > 0)
        openCandidate (0);

    setBounds (panelX, panelY, panelWidth, searchHeight);
    startTimer (tickMs);
}

void MIDI_scan::buildCandidates()
{
    auto& ports = *state->portControl;
    ports.updateDeviceList (true);
    ports.updateDeviceList (false);

    std::vector<Candidate> all, sameName, rest;
    for (auto* output : ports.midiOutputs)
        for (auto* input : ports.midiInputs)
        {
            const Candidate c { input->deviceInfo, output->deviceInfo };
            if (c.input.name == state->portNames[0] && c.output.name == state->portNames[1] && all.empty())
                all.push_back (c);
            else
                (c.input.name == c.output.name ? sameName : rest).push_back (c);
        }

    all.insert (all.end(), sameName.begin(), sameName.end());
    all.insert (all.end(), rest.begin(), rest.end());
    candidates = std::move (all);
}

void MIDI_scan::openCandidate (int index)
{
    const auto& c = candidates[(size_t) index];
    auto& ports = *state->portControl;
    // Closing first lets the old input's last callback end before the pair under test changes.
    openPorts (-1, -1);
    ports.updateDeviceList (true);
    ports.updateDeviceList (false);
    const int input = indexOf (ports.midiInputs, c.input);
    const int output = indexOf (ports.midiOutputs, c.output);
    state->scanInput = input;
    state->scanOutput = output;
    openPorts (input, output);
    triedPairs.add (pairLine (c.input, c.output));
    repaint();
}

void MIDI_scan::openPorts (int input, int output)
{
    auto& ports = *state->portControl;
    ports.closeDevice (true, ports.currentInput);
    ports.closeDevice (false, ports.currentOutput);
    state->open_Device (true, input);
    state->open_Device (false, output);
}

void MIDI_scan::restorePorts()
{
    auto& ports = *state->portControl;
    openPorts (-1, -1);
    ports.updateDeviceList (true);
    ports.updateDeviceList (false);
    openPorts (inputWasOpen ? indexOf (ports.midiInputs, inputBefore) : -1,
               outputWasOpen ? indexOf (ports.midiOutputs, outputBefore) : -1);
}

void MIDI_scan::keepFoundPair()
{
    const int input = state->scanReplyInput;
    const int output = state->scanReplyOutput;
    // The reply may have come just before the move to the next pair.
    if (input != state->scanInput || output != state->scanOutput)
        openPorts (input, output);

    auto& ports = *state->portControl;
    while (state->portNames.size() < 2)
        state->portNames.add ("NONE");
    if (auto* entry = ports.midiInputs[input].get())
        state->portNames.set (0, entry->deviceInfo.name);
    if (auto* entry = ports.midiOutputs[output].get())
        state->portNames.set (1, entry->deviceInfo.name);
    state->ReadWritePorts (1);

    state->setIniSlot (1, juce::String (input));
    state->setIniSlot (2, juce::String (output));
    state->ReadWriteIni (1);
}

void MIDI_scan::timerCallback()
{
    if (state->deviceOnline)
    {
        stopTimer();
        waitingReply = false;
        polling = false;
        keepFoundPair();
        if (! warningLines.isEmpty())
        {
            panelHeight = 50 + lineStep * warningLines.size();
            setBounds (panelX, panelY, panelWidth, panelHeight);
            repaint();
            return;
        }
        sendChangeMessage();
        return;
    }

    if (portIndex >= portCount)
    {
        stopTimer();
        polling = false;
        waitingReply = false;
        notConnected = true;
        restorePorts();
        helpLink->setVisible (true);
        setBounds (panelX, panelY, panelWidth, panelHeight);
        repaint();
        return;
    }

    if (tryIndex >= triesPerPort)
    {
        tryIndex = 0;
        if (++portIndex < portCount)
            openCandidate (portIndex);
        return;
    }

    polling = true;
    state->getPOLL();
    ++tryIndex;
}

void MIDI_scan::mouseDown (const juce::MouseEvent&)
{
    stopTimer();
    sendChangeMessage();
}

void MIDI_scan::paint (juce::Graphics& g)
{
    const bool searching = waitingReply && ! notConnected;
    if (! notConnected && ! searching && warningLines.isEmpty())
        return;

    const auto box = getLocalBounds().toFloat().reduced (2.0f);
    g.setColour (juce::Colour (0xee15222a));
    g.fillRoundedRectangle (box, 10.0f);
    g.setColour (juce::Colour (0xddffffff));
    g.drawRoundedRectangle (box, 10.0f, 3.0f);

    g.setColour (juce::Colours::white);
    const juce::Font title ("Arial", 17.0f, juce::Font::bold);
    const juce::Font line ("Arial", 15.0f, juce::Font::plain);
    const int textWidth = getWidth() - 20;

    if (notConnected)
    {
        g.setFont (title);
        g.drawSingleLineText ("NOT CONNECTED!", 10, 30);
        g.setFont (line);
        g.drawSingleLineText ("- Check USB/MIDI cables.", 10, 55);
        g.drawSingleLineText ("- Check Corvane Master setting: SYSEX send/receive should be set to ON.", 10, 75);

        juce::StringArray lines;
        for (int i = 0; i < juce::jmin (triedPairs.size(), listedPairs); ++i)
            lines.add (triedPairs[i]);
        if (triedPairs.size() > listedPairs)
            lines.add ("- and " + juce::String (triedPairs.size() - listedPairs) + " more pairs");
        if (triedPairs.isEmpty())
            lines.add ("- No MIDI input and output to try.");

        g.setColour (juce::Colour (0xffb8c4cc));
        for (int i = 0; i < lines.size(); ++i)
            g.drawText (lines[i], 10, firstPairLine - 15 + lineStep * i, textWidth, lineStep, juce::Justification::centredLeft, true);
        return;
    }

    if (searching)
    {
        g.setFont (title);
        g.drawSingleLineText ("SEARCHING FOR THE CORVANE...", 10, 30);
        g.setFont (line);
        if (portIndex < (int) candidates.size())
        {
            const auto& c = candidates[(size_t) portIndex];
            g.drawText ("- IN: " + c.input.name + "   OUT: " + c.output.name, 10, 40, textWidth, lineStep,
                        juce::Justification::centredLeft, true);
        }
        g.drawSingleLineText ("Click here to stop.", 10, 80);
        return;
    }

    g.setFont (title);
    g.drawSingleLineText ("WARNING!", 10, 30);
    g.setFont (juce::Font ("Arial", 14.0f, juce::Font::plain));
    g.drawSingleLineText ("Grelt global settings should be set MANUALLY as follows:", 100, 30);
    for (int i = 0; i < warningLines.size(); ++i)
        g.drawSingleLineText (warningLines[i], 120, 50 + lineStep * i);
}
