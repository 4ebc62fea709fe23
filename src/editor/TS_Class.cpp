#include "editor/TS_Class.h"

TS_Class::TS_Class()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);

    // Senders only: never drawn, and their shown value is never written, so that every value of a
    // drag that differs from the start goes out. They send at once: the return to 64 and the end of
    // touch follow each other in one release and must not merge into one message.
    for (auto* control : { &xControl, &yControl })
        control->setRange (0, 127);

    ScaleMe (1.0f);
}

TS_Class::~TS_Class()
{
    stopTimer();
}

void TS_Class::ScaleMe (float s)
{
    scale = s;
    width = (float) designWidth * s;
    height = (float) designHeight * s;
    diameter = 20.0f * s;
    setBounds ((int) ((float) designX * s), (int) ((float) designY * s), (int) width, (int) height);
    moveCursor();
}

void TS_Class::moveCursor()
{
    cursorX = (float) xValue * (width - diameter) / 128.0f;
    cursorY = (float) (127 - yValue) * (height - diameter) / 128.0f;
}

void TS_Class::Set_TS_XY (int x, int y)
{
    if (x >= 0)
        xValue = x;
    if (y >= 0)
        yValue = y;
    if (x < 0 && y < 0)
        return;

    // While the finger is down a value from outside does not start the fade.
    if (! pressed)
        startTimer (500);
    moveCursor();
    repaint();
}

void TS_Class::mouseDown (const juce::MouseEvent&)
{
    cursorShown = true;
    pressed = true;
    xControl.action = IvrCont::actionTouchBegan;
    xControl.sendSynchronousChangeMessage();
    setMouseCursor (juce::MouseCursor::NoCursor);
}

void TS_Class::mouseDrag (const juce::MouseEvent& e)
{
    if (! cursorShown)
        return;

    // The crosshair stays: it moves when the value comes back through the host.
    const float px = e.position.x, py = e.position.y;
    const int x = (int) juce::jlimit (0.0f, 127.0f, px / (width / 128.0f));
    const int y = (int) juce::jlimit (0.0f, 127.0f, 127.0f - py / (height / 128.0f));

    for (auto [control, value] : { std::pair { &xControl, x }, std::pair { &yControl, y } })
    {
        control->requestedValue = juce::jlimit (control->minimum, control->maximum, value);
        if (control->requestedValue != control->currentValue)
        {
            control->action = IvrCont::actionStep;
            control->sendSynchronousChangeMessage();
        }
    }
}

void TS_Class::mouseUp (const juce::MouseEvent&)
{
    pressed = false;

    if (cursorShown)
    {
        for (auto [control, value] : { std::pair { &xControl, &xValue }, std::pair { &yControl, &yValue } })
        {
            if (control->requestedValue != 64)
            {
                control->requestedValue = juce::jlimit (control->minimum, control->maximum, 64);
                if (control->requestedValue != control->currentValue)
                {
                    control->action = IvrCont::actionStep;
                    control->sendSynchronousChangeMessage();
                }
            }
            *value = 64;
            startTimer (500);
            moveCursor();
        }
    }

    cursorShown = false;
    xControl.action = IvrCont::actionTouchEnded;
    xControl.sendSynchronousChangeMessage();
    repaint();
    if (auto* parent = getParentComponent())
        setMouseCursor (parent->getMouseCursor());
    else
        setMouseCursor (juce::MouseCursor::NormalCursor);
}

void TS_Class::timerCallback()
{
    cursorShown = false;
    stopTimer();
    repaint();
}

void TS_Class::paint (juce::Graphics& g)
{
    if (! cursorShown)
        return;

    const float r = diameter / 2.0f;
    const float midY = cursorY + r, midX = cursorX + r;
    g.setColour (juce::Colour (0xff8d7d0e));
    g.fillEllipse (cursorX + r / 2.0f, cursorY + r / 2.0f, r, r);
    g.drawLine (0.0f, midY, cursorX, midY, 1.0f);
    g.drawLine (cursorX + diameter, midY, width, midY, 1.0f);
    g.drawLine (midX, 0.0f, midX, cursorY, 1.0f);
    g.drawLine (midX, cursorY + diameter, midX, height, 1.0f);
}
