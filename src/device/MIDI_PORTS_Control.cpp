#include "device/MIDI_PORTS_Control.h"

MIDI_PORTS_Control::MIDI_PORTS_Control (MidiBackend& b) : backend (b) {}

MIDI_PORTS_Control::~MIDI_PORTS_Control()
{
    closeDevice (true, currentInput);

    if (currentOutput >= 0)
    {
        detachOutput();
        if (auto* entry = midiOutputs[currentOutput].get())
            entry->outDevice.reset();
        outputOpen = false;
    }

    for (int i = midiInputs.size(); --i >= 0;)
        midiInputs.remove (i);
    detachOutput();
    for (int i = midiOutputs.size(); --i >= 0;)
        midiOutputs.remove (i);
}

void MIDI_PORTS_Control::timerCallback()
{
    stopTimer();
}

void MIDI_PORTS_Control::updateDeviceList (bool isInput)
{
    const auto available = isInput ? backend.getInputDevices() : backend.getOutputDevices();
    auto& stored = isInput ? midiInputs : midiOutputs;

    if (available.size() == stored.size())
    {
        bool same = true;
        for (int i = 0; i < available.size() && same; ++i)
            same = available.getReference (i) == stored.getUnchecked (i)->deviceInfo;
        if (same)
            return;
    }

    juce::ReferenceCountedArray<MidiDeviceListEntry> fresh;
    for (const auto& info : available)
    {
        MidiDeviceListEntry::Ptr reused;
        for (auto* entry : stored)
            if (entry->deviceInfo == info)
            {
                reused = entry;
                break;
            }
        fresh.add (reused != nullptr ? reused : MidiDeviceListEntry::Ptr (new MidiDeviceListEntry (info)));
    }

    if (isInput)
    {
        stored.swapWith (fresh);
        return;
    }

    // Dropped entries close their outputs; sends then go by currentOutput into
    // the new list, as the index was chosen.
    detachOutput();
    stored.swapWith (fresh);
    fresh.clear();
    attachOutput();
}

void MIDI_PORTS_Control::open_Device (bool isInput, int index, juce::MidiInputCallback* callback)
{
    if (isInput)
    {
        inputNames.clear();
        for (const auto& info : backend.getInputDevices())
            inputNames.add (info.name);
        currentInput = -1;
        inputOpen = false;

        auto* entry = midiInputs[index].get();
        if (entry == nullptr)
            return;

        if (auto device = backend.openInput (entry->deviceInfo.identifier, callback))
        {
            entry->inDevice = std::move (device);
            entry->inDevice->start();
            inputOpen = true;
            currentInput = index;
        }
        return;
    }

    outputNames.clear();
    for (const auto& info : backend.getOutputDevices())
        outputNames.add (info.name);

    detachOutput();
    currentOutput = -1;
    outputOpen = false;

    if (auto* entry = midiOutputs[index].get())
    {
        if (auto device = backend.openOutput (entry->deviceInfo.identifier))
        {
            entry->outDevice = std::move (device);
            outputOpen = true;
            currentOutput = index;
        }
    }
    attachOutput();
}

void MIDI_PORTS_Control::closeDevice (bool isInput, int index)
{
    if (index < 0)
        return;

    if (isInput)
    {
        if (auto* entry = midiInputs[index].get(); entry != nullptr && entry->inDevice != nullptr)
        {
            entry->inDevice->stop();
            entry->inDevice.reset();
        }
        inputOpen = false;
        return;
    }

    detachOutput();
    if (auto* entry = midiOutputs[index].get())
        entry->outDevice.reset();
    outputOpen = false;
    attachOutput();
}

void MIDI_PORTS_Control::detachOutput()
{
    sendTarget = nullptr;
    while (sendersInside.load() != 0)
        std::this_thread::yield();
}

void MIDI_PORTS_Control::attachOutput()
{
    auto* entry = midiOutputs[currentOutput].get();
    sendTarget = entry != nullptr ? entry->outDevice.get() : nullptr;
}
