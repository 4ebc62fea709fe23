#include "DeviceLinkFixture.h"

namespace
{
std::string fileOf (const std::string& in, const std::string& out, const std::string& third) { return in + '\x0F' + out + '\x10' + third + '\x11'; }

struct PortsFile : ::testing::Test
{
    ScratchFolder folder;
    InProcessMidiBackend backend;

    juce::File file() const { return folder.dir.getChildFile ("tkplports.dat"); }
    void write (const std::string& bytes) { ASSERT_TRUE (file().replaceWithData (bytes.data(), bytes.size())); }

    std::string read() const { return file().loadFileAsString().toStdString(); } // every byte written is below 0x80

    std::unique_ptr<MidiCntrState> makeState (int readWrite = -1)
    {
        auto state = std::make_unique<MidiCntrState> (&backend);
        state->settingsFolder = folder.dir;
        readWrite < 0 ? state->InitializeMe() : (void) state->ReadWritePorts (readWrite);
        return state;
    }
};
} // namespace

TEST_F (PortsFile, AMissingFileIsWrittenFresh)
{
    auto state = makeState (0);
    EXPECT_EQ (read(), fileOf ("NONE", "NONE", "NONE"));
    EXPECT_EQ (state->portNames, juce::StringArray ("NONE", "NONE", "NONE"));
    state->ReadWritePorts (0); // every call appends three more
    EXPECT_EQ (state->portNames.size(), 6);
}

TEST_F (PortsFile, BrokenFilesLeaveNoneInForceOrAreReplaced)
{
    const std::pair<std::string, std::string> cases[] = {
        { fileOf ("", "Out", ""), fileOf ("", "Out", "") }, // the first marker is the very first byte: left as it stands
        { "ABCD", "ABCD" },                                 // no markers at all
        { "A\x0F", fileOf ("NONE", "NONE", "NONE") },
    };
    for (const auto& [contents, after] : cases)
    {
        SCOPED_TRACE (contents);
        write (contents);
        auto state = makeState (0);
        EXPECT_TRUE (state->portNames[0] == "NONE" && state->portNames[1] == "NONE" && read() == after);
    }
}

TEST_F (PortsFile, WritingKeepsOneByteACharacter)
{
    auto state = std::make_unique<MidiCntrState> (&backend);
    state->settingsFolder = folder.dir;
    state->portNames = juce::StringArray (juce::String (juce::CharPointer_UTF8 ("Pad \xc5\x81")), "Out", "");
    state->ReadWritePorts (1);
    // U+0141 leaves as its low byte 0x41, so the name does not come back.
    EXPECT_EQ (read(), fileOf ("Pad A", "Out", ""));
    EXPECT_EQ (folder.dir.getNumberOfChildFiles (juce::File::findFiles), 1); // no temporary left behind
}

TEST_F (PortsFile, InitializeOpensTheSavedPortsByExactName)
{
    backend.addSource ("Other");
    backend.addSource ("Corvane");
    backend.addDestination ("Co", nullptr);
    const auto out = backend.addDestination ("Corvane", nullptr);
    write (fileOf ("Corvane", "Corvane", "NONE"));
    auto state = makeState();
    EXPECT_TRUE (state->portControl->inputOpen && state->portControl->currentInput == 1 && state->portControl->outputOpen);
    state->portControl->Send_CC (1, 7, 1);
    EXPECT_EQ (backend.messagesTo (out).size(), 1u);

    state.reset(); // it saves its files on the way out
    write (fileOf (" Corvane", "Co", "NONE")); // no trimming; fewer than 3 characters opens nothing
    state = makeState();
    EXPECT_FALSE (state->portControl->inputOpen || state->portControl->outputOpen);
    EXPECT_EQ (state->portNames[0], " Corvane"); // the name is kept
}
