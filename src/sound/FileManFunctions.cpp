#include "sound/FileMan.h"

#include "sound/AutoBank.h"

int FileMan::findFirstMessage (const juce::Array<unsigned char>& data, int& start)
{
    start = data.indexOf ((unsigned char) 0xF0);
    if (start < 0)
        return 0;
    for (int i = start; i < data.size(); ++i)
        if (data.getUnchecked (i) == 0xF7)
            return i - start + 1;
    return 0;
}

bool FileMan::Load_Bank_Data (const juce::Array<unsigned char>& data, AutoBank& bank)
{
    if (data.size() != bankFileBytes)
        return false;
    for (int p = 0; p < AutoBank::numPrograms; ++p)
        bank.Import_Syx_MB (p, juce::MemoryBlock (data.getRawDataPointer() + p * AutoBank::patchFrameBytes,
                                                  (size_t) AutoBank::patchFrameBytes));
    return true;
}

juce::MemoryBlock FileMan::Bank_File_Data (AutoBank& bank)
{
    juce::MemoryBlock out;
    for (int p = 0; p < AutoBank::numPrograms; ++p)
        out.append (bank.Export_Syx_Bank_Buf_MB (p, 0).getData(), (size_t) AutoBank::patchFrameBytes);
    return out;
}

juce::MemoryBlock FileMan::Program_File_Data (AutoBank& bank, int deviceId)
{
    return bank.Export_Syx_Patch_Buf_MB (deviceId);
}

juce::File FileMan::writeTemporaryBeside (const juce::File& target, const void* data, size_t size)
{
    if (! target.getParentDirectory().createDirectory())
        return {};
    const auto temporary = target.getSiblingFile ("." + target.getFileName() + "." + juce::Uuid().toString() + ".tmp");
    bool ok = false;
    {
        juce::FileOutputStream out (temporary, 8192);
        if (out.openedOk())
        {
            out.setPosition (0);
            out.truncate();
            ok = (size == 0 || out.write (data, size));
            out.flush();
            ok = ok && out.getStatus().wasOk();
        }
    }
    if (! ok || temporary.getSize() != (juce::int64) size)
    {
        temporary.deleteFile();
        return {};
    }
    return temporary;
}

bool FileMan::replaceWithTemporary (const juce::File& temporary, const juce::File& target)
{
    if (temporary.replaceFileIn (target))
        return true;
    temporary.deleteFile();
    return false;
}

bool FileMan::writeFileAtomically (const juce::File& target, const void* data, size_t size)
{
    const auto temporary = writeTemporaryBeside (target, data, size);
    return temporary != juce::File() && replaceWithTemporary (temporary, target);
}
