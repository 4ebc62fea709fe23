#include "plugin/PluginEditor.h"
#include "plugin/PluginProcessor.h"
#include "ScratchFolder.h"

#include <gtest/gtest.h>

TEST (EditorShell, SizeIsKeptAcrossEditorLifetimes)
{
    ScratchFolder settings;
    DeskerAudioProcessor processor { settings.dir };
    const auto firstSize = juce::Point<int> (processor.editorWidth, processor.editorHeight);

    {
        std::unique_ptr<juce::AudioProcessorEditor> editor (processor.createEditor());
        EXPECT_EQ (editor->getWidth(), firstSize.x);
        EXPECT_EQ (editor->getHeight(), firstSize.y);
        editor->setSize (1000, 500);
    }
    {
        std::unique_ptr<juce::AudioProcessorEditor> editor (processor.createEditor());
        EXPECT_EQ (editor->getWidth(), 1000);
        EXPECT_EQ (editor->getHeight(), 500);
    }

    // A new instance sizes its first editor from the display, not from the other instance.
    DeskerAudioProcessor second { settings.dir };
    EXPECT_EQ (juce::Point<int> (second.editorWidth, second.editorHeight), firstSize);

    const auto* display = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay();
    ASSERT_NE (display, nullptr);
    EXPECT_EQ (firstSize, DeskerAudioProcessor::editorSizeForDisplayHeight (display->userArea.getHeight()));
}
