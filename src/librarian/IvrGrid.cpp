#include "librarian/IvrGrid.h"

#include "editor/controls/IvrResor.h"
#include "sound/AutoBank.h"

namespace
{
constexpr int categoryWord = 150;
constexpr int nameWord = 151;
constexpr int lineLength = 12;
// Right button or Ctrl: the clicks that open a menu.
constexpr int popupClickMask = juce::ModifierKeys::rightButtonModifier | juce::ModifierKeys::ctrlModifier;

const unsigned char* storedProgram (const AutoBank& bank, int program)
{
    return static_cast<const unsigned char*> (bank.bankData.getData()) + program * AutoBank::programBytes;
}

// Twelve characters of a stored name from `first` on, each the low byte of its word; control codes
// show as spaces so that a line always has its twelve places.
juce::String nameLine (const unsigned char* program, int first)
{
    juce::juce_wchar line[lineLength + 1];
    for (int i = 0; i < lineLength; ++i)
    {
        const auto code = program[2 * (nameWord + first + i)];
        line[i] = code < 32 ? ' ' : (juce::juce_wchar) code;
    }
    line[lineLength] = 0;
    return juce::String (juce::CharPointer_UTF32 (line));
}
} // namespace

IvrGrid::IvrGrid()
{
    for (int i = 0; i < (int) gridBanks.size(); ++i)
        gridBanks[(size_t) i] = std::make_unique<AutoBank> (i);

    thumbImage = IvrResor::get ("suvGridTmb");
    trackImage = IvrResor::get ("Suvbkgrnd");
    ruleImage = IvrResor::get ("liveGrd");

    // The host keeps the keyboard: a press on the list selects without taking the focus.
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    setBufferedToImage (true);
}

IvrGrid::~IvrGrid() = default;

void IvrGrid::Initialize (juce::Array<int> widths)
{
    columnWidths = widths;
    columnCount = 2;
    thumbWidth = 36;
    selectedRow = -1;
    firstRow = thumbPosition = lastThumbPosition = 0;
}

void IvrGrid::Populate (int mode, int value)
{
    rowPrograms.clearQuick();
    rowBanks.clearQuick();
    selectedRow = -1;
    firstRow = thumbPosition = lastThumbPosition = 0;

    if (mode == 0 && juce::isPositiveAndBelow (value, (int) gridBanks.size()))
    {
        for (int program = 0; program < AutoBank::numPrograms; ++program)
        {
            rowPrograms.add (program);
            rowBanks.add (value);
        }
    }
    else if (mode == 1)
    {
        for (int bank = 0; bank < (int) gridBanks.size(); ++bank)
        {
            for (int program = 0; program < AutoBank::numPrograms; ++program)
            {
                if (storedProgram (*gridBanks[(size_t) bank], program)[2 * categoryWord] == value)
                {
                    rowPrograms.add (program);
                    rowBanks.add (bank);
                }
            }
        }
    }

    rowCount = rowPrograms.size();
    repaint();
}

juce::String IvrGrid::FormatBANK (int row) const
{
    return juce::String::charToString ((juce::juce_wchar) (65 + rowBanks[row])) + ":" + juce::String (rowPrograms[row] + 1).paddedLeft ('0', 3);
}

void IvrGrid::copyBank (int index, const AutoBank& source)
{
    if (juce::isPositiveAndBelow (index, (int) gridBanks.size()))
        gridBanks[(size_t) index]->bankData.copyFrom (source.bankData.getData(), 0, (size_t) AutoBank::bankBytes);
}

void IvrGrid::showProgram (int bank, int program)
{
    for (int row = 0; row < rowCount; ++row)
    {
        if (rowBanks.getUnchecked (row) == bank && rowPrograms.getUnchecked (row) == program)
        {
            selectedRow = row;
            selectedBank = bank;
            selectedProgram = program;
            scrollTo (row);
            return;
        }
    }
}

juce::Rectangle<int> IvrGrid::selectedRowArea() const
{
    const int shown = selectedRow - firstRow;
    if (selectedRow < 0 || shown < 0 || shown >= visibleRows())
        return getLocalBounds();
    return { 0, shown * rowHeight, getWidth(), rowHeight };
}

int IvrGrid::visibleRows() const
{
    return rowHeight > 0 ? getHeight() / rowHeight : 0;
}

void IvrGrid::setTextColours (std::array<juce::uint32, 6> colours)
{
    textColours = colours;
}

int IvrGrid::limitedScroll (int position) const
{
    return juce::jmax (0, juce::jmin (position, rowCount - visibleRows()));
}

void IvrGrid::scrollTo (int position)
{
    firstRow = thumbPosition = lastThumbPosition = limitedScroll (position);
    repaint();
}

int IvrGrid::thumbTravel() const
{
    return visibleRows() * rowHeight - thumbHeight;
}

void IvrGrid::mouseDown (const juce::MouseEvent& e)
{
    inList = false;
    onThumb = false;
    const int listRight = getWidth() - thumbWidth;

    if (e.x >= 1 && e.x < listRight)
    {
        inList = true;
        const int row = juce::jmin (juce::jmax (firstRow + e.y / rowHeight, 0), rowCount - 1);
        selectedRow = row;
        // An empty list has no row to act on.
        if (row < 0)
            return;

        selectedProgram = rowPrograms.getUnchecked (row);
        selectedBank = rowBanks.getUnchecked (row);
        action = actionRow;
        repaint();
        sendChangeMessage();

        if ((e.mods.getRawFlags() & popupClickMask) == 0)
            return;

        // Each column is measured against the width of the one after it: with the grid's widths the
        // category menu answers from x 130 on.
        int column = columnCount;
        for (int i = 0, s = 0; i < columnCount; ++i)
        {
            if (e.x > s && e.x < s + columnWidths[i + 1])
            {
                column = i;
                break;
            }
            s += columnWidths[i];
        }
        action = column == 2 ? actionCategoryMenu : actionProgramMenu;
        sendChangeMessage();
    }
    else if (e.x > listRight)
    {
        onThumb = true;
    }
}

