#include "device/MIDI_SETUP.h"

#include "editor/controls/Check_But.h"
#include "editor/controls/IvrBut.h"
#include "editor/controls/IvrCont.h"
#include "editor/controls/IvrLabel.h"
#include "plugin/MIDI_Sync.h"

MIDI_Setup::MIDI_Setup()
{
    syncPanel = std::make_unique<MIDI_Sync>();
}

MIDI_Setup::~MIDI_Setup() = default;

void MIDI_Setup::PopPorts (int) {}

void MIDI_Setup::mouseDown (const juce::MouseEvent&) {}

void MIDI_Setup::paint (juce::Graphics&) {}

void MIDI_Setup::changeListenerCallback (juce::ChangeBroadcaster*) {}
