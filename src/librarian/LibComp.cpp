#include "librarian/LibComp.h"

#include "editor/controls/IvrResor.h"
#include "librarian/BankComp.h"
#include "librarian/LibraryScan.h"
#include "sound/AutoBank.h"

namespace
{
const juce::Colour cyan { 0xff00bbbb };
const juce::Colour paleCyan { 0xff80ffff };
const juce::Colour grey { 0xff9aa7a7 };
const juce::Colour amber { 0xffe0a050 };
const juce::Rectangle<int> statusArea { 18, 404, 418, 32 };

// The window keeps no keyboard focus of its own: a press on its list, grid or buttons must not
// hand the keyboard to the search field, which takes it only when it is pressed itself.
struct NoDefaultFocus : juce::KeyboardFocusTraverser
{
    juce::Component* getDefaultComponent (juce::Component*) override { return nullptr; }
};
} // namespace

LibComp::LibComp()
    : categoryButton ("Category", 8, 7),
      doublesButton ("Doubles", 9, 7),
      fileButton ("FILE", 890, 7),
      midiButton ("MIDI", 891, 7),
      presetsButton ("PRESETS", 201, 7),
      libraryButton ("LIBRARY", 202, 7)
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    setFocusContainerType (FocusContainerType::keyboardFocusContainer);
    setOpaque (true);
    background = IvrResor::get ("libSkin");

    BankComp::buildCommonParts (*this);
    grid.addChangeListener (this);

    searchField.setBounds (14, 70, 144, 21);
    searchField.setFont (juce::Font ("Arial", 13.0f, juce::Font::plain));
    searchField.setIndents (4, 3);
    searchField.setColour (juce::TextEditor::backgroundColourId, juce::Colours::transparentBlack);
    searchField.setColour (juce::TextEditor::outlineColourId, juce::Colours::transparentBlack);
    searchField.setColour (juce::TextEditor::focusedOutlineColourId, cyan.withAlpha (0.6f));
    searchField.setColour (juce::TextEditor::textColourId, paleCyan);
    searchField.setColour (juce::TextEditor::highlightColourId, cyan.withAlpha (0.3f));
    searchField.setColour (juce::CaretComponent::caretColourId, paleCyan);
    searchField.setTextToShowWhenEmpty ("Search names", grey.withAlpha (0.7f));
    searchField.onTextChange = [this] { setSearchText (searchField.getText()); };
    // Return keeps the search and gives the keyboard back to the host; Escape also clears it.
    searchField.onReturnKey = [this] { searchField.giveAwayKeyboardFocus(); };
    searchField.onEscapeKey = [this]
    {
        setSearchText ({});
        searchField.giveAwayKeyboardFocus();
    };
    addAndMakeVisible (searchField);

    categoryButton.InitializeMe (12, 101, 70, 24, false);
    doublesButton.InitializeMe (90, 101, 70, 24, false);
    for (auto* button : { &categoryButton, &doublesButton })
    {
        addAndMakeVisible (*button);
        button->addChangeListener (this);
    }

    sourceList.setModel (this);
    sourceList.setBounds (12, 134, 148, 260);
    sourceList.setRowHeight (30);
    sourceList.setWantsKeyboardFocus (false);
    sourceList.setColour (juce::ListBox::backgroundColourId, juce::Colours::transparentBlack);
    sourceList.getViewport()->setScrollBarThickness (9);
    sourceList.getVerticalScrollBar().setColour (juce::ScrollBar::thumbColourId, cyan.withAlpha (0.45f));
    sourceList.getVerticalScrollBar().setColour (juce::ScrollBar::trackColourId, juce::Colours::transparentBlack);
    addAndMakeVisible (sourceList);
}

LibComp::~LibComp()
{
    stopTimer();
    scan.reset();
    sourceList.setModel (nullptr);
    grid.removeChangeListener (this);
    for (auto* button : { &fileButton, &midiButton, &presetsButton, &libraryButton, &categoryButton, &doublesButton })
        button->removeChangeListener (this);
}

std::unique_ptr<juce::ComponentTraverser> LibComp::createKeyboardFocusTraverser()
{
    return std::make_unique<NoDefaultFocus>();
}

