#include <algorithm>
#include <filesystem>
#include <random>
#include <vector>

#include "engine/file/verify.h"
#include "raw_database.h"

using namespace rawdb;
using engine::file::damagedText;
using engine::file::verifyLog;
using engine::file::verifyPages;

namespace {

constexpr std::size_t page = 4096;

// What a user of the file gets: an error from examining or from reading all, or the rows.
std::string readAll(const std::string& path) {
  if (const Outcome outcome = examined(path); outcome.number != 0) return "refused: " + outcome.text;
  Connection connection(path);
  if (connection.code() != SQLITE_OK) return "refused";
  return connection.ask(
      "SELECT count(*)||' '||total(length(headword)+length(note)) FROM d.words NOT INDEXED");
}

// Files as a killed process leaves them: the last rows stand in the log only.
void makeWithLog(const std::string& path, int rows) {
  const std::string live = path + ".live";
  Connection writer(live);
  writer.ask("PRAGMA d.journal_mode=WAL");
  writer.must("PRAGMA d.wal_autocheckpoint=0");
  writer.must("CREATE TABLE d.words(id INTEGER PRIMARY KEY, headword TEXT, note TEXT)");
  for (int i = 1; i <= rows; ++i)
    writer.must("INSERT INTO d.words VALUES(" + std::to_string(i) + ",'Headword',printf('%03000d',1))");
  std::filesystem::copy_file(live, path);
  std::filesystem::copy_file(live + "-wal", path + "-wal");
}

}  // namespace

TEST(Damage, EveryFlippedByteIsNoticed) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb";
  makeWords(path, 120);
  const std::string good = contents(path);
  std::mt19937 random(7);
  std::vector<std::size_t> places;
  for (std::size_t start = 0; start < good.size(); start += page) {
    for (const std::size_t within : {0, 3, 15, 16, 20, 23, 24, 100, 4039, 4040, 4063, 4064, 4079, 4080, 4095})
      places.push_back(start + within);
    for (int i = 0; i < 5; ++i) places.push_back(start + random() % page);
  }
  for (const std::size_t place : places) {
    std::string bad = good;
    bad[place] = static_cast<char>(bad[place] ^ (1 << random() % 8));
    overwrite(path, bad);
    const auto check = verifyPages(path, owner);
    ASSERT_EQ(check.bad, std::vector<std::uint32_t>{static_cast<std::uint32_t>(place / page + 1)})
        << "byte " << place;
    if (place < page) {
      EXPECT_EQ(examined(path).text, damagedText(path)) << "byte " << place;
    }
  }
}

TEST(Damage, SwappedZeroedAndForeignPagesAreNoticed) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb", twin = folder / "twin.cvb";
  makeWords(path, 300);
  makeWords(twin, 300);  // the same content and credential under another salt
  const std::string good = contents(path), other = contents(twin);
  const std::string rows = readAll(path);
  const std::uint32_t last = static_cast<std::uint32_t>(good.size() / page);
  const auto damagedBy = [&](auto damage) {
    std::string bad = good;
    damage(bad);
    overwrite(path, bad);
    EXPECT_NE(readAll(path), rows);
    return verifyPages(path, owner).bad;
  };
  using Pages = std::vector<std::uint32_t>;
  EXPECT_EQ(damagedBy([](std::string& file) {
              std::swap_ranges(&file[4 * page], &file[5 * page], &file[6 * page]);
            }),
            (Pages{5, 7}));
  EXPECT_EQ(damagedBy([](std::string& file) { std::fill_n(&file[4 * page], page, '\0'); }), Pages{5});
  EXPECT_EQ(damagedBy([&](std::string& file) { file.replace(4 * page, page, other, 4 * page, page); }),
            Pages{5});
  EXPECT_EQ(damagedBy([&](std::string& file) { file.replace(0, page, other, 0, page); }), Pages{1});
  EXPECT_EQ(damagedBy([&](std::string& file) { std::fill_n(&file[(last - 1) * page], page, 'x'); }),
            Pages{last});
}

TEST(Damage, EachCutIsCalledSo) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb";
  makeWords(path, 200);
  const std::string good = contents(path);
  for (std::size_t size = page; size < good.size(); size += page) {
    overwrite(path, good.substr(0, size));
    EXPECT_EQ(examined(path).text, damagedText(path)) << size;
    EXPECT_EQ(verifyPages(path, owner).expected, good.size() / page);
  }
  for (const std::size_t size :
       {std::size_t{16}, std::size_t{100}, page - 1, page + 1, 5 * page + 2000, good.size() - 1}) {
    overwrite(path, good.substr(0, size));
    EXPECT_EQ(examined(path).text, damagedText(path)) << size;
  }
}

