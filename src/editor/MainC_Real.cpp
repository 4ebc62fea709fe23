// Values coming back to the panel: from the instrument, the host and program changes. Nothing here
// sends a change message, so a value from outside never sets off a parameter message.

#include "editor/MainComp.h"

#include "device/MidiCntrState.h"
#include "editor/AdvCont.h"
#include "editor/AppBar.h"
#include "editor/EditorPanel.h"
#include "editor/KeyBrd.h"
#include "editor/ProgBar.h"
#include "librarian/BankComp.h"
#include "sound/AutoBank.h"
#include "sound/ParDes.h"

void MainComp::UpdateContAct (IvrCont* control, int value)
{
    control->ValueChanged (value, ParDes::SndParDes (control->description, value));

    // The envelopes' curves follow their knobs, with the value the knob took.
    if (control->id < 37 || control->id > 44)
        return;

    const int stage = (control->id - 37) % 4;
    auto& envelope = control->id < 41 ? advancedPanel->filterEnvelope : advancedPanel->volumeEnvelope;
    float* fields[] = { &envelope.attack, &envelope.decay, &envelope.sustain, &envelope.release };
    *fields[stage] = (float) control->currentValue;
    envelope.PaintMeP();
    envelope.repaint();
}

void MainComp::Display_Program()
{
    const auto& words = state->editBuffer->patchData;
    const auto word = [&words] (int index) { return (int) words[index]; }; // beyond the end: 0
    const auto refresh = [] (IvrCont* c, int value)
    {
        c->currentValue = -1;
        c->ValueChanged (value, ParDes::SndParDes (c->description, juce::jlimit (c->minimum, c->maximum, value)));
    };

    const int category = word (150);
    editorPanel->lcd.Set_LCD (state->bankNumber, state->programNumber, category,
                              state->editBuffer->PatchGetName(), AutoBank::Category (category));

    const int tsWords[] = { 83, 87, 91, 94 };
    for (int i = 0; i < 4; ++i)
        state->tsCtrl[(size_t) i] = words.size() < 84 ? 0 : word (tsWords[i]);
    editorPanel->touchSurface.xController = state->tsCtrl[0];
    editorPanel->touchSurface.yController = state->tsCtrl[1];

    for (int i = 17; i <= 45; ++i)
        refresh (editorPanel->control (i), word (i) >> 8);
    for (int i = 46; i <= 66; ++i)
        refresh (editorPanel->control (i), word (i));
    for (int i = 0; i <= 15; ++i)
        refresh (advancedPanel->control (i), word (i));
    // The filter curve's sustain is word 29, not the knob's 39: after a refresh the two may differ
    // until either is moved.
    const auto showEnvelope = [&word] (Envel& envelope, std::array<int, 4> source)
    {
        envelope.attack = (float) (word (source[0]) >> 8);
        envelope.decay = (float) (word (source[1]) >> 8);
        envelope.sustain = (float) (word (source[2]) >> 8);
        envelope.release = (float) (word (source[3]) >> 8);
        envelope.PaintMeP();
        envelope.repaint();
    };
    showEnvelope (advancedPanel->filterEnvelope, { 37, 38, 29, 40 });
    showEnvelope (advancedPanel->volumeEnvelope, { 41, 42, 43, 44 });

    for (int i = 69; i <= 113; ++i)
        refresh (advancedPanel->control (i), word (i));

    refresh (keyboard->control (68), word (68) & 255);
    refresh (keyboard->control (67), word (67) & 255);
}

//==============================================================================
void MainComp::handle_Update (MidiCntrState*)
{
    triggerAsyncUpdate();
}

void MainComp::handleAsyncUpdate()
{
    for (unsigned int code = 0; state->popUpdateCode (code);)
    {
        if (code < 0x800000)
            Update_From_State (code);
        else
            Update_From_Host (code);
    }
}

void MainComp::timerCallback()
{
    handleAsyncUpdate();
}

