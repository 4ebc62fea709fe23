#include "device/MidiCntrState.h"

#include "device/MIDI_PORTS_Control.h"
#include "plugin/HandlerComp.h"
#include "sound/AutoBank.h"
#include "device/SystemMidiBackend.h"

#include <thread>

MidiCntrState::MidiCntrState (MidiBackend* midiBackend) : backend (midiBackend)
{
    if (backend == nullptr)
    {
        systemBackend = std::make_unique<SystemMidiBackend>();
        backend = systemBackend.get();
    }
}

MidiCntrState::~MidiCntrState()
{
    // The input thread writes into the banks and the scan's reply pair: it stops before they are
    // saved and freed.
    if (portControl != nullptr)
        portControl->closeDevice (true, portControl->currentInput);

    if (initialised)
    {
        ReadWriteIni (1);
        WriteDataFile();
    }

    for (int i = (int) banks.size() - 1; i >= 0; --i)
    {
        delete banks[(size_t) i];
        banks[(size_t) i] = nullptr;
    }
    bankList.clearQuick();

    portControl.reset();

    delete editBuffer;
    editBuffer = nullptr;
}

void MidiCntrState::InitializeMe()
{
    // Host parameter tops: every parameter reaches 127 until the host tables are built.
    paramMax.clearQuick();
    paramMax.insertMultiple (0, 127, 200);
    SetAutoParam();

    ReadWriteIni (0);

    // 32 spare slots beyond the 60 that the settings file carries.
    for (int i = 0; i < 32; ++i)
        iniStrings.add ("0");

    const int channel = iniSlotInt (41);
    if (channel < 1 || channel > 16)
    {
        midiChannel = 1;
        setIniSlot (41, "1");
    }
    else
    {
        midiChannel = channel;
    }

    for (int i = 0; i < (int) banks.size(); ++i)
    {
        banks[(size_t) i] = new AutoBank (i);
        bankList.add (banks[(size_t) i]);
    }

    ReadDataFile();

    editBuffer = new AutoBank (0);
    editBuffer->Initialize_Bank();
    initialised = true;

    handler = std::make_unique<HandlerComp>();
    openSavedPorts();

    localFlag = iniSlotInt (43) == 1;

    const int hostType = getHostType();
    isLogicHost = (hostType == 6 || hostType == 10) ? 1 : 0;

    // Slot 10 marks that the latency compensation slots have been initialised once.
    if (iniSlotInt (10) != 333)
    {
        setIniSlot (10, "333");
        for (int slot = 11; slot <= 16; ++slot)
            setIniSlot (slot, "0");
        setIniSlot (17, "402");
        setIniSlot (18, "0");
    }

    syncMode = isLogicHost == 1 ? iniSlotInt (17) : 0;

    juce::Array<int> values;
    for (int slot : { 11, 12, 13, 14, 15, 16, 18 })
        values.add (iniSlotInt (slot));
    setSyncValues (values);
}

//==============================================================================
namespace
{
// The state whose listeners this thread is notifying, and how deeply: a listener may remove itself
// from inside its own notification, which must not wait for itself to end.
struct Notifying
{
    const MidiCntrState* state = nullptr;
    int depth = 0;
};
thread_local Notifying notifying;
} // namespace

void MidiCntrState::addListener (MidiCntrStateListener* listener)
{
    const juce::ScopedLock sl (lock);
    const int count = listenerCount.load();

    // A new listener starts from the present state: what was queued before is stale.
    uint32_t stale = 0;
    while (updateQueue.pop (stale))
        continue;

    for (int i = 0; i < count; ++i)
        if (listenerSlots[(size_t) i].load() == listener)
            return;

    if (listener == nullptr || count >= maxListeners)
        return;

    listenerSlots[(size_t) count].store (listener);
    listenerCount.store (count + 1);
}

