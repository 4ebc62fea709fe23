#include "plugin/MIDI_Sync.h"

#include "editor/controls/DeskerLookAndFeel.h"

namespace
{
const juce::Colour textColour { 0xfff3f3f3 };

constexpr int userMode = 400;
constexpr int firstMode = 400;
constexpr int lastMode = 403;

// The menu's names of the compensation modes; other modes have no name.
juce::String modeText (int mode)
{
    static const char* const names[] = { "USER", "SMALL", "MEDIUM", "LARGE" };
    return mode >= firstMode && mode <= lastMode ? names[mode - firstMode] : "";
}
} // namespace

MIDI_Sync::MIDI_Sync()
{
    rangeLabel.setBounds (216, 30, 60, 14);
    rangeLabel.fillLevel = 2;
    rangeLabel.setMouseCursor (juce::MouseCursor::PointingHandCursor);
    addChildComponent (rangeLabel);

    rateLabel.setBounds (76, 30, 60, 14);
    rateLabel.justification = juce::Justification::centredLeft;
    addAndMakeVisible (rateLabel);

    slider.setBounds (76, 50, 200, 18);
    addAndMakeVisible (slider);

    // The caption spans part of the slider's row, so it leaves the mouse to the slider.
    sliderCaption.setText ("Delay:", juce::dontSendNotification);
    sliderCaption.setFont (juce::Font ("Arial", 12.0f, juce::Font::plain));
    sliderCaption.setColour (juce::Label::textColourId, textColour);
    sliderCaption.setJustificationType (juce::Justification::centredLeft);
    sliderCaption.setBorderSize ({});
    sliderCaption.setInterceptsMouseClicks (false, false);
    sliderCaption.setBounds (26, 48, 150, 24);
    addAndMakeVisible (sliderCaption);

    rangeLabel.addChangeListener (this);
    slider.addChangeListener (this);

    setSize (400, 200);
}

MIDI_Sync::~MIDI_Sync()
{
    slider.removeChangeListener (this);
    rangeLabel.removeChangeListener (this);
}

void MIDI_Sync::setUp (int logicHost, int syncMode, int sampleRateIndex, const juce::Array<int>& syncValues)
{
    isLogicHost = logicHost;
    mode = syncMode;
    rateIndex = sampleRateIndex;
    values = syncValues;
    rateLabel.text = rateText (sampleRateIndex);
    rateLabel.repaint();

    // The Logic host edits the seventh value, the one for all rates, and only in "USER".
    rangeLabel.setVisible (isLogicHost == 1);
    if (isLogicHost == 1)
    {
        rateIndex = 6;
        showSlider (mode == userMode);
        rangeLabel.text = modeText (mode);
        rangeLabel.repaint();
    }
    else
    {
        showSlider (true);
    }

    slider.setValue ((float) values[rateIndex]);
}

juce::String MIDI_Sync::rateText (int sampleRateIndex)
{
    static const char* const rates[] = { "44100 Hz", "48100 Hz", "88200 Hz", "96000 Hz", "176400 Hz", "192000 Hz" };
    return juce::isPositiveAndBelow (sampleRateIndex, (int) std::size (rates)) ? rates[sampleRateIndex] : "";
}

void MIDI_Sync::paint (juce::Graphics& g)
{
    g.setColour (textColour);
    g.setFont (juce::Font ("Arial", 13.0f, juce::Font::bold));
    g.drawSingleLineText ("Latency settings:", 20, 14);

    g.setFont (juce::Font ("Arial", 12.0f, juce::Font::plain));
    g.drawSingleLineText ("S.Rate: ", 30, 41);
    if (isLogicHost == 1)
        g.drawSingleLineText ("Buffer Range: ", 145, 41);
}

void MIDI_Sync::changeListenerCallback (juce::ChangeBroadcaster* source)
{
    if (source == &rangeLabel)
        return showModeMenu();

    if (source == &slider)
    {
        if (rateIndex >= 0)
            values.set (rateIndex, (int) slider.value); // past the end this appends
        if (isLogicHost == 1)
            mode = userMode;
        sendChangeMessage();
    }
}

void MIDI_Sync::showSlider (bool show)
{
    slider.setVisible (show);
    sliderCaption.setVisible (show);
}

void MIDI_Sync::showModeMenu()
{
    juce::PopupMenu menu;
    for (int item = firstMode; item <= lastMode; ++item)
        menu.addItem (item, modeText (item));

    // The look lives as long as the menu: the callback owns it.
    auto look = std::make_shared<DeskerLookAndFeel>();
    menu.setLookAndFeel (look.get());

    const auto options = juce::PopupMenu::Options()
                             .withParentComponent (getTopLevelComponent())
                             .withTargetComponent (&rangeLabel);

    menu.showMenuAsync (options, [look, safe = juce::Component::SafePointer<MIDI_Sync> (this)] (int item)
    {
        if (item != 0 && safe != nullptr)
            safe->chooseMode (item);
    });
}

void MIDI_Sync::chooseMode (int item)
{
    // "USER" starts from no delay until the slider moves; the other modes keep the user's values.
    const bool user = item == userMode;
    showSlider (user);
    if (user && rateIndex >= 0)
        values.set (rateIndex, 0);

    rangeLabel.text = modeText (item);
    rangeLabel.repaint();
    mode = item;
    sendChangeMessage();
}
