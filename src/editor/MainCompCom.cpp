// The tool-bar's buttons and its timer.

#include "editor/MainComp.h"

#include "device/MIDI_PORTS_Control.h"
#include "device/MIDI_SETUP.h"
#include "device/MIDI_scan.h"
#include "device/MidiCntrState.h"
#include "editor/AppBar.h"
#include "editor/EditorPanel.h"
#include "editor/KeyBrd.h"
#include "editor/ProgBar.h"
#include "editor/controls/Check_But.h"
#include "plugin/MIDI_Sync.h"

void MainComp::IvrButAct (int id)
{
    switch (id)
    {
        case 99:  Show_Window (103, ! bankPanelShown, 0); break;
        case 75:  fileMenu(); break;
        case 73:  editMenu(); break;
        case 701: sendMenu(); break;
        case 729: Show_Window (107, true, state->hostProgram); break;
        case 71:  state->Dump_Request (5, 0, 0); break;
        case 103: Show_Window (106, ! advancedShown, 0); break;
        case 968: Show_Window (102, ! aboutShown, 0); break;
        case 77:  show_MIDI (! midiPanelShown); break;
        case 969: Show_Window (100, ! writeDialogShown, 0); break;
        case 70:  TransmitBuffer(); break;
        case 72:  PasteBuffer(); break;
        case 967:
            keyboardShown = ! keyboardShown;
            keyboard->setAlwaysOnTop (false);
            keyboard->setAlwaysOnTop (true);
            keyboard->setVisible (keyboardShown);
            ResizePanels();
            break;
        default:  break;
    }
}

void MainComp::startAutomationSender()
{
    sendParams.clearQuick();
    sendValues.clearQuick();

    for (int i = 17; i <= 66; ++i)
    {
        sendParams.add (i);
        sendValues.add (editorPanel->control (i)->currentValue);
    }
    for (int i = 67; i <= 68; ++i)
    {
        sendParams.add (i);
        sendValues.add (keyboard->control (i)->currentValue);
    }

    returnBank = state->bankNumber;
    state->transferStep = 199;
    state->transferProgram = 0;
    state->transferBank = 0;
    state->transferTimerOn = true;
    appBar->startTimer (50);
}

void MainComp::AppTimerCallback()
{
    if (state->transferStep == 100 || state->transferStep == 150)
    {
        Transmit_Program_From_Bank (state->transferBank, state->transferProgram);
        ++state->transferProgram;
        return;
    }
    if (state->transferStep != 199)
        return;

    const int count = sendParams.size();

    if (state->transferProgram == 0 && state->transferBank == 0)
    {
        progressBar = std::make_unique<ProgBar> (getWidth(), getHeight());
        addAndMakeVisible (*progressBar);
        progressBar->cancelButton.addChangeListener (this);
        state->transferBusy = true;
        progressBar->setAlwaysOnTop (true);
        progressBar->cancelButton.setVisible (false);
        progressBar->enterModalState (false);
    }
    else if (state->transferProgram != count)
    {
        if (progressBar != nullptr)
            progressBar->setValue ((127 / juce::jmax (1, count)) * state->transferProgram);
    }
    else
    {
        hideProgressBar();
        return;
    }

    // One parameter leaves every third tick, 150 ms apart.
    switch (state->transferBank)
    {
        case 0:
            state->transferBank = 1;
            break;
        case 1:
            if (const int entry = state->transferProgram; juce::isPositiveAndBelow (entry, count))
                state->PARAMETER_CHANGE (sendParams[entry], sendValues[entry]);
            state->transferBank = 2;
            break;
        default:
            state->transferBank = 0;
            ++state->transferProgram;
            break;
    }
}

//==============================================================================
// The MIDI page.