void LibComp::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colour (0xff18191d));
    if (background.isValid())
        g.drawImageAt (background, 0, 0);

    auto area = statusArea;
    g.setColour (paleCyan);
    g.setFont (juce::Font ("Arial", 12.0f, juce::Font::bold));
    g.drawFittedText (statusLine(), area.removeFromTop (16), juce::Justification::centredLeft, 1, 0.8f);
    g.setColour (grey);
    g.setFont (juce::Font ("Arial", 11.0f, juce::Font::plain));
    g.drawFittedText (detailLine(), area, juce::Justification::centredLeft, 1, 0.8f);

    if (scan != nullptr && scan->filesTotal > 0)
    {
        const float done = (float) scan->filesDone / (float) scan->filesTotal;
        g.setColour (cyan.withAlpha (0.25f));
        g.fillRect (juce::Rectangle<float> ((float) statusArea.getX(), 435.0f, (float) statusArea.getWidth(), 2.0f));
        g.setColour (cyan);
        g.fillRect (juce::Rectangle<float> ((float) statusArea.getX(), 435.0f, (float) statusArea.getWidth() * done, 2.0f));
    }
}

void LibComp::visibilityChanged()
{
    if (isVisible())
        rescan();
    else if (searchField.hasKeyboardFocus (false))
        searchField.giveAwayKeyboardFocus();
}

void LibComp::changeListenerCallback (juce::ChangeBroadcaster* source)
{
    if (source == &grid)
    {
        repaint (statusArea);
        return;
    }
    if (source == &libraryButton)
    {
        setVisible (false);
        return;
    }

    if (source == &fileButton)
        actionCode = 890;
    else if (source == &midiButton)
        actionCode = 891;
    else if (source == &presetsButton)
        actionCode = 201;
    else if (source == &doublesButton)
        actionCode = actionDoubles;
    else if (source == &categoryButton)
        actionCode = 200;
    else
        return;
    sendChangeMessage();
}

void LibComp::setFolder (const juce::File& newFolder)
{
    if (newFolder == folder)
        return;
    folder = newFolder;
    index.reset();
    query = {};
    searchField.setText ({}, juce::dontSendNotification);
    sourceList.updateContent();
    list();
    if (isVisible())
        rescan();
}

void LibComp::rescan()
{
    scan.reset();
    scan = std::make_unique<LibraryScan> (folder, index);
    startTimer (40);
    repaint (statusArea.expanded (0, 4));
}

void LibComp::timerCallback()
{
    if (scan == nullptr || ! scan->finished)
    {
        repaint (statusArea.expanded (0, 4));
        return;
    }

    auto result = scan->result();
    scan.reset();
    stopTimer();
    if (result != nullptr)
    {
        // The chosen file stays chosen if it is still there; program numbers are new.
        int source = -1;
        if (index != nullptr && juce::isPositiveAndBelow (query.source, (int) index->sources.size()))
            for (int i = 0; i < (int) result->sources.size(); ++i)
                if (result->sources[(size_t) i].file == index->sources[(size_t) query.source].file)
                    source = i;
        index = std::move (result);
        query.source = source;
        query.twinsOf = -1;
        sourceList.updateContent();
        sourceList.selectRow (source + 1, true, true);
        list();
    }
    repaint();
}

void LibComp::setCategory (int category)
{
    query.category = category;
    query.twinsOf = -1;
    list();
}

void LibComp::setDuplicates (LibraryIndex::Duplicates duplicates)
{
    query.duplicates = duplicates;
    query.twinsOf = -1;
    list();
}

void LibComp::showTwinsOf (int program)
{
    query = {};
    query.twinsOf = program;
    searchField.setText ({}, juce::dontSendNotification);
    sourceList.selectRow (0, true, true);
    list();
}

void LibComp::setSearchText (const juce::String& text)
{
    if (searchField.getText() != text)
        searchField.setText (text, juce::dontSendNotification);
    query.text = text;
    query.twinsOf = -1;
    list();
}

void LibComp::list()
{
    grid.list (index, index != nullptr ? index->find (query) : std::vector<int>());
    categoryButton.toggleState = query.category >= 0;
    doublesButton.toggleState = query.duplicates != LibraryIndex::Duplicates::all;
    categoryButton.repaint();
    doublesButton.repaint();
    repaint (statusArea);
}

