#pragma once

#include <juce_graphics/juce_graphics.h>

// The images compiled into the plug-in, by the names of the resource table ("knobsBig",
// "corvaneSkin", ...). Each is decoded once through juce::ImageCache, so all controls of a kind
// share one image. A name that is not compiled in gives an invalid image, which paints nothing.
class IvrResor
{
public:
    static juce::Image get (const juce::String& name);

    // One entry of the resource table: the size every image must have.
    struct Entry
    {
        const char* name;
        int width;
        int height;
    };

    // The table itself (IvrResor_CNT.cpp): every image the editor and the librarian use.
    static const Entry* table();
    static int tableSize();
};
