// The MIDI page as a user works it, and the tool-bar's channel menu, on in-process MIDI with the
// virtual Corvane and further virtual ports beside it.

#include "EditorHarness.h"
#include "device/MIDI_PORTS_Control.h"
#include "device/MIDI_SETUP.h"
#include "device/MIDI_scan.h"
#include "editor/controls/Check_But.h"
#include "editor/controls/IvrBut.h"
#include "editor/controls/IvrCont.h"

namespace
{
struct Page : EditorHarness
{
    juce::String keysA = backend.addSource ("Keys A");
    juce::String synthA = backend.addDestination ("Synth A", nullptr);

    MIDI_Setup& page() { return *main().midiPanel; }
    MIDI_PORTS_Control& ports() { return *state().portControl; }
    juce::File settingsFile() { return folder.dir.getChildFile ("tkplugsts.dat"); }
    // A write replaces the mark. (Deleting the file instead would make the next write start from
    // the defaults.)
    bool markSettings() { return settingsFile().replaceWithText ("stale"); }
    bool settingsWritten() { return settingsFile().loadFileAsString() == MidiCntrState::ArrayToString (state().iniStrings); }

    void openPage()
    {
        openReady();
        for (auto* b : main().appBar->buttons)
            if (b->id == 77)
                click (centreOf (*b));
        ASSERT_TRUE (main().midiPanel != nullptr);
    }
    void chooseIn (int which, const char* item)
    {
        click (at (page(), page().listArea (which).getCentre()));
        ASSERT_TRUE (chooseMenu ({ item }));
    }

    // Polls logged on `destination` since the last call.
    int polls (const juce::String& destination)
    {
        const std::vector<int> poll { 0xF0, 0x04, 0x01, state().deviceId & 127, 0x05, 0xF7 };
        int count = 0;
        for (auto& t : backend.messagesTo (destination))
            count += std::vector<int> (t.message.getRawData(), t.message.getRawData() + t.message.getRawDataSize()) == poll;
        backend.clearLog (destination);
        return count;
    }

    // The notes that reached the state from the sources, one note per source.
    std::vector<int> notesHeard()
    {
        drainCodes();
        backend.sendFromSource (device.outputId, juce::MidiMessage::noteOn (1, 60, (juce::uint8) 100));
        backend.sendFromSource (keysA, juce::MidiMessage::noteOn (1, 61, (juce::uint8) 100));
        backend.deliverPending();
        std::vector<int> notes;
        for (const auto code : drainCodes())
            if ((code >> 18) == 9)
                notes.push_back ((int) (code >> 7) & 127);
        return notes;
    }
};

struct MidiSetup : ::testing::Test, Page {};
} // namespace

// The page opens on the ports as they stand and polls; each choice, and the clock check, then acts on
// its port or flag, lights or darkens its lamp, polls on the output and writes the settings. `heard`:
// the notes that reach the state, 60 from the Corvane and 61 from "Keys A".
TEST_F (MidiSetup, EachChoiceActsOnItsPortPollsAndWritesTheSettings)
{
    struct Row
    {
        int which;
        const char* item;
        juce::StringArray names; // portNames[0] and [1] after the choice
        bool inputOpen;
        std::vector<int> heard;
        bool pollToSynthA;
    };
    const Row rows[] = {
        { 301, "Keys A", { "Corvane", "Corvane" }, true, { 60 }, false }, // the third list offers the inputs and only polls
        // "NONE" for the output only stores the name: the output stays open until the next start.
        { 302, "NONE", { "Corvane", "NONE" }, true, { 60 }, false },
        { 302, "Synth A", { "Corvane", "Synth A" }, true, { 60 }, true },
        { 300, "NONE", { "NONE", "Synth A" }, false, {}, true },
        { 300, "Keys A", { "Keys A", "Synth A" }, true, { 61 }, true }, // from a dark lamp
    };
    openPage();
    EXPECT_TRUE (page().inputOpenLamp && page().outputOpenLamp);
    EXPECT_EQ (polls (device.inputId), 1);
    for (const auto& row : rows)
    {
        SCOPED_TRACE (std::to_string (row.which) + " " + row.item);
        ASSERT_TRUE (markSettings());
        chooseIn (row.which, row.item);
        EXPECT_EQ (juce::StringArray (state().portNames[0], state().portNames[1]), row.names);
        EXPECT_EQ (std::pair (ports().inputOpen.load(), ports().outputOpen.load()), std::pair (row.inputOpen, true));
        EXPECT_EQ (std::pair (page().inputOpenLamp, page().outputOpenLamp), std::pair (row.inputOpen, true));
        const auto& list = row.which == 302 ? page().outputList : page().inputList;
        const int choice = row.which == 300 ? page().inputChoice : row.which == 302 ? page().outputChoice : page().thirdChoice;
        EXPECT_EQ (list[choice], row.item);
        EXPECT_EQ (polls (row.pollToSynthA ? synthA : device.inputId), 1);
        EXPECT_TRUE (settingsWritten());
        EXPECT_EQ (notesHeard(), row.heard);
    }

    for (const bool on : { false, true }) // "Clock ON/OFF": the flag and its slot
    {
        ASSERT_TRUE (markSettings());
        click (centreOf (*page().clockCheck) - juce::Point<float> (140.0f, 0.0f));
        EXPECT_EQ (state().localFlag.load(), on);
        EXPECT_EQ (state().iniStrings[43], on ? "1" : "0");
        EXPECT_TRUE (settingsWritten());
        EXPECT_EQ (polls (synthA), 1);
    }
}

