// Sound files written from the editor: the user names the file, then the block replaces it whole.

#include "editor/MainComp.h"

#include "sound/FileMan.h"

void MainComp::SAVE_DATA_AS (juce::Array<unsigned char> data, int size, int type, juce::String name)
{
    fileManager->ShowMeOpen (FileMan::saveDialog, type, name, [this, data = std::move (data), size] (bool confirmed)
    {
        const auto target = fileManager->chosenFile;
        if (! confirmed || target.isDirectory())
            return;
        // Through a temporary file and a rename: a failed write leaves the user's old file as it was.
        FileMan::writeFileAtomically (target, data.getRawDataPointer(), (size_t) juce::jlimit (0, data.size(), size));
    });
}

void MainComp::SAVE_DATA_PROGRAM_AS (juce::Array<unsigned char> data, int size, juce::String name)
{
    SAVE_DATA_AS (std::move (data), size, 101, std::move (name));
}
