#include <algorithm>
#include <filesystem>
#include <set>
#include <vector>

#include "raw_database.h"

using namespace rawdb;

namespace {

// What a stranger must not find: words, field and table names, SQLite's own marks.
std::vector<std::string> readableIn(const std::filesystem::path& folder) {
  std::vector<std::string> found;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string bytes = contents(entry.path());
    for (const std::string mark : {"Geheimwort", "plainnote", "headword", "words", "CREATE", "SQLite",
                                   "Zettel", "VocariumUser", "built-in"})
      if (bytes.find(mark) != std::string::npos)
        found.push_back(entry.path().filename().string() + ": " + mark);
  }
  return found;
}

std::set<std::string> suffixesIn(const std::filesystem::path& folder, const std::string& name) {
  std::set<std::string> suffixes;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string file = entry.path().filename();
    if (file.starts_with(name)) suffixes.insert(file.substr(name.size()));
  }
  return suffixes;
}

}  // namespace

TEST(Secrecy, NothingIsReadableWhileAFileIsWritten) {
  for (const std::string mode : {"WAL", "DELETE"}) {
    const test::TempDir folder;
    const std::string path = folder / "d.cvb";
    makeWords(path, 300, mode);
    Connection writer(path);
    writer.must("PRAGMA d.cache_size=5; PRAGMA d.wal_autocheckpoint=0");
    writer.must("INSERT INTO d.words(headword, note) VALUES('Geheimwort', 'Zettel')");
    EXPECT_EQ(readableIn(folder.path()), std::vector<std::string>{}) << mode << ", committed";
    writer.must(
        "BEGIN; UPDATE d.words SET note = note || 'Zettel'; SAVEPOINT s; UPDATE d.words SET headword = "
        "headword || 'Geheimwort'");
    EXPECT_EQ(
        writer.ask("SELECT count(*) FROM (SELECT DISTINCT note || 'Zettel' FROM d.words ORDER BY note DESC)"),
        "301");
    EXPECT_EQ(suffixesIn(folder.path(), "d.cvb"), mode == "WAL" ? (std::set<std::string>{"", "-wal", "-shm"})
                                                                : (std::set<std::string>{"", "-journal"}));
    EXPECT_EQ(readableIn(folder.path()), std::vector<std::string>{}) << mode << ", uncommitted";
    writer.must("ROLLBACK TO s; COMMIT");
    EXPECT_EQ(writer.ask("SELECT count(*) FROM d.words WHERE note LIKE '%Zettel'"), "301");
  }
}

TEST(Secrecy, EqualContentGivesUnequalFiles) {
  const test::TempDir folder;
  makeWords(folder / "a.cvb", 100);
  makeWords(folder / "b.cvb", 100);
  const std::string a = contents(folder / "a.cvb"), b = contents(folder / "b.cvb");
  ASSERT_EQ(a.size(), b.size());
  std::size_t equal = 0;
  for (std::size_t i = 0; i < a.size(); ++i) equal += a[i] == b[i] ? 1 : 0;
  EXPECT_LT(static_cast<double>(equal), 0.01 * static_cast<double>(a.size()));
  std::set<std::string> nonces;  // none twice, also when a page is written again
  for (int round = 0; round < 20; ++round) {
    {
      Connection writer(folder / "a.cvb");
      writer.must("PRAGMA d.user_version = " + std::to_string(round));  // writes page 1
    }
    nonces.insert(contents(folder / "a.cvb").substr(4040, 24));
  }
  EXPECT_EQ(nonces.size(), 20U);
}

TEST(Secrecy, CopiesThroughSqliteAreEncryptedToo) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb", copy = folder / "copy.cvb";
  makeWords(path, 200);
  {
    Connection connection(path);
    const engine::file::KeyLease lease(copy, {"Anna", "another", false});
    connection.must("VACUUM d INTO '" + copy + "'");
  }
  EXPECT_EQ(examined(copy, {"Anna", "another", false}).number, 0);
  EXPECT_EQ(examined(copy).text, engine::file::otherCredentialText(copy));
  EXPECT_EQ(readableIn(folder.path()), std::vector<std::string>{});
}

TEST(Secrecy, WhatWouldBeReadableIsRefused) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb";
  makeWords(path, 300);
  Connection connection(path);
  EXPECT_NE(connection.run("PRAGMA temp_store=FILE; PRAGMA temp.cache_size=2; CREATE TEMP TABLE t AS SELECT "
                           "* FROM d.words; SELECT * FROM t"),
            SQLITE_OK);
  connection.run("DROP TABLE IF EXISTS temp.t; PRAGMA temp_store=MEMORY");
  const engine::file::KeyLease lease(folder / "new.cvb", owner);
  // A new file whose reserved bytes nobody asked for can not be written.
  EXPECT_EQ(connection.run("ATTACH '" + (folder / "new.cvb") + "' AS n"), SQLITE_OK);
  EXPECT_NE(connection.run("CREATE TABLE n.t(a)"), SQLITE_OK);
  connection.must("PRAGMA d.page_size=8192; PRAGMA d.mmap_size=100000000");
  EXPECT_EQ(connection.ask("PRAGMA d.page_size"), "4096");
  EXPECT_EQ(connection.ask("SELECT count(*) FROM d.words"), "300");
}
