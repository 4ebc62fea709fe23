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
