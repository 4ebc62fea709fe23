// The boxes that report to the user: the update-host box behind "HOST", the message box, the splash,
// and the stepping slider of the control kit.

#include "EditorHarness.h"
#include "editor/AboutPanel.h"
#include "editor/MsgCont.h"
#include "editor/UpdHostCont.h"
#include "editor/controls/RateSlider.h"
#include "sound/AutoBank.h"

namespace
{
constexpr int bankHeader = 27; // "CorvanePluginBank" and "Version100"

bool nothingModal() { return juce::ModalComponentManager::getInstance()->getNumModalComponents() == 0; }

struct Boxes : ::testing::Test, EditorHarness
{
    // The 400 bytes of `program` in the host's bank chunk.
    juce::MemoryBlock programInChunk (int program)
    {
        juce::MemoryBlock chunk;
        processor.getStateInformation (chunk);
        return { static_cast<const char*> (chunk.getData()) + bankHeader + program * AutoBank::programBytes, (size_t) AutoBank::programBytes };
    }

    IvrBut& hostButton() { return **std::find_if (main().appBar->buttons.begin(), main().appBar->buttons.end(), [] (auto* b) { return b->id == 729; }); }
};
} // namespace

TEST_F (Boxes, HostStoresEditBufferOverChosenProgramAndCancelChangesNothing)
{
    for (const bool ok : { true, false })
    {
        SCOPED_TRACE (ok ? "OK" : "CANCEL");
        openReady();
        processor.setCurrentProgram (2);
        pump();
        sent();

        // An edit that no stored program holds: a changed cutoff and a name of its own.
        auto& words = state().editBuffer->patchData;
        words.set (32, (unsigned short) (words[32] ^ 0x5500));
        for (int i = 0; i < 24; ++i)
            words.set (151 + i, (unsigned short) AutoBank::fromASC (juce::String::charToString ("EDITED BY THE BOX TEST  "[i])));
        std::vector<juce::MemoryBlock> before;
        for (int program = 0; program < AutoBank::numPrograms; ++program)
            before.push_back (programInChunk (program));

        click (centreOf (hostButton()));
        auto* box = main().updateHostBox.get();
        ASSERT_NE (box, nullptr);
        EXPECT_TRUE (box->isCurrentlyModal() && box->isAlwaysOnTop() && state().updateHostActive);
        EXPECT_FALSE (box->getWantsKeyboardFocus() || box->okButton.getWantsKeyboardFocus());
        EXPECT_EQ (box->label.getText(), "2: " + state().editBuffer->get_ProgramName (2));

        // The host's program list moves the slot; the instrument keeps its sound.
        processor.setCurrentProgram (5);
        ASSERT_TRUE (pumpUntil ([box] { return box->program == 5; }));
        EXPECT_EQ (box->label.getText(), "5: " + state().editBuffer->get_ProgramName (5));
        EXPECT_TRUE (sentBytes().empty());

        click (centreOf (ok ? box->okButton : box->cancelButton));
        EXPECT_TRUE (main().updateHostBox == nullptr && ! state().updateHostActive && nothingModal());
        for (int program = 0; program < AutoBank::numPrograms; ++program)
            EXPECT_TRUE ((program == 5 && ok) || programInChunk (program) == before[(size_t) program]) << program;
        const auto stored = programInChunk (5);
        for (int i = 0; ok && i < AutoBank::numParameters; ++i)
            ASSERT_EQ ((juce::uint8) stored[2 * i] | ((juce::uint8) stored[2 * i + 1] << 8), words[i]) << "word " << i;
        EXPECT_TRUE (! ok || processor.getProgramName (5) == "EDITED BY THE BOX TEST  ") << processor.getProgramName (5);

        // With the box gone a host program goes to the instrument again.
        processor.setCurrentProgram (7);
        pump();
        EXPECT_FALSE (sentBytes().empty());
        closeEditor();
    }
}

TEST_F (Boxes, MessageBoxHoldsThePanelUntilEitherButtonAndClosingTheEditorEndsTheBoxes)
{
    openReady();
    for (const bool ok : { true, false })
    {
        main().showMSG (true, true, 0, "Bank received");
        auto* box = main().messageBox.get();
        ASSERT_NE (box, nullptr);
        EXPECT_TRUE (main().messageShown && box->isCurrentlyModal() && box->label.getText() == "Bank received");
        EXPECT_FALSE (box->getWantsKeyboardFocus() || box->cancelButton.getWantsKeyboardFocus());

        const int cutoff = knob (32).currentValue;
        drag (centreOf (knob (32)), centreOf (knob (32)) + juce::Point<float> (0.0f, -30.0f));
        EXPECT_EQ (knob (32).currentValue, cutoff);

        click (centreOf (ok ? box->okButton : box->cancelButton));
        EXPECT_TRUE (main().messageBox == nullptr && ! main().messageShown && nothingModal()) << (ok ? "OK" : "CANCEL");
    }

    click (centreOf (hostButton()));
    main().showMSG (true, true, 0, "Receiving");
    ASSERT_TRUE (main().updateHostBox != nullptr && main().messageBox != nullptr);
    closeEditor();
    EXPECT_FALSE (state().updateHostActive);
    EXPECT_TRUE (nothingModal());
}

