// Renders the editor into PNG files, as a musician sees it at the given widths:
//   render-editor DIR [--advanced | --bank | --midi] [WIDTH...]   (default widths 1505 and 978)
// writes DIR/editor-WIDTH.png, with --advanced the advanced page, DIR/editor-advanced-WIDTH.png,
// with --bank the bank window open on bank A with its third row selected, DIR/editor-bank-WIDTH.png,
// with --midi the MIDI page, DIR/editor-midi-WIDTH.png.
// Runs with a settings folder of its own, so that no user file is read or written, and with no
// MIDI port open.

#include "device/InProcessMidiBackend.h"
#include "editor/MainComp.h"
#include "librarian/BankComp.h"
#include "plugin/PluginEditor.h"
#include "plugin/PluginProcessor.h"

#include <iostream>

int main (int argc, char** argv)
{
    if (argc < 2)
    {
        std::cerr << "usage: render-editor DIR [--advanced | --bank | --midi] [WIDTH...]" << std::endl;
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
        else
            widths.add (juce::jlimit (301, 1505, juce::String (argv[i]).getIntValue()));
    }
    if (widths.isEmpty())
        widths = { 1505, 978 };

    const auto settings = juce::File::createTempFile ("desker-render");
    settings.createDirectory();
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
