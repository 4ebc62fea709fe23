#include "device/MidiCntrState.h"

namespace
{
// Measured send-ahead times of the instrument's MIDI interface, in ms, per rate index.
constexpr int compensationTable[3][6] = {
    { 66, 62, 34, 32, 22, 20 },  // 401
    { 67, 64, 34, 31, 23, 20 },  // 402
    { 138, 128, 70, 64, 45, 40 } // 403
};
} // namespace

int MidiCntrState::compensationFor (int mode, const int* values, int valueCount, int rateIndex)
{
    if (mode == 400)
        return valueCount >= 7 ? values[6] : 0;

    if (mode >= 401 && mode <= 403)
        return compensationTable[mode - 401][juce::jlimit (0, 5, rateIndex)];

    if (mode >= 100)
        return 0;

    return juce::isPositiveAndBelow (rateIndex, valueCount) ? values[rateIndex] : 0;
}

int MidiCntrState::getCompensation() const
{
    int values[7];
    const int count = juce::jmin (7, syncValueCount.load());
    for (int i = 0; i < count; ++i)
        values[i] = syncValues[(size_t) i].load();

    return compensationFor (syncMode.load(), values, count, sampleRateIndex.load());
}

void MidiCntrState::setSyncValues (const juce::Array<int>& values)
{
    const int count = juce::jmin (7, values.size());
    for (int i = 0; i < count; ++i)
        syncValues[(size_t) i] = values[i];
    syncValueCount = count;
}

void MidiCntrState::SetSyncModes (int mode, const juce::Array<int>& values)
{
    syncMode = mode;
    setSyncValues (values);

    while (iniStrings.size() <= 18)
        iniStrings.add ("0");

    setIniSlot (10, "333");
    for (int i = 0; i < 6; ++i)
        setIniSlot (11 + i, juce::String (values[i])); // an absent value reads as 0
    setIniSlot (17, juce::String (mode));
    setIniSlot (18, juce::String (values[6]));
}