void IvrGrid::mouseDrag (const juce::MouseEvent& e)
{
    const int visible = visibleRows();

    if (onThumb)
    {
        const int travel = thumbTravel();
        if (travel <= 0)
            return;
        rowsPerPixel = (float) (rowCount - visible) / (float) travel;
        int p = juce::jmax (0, e.y - thumbHeight);
        if (p > travel)
            p = travel + 1;
        const int position = (int) (rowsPerPixel * (float) p);
        if (position == lastThumbPosition)
            return;
        lastThumbPosition = position;
        thumbPosition = limitedScroll (position);
        firstRow = juce::jmax (0, juce::jmin (thumbPosition, rowCount - 1));
        repaint();
    }
    else if (inList)
    {
        // Held below or above the list, the list runs on by a row per movement of the mouse.
        if (e.y > getHeight())
            scrollTo (firstRow + 1);
        else if (e.y < 0)
            scrollTo (firstRow - 1);
    }
}

void IvrGrid::mouseDoubleClick (const juce::MouseEvent&)
{
    action = actionDoubleClick;
    sendChangeMessage();
}

void IvrGrid::mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails& wheel)
{
    // A row per event, however far the wheel or pad says it moved.
    if (wheel.deltaY < 0.0f)
        ++thumbPosition;
    else if (wheel.deltaY > 0.0f)
        --thumbPosition;

    if (thumbPosition == lastThumbPosition)
        return;
    scrollTo (thumbPosition);
}

IvrGrid::RowText IvrGrid::rowText (int row) const
{
    const auto* program = storedProgram (*gridBanks[(size_t) rowBanks.getUnchecked (row)], rowPrograms.getUnchecked (row));
    return { FormatBANK (row), nameLine (program, 0), nameLine (program, lineLength), AutoBank::Category (program[2 * categoryWord]) };
}

void IvrGrid::paintRow (juce::Graphics& g, int row, int y, bool selected, const juce::Font& font) const
{
    const int w = columnWidths[0] + 4 + columnWidths[1] + columnWidths[2];
    const int y0 = y + textSize + 4;
    const auto text = rowText (row);
    const auto* colours = textColours.data() + (selected ? 3 : 0);

    g.drawImage (ruleImage, 0, y, w, 3, 0, 0, w, 3);

    const auto fill = selected ? selectedFill : rowFill;
    if (fill != 0)
    {
        g.setColour (juce::Colour (fill));
        g.fillRect (0, y, w, selected ? rowHeight + 3 : rowHeight - 1);
    }

    g.setFont (font);
    g.setColour (juce::Colour (colours[0]));
    // A long place is narrowed to its column rather than run into the name.
    const float placeWidth = font.getStringWidthFloat (text.place);
    const float room = (float) (columnWidths[0] - 3);
    if (placeWidth > room)
    {
        juce::Graphics::ScopedSaveState save (g);
        g.addTransform (juce::AffineTransform::scale (room / placeWidth, 1.0f, 7.0f, 0.0f));
        g.drawSingleLineText (text.place, 7, y0);
    }
    else
    {
        g.drawSingleLineText (text.place, 7, y0);
    }
    g.setColour (juce::Colour (colours[1]));
    g.drawSingleLineText (text.firstLine, columnWidths[0] + 6, y0);
    g.drawSingleLineText (text.secondLine, columnWidths[0] + 6, y0 + textSize + 1);
    g.setColour (juce::Colour (colours[2]));
    g.drawSingleLineText (text.category, columnWidths[0] + 4 + columnWidths[1] + 2, y0);
}

void IvrGrid::paint (juce::Graphics& g)
{
    const int visible = visibleRows();
    const juce::Font plain ("Arial", (float) textSize, juce::Font::plain);
    const juce::Font bold ("Arial", (float) textSize, juce::Font::bold);

    for (int i = 0; i < juce::jmin (visible, rowCount); ++i)
    {
        const int row = firstRow + i;
        if (! juce::isPositiveAndBelow (row, rowCount))
            break;
        paintRow (g, row, i * rowHeight, row == selectedRow, row == selectedRow ? bold : plain);
    }

    const int travel = thumbTravel();
    if (rowCount <= visible || travel <= 0)
        return;

    rowsPerPixel = (float) (rowCount - visible) / (float) travel;
    const int x = getWidth() - thumbWidth;
    g.setOpacity ((float) 0x99 / 255.0f);
    g.drawImage (trackImage, x, 0, 29, visible * rowHeight, 0, 0, 36, 325);
    g.setOpacity ((float) 0xe6 / 255.0f);
    g.drawImage (thumbImage, x + thumbWidth / 18, (int) ((float) thumbPosition / rowsPerPixel), thumbWidth, thumbHeight,
                 0, 0, thumbImage.getWidth(), thumbImage.getHeight());
}

void IvrGrid::resized()
{
    gridWidth = getWidth();
}