void MainComp::Update_From_State (unsigned int code)
{
    const int kind = (int) (code >> 18);
    if (kind - 8 > 17)
        return;

    switch (kind)
    {
        case 8: // a note off from the instrument
            keyboard->pianoPad.NoteOFF_Rec ((int) (code & 127) - state->keyBase);
            break;

        case 9: // a note on from the instrument
            keyboard->pianoPad.NoteON_Rec (((int) (code >> 7) & 127) - state->keyBase, (int) code & 127);
            break;

        case 11: // a controller from the instrument
        {
            const int controller = (int) (code >> 7) & 127;
            const int value = (int) code & 127;
            if (controller <= 1)
            {
                keyboard->modWheel.setPosition (value);
                break;
            }
            for (int i = 0; i < 4 && controller > 1 && controller != 32; ++i)
            {
                if (controller == state->tsCtrl[(size_t) i])
                {
                    editorPanel->touchCaptions.CaptionNum (value, i);
                    state->tsValue[(size_t) i] = value;
                    if (i < 2)
                    {
                        editorPanel->touchSurface.cursorShown = true;
                        editorPanel->touchSurface.Set_TS_XY (i == 0 ? value : -1, i == 1 ? value : -1);
                    }
                    break;
                }
            }
            break;
        }

        case 14: // the pitch wheel, its upper seven bits
            keyboard->pitchWheel.setPosition ((int) (code >> 7) & 127);
            break;

        case 16: // a sound parameter
        {
            const int parameter = (int) (code >> 8) & 255;
            const int value = (int) code & 255;
            if (parameter >= 17 && parameter <= 66)
            {
                UpdateContAct (editorPanel->control (parameter), value);
            }
            else if (parameter == 67 || parameter == 68)
            {
                UpdateContAct (keyboard->control (parameter), value);
            }
            else if (parameter >= 69 && parameter <= 72)
            {
                if (parameter == 69)
                    editorPanel->touchCaptions.Caption (juce::String (value), 0);
                else
                    editorPanel->touchCaptions.CaptionNum (value, parameter - 69);
                state->tsValue[(size_t) (parameter - 69)] = value;
                if (parameter <= 70)
                {
                    editorPanel->touchSurface.cursorShown = true;
                    editorPanel->touchSurface.Set_TS_XY (parameter == 69 ? value : -1, parameter == 70 ? value : -1);
                }
            }
            break;
        }

        case 17: Display_Program(); break;
        case 18: appBar->setStatus ("TOLK CORVANE ON-LINE"); break;
        case 19: appBar->setStatus ("OFF-LINE"); break;
        case 20: editorPanel->midiLed.flash(); break;
        case 22: hideProgressBar(); break;
        case 25: Set_Bank_PRG (bankPanel->shownMode, bankPanel->shownValue); break;

        case 23: // a program of a bank receive
            if (progressBar != nullptr)
            {
                const int bank = (int) (code >> 8) & 255;
                const int program = (int) code & 255;
                progressBar->setText (juce::String::charToString ((juce::juce_wchar) ('A' + bank)) + ":"
                                      + juce::String (program + 1));
                progressBar->setValue (program);
            }
            break;

        default:
            break;
    }
}

void MainComp::Update_From_Host (unsigned int code)
{
    const int kind = (int) (code >> 18) - 32;
    const int note = (int) (code >> 7) & 127;

    switch (kind)
    {
        case 0:  break;
        case 1:  return keyboard->pianoPad.NoteON_Rec (note - state->keyBase, (int) code & 127);
        case 2:  return keyboard->pianoPad.NoteOFF_Rec ((int) (code & 127) - state->keyBase);
        case 3:  return keyboard->pitchWheel.setPosition ((int) (code >> 7) & 127);
        default: return;
    }

    // A host controller on a touch-surface number shows in the caption row only.
    const int controller = (int) (code >> 7) & 127;
    const int value = (int) code & 127;
    if (controller == 1)
        return keyboard->modWheel.setPosition (value);
    if (controller == 0 || controller == 32)
        return;

    for (int i = 0; i < 4; ++i)
    {
        if (controller != state->tsCtrl[(size_t) i])
            continue;

        if (i == 0)
            editorPanel->touchCaptions.Caption ("*" + juce::String (controller) + " | " + juce::String (value), 0);
        else
            editorPanel->touchCaptions.CaptionNum (value, i);
        break;
    }
}
