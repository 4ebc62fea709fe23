// The tool-bar's menus, the bank window's menus with the actions of its grid, and the menus of
// values. Menus show without a modal loop: the chosen id arrives in a callback, and a dismissed
// menu does nothing.

#include "editor/MainComp.h"

#include "device/MidiCntrState.h"
#include "editor/AppBar.h"
#include "editor/EditorPanel.h"
#include "editor/controls/DeskerLookAndFeel.h"
#include "librarian/BankComp.h"
#include "librarian/IvrGrid.h"
#include "librarian/LibComp.h"
#include "librarian/WriteSnd.h"
#include "plugin/HandlerComp.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"
#include "sound/ParDes.h"
#include "sound/TolkCorvaneBanks.h"

std::unique_ptr<juce::LookAndFeel_V2> MainComp::setLAF()
{
    return std::make_unique<DeskerLookAndFeel>();
}

void MainComp::showMenu (juce::PopupMenu menu, juce::Component* target, std::function<void (int)> onChosen)
{
    showMenu (std::move (menu), target, target != nullptr ? target->getLocalBounds() : juce::Rectangle<int>(), std::move (onChosen));
}

void MainComp::showMenu (juce::PopupMenu menu, juce::Component* target, juce::Rectangle<int> area, std::function<void (int)> onChosen)
{
    // The look lives as long as the menu: the callback owns it.
    std::shared_ptr<juce::LookAndFeel_V2> look = setLAF();
    menu.setLookAndFeel (look.get());

    auto options = juce::PopupMenu::Options().withParentComponent (this);
    if (target != nullptr)
        options = options.withTargetComponent (target).withTargetScreenArea (target->localAreaToGlobal (area));

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
            copyToPasteBuffer (*words);
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

namespace
{
juce::Array<unsigned char> bytesOf (const juce::MemoryBlock& block)
{
    return { static_cast<const unsigned char*> (block.getData()), (int) block.getSize() };
}

} // namespace

void MainComp::BankPopupFILE()
{
    const int userBanks = (int) state->banks.size() - 1;
    juce::PopupMenu load, save, menu;
    addBankItems (load, 1, userBanks);
    addBankItems (save, 100, userBanks);
    menu.addSubMenu ("Load Program Bank To ", load);
    menu.addSubMenu ("Save Program Bank ", save);
    menu.addSeparator();
    menu.addItem (400, "Close");

    showMenu (std::move (menu), &bankPanel->fileButton, [this, userBanks] (int id)
    {
        if (id >= 1 && id <= userBanks)
        {
            const int bank = id - 1;
            fileManager->ShowMeOpen (FileMan::openDialog, 3, {}, [this, bank] (bool confirmed)
            {
                // A file of any other size is not a bank: it is ignored without a word.
                if (confirmed && FileMan::Load_Bank_Data (fileManager->OpenFileI (fileManager->chosenFile), *state->banks[(size_t) bank])
                    && bankPanelShown)
                    Display_Bank_PRG (bank);
            });
        }
        else if (id >= 100 && id < 100 + userBanks)
        {
            const int bank = id - 100;
            const auto data = bytesOf (FileMan::Bank_File_Data (*state->banks[(size_t) bank]));
            SAVE_DATA_AS (data, data.size(), 103, AutoBank::GetBankName (bank));
        }
        else if (id == 400)
        {
            Show_Window (103, ! bankPanelShown, 0);
        }
    });
}

void MainComp::BankPopupPresets()
{
    const int allBanks = (int) state->banks.size();
    juce::PopupMenu menu;
    for (int set = 0; set < TolkCorvaneBanks::numSets; ++set)
    {
        // The last set stands in the menu without items: it can't be chosen.
        juce::PopupMenu banks;
        if (set < TolkCorvaneBanks::numSets - 1)
            addBankItems (banks, 100 * (set + 1), allBanks);
        menu.addSubMenu (TolkCorvaneBanks::getSetTitle (set), banks);
    }
    juce::PopupMenu initialize;
    addBankItems (initialize, 1000, allBanks - 1);
    menu.addSubMenu ("Initialize Program Bank ", initialize);

    showMenu (std::move (menu), &bankPanel->presetsButton, [this] (int id)
    {
        if (id < 100)
            return;

        if (id < 1000)
        {
            // The letter chosen is only where in the set reading starts: the set always goes into the
            // current bank.
            const int set = id / 100 - 1;
            const int current = state->bankNumber;
            if (juce::isPositiveAndBelow (current, (int) state->banks.size()))
                state->banks[(size_t) current]->PreloadFactoryData (set, id - 100 * (set + 1));
        }
        else if (id < 1100)
        {
            const int bank = id - 1000;
            if (! juce::isPositiveAndBelow (bank, (int) state->banks.size()))
                return;
            state->banks[(size_t) bank]->Initialize_Bank();
            if (bankPanelShown)
                Display_Bank_PRG (bank);
        }

        Set_Bank_PRG (bankPanel->shownMode, bankPanel->shownValue);
    });
}

void MainComp::CategoryPopup (int source, int bank, int program, std::function<void()> afterChoice)
{
    juce::PopupMenu menu;
    for (int category = 0; category < 32; ++category)
        menu.addItem (category + 1, AutoBank::Category (category));

    juce::Component* target = nullptr;
    auto area = juce::Rectangle<int>();
    switch (source)
    {
        case 86: target = &bankPanel->categoryButton; break;
        case 87: target = &editorPanel->lcd; break;
        case 88: target = &bankPanel->grid; area = bankPanel->grid.selectedRowArea(); break;
        case 89: target = writeDialog != nullptr ? &writeDialog->lcd : nullptr; break;
        case 90: target = writeDialog != nullptr ? &writeDialog->categoryButton : nullptr; break;
        case 91: target = &bankPanel->library->categoryButton; break;
        default: break;
    }
    if (source == 91)
    {
        menu.addSeparator();
        menu.addItem (33, "All Categories", true, bankPanel->library->query.category < 0);
    }
    if (target != nullptr && area.isEmpty())
        area = target->getLocalBounds();

    showMenu (std::move (menu), target, area, [this, source, bank, program, afterChoice] (int id)
    {
        const int category = id - 1;
        switch (source)
        {
            case 86:
                Set_Bank_PRG (1, category);
                break;

            case 87:
            case 88:
                if (juce::isPositiveAndBelow (bank, (int) state->banks.size()))
                {
                    // Only the low byte is the category; the grid's copy follows so that the row
                    // shows it without a new listing.
                    for (auto* store : { state->banks[(size_t) bank], bankPanel->grid.gridBanks[(size_t) bank].get() })
                    {
                        auto words = store->getStoredProgram (program);
                        words.set (150, (unsigned short) ((words[150] & 0xff00) | category));
                        store->setStoredProgram (program, words);
                    }
                    bankPanel->grid.repaint();
                }
                break;

            case 89:
                if (writeDialog != nullptr)
                    writeDialog->setCategory (category);
                break;

            case 90:
                if (writeDialog != nullptr)
                    writeDialog->listCategory (category);
                break;

            case 91:
                bankPanel->library->setCategory (category < 32 ? category : -1);
                break;

            default:
                break;
        }

        if (afterChoice)
            afterChoice();
    });
}

void MainComp::IvrBankAct (IvrGrid* grid)
{
    const int bank = grid->selectedBank;
    const int program = grid->selectedProgram;

    switch (grid->action)
    {
        case IvrGrid::actionCategoryMenu:
            CategoryPopup (88, bank, program);
            break;

        case IvrGrid::actionDoubleClick:
            if (bankPanelShown)
                Show_Window (103, true, 0);
            break;

        case IvrGrid::actionProgramMenu:
            gridProgramMenu (bank, program);
            break;

        case IvrGrid::actionRow:
            if (! useLoadedData)
            {
                // The host hears the bank and the program as its parameters 89 and 56. The instrument
                // is told directly as well: the host's echo drops a value of 0, so bank A and the
                // first program of a bank would never reach it that way.
                state->PROGRAM_MESSAGE (bank, program, true, true);
            }
            else if (juce::isPositiveAndBelow (bank, (int) state->banks.size()))
            {
                SEND_PROGRAM (false, -1, -1, state->banks[(size_t) bank]->getStoredProgram (program), true);
            }
            break;

        default:
            break;
    }
}

void MainComp::gridProgramMenu (int bank, int program)
{
    if (! juce::isPositiveAndBelow (bank, (int) state->banks.size()))
        return;

    const auto name = state->banks[(size_t) bank]->get_ProgramName (program);
    juce::PopupMenu menu;
    menu.addItem (1, "Copy " + name);
    menu.addItem (2, copyBufferFull ? "Paste " + copyBuffer->get_ProgramName (0) : juce::String (" "));
    menu.addSeparator();
    menu.addItem (3, "Save " + name);
    menu.addItem (4, "Load Program ");
    menu.addSeparator();
    menu.addItem (5, "Initialize " + name);

    showMenu (std::move (menu), &bankPanel->grid, bankPanel->grid.selectedRowArea(), [this, bank, program] (int id)
    {
        auto& store = *state->banks[(size_t) bank];

        // The bank is listed afresh; when the grid lists it already, the user keeps the rows in view.
        const auto showBank = [this, bank]
        {
            if (! bankPanelShown)
                return;
            if (bankPanel->shownMode == 0 && bankPanel->shownValue == bank)
                refreshGridKeepingScroll();
            else
                Display_Bank_PRG (bank);
        };

        switch (id)
        {
            case 1:
                copyToPasteBuffer (store.getStoredProgram (program));
                break;

            case 2:
                if (copyBufferFull && copyBuffer != nullptr)
                {
                    SEND_PROGRAM (true, bank, program, copyBuffer->getStoredProgram (0), false);
                    showBank();
                }
                break;

            case 3:
                SAVE_DATA_PROGRAM_AS (bytesOf (store.Export_Syx_Bank_Buf_MB (program, 0)), AutoBank::patchFrameBytes,
                                      store.get_ProgramName (program));
                break;

            case 4:
                fileManager->Load_Program_Single ([this, bank, program, showBank] (bool loaded)
                {
                    if (! loaded)
                        return;
                    state->banks[(size_t) bank]->Import_Syx_U8 (program, fileManager->programResult);
                    showBank();
                });
                break;

            case 5:
            {
                TolkCorvaneBanks factory;
                auto initial = factory.Initial_Program();
                juce::Array<unsigned short> words;
                AutoBank::UnPack_Patch_Tolk (initial, words);
                store.setStoredProgram (program, words);
                showBank();
                break;
            }

            default:
                break;
        }
    });
}
