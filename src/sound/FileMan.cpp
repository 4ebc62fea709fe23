#include "sound/FileMan.h"

FileMan::FileMan() = default;

juce::Array<unsigned char> FileMan::OpenFileI (juce::File file)
{
    rawData.clearQuick();
    if (! file.existsAsFile())
        return {};
    juce::MemoryBlock block;
    if (! file.loadFileAsData (block))
        return {};
    rawData.addArray (static_cast<const unsigned char*> (block.getData()), (int) block.getSize());
    return rawData;
}

bool FileMan::Load_Program_File (const juce::File& file)
{
    programResult.clearQuick();
    OpenFileI (file);
    if (rawData.size() < 10)
        return false;
    int start = 0;
    if (findFirstMessage (rawData, start) != 149)
        return false;
    programResult.addArray (rawData.getRawDataPointer() + start, 149);
    return true;
}

void FileMan::ShowMeOpen (int mode, int type, juce::String name, std::function<void (bool)> done)
{
    patterns.clear();
    switch (type)
    {
        case 1:   dialogTitle = "Load Single Corvane Program";  patterns.addArray ({ "*.tkp", "*.syx" });  break;
        case 3:   dialogTitle = "Load Corvane Program Bank";    patterns.addArray ({ "*.tkbn", "*.syx" }); break;
        case 4:   dialogTitle = "Load Corvane Program Library"; patterns.addArray ({ "*.tkl", "*.tkbn" }); break;
        case 6:   dialogTitle = "Load Corvane Data";            patterns.add (".tkr");                     break;
        case 7:   dialogTitle = "Load Sysex File";              patterns.add ("*.syx");                    break;
        case 101: dialogTitle = "Save Corvane Program";         patterns.addArray ({ "*.tkp", "*.syx" });  break;
        case 103: dialogTitle = "Save Corvane Program Bank";    patterns.addArray ({ "*.tkbn", "*.syx" }); break;
        default:  break;
    }

    const auto home = juce::File::getSpecialLocation (juce::File::userHomeDirectory);
    const bool saving = mode == saveDialog;
    auto start = home;
    if (saving)
    {
        // A separator in a program's name would make the proposal a path into a folder that
        // isn't there; the file is built by hand because getChildFile reads a leading "~" as a home.
        const auto leaf = name.trim().replaceCharacter (juce::File::getSeparatorChar(), '-')
                          + patterns[0].trimCharactersAtStart ("*");
        start = juce::File (home.getFullPathName() + juce::File::getSeparatorString() + leaf);
    }

    chooser = std::make_unique<juce::FileChooser> (dialogTitle, start, patterns.joinIntoString (";"), nativeDialogs);
    const int flags = saving ? juce::FileBrowserComponent::saveMode | juce::FileBrowserComponent::canSelectFiles
                                   | juce::FileBrowserComponent::warnAboutOverwriting
                             : juce::FileBrowserComponent::openMode | juce::FileBrowserComponent::canSelectFiles;

    // The chooser is a member: when this object goes, the chooser drops the callback unheard.
    chooser->launchAsync (flags, [this, done = std::move (done)] (const juce::FileChooser& fc)
    {
        const auto result = fc.getResult();
        if (result != juce::File())
            chosenFile = result;
        done (result != juce::File());
    });
}

void FileMan::Load_Program_Single (std::function<void (bool)> done)
{
    programResult.clearQuick();
    ShowMeOpen (openDialog, 1, {}, [this, done = std::move (done)] (bool confirmed)
    {
        done (confirmed && Load_Program_File (chosenFile));
    });
}