// With no ports both lists hold only "NONE" and open no menu; with ports, a list's hot area starts
// one pixel inside it and the gaps between lists open nothing. The host keeps the keyboard.
TEST (MidiSetupHotAreas, NoPortsOpenNoMenuAndHotAreasExcludeTheirEdges)
{
    for (const bool noPorts : { true, false })
    {
        Page p;
        if (noPorts)
            for (const auto& id : { p.device.inputId, p.device.outputId, p.keysA, p.synthA })
                p.backend.removeDevice (id);
        p.openPage();
        p.sent();
        EXPECT_EQ (p.page().inputList.joinIntoString (","), noPorts ? "NONE" : "NONE,Corvane,Keys A");
        EXPECT_EQ (p.page().outputList.joinIntoString (","), noPorts ? "NONE" : "NONE,Corvane,Synth A");
        const struct { int dx, dy; bool opens; } rows[] = { { 20, 72, false }, { 21, 72, true }, { 150, 60, false }, { 150, 95, false },
                                                            { 150, 122, true }, { 150, 160, false }, { 150, 172, true } };
        for (const auto& row : rows)
        {
            p.click (p.at (p.page(), { p.page().panelX + row.dx, p.page().panelY + row.dy }));
            EXPECT_EQ (! p.openMenus().empty(), row.opens && ! noPorts) << noPorts << ": " << row.dx << ", " << row.dy;
            juce::PopupMenu::dismissAllActiveMenus();
            ASSERT_TRUE (pumpUntil ([&] { return p.openMenus().empty(); }));
        }
        EXPECT_TRUE (p.sentBytes().empty());
        EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr);
    }
}

// Closing by the button or from the editor writes the ports file; the button also polls and writes
// the settings.
TEST (MidiSetupClose, ClosingWritesThePortsFile)
{
    for (const bool byButton : { true, false })
    {
        SCOPED_TRACE (byButton);
        Page p;
        p.openPage();
        p.chooseIn (302, "Synth A");
        ASSERT_TRUE (p.markSettings());
        const auto portsFile = p.folder.dir.getChildFile ("tkplports.dat");
        ASSERT_TRUE (portsFile.deleteFile());
        if (byButton)
            p.click (p.centreOf (*p.page().closeButton));
        else
            p.main().Show_Window (104, false, 0);
        ASSERT_TRUE (pumpUntil ([&] { return p.main().midiPanel == nullptr; }));
        EXPECT_FALSE (p.main().midiPanelShown);
        EXPECT_TRUE (portsFile.loadFileAsString().startsWith ("Corvane\x0fSynth A\x10"));
        EXPECT_EQ (p.settingsWritten(), byButton);
        EXPECT_EQ (p.polls (p.synthA), byButton ? 2 : 1);
    }
}

TEST_F (MidiSetup, FindStartsTheScanAndASecondFindRestartsIt)
{
    openPage();
    click (centreOf (*page().scanButton));
    ASSERT_TRUE (pumpUntil ([this] { return main().scanPanel != nullptr; }));
    EXPECT_TRUE (state().scanActive.load());
    main().scanPanel->portIndex = 1; // where a restart begins again
    click (centreOf (*page().scanButton));
    EXPECT_TRUE (pumpUntil ([&] { return main().scanPanel != nullptr && main().scanPanel->portIndex == 0; }));
}

TEST_F (MidiSetup, ChannelMenuSetsTheChannelOfTheNextMessageAndWritesNothing)
{
    openReady();
    ASSERT_TRUE (markSettings());
    click (centreOf (main().appBar->channelLabel));
    ASSERT_TRUE (chooseMenu ({ "Channel 5" }));
    EXPECT_EQ (state().midiChannel.load(), 5);
    EXPECT_EQ (state().iniStrings[41], "5");
    EXPECT_EQ (main().appBar->channelLabel.text, "Chan: 5");
    EXPECT_TRUE (sentBytes().empty());
    EXPECT_EQ (settingsFile().loadFileAsString(), "stale");

    click (centreOf (knob (61))); // "Osc 1 on/off", controller 82
    const auto wire = sentBytes();
    ASSERT_FALSE (wire.empty());
    ASSERT_EQ (wire.front().size(), 3u);
    EXPECT_EQ (wire.front()[0], 0xB4);
    EXPECT_EQ (wire.front()[1], 82);
}
