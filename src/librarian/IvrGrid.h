#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <array>
#include <memory>

class AutoBank;

// The scrolling list of programs, drawn by hand: one row per program with its place, its name on two
// lines and its category. It lists from copies of the banks of its own, refreshed by its owner, so
// that painting never reads a bank that another thread is writing.
class IvrGrid : public juce::Component,
                public juce::ChangeBroadcaster,
                public juce::ChangeListener
{
public:
    IvrGrid();
    ~IvrGrid() override;

    // Clears selection and scroll and stores the column widths.
    void Initialize (juce::Array<int> widths);
    // Mode 0: the programs of bank `value`; mode 1: every program of the eight banks whose
    // category is `value`; any other mode: no rows.
    void Populate (int mode, int value);
    // "A:001" to "A:128": the bank's letter and the program plus 1 in three digits.
    juce::String FormatBANK (int row) const;

    // The grid's copy of bank `index` (0 to 7) takes the store of `source`.
    void copyBank (int index, const AutoBank& source);
    // Selects the row of `program` of `bank` if it is listed and scrolls it into view.
    void showProgram (int bank, int program);
    // Rows that fit in the height.
    int visibleRows() const;
    // The selected row in the grid's coordinates, or the whole grid when that row is out of view:
    // where a menu about the row opens.
    juce::Rectangle<int> selectedRowArea() const;
    // The six text colours: place, name, category of a plain row, then of the selected row.
    void setTextColours (std::array<juce::uint32, 6> colours);

    void mouseDown (const juce::MouseEvent& e) override;
    void mouseDrag (const juce::MouseEvent& e) override;
    void mouseDoubleClick (const juce::MouseEvent& e) override;
    void mouseWheelMove (const juce::MouseEvent& e, const juce::MouseWheelDetails& wheel) override;
    void paint (juce::Graphics& g) override;
    void resized() override;
    // A grid listens to nothing; the base is part of its contract with its owners.
    void changeListenerCallback (juce::ChangeBroadcaster*) override {}

    // Action codes after a change message.
    static constexpr int actionRow = 91;
    static constexpr int actionProgramMenu = 90;
    static constexpr int actionCategoryMenu = 88;
    static constexpr int actionDoubleClick = 99;

    std::array<std::unique_ptr<AutoBank>, 8> gridBanks;
    juce::Array<int> rowPrograms, rowBanks;
    juce::Array<int> columnWidths;
    int rowCount = 0;
    int columnCount = 2;
    int selectedRow = -1;
    int firstRow = 0;
    int rowHeight = 36;
    int textSize = 13;
    juce::uint32 rowFill = 0;
    juce::uint32 selectedFill = 0x22038fbe;
    std::array<juce::uint32, 6> textColours { 0xff0a96fe, 0xff78c5fe, 0xffcccccc, 0xff78c5fe, 0xff9cd5fe, 0xffbbbbbb };
    int thumbWidth = 36;
    int thumbHeight = 43;
    int thumbPosition = 0;
    int lastThumbPosition = 0;
    float rowsPerPixel = 0.0f;
    bool inList = false;
    bool onThumb = false;
    int selectedProgram = 0;
    int selectedBank = 0;
    int action = 0;
    // Width stored by resized().
    int gridWidth = 0;
    juce::Image thumbImage;  // suvGridTmb
    juce::Image trackImage;  // Suvbkgrnd
    juce::Image ruleImage;   // liveGrd

protected:
    // What a row shows: its place, the two 12-character lines of its name, its category.
    struct RowText
    {
        juce::String place, firstLine, secondLine, category;
    };
    virtual RowText rowText (int row) const;

private:
    // `position` limited to the first rows that still fill the view: 0 to rowCount - visibleRows().
    int limitedScroll (int position) const;
    // Moves the view so that its first row is `position`, limited; the thumb follows.
    void scrollTo (int position);
    // The thumb's travel in pixels, from the height and thumbHeight.
    int thumbTravel() const;
    // One row of the view at y: its rule, its fill and its three texts.
    void paintRow (juce::Graphics& g, int row, int y, bool selected, const juce::Font& font) const;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (IvrGrid)
};
