// The dialogs on entries, catalogues and files.

#include <gtest/gtest.h>

#include <filesystem>

#include "windows.h"

using namespace windows;

namespace {

TEST(Dialogs, AnEntryIsPlacedBelowAnother) {
  User user;
  makeDictionary(user, "Gabel");
  addEntry(user, "Kuchengabel");
  select(user, 1);
  user.in("frmRelink", [&](QWidget& window) {
    user.type(window, "Text1", "Gab");
    ASSERT_EQ(User::find<QTableView>(window, "DataGrid1").model()->rowCount(), 1);
    user.answer("");  // no row is selected yet
    user.click(window, "Command1");
    user.pickRow(window, "DataGrid1", 0);
    user.answer("");
    user.click(window, "Command1");
  });
  user.choose("mnuRelinkEntry");
  EXPECT_EQ(words(user), (std::vector<std::string>{"Gabel   ++", "--- Kuchengabel"}));
}

TEST(Dialogs, TenEntriesAreTypedAtOnceWithTheKeyboardAlone) {
  User user;
  makeDictionary(user, "Gabel");
  user.in("frmFastEntry", [&](QWidget& window) {
    for (int row = 0; row < 10; ++row) {
      const std::string number = std::to_string(row);
      EXPECT_EQ(window.focusWidget(), &User::find<QLineEdit>(window, ("TextBox1_" + number).c_str()));
      user.type(window, ("TextBox1_" + number).c_str(), "Wort" + number);
      user.press(window, ("TextBox1_" + number).c_str(), Qt::Key_Return);
      user.type(window, ("TextBox2_" + number).c_str(), "word" + number);
      for (const char* column : {"TextBox2_", "TextBox3_", "TextBox4_"})
        user.press(window, (column + number).c_str(), Qt::Key_Return);
    }
    user.click(window, "Command3");
    EXPECT_TRUE(User::find<QLabel>(window, "StatusLabel").text().endsWith("10"));
    EXPECT_TRUE(User::find<QLineEdit>(window, "TextBox1_9").text().isEmpty());
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  user.choose("mnuFastEntry");
  EXPECT_EQ(words(user).size(), 11u);
  EXPECT_EQ(value(user, "select count(*) from Wortbedeutung"), "10");
}

TEST(Dialogs, TheHistoryLeadsToAnEntry) {
  User user;
  makeDictionary(user, "Gabel");
  addEntry(user, "Löffel");
  addEntry(user, "Messer");
  select(user, 2);
  user.in("frmHistory", [&](QWidget& window) {
    EXPECT_FALSE(User::find<QPushButton>(window, "Command1").isEnabled());
    for (int row = 0; row < 3; ++row)
      if (User::textAt(window, "DataGrid1", row, 0) == "Löffel") user.pickRow(window, "DataGrid1", row);
    user.click(window, "Command1");
  });
  user.choose("mnuNewHistory");
  EXPECT_EQ(user.find<QListWidget>("List2").currentItem()->text(), "Löffel");
}

TEST(Dialogs, ACatalogueGrowsAndRefusesAnEmptyName) {
  User user;
  makeDictionary(user, "Gabel");
  user.in("frmNewKateg", [&](QWidget& window) {
    EXPECT_FALSE(User::find<QPushButton>(window, "AddItem").isEnabled());
    user.type(window, "Text1", "AAA \"x\" 'y'");
    user.press(window, "Text1", Qt::Key_Return);
    user.type(window, "Text2", "a.");
    user.press(window, "Text2", Qt::Key_Return);
    EXPECT_EQ(User::textAt(window, "DBGrid1", 0, 0), "AAA \"x\" 'y'");
    user.answer("");
    User::cell(window, "DBGrid1", 0, 0, "");
    EXPECT_EQ(User::textAt(window, "DBGrid1", 0, 0), "AAA \"x\" 'y'");
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  user.choose("mnuProperties");
}

TEST(Dialogs, ABackupClosesTheDictionaryAndCopiesIt) {
  User user;
  makeDictionary(user, "Gabel");
  const std::string folder = user.home / "Sicherung";
  std::filesystem::create_directories(folder);
  user.in("frmBackup", [&](QWidget& window) {
    user.type(window, "Dir1", folder);
    user.answer("Yes");
    user.answer("", "KUECHE_");
    user.click(window, "Command1");
  });
  user.choose("mnuBackup");
  EXPECT_FALSE(user.app->session.files.DBOpen);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

TEST(Dialogs, EntriesOfTodayAreListedAndDeleted) {
  User user;
  makeDictionary(user, "Gabel");
  addEntry(user, "Löffel");
  user.in("frmDeleteEntries", [&](QWidget& window) {
    user.type(window, "DTPicker1", "");
    User::find<QDateTimeEdit>(window, "DTPicker1").setDateTime(QDateTime::currentDateTime().addDays(-1));
    User::find<QDateTimeEdit>(window, "DTPicker2").setDateTime(QDateTime::currentDateTime().addDays(1));
    user.click(window, "Command4");
    EXPECT_EQ(User::find<QTableView>(window, "DataGrid1").model()->rowCount(), 2);
    user.answer("No");
    user.click(window, "Command1");
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  user.choose("mnuDeleteByDate");
  EXPECT_EQ(words(user).size(), 2u);
}

TEST(Dialogs, AFilterNarrowsTheListAndIsReleased) {
  User user;
  makeDictionary(user, "Gabel");
  user.in("frmEintrag", [&](QWidget& window) {
    user.type(window, "HeadwordBox", "Löffel");
    user.type(window, "NotesBox", "rund");
    user.click(window, "Command1_2");
  });
  user.choose("mnuNewEntry");
  user.in("frmFilter", [&](QWidget& window) {
    user.click(window, "hasNote");
    EXPECT_FALSE(User::find<QCheckBox>(window, "hasNoNote").isChecked());
    user.click(window, "OK");
  });
  user.choose("mnuChoice");
  EXPECT_EQ(words(user), std::vector<std::string>{"Löffel"});
  user.answer("Yes");
  user.in("frmFilter", [&](QWidget& window) { user.click(window, "OK"); });
  user.choose("mnuChoice");
  EXPECT_EQ(words(user).size(), 2u);
}

}  // namespace
