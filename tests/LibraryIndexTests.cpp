#include <gtest/gtest.h>

#include "LibraryFolder.h"
#include "librarian/LibraryIndex.h"

namespace
{
using Duplicates = LibraryIndex::Duplicates;
using Row = LibraryFolder::Row;

struct LibraryIndexTest : ::testing::Test
{
    static void SetUpTestSuite()
    {
        folder = std::make_unique<LibraryFolder> (juce::Random::getSystemRandom().nextInt64());
        index = LibraryIndex::build (folder->dir(), nullptr);
    }
    static void TearDownTestSuite() { index.reset(); folder.reset(); }

    static int rowOf (const juce::String& source, const juce::String& place)
    {
        const auto& rows = folder->rows;
        return (int) (std::find_if (rows.begin(), rows.end(), [&] (auto& r) { return r.source == source && r.place == place; }) - rows.begin());
    }

    // The folder's rows that match, in path order.
    static std::vector<int> rowsWhere (std::function<bool (const Row&, int)> match)
    {
        std::vector<int> rows;
        for (int i = 0; i < (int) folder->rows.size(); ++i)
            if (match (folder->rows[(size_t) i], i))
                rows.push_back (i);
        return rows;
    }

    static inline std::unique_ptr<LibraryFolder> folder;
    static inline std::shared_ptr<const LibraryIndex> index;
};
} // namespace

TEST_F (LibraryIndexTest, HoldsEveryProgramWithItsSourceAndPlaceAndNamesEverySkippedFile)
{
    ASSERT_EQ (index->sources.size(), folder->sources.size());
    for (size_t i = 0, first = 0; i < folder->sources.size(); first += (size_t) index->sources[i++].count)
    {
        const auto& [name, kind, problem, count] = folder->sources[i];
        const auto& s = index->sources[i];
        EXPECT_EQ (s.name + "|" + s.kind + "|" + s.problem + "|" + juce::String (s.count) + "|" + juce::String (s.first),
                   name + "|" + kind + "|" + problem + "|" + juce::String (count) + "|" + juce::String (first));
    }
    EXPECT_EQ (index->skippedFiles(), 5);

    ASSERT_EQ (index->programs.size(), folder->rows.size());
    for (size_t i = 0; i < folder->rows.size(); ++i)
    {
        const auto& p = index->programs[i];
        const auto& row = folder->rows[i];
        ASSERT_EQ (index->sources[(size_t) p.source].name + " " + p.place() + " " + p.name, row.source + " " + row.place + " " + row.name());
        EXPECT_EQ (p.category, row.words[150] & 0xFF) << i;
        EXPECT_EQ (index->wordsOf ((int) i), row.words) << i;
    }
}

TEST_F (LibraryIndexTest, FindMatchesNameInAnyCaseCategoryAndSourceTogether)
{
    const int category = folder->rows[(size_t) rowOf ("renamed.tkp", "1")].words[150] & 0xFF;
    const auto in = [&] (const Row& r) { return (r.words[150] & 0xFF) == category; };
    const std::pair<LibraryIndex::Query, std::function<bool (const Row&)>> cases[] = {
        { { "tWIN OF" }, [] (auto& r) { return r.name().containsIgnoreCase ("twin of"); } },
        { { "A" }, [] (auto& r) { return r.name().containsIgnoreCase ("a"); } },
        { { {}, category }, in },
        { { "E", category }, [&] (auto& r) { return in (r) && r.name().containsIgnoreCase ("e"); } },
        { { {}, -1, 2 }, [] (auto& r) { return r.source == "dumps.syx"; } },
        { { "no such name" }, [] (auto&) { return false; } },
    };
    for (auto& [query, match] : cases)
        EXPECT_EQ (index->find (query), rowsWhere ([&] (auto& r, int) { return match (r); })) << query.text << " " << query.category;
}

