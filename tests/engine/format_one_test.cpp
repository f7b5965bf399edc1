// A dictionary that was written before tables had an index of their texts: format 1, five entries.

#include <filesystem>

#include "engine/text_index.h"
#include "stored_words.h"

using namespace stored;

namespace {

using Headwords = std::vector<std::string>;

struct FormatOne : testing::Test {
  FormatOne() {
    std::filesystem::copy_file(VOCARIUM_SOURCE_DIR "/tests/data/format1.cvb", path);
    std::filesystem::permissions(path, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::add);
    open();
  }
  void open() {
    database = {};
    workspace = std::make_unique<engine::Workspace>(login);
    database = workspace->OpenDatabase(path);
  }
  void compact() {
    database = {};
    workspace.reset();
    {
      engine::Workspace own(login);
      engine::CompactDatabase(own, path, folder / "small.cvb", "", 2);
    }
    std::filesystem::rename(folder / "small.cvb", path);
    open();
  }
  Headwords headwords(const std::string& source) {
    Headwords found;
    auto rows = database.OpenRecordset(source, engine::RecordsetKind::snapshot);
    for (; !rows.EndOfFile(); rows.MoveNext()) found.push_back(rows["Begriff"].asText());
    return found;
  }
  Headwords holding(const std::string& piece) {
    return headwords("SELECT Begriff FROM Woerterbuch WHERE MetaSuche LIKE \"*" + piece +
                     "*\" ORDER BY Begriff");
  }
  int format() { return database.impl()->file->data().format; }
  void expectSound() {
    workspace->Idle();
    engine::Workspace own(login);
    EXPECT_EQ(lines(engine::checkDatabase(own, path)), "");
  }

  test::TempDir folder;
  std::string path = folder / "one.cvb";
  std::unique_ptr<engine::Workspace> workspace;
  engine::Database database;
};

const Headwords five{"Äpfel", "Gabel", "Löffel", "Messer", "Öl"};

TEST_F(FormatOne, IsReadAndSearchedAsItIs) {
  EXPECT_EQ(format(), 1);
  EXPECT_EQ(headwords("AllWords"), five);
  EXPECT_EQ(holding("ffe"), Headwords{"Löffel"});
  expectSound();
}

TEST_F(FormatOne, IsWrittenWithoutBecomingAnother) {
  database.Execute("INSERT INTO Woerterbuch (Begriff, MetaSuche, Ebene) VALUES ('Kaffee', '//Kaffee', 1)");
  database.Execute("UPDATE Woerterbuch SET MetaSuche = '//Essbesteck' WHERE Begriff = 'Gabel'");
  database.Execute("DELETE FROM Woerterbuch WHERE Begriff = 'Öl'");
  auto rows = database.OpenRecordset("Wortbedeutung");
  rows.AddNew();
  rows.set("ID_Woerterbuch", 2);
  rows.set("Wortbedeutung", "spoon");
  rows.Update();
  rows.Close();
  expectSound();
  open();
  EXPECT_EQ(format(), 1);
  EXPECT_EQ(headwords("AllWords"), (Headwords{"Äpfel", "Gabel", "Kaffee", "Löffel", "Messer"}));
  EXPECT_EQ(holding("stec"), Headwords{"Gabel"});
  database.Execute("DELETE FROM Woerterbuch WHERE Begriff = 'Löffel'");
  auto meanings = database.OpenRecordset("Wortbedeutung");
  meanings.MoveLast();
  EXPECT_EQ(meanings.RecordCount(), 1) << "the relation still takes the meanings along";
}

TEST_F(FormatOne, BecomesTheFormatOfTodayWhenCompactedAndGetsItsIndex) {
  Headwords expected;
  for (int n = 0; n < 1200; ++n) {
    const std::string word = "Wort" + std::to_string(n);
    database.Execute("INSERT INTO Woerterbuch (Begriff, MetaSuche, Ebene) VALUES (w, w, 1)", {{"w", word}});
    if (word.find("rt11") != std::string::npos) expected.push_back(word);
  }
  std::sort(expected.begin(), expected.end());
  engine::indexTexts(database, "Woerterbuch", {"MetaSuche"});
  EXPECT_EQ(holding("rt11"), expected);
  expectSound();
  compact();
  EXPECT_EQ(format(), engine::storage::formatVersion);
  ASSERT_EQ(database.impl()->file->data().texts.size(), 1U);
  EXPECT_FALSE(database.impl()->file->data().texts[0].rules.empty());
  EXPECT_EQ(holding("rt11"), expected);
  EXPECT_EQ(holding("ffe"), Headwords{"Löffel"});
  database.Execute("UPDATE Woerterbuch SET MetaSuche = 'Kaffeelöffel' WHERE Begriff = 'Löffel'");
  EXPECT_EQ(holding("ffeel"), Headwords{"Löffel"});
  EXPECT_EQ(headwords("AllWords").size(), 1205U);
  expectSound();
}

TEST_F(FormatOne, ADamagedOneIsRepairedIntoTheFormatOfToday) {
  database = {};
  workspace.reset();
  std::string bytes = test::TempDir::read(path);
  ruinPage(bytes, bytes.size() / 4096);
  overwrite(path, bytes);
  {
    engine::Workspace own(login);
    EXPECT_NE(lines(engine::checkDatabase(own, path)), "");
    engine::RepairDatabase(own, path);
  }
  open();
  EXPECT_EQ(format(), engine::storage::formatVersion);
  EXPECT_EQ(headwords("AllWords"), five);
  expectSound();
}

}  // namespace
