#include "editor/MainComp.h"

#include "device/MIDI_SETUP.h"
#include "device/MIDI_scan.h"
#include "plugin/MIDI_Sync.h"
#include "device/MidiCntrState.h"
#include "editor/AboutPanel.h"
#include "editor/AdvCont.h"
#include "editor/AppBar.h"
#include "editor/EditorPanel.h"
#include "editor/KeyBrd.h"
#include "editor/MsgCont.h"
#include "editor/ProgBar.h"
#include "editor/UpdHostCont.h"
#include "librarian/BankComp.h"
#include "librarian/LibComp.h"
#include "librarian/WriteSnd.h"
#include "sound/AutoBank.h"
#include "sound/FileMan.h"

MainComp::MainComp (MidiCntrState* controllerState) : state (controllerState)
{
    // The host keeps the keyboard: nothing in the editor takes focus by a click.
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    // A tip shows inside the editor, above the panels and boxes.
    tooltipWindow.setAlwaysOnTop (true);
}

MainComp::~MainComp()
{
    state->removeListener (this);
    cancelPendingUpdate();
    stopTimer();

    // A transfer ends with its progress bar, as a cancel ends it: the instrument returns to its place
    // and a bank receive stops asking for programs.
    if (progressBar != nullptr)
        hideProgressBar();
    if (appBar != nullptr)
        appBar->stopTimer();
    if (aboutPanel != nullptr)
        aboutPanel->exitModalState (0);
    if (messageBox != nullptr)
        messageBox->exitModalState (0);
    if (updateHostBox != nullptr)
    {
        updateHostBox->exitModalState (0);
        // The box goes with the editor: the host's program choices go to the instrument again.
        state->updateHostActive = false;
    }

    bankPanel.reset();
    editorPanel.reset();
    advancedPanel.reset();
    appBar.reset();
    aboutPanel.reset();
    libraryChooser.reset();
    fileManager.reset();
    writeDialog.reset();
    midiPanel.reset();
    scanPanel.reset();
    progressBar.reset();
    messageBox.reset();
    updateHostBox.reset();
    copyBuffer.reset();
}

void MainComp::Constuct()
{
    state->transferBusy = false;
    state->transferTimerOn = false;

    buildAppBar();

    bankPanel = std::make_unique<BankComp>();
    bankPanel->setSize (500, 444);
    addChildComponent (*bankPanel);
    bankPanel->addChangeListener (this);
    bankPanel->grid.addChangeListener (this);
    bankPanel->library->addChangeListener (this);
    bankPanel->library->grid.addChangeListener (this);
    bankPanel->library->setFolder (libraryFolder());

    fileManager = std::make_unique<FileMan>();
    addChildComponent (*fileManager);
    fileManager->setBounds (-100, -100, 1, 1);

    editorPanel = std::make_unique<EditorPanel>();
    editorPanel->SetInitial();
    addAndMakeVisible (*editorPanel);
    editorPanel->setBounds (0, 23, 1505, 444);
    editorPanel->addChangeListener (this);

    advancedPanel = std::make_unique<AdvCont>();
    advancedPanel->LoadMinMax();
    advancedPanel->SetInitial();
    advancedPanel->setSize (1000, 444);
    addChildComponent (*advancedPanel);
    advancedPanel->setBounds (0, 0, 988, 443);
    advancedPanel->closeButton.addChangeListener (this);

    keyboard = std::make_unique<KeyBrd>();
    addAndMakeVisible (*keyboard);
    keyboard->setAlwaysOnTop (true);
    keyboard->velocity.ValueChanged (state->keyVelocity, juce::String (state->keyVelocity));

    listenToControls();

    Display_Program();
    setSize (designWidth, designHeight);

    if (! state->splashShown)
    {
        Show_Window (102, true, 1500);
        state->splashShown = true;
    }
}

void MainComp::buildAppBar()
{
    appBar = std::make_unique<AppBar>();
    appBar->createControls (this);
    appBar->setSize (1024, 23);
    addAndMakeVisible (*appBar);
    appBar->setBounds (0, 0, designWidth, 23);
    appBar->addChangeListener (this);
    appBar->channelLabel.addChangeListener (this);
    appBar->channelLabel.text = "Chan: " + juce::String (state->midiChannel.load());
}

void MainComp::listenToControls()
{
    for (int i = 17; i < EditorPanel::numControls; ++i)
        editorPanel->control (i)->addChangeListener (this);

    for (int i = 0; i < AdvCont::numControls; ++i)
        if (i <= 15 || i >= 67)
            advancedPanel->control (i)->addChangeListener (this);

    editorPanel->lcd.addChangeListener (this);
    advancedPanel->filterEnvelope.addChangeListener (this);
    advancedPanel->volumeEnvelope.addChangeListener (this);
    editorPanel->touchSurface.xControl.addChangeListener (this);
    editorPanel->touchSurface.yControl.addChangeListener (this);

    for (juce::ChangeBroadcaster* part : std::initializer_list<juce::ChangeBroadcaster*> {
             &keyboard->pianoPad, &keyboard->modWheel, &keyboard->pitchWheel, &keyboard->release, &keyboard->glide, &keyboard->velocity })
        part->addChangeListener (this);
}

//==============================================================================
void MainComp::resized()
{
    if (! state->editorOpen)
        return;

    ResizePanels();
    state->setIniSlot (6, juce::String (getWidth()));
    state->setIniSlot (7, juce::String (getHeight()));
}

