#include "librarian/LibraryIndex.h"

#include "sound/AutoBank.h"

#include <algorithm>
#include <unordered_map>

namespace
{
constexpr int categoryWord = 150;
constexpr int firstNameWord = 151;
constexpr int nameWords = 24;

bool outsideName (int word) { return word < firstNameWord || word >= firstNameWord + nameWords; }

// Groups the programs whose words are equal, the name aside or not: each program's group is the
// first program of the index with the same words, found through one hash table.
template <bool withName>
void groupBy (std::vector<LibraryIndex::Program>& programs, int LibraryIndex::Program::*group, int LibraryIndex::Program::*twins)
{
    const auto hash = [&programs] (int i)
    {
        size_t h = 1469598103934665603ull;
        const auto& w = programs[(size_t) i].words;
        for (int k = 0; k < (int) w.size(); ++k)
            if (withName || outsideName (k))
                h = (h ^ w[(size_t) k]) * 1099511628211ull;
        return h;
    };
    const auto equal = [&programs] (int a, int b)
    {
        const auto& x = programs[(size_t) a].words;
        const auto& y = programs[(size_t) b].words;
        if (withName)
            return x == y;
        return std::equal (x.begin(), x.begin() + firstNameWord, y.begin())
               && std::equal (x.begin() + firstNameWord + nameWords, x.end(), y.begin() + firstNameWord + nameWords);
    };

    std::unordered_map<int, int, decltype (hash), decltype (equal)> firsts (programs.size() * 2 + 1, hash, equal);
    std::vector<int> sizes (programs.size(), 0);
    for (int i = 0; i < (int) programs.size(); ++i)
    {
        const int first = firsts.try_emplace (i, i).first->second;
        programs[(size_t) i].*group = first;
        ++sizes[(size_t) first];
    }
    for (auto& p : programs)
        p.*twins = sizes[(size_t) (p.*group)] - 1;
}
} // namespace

juce::String LibraryIndex::Program::place() const
{
    return SoundFileReader::Program { bank, number, {} }.place();
}

bool LibraryIndex::isSoundFile (const juce::File& file)
{
    const auto extension = file.getFileExtension().toLowerCase();
    return extension == ".syx" || extension == ".tkbn" || extension == ".tkp" || extension == ".tkr";
}

std::shared_ptr<const LibraryIndex> LibraryIndex::build (const juce::File& folder, const LibraryIndex* previous,
                                                         std::function<bool (int, int)> progress)
{
    auto index = std::make_shared<LibraryIndex>();
    index->folder = folder;

    juce::Array<juce::File> files;
    if (folder.isDirectory())
        for (const auto& entry : juce::RangedDirectoryIterator (folder, true, "*", juce::File::findFilesAndDirectories | juce::File::ignoreHiddenFiles))
            if (isSoundFile (entry.getFile()))
                files.add (entry.getFile());

    juce::StringArray names;
    for (auto& file : files)
        names.add (file.getRelativePathFrom (folder).replaceCharacter ('\\', '/'));
    std::vector<int> order ((size_t) files.size());
    for (int i = 0; i < files.size(); ++i)
        order[(size_t) i] = i;
    std::sort (order.begin(), order.end(), [&names] (int a, int b) { return names[a].compareNatural (names[b]) < 0; });

    // What the previous index knows, by path.
    std::unordered_map<std::string, const Source*> known;
    if (previous != nullptr)
        for (auto& source : previous->sources)
            known.emplace (source.file.getFullPathName().toStdString(), &source);

    juce::Array<unsigned char> packed;
    packed.resize (AutoBank::packedBytes);
    juce::Array<unsigned short> words;
    const int total = (int) order.size();
    for (int done = 0; done < total; ++done)
    {
        if (progress && ! progress (done, total))
            return nullptr;

        const auto& file = files.getReference (order[(size_t) done]);
        Source source;
        source.file = file;
        source.name = names[order[(size_t) done]];
        source.size = file.isDirectory() ? 0 : file.getSize();
        source.modified = file.getLastModificationTime();
        source.first = (int) index->programs.size();
        const int sourceIndex = (int) index->sources.size();

        auto found = known.find (file.getFullPathName().toStdString());
        if (found != known.end() && ! file.isDirectory() && found->second->size == source.size && found->second->modified == source.modified)
        {
            const auto& old = *found->second;
            source.kind = old.kind;
            source.problem = old.problem;
            for (int i = old.first; i < old.first + old.count; ++i)
            {
                index->programs.push_back (previous->programs[(size_t) i]);
                index->programs.back().source = sourceIndex;
            }
        }
        else
        {
            const auto contents = SoundFileReader::read (file);
            source.kind = contents.kind;
            source.problem = contents.problem;
            for (auto& read : contents.programs)
            {
                std::copy (read.packed.begin(), read.packed.end(), packed.begin());
                AutoBank::UnPack_Patch_Tolk (packed, words);
                Program p;
                p.source = sourceIndex;
                p.bank = read.bank;
                p.number = read.number;
                for (int k = 0; k < (int) p.words.size(); ++k)
                    p.words[(size_t) k] = words[k];
                p.category = p.words[categoryWord] & 0xFF;
                p.name = SoundFileReader::nameOf (words);
                p.folded = p.name.toLowerCase();
                index->programs.push_back (std::move (p));
            }
        }
        source.count = (int) index->programs.size() - source.first;
        index->sources.push_back (std::move (source));
    }
    if (progress && ! progress (total, total))
        return nullptr;

    index->countTwins();
    return index;
}

void LibraryIndex::countTwins()
{
    groupBy<false> (programs, &Program::soundGroup, &Program::soundTwins);
    groupBy<true> (programs, &Program::exactGroup, &Program::exactTwins);
}

std::vector<int> LibraryIndex::find (const Query& query) const
{
    const auto text = query.text.toLowerCase();
    const bool anyText = text.isEmpty();
    const int twinGroup = juce::isPositiveAndBelow (query.twinsOf, (int) programs.size()) ? programs[(size_t) query.twinsOf].soundGroup : -1;

    std::vector<int> rows;
    for (int i = 0; i < (int) programs.size(); ++i)
    {
        const auto& p = programs[(size_t) i];
        if ((query.category >= 0 && p.category != query.category) || (query.source >= 0 && p.source != query.source)
            || (query.duplicates == Duplicates::sameSound && p.soundTwins == 0)
            || (query.duplicates == Duplicates::sameSoundAndName && p.exactTwins == 0)
            || (query.twinsOf >= 0 && p.soundGroup != twinGroup) || (! anyText && ! p.folded.contains (text)))
            continue;
        rows.push_back (i);
    }

    if (query.duplicates != Duplicates::all)
    {
        const auto group = query.duplicates == Duplicates::sameSound ? &Program::soundGroup : &Program::exactGroup;
        std::stable_sort (rows.begin(), rows.end(), [this, group] (int a, int b)
                          { return programs[(size_t) a].*group < programs[(size_t) b].*group; });
    }
    return rows;
}

juce::Array<unsigned short> LibraryIndex::wordsOf (int index) const
{
    juce::Array<unsigned short> words;
    if (juce::isPositiveAndBelow (index, (int) programs.size()))
        words.addArray (programs[(size_t) index].words.data(), (int) programs[(size_t) index].words.size());
    return words;
}

int LibraryIndex::skippedFiles() const
{
    return (int) std::count_if (sources.begin(), sources.end(), [] (const Source& s) { return s.problem.isNotEmpty(); });
}
