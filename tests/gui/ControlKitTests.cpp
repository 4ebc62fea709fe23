// The control kit on its own: each control driven by direct mouse events, its change messages
// delivered to a real listener, its paint rendered into images.

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

#include <gtest/gtest.h>

#include <utility>

namespace
{
// Counts the change messages of one broadcaster, delivered as the message loop would.
struct Heard : juce::ChangeListener
{
    explicit Heard (juce::ChangeBroadcaster& b) : source (b) { source.addChangeListener (this); }
    ~Heard() override { source.removeChangeListener (this); }
    void changeListenerCallback (juce::ChangeBroadcaster*) override { ++count; }

    int take() { return source.dispatchPendingMessages(), std::exchange (count, 0); }

    juce::ChangeBroadcaster& source;
    int count = 0;
};

juce::MouseEvent mouse (juce::Component& c, float x, float y, juce::Point<float> down = {})
{
    const auto now = juce::Time::getCurrentTime();
    return { juce::Desktop::getInstance().getMainMouseSource(), { x, y }, {}, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f,
             &c, &c, now, down, now, 1, false };
}

// What the last handler asked for: nothing (action 0), or one message with its action and value.
void expectRequest (Heard& heard, const IvrCont& c, int action, int value = 0)
{
    const int messages = heard.take();
    EXPECT_EQ (messages, action != 0 ? 1 : 0);
    if (messages == 1 && action != 0)
    {
        EXPECT_EQ (c.action, action);
        EXPECT_EQ (c.requestedValue, value);
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
    {
        g.setColour (juce::Colour::fromHSV ((float) (x % 97) / 97.0f, 0.8f, 0.4f + 0.5f * (float) (x % 5) / 5.0f, 1.0f));
        g.fillRect (x, 0, 1, height);
    }
    return image;
}

juce::Image render (juce::Component& c)
{
    return c.createComponentSnapshot (c.getLocalBounds(), false);
}

bool samePixels (const juce::Image& a, const juce::Image& b)
{
    if (a.getBounds() != b.getBounds())
        return false;
    for (int y = 0; y < a.getHeight(); ++y)
        for (int x = 0; x < a.getWidth(); ++x)
            if (a.getPixelAt (x, y) != b.getPixelAt (x, y))
                return false;
    return true;
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

TEST (ControlKit, PlacementAndValueChanged)
{
    auto c = control (5, 0, 255, { 49, 66, 66, 66 });
    EXPECT_EQ (c->getBounds(), juce::Rectangle<int> (49, 66, 66, 66));
    c->setScale (0.65f);
    EXPECT_EQ (c->getBounds(), juce::Rectangle<int> (31, 42, 42, 42));

    // Clamped, silent, and an equal value keeps the old text unless the shown value was reset.
    Heard heard (*c);
    c->ValueChanged (300, "300");
    EXPECT_TRUE (c->currentValue == 255 && c->frame == 59 && c->valueText == "300");
    c->ValueChanged (255, "other");
    EXPECT_EQ (c->valueText, "300");
    c->ValueChanged (-4, "low");
    EXPECT_EQ (c->currentValue, 0);
    c->currentValue = -1;
    c->ValueChanged (0, "forced");
    EXPECT_EQ (c->valueText, "forced");
    EXPECT_EQ (heard.take(), 0);
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
        c->mouseDown (mouse (*c, press.x, press.y, press));
        expectRequest (heard, *c, IvrCont::actionTouchBegan, c->requestedValue);
        c->mouseDrag (mouse (*c, press.x + (float) k.dx, press.y + (float) k.dy, press));
        expectRequest (heard, *c, k.expected != k.start ? IvrCont::actionStep : 0, k.expected);
        EXPECT_EQ (c->currentValue, k.start) << "the shown value waits for ValueChanged";
    }

    // A disabled control (the panel's fixed fine tune) takes no press, drag, wheel or release.
    auto fixed = control (5, 0, 255);
    fixed->setEnabled (false);
    Heard heard (*fixed);
    fixed->mouseDown (mouse (*fixed, 5, 5));
    fixed->mouseDrag (mouse (*fixed, 40, 5));
    fixed->mouseWheelMove (mouse (*fixed, 5, 5), { 0.0f, 1.0f, false, false, false });
    fixed->mouseUp (mouse (*fixed, 5, 5));
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
        c->mouseWheelMove (mouse (*c, 5, 5), { k.dx, k.dy, false, false, false });
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
        c->mouseDown (mouse (*c, 40, (float) k.pressY));
        expectRequest (heard, *c, 0);
        c->mouseUp (mouse (*c, 40, (float) k.releaseY));
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
        c->mouseDown (mouse (*c, 5, 5));
        const int action = k.kind == 200 ? IvrCont::actionStep : IvrCont::actionToggle;
        expectRequest (heard, *c, k.requested != k.start ? action : 0, k.requested);
        EXPECT_EQ (c->pressed, k.kind == 200);
        c->mouseUp (mouse (*c, 5, 5));
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
    const Case cases[] = {
        { 1, 10, true, false, true }, { 1, 26, false, false, true }, { 8, 30, true, true, true },
        { 5, 10, true, false, false }, { 6, 10, true, false, false }, { 7, 10, true, false, false },
        { 90, 10, true, false, false }, { 130, 10, false, false, false }, { 135, 10, false, false, false },
        { 140, 10, false, false, false },
    };
    for (const auto& k : cases)
    {
        SCOPED_TRACE ("kind " + std::to_string (k.kind));
        IvrBut b ("OK", 1111, k.kind);
        b.InitializeMe (0, 0, 60, 24, false);
        Heard heard (b);
        b.mouseDown (mouse (b, k.x, 5));
        EXPECT_EQ (heard.take(), k.sendsOnPress ? 1 : 0);
        EXPECT_EQ (b.toggleState, k.toggleAfterPress);
        b.mouseUp (mouse (b, k.x, 5));
        EXPECT_EQ (heard.take(), 0);
        EXPECT_EQ (b.toggleState, k.toggleAfterRelease);
        EXPECT_EQ (b.innerButton != nullptr, k.kind >= 130);

        if (juce::Component* inner = b.innerButton.get())
        {
            EXPECT_EQ (inner->getBounds(), b.getLocalBounds());
            inner->mouseDown (mouse (*inner, 10, 5));
            inner->mouseUp (mouse (*inner, 10, 5));
            EXPECT_EQ (heard.take(), 1) << "the inner button's click speaks for it";
        }
    }
}

TEST (ControlKit, CheckBoxLedSwitchAndLabel)
{
    Check_But check;
    Heard checkHeard (check);
    check.mouseDown (mouse (check, 200, 5));
    EXPECT_TRUE (check.checked && check.pressed);
    EXPECT_EQ (checkHeard.take(), 1);
    check.mouseUp (mouse (check, 200, 5));
    EXPECT_FALSE (check.pressed);
    check.mouseDown (mouse (check, 2, 2));
    EXPECT_FALSE (check.checked);

    struct Case { float x; bool switches; };
    for (const auto& k : { Case { 0, true }, Case { 19, true }, Case { 20, false }, Case { 90, false } })
    {
        SwitchLED led;
        Heard heard (led);
        led.mouseDown (mouse (led, k.x, 5));
        EXPECT_EQ (led.on, k.switches) << "x " << k.x;
        EXPECT_EQ (heard.take(), k.switches ? 1 : 0);
    }

    IvrLabel label;
    label.setSize (60, 14);
    Heard heard (label);
    struct Spot { float x, y; bool sends; };
    for (const auto& k : { Spot { 30, 7, true }, Spot { 0, 7, false }, Spot { 30, 0, false }, Spot { 60, 7, false }, Spot { 59, 13, true } })
    {
        label.mouseDown (mouse (label, k.x, k.y));
        EXPECT_EQ (heard.take(), k.sends ? 1 : 0) << k.x << ", " << k.y;
    }
}

TEST (ControlKit, CaptionRowFadesAfterHalfASecond)
{
    IvrLabArr row (juce::StringArray ("X: ", "Y: ", "A: ", "G: "));
    row.setBounds (647, 406, 241, 14);
    EXPECT_EQ (row.cellWidth, 60);
    row.setScale (0.65f);
    row.setBounds (420, 263, 150, 9);
    EXPECT_EQ (row.cellWidth, 60) << "the step taken at scale 1 stays";

    row.CaptionNum (64, 1);
    EXPECT_TRUE (row.captions[1] == "Y: 64" && row.captionsVisible && row.getTimerInterval() == 500);
    row.Caption ("free text", 3);
    EXPECT_EQ (row.captions[0], "free text");
    row.timerCallback();
    EXPECT_FALSE (row.captionsVisible || row.isTimerRunning());
}

TEST (ControlKit, DisplayTextsAndClickCodes)
{
    EXPECT_EQ (LCD_Comp::positionText (0, 0), "A:001");
    EXPECT_EQ (LCD_Comp::positionText (0, 127), "A:128");
    EXPECT_EQ (LCD_Comp::positionText (6, 9), "G:010");

    LCD_Comp lcd;
    lcd.Set_LCD (1, 41, 3, "Sawtooth Lead Dark Bass!", "LEAD");
    EXPECT_EQ (lcd.positionLine, "B:042");
    EXPECT_EQ (lcd.nameFirstHalf, "Sawtooth Lea");
    EXPECT_EQ (lcd.nameSecondHalf, "d Dark Bass!");
    lcd.Set_LCD (0, 0, 0, "Short", {});
    EXPECT_EQ (lcd.nameSecondHalf, "");
    lcd.Set_Num (2, 5);
    EXPECT_EQ (lcd.positionLine, "C:006");
    EXPECT_EQ (lcd.fullName, "Short");

    struct Case { float scale, y; int code; };
    const Case cases[] = {
        { 1.0f, 17, 1 }, { 1.0f, 18, 2 }, { 1.0f, 47, 2 }, { 1.0f, 48, 0 }, { 1.0f, 50, 0 }, { 1.0f, 51, 3 },
        { 0.5f, 8, 1 }, { 0.5f, 9, 2 }, { 0.5f, 23, 2 }, { 0.5f, 24, 0 }, { 0.5f, 25, 0 }, { 0.5f, 26, 3 },
    };
    Heard heard (lcd);
    for (const auto& k : cases)
    {
        lcd.setScale (k.scale);
        lcd.clickCode = 0;
        lcd.mouseDown (mouse (lcd, 20, k.y));
        EXPECT_EQ (lcd.clickCode, k.code) << "scale " << k.scale << ", y " << k.y;
        EXPECT_EQ (heard.take(), k.code != 0 ? 1 : 0);
    }
}

TEST (ControlKit, ProgressBoxAndAboutPanel)
{
    ProgBar bar (1505, 739);
    EXPECT_EQ (bar.getBounds(), juce::Rectangle<int> (0, 0, 1505, 739));
    EXPECT_EQ (bar.box, juce::Rectangle<int> (552, 349, 400, 40));
    EXPECT_EQ (bar.frameButton.getBounds(), juce::Rectangle<int> (552, 349, 384, 24));
    EXPECT_EQ (bar.cancelButton.getBounds(), juce::Rectangle<int> (871, 389, 60, 24));
    for (const auto& [value, width] : { std::pair { 127, 381 }, { 200, 381 }, { 1, 3 }, { -5, 0 } })
    {
        bar.setValue (value);
        EXPECT_EQ (bar.fillButton.getBounds(), juce::Rectangle<int> (552, 349, width, 24)) << value;
    }
    bar.setText ("A:128");
    EXPECT_EQ (bar.label.getText(), "A:128");

    AboutPanel about;
    about.setSize (1505, 739);
    EXPECT_EQ (about.box, juce::Point<int> (439, 134));
    Heard heard (about);
    about.mouseDown (mouse (about, 5, 5));
    EXPECT_EQ (heard.take(), 1);
    about.startSelfClosing (1500);
    EXPECT_TRUE (about.selfClosing && about.getTimerInterval() == 1500);
    about.timerCallback();
    EXPECT_FALSE (about.selfClosing || about.isTimerRunning());
    EXPECT_EQ (heard.take(), 1);
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
    {
        EXPECT_FALSE (c->getWantsKeyboardFocus()) << c->getName();
        EXPECT_FALSE (c->getMouseClickGrabsKeyboardFocus()) << c->getName();
    }
}

TEST (ControlKit, ControlPaintFollowsValueAndSkipsMissingImages)
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
}

TEST (ControlKit, ButtonAndLampPaintFollowState)
{
    // Each is rendered without images (nothing may show), then with images, off against on.
    const auto button = [] (int kind, juce::Image image)
    {
        auto b = std::make_unique<IvrBut> (juce::String(), 5, kind);
        b->InitializeMe (0, 0, 60, 24, false);
        b->images[0] = image;
        b->images[1] = image.isValid() ? strip (40, 11).getClippedImage ({ 20, 0, 15, 11 }) : juce::Image();
        return b;
    };
    struct Case { int kind; juce::Image image; };
    for (const auto& k : { Case { 1, strip (15, 11) }, Case { 5, {} }, Case { 6, strip (121, 16) }, Case { 7, strip (142, 24) },
                           Case { 8, strip (28, 9) }, Case { 135, strip (15, 11) } })
    {
        auto b = button (k.kind, k.image);
        const auto off = render (*b);
        b->toggleState = true;
        EXPECT_FALSE (samePixels (off, render (*b))) << "kind " << k.kind;
    }
    EXPECT_TRUE (blank (render (*button (1, {}))));

    Check_But check;
    SwitchLED led;
    check.setSize (60, 15);
    led.setSize (60, 18);
    // Without their pictures they draw nothing.
    check.imageDown = check.imageOn = check.imageOff = led.led = juce::Image();
    EXPECT_TRUE (blank (render (check)) && blank (render (led)));
    check.imageOn = led.led = strip (28, 11);
    check.imageOff = strip (40, 11).getClippedImage ({ 20, 0, 20, 11 });
    const auto unchecked = render (check), dark = render (led);
    check.checked = led.on = true;
    EXPECT_FALSE (samePixels (unchecked, render (check)));
    EXPECT_FALSE (samePixels (dark, render (led)));
}

TEST (ControlKit, DisplayLedRowAndBoxPaintFollowContent)
{
    LCD_Comp lcd;
    lcd.Set_LCD (0, 0, 0, "Init Program", "BASS");
    const auto withoutBackground = render (lcd);
    lcd.background = juce::Image (juce::Image::RGB, 123, 68, true);
    const auto first = render (lcd);
    EXPECT_FALSE (samePixels (withoutBackground, first));
    lcd.Set_Num (0, 1);
    EXPECT_FALSE (samePixels (first, render (lcd)));

    Midi_Led midi;
    EXPECT_TRUE (blank (render (midi)));
    midi.flash();
    EXPECT_EQ (midi.getTimerInterval(), 200);
    EXPECT_FALSE (blank (render (midi)));
    midi.timerCallback();
    EXPECT_FALSE (midi.lit || midi.isTimerRunning());

    IvrLabArr row (juce::StringArray ("X: ", "Y: "));
    row.setBounds (0, 0, 120, 14);
    EXPECT_TRUE (blank (render (row)));
    row.CaptionNum (1, 0);
    EXPECT_FALSE (blank (render (row)));

    ProgBar bar (600, 200);
    const auto empty = render (bar);
    bar.setValue (1);
    EXPECT_FALSE (samePixels (empty, render (bar)));

    AboutPanel about;
    about.setSize (900, 700);
    const auto withoutImages = render (about);
    about.picture = strip (627, 241);
    EXPECT_FALSE (samePixels (withoutImages, render (about)));
}
