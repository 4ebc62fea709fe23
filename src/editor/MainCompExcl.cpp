// The start and the end of a bank transfer.

#include "editor/MainComp.h"

#include "device/MIDI_PORTS_Control.h"
#include "device/MidiCntrState.h"
#include "editor/AppBar.h"
#include "editor/ProgBar.h"

void MainComp::startTransfer (int kind, int bank)
{
    if (progressBar != nullptr || ! juce::isPositiveAndBelow (bank, (int) state->banks.size() - 1))
        return;

    state->transferKind = kind;
    returnBank = state->bankNumber;

    progressBar = std::make_unique<ProgBar> (getWidth(), getHeight());
    addAndMakeVisible (*progressBar);
    progressBar->setAlwaysOnTop (true);
    progressBar->cancelButton.addChangeListener (this);
    progressBar->enterModalState (false);
    state->transferBusy = true;

    state->transferProgram = 0;
    if (kind == 100 || kind == 150)
    {
        state->SEND_BANKch (state->midiChannel, bank);
        state->transferStep = 100;
        state->transferBank = bank;
        state->transferTimerOn = true;
        appBar->startTimer (transferTickMs);
    }
    else
    {
        // The instrument paces a receive: each program that arrives asks for the next.
        state->transferBank = bank;
        state->bankDumpActive = true;
        state->SEND_BANKch (state->midiChannel, bank);
        state->Dump_Request (6, 0, 0);
    }
}

void MainComp::hideProgressBar()
{
    // The instrument goes back to where it stood, also after a cancel. The state keeps the bank of the
    // transfer, so that a reply still on its way lands in the bank it came from.
    state->SEND_BNPR (state->midiChannel, returnBank, state->programNumber, true, false);
    state->transferBusy = false;
    state->bankDumpActive = false;
    state->transferKind = -1;

    if (progressBar != nullptr)
    {
        progressBar->setVisible (false);
        progressBar->exitModalState (0);
        progressBar.reset();
    }

    if (state->transferTimerOn)
    {
        state->transferTimerOn = false;
        appBar->stopTimer();
    }
}