void MidiCntrState::removeListener (MidiCntrStateListener* listener)
{
    {
        const juce::ScopedLock sl (lock);
        const int count = listenerCount.load();
        int found = -1;

        for (int i = 0; i < count && found < 0; ++i)
            if (listenerSlots[(size_t) i].load() == listener)
                found = i;

        if (found < 0)
            return;

        // Close the gap so that the order of registration stays.
        for (int i = found; i < count - 1; ++i)
            listenerSlots[(size_t) i].store (listenerSlots[(size_t) i + 1].load());

        listenerSlots[(size_t) count - 1].store (nullptr);
        listenerCount.store (count - 1);
    }

    // A notification that started before the removal may still call the listener: let it end
    // before the caller is free to destroy it. Notifications only trigger an async update.
    const int own = notifying.state == this ? notifying.depth : 0;
    while (notificationsInFlight.load() > own)
        std::this_thread::yield();
}

void MidiCntrState::Internal_UpdInt (unsigned int code)
{
    updateQueue.push (code);

    notificationsInFlight.fetch_add (1);
    const auto outer = notifying;
    notifying = { this, outer.state == this ? outer.depth + 1 : 1 };

    for (int i = maxListeners - 1; i >= 0; --i)
        if (auto* listener = listenerSlots[(size_t) i].load())
            listener->handle_Update (this);

    notifying = outer;
    notificationsInFlight.fetch_sub (1);
}

void MidiCntrState::Internal_NoteOff (int channel, int note)
{
    if (note < 128)
        Internal_UpdInt (0x880000u + ((unsigned) channel << 14) + (unsigned) note);
}

void MidiCntrState::Internal_ControlChange (int channel, int controller, int value)
{
    if (controller < 128)
        Internal_UpdInt (0x800000u + ((unsigned) channel << 14) + ((unsigned) controller << 7) + (unsigned) value);
}

bool MidiCntrState::popUpdateCode (unsigned int& code)
{
    uint32_t value = 0;
    if (! updateQueue.pop (value))
        return false;

    code = value;
    return true;
}

//==============================================================================
int MidiCntrState::getHostTypeFor (const juce::String& hostPath)
{
    const auto hostName = juce::File (hostPath).getFileName();

    struct Rule
    {
        bool onPath;
        bool ignoreCase;
        const char* text;
        int type;
    };

    // First match wins; the order matters ("Cubase 5" before "Cubase", "Live 8." before "Live").
    static constexpr Rule rules[] = {
        { true,  true,  "Live 6.",           1 },
        { true,  true,  "Live 7.",           2 },
        { true,  true,  "Live 8.",           3 },
        { false, true,  "Live",              4 },
        { false, true,  "Adobe Premiere",    5 },
        { false, false, "Logic",             6 },
        { false, true,  "Pro Tools",         9 },
        { false, true,  "Cubase 4",          14 },
        { false, true,  "Cubase 5",          15 },
        { false, true,  "Cubase 6",          18 },
        { false, true,  "Cubase 7",          19 },
        { false, true,  "Cubase",            17 },
        { true,  true,  "Wavelab 7",         22 },
        { false, true,  "Wavelab",           23 },
        { false, true,  "WaveBurner",        27 },
        { false, false, "Digital Performer", 28 },
        { false, true,  "reaper",            11 },
        { true,  true,  "Studio One",        29 },
    };

    for (const auto& rule : rules)
    {
        const auto& subject = rule.onPath ? hostPath : hostName;
        const bool found = rule.ignoreCase ? subject.containsIgnoreCase (rule.text) : subject.contains (rule.text);

        if (found)
            return rule.type;
    }

    return 0;
}

int MidiCntrState::getHostType() const
{
    if (hostPathOverride.isNotEmpty())
        return getHostTypeFor (hostPathOverride);

    static const int hostType =
        getHostTypeFor (juce::File::getSpecialLocation (juce::File::hostApplicationPath).getFullPathName());
    return hostType;
}

//==============================================================================
int MidiCntrState::iniSlotInt (int slot) const
{
    return juce::isPositiveAndBelow (slot, iniStrings.size()) ? iniStrings[slot].getIntValue() : 0;
}

void MidiCntrState::setIniSlot (int slot, const juce::String& text)
{
    if (juce::isPositiveAndBelow (slot, iniStrings.size()))
        iniStrings.set (slot, text);
}

