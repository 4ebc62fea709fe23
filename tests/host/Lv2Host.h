#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <gtest/gtest.h>

// The built LV2 bundle as a host finds it: the bundle's folder searched, the plug-in taken by its
// URI. The format outlives the instances it makes.
struct Lv2Host
{
    Lv2Host()
    {
        const juce::File bundle (DESKER_LV2_BUNDLE);
        format.searchPathsForPlugins (juce::FileSearchPath (bundle.getParentDirectory().getFullPathName()), false, false);
        format.findAllTypesForFile (found, DESKER_LV2_URI);
    }

    std::unique_ptr<juce::AudioPluginInstance> load()
    {
        juce::String error;
        auto instance = found.isEmpty() ? nullptr : format.createInstanceFromDescription (*found[0], 44100.0, 512, error);
        EXPECT_NE (instance, nullptr) << error;
        return instance;
    }

    // Our parameter of that index: JUCE's LV2 hosting puts its bypass, made from the bundle's
    // "enabled" port, before them.
    static juce::AudioProcessorParameter* parameter (juce::AudioPluginInstance& instance, int index)
    {
        return instance.getParameters()[index + 1];
    }

    juce::LV2PluginFormat format;
    juce::OwnedArray<juce::PluginDescription> found;
};
