#include "plugin/PluginEditor.h"
#include "plugin/PluginProcessor.h"
#include "ScratchFolder.h"

#include <gtest/gtest.h>

TEST (EditorShell, SizeIsKeptAcrossEditorLifetimes)
{
    ScratchFolder settings;
    DeskerAudioProcessor processor { settings.dir };
    const auto* display = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay();
    ASSERT_NE (display, nullptr);
    const auto firstSize = DeskerAudioProcessor::editorSizeForDisplayHeight (display->userArea.getHeight());

    for (auto expected : { firstSize, juce::Point<int> (1000, 500) })
    {
        std::unique_ptr<juce::AudioProcessorEditor> editor (processor.createEditor());
        EXPECT_EQ (juce::Point<int> (editor->getWidth(), editor->getHeight()), expected);
        editor->setSize (1000, 500);
    }

    // A new instance sizes its first editor from the display, not from the other instance.
    DeskerAudioProcessor second { settings.dir };
    EXPECT_EQ (juce::Point<int> (second.editorWidth, second.editorHeight), firstSize);
}
