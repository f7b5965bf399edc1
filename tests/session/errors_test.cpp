#include "shell/session/errors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/messages.h"
#include "support/full_disk.h"
#include "support/test_session.h"

namespace {

TEST(LogError, WritesSevenFieldsOnOneLineAndTellsTheUser) {
  TestSession t;
  t.session.files.CurrentDBPath = "/HOME/A.CVB";
  t.session.entry.CurrentEntryId = 4711;
  session::ShowStatus(t.session, "working", true);
  const bool done =
      session::guard(t.session, "frmEintrag", [] { throw base::Error(3022, "Zwei \"gleiche\"\r\nZeilen"); });
  EXPECT_FALSE(done);
  EXPECT_TRUE(t.session.shell.failed);

  const std::string log = t.log();
  EXPECT_EQ(std::ranges::count(log, '\n'), 1);
  const std::string tail = R"("/HOME/A.CVB","frmEintrag",4711,"Zwei ""gleiche""  Zeilen",3022)"
                           "\r\n";
  ASSERT_GT(log.size(), tail.size());
  EXPECT_EQ(log.substr(log.size() - tail.size()), tail);
  EXPECT_EQ(std::ranges::count(log.substr(0, log.size() - tail.size()), '"'), 4)
      << "date and time stand before";

  ASSERT_EQ(t.script.boxes.size(), 1U);
  EXPECT_EQ(t.script.boxes[0].flags, 0);
  EXPECT_NE(t.script.boxes[0].text.find("Zwei \"gleiche\""), std::string::npos);
  EXPECT_TRUE(t.script.boxes[0].text.ends_with("3022 "));
  EXPECT_EQ(t.session.shell.StatusText, "");
}

TEST(LogError, TellsInTheUsersLanguageWhatANumberMeansAndLogsTheErrorAsItIs) {
  TestSession t;
  const base::Error full(61, "Writing the changes to disk: the disk is full or fails.");
  for (const int language : {1, 2}) {
    session::TexteEinlesen(t.session, language);
    session::LogError(t.session, full, "frmEintrag");
    const std::string& told = t.script.boxes.back().text;
    const std::size_t sentence = told.find(t.dialog(dialog::error_disk_full));
    ASSERT_NE(sentence, std::string::npos) << told;
    EXPECT_GT(told.find(full.text()), sentence);
    EXPECT_TRUE(told.ends_with("61 "));
  }
  EXPECT_EQ(t.log().find(t.dialog(dialog::error_disk_full)), std::string::npos);
  EXPECT_NE(t.log().find(full.text() + "\",61"), std::string::npos);
}

TEST(LogError, LeavesATextAloneThatTheCatalogueWorded) {
  TestSession t;
  const std::string worded = t.dialog(dialog::disk_full) + " /a/b.png";
  session::LogError(t.session, base::Error(61, "SaveFile Error 61\r\n" + worded), "frmEintrag");
  EXPECT_EQ(t.script.boxes.back().text.find(t.dialog(dialog::error_disk_full)), std::string::npos);
  session::LogError(t.session, base::Error(4711, "A number without a sentence."), "frmEintrag");
  EXPECT_NE(t.script.boxes.back().text.find(":\r\n\r\nA number"), std::string::npos);
}

TEST(LogError, SaysNothingOfACancelledDialogOrAMissingItem) {
  TestSession t;
  t.script.cancelFile();
  EXPECT_FALSE(session::guard(t.session, "frmMDI", [&] { session::askOpenFile(t.session, {}); }));
  EXPECT_FALSE(session::guard(t.session, "frmMDI", [] { throw base::Error(3265, "no such query"); }));
  EXPECT_EQ(t.log(), "");
  EXPECT_TRUE(t.script.boxes.empty());
  EXPECT_FALSE(t.session.shell.failed);
}

TEST(LogError, ReportsWithoutACatalogueAndWithoutALog) {
  TestSession t;
  t.session.texts = {};
  std::filesystem::create_directory(t.session.folders.AppConfigPath + "/Vocarium_Error_Log.TXT");
  // An access to the empty catalogue is itself such an error.
  EXPECT_FALSE(session::guard(t.session, "frmMDI",
                              [&] { session::showMessage(t.session, dialog::no_default_printer, 0); }));
  ASSERT_EQ(t.script.boxes.size(), 1U);
  EXPECT_NE(t.script.boxes[0].text.find("9 "), std::string::npos);
  EXPECT_NE(t.script.boxes[0].text.find("Error_Log"), std::string::npos)
      << "a log that can not be written is told";
}

TEST(Guard, TellsAFailureOnceThatTheCommitRepeats) {
  TestSession t;
  t.session.files.CurrentDB =
      t.session.files.Workspace->CreateDatabase(t.home / "a.cvb", ";LANGID=0x0407;CP=1252;COUNTRY=0", 2);
  t.session.files.CurrentDB.Execute("CREATE TABLE Texte (Eintrag LONGTEXT)");
  session::commitGathered(t.session);
  const test::FullDisk disk(t.home / "a.cvb-wal");
  EXPECT_FALSE(session::guard(t.session, "frmMDI", [&] {
    t.session.files.CurrentDB.Execute("INSERT INTO Texte (Eintrag) VALUES (t)",
                                      {{"t", std::string(100000, 'x')}});
    throw base::Error(engine::errors::diskFull, "told first");
  }));
  EXPECT_EQ(t.script.boxes.size(), 1U);
  EXPECT_EQ(std::ranges::count(t.log(), '\n'), 2);
}

TEST(Guard, TurnsWhateverFailsIntoOneError) {
  TestSession t;
  EXPECT_TRUE(session::guard(t.session, "frmMDI", [] {}));
  EXPECT_FALSE(session::guard(t.session, "frmMDI", [] { return false; }))
      << "a refusal that was told already";
  EXPECT_TRUE(t.script.boxes.empty());
  EXPECT_FALSE(
      session::guard(t.session, "frmMDI", [] { std::filesystem::create_directory("/proc/no/where"); }));
  EXPECT_FALSE(session::guard(t.session, "frmMDI", [] { throw std::bad_alloc(); }));
  EXPECT_EQ(std::ranges::count(t.log(), '\n'), 2);
}

TEST(Status, IsRepaintedOnlyWhenItChanges) {
  TestSession t;
  session::ShowStatus(t.session, "Text", true);
  session::ShowStatus(t.session, "Text", true);
  session::ShowStatus(t.session, "Text", false);
  ASSERT_EQ(t.script.statuses.size(), 1U);
  EXPECT_EQ(t.script.statuses[0], t.label(label::status_busy) + "Text");
  session::ShowToolTipStatus(t.session, 3);
  session::ShowStatus(t.session, "Text", false);
  session::ShowToolTipStatus(t.session, 3);
  ASSERT_EQ(t.script.statuses.size(), 3U) << "the same kind of panel clears nothing";
  EXPECT_EQ(t.script.statuses[1], t.label(label::status_ready));
  EXPECT_EQ(t.script.statuses[2], "Text");
}

TEST(Boxes, LeaveTheirAnswerInTheSession) {
  TestSession t;
  t.script.answer(platform::box::answerNo);
  EXPECT_FALSE(session::confirmed(t.session, "really?"));
  EXPECT_EQ(t.session.shell.LastMsgResult, 7);
  EXPECT_EQ(t.script.boxes.back().title, t.label(label::program_name));
  EXPECT_EQ(t.script.boxes.back().flags, 36);
}

}  // namespace
