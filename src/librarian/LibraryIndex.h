#pragma once

#include "sound/SoundFileReader.h"

#include <array>
#include <functional>
#include <memory>
#include <vector>

// Every program of every sound file in a folder and its sub-folders, read once and kept with its
// name, category, source file and place. An index never changes once built: a rescan builds a new
// one, reusing what it knows of files that have not changed, so that the message thread can keep
// listing from the old one meanwhile.
class LibraryIndex
{
public:
    using Words = std::array<unsigned short, 200>;

    struct Source
    {
        juce::File file;
        juce::String name;     // the path below the folder, with "/"
        juce::int64 size = 0;
        juce::Time modified;
        juce::String kind;     // as SoundFileReader gives it
        juce::String problem;  // why it was skipped, empty when it was read
        int first = 0;         // its programs are first .. first + count - 1
        int count = 0;
    };

    struct Program
    {
        int source = 0;
        int bank = -1;          // as SoundFileReader::Program
        int number = 0;
        int category = 0;       // the low byte of word 150
        juce::String name;      // the 24 characters as SoundFileReader::nameOf gives them
        juce::String folded;    // the name in lower case, for searching
        Words words {};
        int soundTwins = 0;     // other programs with the same words, the name aside
        int exactTwins = 0;     // other programs with the same words, the name included
        int soundGroup = 0;     // the first program of the index that sounds the same
        int exactGroup = 0;     // the first program of the index that is the same, name included

        // "17" or "C:17", as SoundFileReader::Program::place.
        juce::String place() const;
    };

    enum class Duplicates { all, sameSound, sameSoundAndName };

    // What a view lists. Every part that is set must match.
    struct Query
    {
        juce::String text;      // part of the name, any case
        int category = -1;      // 0 to 31, or -1 for any
        int source = -1;        // a source's index, or -1 for any
        Duplicates duplicates = Duplicates::all;
        int twinsOf = -1;       // only this program and those that sound the same
    };

    // The sound files that the library reads.
    static bool isSoundFile (const juce::File& file);

    // Reads every sound file below `folder`, in the order of their paths. Files that `previous`
    // read with the same size and time are taken from it without reading them again.
    // `progress` hears (files done, files in all) and answers false to stop: the build then
    // returns nullptr.
    static std::shared_ptr<const LibraryIndex> build (const juce::File& folder, const LibraryIndex* previous,
                                                      std::function<bool (int, int)> progress = {});

    // The programs that match, in index order; sound duplicates side by side, in the order of the
    // first of each group, when the query asks for duplicates.
    std::vector<int> find (const Query& query) const;

    // The words of program `index` as the plug-in's stores hold them.
    juce::Array<unsigned short> wordsOf (int index) const;

    int skippedFiles() const;

    juce::File folder;
    std::vector<Source> sources;
    std::vector<Program> programs;

private:
    void countTwins();
};
