// The tool-bar's menus and the menus of values. Menus show without a modal loop: the chosen id
// arrives in a callback, and a dismissed menu does nothing.

#include "editor/MainComp.h"

#include "device/MidiCntrState.h"
#include "editor/AppBar.h"
#include "editor/EditorPanel.h"
#include "editor/controls/DeskerLookAndFeel.h"
#include "librarian/BankComp.h"
#include "librarian/IvrGrid.h"
#include "librarian/WriteSnd.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"
#include "sound/ParDes.h"

std::unique_ptr<juce::LookAndFeel_V2> MainComp::setLAF()
{
    return std::make_unique<DeskerLookAndFeel>();
}

void MainComp::showMenu (juce::PopupMenu menu, juce::Component* target, std::function<void (int)> onChosen)
{
    // The look lives as long as the menu: the callback owns it.
    std::shared_ptr<juce::LookAndFeel_V2> look = setLAF();
    menu.setLookAndFeel (look.get());

    auto options = juce::PopupMenu::Options().withParentComponent (this);
    if (target != nullptr)
        options = options.withTargetComponent (target);

    menu.showMenuAsync (options, [look, onChosen, safe = juce::Component::SafePointer<MainComp> (this)] (int result)
    {
        if (result != 0 && safe != nullptr)
            onChosen (result);
    });
}

void MainComp::ParameterMenus (int description, int minimum, int maximum, std::function<void (int)> onChosen)
{
    juce::PopupMenu menu;
    for (int value = minimum; value <= maximum; ++value)
    {
        const auto text = ParDes::SndParDes (description, value);
        if (text != "*/*")
            menu.addItem (value + 1, text);
    }

    showMenu (std::move (menu), nullptr, [onChosen] (int id) { onChosen (id - 1); });
}

namespace
{
juce::Component* buttonWithId (AppBar& bar, int id)
{
    for (auto* button : bar.buttons)
        if (button->id == id && button != bar.lockButton)
            return button;
    return nullptr;
}
} // namespace

void MainComp::fileMenu()
{
    juce::PopupMenu menu;
    menu.addItem (1, "Load Single Program");
    menu.addItem (2, "Save " + state->editBuffer->PatchGetName());

    showMenu (std::move (menu), buttonWithId (*appBar, 75), [this] (int id)
    {
        if (id == 1)
        {
            fileManager->Load_Program_Single ([this] (bool loaded)
            {
                if (! loaded)
                    return;
                state->editBuffer->PatchImport_Syx (fileManager->programResult);
                TransmitBuffer();
            });
        }
        else if (id == 2)
        {
            const auto frame = state->editBuffer->Export_Syx_Patch_Buf_MB (state->deviceId);
            SAVE_DATA_PROGRAM_AS (juce::Array<unsigned char> (static_cast<const unsigned char*> (frame.getData()), (int) frame.getSize()),
                                  (int) frame.getSize(), state->editBuffer->PatchGetName());
        }
    });
}

void MainComp::editMenu()
{
    auto* words = &state->editBuffer->patchData;
    juce::PopupMenu menu;
    menu.addItem (1, "Copy Program: " + state->editBuffer->PatchGetName());
    menu.addItem (2, copyBufferFull ? "Paste: " + copyBuffer->get_ProgramName (0) : juce::String ("Paste "));

    showMenu (std::move (menu), buttonWithId (*appBar, 73), [this, words] (int id)
    {
        if (id == 1)
        {
            if (copyBuffer == nullptr)
                copyBuffer = std::make_unique<AutoBank> (0);
            copyBuffer->setStoredProgram (0, *words);
            copyBufferFull = true;
            TransmitBuffer();
        }
        else if (id == 2)
        {
            PasteBuffer();
        }
    });
}

void MainComp::sendMenu()
{
    juce::PopupMenu menu;
    menu.addItem (1, "Current Preset: " + state->editBuffer->PatchGetName());
    menu.addItem (2, "FX Bank Preset: " + state->editBuffer->get_ProgramName (state->hostProgram));
    menu.addSeparator();
    menu.addSeparator();
    menu.addItem (3, "Send Automation parameters");

    showMenu (std::move (menu), buttonWithId (*appBar, 701), [this] (int id)
    {
        if (id == 1)
            TransmitBuffer();
        else if (id == 2)
            state->SEND_HOST_DISPLAY();
        else if (id == 3)
            startAutomationSender();
    });
}

void MainComp::programMenu()
{
    const int currentBank = state->bankNumber;
    juce::PopupMenu menu;

    for (int bank = 0; bank < (int) state->banks.size() - 1; ++bank)
        menu.addItem (100000 + bank, AutoBank::GetBankName (bank), true, bank == currentBank);
    menu.addSeparator();

    if (auto* store = juce::isPositiveAndBelow (currentBank, (int) state->banks.size()) ? state->banks[(size_t) currentBank] : nullptr)
        for (int program = 0; program < AutoBank::numPrograms; ++program)
            menu.addItem (1000 + program, store->get_ProgramName (program));

    showMenu (std::move (menu), &editorPanel->lcd, [this] (int id)
    {
        if (id < 100000)
            state->programNumber = id - 1000;
        else
            state->bankNumber = id - 100000;
        state->PROGRAM_MESSAGE (state->bankNumber, state->programNumber, true, true);
    });
}

//==============================================================================
// The bank window.

void MainComp::bankPanelAct()
{
    switch (bankPanel->actionCode)
    {
        case BankComp::actionList:
            if (bankPanel->mode == 0)
                Set_Bank_PRG (0, bankPanel->value);
            else if (bankPanel->mode == 1)
                CategoryPopup (86, 0, 0);
            break;
        case BankComp::actionPresets:       BankPopupPresets(); break;
        case BankComp::actionUseLoadedData: useLoadedData = bankPanel->useLoadedDataCheck.checked; break;
        case BankComp::actionFile:          BankPopupFILE(); break;
        case BankComp::actionMidi:          BankPopupMIDI(); break;
        default:                            break;
    }
}

namespace
{
void addBankItems (juce::PopupMenu& menu, int firstId, int count)
{
    for (int bank = 0; bank < count; ++bank)
        menu.addItem (firstId + bank, "Bank " + juce::String::charToString ((juce::juce_wchar) (65 + bank)));
}
} // namespace

void MainComp::BankPopupMIDI()
{
    const int userBanks = (int) state->banks.size() - 1;
    juce::PopupMenu receive, transmit, menu;
    addBankItems (receive, 1, userBanks);
    addBankItems (transmit, 100, userBanks);
    menu.addSubMenu ("Receive Program Bank ", receive);
    menu.addItem (200, "Receive All Banks");
    menu.addSeparator();
    menu.addSubMenu ("Transmit Program Bank ", transmit);
    menu.addItem (300, "Transmit All Banks");

    showMenu (std::move (menu), &bankPanel->midiButton, [this] (int id)
    {
        if (id >= 1 && id <= 7)
            startTransfer (0, id - 1);
        else if (id == 200)
            startTransfer (50, 0);
        else if (id >= 100 && id <= 106)
            startTransfer (100, id - 100);
        else if (id == 300)
            startTransfer (150, 0);
    });
}

void MainComp::BankPopupFILE() {}
void MainComp::BankPopupPresets() {}
void MainComp::CategoryPopup (int, int, int) {}
void MainComp::IvrBankAct (IvrGrid*) {}
void MainComp::gridProgramMenu (int, int) {}
