#include "device/InProcessMidiBackend.h"
#include "device/MIDI_PORTS_Control.h"
#include "device/MidiCntrState.h"

#include <gtest/gtest.h>

namespace
{
struct PortsFile : ::testing::Test
{
    juce::File folder = juce::File::getSpecialLocation (juce::File::tempDirectory).getNonexistentChildFile ("desker-ports", "");
    InProcessMidiBackend backend;

    void SetUp() override { ASSERT_TRUE (folder.createDirectory()); }
    void TearDown() override { folder.deleteRecursively(); }

    juce::File file() const { return folder.getChildFile ("tkplports.dat"); }

    void write (const std::vector<int>& bytes)
    {
        juce::MemoryBlock data;
        for (int b : bytes)
            data.append (&b, 1); // little-endian: the low byte
        ASSERT_TRUE (file().replaceWithData (data.getData(), data.getSize()));
    }

    std::vector<int> read() const
    {
        juce::MemoryBlock data;
        file().loadFileAsData (data);
        return std::vector<int> (static_cast<const juce::uint8*> (data.getData()),
                                 static_cast<const juce::uint8*> (data.getData()) + data.getSize());
    }

    std::unique_ptr<MidiCntrState> makeState()
    {
        auto state = std::make_unique<MidiCntrState> (&backend);
        state->settingsFolder = folder;
        return state;
    }
};

std::vector<int> bytesOf (const char* text)
{
    std::vector<int> out;
    for (const char* c = text; *c != 0; ++c)
        out.push_back ((unsigned char) *c);
    return out;
}

std::vector<int> fileOf (const char* in, const char* out, const char* third)
{
    auto bytes = bytesOf (in);
    bytes.push_back (0x0F);
    for (int b : bytesOf (out))
        bytes.push_back (b);
    bytes.push_back (0x10);
    for (int b : bytesOf (third))
        bytes.push_back (b);
    bytes.push_back (0x11);
    return bytes;
}
} // namespace

TEST_F (PortsFile, AMissingFileIsWrittenFresh)
{
    auto state = makeState();
    state->ReadWritePorts (0);
    EXPECT_EQ (read(), fileOf ("NONE", "NONE", "NONE"));
    EXPECT_EQ (read().size(), 15u);
    EXPECT_EQ (state->portNames, juce::StringArray ("NONE", "NONE", "NONE"));

    state->ReadWritePorts (0); // every call appends three more
    EXPECT_EQ (state->portNames.size(), 6);
}

TEST_F (PortsFile, BrokenFilesLeaveNoneInForceOrAreReplaced)
{
    {
        write (fileOf ("", "Out", "")); // the first marker is the very first byte
        auto state = makeState();
        state->ReadWritePorts (0);
        EXPECT_EQ (state->portNames[0], "NONE");
        EXPECT_EQ (state->portNames[1], "NONE");
        EXPECT_EQ (read(), fileOf ("", "Out", "")); // left as it stands
    }
    {
        write ({ 'A', 'B', 'C', 'D' }); // no markers at all
        auto state = makeState();
        state->ReadWritePorts (0);
        EXPECT_EQ (state->portNames[0], "NONE");
    }
    {
        write ({ 'A', 0x0F });
        auto state = makeState();
        state->ReadWritePorts (0);
        EXPECT_EQ (read(), fileOf ("NONE", "NONE", "NONE"));
    }
}

TEST_F (PortsFile, WritingKeepsOneByteACharacter)
{
    auto state = makeState();
    state->portNames = juce::StringArray (juce::String (juce::CharPointer_UTF8 ("Pad \xc5\x81")), "Out", "");
    state->ReadWritePorts (1);
    // U+0141 leaves as its low byte 0x41, so the name does not come back.
    EXPECT_EQ (read(), fileOf ("Pad A", "Out", ""));
    EXPECT_EQ (folder.getNumberOfChildFiles (juce::File::findFiles), 1); // no temporary left behind
}

TEST_F (PortsFile, InitializeOpensTheSavedPortsByExactName)
{
    backend.addSource ("Other");
    backend.addSource ("Corvane");
    const auto out = backend.addDestination ("Corvane", nullptr);
    write (fileOf ("Corvane", "Corvane", "NONE"));

    auto state = makeState();
    state->InitializeMe();
    EXPECT_TRUE (state->portControl->inputOpen);
    EXPECT_EQ (state->portControl->currentInput, 1);
    EXPECT_TRUE (state->portControl->outputOpen);
    EXPECT_EQ (state->portControl->inputNames, juce::StringArray ("Other", "Corvane"));

    state->portControl->Send_CC (1, 7, 1);
    EXPECT_EQ (backend.messagesTo (out).size(), 1u);
}

TEST_F (PortsFile, PortsThatDoNotMatchStayClosed)
{
    backend.addSource ("Corvane");
    backend.addDestination ("Co", nullptr);
    write (fileOf (" Corvane", "Co", "NONE")); // no trimming; fewer than 3 characters opens nothing

    auto state = makeState();
    state->InitializeMe();
    EXPECT_FALSE (state->portControl->inputOpen);
    EXPECT_FALSE (state->portControl->outputOpen);
    EXPECT_EQ (state->portNames[0], " Corvane"); // the name is kept
}
