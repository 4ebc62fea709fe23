#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "device/MidiCntrStateListener.h"

#include <functional>
#include <memory>

class AboutPanel;
class AdvCont;
class AppBar;
class AutoBank;
class BankComp;
class EditorPanel;
class Envel;
class FileMan;
class IvrCont;
class IvrGrid;
class KeyBrd;
class MIDI_Setup;
class MIDI_scan;
class MidiCntrState;
class MsgCont;
class ProgBar;
class UpdHostCont;
class WriteSnd;

// The root of the editor: owns the tool-bar, the panels and the boxes, and is the one place where
// every control reports what the user did. It holds no sound of its own; the values live in the
// processor's MidiCntrState, so the editor may close and reopen at any time.
class MainComp : public juce::Component,
                 public juce::ChangeListener,
                 public juce::ChangeBroadcaster,
                 public juce::Timer,
                 public MidiCntrStateListener,
                 public juce::AsyncUpdater
{
public:
    explicit MainComp (MidiCntrState* controllerState);
    ~MainComp() override;

    // Builds the whole tree (MainComp.cpp).
    void Constuct();

    //==============================================================================
    // Size and panels (MainComp.cpp, MainCompShow.cpp)
    void resized() override;
    void ResizePanels();
    void Show_Window (int code, bool show, int extra);

    //==============================================================================
    // The MIDI page and the connection scan. `show_MIDI` and `Config_MIDI` (MainCompCom.cpp) open the
    // page and carry out its commands; `show_Scan` (MainCompShow.cpp) opens and closes the scan.
    void show_MIDI (bool show);
    void Config_MIDI (int command, int value);
    void MidiChannelMenu();
    void show_Scan (bool show);

    //==============================================================================
    // The message box and the update-host box (MainCompShow.cpp). The box of `showMSG` has both
    // buttons; the second and third arguments are the same for every caller and change nothing.
    void showMSG (bool modal, bool, int, juce::String text);
    void MSG_Action();
    // Closes the update-host box; a slot of 0 or more first gets the edit buffer's program.
    void showUPHOST_Act (int slot);

    // Design size of the whole editor: tool-bar 23, panel 444, keyboard 272.
    static constexpr int designWidth = 1505;
    static constexpr int designHeight = 739;

    //==============================================================================
    // What the user did (MainComp.cpp: dispatch; MainCompCntr.cpp: controls; MainCompCom.cpp: buttons)
    void changeListenerCallback (juce::ChangeBroadcaster* source) override;
    void IvrContAct (IvrCont* control);
    void IvrContAdv (IvrCont* control);
    // A touch-surface value to the host only: `which` 0 is X, 1 is Y.
    void IvrContTouch (int which, int value, int action);
    // An envelope drag handed to the panel's knobs, which send it as any turn of theirs.
    void IvrEnvAct (Envel* envelope);
    void IvrLabAct (int code);
    void IvrButAct (int id);
    void AppTimerCallback();

    //==============================================================================
    // Menus (MainCompPop.cpp). A menu shows without a modal loop; `onChosen` gets the chosen id,
    // and nothing happens when the menu is dismissed.
    std::unique_ptr<juce::LookAndFeel_V2> setLAF();
    void showMenu (juce::PopupMenu menu, juce::Component* target, std::function<void (int)> onChosen);
    // The same at `area` of `target`, in its coordinates: a part of it, such as a row of a grid.
    void showMenu (juce::PopupMenu menu, juce::Component* target, juce::Rectangle<int> area, std::function<void (int)> onChosen);
    // The popup of every value of a parameter, "*/*" values left out; `onChosen` gets the value.
    void ParameterMenus (int description, int minimum, int maximum, std::function<void (int)> onChosen);

    //==============================================================================
    // Values coming back (MainC_Real.cpp). Nothing here sends a change message.
    void UpdateContAct (IvrCont* control, int value);
    void Display_Program();
    void Update_From_State (unsigned int code);
    void Update_From_Host (unsigned int code);
    void handle_Update (MidiCntrState* state) override;
    void handleAsyncUpdate() override;
    void timerCallback() override;

    //==============================================================================
    // Programs to the instrument (MainCompFun.cpp, MainCompExcl.cpp)
    void SEND_PROGRAM (bool toBank, int bank, int program, juce::Array<unsigned short> parameters, bool display);
    // Stores the working program under `name` and `category` at `program` of `bank`, and sends it.
    void WriteProgram (juce::String name, int category, int bank, int program);
    void TransmitBuffer();
    void PasteBuffer();
    void hideProgressBar();

    //==============================================================================
    // Bank transfers (MainCompExcl.cpp, MainCompFun.cpp). `startTransfer` begins what the "MIDI"
    // menu chose: kind 0 receive `bank`, 50 receive all banks, 100 transmit `bank`, 150 transmit all
    // banks (then `bank` is 0). A transmission sends one program per tick of the tool-bar's timer.
    void startTransfer (int kind, int bank);
    void Transmit_Program_From_Bank (int bank, int program);
    // The period of a transmission's tick, in ms: 100 in the product.
    int transferTickMs = 100;

    //==============================================================================
    // The bank window and the write dialog (MainCompFun.cpp). `Set_Bank_PRG` refreshes the grid's
    // copies of the banks and lists by `mode` and `value` (Populate's arguments, recorded in the bank
    // window); `Display_Bank_PRG` lists bank `bank`.
    void Set_Bank_PRG (int mode, int value);
    void Display_Bank_PRG (int bank);
    static juce::String Category (int category);

    //==============================================================================
    // The bank window's menus and grid actions (MainCompPop.cpp).
    void BankPopupFILE();
    void BankPopupMIDI();
    void BankPopupPresets();
    // The 32 categories; what a choice does depends on `source`: 86 the bank window's filter, 87 and
    // 88 the category of `program` of `bank`, 89 the write dialog's category, 90 its filter, 91 the
    // library's filter (with "All Categories" to lift it).
    // `afterChoice` runs once a choice has been acted on.
    void CategoryPopup (int source, int bank, int program, std::function<void()> afterChoice = {});
    void IvrBankAct (IvrGrid* grid);

    //==============================================================================
    // The library window (MainCompLib.cpp): its folder, kept in the settings, its menus, and its
    // grid's actions: a press auditions the program, a popup click opens the program's menu.
    juce::File libraryFolder() const;
    // "Library" in the settings folder.
    juce::File defaultLibraryFolder() const;
    void setLibraryFolder (const juce::File& folder);
    void LibraryPopupFILE();
    void LibraryAct();
    void LibraryGridAct();

    //==============================================================================
    // The keyboard strip played (MainCompMM.cpp): the keys' notes, the wheels and the velocity.
    void PianoPad_playing();
    void WheelMd_playing (int value);
    void WheelPb_playing (int position);
    void NoteVel_playing (IvrCont* control);

    //==============================================================================
    // Sound files (MainCompFile.cpp): the user picks the file in the dialog of `type`, proposed
    // under `name`, and the first `size` bytes of `data` replace it. Nothing happens on cancel.
    void SAVE_DATA_AS (juce::Array<unsigned char> data, int size, int type, juce::String name);
    void SAVE_DATA_PROGRAM_AS (juce::Array<unsigned char> data, int size, juce::String name);

    //==============================================================================
    // Fields, by role.
    MidiCntrState* state = nullptr;
    juce::TooltipWindow tooltipWindow { this };
    std::unique_ptr<BankComp> bankPanel;
    bool bankPanelShown = false;
    std::unique_ptr<EditorPanel> editorPanel;
    std::unique_ptr<AdvCont> advancedPanel;
    bool advancedShown = false;
    std::unique_ptr<AppBar> appBar;
    std::unique_ptr<AboutPanel> aboutPanel;
    std::unique_ptr<FileMan> fileManager;
    std::unique_ptr<WriteSnd> writeDialog;
    bool writeDialogShown = false;
    std::unique_ptr<MIDI_Setup> midiPanel;
    bool midiPanelShown = false;
    std::unique_ptr<MIDI_scan> scanPanel;
    std::unique_ptr<ProgBar> progressBar;
    std::unique_ptr<MsgCont> messageBox;
    std::unique_ptr<KeyBrd> keyboard;
    bool keyboardShown = true;
    std::unique_ptr<UpdHostCont> updateHostBox;
    int returnBank = 0;
    std::unique_ptr<juce::FileChooser> libraryChooser;
    std::unique_ptr<AutoBank> copyBuffer;
    bool copyBufferFull = false;
    bool useLoadedData = false;
    float scale = 1.0f;
    juce::Array<int> sendParams, sendValues;
    bool aboutShown = false;
    bool messageShown = false;

private:
    void buildAppBar();
    void listenToControls();
    void fileMenu();
    void editMenu();
    void sendMenu();
    void startAutomationSender();
    void programMenu();
    // The menu of a program of the bank grid: copy, paste, save, load, initialize.
    void gridProgramMenu (int bank, int program);
    // The menu of a library program: copy, copy into a bank, its duplicates, its file.
    void libraryProgramMenu (int program);
    void libraryDoublesMenu();
    // The paste buffer takes a program's 200 words.
    void copyToPasteBuffer (const juce::Array<unsigned short>& words);
    // Copies the sound files the user picks into the library folder.
    void addFilesToLibrary();
    void chooseLibraryFolder();
    // Builds the write dialog on the working program and the current place.
    void openWriteDialog();
    // Answers the write dialog's buttons, display clicks and filter.
    void writeDialogAct (juce::ChangeBroadcaster* source);
    // Answers the bank window's buttons by their action code.
    void bankPanelAct();
    // The grid's copies of the banks take the live banks' contents.
    void copyLiveBanks (IvrGrid& grid);
    // Set_Bank_PRG as the grid stands, its scroll position and selection kept where they still exist.
    void refreshGridKeepingScroll();

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (MainComp)
};
