// Opening and closing the panels and boxes.

#include "editor/MainComp.h"

#include "device/MIDI_scan.h"
#include "device/MidiCntrState.h"
#include "editor/AboutPanel.h"
#include "editor/AdvCont.h"
#include "editor/EditorPanel.h"
#include "editor/KeyBrd.h"
#include "editor/MsgCont.h"
#include "editor/UpdHostCont.h"
#include "librarian/BankComp.h"
#include "librarian/WriteSnd.h"
#include "sound/AutoBank.h"

void MainComp::Show_Window (int code, bool show, int extra)
{
    switch (code)
    {
        case 102:
            if (show)
            {
                if (aboutPanel != nullptr)
                    return;
                aboutShown = true;
                aboutPanel = std::make_unique<AboutPanel>();
                if (extra >= 1)
                    aboutPanel->startSelfClosing (extra);
                addAndMakeVisible (*aboutPanel);
                aboutPanel->setBounds (getLocalBounds());
                aboutPanel->setAlwaysOnTop (true);
                aboutPanel->addChangeListener (this);
                aboutPanel->enterModalState (false);
            }
            else
            {
                aboutShown = false;
                if (aboutPanel != nullptr)
                {
                    aboutPanel->stopTimer();
                    aboutPanel->setVisible (false);
                    aboutPanel->exitModalState (0);
                    aboutPanel.reset();
                }
                // A scan opened behind the box goes with it.
                if (state->scanActive)
                {
                    state->scanActive = false;
                    if (scanPanel != nullptr)
                    {
                        scanPanel->setVisible (false);
                        scanPanel.reset();
                    }
                }
            }
            break;

        case 100:
            writeDialogShown = show;
            if (show)
                openWriteDialog();
            else if (writeDialog != nullptr)
            {
                writeDialog->setVisible (false);
                writeDialog.reset();
            }
            break;

        case 103:
            bankPanelShown = show;
            if (show)
            {
                bankPanel->useLoadedData = useLoadedData;
                bankPanel->useLoadedDataCheck.checked = useLoadedData;
                bankPanel->setVisible (true);
                if (advancedShown)
                {
                    advancedShown = false;
                    advancedPanel->setVisible (false);
                    editorPanel->setVisible (true);
                }
            }
            else
            {
                bankPanel->setVisible (false);
            }
            ResizePanels();
            if (show)
            {
                Set_Bank_PRG (0, state->bankNumber);
                bankPanel->grid.showProgram (state->bankNumber, state->programNumber);
            }
            break;

        case 104:
            show_MIDI (show);
            break;

        case 105:
            keyboardShown = show;
            if (show)
            {
                keyboard->setAlwaysOnTop (false);
                keyboard->setAlwaysOnTop (true);
            }
            keyboard->setVisible (show);
            ResizePanels();
            break;

        case 106:
            if (show && bankPanelShown)
                return;
            advancedShown = show;
            editorPanel->setVisible (! show);
            advancedPanel->setVisible (show);
            ResizePanels();
            break;

        case 107:
            if (! show)
            {
                state->updateHostActive = false;
                return;
            }
            if (updateHostBox != nullptr)
                return;
            state->updateHostActive = true;
            updateHostBox = std::make_unique<UpdHostCont> (extra, state->editBuffer->get_ProgramName (extra));
            addAndMakeVisible (*updateHostBox);
            updateHostBox->setBounds (getLocalBounds());
            updateHostBox->setAlwaysOnTop (true);
            updateHostBox->okButton.addChangeListener (this);
            updateHostBox->cancelButton.addChangeListener (this);
            updateHostBox->enterModalState (false);
            break;

        default:
            break;
    }
}

void MainComp::showMSG (bool modal, bool, int, juce::String text)
{
    if (messageBox != nullptr)
        MSG_Action();

    messageShown = true;
    messageBox = std::make_unique<MsgCont> (text);
    messageBox->modal = modal;
    addAndMakeVisible (*messageBox);
    messageBox->setBounds (getLocalBounds());
    messageBox->setAlwaysOnTop (false);
    messageBox->setAlwaysOnTop (true);
    messageBox->okButton.addChangeListener (this);
    messageBox->cancelButton.addChangeListener (this);
    if (modal)
        messageBox->enterModalState (false);
}

void MainComp::MSG_Action()
{
    messageShown = false;
    if (messageBox == nullptr)
        return;
    messageBox->setVisible (false);
    if (messageBox->modal)
        messageBox->exitModalState (0);
    messageBox.reset();
}

void MainComp::showUPHOST_Act (int slot)
{
    if (slot >= 0)
        state->editBuffer->setStoredProgram (slot, state->editBuffer->patchData);

    state->updateHostActive = false;
    if (updateHostBox == nullptr)
        return;
    updateHostBox->setVisible (false);
    updateHostBox->exitModalState (0);
    updateHostBox.reset();
}

void MainComp::openWriteDialog()
{
    if (writeDialog != nullptr)
        return;
    writeDialog = std::make_unique<WriteSnd>();
    addAndMakeVisible (*writeDialog);
    writeDialog->setBounds (getLocalBounds());
    writeDialog->setAlwaysOnTop (true);
    for (auto* part : std::initializer_list<juce::ChangeBroadcaster*> { writeDialog.get(), &writeDialog->okButton,
                                                                        &writeDialog->cancelButton, &writeDialog->lcd })
        part->addChangeListener (this);

    // The working program under its name and category, at the place it was recalled from.
    const int bank = state->bankNumber;
    const int program = state->programNumber;
    const int category = state->editBuffer->patchData[150];
    auto& grid = writeDialog->grid;
    copyLiveBanks (grid);
    grid.Populate (0, bank);
    grid.showProgram (bank, program);
    writeDialog->lcd.Set_LCD (bank, program, category, state->editBuffer->PatchGetName(), Category (category));
    ResizePanels();
}

void MainComp::writeDialogAct (juce::ChangeBroadcaster* source)
{
    auto& dialog = *writeDialog;
    auto& lcd = dialog.lcd;

    if (source == &dialog.okButton)
    {
        WriteProgram (lcd.fullName, lcd.category, lcd.bank, lcd.program);
        Show_Window (100, false, 0);
    }
    else if (source == &dialog.cancelButton)
    {
        Show_Window (100, false, 0);
    }
    else if (source == &dialog)
    {
        if (dialog.actionCode == WriteSnd::actionCategoryFilter)
            CategoryPopup (90, 0, 0);
    }
    else if (source == &lcd)
    {
        if (lcd.clickCode == 2)
            dialog.ChangeName (lcd.fullName);
        else if (lcd.clickCode == 3)
            CategoryPopup (89, 0, 0);
    }
}

void MainComp::show_Scan (bool show)
{
    if (scanPanel != nullptr)
    {
        scanPanel->setVisible (false);
        scanPanel.reset();
    }
    state->scanActive = show;
    if (! show)
        return;

    scanPanel = std::make_unique<MIDI_scan> (state);
    addChildComponent (*scanPanel);
    scanPanel->addChangeListener (this);
    scanPanel->setAlwaysOnTop (true);
    scanPanel->startScan (juce::jmax (0, (getWidth() - MIDI_scan::width) / 2), 40);
    // Under the splash it waits behind, and goes when the splash closes.
    if (aboutPanel != nullptr)
        scanPanel->toBehind (aboutPanel.get());
    scanPanel->setVisible (true);
}
