#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <string>
#include <vector>

// Records what the host is told about parameters.
struct HostSide : juce::AudioProcessorListener
{
    void audioProcessorParameterChanged (juce::AudioProcessor*, int index, float value) override { changes.push_back ({ index, value }); }
    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails&) override {}
    void audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int index) override { log.push_back ("begin " + std::to_string (index)); }
    void audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int index) override { log.push_back ("end " + std::to_string (index)); }

    std::vector<std::pair<int, float>> changes;
    std::vector<std::string> log;
};
