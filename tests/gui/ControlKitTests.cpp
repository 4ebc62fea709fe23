// The control kit on its own: each control driven by direct mouse events, its change messages
// delivered to a real listener, its paint rendered into images.

#include "EditorHarness.h"
#include "editor/AboutPanel.h"
#include "editor/ProgBar.h"
#include "editor/controls/Check_But.h"
#include "editor/controls/IvrBut.h"
#include "editor/controls/IvrCont.h"
#include "editor/controls/IvrLabArr.h"
#include "editor/controls/IvrLabel.h"
#include "editor/controls/LCD_Comp.h"
#include "editor/controls/Midi_Led.h"
#include "editor/controls/SwitchLED.h"

namespace
{
// What the last handler asked for: nothing (action 0), or one message with its action and value.
void expectRequest (Heard& heard, const IvrCont& c, int action, int value = 0)
{
    const int messages = heard.take();
    EXPECT_EQ (messages, action != 0 ? 1 : 0);
    if (messages == 1 && action != 0)
    {
        EXPECT_EQ (std::pair (c.action, c.requestedValue), std::pair (action, value));
    }
}

std::unique_ptr<IvrCont> control (int kind, int minimum, int maximum, juce::Rectangle<int> r = { 10, 20, 66, 66 }, int id = 17)
{
    auto c = std::make_unique<IvrCont>();
    c->setRange (minimum, maximum);
    c->setDesignRect ((float) r.getX(), (float) r.getY(), (float) r.getWidth(), (float) r.getHeight());
    c->setTextBox (r.getWidth(), r.getHeight());
    c->InitializeMe (id, "Test", kind, 17);
    return c;
}

// A strip whose every column has a colour of its own, so that any two frames differ.
juce::Image strip (int width, int height)
{
    juce::Image image (juce::Image::ARGB, width, height, true);
    juce::Graphics g (image);
    for (int x = 0; x < width; ++x)
        g.setColour (juce::Colour::fromHSV ((float) (x % 97) / 97.0f, 0.8f, 0.4f + 0.5f * (float) (x % 5) / 5.0f, 1.0f)), g.fillRect (x, 0, 1, height);
    return image;
}

juce::Image render (juce::Component& c) { return c.createComponentSnapshot (c.getLocalBounds(), false); }

bool samePixels (const juce::Image& a, const juce::Image& b)
{
    for (int y = 0; a.getBounds() == b.getBounds() && y < a.getHeight(); ++y)
        for (int x = 0; x < a.getWidth(); ++x)
            if (a.getPixelAt (x, y) != b.getPixelAt (x, y))
                return false;
    return a.getBounds() == b.getBounds();
}

bool blank (const juce::Image& image)
{
    return samePixels (image, juce::Image (juce::Image::ARGB, image.getWidth(), image.getHeight(), true));
}
} // namespace

TEST (ControlKit, FrameFromValue)
{
    struct Case { int kind, minimum, maximum, value, frame; };
    const Case cases[] = {
        { 3, 0, 255, 0, 0 }, { 3, 0, 255, 2, 0 }, { 3, 0, 255, 3, 1 }, { 3, 0, 255, 128, 30 },
        { 3, 0, 255, 254, 59 }, { 3, 0, 255, 255, 59 }, { 5, 0, 255, 64, 15 }, { 5, 10, 20, 15, 30 },
        { 9, 0, 3, 0, 1 }, { 9, 0, 3, 1, 2 }, { 9, 0, 3, 2, 3 }, { 9, 0, 3, 3, 4 },
        { 9, 0, 5, 0, 0 }, { 9, 0, 5, 1, 1 }, { 9, 0, 5, 3, 3 }, { 9, 0, 5, 5, 5 }, { 9, 0, 5, 7, 5 },
        { 113, 0, 1, 1, 1 }, { 200, 0, 3, 2, 2 }, { 201, 2, 96, 40, 40 },
    };
    for (const auto& k : cases)
        EXPECT_EQ (control (k.kind, k.minimum, k.maximum)->frameForValue (k.value), k.frame)
            << "kind " << k.kind << ", range " << k.minimum << ".." << k.maximum << ", value " << k.value;
}

