#include "librarian/LibraryScan.h"

LibraryScan::LibraryScan (const juce::File& folderToRead, std::shared_ptr<const LibraryIndex> previousIndex)
    : juce::Thread ("Library scan"), folder (folderToRead), previous (std::move (previousIndex))
{
    startThread();
}

LibraryScan::~LibraryScan()
{
    // The build looks at the flag between files, and no file takes long to read.
    stopThread (10000);
}

std::shared_ptr<const LibraryIndex> LibraryScan::result() const
{
    return finished.load (std::memory_order_acquire) ? built : nullptr;
}

void LibraryScan::run()
{
    built = LibraryIndex::build (folder, previous.get(), [this] (int done, int total)
    {
        filesDone = done;
        filesTotal = total;
        return ! threadShouldExit();
    });
    finished.store (true, std::memory_order_release);
}
