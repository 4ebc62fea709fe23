#pragma once

#include "librarian/IvrGrid.h"

// The grid of the library window: the bank grid's behaviour in the library's colours.
class IvrGridLib : public IvrGrid
{
public:
    IvrGridLib();

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (IvrGridLib)
};