TEST (ControlKit, DragStepsByDivisorWithEachAxisTruncatedApart)
{
    struct Case { int maximum, start, dx, dy, expected; };
    const Case cases[] = {
        { 14, 0, 14, 0, 0 }, { 14, 0, 15, 0, 1 }, { 14, 0, 15, -15, 2 }, { 14, 0, 20, -10, 1 }, { 14, 5, -16, 16, 3 },
        { 15, 0, 1, 0, 1 }, { 255, 0, 10, -5, 15 }, { 255, 0, -3, 0, 0 }, { 255, 250, 9, -9, 255 },
    };
    for (const auto& k : cases)
    {
        SCOPED_TRACE ("maximum " + std::to_string (k.maximum) + ", dx " + std::to_string (k.dx) + ", dy " + std::to_string (k.dy));
        auto c = control (3, 0, k.maximum);
        c->ValueChanged (k.start, {});
        Heard heard (*c);
        const juce::Point<float> press { 30, 30 };
        c->mouseDown (mouseAt (*c, press.x, press.y, press));
        expectRequest (heard, *c, IvrCont::actionTouchBegan, c->requestedValue);
        c->mouseDrag (mouseAt (*c, press.x + (float) k.dx, press.y + (float) k.dy, press));
        expectRequest (heard, *c, k.expected != k.start ? IvrCont::actionStep : 0, k.expected);
        EXPECT_EQ (c->currentValue, k.start) << "the shown value waits for ValueChanged";
    }

    // A disabled control (the panel's fixed fine tune) takes no press, drag, wheel or release.
    auto fixed = control (5, 0, 255);
    fixed->setEnabled (false);
    Heard heard (*fixed);
    fixed->mouseDown (mouseAt (*fixed, 5, 5)), fixed->mouseDrag (mouseAt (*fixed, 40, 5)), fixed->mouseUp (mouseAt (*fixed, 40, 5));
    fixed->mouseWheelMove (mouseAt (*fixed, 5, 5), { 0.0f, 1.0f, false, false, false });
    EXPECT_FALSE (fixed->isTimerRunning());
    expectRequest (heard, *fixed, 0);
}

TEST (ControlKit, WheelMovesOneStepPerEvent)
{
    struct Case { int kind, maximum, start; float dx, dy; int expected; };
    const Case cases[] = {
        { 3, 255, 100, 0.0f, 0.05f, 101 }, { 3, 255, 100, 0.0f, 8.0f, 101 }, { 3, 255, 100, 0.0f, -3.0f, 99 },
        { 3, 255, 255, 0.0f, 1.0f, 255 }, { 3, 255, 0, 0.0f, -1.0f, 0 }, { 3, 255, 100, 2.0f, 0.0f, 100 },
        { 113, 1, 0, 0.0f, 0.5f, 1 }, { 100, 39, 4, 0.0f, -0.5f, 3 },
    };
    for (const auto& k : cases)
    {
        SCOPED_TRACE ("kind " + std::to_string (k.kind) + ", from " + std::to_string (k.start) + ", delta " + std::to_string (k.dy));
        auto c = control (k.kind, 0, k.maximum);
        c->ValueChanged (k.start, {});
        Heard heard (*c);
        c->mouseWheelMove (mouseAt (*c, 5, 5), { k.dx, k.dy, false, false, false });
        expectRequest (heard, *c, k.expected != k.start ? IvrCont::actionWheel : 0, k.expected);
    }
}

