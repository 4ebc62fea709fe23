// The end of a transfer.

#include "editor/MainComp.h"

#include "device/MidiCntrState.h"
#include "editor/AppBar.h"
#include "editor/ProgBar.h"

void MainComp::hideProgressBar()
{
    // The instrument goes back to where it stood, also after a cancel.
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
