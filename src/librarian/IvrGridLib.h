#pragma once

#include "librarian/IvrGrid.h"
#include "librarian/LibraryIndex.h"

#include <memory>
#include <vector>

// The grid of the library window: the bank grid's behaviour in the library's colours, listing
// programs of the library index. A row's place is its source's number in the source list and its
// place in that file ("3:017", "12:C017"); rowPrograms holds the programs' numbers in the index,
// rowBanks their sources, so selectedProgram and selectedBank name them after a press.
class IvrGridLib : public IvrGrid
{
public:
    IvrGridLib();

    // Lists `rows` of `index`, from the top, with nothing selected.
    void list (std::shared_ptr<const LibraryIndex> index, const std::vector<int>& rows);

    std::shared_ptr<const LibraryIndex> index;

protected:
    RowText rowText (int row) const override;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (IvrGridLib)
};
