#include "librarian/IvrGrid.h"

#include "sound/AutoBank.h"

IvrGrid::IvrGrid()
{
    for (int i = 0; i < (int) gridBanks.size(); ++i)
        gridBanks[(size_t) i] = std::make_unique<AutoBank> (i);
}

IvrGrid::~IvrGrid() = default;

void IvrGrid::Initialize (juce::Array<int> widths)
{
    columnWidths = widths;
    selectedRow = -1;
    firstRow = thumbPosition = lastThumbPosition = 0;
}

void IvrGrid::Populate (int mode, int value)
{
    rowPrograms.clearQuick();
    rowBanks.clearQuick();
    selectedRow = -1;
    firstRow = thumbPosition = 0;

    if (mode == 0 && juce::isPositiveAndBelow (value, (int) gridBanks.size()))
    {
        for (int program = 0; program < AutoBank::numPrograms; ++program)
        {
            rowPrograms.add (program);
            rowBanks.add (value);
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

void IvrGrid::showProgram (int, int) {}

int IvrGrid::visibleRows() const
{
    return rowHeight > 0 ? getHeight() / rowHeight : 0;
}

void IvrGrid::setTextColours (std::array<juce::uint32, 6> colours)
{
    textColours = colours;
}

void IvrGrid::mouseDown (const juce::MouseEvent&) {}
void IvrGrid::mouseDrag (const juce::MouseEvent&) {}
void IvrGrid::mouseDoubleClick (const juce::MouseEvent&) {}
void IvrGrid::mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails&) {}
void IvrGrid::paint (juce::Graphics&) {}

void IvrGrid::resized()
{
    gridWidth = getWidth();
}