TEST_F (Boxes, SplashClosesItselfOrAtAClick)
{
    for (const bool byClick : { false, true })
    {
        SCOPED_TRACE (byClick ? "click" : "timer");
        state().splashShown = false;
        const double opened = juce::Time::getMillisecondCounterHiRes();
        openEditor();
        ASSERT_NE (main().aboutPanel, nullptr);
        EXPECT_TRUE (main().aboutPanel->selfClosing && main().aboutPanel->isAlwaysOnTop());
        if (byClick)
            click ({ 5.0f, 200.0f }); // closes it in the turn of the loop that delivers it
        else
            ASSERT_TRUE (pumpUntil ([this] { return main().aboutPanel == nullptr; }, 4000));
        EXPECT_TRUE (main().aboutPanel == nullptr && nothingModal());
        // The timer's first period may start a little early on the timer thread's clock.
        EXPECT_TRUE (byClick || juce::Time::getMillisecondCounterHiRes() - opened >= 1400.0);
        closeEditor();
    }
}

TEST (RateSliderTest, HeldArrowStepsEvery100msUntilTheMouseComesUp)
{
    struct Case { float x; int direction; float start; float expected; };
    for (const auto& c : { Case { 0.0f, -1, 10.0f, 7.0f }, Case { 17.0f, -1, 1.0f, 0.0f },
                           Case { 183.0f, 1, 10.0f, 13.0f }, Case { 199.0f, 1, 999.0f, 1000.0f } })
    {
        SCOPED_TRACE (c.x);
        RateSlider slider (1000.0f);
        Heard heard (slider);
        slider.setValue (c.start);
        slider.mouseDown (mouseAt (slider, c.x, 9.0f));
        EXPECT_TRUE (slider.isTimerRunning() && slider.getTimerInterval() == 100 && slider.direction == c.direction);
        EXPECT_EQ (slider.value, c.start); // nothing moves before the first period

        const double pressed = juce::Time::getMillisecondCounterHiRes();
        // Reached or passed: a loaded machine may look only after a further step.
        ASSERT_TRUE (pumpUntil ([&] { return c.direction < 0 ? slider.value <= c.expected : slider.value >= c.expected; }, 2000));
        // The first period may start early on the timer thread's clock; those after it are whole.
        EXPECT_GE (juce::Time::getMillisecondCounterHiRes() - pressed, 100.0 * (std::abs (c.expected - c.start) - 1.0f) - 10.0);
        pump (250); // held at an end, the value stays there
        EXPECT_TRUE ((c.expected != 0.0f && c.expected != 1000.0f) || slider.value == c.expected) << slider.value;
        EXPECT_GT (heard.take(), 0);

        slider.mouseUp (mouseAt (slider, c.x, 9.0f));
        EXPECT_FALSE (slider.isTimerRunning() || slider.leftArrow || slider.rightArrow);
        const float released = slider.value;
        pump (250);
        EXPECT_EQ (slider.value, released);
        EXPECT_EQ (heard.take(), 0);
    }
}

TEST (RateSliderTest, ThumbDragTruncatesAndClamps)
{
    // 164 pixels of track for 82 steps: two pixels a step.
    struct Case { float press; float to; float expected; int messages; };
    for (const auto& c : { Case { 50.0f, 39.0f, 10.0f, 1 }, Case { 50.0f, 40.0f, 11.0f, 1 }, Case { 50.0f, 5.0f, 0.0f, 1 },
                           Case { 50.0f, 400.0f, 82.0f, 1 }, Case { 5.0f, 100.0f, 40.0f, 0 } })
    {
        SCOPED_TRACE (juce::String (c.press) + " -> " + juce::String (c.to));
        RateSlider slider (82.0f);
        Heard heard (slider);
        slider.setValue (40.0f);
        slider.mouseDown (mouseAt (slider, c.press, 9.0f));
        EXPECT_EQ (slider.thumb, c.messages == 1);
        slider.mouseDrag (mouseAt (slider, c.to, 9.0f));
        EXPECT_EQ (slider.value, c.expected);
        EXPECT_EQ (heard.take(), c.messages);
        slider.mouseUp (mouseAt (slider, c.to, 9.0f));
        EXPECT_FALSE (slider.thumb || slider.leftArrow || slider.isTimerRunning());
    }
}
