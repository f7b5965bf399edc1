#include "store/services.h"

#include <fstream>

#include "catalogue/dialog.h"
#include "store/dictionary.h"
#include "store/frmBackup.h"

namespace {

namespace fs = std::filesystem;

class Services : public StoreTest {
 protected:
  std::string source;
  void SetUp() override {
    source = create("quelle.cvb");
    addEntry("Wort");
    store::CloseCurrentDB(s);
    t.home.write("quelle/bild.jpg", "picture");
    t.home.write("quelle/sub/ton.wav", "sound");
  }
  std::string headwords(const std::string& path) {
    engine::Database file = s.files.Workspace->OpenDatabase(s.files.paths.real(path).string());
    engine::Recordset set = file.OpenRecordset("select Begriff from Woerterbuch");
    return set.EndOfFile() ? "" : set["Begriff"].textOrEmpty();
  }
};

TEST_F(Services, ACopyTakesTheMediaFolderAlong) {
  t.home.write("kopie.CVB", "something old");
  t.home.write("kopie/alt.jpg", "stays");
  t.script.chooseFile(source);
  t.script.chooseFile(t.home / "kopie");
  store::CopyDB(s);
  EXPECT_EQ(headwords(t.home / "kopie.CVB"), "Wort");
  EXPECT_EQ(test::TempDir::read(t.home / "kopie/sub/ton.wav"), "sound");
  EXPECT_TRUE(fs::exists(t.home / "kopie/alt.jpg"));
  EXPECT_TRUE(t.script.boxes.back().text.ends_with("!"));
}

TEST_F(Services, TheOpenDictionaryIsClosedAfterAQuestion) {
  open(source);
  t.script.answer(platform::box::answerNo, t.dialog(dialog::copy_question));
  store::CopyDB(s);
  EXPECT_TRUE(s.files.DBOpen);
  t.script.answer(platform::box::answerYes, t.dialog(dialog::compact_question));
  t.script.cancelFile();
  EXPECT_EQ(errorOf([&] { store::CompactDB(s); }), platform::cancelled);
  EXPECT_FALSE(s.files.DBOpen);
}

TEST_F(Services, CompactionWritesAnotherFileAndRefusesTheSame) {
  const std::string before = test::TempDir::read(source);
  t.script.chooseFile(source);
  t.script.chooseFile(base::upper(source));
  EXPECT_NE(errorOf([&] { store::CompactDB(s); }), 0);
  EXPECT_TRUE(test::TempDir::read(source) == before);
  t.script.chooseFile(source);
  t.script.chooseFile(t.home / "klein");
  store::CompactDB(s);
  EXPECT_EQ(headwords(t.home / "klein.CVB"), "Wort");

  open(source);
  t.script.answer(platform::box::answerYes, t.dialog(dialog::compact_question));
  store::CompactCurrentDB(s, false);
  EXPECT_FALSE(s.files.DBOpen);
  EXPECT_TRUE(t.script.told(base::upper(source)));
  EXPECT_EQ(headwords(source), "Wort");
}

TEST_F(Services, RepairTellsWhatWasLost) {
  t.script.answer(platform::box::answerYes, t.dialog(dialog::repair_question));
  t.script.chooseFile(source);
  store::RepairDB(s);
  EXPECT_TRUE(t.script.told(t.dialog(dialog::repair_nothing_lost)));
  EXPECT_EQ(headwords(source), "Wort");
}

TEST_F(Services, WhatIsNoDictionaryIsNotCopied) {
  const std::string foreign = t.home.write("fremd.cvb", "no dictionary at all, just text");
  const std::string old = t.home.write("ziel.CVB", "old");
  t.script.chooseFile(foreign);
  t.script.chooseFile(old);
  EXPECT_EQ(errorOf([&] { store::CopyDB(s); }), 3343);
  EXPECT_EQ(test::TempDir::read(old), "old");
}

TEST_F(Services, ABackupBearsItsTimeAndLeavesTheDictionaryClosed) {
  open(source);
  store::frmBackup form(s);
  Form_Load(form);
  form.targetFolder = t.home / "Sicherung";
  fs::create_directory(form.targetFolder);
  form.withMedia = true;
  t.script.answer(platform::box::answerNo, t.dialog(dialog::backup_closes_dictionary));
  EXPECT_FALSE(store::BackUpDB(form));
  EXPECT_TRUE(s.files.DBOpen);
  t.script.answer(platform::box::answerYes, t.dialog(dialog::backup_closes_dictionary));
  EXPECT_TRUE(store::BackUpDB(form));
  EXPECT_FALSE(s.files.DBOpen);
  EXPECT_EQ(headwords(form.written), "Wort");
  EXPECT_TRUE(base::fileName(s.files.paths.real(form.written).string()).starts_with("quelle_20"));
  EXPECT_TRUE(fs::exists(s.files.paths.real(base::withoutExtension4(form.written)) / "bild.jpg"));
}

TEST_F(Services, AnotherKindOfProjectDoesNotJoinTheSession) {
  const std::string links = createClosed("links.cvb", 2), second = createClosed("zweite.cvb");
  open(source);
  EXPECT_FALSE(store::addDictionary(s, links, false));
  EXPECT_EQ(t.script.boxes.back().text, t.dialog(dialog::session_is_dictionary));
  EXPECT_FALSE(store::addDictionary(s, source, false));
  EXPECT_EQ(t.script.boxes.back().text, t.dialog(dialog::already_open));
  EXPECT_EQ(s.files.OpenDBCount, 1);
  EXPECT_TRUE(store::addDictionary(s, second, false));
  EXPECT_EQ(s.files.OpenDBCount, 2);
  EXPECT_EQ(s.files.CurrentDBPath, base::upper(second));
  for (const char* name : {"3.cvb", "4.cvb", "5.cvb"}) {
    fs::copy_file(second, t.home / name);
    t.script.answer(platform::box::answerYes, t.dialog(dialog::file_was_moved));
    EXPECT_TRUE(store::addDictionary(s, t.home / name, false));
  }
  EXPECT_FALSE(store::addDictionary(s, t.home / "6.cvb", false));
  EXPECT_EQ(t.script.boxes.back().text, t.dialog(dialog::session_full));
  EXPECT_EQ(rows("select DBPath from Info"), base::upper(source)) << "the first file keeps its own path";
  store::CloseCurrentDB(s);
  EXPECT_EQ(s.files.OpenDBCount, 0);
  EXPECT_EQ(s.files.MultiPaths[0], "");
  EXPECT_FALSE(s.files.ExtraDB[0].isOpen());
}

}  // namespace
