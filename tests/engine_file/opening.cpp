#include <sys/stat.h>

#include "raw_database.h"

using namespace rawdb;
using engine::file::Credential;

TEST(Opening, RowsComeBackInBothJournalModes) {
  const test::TempDir folder;
  for (const std::string mode : {"WAL", "DELETE"}) {
    const std::string path = folder / (mode + ".cvb");
    makeWords(path, 1000, mode);
    EXPECT_EQ(examined(path).number, 0);
    Connection again(path);
    EXPECT_EQ(again.ask("SELECT count(*)||' '||max(headword) FROM d.words"), "1000 Headword999");
    EXPECT_EQ(again.ask("PRAGMA d.integrity_check"), "ok");
    EXPECT_EQ(std::filesystem::exists(path + "-wal"), mode == "WAL");
  }
}

TEST(Opening, EachKindOfUnusableFileHasItsOwnError) {
  const test::TempDir folder;
  const std::string good = folder / "good.cvb";
  makeWords(good, 300);
  const std::string bytes = contents(good);
  const auto file = [&](const std::string& name, const std::string& content) {
    overwrite(folder / name, content);
    return folder / name;
  };
  EXPECT_EQ(examined(folder / "missing.cvb").number, 53);
  EXPECT_EQ(examined(folder / "no/such/folder.cvb").number, 53);

  sqlite3* plain = nullptr;
  ASSERT_EQ(sqlite3_open_v2((folder / "plain.cvb").c_str(), &plain,
                            SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, "unix"),
            SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(plain, "CREATE TABLE t(a)", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(plain);
  for (const std::string& path :
       {folder / "plain.cvb", file("empty.cvb", ""), file("text.cvb", "Haus;house\n"),
        file("long text.cvb", std::string(20000, 'x')), folder.path().string()}) {
    const Outcome outcome = examined(path);
    EXPECT_EQ(outcome.number, 3343) << path;
    EXPECT_EQ(outcome.text, engine::file::noDictionaryText(path));
  }
  for (const Credential& other :
       {Credential{"Someone", "built-in", false}, Credential{"VocariumUser", "guess", false},
        Credential{"VocariumUserb", "uilt-in", false}}) {
    const Outcome outcome = examined(good, other);
    EXPECT_EQ(outcome.number, 3343);
    EXPECT_EQ(outcome.text, engine::file::otherCredentialText(good));
  }
  std::string later = bytes;
  for (std::size_t page = 0; page < bytes.size(); page += 4096) later[page + 4096 - 16 + 3] = 9;
  later[3] = 9;
  const std::string laterPath = file("later.cvb", later);
  EXPECT_EQ(examined(laterPath).text, engine::file::unknownSchemeText(laterPath, 9));
}

TEST(Opening, AnOwnPasswordIsTakenAsSuchWhateverTheCallerSaysOfIt) {
  const test::TempDir folder;
  const std::string path = folder / "own.cvb";
  makeWords(path, 10, "WAL", {"Anna", "a secret of mine", true});
  EXPECT_EQ(contents(path).substr(0, 4), std::string("VOC\x02"));
  EXPECT_EQ(examined(path, {"Anna", "a secret of mine", true}).number, 0);
  EXPECT_EQ(examined(path, {"Anna", "a secret of mine", false}).number, 0);
  EXPECT_EQ(examined(path, {"Anna", "a secret of yours", true}).text,
            engine::file::otherCredentialText(path));
}

TEST(Opening, AWrongCredentialNeitherOpensNorHarmsTheLog) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb", copy = folder / "copy.cvb";
  {
    Connection writer(path);
    writer.ask("PRAGMA d.journal_mode=WAL");
    writer.must("PRAGMA d.wal_autocheckpoint=0");
    writer.must("CREATE TABLE d.words(headword)");
    writer.must("INSERT INTO d.words VALUES('kept')");
    std::filesystem::copy_file(path, copy);  // as a killed process leaves them
    std::filesystem::copy_file(path + "-wal", copy + "-wal");
  }
  EXPECT_EQ(examined(copy, {"Someone", "else", false}).text, engine::file::otherCredentialText(copy));
  {
    Connection stranger(copy, {"Someone", "else", false});
    EXPECT_NE(stranger.code(), SQLITE_OK);
  }
  Connection rightful(copy);
  EXPECT_EQ(rightful.ask("SELECT headword FROM d.words"), "kept");
}

TEST(Opening, WithoutALeaseNothingOpens) {
  const test::TempDir folder;
  makeWords(folder / "words.cvb", 10);
  Connection connection(folder / "other.cvb");
  EXPECT_NE(connection.run("ATTACH '" + (folder / "words.cvb") + "' AS w"), SQLITE_OK);
}

TEST(Opening, FilesUnderDifferentCredentialsWorkSideBySide) {
  const test::TempDir folder;
  const Credential anna{"Anna", "one", false}, bert{"Bert", "two", false};
  makeWords(folder / "a.cvb", 50, "WAL", anna);
  makeWords(folder / "b.cvb", 70, "WAL", bert);
  Connection connection(folder / "a.cvb", anna);
  ASSERT_EQ(connection.attach(folder / "b.cvb", "b", bert), SQLITE_OK);
  EXPECT_EQ(connection.ask("SELECT count(*) FROM b.words LEFT JOIN d.words USING(id)"), "70");
  connection.must(
      "BEGIN; INSERT INTO d.words(headword) VALUES('x'); INSERT INTO b.words(headword) VALUES('x'); COMMIT");
  EXPECT_EQ(connection.attach(folder / "b.cvb", "c", anna), SQLITE_NOTADB);
}
