#include "librarian/LibComp.h"

#include "sound/AutoBank.h"

LibComp::LibComp()
    : fileButton ("FILE", 890, 7),
      midiButton ("MIDI", 891, 7),
      presetsButton ("PRESETS", 201, 7),
      libraryButton ("LIBRARY", 202, 7)
{
    for (int i = 0; i < (int) stores.size(); ++i)
        stores[(size_t) i] = std::make_unique<AutoBank> (i);
}

LibComp::~LibComp() = default;

void LibComp::paint (juce::Graphics&) {}

void LibComp::changeListenerCallback (juce::ChangeBroadcaster*) {}
