#include "sound/TolkCorvaneBanks.h"

#include "DeskerResources.h"

const char* const TolkCorvaneBanks::CoreRefresh_tkr = DeskerData::CoreRefresh_tkr;
const int TolkCorvaneBanks::CoreRefresh_tkrSize = DeskerData::CoreRefresh_tkrSize;
const char* const TolkCorvaneBanks::AmberSet_tkr = DeskerData::AmberSet_tkr;
const int TolkCorvaneBanks::AmberSet_tkrSize = DeskerData::AmberSet_tkrSize;
const char* const TolkCorvaneBanks::CobaltSet_tkr = DeskerData::CobaltSet_tkr;
const int TolkCorvaneBanks::CobaltSet_tkrSize = DeskerData::CobaltSet_tkrSize;
const char* const TolkCorvaneBanks::VellumSet_tkr = DeskerData::VellumSet_tkr;
const int TolkCorvaneBanks::VellumSet_tkrSize = DeskerData::VellumSet_tkrSize;
const char* const TolkCorvaneBanks::RidgeSet_tkr = DeskerData::RidgeSet_tkr;
const int TolkCorvaneBanks::RidgeSet_tkrSize = DeskerData::RidgeSet_tkrSize;
const char* const TolkCorvaneBanks::MarqueSet_tkr = DeskerData::MarqueSet_tkr;
const int TolkCorvaneBanks::MarqueSet_tkrSize = DeskerData::MarqueSet_tkrSize;
const char* const TolkCorvaneBanks::Heron25_tkr = DeskerData::Heron25_tkr;
const int TolkCorvaneBanks::Heron25_tkrSize = DeskerData::Heron25_tkrSize;
const char* const TolkCorvaneBanks::Ibis25_tkr = DeskerData::Ibis25_tkr;
const int TolkCorvaneBanks::Ibis25_tkrSize = DeskerData::Ibis25_tkrSize;

TolkCorvaneBanks::TolkCorvaneBanks()
{
    setSize (600, 400);
}

juce::Array<unsigned char> TolkCorvaneBanks::Initial_Program()
{
    // Stored as the hardware keeps it, not packed by us: its unused field 73
    // reads 4, which our writer never produces.
    static const unsigned char initial[144] = {
        0x03, 0x4c, 0x1c, 0x5c, 0x11, 0x40, 0x46, 0x02, 0x19, 0x00, 0x00, 0x00, 0x10, 0x10, 0x00, 0x00,
        0x30, 0x03, 0x00, 0x3f, 0x03, 0x60, 0x26, 0x00, 0x68, 0x00, 0x58, 0x00, 0x00, 0x00, 0x00, 0x40,
        0x00, 0x00, 0x02, 0x00, 0x0b, 0x00, 0x2c, 0x00, 0x30, 0x01, 0x00, 0x04, 0x00, 0x10, 0x00, 0x40,
        0x00, 0x00, 0x02, 0x00, 0x08, 0x00, 0x20, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x18, 0x7c, 0x7f,
        0x00, 0x00, 0x02, 0x00, 0x00, 0x00, 0x00, 0x78, 0x7f, 0x01, 0x00, 0x05, 0x00, 0x00, 0x00, 0x00,
        0x70, 0x7f, 0x03, 0x00, 0x0a, 0x00, 0x70, 0x7f, 0x4b, 0x6e, 0x76, 0x6f, 0x3f, 0x00, 0x00, 0x3a,
        0x50, 0x64, 0x15, 0x1b, 0x57, 0x0c, 0x1d, 0x10, 0x20, 0x40, 0x00, 0x01, 0x02, 0x04, 0x51, 0x32,
        0x66, 0x42, 0x55, 0x63, 0x46, 0x0e, 0x08, 0x28, 0x52, 0x1e, 0x1d, 0x02, 0x10, 0x06, 0x00, 0x19,
        0x00, 0x66, 0x00, 0x00, 0x70, 0x1f, 0x06, 0x00, 0x00, 0x00, 0x04, 0x04, 0x00, 0x20, 0x20, 0xf7,
    };
    juce::Array<unsigned char> program;
    program.ensureStorageAllocated ((int) sizeof (initial));
    for (auto byte : initial)
        program.add (byte);
    return program;
}

bool TolkCorvaneBanks::getSet (int set, const char*& data, int& size)
{
    struct Entry
    {
        const char* data;
        int size;
    };
    const Entry sets[numSets] = {
        { CoreRefresh_tkr, CoreRefresh_tkrSize }, { AmberSet_tkr, AmberSet_tkrSize },
        { CobaltSet_tkr, CobaltSet_tkrSize },     { VellumSet_tkr, VellumSet_tkrSize },
        { RidgeSet_tkr, RidgeSet_tkrSize },       { MarqueSet_tkr, MarqueSet_tkrSize },
        { Heron25_tkr, Heron25_tkrSize },         { Ibis25_tkr, Ibis25_tkrSize },
    };
    if (! juce::isPositiveAndBelow (set, numSets))
        return false;
    data = sets[set].data;
    size = sets[set].size;
    return true;
}

juce::String TolkCorvaneBanks::getSetTitle (int set)
{
    static const char* const titles[numSets] = {
        "Core Refresh ", "Amber Set ", "Cobalt Set ", "Vellum Set ", "Ridge Set", "Marque Set ", "Heron 25 ", "Ibis 25 ",
    };
    return juce::isPositiveAndBelow (set, numSets) ? juce::String (titles[set]) : juce::String();
}
