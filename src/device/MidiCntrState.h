#pragma once

#include <juce_audio_devices/juce_audio_devices.h>

#include <array>
#include <atomic>
#include <memory>

#include "device/MidiCntrStateListener.h"
#include "device/LockFreeQueue.h"

class AutoBank;
class HandlerComp;
class MIDI_PORTS_Control;
class MidiBackend;

// The central object: everything that knows about the Corvane hangs from it. It receives the
// instrument's MIDI, builds the messages to it, and tells the editor what changed through 32-bit
// update codes. One instance lives in the processor; the editor may come and go around it.
class MidiCntrState : public juce::MidiInputCallback
{
public:
    // The ports are reached through `midiBackend`; null means the system's MIDI
    // devices. Tests and tools pass virtual devices here.
    explicit MidiCntrState (MidiBackend* midiBackend = nullptr);
    ~MidiCntrState() override;

    // Start-up, run once from the processor's constructor.
    void InitializeMe();

    //==============================================================================
    // Listeners and update codes

    void addListener (MidiCntrStateListener* listener);
    void removeListener (MidiCntrStateListener* listener);

    // Queues a code and tells every listener, last registered first. Safe on any thread:
    // it neither blocks nor allocates.
    void Internal_UpdInt (unsigned int code);
    void Internal_NoteOff (int channel, int note);
    void Internal_ControlChange (int channel, int controller, int value);

    // Takes the oldest queued code; false when the queue is empty.
    bool popUpdateCode (unsigned int& code);

    //==============================================================================
    // Host type: which host we run in, from the path of its executable.

    static int getHostTypeFor (const juce::String& hostPath);
    int getHostType() const;

    // Tests set this to pose as another host; empty means the real one.
    juce::String hostPathOverride;

    //==============================================================================
    // Settings slots, read and written as decimal text. A slot that does not exist reads as 0,
    // and a write to it is dropped.

    int iniSlotInt (int slot) const;
    void setIniSlot (int slot, const juce::String& text);

    //==============================================================================
    // Host parameters: the tables behind the host's list, and the road from the instrument to it.
    void SetAutoParam();
    void SendVST3_Message (const juce::MidiMessage& message);
    float normalisedFor (int hostIndex, int value) const;

    //==============================================================================
    // Latency compensation: milliseconds added to the send times of timed MIDI, from syncMode,
    // syncValues and the sample rate's index.
    int getCompensation() const;
    static int compensationFor (int mode, const int* values, int valueCount, int rateIndex);
    void SetSyncModes (int mode, const juce::Array<int>& values);

    //==============================================================================
    // Settings file and data file (MidiCntrStateFile.cpp). Both live in the folder "DeskSettings"
    // beside the user's application data directory; every instance on the machine shares them.

    // Tests and tools point this at a folder of their own; empty means the user's folder.
    juce::File settingsFolder;
    // Set before InitializeMe for a state that touches no file: the settings take their defaults,
    // the banks the factory data, no port name is read, and nothing is written.
    bool keepsNoFiles = false;
    juce::File getSettingsFolder() const;

    // 0 reads the settings into iniStrings, 1 writes iniStrings out.
    void ReadWriteIni (int mode);
    void INI_Defaults();
    static juce::String ArrayToString (juce::StringArray strings);
    // The slots of a settings text: each "^|" text "|^", up to the first incomplete pair.
    static juce::StringArray ParseIniText (const juce::String& text);

    // The seven user banks: loaded at start-up (factory data when the file is absent or of any
    // other size than dataFileBytes), saved by the destructor.
    void ReadDataFile();
    void WriteDataFile();

    static constexpr int numIniSlots = 60;
    // The library's folder, "0" for "Library" in the settings folder.
    static constexpr int libraryFolderSlot = 44;
    static constexpr int dataFileBytes = 358427;

    //==============================================================================
    // MIDI input from the instrument's port.
    void handleIncomingMidiMessage (juce::MidiInput* source, const juce::MidiMessage& message) override;

    //==============================================================================
    // What goes to the instrument (MidiCntrStateMIDI.cpp, MidiCntrState_MIDI_PAR.cpp). Sends
    // are dropped while no output is open; the state moves all the same.

    void getPOLL();
    void Dump_Request (int kind, int program, int);
    void SEND_HOST_DISPLAY();
    void SEND_BNPR (int channel, int bank, int program, bool sendToDevice, bool tellHost);
    void SEND_BANKch (int channel, int bank);
    void PROGRAM_MESSAGE (int bank, int program, bool sendToDevice, bool tellHost);
    void PARAMETER_CHANGE (int soundParam, int value);

    // The live message of a sound parameter set to `value` (in its own units, 8 bits for 17
    // to 45): the controller pair or the single controller of the map, unless the bytes equal
    // the last ones sent, leaving `delayMs` from now when that is 1 or more. True when sent.
    bool SEND_PARAM_CC (int soundParam, int value, int delayMs);

