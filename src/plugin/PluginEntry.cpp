#include "plugin/PluginProcessor.h"

// The factory the plug-in wrappers call. The LV2 build step runs JUCE's helper program on the
// build machine only to write the bundle's description: there the processor stays off the user's
// MIDI ports and files.
juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter()
{
    const auto program = juce::File::getSpecialLocation (juce::File::hostApplicationPath).getFileName();
    if (program == "juce_lv2_helper")
        return new DeskerAudioProcessor (DeskerAudioProcessor::Detached {});
    return new DeskerAudioProcessor();
}