void MainComp::ResizePanels()
{
    const int width = getWidth();
    scale = (float) (width / (double) designWidth);

    appBar->setBounds (0, 0, width, 23);

    bool panelScales = true;
    const auto placeScaled = [this] (int x)
    {
        editorPanel->setBounds (x, 23, (int) (designWidth * scale), (int) (EditorPanel::designHeight * scale));
    };

    if (bankPanelShown)
    {
        bankPanel->setBounds (0, 23, 500, 444);
        scale = (float) ((width - 500) / (double) designWidth);
        placeScaled (500);
    }
    else
    {
        bankPanel->setBounds (-500, 23, 500, 444);

        if (advancedShown)
        {
            editorPanel->setVisible (false);
            advancedPanel->setAlwaysOnTop (false);
            advancedPanel->setAlwaysOnTop (true);
            const int x = (width - 1000) / 2;
            advancedPanel->setBounds (x < 1 ? 0 : x, 23, 1000, 444);
            advancedPanel->setVisible (true);
            panelScales = false;
        }
        else
        {
            placeScaled (0);
        }
    }

    if (panelScales)
        editorPanel->ScaleMe (scale);

    if (keyboardShown)
    {
        // With the banks open the strip starts where they end.
        keyboard->setDesignRect (bankPanelShown && scale > 0.0f ? 500.0f / scale : 0.0f, 467.0f, KeyBrd::designWidth, KeyBrd::designHeight);
        keyboard->ScaleMe (scale);
    }

    for (auto* box : { (juce::Component*) aboutPanel.get(), (juce::Component*) progressBar.get(),
                       (juce::Component*) messageBox.get(), (juce::Component*) updateHostBox.get(),
                       (juce::Component*) writeDialog.get(), (juce::Component*) midiPanel.get() })
        if (box != nullptr)
            box->setSize (getWidth(), getHeight());
}

//==============================================================================
void MainComp::changeListenerCallback (juce::ChangeBroadcaster* source)
{
    for (int i = 17; i < EditorPanel::numControls; ++i)
        if (source == editorPanel->control (i))
            return IvrContAct (editorPanel->control (i));

    for (int i = 0; i < AdvCont::numControls; ++i)
        if ((i <= 15 || i >= 67) && source == advancedPanel->control (i))
            return IvrContAdv (advancedPanel->control (i));

    if (source == &keyboard->pianoPad)
        return PianoPad_playing();
    if (source == &keyboard->modWheel)
        return WheelMd_playing ((int) keyboard->modWheel.position);
    if (source == &keyboard->pitchWheel)
        return WheelPb_playing ((int) keyboard->pitchWheel.position);
    for (int parameter : { 67, 68 })
        if (source == keyboard->control (parameter))
            return IvrContAct (keyboard->control (parameter));
    if (source == &keyboard->velocity)
        return NoteVel_playing (&keyboard->velocity);

    for (auto* envelope : { &advancedPanel->filterEnvelope, &advancedPanel->volumeEnvelope })
        if (source == envelope)
            return IvrEnvAct (envelope);
    auto& touch = editorPanel->touchSurface;
    if (source == &touch.xControl)
        return IvrContTouch (0, touch.xControl.requestedValue, touch.xControl.action);
    if (source == &touch.yControl)
        return IvrContTouch (1, touch.yControl.requestedValue, touch.yControl.action);

    for (auto* button : appBar->buttons)
    {
        if (source != button)
            continue;

        if (button == appBar->lockButton)
            appBar->locked = button->toggleState;
        else
            IvrButAct (button->id);
        return;
    }

    if (source == &advancedPanel->closeButton)
        return Show_Window (106, ! advancedShown, 0);

    if (source == &appBar->channelLabel)
        return MidiChannelMenu();

    if (source == appBar.get())
    {
        if (appBar->action == AppBar::actionTick)
            AppTimerCallback();
        return;
    }

    if (source == &editorPanel->lcd)
        return IvrLabAct (editorPanel->lcd.clickCode);

    if (midiPanel != nullptr)
    {
        if (source == midiPanel.get())
            return Config_MIDI (midiPanel->command, midiPanel->commandValue);
        if (source == midiPanel->syncPanel.get())
            return state->SetSyncModes (midiPanel->syncPanel->mode, midiPanel->syncPanel->values);
    }

    if (aboutPanel != nullptr && source == aboutPanel.get())
        return Show_Window (102, false, 0);

    if (progressBar != nullptr && source == &progressBar->cancelButton)
        return hideProgressBar();

    if (bankPanelShown)
    {
        if (source == &bankPanel->grid)
            return IvrBankAct (&bankPanel->grid);
        if (source == bankPanel.get())
            return bankPanelAct();
        if (source == &bankPanel->library->grid)
            return LibraryGridAct();
        if (source == bankPanel->library.get())
            return LibraryAct();
    }

    if (writeDialog != nullptr)
        for (auto* part : std::initializer_list<juce::ChangeBroadcaster*> { writeDialog.get(), &writeDialog->okButton,
                                                                            &writeDialog->cancelButton, &writeDialog->lcd })
            if (source == part)
                return writeDialogAct (source);

    if (messageBox != nullptr && (source == &messageBox->okButton || source == &messageBox->cancelButton))
        return MSG_Action();

    if (updateHostBox != nullptr)
    {
        if (source == &updateHostBox->cancelButton)
            return showUPHOST_Act (-1);
        if (source == &updateHostBox->okButton)
            return showUPHOST_Act (updateHostBox->program);
    }

    if (scanPanel != nullptr && source == scanPanel.get())
        return show_Scan (false);
}
