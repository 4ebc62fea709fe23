// Programs from the panel to the instrument.

#include "editor/MainComp.h"

#include "device/MIDI_PORTS_Control.h"
#include "device/MidiCntrState.h"
#include "editor/ProgBar.h"
#include "librarian/BankComp.h"
#include "sound/AutoBank.h"

void MainComp::SEND_PROGRAM (bool toBank, int bank, int program, juce::Array<unsigned short> parameters, bool display)
{
    juce::MemoryBlock frame;

    if (toBank)
    {
        auto* store = juce::isPositiveAndBelow (bank, (int) state->banks.size()) ? state->banks[(size_t) bank] : nullptr;
        if (store == nullptr)
            return;
        if (parameters.size() == AutoBank::numParameters)
            store->setStoredProgram (program, parameters);
        frame = store->Export_Syx_Bank_Rom_MB (program, program, state->deviceId, 0);
        refreshGridKeepingScroll();
    }
    else
    {
        auto& words = state->editBuffer->patchData;
        words.resize (AutoBank::numParameters);
        for (int i = 0; i < AutoBank::numParameters; ++i)
            words.set (i, parameters[i]); // missing values read as 0
        frame = state->editBuffer->Export_Syx_Patch_Buf_MB (state->deviceId);
    }

    state->portControl->Send_SYSEX (frame);

    if (display)
        Display_Program();
}

void MainComp::refreshGridKeepingScroll()
{
    auto& grid = bankPanel->grid;
    const int position = grid.firstRow;
    const int selected = grid.selectedRow;
    Set_Bank_PRG (bankPanel->shownMode, bankPanel->shownValue);

    if (position >= 0)
    {
        const int limited = juce::jmax (0, juce::jmin (position, grid.rowCount - 1, grid.rowCount - grid.visibleRows()));
        grid.firstRow = grid.thumbPosition = grid.lastThumbPosition = limited;
    }
    // The row the user worked on stays marked.
    if (selected < grid.rowCount)
        grid.selectedRow = selected;
    grid.repaint();
}

void MainComp::TransmitBuffer()
{
    juce::Array<unsigned short> words;
    for (int i = 0; i < AutoBank::numParameters; ++i)
        words.add (state->editBuffer->patchData[i]);
    SEND_PROGRAM (false, -1, -1, words, true);
}

void MainComp::PasteBuffer()
{
    if (! copyBufferFull || copyBuffer == nullptr)
        return;

    SEND_PROGRAM (false, 0, 0, copyBuffer->getStoredProgram (0), true);
}

void MainComp::WriteProgram (juce::String name, int category, int bank, int program)
{
    auto& words = state->editBuffer->patchData;
    if (words.size() < AutoBank::numParameters)
        words.resize (AutoBank::numParameters);
    words.set (150, (unsigned short) category);

    // 25 characters or more keep 23, then the padding brings them to 24.
    if (name.length() >= 25)
        name = name.substring (0, 23);
    while (name.length() < 24)
        name << " ";
    for (int i = 0; i < 24; ++i)
        words.set (151 + i, (unsigned short) AutoBank::fromASC (name.substring (i, i + 1)));

    juce::Array<unsigned short> copy;
    for (int i = 0; i < AutoBank::numParameters; ++i)
        copy.add (words[i]);
    SEND_PROGRAM (true, bank, program, copy, true);
    bankPanel->grid.repaint();
}

void MainComp::Transmit_Program_From_Bank (int bank, int program)
{
    if (program >= AutoBank::numPrograms)
        return hideProgressBar();
    if (! state->portControl->outputOpen)
        return;

    const int current = state->bankNumber;
    if (juce::isPositiveAndBelow (current, (int) state->banks.size()))
        state->portControl->Send_SYSEX (state->banks[(size_t) current]->Export_Syx_Bank_Rom_MB (program, program, state->deviceId, 0));

    if (state->transferBusy && progressBar != nullptr)
    {
        progressBar->setText (juce::String::charToString ((juce::juce_wchar) (65 + bank)) + ":" + juce::String (program + 1));
        progressBar->setValue (program);
    }

    if (program != AutoBank::numPrograms - 1)
        return;
    if (state->transferKind == 100)
        return hideProgressBar();
    if (state->transferKind != 150)
        return;
    if (bank >= (int) state->banks.size() - 2)
        return hideProgressBar();

    // The next bank; the timer's increment that follows makes its first program 1, so program 0 of
    // every later bank stays as it is on the instrument.
    state->transferBank = bank + 1;
    state->transferProgram = 0;
    state->SEND_BANKch (state->midiChannel, bank + 1);
}

void MainComp::Set_Bank_PRG (int mode, int value)
{
    auto& grid = bankPanel->grid;
    copyLiveBanks (grid);

    bankPanel->setListing (mode, value);
    grid.Populate (mode, value);
    grid.repaint();
}

void MainComp::copyLiveBanks (IvrGrid& grid)
{
    // Bank H-XL is shown like the others, so the grid's eighth copy is refreshed as well.
    for (int bank = 0; bank < (int) state->banks.size(); ++bank)
        if (auto* store = state->banks[(size_t) bank]; store != nullptr && store->bankData.getSize() == (size_t) AutoBank::bankBytes)
            grid.copyBank (bank, *store);
}

void MainComp::Display_Bank_PRG (int bank)
{
    Set_Bank_PRG (0, bank);
}

juce::String MainComp::Category (int category)
{
    return AutoBank::Category (category);
}