void MainComp::show_MIDI (bool show)
{
    midiPanelShown = show;

    if (! show)
    {
        state->ReadWritePorts (1);
        if (midiPanel != nullptr)
        {
            midiPanel->setVisible (false);
            midiPanel.reset();
        }
        return;
    }

    if (midiPanel != nullptr)
        return;

    midiPanel = std::make_unique<MIDI_Setup>();
    addAndMakeVisible (*midiPanel);
    midiPanel->setBounds (getLocalBounds());
    midiPanel->setAlwaysOnTop (false);
    midiPanel->setAlwaysOnTop (true);
    midiPanel->addChangeListener (this);
    midiPanel->syncPanel->addChangeListener (this);

    // The lists as the devices stand now: "NONE" first, then the ports in the manager's order, so
    // that an entry's index less one is the index open_Device takes.
    auto& ports = *state->portControl;
    const auto list = [] (MIDI_PORTS_Control& control, bool isInput, juce::StringArray& names, juce::StringArray& shown)
    {
        control.updateDeviceList (isInput);
        names.clear();
        shown.clear();
        shown.add ("NONE");
        for (auto* entry : isInput ? control.midiInputs : control.midiOutputs)
            names.add (entry->deviceInfo.name);
        shown.addArray (names);
    };
    list (ports, true, ports.inputNames, midiPanel->inputList);
    list (ports, false, ports.outputNames, midiPanel->outputList);

    midiPanel->inputChoice = ports.currentInput + 1;
    midiPanel->thirdChoice = ports.currentThird + 1;
    midiPanel->outputChoice = ports.currentOutput + 1;
    midiPanel->inputOpenLamp = ports.inputOpen;
    midiPanel->outputOpenLamp = ports.outputOpen;
    midiPanel->clockCheck->checked = state->localFlag;

    midiPanel->placePanel ((getWidth() - 400) / 2, 120);

    juce::Array<int> values;
    for (int i = 0; i < juce::jmin ((int) state->syncValues.size(), state->syncValueCount.load()); ++i)
        values.add (state->syncValues[(size_t) i]);
    midiPanel->syncPanel->setUp (state->isLogicHost, state->syncMode, state->sampleRateIndex, values);

    state->getPOLL();
}

void MainComp::Config_MIDI (int command, int value)
{
    auto& ports = *state->portControl;

    switch (command)
    {
        case 201:
            state->getPOLL();
            return;

        case 203:
            midiPanelShown = false;
            state->getPOLL();
            state->ReadWriteIni (1);
            show_MIDI (false);
            return;

        case 206:
            state->localFlag = value == 1;
            state->setIniSlot (43, value == 1 ? "1" : "0");
            break;

        case 211:
        {
            // A second scan command restarts an open scan.
            if (state->scanActive)
            {
                state->scanActive = false;
                if (scanPanel != nullptr)
                {
                    scanPanel->setVisible (false);
                    scanPanel.reset();
                }
            }
            show_Scan (! state->scanActive);
            return;
        }

        case 300:
        case 302:
        {
            const bool isInput = command == 300;
            // The names as the devices stand now: the panel's list may be older.
            juce::StringArray names;
            for (const auto& info : isInput ? ports.backend.getInputDevices() : ports.backend.getOutputDevices())
                names.add (info.name);

            const int slot = isInput ? 0 : 1;
            while (state->portNames.size() <= slot)
                state->portNames.add ("NONE");
            if (value == 0)
                state->portNames.set (slot, "NONE");
            else if (value >= 1 && value <= names.size())
                state->portNames.set (slot, names[value - 1]);

            // An output left for "NONE" stays open until the next start.
            if (isInput && ports.currentInput >= 0)
                ports.closeDevice (true, ports.currentInput);

            if (value > 0)
            {
                ports.updateDeviceList (isInput);
                state->open_Device (isInput, value - 1);
            }

            if (midiPanel != nullptr)
            {
                (isInput ? midiPanel->inputChoice : midiPanel->outputChoice) = value;
                (isInput ? midiPanel->inputOpenLamp : midiPanel->outputOpenLamp) = isInput ? ports.inputOpen.load() : ports.outputOpen.load();
                midiPanel->repaint();
            }
            break;
        }

        case 301:
            break;

        default:
            return;
    }

    state->getPOLL();
    state->ReadWriteIni (1);
}

void MainComp::MidiChannelMenu()
{
    juce::PopupMenu menu;
    for (int channel = 1; channel <= 16; ++channel)
        menu.addItem (channel, "Channel " + juce::String (channel));

    // The channel takes effect at the next message; the settings are written with the next port
    // or close command.
    showMenu (std::move (menu), &appBar->channelLabel, [this] (int channel)
    {
        state->midiChannel = channel;
        state->setIniSlot (41, juce::String (channel));
        appBar->channelLabel.text = "Chan: " + juce::String (channel);
        appBar->channelLabel.repaint();
    });
}
