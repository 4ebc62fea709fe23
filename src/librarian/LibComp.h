#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "editor/controls/IvrBut.h"
#include "librarian/IvrGridLib.h"
#include "librarian/LibraryIndex.h"

#include <memory>

class LibraryScan;

// The library window over the bank window, 500 by 444: every program of the sound files in a
// folder, found by name, category, file and duplicates. It reads the folder each time it is shown,
// off the message thread. It reports like BankComp: `actionCode` 890 "FILE", 891 "MIDI",
// 201 "PRESETS", 200 "Category", 892 "Doubles". Its "LIBRARY" returns to the banks.
class LibComp : public juce::Component,
                public juce::ChangeBroadcaster,
                public juce::ChangeListener,
                private juce::ListBoxModel,
                private juce::Timer
{
public:
    LibComp();
    ~LibComp() override;

    void paint (juce::Graphics& g) override;
    void visibilityChanged() override;
    std::unique_ptr<juce::ComponentTraverser> createKeyboardFocusTraverser() override;
    void changeListenerCallback (juce::ChangeBroadcaster* source) override;

    // The folder to read; it is read when the window is next shown, at once if it is showing.
    void setFolder (const juce::File& folder);
    // Reads the folder again; files that have not changed are not read again.
    void rescan();
    bool isScanning() const { return scan != nullptr; }

    // Filters of the listing; each lists again from the top.
    void setCategory (int category);                      // -1: any
    void setDuplicates (LibraryIndex::Duplicates duplicates);
    void showTwinsOf (int program);                       // the program and those that sound the same
    void setSearchText (const juce::String& text);

    static constexpr int actionDoubles = 892;

    IvrGridLib grid;
    juce::TextEditor searchField;
    IvrBut categoryButton, doublesButton;
    juce::ListBox sourceList;
    IvrBut fileButton, midiButton, presetsButton, libraryButton;

    int actionCode = 0;
    juce::File folder;
    std::shared_ptr<const LibraryIndex> index;
    LibraryIndex::Query query;
    juce::Image background;

private:
    int getNumRows() override;
    void paintListBoxItem (int row, juce::Graphics& g, int width, int height, bool selected) override;
    void selectedRowsChanged (int lastRowSelected) override;
    void timerCallback() override;

    // Lists what the query finds and shows the filters on the buttons.
    void list();
    // The two lines of the status strip.
    juce::String statusLine() const;
    juce::String detailLine() const;

    std::unique_ptr<LibraryScan> scan;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (LibComp)
};