TEST (ControlKit, LabelBoxOpensWithinItsUnscaledEighteenPixels)
{
    struct Case { int pressY, releaseY; bool opens; };
    const Case cases[] = { { 15, 15, true }, { 17, 17, true }, { 17, 18, false }, { 18, 17, false }, { 19, 19, false }, { 20, 5, false } };
    for (const auto& k : cases)
    {
        SCOPED_TRACE ("press " + std::to_string (k.pressY) + ", release " + std::to_string (k.releaseY));
        auto c = control (100, 0, 39, { 354, 213, 127, 18 });
        c->setScale (0.65f);
        ASSERT_EQ (c->getHeight(), 11);
        Heard heard (*c);
        c->mouseDown (mouseAt (*c, 40, (float) k.pressY));
        expectRequest (heard, *c, 0);
        c->mouseUp (mouseAt (*c, 40, (float) k.releaseY));
        expectRequest (heard, *c, k.opens ? IvrCont::actionMenu : 0, c->requestedValue);
        EXPECT_FALSE (c->isTimerRunning()) << "a label box has no end of touch";
    }
}

TEST (ControlKit, SwitchesToggleStepsWrapAndReleaseEndsTheTouch)
{
    struct Case { int kind, minimum, maximum, start, requested; };
    const Case cases[] = {
        { 111, 0, 1, 0, 1 }, { 112, 0, 1, 1, 0 }, { 113, 0, 1, 0, 1 }, { 114, 0, 1, 1, 0 },
        { 200, 0, 3, 1, 2 }, { 200, 0, 3, 3, 0 }, { 200, 2, 5, 5, 2 }, { 200, 0, 0, 0, 0 },
    };
    for (const auto& k : cases)
    {
        SCOPED_TRACE ("kind " + std::to_string (k.kind) + " from " + std::to_string (k.start));
        auto c = control (k.kind, k.minimum, k.maximum);
        c->ValueChanged (k.start, {});
        Heard heard (*c);
        c->mouseDown (mouseAt (*c, 5, 5));
        const int action = k.kind == 200 ? IvrCont::actionStep : IvrCont::actionToggle;
        expectRequest (heard, *c, k.requested != k.start ? action : 0, k.requested);
        EXPECT_EQ (c->pressed, k.kind == 200);
        c->mouseUp (mouseAt (*c, 5, 5));
        EXPECT_FALSE (c->pressed);
        EXPECT_EQ (c->getTimerInterval(), 100);
        c->timerCallback();
        EXPECT_FALSE (c->isTimerRunning());
        expectRequest (heard, *c, IvrCont::actionTouchEnded, c->requestedValue);
    }
}

TEST (ControlKit, ButtonKindsPressAndRelease)
{
    struct Case { int kind; float x; bool sendsOnPress; bool toggleAfterPress, toggleAfterRelease; };
    for (const auto& k : { Case { 1, 10, true, false, true }, { 1, 26, false, false, true }, { 8, 30, true, true, true },
                           { 5, 10, true, false, false }, { 6, 10, true, false, false }, { 7, 10, true, false, false },
                           { 90, 10, true, false, false }, { 130, 10, false, false, false }, { 135, 10, false, false, false },
                           { 140, 10, false, false, false } })
    {
        SCOPED_TRACE ("kind " + std::to_string (k.kind));
        IvrBut b ("OK", 1111, k.kind);
        b.InitializeMe (0, 0, 60, 24, false);
        Heard heard (b);
        b.mouseDown (mouseAt (b, k.x, 5));
        EXPECT_EQ (heard.take(), k.sendsOnPress ? 1 : 0);
        EXPECT_EQ (b.toggleState, k.toggleAfterPress);
        b.mouseUp (mouseAt (b, k.x, 5));
        EXPECT_EQ (heard.take(), 0);
        EXPECT_EQ (b.toggleState, k.toggleAfterRelease);
        EXPECT_EQ (b.innerButton != nullptr, k.kind >= 130);

        if (juce::Component* inner = b.innerButton.get())
        {
            EXPECT_EQ (inner->getBounds(), b.getLocalBounds());
            inner->mouseDown (mouseAt (*inner, 10, 5));
            inner->mouseUp (mouseAt (*inner, 10, 5));
            EXPECT_EQ (heard.take(), 1) << "the inner button's click speaks for it";
        }
    }
}