TEST_F (LibraryIndexTest, DuplicatesStandSideBySideInTheOrderOfTheirFirst)
{
    for (const bool withName : { false, true })
    {
        // Each row's group is the first row with the same words: all pairs compared.
        const auto same = [withName] (const Row& a, const Row& b)
        {
            for (int k = 0; k < 200; ++k)
                if ((withName || k < 151 || k >= 175) && a.words[k] != b.words[k])
                    return false;
            return true;
        };
        std::vector<int> group, size (folder->rows.size(), 0);
        for (auto& row : folder->rows)
        {
            int j = 0;
            while (! same (folder->rows[(size_t) j], row))
                ++j;
            group.push_back (j);
            ++size[(size_t) j];
        }
        auto expected = rowsWhere ([&] (auto&, int i) { return size[(size_t) group[(size_t) i]] > 1; });
        std::sort (expected.begin(), expected.end(), [&] (int a, int b) { return std::pair (group[(size_t) a], a) < std::pair (group[(size_t) b], b); });
        EXPECT_EQ (index->find ({ {}, -1, -1, withName ? Duplicates::sameSoundAndName : Duplicates::sameSound }), expected) << withName;
    }

    // A program under another name sounds the same; numbered dumps copied from a bank are the same.
    const int six = rowOf ("bank2.tkbn", "6"), twin = rowOf ("renamed.tkp", "1");
    EXPECT_EQ (index->find ({ {}, -1, -1, Duplicates::all, twin }), (std::vector<int> { six, twin }));
    EXPECT_EQ (index->programs[(size_t) twin].exactTwins, 0);
    EXPECT_EQ (index->programs[(size_t) rowOf ("dumps.syx", "21")].exactGroup, rowOf ("bank10.TKBN", "1"));
}

TEST (LibraryIndex, RescanSeesAddedRemovedAndChangedFilesAndReusesTheRest)
{
    LibraryFolder folder (1);
    std::vector<std::pair<int, int>> heard;
    const auto first = LibraryIndex::build (folder.dir(), nullptr, [&] (int done, int all) { heard.push_back ({ done, all }); return true; });
    EXPECT_EQ (heard.back(), std::make_pair (11, 11));
    EXPECT_EQ (LibraryIndex::build (folder.dir(), nullptr, [] (int done, int) { return done < 3; }), nullptr);

    AutoBank ridge (0);
    ridge.PreloadFactoryData (4, 0);
    const auto file = [&] (const juce::String& name) { return folder.dir().getChildFile (name); };
    ASSERT_TRUE (file ("frames.syx").deleteFile());
    folder.write ("added.tkbn", FileMan::Bank_File_Data (ridge));
    // New content of the same length, then once with a new time and once with the old one: only a
    // file read again shows it.
    const auto changedTime = file ("renamed.tkp").getLastModificationTime();
    const auto keptTime = file ("bank2.tkbn").getLastModificationTime();
    ridge.BankToPatch (3);
    folder.write ("renamed.tkp", FileMan::Program_File_Data (ridge, 0));
    folder.write ("bank2.tkbn", FileMan::Bank_File_Data (ridge));
    file ("renamed.tkp").setLastModificationTime (changedTime + juce::RelativeTime::seconds (2));
    file ("bank2.tkbn").setLastModificationTime (keptTime);

    const auto rescan = LibraryIndex::build (folder.dir(), first.get());
    juce::StringArray names;
    for (auto& s : rescan->sources)
        names.add (s.name + ":" + juce::String (s.count));
    EXPECT_EQ (names.joinIntoString (" "), juce::String ("added.tkbn:128 bank2.tkbn:128 bank10.TKBN:128 dumps.syx:10 empty.tkp:0 "
                                                         "garbage.syx:0 huge.syx:0 renamed.tkp:1 sets/Core.tkr:896 short.tkbn:0 x.tkbn:0"));
    const auto fresh = LibraryIndex::build (folder.dir(), nullptr);
    ASSERT_EQ (rescan->programs.size(), fresh->programs.size());
    const auto row = [] (const LibraryIndex& x, int i)
    {
        const auto& p = x.programs[(size_t) i];
        return x.sources[(size_t) p.source].name + " " + p.place() + " " + p.name;
    };
    for (int i = 0; i < (int) fresh->programs.size(); ++i)
    {
        const bool kept = i >= 128 && i < 256; // bank2.tkbn, behind the added bank
        const auto& [index, at] = kept ? std::pair (first.get(), i - 128) : std::pair (fresh.get(), i);
        EXPECT_EQ (row (*rescan, i), row (*index, at));
        EXPECT_EQ (rescan->wordsOf (i), index->wordsOf (at)) << i;
    }
    // The changed program file is now an exact copy of the added bank's fourth program.
    EXPECT_EQ (rescan->programs[128 * 3 + 10].exactGroup, 3);
}
