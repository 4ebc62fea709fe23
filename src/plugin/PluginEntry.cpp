#include "plugin/PluginProcessor.h"

// The factory the plug-in wrappers call.
juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter()
{
    return new DeskerAudioProcessor();
}
