// The editor's window: duplicates, stubs, the navigator, meanings, properties.

#include <gtest/gtest.h>

#include "windows.h"

using namespace windows;

namespace {

/// Types a headword that exists and answers the question.
void typeDuplicate(User& user, QWidget& window, const char* answer) {
  user.type(window, "HeadwordBox", "Löffel");
  user.answer(answer);
  user.press(window, "HeadwordBox", Qt::Key_Return);
}

TEST(Editor, ADuplicateMayBeAddedChangedOrEditedInstead) {
  User user;
  makeDictionary(user, "Löffel");
  user.in("frmEintrag", [&](QWidget& window) {
    typeDuplicate(user, window, "Yes");
    user.click(window, "Command1_2");
  });
  user.choose("mnuNewEntry");
  EXPECT_EQ(words(user), (std::vector<std::string>{"Löffel", "Löffel"}));

  user.in("frmEintrag", [&](QWidget& window) {
    typeDuplicate(user, window, nullptr);  // the box is cancelled
    EXPECT_EQ(User::find<QLineEdit>(window, "HeadwordBox").text(), "Löffel");
    user.type(window, "HeadwordBox", "Messer");
    user.press(window, "HeadwordBox", Qt::Key_Return);
    user.click(window, "Command1_2");
  });
  user.choose("mnuNewEntry");
  EXPECT_EQ(words(user).size(), 3u);

  user.in("frmEintrag", [&](QWidget& window) {
    typeDuplicate(user, window, "No");
    EXPECT_EQ(user.app->session.entry.EntryEditMode, 3);
    user.type(window, "NotesBox", "schon da");
    user.click(window, "Command1_2");
  });
  user.choose("mnuNewEntry");
  EXPECT_EQ(value(user, "select count(*) from Woerterbuch"), "3");
  EXPECT_EQ(value(user, "select Begriff from Woerterbuch where Bemerkung = 'schon da'"), "Löffel");
}

TEST(Editor, AStubIsGivenUpOrKeptOnEscape) {
  User user;
  makeDictionary(user, "Löffel");
  user.in("frmEintrag", [&](QWidget& window) {
    user.type(window, "HeadwordBox", "Gabel");
    user.answer("Yes");  // stay
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    user.answer("No");
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
  });
  user.choose("mnuNewEntry");
  EXPECT_EQ(value(user, "select count(*) from Woerterbuch"), "1");
  EXPECT_EQ(words(user), std::vector<std::string>{"Löffel"});
}

TEST(Editor, AnEmptyHeadwordCanNotBeSaved) {
  User user;
  makeDictionary(user, "Löffel");
  user.in("frmEintrag", [&](QWidget& window) {
    user.type(window, "HeadwordBox", "");
    EXPECT_FALSE(User::find<QPushButton>(window, "Command1_2").isEnabled());
    user.answer("No");
    user.click(window, "Command7");
  });
  user.choose("mnuNewEntry");
}

TEST(Editor, TheNavigatorSavesByMoving) {
  User user;
  makeDictionary(user, "Gabel");
  addEntry(user, "Löffel");
  user.choose("mnuClose");
  user.chooseFile(user.home / "KUECHE.CVB");
  user.choose("mnuOpen");
  select(user, 0);
  user.in("frmEintrag", [&](QWidget& window) {
    EXPECT_EQ(User::find<QLineEdit>(window, "HeadwordBox").text(), "Gabel");
    user.type(window, "NotesBox", "vier Zinken");
    user.click(window, "DataNext");
    EXPECT_EQ(User::find<QLineEdit>(window, "HeadwordBox").text(), "Löffel");
    user.click(window, "Command7");
  });
  user.press(*user.app->window, "List2", Qt::Key_Return);
  EXPECT_EQ(value(user, "select Bemerkung from Woerterbuch where Begriff = 'Gabel'"), "vier Zinken");
}

TEST(Editor, PropertiesAreAssignedValuedAndTakenAway) {
  User user;
  makeDictionary(user, "Gabel");
  user.in("frmEintrag", [&](QWidget& window) {
    user.tab(window, "SSTab1", propertiesTab);
    auto& catalogue = User::find<QListWidget>(window, "DBList9");
    ASSERT_GT(catalogue.count(), 2);
    const std::string name = catalogue.item(1)->text().toStdString();
    catalogue.setCurrentRow(1);
    user.click(window, "AddProperty");
    EXPECT_EQ(User::textAt(window, "DBGridEigenschaftWert", 0, 0), name);
    User::cell(window, "DBGridEigenschaftWert", 0, 1, "Gabeln");
    EXPECT_EQ(User::textAt(window, "DBGridEigenschaftWert", 0, 1), "Gabeln");
    user.answer("", name);  // assigned already
    user.click(window, "AddProperty");
    auto& subjects = User::find<QListWidget>(window, "DBList11");
    subjects.setCurrentRow(0);
    user.click(window, "AddSubject");
    EXPECT_EQ(User::find<QListWidget>(window, "List6").count(), 1);
    User::find<QListWidget>(window, "List6").setCurrentRow(0);
    user.click(window, "RemoveSubject");
    EXPECT_EQ(User::find<QListWidget>(window, "List6").count(), 0);
    user.click(window, "Command1_2");
  });
  user.choose("mnuEditEntry");
  EXPECT_EQ(value(user, "select KategorieWert from relWoertWKat"), "Gabeln");
}

TEST(Editor, AMeaningIsEditedInPlaceAndDeletedAfterAQuestion) {
  User user;
  makeDictionary(user, "Gabel");
  user.in("frmEintrag", [&](QWidget& window) {
    user.tab(window, "SSTab1", meaningsTab);
    for (const char* meaning : {"fork", "prong \"x\" 'y'"}) {
      user.type(window, "TextBox2", meaning);
      user.press(window, "TextBox2", Qt::Key_Return);
    }
    User::cell(window, "DataGrid2", 0, 0, "table fork");
    EXPECT_EQ(User::textAt(window, "DataGrid2", 1, 0), "table fork");
    user.pickRow(window, "DataGrid2", 0);
    user.answer("Yes");
    user.click(window, "RemoveMeaning");
    EXPECT_EQ(User::find<QTableView>(window, "DataGrid2").model()->rowCount(), 1);
    user.click(window, "Command1_2");
  });
  user.choose("mnuEditEntry");
  EXPECT_EQ(value(user, "select Wortbedeutung from Wortbedeutung"), "table fork");
}

}  // namespace
