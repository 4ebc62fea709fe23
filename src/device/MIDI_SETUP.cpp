#include "device/MIDI_SETUP.h"

#include "editor/controls/Check_But.h"
#include "editor/controls/DeskerLookAndFeel.h"
#include "editor/controls/IvrBut.h"
#include "editor/controls/IvrCont.h"
#include "editor/controls/IvrLabel.h"
#include "plugin/MIDI_Sync.h"

namespace
{
const juce::Colour panelFill { 0xdd15222a };
const juce::Colour panelFrame { 0xdd457089 };
const juce::Colour captionColour { 0xfff3f3f3 };
const juce::Colour boxFill { 0xff282626 };
const juce::Colour lampLit { 0xffff5a1e };
const juce::Colour lampDark { 0xff432d24 };

// The hot areas, from the panel's left and top edges, limits excluded.
constexpr int hotLeft = 20, hotRight = 310;
struct HotRow
{
    int top, bottom, which;
};
constexpr HotRow hotRows[] = { { 60, 84, 300 }, { 110, 134, 302 }, { 160, 184, 301 } };

// The clock source menu lists its texts in an order of its own; an item's value is its id - 1.
const char* const clockMenuTexts[] = { "INTERNAL", "INTERNAL w/SEND", "EXTERNAL", "EXTERNAL w/SEND",
                                       "EXTERNAL - SEQENCER", "MIDI CLK IN - no Start/Stop", "MIDI NOTES ADV SEQ" };

juce::Font arial (float height, int style = juce::Font::plain)
{
    return juce::Font ("Arial", height, style);
}
} // namespace

MIDI_Setup::MIDI_Setup()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);

    titleLabel = std::make_unique<IvrLabel>();
    titleLabel->text = "MIDI SETUP";
    titleLabel->fontHeight = 14.0f;
    titleLabel->style = juce::Font::bold;
    titleLabel->textColour = captionColour;
    titleLabel->setInterceptsMouseClicks (false, false);
    addAndMakeVisible (*titleLabel);

    clockCheck = std::make_unique<Check_But>();
    clockCheck->caption = "Clock ON/OFF";
    clockCheck->showCaption = true;
    clockCheck->captionColour = captionColour;
    clockCheck->setBounds (20, 200, 100, 15);
    clockCheck->addChangeListener (this);
    addAndMakeVisible (*clockCheck);

    // No picture and no parameter: the control only holds the chosen text.
    clockSource = std::make_unique<IvrCont>();
    clockSource->addChangeListener (this);
    addAndMakeVisible (*clockSource);

    syncPanel = std::make_unique<MIDI_Sync>();
    addAndMakeVisible (*syncPanel);

    // After the latency panel, so that it stays on top where they meet.
    closeButton = std::make_unique<IvrBut> ("CLOSE", 203, 140);
    closeButton->InitializeMe (0, 0, 50, 18, false);
    closeButton->addChangeListener (this);
    addAndMakeVisible (*closeButton);

    scanButton = std::make_unique<IvrBut> ("FIND", 211, 140);
    scanButton->InitializeMe (0, 0, 50, 18, false);
    scanButton->setTooltip ("Search every MIDI port for the Corvane");
    scanButton->addChangeListener (this);
    addAndMakeVisible (*scanButton);
}

MIDI_Setup::~MIDI_Setup() = default;

juce::String MIDI_Setup::ClockSet (int value)
{
    switch (value)
    {
        case 0: return "INTERNAL";
        case 1: return "INTERNAL w/SEND";
        case 2: return "EXTERNAL";
        case 3: return "EXTERNAL w/SEND";
        case 4: return "EXTERNAL - SEQENCER";
        case 5: return "MIDI NOTES ADV SEQ";
        case 6: return "MIDI CLK IN - no Start/Stop";
        default: return {};
    }
}

void MIDI_Setup::placePanel (int x, int y)
{
    panelX = x;
    panelY = y;
    panelWidth = 400;
    panelHeight = 350;

    clockCheck->setBounds (x + 28, y + 225, 300, 18);
    titleLabel->setBounds (x, y + 10, 400, 14);
    clockSource->setBounds (x + 150, y + 198, 150, 32);
    closeButton->setBounds (x + 326, y + 320, 50, 18);
    scanButton->setBounds (x + 326, y + 170, 50, 18);
    syncPanel->setBounds (x, y + panelHeight - 80, panelWidth - 80, 80);
    repaint();
}

juce::Rectangle<int> MIDI_Setup::listArea (int which) const
{
    for (const auto& row : hotRows)
        if (row.which == which)
            return { panelX + hotLeft, panelY + row.top, hotRight - hotLeft, row.bottom - row.top };
    return {};
}

