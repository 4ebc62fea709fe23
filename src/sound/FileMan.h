#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>

class AutoBank;

// Reads and writes the sound files: a program file is one 149-byte program
// frame, a bank file the 128 frames of a bank (19072 bytes). Detection goes by
// content and length, never by extension.
class FileMan : public juce::Component
{
public:
    static constexpr int bankFileBytes = 128 * 149;

    FileMan();

    static constexpr int openDialog = 98;
    static constexpr int saveDialog = 99;

    // Shows the file dialog of `type` on the user's home directory: `mode` openDialog or
    // saveDialog, `name` the file a save proposes. Plug-ins have no modal loops, so the answer
    // comes later: `done` hears true when the user confirmed, and the file is then in chosenFile
    // as the user named it. A FileMan that goes away with its dialog open never calls back.
    void ShowMeOpen (int mode, int type, juce::String name, std::function<void (bool)> done);

    // Asks for a program file and reads it; `done` hears true when programResult holds its
    // 149-byte frame.
    void Load_Program_Single (std::function<void (bool)> done);

    // The whole file; a missing file, a directory or an empty file gives an
    // empty array. The raw block holds the same afterwards.
    juce::Array<unsigned char> OpenFileI (juce::File file);

    // The reading half of loading a single program: the first message from
    // the first 0xF0 to the next 0xF7 must be exactly 149 bytes; it lands in
    // programResult. Files under 10 bytes are refused.
    bool Load_Program_File (const juce::File& file);

    // Length of the message from the first 0xF0 to the first 0xF7 after it,
    // 0 when either is missing; start receives the 0xF0's offset.
    static int findFirstMessage (const juce::Array<unsigned char>& data, int& start);

    // A bank file of exactly bankFileBytes goes program by program into bank;
    // anything else leaves the bank untouched and returns false.
    static bool Load_Bank_Data (const juce::Array<unsigned char>& data, AutoBank& bank);
    static juce::MemoryBlock Bank_File_Data (AutoBank& bank);
    static juce::MemoryBlock Program_File_Data (AutoBank& bank, int deviceId);

    // Files are replaced through a temporary file in the same folder and a
    // rename, so an interrupted write leaves the previous file whole.
    static bool writeFileAtomically (const juce::File& target, const void* data, size_t size);
    // The two halves of writeFileAtomically: the temporary copy (an invalid
    // File on failure, nothing left behind), then the rename over the target.
    static juce::File writeTemporaryBeside (const juce::File& target, const void* data, size_t size);
    static bool replaceWithTemporary (const juce::File& temporary, const juce::File& target);

    juce::Array<unsigned char> programResult;
    juce::Array<unsigned char> rawData;
    juce::File chosenFile;
    juce::String dialogTitle;
    juce::StringArray patterns;
    // The platform's dialog where there is one, JUCE's own otherwise or when this is false.
    bool nativeDialogs = true;

private:
    // Lives until the next dialog or this object's end; destroying it drops its callback.
    std::unique_ptr<juce::FileChooser> chooser;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (FileMan)
};
