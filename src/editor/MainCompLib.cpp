// The library window: its folder, kept in the settings, its "FILE" and "Doubles" menus, and the
// actions of its grid. A press on a row auditions the program; the row's menu copies it to the
// paste buffer or into a bank through the write dialog's path, lists its duplicates and shows its file.

#include "editor/MainComp.h"

#include "device/MidiCntrState.h"
#include "librarian/BankComp.h"
#include "librarian/LibComp.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"

namespace
{
constexpr int copyToBankIds = 1000; // + bank * 128 + program
const char* const soundFilePatterns = "*.syx;*.tkbn;*.tkp;*.tkr";
} // namespace

juce::File MainComp::defaultLibraryFolder() const
{
    return state->getSettingsFolder().getChildFile ("Library");
}

juce::File MainComp::libraryFolder() const
{
    const auto saved = state->iniStrings[MidiCntrState::libraryFolderSlot];
    if (saved.isEmpty() || saved == "0" || ! juce::File::isAbsolutePath (saved))
        return defaultLibraryFolder();
    return juce::File (saved);
}

void MainComp::setLibraryFolder (const juce::File& folder)
{
    const auto path = folder.getFullPathName();
    // The settings file cannot hold its own separators.
    if (path.contains ("^|") || path.contains ("|^"))
        return;
    const bool isDefault = folder == defaultLibraryFolder();
    state->iniStrings.set (MidiCntrState::libraryFolderSlot, isDefault ? juce::String ("0") : path);
    state->ReadWriteIni (1);
    bankPanel->library->setFolder (folder);
}

void MainComp::LibraryAct()
{
    auto& library = *bankPanel->library;
    switch (library.actionCode)
    {
        case BankComp::actionList:      CategoryPopup (91, 0, 0); break;
        case BankComp::actionPresets:   BankPopupPresets(); break;
        case BankComp::actionFile:      LibraryPopupFILE(); break;
        case BankComp::actionMidi:      BankPopupMIDI(); break;
        case LibComp::actionDoubles:    libraryDoublesMenu(); break;
        default:                        break;
    }
}

void MainComp::LibraryGridAct()
{
    auto& grid = bankPanel->library->grid;
    if (grid.index == nullptr || ! juce::isPositiveAndBelow (grid.selectedProgram, (int) grid.index->programs.size()))
        return;

    switch (grid.action)
    {
        case IvrGrid::actionRow:
            SEND_PROGRAM (false, -1, -1, grid.index->wordsOf (grid.selectedProgram), true);
            break;
        case IvrGrid::actionProgramMenu:
        case IvrGrid::actionCategoryMenu:
            libraryProgramMenu (grid.selectedProgram);
            break;
        default:
            break;
    }
}

void MainComp::copyToPasteBuffer (const juce::Array<unsigned short>& words)
{
    if (copyBuffer == nullptr)
        copyBuffer = std::make_unique<AutoBank> (0);
    copyBuffer->setStoredProgram (0, words);
    copyBufferFull = true;
}

void MainComp::libraryProgramMenu (int program)
{
    auto& library = *bankPanel->library;
    const auto index = library.grid.index;
    const auto& p = index->programs[(size_t) program];
    const auto name = p.name.trim();

    juce::PopupMenu menu;
    menu.addItem (1, "Copy " + name);
    menu.addSeparator();
    // Seven banks of eight groups of sixteen places, each with the name that a copy would replace.
    for (int bank = 0; bank < 7; ++bank)
    {
        const auto letter = juce::String::charToString ((juce::juce_wchar) ('A' + bank));
        auto& store = *state->banks[(size_t) bank];
        juce::PopupMenu places;
        for (int group = 0; group < 8; ++group)
        {
            juce::PopupMenu sixteen;
            for (int number = group * 16; number < group * 16 + 16; ++number)
                sixteen.addItem (copyToBankIds + bank * 128 + number,
                                 letter + ":" + juce::String (number + 1).paddedLeft ('0', 3) + "  " + store.get_ProgramName (number).trim());
            places.addSubMenu (letter + ":" + juce::String (group * 16 + 1).paddedLeft ('0', 3) + " - "
                                   + letter + ":" + juce::String (group * 16 + 16).paddedLeft ('0', 3),
                               sixteen);
        }
        menu.addSubMenu ("Copy to Bank " + letter, places);
    }
    menu.addSeparator();
    menu.addItem (2, "Show Duplicates (" + juce::String (p.soundTwins) + ")", p.soundTwins > 0);
    menu.addItem (3, "Show File");

    showMenu (std::move (menu), &library.grid, library.grid.selectedRowArea(), [this, index, program] (int id)
    {
        auto& lib = *bankPanel->library;
        if (id == 1)
            copyToPasteBuffer (index->wordsOf (program));
        else if (id == 2)
            lib.showTwinsOf (program);
        else if (id == 3)
            index->sources[(size_t) index->programs[(size_t) program].source].file.revealToUser();
        else if (id >= copyToBankIds && id < copyToBankIds + 7 * 128)
            SEND_PROGRAM (true, (id - copyToBankIds) / 128, (id - copyToBankIds) % 128, index->wordsOf (program), false);
    });
}