TEST(Damage, RandomPagesNeverBreakTheReader) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb";
  makeWithLog(path, 60);
  const std::string file = contents(path), log = contents(path + "-wal");
  const std::string rows = readAll(path);
  EXPECT_EQ(rows.substr(0, 3), "60 ");
  std::mt19937 random(11);
  for (int round = 0; round < 60; ++round) {
    std::string badFile = file, badLog = log;
    for (std::string* bad : {&badFile, &badLog})
      for (int hits = static_cast<int>(random() % 4); hits > 0; --hits) {
        const std::size_t start = random() % bad->size(),
                          size = std::min<std::size_t>(random() % (2 * page), bad->size() - start);
        for (std::size_t i = start; i < start + size; ++i) (*bad)[i] = static_cast<char>(random());
      }
    overwrite(path, badFile);
    overwrite(path + "-wal", badLog);
    const std::string answer = readAll(path);
    const bool fewer =
        std::atoi(answer.c_str()) <= 60 || answer.starts_with("refused") || answer.starts_with("failed");
    EXPECT_TRUE(fewer) << answer;
    std::filesystem::remove(path + "-shm");
  }
}

TEST(Damage, AFlipInTheLogLosesNoOlderCommitAndIsWarnedOf) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb";
  makeWithLog(path, 20);
  const std::string file = contents(path), log = contents(path + "-wal");
  const auto whole = verifyLog(path, owner);
  EXPECT_EQ(whole.behind, 0U);
  ASSERT_EQ(whole.valid, (log.size() - 32) / 4120);
  for (std::uint32_t frame = 0; frame < whole.valid; frame += 5)
    for (const std::size_t within : {0, 3, 4, 7, 8, 16, 23, 24, 2000, 4064, 4119}) {
      std::string bad = log;
      bad[32 + frame * 4120 + within] ^= 1;
      overwrite(path + "-wal", bad);
      const auto check = verifyLog(path, owner);
      EXPECT_EQ(check.valid, frame) << within;
      EXPECT_GE(check.behind + 1, whole.valid - frame) << within;
    }
  for (const std::size_t place : {0, 10, 17, 25}) {  // the log's own header
    std::string bad = log;
    bad[place] ^= 1;
    overwrite(path + "-wal", bad);
    EXPECT_EQ(verifyLog(path, owner).valid, 0U);
    EXPECT_EQ(verifyLog(path, owner).behind, whole.valid);
  }
  // Cut in mid-frame, as by a power loss: what was committed before is there.
  overwrite(path, file);
  overwrite(path + "-wal", log.substr(0, log.size() - 100));
  EXPECT_EQ(readAll(path).substr(0, 3), "19 ");
}

TEST(Damage, ATornFirstPageIsHealedByLogAndJournal) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb";
  for (const std::string mode : {"WAL", "DELETE"}) {
    std::filesystem::remove(path);
    makeWords(path, 50, mode);
    const std::string copy = folder / ("torn" + mode + ".cvb"), beside = mode == "WAL" ? "-wal" : "-journal";
    {
      Connection writer(path);
      if (mode == "WAL") {
        writer.must("PRAGMA d.wal_autocheckpoint=0");
        writer.must("CREATE TABLE d.more(a)");  // puts page 1 into the log
      } else {
        writer.must("PRAGMA d.cache_size=1; BEGIN; CREATE TABLE d.more(a)");
        writer.must("UPDATE d.words SET note=note||'x'");  // spills, so that the journal is written whole
      }
      overwrite(copy, contents(path));
      overwrite(copy + beside, contents(path + beside));
    }
    std::string torn = contents(copy);
    for (std::size_t i = 0; i < 512; ++i) torn[i] = static_cast<char>(i);  // salt and all
    overwrite(copy, torn);
    EXPECT_EQ(examined(copy).number, 0) << mode;
    EXPECT_EQ(readAll(copy).substr(0, 3), "50 ") << mode;
    EXPECT_EQ(verifyPages(copy, owner).bad.size(), 0U) << mode;
  }
}
