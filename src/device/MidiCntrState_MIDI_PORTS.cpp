#include "device/MidiCntrState.h"

#include "device/MIDI_PORTS_Control.h"

// The ports file keeps the chosen port names as raw bytes, each name closed by
// its own marker byte.
namespace
{
constexpr juce::uint8 endOfInput = 0x0F;
constexpr juce::uint8 endOfOutput = 0x10;
constexpr juce::uint8 endOfThird = 0x11;

int lastIndexOf (const juce::MemoryBlock& data, juce::uint8 marker)
{
    for (int i = (int) data.getSize(); --i >= 0;)
        if ((juce::uint8) data[(size_t) i] == marker)
            return i;
    return -1;
}
} // namespace

juce::File MidiCntrState::portsFile() const
{
    return getSettingsFolder().getChildFile ("tkplports.dat");
}

void MidiCntrState::open_Device (bool isInput, int index)
{
    portControl->open_Device (isInput, index, this);
}

void MidiCntrState::ReadWritePorts (int mode)
{
    for (int i = 0; i < 3; ++i)
        portNames.add ("NONE");

    if (keepsNoFiles)
        return;

    const auto file = portsFile();
    if (! file.existsAsFile())
        SavePortStrings();

    if (mode == 1)
    {
        SavePortStrings();
        return;
    }

    juce::MemoryBlock data;
    if (! file.loadFileAsData (data) || data.getSize() < 3)
    {
        SavePortStrings();
        return;
    }

    const int input = lastIndexOf (data, endOfInput);
    const int output = lastIndexOf (data, endOfOutput);
    if (input <= 0 || output <= 0)
        return;

    portNames.set (0, juce::MemoryBlock (data.getData(), (size_t) input).toString());
    const int from = input + 1;
    portNames.set (1, output > from ? juce::MemoryBlock (data.begin() + from, (size_t) (output - from)).toString() : juce::String());
}

void MidiCntrState::SavePortStrings()
{
    if (keepsNoFiles)
        return;

    juce::MemoryBlock data;
    const juce::uint8 markers[] = { endOfInput, endOfOutput, endOfThird };
    for (int i = 0; i < 3; ++i)
    {
        for (const auto c : portNames[i])
        {
            const auto byte = (juce::uint8) (c & 0xFF); // one byte a character, as the file holds them
            data.append (&byte, 1);
        }
        data.append (&markers[i], 1);
    }

    const auto file = portsFile();
    (void) file.getParentDirectory().createDirectory();
    juce::TemporaryFile temp (file);
    if (temp.getFile().replaceWithData (data.getData(), data.getSize()))
        (void) temp.overwriteTargetFileWithTemporary();
}

void MidiCntrState::openSavedPorts()
{
    portControl = std::make_unique<MIDI_PORTS_Control> (*backend);
    ReadWritePorts (0);

    auto indexOf = [] (const juce::Array<juce::MidiDeviceInfo>& devices, const juce::String& name)
    {
        if (name.length() < 3)
            return -1;
        for (int i = 0; i < devices.size(); ++i)
            if (devices.getReference (i).name == name)
                return i;
        return -1;
    };

    const int input = indexOf (backend->getInputDevices(), portNames[0]);
    portControl->closeDevice (true, portControl->currentInput);
    if (input >= 0)
    {
        portControl->updateDeviceList (true);
        open_Device (true, input);
    }

    const int output = indexOf (backend->getOutputDevices(), portNames[1]);
    if (output >= 0)
    {
        portControl->updateDeviceList (false);
        open_Device (false, output);
    }
}
