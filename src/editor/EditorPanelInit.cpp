// The instrument panel's controls: one per sound parameter 0 to 66, with 17 to 66 placed.

#include "editor/ControlTable.h"
#include "editor/EditorPanel.h"

void EditorPanel::SetInitial()
{
    for (int i = 0; i < numControls; ++i)
    {
        const auto& entry = *ControlTable::panel (i);
        auto* c = controls.add (new IvrCont());

        // 0 to 16 exist only so that the array is indexed by parameter: unseen, unranged, unplaced.
        if (i < 17)
        {
            c->InitializeMe (i, entry.label, 0, entry.displayCode);
            addChildComponent (c);
            continue;
        }

        c->setRange (entry.minimum, entry.maximum);
        c->setDesignRect ((float) entry.x, (float) entry.y, (float) entry.width, (float) entry.height);
        c->setTextBox (entry.width, entry.height);
        c->highByte = i <= 45;
        c->InitializeMe (i, entry.label, entry.kind, entry.displayCode);
        if (i >= 37 && i <= 44)
            c->group = i <= 40 ? 1 : 2;
        addAndMakeVisible (c);
    }

    // A second binding of parameter 100 that never moves: shown, but it takes no mouse.
    fineTune.setRange (0, 255);
    fineTune.setDesignRect (60.0f, 274.0f, 44.0f, 55.0f);
    fineTune.setTextBox (44, 55);
    fineTune.InitializeMe (100, "Fine Tune", 5, 17);
    fineTune.setEnabled (false);
    addAndMakeVisible (fineTune);

    lcd.setBounds (703, 62, 123, 68);
    addAndMakeVisible (lcd);
    midiLed.setBounds (864, 93, 8, 8);
    addAndMakeVisible (midiLed);
    addAndMakeVisible (touchSurface);
    touchCaptions.setBounds (647, 406, 241, 14);
    addAndMakeVisible (touchCaptions);
}
