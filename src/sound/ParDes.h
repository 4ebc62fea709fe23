#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// Turns a sound parameter's value into the text that the display and the host show.
// Never shown on screen; it is a component only by descent. Holds no state, so any thread may call it.
class ParDes : public juce::Component
{
public:
    ParDes() = default;

    // The text of `value` under the display code `code`. A value outside a list gives an empty
    // text; a code without a rule of its own shows the value in decimal.
    static juce::String SndParDes (int code, int value);

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ParDes)
};
