// Draws every image of the resource table and writes it as NAME.png.
//
//   make-art DIR            write all images into DIR
//   make-art --check DIR    draw them in memory and compare with the files in DIR, byte for byte
//
// The images are a pure function of this tool's code and the embedded fonts: no clock, no
// unseeded randomness, so the committed PNGs can be reproduced exactly.

#include "ArtBook.h"
#include "editor/controls/DeskerLookAndFeel.h"

#include <iostream>
#include <stdexcept>

namespace
{
juce::MemoryBlock encode (const juce::Image& image)
{
    juce::MemoryOutputStream out;
    juce::PNGImageFormat png;
    if (! png.writeImageToStream (image, out))
        throw std::runtime_error ("PNG encoding failed");
    return out.getMemoryBlock();
}

int run (bool check, const juce::File& dir)
{
    if (! check && ! dir.createDirectory())
    {
        std::cerr << "cannot create " << dir.getFullPathName() << "\n";
        return 1;
    }

    ArtBook book;
    int problems = 0;
    const auto names = ArtBook::names();

    for (const auto& name : names)
    {
        const auto bytes = encode (book.get (name));
        const auto file = dir.getChildFile (name + ".png");

        if (! check)
        {
            if (! file.replaceWithData (bytes.getData(), bytes.getSize()))
            {
                std::cerr << "cannot write " << file.getFullPathName() << "\n";
                return 1;
            }
            continue;
        }

        juce::MemoryBlock committed;
        if (! file.existsAsFile())
        {
            std::cout << "missing: " << file.getFileName() << "\n";
            ++problems;
        }
        else if (! file.loadFileAsData (committed) || committed != bytes)
        {
            std::cout << "different: " << file.getFileName() << "\n";
            ++problems;
        }
    }

    if (check)
    {
        // A stray PNG would be compiled into the plug-in as well.
        for (const auto& file : dir.findChildFiles (juce::File::findFiles, false, "*.png"))
        {
            if (! names.contains (file.getFileNameWithoutExtension()))
            {
                std::cout << "not in the resource table: " << file.getFileName() << "\n";
                ++problems;
            }
        }
    }

    return problems == 0 ? 0 : 1;
}
} // namespace

int main (int argc, char** argv)
{
    const bool check = argc == 3 && juce::String (argv[1]) == "--check";
    if (argc != 2 && ! check)
    {
        std::cerr << "usage: make-art DIR | make-art --check DIR\n";
        return 2;
    }

    juce::ScopedJuceInitialiser_GUI juce;
    DeskerLookAndFeelScope look;

    try
    {
        return run (check, juce::File::getCurrentWorkingDirectory().getChildFile (argv[argc - 1]));
    }
    catch (const std::exception& e)
    {
        std::cerr << "make-art: " << e.what() << "\n";
        return 1;
    }
}
