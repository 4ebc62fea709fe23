// Edits leaving the panels: the only road from a control to the host and the instrument.

#include "editor/MainComp.h"

#include "device/MidiCntrState.h"
#include "editor/AdvCont.h"
#include "editor/EditorPanel.h"
#include "editor/Envelope.h"
#include "plugin/HandlerComp.h"
#include "editor/controls/IvrCont.h"
#include "sound/AutoBank.h"

void MainComp::IvrContAct (IvrCont* control)
{
    const auto send = [this] (IvrCont* c, int value)
    {
        UpdateContAct (c, value);
        state->PARAMETER_CHANGE (c->id, c->currentValue);
    };

    switch (control->action)
    {
        case IvrCont::actionStep:
        case IvrCont::actionToggle:
        case IvrCont::actionWheel:
            send (control, control->requestedValue);
            break;

        case IvrCont::actionMenu:
            ParameterMenus (control->description, control->minimum, control->maximum,
                            [send, safe = juce::Component::SafePointer<IvrCont> (control)] (int value)
                            {
                                if (safe != nullptr && value >= 0)
                                {
                                    safe->requestedValue = value;
                                    send (safe, value);
                                }
                            });
            break;

        default:
            break;
    }
}

void MainComp::IvrContAdv (IvrCont* control)
{
    // The advanced page sends the whole program; the wheel has no effect here.
    const auto store = [this] (IvrCont* c, int value)
    {
        UpdateContAct (c, value);

        if (c->id >= 0 && c->id < 201)
        {
            auto word = (unsigned short) c->currentValue;
            if (c->id >= 17 && c->id <= 45)
                word = (unsigned short) (word << 8);

            auto& words = state->editBuffer->patchData;
            if (words.size() <= c->id)
                words.resize (c->id + 1);
            words.set (c->id, word);
        }

        TransmitBuffer();
    };

    if (control->action == IvrCont::actionStep)
    {
        store (control, control->requestedValue);
    }
    else if (control->action == IvrCont::actionMenu)
    {
        ParameterMenus (control->description, control->minimum, control->maximum,
                        [store, safe = juce::Component::SafePointer<IvrCont> (control)] (int value)
                        {
                            if (safe != nullptr && value >= 0)
                            {
                                safe->requestedValue = value;
                                store (safe, value);
                            }
                        });
    }
}

void MainComp::IvrContTouch (int which, int value, int action)
{
    // The host gets the value and hands it to the instrument on the program's own controller.
    if (action != IvrCont::actionStep || which < 0 || which > 1)
        return;

    const int hostIndex = state->soundToHost[69 + which];
    state->handler->SendParam (hostIndex, (float) value / (float) state->paramMax[hostIndex]);
}

void MainComp::IvrEnvAct (Envel* envelope)
{
    if (envelope->action != 1)
        return;

    const int firstKnob = envelope->which == 0 ? 37 : 41;
    const float values[] = { envelope->attack, envelope->decay, envelope->sustain, envelope->release };
    for (int i = 0; i < 4; ++i)
    {
        auto* knob = editorPanel->control (firstKnob + i);
        knob->requestedValue = juce::jlimit (knob->minimum, knob->maximum, (int) values[i]);
        if (knob->requestedValue != knob->currentValue)
        {
            knob->action = IvrCont::actionStep;
            knob->sendChangeMessage();
        }
    }
}

void MainComp::IvrLabAct (int code)
{
    if (code == 1)
    {
        programMenu();
    }
    else if (code == 3)
    {
        CategoryPopup (87, 0, 0, [this]
        {
            const auto& words = state->editBuffer->patchData;
            auto& lcd = editorPanel->lcd;
            lcd.category = words.size() > 150 ? words[150] : 0;
            lcd.categoryText = Category (lcd.category);
            lcd.repaint();
        });
    }
}
