// The MIDI page as a user works it, and the tool-bar's channel menu, on in-process MIDI with the
// virtual Corvane and further virtual ports beside it.

#include "EditorHarness.h"
#include "device/MIDI_PORTS_Control.h"
#include "device/MIDI_SETUP.h"
#include "device/MIDI_scan.h"
#include "editor/controls/Check_But.h"
#include "editor/controls/IvrBut.h"
#include "editor/controls/IvrCont.h"
#include "plugin/MIDI_Sync.h"

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
        auto& bar = *main().appBar;
        for (auto* b : bar.buttons)
            if (b->id == 77)
                click (centreOf (*b));
        ASSERT_TRUE (main().midiPanel != nullptr);
    }
    void clickPage (int dx, int dy) { click (at (page(), { page().panelX + dx, page().panelY + dy })); }
    void chooseIn (int which, const char* item)
    {
        click (at (page(), page().listArea (which).getCentre()));
        ASSERT_TRUE (chooseMenu ({ item }));
    }

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

TEST_F (MidiSetup, OpensOnThePortsAsTheyStandPollsAndFollowsTheEditorsSize)
{
    openPage();
    EXPECT_EQ (page().inputList, juce::StringArray ("NONE", "Corvane", "Keys A"));
    EXPECT_EQ (page().outputList, juce::StringArray ("NONE", "Corvane", "Synth A"));
    EXPECT_EQ (page().inputChoice * 10 + page().outputChoice, 11);
    EXPECT_TRUE (page().inputOpenLamp && page().outputOpenLamp && page().clockCheck->checked);
    EXPECT_EQ (page().panelX, (1505 - 400) / 2);
    EXPECT_EQ (page().syncPanel->getBounds(), juce::Rectangle<int> (page().panelX, 120 + 270, 320, 80));
    EXPECT_EQ (polls (device.inputId), 1);

    editor->setSize (1200, 600);
    pump();
    EXPECT_EQ (page().getBounds(), main().getLocalBounds());

    // The latency panel reaches the state through MainComp.
    page().syncPanel->mode = 401;
    page().syncPanel->sendChangeMessage();
    EXPECT_TRUE (pumpUntil ([this] { return state().syncMode == 401; }));
}

TEST_F (MidiSetup, WithNoPortsBothListsHoldOnlyNoneAndOpenNoMenu)
{
    for (const auto& id : { device.inputId, device.outputId, keysA, synthA })
        backend.removeDevice (id);
    openPage();
    EXPECT_EQ (page().inputList, juce::StringArray ("NONE"));
    EXPECT_EQ (page().outputList, juce::StringArray ("NONE"));
    for (const int dy : { 72, 122, 172 })
    {
        clickPage (150, dy);
        EXPECT_TRUE (openMenus().empty()) << dy;
    }
}

TEST_F (MidiSetup, EachChoiceActsOnItsPortPollsAndWritesTheSettings)
{
    struct Row
    {
        int which;
        const char* item;
        juce::StringArray names; // portNames[0] and [1] after the choice
        bool inputOpen, outputOpen;
        std::vector<int> heard; // 60 from the Corvane, 61 from "Keys A"
        bool pollToSynthA;
    };
    const Row rows[] = {
        { 300, "Keys A", { "Keys A", "Corvane" }, true, true, { 61 }, false },
        { 300, "NONE", { "NONE", "Corvane" }, false, true, {}, false },
        // "NONE" for the output only stores the name: the output stays open until the next start.
        { 302, "NONE", { "Corvane", "NONE" }, true, true, { 60 }, false },
        { 302, "Synth A", { "Corvane", "Synth A" }, true, true, { 60 }, true },
        // The third list offers the input names and only polls.
        { 301, "Keys A", { "Corvane", "Corvane" }, true, true, { 60 }, false },
    };

    for (const auto& row : rows)
    {
        SCOPED_TRACE (std::to_string (row.which) + " " + row.item);
        Page p;
        p.openPage();
        ASSERT_TRUE (p.markSettings());
        p.sent();
        p.chooseIn (row.which, row.item);

        EXPECT_EQ (p.state().portNames[0], row.names[0]);
        EXPECT_EQ (p.state().portNames[1], row.names[1]);
        EXPECT_EQ (p.ports().inputOpen.load(), row.inputOpen);
        EXPECT_EQ (p.ports().outputOpen.load(), row.outputOpen);
        EXPECT_EQ (p.page().inputOpenLamp, row.inputOpen);
        EXPECT_EQ (p.page().outputOpenLamp, row.outputOpen);
        const auto& list = row.which == 302 ? p.page().outputList : p.page().inputList;
        const int choice = row.which == 300 ? p.page().inputChoice : row.which == 302 ? p.page().outputChoice : p.page().thirdChoice;
        EXPECT_EQ (list[choice], row.item);
        EXPECT_EQ (p.polls (row.pollToSynthA ? p.synthA : p.device.inputId), 1);
        EXPECT_TRUE (p.settingsWritten());
        EXPECT_EQ (p.notesHeard(), row.heard);
    }
}

