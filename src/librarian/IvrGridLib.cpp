#include "librarian/IvrGridLib.h"

#include "sound/AutoBank.h"

IvrGridLib::IvrGridLib()
{
    setTextColours ({ 0xff00bbbb, 0xff80ffff, 0xffcccccc, 0xff00cccc, 0xff80ffff, 0xffbbbbbb });
}

void IvrGridLib::list (std::shared_ptr<const LibraryIndex> newIndex, const std::vector<int>& rows)
{
    // Populate with no rows clears the selection and the scroll.
    Populate (-1, 0);
    index = std::move (newIndex);
    if (index != nullptr)
    {
        rowPrograms.ensureStorageAllocated ((int) rows.size());
        rowBanks.ensureStorageAllocated ((int) rows.size());
        for (auto program : rows)
        {
            rowPrograms.add (program);
            rowBanks.add (index->programs[(size_t) program].source);
        }
    }
    rowCount = rowPrograms.size();
    repaint();
}

IvrGrid::RowText IvrGridLib::rowText (int row) const
{
    const auto& p = index->programs[(size_t) rowPrograms.getUnchecked (row)];
    auto place = juce::String (p.source + 1) + ":";
    if (p.bank >= 0)
        place << juce::String::charToString ((juce::juce_wchar) ('A' + p.bank));
    place << juce::String (p.number + 1).paddedLeft ('0', 3);
    return { place, p.name.substring (0, 12), p.name.substring (12, 24), AutoBank::Category (p.category) };
}