    //==============================================================================
    // What comes from the instrument (MidiCntrState_MIDI_IN_.cpp, MidiCntrStateExcl.cpp,
    // MidiCntrState_vst3.cpp), on the MIDI input thread.

    void MIDIExclRec (juce::Array<unsigned char> message);
    void Rec_Sound_Dump (juce::Array<unsigned char> message);

    //==============================================================================
    // Ports (MidiCntrState_MIDI_PORTS.cpp): the chosen port names live in the
    // ports file of the settings folder.

    void open_Device (bool isInput, int index);
    void ReadWritePorts (int mode);
    void SavePortStrings();

    //==============================================================================
    // Fields.

    std::unique_ptr<MIDI_PORTS_Control> portControl;
    juce::StringArray portNames;
    juce::Array<juce::uint8> sysexBuffer;
    LockFreeQueue<uint32_t> updateQueue;
    std::unique_ptr<HandlerComp> handler;

    std::atomic<double> sampleRate { 44100.0 };
    std::atomic<int> syncMode { 0 };
    // Seven saved compensation values: six per rate index, the seventh for all rates. Read on the
    // audio thread while the setup panel writes them, hence element-wise atomics.
    std::array<std::atomic<int>, 7> syncValues {};
    std::atomic<int> syncValueCount { 0 };
    std::atomic<int> sampleRateIndex { 0 };
    bool iniFresh = false;
    int isLogicHost = 0;
    std::atomic<int> midiChannel { 1 };
    std::atomic<bool> localFlag { false };
    std::atomic<int> hostProgram { 0 };
    std::atomic<bool> updateHostActive { false };
    std::atomic<bool> editorOpen { false };
    bool splashShown = false;

    // Audio-thread frame: sample count of the last block, and the notes the host holds.
    std::atomic<int> blockSize { 0 };
    std::array<juce::uint8, 128> noteHeld {};
    // Codes that a host program change leaves for the editor while the slot dialog is open.
    LockFreeQueue<juce::uint8> hostEvents { 256 };

    std::atomic<bool> transferBusy { false };
    std::atomic<bool> bankDumpActive { false };
    std::atomic<int> transferKind { -1 };
    int transferStep = 0;
    // The cursors of a transfer: a bank receive moves them on the MIDI input thread.
    std::atomic<int> transferProgram { 0 };
    std::atomic<int> transferBank { 0 };
    bool transferTimerOn = false;

    // Message thread only (and start-up and the destructor): the MIDI thread never touches them.
    juce::StringArray iniStrings;

    juce::Array<juce::uint16> autoParamA, paramMax, autoParamB;

    std::atomic<int> bankNumber { 0 };
    std::atomic<int> programNumber { 0 };
    juce::uint8 deviceId = 0;
    juce::uint8 pendingParam = 0;
    juce::uint8 pendingMsb = 0;
    std::atomic<bool> hostEcho { true };

    juce::Array<juce::uint16> soundToHost, hostToSound;

    std::array<std::atomic<int>, 4> tsCtrl { -1, -1, -1, -1 };
    std::array<std::atomic<int>, 4> tsValue { 0, 0, 0, 0 };

    std::array<AutoBank*, 8> banks {};
    juce::Array<AutoBank*> bankList;
    AutoBank* editBuffer = nullptr;

    std::atomic<bool> scanActive { false };
    std::atomic<bool> deviceOnline { false };
    // The port indices under test, set by the scan before it opens them.
    std::atomic<int> scanInput { 0 }, scanOutput { 0 };
    // The pair under test when a poll reply came during a scan. The MIDI thread leaves it here and
    // the scan's next tick, on the message thread, stores it in slots 1 and 2.
    std::atomic<int> scanReplyInput { -1 }, scanReplyOutput { -1 };

    // Guards the listener registrations and hostMidi.
    juce::CriticalSection lock;
    juce::MidiBuffer hostMidi;

    int keyBase = 48;
    int keyVelocity = 100;

    static constexpr int maxListeners = 8;

private:
    void setSyncValues (const juce::Array<int>& values);
    // True once InitializeMe has run: a state that never started has nothing of the user's to
    // save and must not overwrite the shared files.
    bool initialised = false;

    void receiveController (const juce::MidiMessage& message, int channelCode, int cc, int v);

    // InitializeMe's ports: the manager, the saved names, the ports opened by name.
    void openSavedPorts();
    juce::File portsFile() const;

    std::unique_ptr<MidiBackend> systemBackend;
    MidiBackend* backend = nullptr;

    // Listeners are read without a lock on the MIDI and audio threads, so registrations live in
    // atomic slots; removal waits until no notification that may still hold the pointer runs.
    std::array<std::atomic<MidiCntrStateListener*>, maxListeners> listenerSlots {};
    std::atomic<int> listenerCount { 0 };
    std::atomic<int> notificationsInFlight { 0 };

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (MidiCntrState)
};