void MainComp::libraryDoublesMenu()
{
    auto& library = *bankPanel->library;
    using Duplicates = LibraryIndex::Duplicates;
    const auto current = library.query.duplicates;

    juce::PopupMenu menu;
    menu.addItem (1, "Same Sound", true, current == Duplicates::sameSound);
    menu.addItem (2, "Same Sound and Name", true, current == Duplicates::sameSoundAndName);
    menu.addSeparator();
    menu.addItem (3, "All Programs", true, current == Duplicates::all);

    showMenu (std::move (menu), &library.doublesButton, [this] (int id)
    {
        const Duplicates choice[] = { Duplicates::sameSound, Duplicates::sameSoundAndName, Duplicates::all };
        bankPanel->library->setDuplicates (choice[id - 1]);
    });
}

void MainComp::LibraryPopupFILE()
{
    auto& library = *bankPanel->library;
    const bool isDefault = library.folder == defaultLibraryFolder();

    juce::PopupMenu menu;
    menu.addItem (1, "Add Files to the Library...");
    menu.addItem (2, "Rescan the Library");
    menu.addItem (3, "Open the Library Folder");
    menu.addSeparator();
    menu.addItem (4, "Choose the Library Folder...");
    menu.addItem (5, "Use the Default Library Folder", ! isDefault);

    showMenu (std::move (menu), &library.fileButton, [this] (int id)
    {
        auto& lib = *bankPanel->library;
        switch (id)
        {
            case 1: addFilesToLibrary(); break;
            case 2: lib.rescan(); break;
            case 3:
                lib.folder.createDirectory();
                lib.folder.startAsProcess();
                break;
            case 4: chooseLibraryFolder(); break;
            case 5: setLibraryFolder (defaultLibraryFolder()); break;
            default: break;
        }
    });
}

void MainComp::addFilesToLibrary()
{
    libraryChooser = std::make_unique<juce::FileChooser> ("Add Sound Files to the Library",
                                                          juce::File::getSpecialLocation (juce::File::userHomeDirectory),
                                                          soundFilePatterns, fileManager->nativeDialogs);
    const int flags = juce::FileBrowserComponent::openMode | juce::FileBrowserComponent::canSelectFiles
                      | juce::FileBrowserComponent::canSelectMultipleItems;
    libraryChooser->launchAsync (flags, [this] (const juce::FileChooser& chooser)
    {
        auto& library = *bankPanel->library;
        if (chooser.getResults().isEmpty() || ! library.folder.createDirectory())
            return;
        bool added = false;
        for (const auto& file : chooser.getResults())
        {
            if (! file.existsAsFile() || ! LibraryIndex::isSoundFile (file))
                continue;
            // A file of the same name is kept: the copy gets a name of its own.
            added |= file.copyFileTo (library.folder.getNonexistentChildFile (file.getFileNameWithoutExtension(), file.getFileExtension(), false));
        }
        if (added)
            library.rescan();
    });
}

void MainComp::chooseLibraryFolder()
{
    libraryChooser = std::make_unique<juce::FileChooser> ("Choose the Library Folder", bankPanel->library->folder, juce::String(),
                                                          fileManager->nativeDialogs);
    const int flags = juce::FileBrowserComponent::openMode | juce::FileBrowserComponent::canSelectDirectories;
    libraryChooser->launchAsync (flags, [this] (const juce::FileChooser& chooser)
    {
        const auto folder = chooser.getResult();
        if (folder.isDirectory())
            setLibraryFolder (folder);
    });
}