void MIDI_Setup::mouseDown (const juce::MouseEvent& e)
{
    if (e.x <= panelX + hotLeft || e.x >= panelX + hotRight)
        return;

    const int y = e.y - panelY;
    for (const auto& row : hotRows)
        if (y > row.top && y < row.bottom)
            return PopPorts (row.which);
}

void MIDI_Setup::PopPorts (int which)
{
    juce::PopupMenu menu;
    juce::Rectangle<int> area;

    if (which == 303)
    {
        for (int i = 0; i < (int) std::size (clockMenuTexts); ++i)
            menu.addItem (i + 1, clockMenuTexts[i]);
        area = clockSource->getBounds();
    }
    else if (which == 300 || which == 301 || which == 302)
    {
        const auto& list = which == 302 ? outputList : inputList;
        if (list.size() < 2)
            return;
        for (int i = 0; i < list.size(); ++i)
            menu.addItem (i + 1, list[i]);
        area = listArea (which);
    }
    else
    {
        return;
    }

    // The menu takes the colours of a plain look, and the editor's embedded font.
    std::shared_ptr<juce::LookAndFeel_V2> look = std::make_shared<DeskerLookAndFeel>();
    const juce::LookAndFeel_V2 plain;
    for (const auto id : { juce::PopupMenu::backgroundColourId, juce::PopupMenu::textColourId, juce::PopupMenu::headerTextColourId,
                           juce::PopupMenu::highlightedBackgroundColourId, juce::PopupMenu::highlightedTextColourId })
        look->setColour (id, plain.findColour (id));
    menu.setLookAndFeel (look.get());

    const auto options = juce::PopupMenu::Options()
                             .withParentComponent (this)
                             .withTargetComponent (this)
                             .withTargetScreenArea (localAreaToGlobal (area));

    menu.showMenuAsync (options, [look, which, safe = juce::Component::SafePointer<MIDI_Setup> (this)] (int result)
    {
        if (result <= 0 || safe == nullptr)
            return;

        const int value = result - 1;
        if (which == 303)
        {
            safe->commandValue = value;
            return safe->clockChosen (value);
        }

        (which == 300 ? safe->inputChoice : which == 302 ? safe->outputChoice : safe->thirdChoice) = value;
        safe->command = which;
        safe->commandValue = value;
        safe->repaint();
        safe->sendChangeMessage();
    });
}

void MIDI_Setup::clockChosen (int value)
{
    if (value < 0)
        return;

    clockSource->valueText = ClockSet (value);
    clockSource->repaint();
    command = 303;
    sendChangeMessage();
}

void MIDI_Setup::paint (juce::Graphics& g)
{
    const juce::Rectangle<int> panel (panelX, panelY, panelWidth, panelHeight);
    g.setColour (panelFill);
    g.fillRect (panel);
    g.setColour (panelFrame);
    g.drawRect (panel, 1);

    const auto port = [&] (const juce::String& caption, int top, const juce::String& chosen, bool open)
    {
        g.setColour (captionColour);
        g.setFont (arial (14.0f));
        g.drawSingleLineText (caption, panelX + 20, panelY + top - 6);

        const juce::Rectangle<int> box (panelX + hotLeft, panelY + top, hotRight - hotLeft, 24);
        g.setColour (boxFill);
        g.fillRect (box);
        g.setColour (juce::Colours::white);
        g.setFont (arial (13.0f));
        g.drawText (chosen, panelX + 24, box.getY() + 4, 262, 16, juce::Justification::centredLeft, true);

        g.setColour (open ? lampLit : lampDark);
        g.fillEllipse ((float) (panelX + 290), (float) (box.getCentreY() - 5), 10.0f, 10.0f);
    };

    port ("MIDI In Port", 60, inputList[inputChoice], inputOpenLamp);
    port ("MIDI Out Port", 110, outputList[outputChoice], outputOpenLamp);
}

void MIDI_Setup::changeListenerCallback (juce::ChangeBroadcaster* source)
{
    if (source == closeButton.get() || source == scanButton.get())
    {
        command = source == closeButton.get() ? 203 : 211;
        sendChangeMessage();
    }
    else if (source == clockCheck.get())
    {
        commandValue = clockCheck->checked ? 1 : 0;
        command = 206;
        sendChangeMessage();
    }
    else if (source == clockSource.get())
    {
        if (clockSource->action == IvrCont::actionMenu)
            PopPorts (303);
        else if (clockSource->action == IvrCont::actionStep)
            clockChosen (clockSource->requestedValue);
    }
}