TEST (ControlKit, CheckBoxAndLedSwitch)
{
    Check_But check;
    Heard checkHeard (check);
    check.mouseDown (mouseAt (check, 200, 5));
    EXPECT_TRUE (check.checked && check.pressed && checkHeard.take() == 1);
    check.mouseUp (mouseAt (check, 200, 5));
    EXPECT_FALSE (check.pressed);
    check.mouseDown (mouseAt (check, 2, 2));
    EXPECT_FALSE (check.checked);

    struct Case { float x; bool switches; };
    for (const auto& k : { Case { 0, true }, Case { 19, true }, Case { 20, false }, Case { 90, false } })
    {
        SwitchLED led;
        Heard heard (led);
        led.mouseDown (mouseAt (led, k.x, 5));
        EXPECT_EQ (led.on, k.switches) << "x " << k.x;
        EXPECT_EQ (heard.take(), k.switches ? 1 : 0);
    }
}

TEST (ControlKit, NothingTakesKeyboardFocus)
{
    IvrCont knob;
    IvrBut stock ("OK", 1111, 140), flat ("FILE", 1, 90);
    Check_But check; SwitchLED led; IvrLabel label; IvrLabArr row (juce::StringArray ("X: "));
    LCD_Comp lcd; Midi_Led midi; ProgBar bar (800, 600); AboutPanel about;
    const juce::Component* all[] = { &knob, &stock, stock.innerButton.get(), &flat, &check, &led, &label, &row,
                                      &lcd, &midi, &bar, &bar.frameButton, &bar.fillButton, &bar.cancelButton,
                                      bar.cancelButton.innerButton.get(), &about };
    for (auto* c : all)
        EXPECT_FALSE (c->getWantsKeyboardFocus() || c->getMouseClickGrabsKeyboardFocus()) << c->getName();
}

TEST (ControlKit, PaintFollowsStateAndSkipsMissingImages)
{
    struct Case { int kind, id; juce::Rectangle<int> r; bool blankWithoutImages; };
    const Case cases[] = {
        { 3, 17, { 0, 0, 66, 66 }, true }, { 5, 18, { 0, 0, 44, 55 }, true }, { 9, 46, { 0, 0, 60, 60 }, true },
        { 100, 0, { 0, 0, 127, 18 }, true }, { 111, 65, { 0, 0, 50, 44 }, false }, { 111, 66, { 0, 0, 70, 44 }, true },
        { 112, 56, { 0, 0, 40, 50 }, true }, { 113, 60, { 0, 0, 50, 34 }, true }, { 114, 60, { 0, 0, 50, 34 }, false },
        { 200, 2, { 0, 0, 60, 16 }, true }, { 201, 95, { 0, 0, 67, 18 }, false },
    };
    for (const auto& k : cases)
    {
        SCOPED_TRACE ("kind " + std::to_string (k.kind) + ", id " + std::to_string (k.id));
        auto c = control (k.kind, 0, 1, k.r, k.id);
        c->filmstrip = c->leftCap = c->rightCap = juce::Image();
        EXPECT_EQ (blank (render (*c)), k.blankWithoutImages);
        c->filmstrip = strip (3500, 100);
        c->leftCap = c->rightCap = strip (200, 18);
        const auto off = render (*c);
        c->ValueChanged (1, "ON");
        EXPECT_FALSE (samePixels (off, render (*c)));
    }

    // Buttons, kind 5 by its bevel as it has no picture: off against on.
    for (const auto& [kind, image] : { std::pair { 1, strip (15, 11) }, { 5, juce::Image() }, { 6, strip (121, 16) },
                                       { 8, strip (28, 9) }, { 135, strip (15, 11) } })
    {
        IvrBut b (juce::String(), 5, kind);
        b.InitializeMe (0, 0, 60, 24, false);
        b.images[0] = image;
        b.images[1] = image.isValid() ? strip (40, 11).getClippedImage ({ 20, 0, 15, 11 }) : juce::Image();
        const auto off = render (b);
        b.toggleState = true;
        EXPECT_FALSE (samePixels (off, render (b))) << "kind " << kind;
    }
}
