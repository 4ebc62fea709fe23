#include "device/MidiCntrState.h"

#include "sound/AutoBank.h"
#include "sound/FileMan.h"

namespace
{
const char* const settingsFileName = "tkplugsts.dat";
const char* const dataFileName = "tkdeskerdata.dat";
const char* const dataHead = "*CorvaneData >";
const char* const dataTail = "< CorvaneData";
constexpr int dataHeadBytes = 14;
constexpr int dataTailBytes = 13;
constexpr int userBanks = 7;

void writeText (const juce::File& file, const juce::String& text)
{
    // Plain 8-bit text, no byte-order mark; a failed write keeps the old file.
    FileMan::writeFileAtomically (file, text.toRawUTF8(), text.getNumBytesAsUTF8());
}
} // namespace

juce::File MidiCntrState::getSettingsFolder() const
{
    if (settingsFolder != juce::File())
        return settingsFolder;
    // A sibling of the application data directory, not a child: older versions put it there.
    return juce::File::getSpecialLocation (juce::File::userApplicationDataDirectory).getSiblingFile ("DeskSettings");
}

juce::String MidiCntrState::ArrayToString (juce::StringArray strings)
{
    juce::String text;
    for (auto& s : strings)
        text << "^|" << s << "|^";
    return text;
}

void MidiCntrState::INI_Defaults()
{
    iniStrings.clear();
    for (auto* s : { "3.0.2", "-1", "-1", "100", "0", "0", "0", "1" })
        iniStrings.add (s);
    while (iniStrings.size() < numIniSlots)
        iniStrings.add ("0");
}

juce::StringArray MidiCntrState::ParseIniText (const juce::String& text)
{
    juce::StringArray parsed;
    int pos = 0;
    while (pos < text.length())
    {
        const auto open = text.indexOf (pos, "^|");
        const auto close = text.indexOf (pos, "|^");
        if (open < 0 || close <= 0)
            break;
        parsed.add (text.substring (open + 2, close));
        pos = close + 1;
    }
    return parsed;
}

void MidiCntrState::ReadWriteIni (int mode)
{
    if (keepsNoFiles)
    {
        if (mode == 0)
            INI_Defaults();
        return;
    }

    const auto file = getSettingsFolder().getChildFile (settingsFileName);

    if (! file.existsAsFile())
    {
        INI_Defaults();
        writeText (file, ArrayToString (iniStrings));
    }

    if (mode == 1)
    {
        writeText (file, ArrayToString (iniStrings));
        return;
    }

    auto text = file.loadFileAsString();
    if (text.length() < 6)
        text.clear();

    const auto parsed = ParseIniText (text);
    if (parsed.size() < 3)
    {
        iniStrings.clear();
        INI_Defaults();
        iniFresh = true;
        return;
    }

    // Any version's file is taken as it stands; slots it lacks read "0".
    iniStrings.clear();
    for (int i = 0; i < juce::jmin (parsed.size(), numIniSlots); ++i)
        iniStrings.add (parsed[i]);
    while (iniStrings.size() < numIniSlots)
        iniStrings.add ("0");
}

void MidiCntrState::ReadDataFile()
{
    const auto file = getSettingsFolder().getChildFile (dataFileName);
    juce::MemoryBlock data;
    // The size is the only test: the markers are not checked.
    const bool usable = ! keepsNoFiles && file.existsAsFile() && file.getSize() == dataFileBytes && file.loadFileAsData (data)
                        && (int) data.getSize() == dataFileBytes;

    for (int i = 0; i < userBanks; ++i)
    {
        if (banks[(size_t) i] == nullptr)
            continue;
        if (usable)
            banks[(size_t) i]->bankData.copyFrom (static_cast<const char*> (data.getData()) + dataHeadBytes + i * AutoBank::bankBytes,
                                                  0, (size_t) AutoBank::bankBytes);
        else
            banks[(size_t) i]->PreloadFactoryData (0, i);
    }

    if (banks[7] != nullptr)
        banks[7]->PreloadFactoryData (0, 0);
}

void MidiCntrState::WriteDataFile()
{
    if (keepsNoFiles)
        return;

    juce::MemoryBlock data;
    data.append (dataHead, (size_t) dataHeadBytes);
    for (int i = 0; i < userBanks; ++i)
    {
        if (banks[(size_t) i] == nullptr)
            return;
        const auto& bank = banks[(size_t) i]->bankData;
        // Always a whole bank, so the file keeps its one accepted size.
        juce::MemoryBlock image ((size_t) AutoBank::bankBytes, true);
        image.copyFrom (bank.getData(), 0, juce::jmin (bank.getSize(), (size_t) AutoBank::bankBytes));
        data.append (image.getData(), image.getSize());
    }
    data.append (dataTail, (size_t) dataTailBytes);
    FileMan::writeFileAtomically (getSettingsFolder().getChildFile (dataFileName), data.getData(), data.getSize());
}
