#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "editor/controls/IvrBut.h"

// The name editor of the write dialog: the two 12-character lines of a program name.
class RenameCnt : public juce::Component
{
public:
    RenameCnt (const juce::String& firstLine, const juce::String& secondLine);
    ~RenameCnt() override;

    void paint (juce::Graphics& g) override;

    // Each line cut to 12 characters and padded with spaces to 12, then joined.
    juce::String joinedName() const;

    static constexpr int boxWidth = 120, boxHeight = 60;

    juce::TextEditor firstEditor, secondEditor;
    IvrBut okButton { "OK", 1111, 140 };
    IvrBut cancelButton { "Cancel", 1113, 140 };

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (RenameCnt)
};