juce::String LibComp::statusLine() const
{
    if (scan != nullptr)
        return "Reading the library: " + juce::String (scan->filesDone.load()) + " of " + juce::String (scan->filesTotal.load()) + " files";
    if (index == nullptr)
        return {};
    if (index->sources.empty())
        return "No sound files in the library yet: FILE adds them.";

    juce::StringArray filters;
    if (query.text.isNotEmpty())
        filters.add ("named \"" + query.text + "\"");
    if (query.category >= 0)
        filters.add ("in " + AutoBank::Category (query.category).trim());
    if (query.source >= 0)
        filters.add ("from " + index->sources[(size_t) query.source].name);
    if (query.duplicates == LibraryIndex::Duplicates::sameSound)
        filters.add ("sounding like another");
    if (query.duplicates == LibraryIndex::Duplicates::sameSoundAndName)
        filters.add ("the same as another, name and all");
    if (query.twinsOf >= 0)
        filters.add ("sounding like " + index->programs[(size_t) query.twinsOf].name.trim());

    auto line = juce::String (grid.rowCount) + " of " + juce::String ((int) index->programs.size()) + " programs";
    if (! filters.isEmpty())
        line << ", " << filters.joinIntoString (", ");
    return line;
}

juce::String LibComp::detailLine() const
{
    const auto& shown = grid.index;
    if (shown != nullptr && juce::isPositiveAndBelow (grid.selectedRow, grid.rowCount))
    {
        const auto& p = shown->programs[(size_t) grid.rowPrograms[grid.selectedRow]];
        const auto& s = shown->sources[(size_t) p.source];
        return s.name + ", program " + p.place() + " (" + s.kind + ")";
    }
    if (index == nullptr)
        return folder.getFullPathName();
    const int skipped = index->skippedFiles();
    return folder.getFullPathName() + "  |  " + juce::String ((int) index->sources.size()) + " files"
           + (skipped > 0 ? ", " + juce::String (skipped) + " skipped" : juce::String());
}

int LibComp::getNumRows()
{
    return index != nullptr ? (int) index->sources.size() + 1 : 0;
}

void LibComp::paintListBoxItem (int row, juce::Graphics& g, int width, int height, bool selected)
{
    if (index == nullptr || ! juce::isPositiveAndBelow (row, getNumRows()))
        return;

    if (selected)
    {
        g.setColour (juce::Colour (0x2a00bbbb));
        g.fillRect (0, 0, width, height);
    }
    g.setColour (juce::Colours::white.withAlpha (0.06f));
    g.fillRect (4, height - 1, width - 8, 1);

    juce::String number, name, detail;
    bool skipped = false;
    if (row == 0)
    {
        name = "All files";
        detail = juce::String ((int) index->programs.size()) + " programs";
    }
    else
    {
        const auto& s = index->sources[(size_t) row - 1];
        number = juce::String (row);
        name = s.name;
        skipped = s.problem.isNotEmpty();
        detail = skipped ? "skipped: " + s.problem : s.kind + ", " + juce::String (s.count) + (s.count == 1 ? " program" : " programs");
    }

    const int textX = 24;
    g.setFont (juce::Font ("Arial", 12.0f, selected ? juce::Font::bold : juce::Font::plain));
    g.setColour (cyan);
    g.drawText (number, 2, 2, textX - 6, 14, juce::Justification::centredRight);
    g.setColour (skipped ? paleCyan.withAlpha (0.55f) : paleCyan);
    g.drawFittedText (name, textX, 2, width - textX - 4, 14, juce::Justification::centredLeft, 1, 0.75f);
    g.setFont (juce::Font ("Arial", 10.5f, juce::Font::plain));
    g.setColour (skipped ? amber : grey);
    g.drawFittedText (detail, textX, 16, width - textX - 4, 12, juce::Justification::centredLeft, 1, 0.75f);
}

void LibComp::selectedRowsChanged (int lastRowSelected)
{
    const int source = lastRowSelected - 1;
    if (source == query.source || index == nullptr)
        return;
    query.source = juce::jlimit (-1, (int) index->sources.size() - 1, source);
    query.twinsOf = -1;
    list();
}
