#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "editor/controls/IvrBut.h"

// The message box: a line of text over the darkened editor, with "OK" and "CANCEL". It covers the
// whole editor; either button reports to MainComp, which closes it.
class MsgCont : public juce::Component,
                public juce::ChangeBroadcaster
{
public:
    explicit MsgCont (const juce::String& text);
    ~MsgCont() override;

    void paint (juce::Graphics& g) override;
    void resized() override;

    static constexpr int boxWidth = 460;
    // The buttons stand 64 below the top; the box ends 12 under them.
    static constexpr int boxHeight = 100;

    IvrBut okButton { "OK", 1111, 140 };
    IvrBut cancelButton { "CANCEL", 1113, 140 };
    juce::Label label;
    bool modal = false;
    juce::Rectangle<int> box;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (MsgCont)
};