TEST_F (MidiSetup, HotAreasExcludeTheirEdges)
{
    openPage();
    sent();
    const struct { int dx, dy; bool opens; } rows[] = {
        { 20, 72, false }, { 21, 72, true }, { 309, 72, true }, { 310, 72, false }, { 150, 60, false },
        { 150, 61, true }, { 150, 83, true }, { 150, 84, false }, { 150, 110, false }, { 150, 111, true },
        { 150, 134, false }, { 150, 160, false }, { 150, 183, true }, { 150, 184, false }, { 150, 95, false },
    };
    for (const auto& row : rows)
    {
        clickPage (row.dx, row.dy);
        EXPECT_EQ (! openMenus().empty(), row.opens) << row.dx << ", " << row.dy;
        juce::PopupMenu::dismissAllActiveMenus();
        ASSERT_TRUE (pumpUntil ([this] { return openMenus().empty(); }));
    }
    EXPECT_TRUE (sentBytes().empty());
    EXPECT_EQ (juce::Component::getCurrentlyFocusedComponent(), nullptr); // the host keeps the keyboard
}

TEST_F (MidiSetup, ClockCheckSetsTheFlagAndItsSlotAndTheClockSourceOnlyItsText)
{
    openPage();
    for (const auto* slot : { "0", "1" })
    {
        ASSERT_TRUE (markSettings());
        sent();
        click (centreOf (*page().clockCheck) - juce::Point<float> (140.0f, 0.0f));
        EXPECT_EQ (state().localFlag.load(), juce::String (slot) == "1");
        EXPECT_EQ (state().iniStrings[43], juce::String (slot));
        EXPECT_TRUE (settingsWritten());
        EXPECT_EQ (polls (device.inputId), 1);
    }

    // The menu's sixth item is value 5, whose text is another.
    ASSERT_TRUE (markSettings());
    for (const auto& [item, text] : { std::pair { "EXTERNAL - SEQENCER", "EXTERNAL - SEQENCER" },
                                      std::pair { "MIDI CLK IN - no Start/Stop", "MIDI NOTES ADV SEQ" } })
    {
        page().clockSource->action = IvrCont::actionMenu;
        page().clockSource->sendChangeMessage();
        ASSERT_TRUE (chooseMenu ({ item }));
        EXPECT_EQ (page().clockSource->valueText, juce::String (text));
    }
    EXPECT_EQ (page().command, 303);
    EXPECT_TRUE (sentBytes().empty());
    EXPECT_EQ (settingsFile().loadFileAsString(), "stale");
}

TEST_F (MidiSetup, ClosingWritesThePortsFile)
{
    for (const bool byButton : { true, false })
    {
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
        ASSERT_TRUE (pumpUntil ([&] { return p.main().midiPanel == nullptr; })) << byButton;

        EXPECT_FALSE (p.main().midiPanelShown);
        EXPECT_TRUE (portsFile.loadFileAsString().startsWith ("Corvane\x0fSynth A\x10")) << byButton;
        // The close button polls and writes the settings too.
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
    ASSERT_TRUE (pumpUntil ([&] { return main().scanPanel != nullptr && main().scanPanel->portIndex == 0; }));
    click (centreOf (*main().scanPanel)); // a click stops it
    EXPECT_TRUE (pumpUntil ([this] { return main().scanPanel == nullptr; }));
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
