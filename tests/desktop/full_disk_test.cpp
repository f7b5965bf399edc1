// A disk that fills while an author saves.

#include "support/full_disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "catalogue/dialog.h"
#include "shell/session/texts.h"
#include "windows.h"

using namespace windows;

namespace {

long linesOfLog(const User& user) {
  const std::string text = user.log();
  return std::count(text.begin(), text.end(), '\n');
}

/// Does `deeds` with no room left, which tells that in one box and in one line of the log.
void withoutRoom(User& user, const std::string& dictionary, const std::function<void()>& deeds) {
  const long before = linesOfLog(user);
  const std::size_t told = user.told.size();
  {
    const test::FullDisk disk(dictionary + "-wal");
    user.answer("", "61");
    deeds();
  }
  EXPECT_EQ(user.told.size(), told + 1);
  EXPECT_EQ(linesOfLog(user), before + 1);
}

/// Closes the dictionary, checks it whole and opens it again.
void reopen(User& user, const std::string& dictionary) {
  user.choose("mnuClose");
  EXPECT_EQ(engine::checkDatabase(*user.app->session.files.Workspace, dictionary),
            std::vector<std::string>{});
  user.chooseFile(dictionary);
  user.choose("mnuOpen");
}

TEST(FullDisk, ANewEntryStaysInTheEditorUntilThereIsRoom) {
  User user;
  const std::string path = makeDictionary(user, "Gabel");
  user.in("frmEintrag", [&](QWidget& window) {
    user.type(window, "HeadwordBox", "Löffel");
    user.type(window, "NotesBox", "Für Suppe, l'été");
    withoutRoom(user, path, [&] { user.click(window, "Command1_2"); });
    ASSERT_TRUE(window.isVisible());
    EXPECT_EQ(User::find<QLineEdit>(window, "HeadwordBox").text().toStdString(), "Löffel");
    EXPECT_EQ(User::find<QPlainTextEdit>(window, "NotesBox").toPlainText().toStdString(), "Für Suppe, l'été");
    user.click(window, "Command1_2");
  });
  user.choose("mnuNewEntry");
  reopen(user, path);
  EXPECT_EQ(words(user), (std::vector<std::string>{"Gabel", "Löffel"}));
  EXPECT_EQ(value(user, "select Bemerkung from Woerterbuch where Begriff = 'Löffel'"), "Für Suppe, l'été");
}

TEST(FullDisk, TextsOfANewMeaningAndAnExampleStayInTheirBoxes) {
  User user;
  const std::string path = makeDictionary(user, "Gabel");
  user.in("frmEintrag", [&](QWidget& window) {
    user.tab(window, "SSTab1", meaningsTab);
    user.type(window, "TextBox2", "fork");
    withoutRoom(user, path, [&] { user.press(window, "TextBox2", Qt::Key_Return); });
    EXPECT_EQ(User::find<QLineEdit>(window, "TextBox2").text(), "fork");
    user.press(window, "TextBox2", Qt::Key_Return);
    EXPECT_TRUE(User::find<QLineEdit>(window, "TextBox2").text().isEmpty());
    user.click(window, "Command7");
  });
  user.choose("mnuEditEntry");
  reopen(user, path);
  EXPECT_EQ(value(user, "select count(*) from Wortbedeutung where Wortbedeutung = 'fork'"), "1");
}

TEST(FullDisk, TheNavigatorDoesNotLeaveAnEntryThatItCouldNotSave) {
  User user;
  const std::string path = makeDictionary(user, "Gabel");
  addEntry(user, "Löffel");
  select(user, 0);
  user.in("frmEintrag", [&](QWidget& window) {
    user.type(window, "NotesBox", "vier Zinken");
    withoutRoom(user, path, [&] { user.click(window, "DataNext"); });
    EXPECT_EQ(User::find<QPlainTextEdit>(window, "NotesBox").toPlainText(), "vier Zinken");
    user.click(window, "DataNext");
    EXPECT_EQ(User::find<QLineEdit>(window, "HeadwordBox").text(), "Löffel");
    user.click(window, "Command7");
  });
  user.choose("mnuEditEntry");
  reopen(user, path);
  EXPECT_EQ(value(user, "select Bemerkung from Woerterbuch where Begriff = 'Gabel'"), "vier Zinken");
}

TEST(FullDisk, RowsOfTheFastEntryAreStoredOnceThereIsRoom) {
  User user;
  const std::string path = makeDictionary(user, "Gabel");
  user.in("frmFastEntry", [&](QWidget& window) {
    user.type(window, "TextBox1_0", "Messer");
    user.type(window, "TextBox2_0", "knife");
    user.type(window, "TextBox1_1", "Teller");
    withoutRoom(user, path, [&] { user.click(window, "Command3"); });
    EXPECT_EQ(User::find<QLineEdit>(window, "TextBox1_0").text(), "Messer");
    EXPECT_EQ(User::find<QLineEdit>(window, "TextBox2_0").text(), "knife");
    EXPECT_EQ(User::find<QLineEdit>(window, "TextBox1_1").text(), "Teller");
    user.click(window, "Command3");
    EXPECT_TRUE(User::find<QLineEdit>(window, "TextBox1_1").text().isEmpty());
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  user.choose("mnuFastEntry");
  reopen(user, path);
  EXPECT_EQ(words(user), (std::vector<std::string>{"Gabel", "Messer", "Teller"}));
  EXPECT_EQ(value(user, "select count(*) from Wortbedeutung"), "1");
}

TEST(FullDisk, TheWizardStaysWithWhatWasChosenInIt) {
  User user;
  const std::string path = user.home / "KUECHE.CVB";
  user.in("frmChooseDBType", [&](QWidget& window) { user.click(window, "Panel_1"); });
  user.chooseFile(path);
  user.in("firstent", [&](QWidget& window) {
    user.type(window, "SourceLanguage", "Deutsch");
    user.type(window, "TargetLanguage", "Englisch");
    user.click(window, "Next");
    user.type(window, "Description", "Küche");
    User::find<QListWidget>(window, "List1").setCurrentRow(0);
    withoutRoom(user, path, [&] { user.click(window, "Command1"); });
    ASSERT_TRUE(window.isVisible());
    user.in("frmEintrag", [&](QWidget& editor) {
      user.type(editor, "HeadwordBox", "Gabel");
      user.click(editor, "Command1_2");
    });
    user.click(window, "Command1");
  });
  user.choose("mnuNew");
  reopen(user, path);
  EXPECT_EQ(words(user), std::vector<std::string>{"Gabel"});
  EXPECT_EQ(value(user, "select Kurzbeschreibung from Sprache"), "Küche");
}

TEST(FullDisk, ClosingTellsThatTheFileCouldNotBeCompactedAndKeepsIt) {
  User user;
  const std::string path = makeDictionary(user, "Gabel");
  addEntry(user, "Löffel");
  withoutRoom(user, path, [&] { user.choose("mnuClose"); });
  EXPECT_NE(user.told.back().find(session::dialogText(user.app->session, dialog::compaction_failed)),
            std::string::npos);
  EXPECT_FALSE(user.app->session.files.DBOpen);
  user.chooseFile(path);
  user.choose("mnuOpen");
  reopen(user, path);
  EXPECT_EQ(words(user), (std::vector<std::string>{"Gabel", "Löffel"}));
}

}  // namespace
