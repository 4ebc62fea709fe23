#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// The factory data compiled into the plug-in: eight sets of programs as
// .tkr images, and the initial program every fresh bank starts from.
class TolkCorvaneBanks : public juce::Component
{
public:
    static constexpr int numSets = 8;

    TolkCorvaneBanks();

    // The packed initial program with its closing 0xF7: 144 bytes.
    juce::Array<unsigned char> Initial_Program();

    // Data and size of factory set 0 to 7; false for any other number.
    static bool getSet (int set, const char*& data, int& size);
    // The title of a set in the presets menu.
    static juce::String getSetTitle (int set);

    static const char* const CoreRefresh_tkr;
    static const int CoreRefresh_tkrSize;
    static const char* const AmberSet_tkr;
    static const int AmberSet_tkrSize;
    static const char* const CobaltSet_tkr;
    static const int CobaltSet_tkrSize;
    static const char* const VellumSet_tkr;
    static const int VellumSet_tkrSize;
    static const char* const RidgeSet_tkr;
    static const int RidgeSet_tkrSize;
    static const char* const MarqueSet_tkr;
    static const int MarqueSet_tkrSize;
    static const char* const Heron25_tkr;
    static const int Heron25_tkrSize;
    static const char* const Ibis25_tkr;
    static const int Ibis25_tkrSize;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (TolkCorvaneBanks)
};
