#pragma once

#include "librarian/LibraryIndex.h"

#include <atomic>
#include <memory>

// Builds a library index on a thread of its own, so that reading a large folder never holds up the
// editor. The message thread polls `filesDone`/`filesTotal` for its progress display and takes the
// index once `finished` is set. Destroying the scan stops it.
class LibraryScan : private juce::Thread
{
public:
    LibraryScan (const juce::File& folder, std::shared_ptr<const LibraryIndex> previous);
    ~LibraryScan() override;

    // The finished index: nullptr until then, and after a stop.
    std::shared_ptr<const LibraryIndex> result() const;

    std::atomic<int> filesDone { 0 }, filesTotal { 0 };
    std::atomic<bool> finished { false };

private:
    void run() override;

    const juce::File folder;
    const std::shared_ptr<const LibraryIndex> previous;
    // Written once on the scan's thread before `finished`, read after it.
    std::shared_ptr<const LibraryIndex> built;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (LibraryScan)
};
