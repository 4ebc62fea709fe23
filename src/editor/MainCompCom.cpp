// The tool-bar's buttons and its timer.

#include "editor/MainComp.h"

#include "device/MidiCntrState.h"
#include "editor/AppBar.h"
#include "editor/EditorPanel.h"
#include "editor/KeyBrd.h"
#include "editor/ProgBar.h"

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

void MainComp::show_MIDI (bool) {}

void MainComp::Config_MIDI (int, int) {}

void MainComp::MidiChannelMenu() {}
