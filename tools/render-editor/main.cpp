// Renders the editor into PNG files, as a musician sees it at the given widths:
//   render-editor DIR [--advanced | --bank | --midi | --library] [WIDTH...]   (default widths 1505 and 978)
// writes DIR/editor-WIDTH.png, with --advanced the advanced page, DIR/editor-advanced-WIDTH.png,
// with --bank the bank window open on bank A with its third row selected, DIR/editor-bank-WIDTH.png,
// with --midi the MIDI page, DIR/editor-midi-WIDTH.png, with --library the library window over a
// folder of the factory sets and one broken file, searched for "pad", DIR/editor-library-WIDTH.png.
// Runs with a settings folder of its own, so that no user file is read or written, and with no
// MIDI port open.

#include "device/InProcessMidiBackend.h"
#include "editor/MainComp.h"
#include "librarian/BankComp.h"
#include "librarian/LibComp.h"
#include "plugin/PluginEditor.h"
#include "plugin/PluginProcessor.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"
#include "sound/TolkCorvaneBanks.h"

#include <iostream>

namespace juce
{
// JUCE's own step of its message loop, for the library's reading, which ends on a timer.
bool dispatchNextMessageOnSystemQueue (bool returnIfNoPendingMessages);
} // namespace juce

namespace
{
// The factory sets as the library would hold them: the sets themselves, two banks as bank files.
void fillLibrary (const juce::File& folder)
{
    folder.getChildFile ("Factory").createDirectory();
    for (int set = 0; set < 8; ++set)
    {
        const char* data = nullptr;
        int size = 0;
        if (TolkCorvaneBanks::getSet (set, data, size))
            folder.getChildFile ("Factory/Set " + juce::String (set + 1) + ".tkr").replaceWithData (data, (size_t) size);
    }
    for (int bank : { 1, 4 })
    {
        AutoBank store (0);
        store.PreloadFactoryData (0, bank);
        const auto file = FileMan::Bank_File_Data (store);
        folder.getChildFile ("Bank " + juce::String::charToString ((juce::juce_wchar) ('A' + bank)) + ".tkbn").replaceWithData (file.getData(), file.getSize());
    }
    folder.getChildFile ("Broken.syx").replaceWithData ("\xf0\x04\x01", 3);
}
} // namespace

int main (int argc, char** argv)
{
    if (argc < 2)
    {
        std::cerr << "usage: render-editor DIR [--advanced | --bank | --midi | --library] [WIDTH...]" << std::endl;
        return 2;
    }

    juce::ScopedJuceInitialiser_GUI juce;
    const juce::File dir = juce::File::getCurrentWorkingDirectory().getChildFile (argv[1]);
    if (! dir.createDirectory())
    {
        std::cerr << "render-editor: cannot create " << dir.getFullPathName() << std::endl;
        return 2;
    }

    juce::Array<int> widths;
    juce::String page;
    for (int i = 2; i < argc; ++i)
    {
        if (juce::String (argv[i]) == "--advanced")
            page = "advanced-";
        else if (juce::String (argv[i]) == "--bank")
            page = "bank-";
        else if (juce::String (argv[i]) == "--midi")
            page = "midi-";
        else if (juce::String (argv[i]) == "--library")
            page = "library-";
        else
            widths.add (juce::jlimit (301, 1505, juce::String (argv[i]).getIntValue()));
    }
    if (widths.isEmpty())
        widths = { 1505, 978 };

    const auto settings = juce::File::createTempFile ("desker-render");
    settings.createDirectory();
    if (page == "library-")
        fillLibrary (settings.getChildFile ("Library"));
    int status = 0;
    {
        InProcessMidiBackend noPorts;
        DeskerAudioProcessor processor { settings, &noPorts };
        processor.midiCntrState.splashShown = true;

        for (int width : widths)
        {
            processor.editorWidth = width;
            processor.editorHeight = (int) (width * 739.0 / 1505.0);
            std::unique_ptr<juce::AudioProcessorEditor> editor (processor.createEditor());
            auto& mainComp = *dynamic_cast<DeskerAudioProcessorEditor&> (*editor).getMainComp();
            // A fresh settings folder with no instrument opens the search for it: not wanted here.
            mainComp.show_Scan (false);
            if (page == "midi-")
                mainComp.show_MIDI (true);
            if (page == "advanced-")
                mainComp.Show_Window (106, true, 0);
            if (page == "bank-")
            {
                processor.midiCntrState.bankNumber = 0;
                processor.midiCntrState.programNumber = 0;
                mainComp.Show_Window (103, true, 0);
                mainComp.bankPanel->grid.selectedRow = 2;
            }
            if (page == "library-")
            {
                mainComp.Show_Window (103, true, 0);
                auto& library = *mainComp.bankPanel->library;
                library.setBounds (0, 0, 500, 444);
                library.setVisible (true);
                for (int i = 0; i < 1000 && library.isScanning(); ++i)
                    juce::dispatchNextMessageOnSystemQueue (false);
                library.setSearchText ("pad");
                library.grid.selectedRow = 1;
                library.grid.selectedProgram = library.grid.rowPrograms[1];
            }
            const auto image = editor->createComponentSnapshot (editor->getLocalBounds());
            const auto file = dir.getChildFile ("editor-" + page + juce::String (width) + ".png");
            file.deleteFile();
            juce::FileOutputStream out (file);
            if (! out.openedOk() || ! juce::PNGImageFormat().writeImageToStream (image, out))
            {
                std::cerr << "render-editor: cannot write " << file.getFullPathName() << std::endl;
                status = 2;
            }
        }
    }
    settings.deleteRecursively();
    return status;
}
