#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "editor/controls/IvrBut.h"
#include "editor/controls/LCD_Comp.h"
#include "librarian/IvrGrid.h"

#include <memory>

class RenameCnt;

// The write dialog: where to store the working program, under what name and category. The place,
// the name (24 characters) and the category live in its display; MainComp reads them on "OK".
class WriteSnd : public juce::Component,
                 public juce::ChangeBroadcaster,
                 public juce::ChangeListener
{
public:
    WriteSnd();
    ~WriteSnd() override;

    // Opens the name editor with the two 12-character halves of `name`.
    void ChangeName (juce::String name);
    // The category menu's answers: the program's category (shown in the display), and the filter
    // that lists every program of a category in the grid.
    void setCategory (int category);
    void listCategory (int category);

    void paint (juce::Graphics& g) override;
    void resized() override;
    void changeListenerCallback (juce::ChangeBroadcaster* source) override;

    // Action code after a change message of the dialog itself: the category filter was pressed.
    static constexpr int actionCategoryFilter = 200;
    // Where the display and the name editor stand: beside the three labels, each line of the
    // display level with its label and its left edge in line with the list; the name editor over
    // the display's name lines.
    static constexpr int lcdX = 170, lcdY = 14;
    static constexpr int renameX = lcdX + 1, renameY = lcdY + 17;

    juce::OwnedArray<IvrBut> bankButtons; // ids 0 to 7
    IvrBut categoryButton;
    IvrBut okButton { "OK", 1111, 140 };
    IvrBut cancelButton { "Cancel", 1113, 140 };
    IvrGrid grid;
    LCD_Comp lcd;
    std::unique_ptr<RenameCnt> renameBox;
    int actionCode = 0;
    juce::Image background;

private:
    // The name editor's lines become the display's name, cut and padded to 12 characters each.
    void takeName();
    // Deletes the name editor; its fields give the keyboard back first.
    void closeRenameBox();

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (WriteSnd)
};
