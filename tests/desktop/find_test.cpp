// Ways to an entry: search, go to, look-up, tree and tables.

#include <gtest/gtest.h>

#include <QLabel>
#include <QMenu>
#include <QTextBrowser>
#include <QTreeWidget>

#include "browse/frmView.h"
#include "windows.h"

using namespace windows;

namespace {

void makeKitchen(User& user) {
  makeDictionary(user, "Gabel");
  user.in("frmEintrag", [&](QWidget& window) {
    user.type(window, "HeadwordBox", "Löffel");
    user.type(window, "NotesBox", "rund und tief");
    user.tab(window, "SSTab1", meaningsTab);
    user.type(window, "TextBox2", "spoon");
    user.press(window, "TextBox2", Qt::Key_Return);
    user.click(window, "Command1_2");
  });
  user.choose("mnuNewEntry");
  addEntry(user, "Messer");
}

std::string selectedWord(User& user) {
  return user.find<QListWidget>("List2").currentItem()->text().toStdString();
}

TEST(Find, GoToNarrowsAtEachKeyAndJumps) {
  User user;
  makeKitchen(user);
  user.in("frmSearch", [&](QWidget& window) {
    EXPECT_EQ(User::find<QTableView>(window, "DataGrid1").model()->rowCount(), 3);
    user.type(window, "TextBox1", "lö");
    ASSERT_EQ(User::find<QTableView>(window, "DataGrid1").model()->rowCount(), 1);
    EXPECT_EQ(User::textAt(window, "DataGrid1", 0, 0), "Löffel");
    user.pickRow(window, "DataGrid1", 0);
    user.click(window, "Command1_2");
  });
  user.choose("mnuGoto");
  EXPECT_EQ(selectedWord(user), "Löffel");
}

TEST(Find, AMeaningLeadsToItsOwner) {
  User user;
  makeKitchen(user);
  user.in("frmSearch", [&](QWidget& window) {
    user.click(window, "Option2");
    user.type(window, "TextBox1", "poo");
    user.click(window, "Command1_0");
    user.pickRow(window, "DataGrid1", 0);
    EXPECT_EQ(User::textAt(window, "DataGrid2", 0, 0), "Löffel");
    user.pickRow(window, "DataGrid2", 0);
    user.press(window, "DataGrid2", Qt::Key_Return);
  });
  user.choose("mnuSearchEntry");
  EXPECT_EQ(selectedWord(user), "Löffel");
}

TEST(Find, NothingFoundIsTold) {
  User user;
  makeKitchen(user);
  user.in("frmSearch", [&](QWidget& window) {
    user.type(window, "TextBox1", "Teller");
    user.answer("");
    user.press(window, "TextBox1", Qt::Key_Return);
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  user.choose("mnuSearchEntry");
}

TEST(Find, AWordMarkedInThePageIsLookedUp) {
  User user;
  makeKitchen(user);
  select(user, 1);
  auto& page = user.find<QTextBrowser>("WebBrowser1");
  ASSERT_TRUE(page.find("tief"));
  user.in("frmSearchSelectedWord", [&](QWidget& window) {
    auto& inTexts = User::find<QListWidget>(window, "List1");
    ASSERT_EQ(inTexts.count(), 1);
    EXPECT_EQ(inTexts.item(0)->text(), "Löffel");
    EXPECT_FALSE(User::find<QPushButton>(window, "Jump").isEnabled());
    inTexts.setCurrentRow(0);
    user.click(window, "Jump");
  });
  select(user, 0);
  page.setHtml("tief");
  ASSERT_TRUE(page.find("tief"));
  emit page.customContextMenuRequested({});
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  menu->actions().last()->trigger();
  user.settle();
  EXPECT_EQ(selectedWord(user), "Löffel");
}

TEST(Find, ManyRowsComeInWhileTheFirstAreOnShow) {
  User user;
  makeKitchen(user);
  auto& database = user.app->frame.session.files.CurrentDB;
  constexpr int many = 700;
  for (int n = 0; n < many; ++n)
    database.Execute("insert into Woerterbuch (Begriff, SortBegriff, MetaSuche, Ebene) values (w, w, w, 1)",
                     {{"w", "Teller" + std::to_string(n)}});
  database.Execute(
      "insert into Wortbedeutung (ID_Woerterbuch, Wortbedeutung) select ID_Woerterbuch, 'plate' from "
      "Woerterbuch "
      "where Begriff like 'Teller*'");
  const auto rows = [](QWidget& window) {
    return User::find<QTableView>(window, "DataGrid1").model()->rowCount();
  };
  const auto wait = [&](QWidget& window, int count) {
    for (int turn = 0; rows(window) < count && turn < 1000; ++turn) QApplication::processEvents();
    EXPECT_EQ(rows(window), count);
  };
  user.in("frmSearch", [&](QWidget& window) {
    user.type(window, "TextBox1", "elle");
    user.click(window, "Command1_0");
    wait(window, many);
    user.pickRow(window, "DataGrid1", many - 1);
    EXPECT_EQ(User::textAt(window, "DataGrid4", 0, 0), "") << "it has no main entry";
    user.click(window, "Command1_1");
  });
  user.choose("mnuSearchEntry");
  user.in("frmSearch", [&](QWidget& window) {
    user.type(window, "TextBox1", "tell");
    wait(window, many);
    for (int turn = 0; turn < 10; ++turn) QApplication::processEvents();
    EXPECT_EQ(User::find<QLabel>(window, "StatusLabel").text(), QString::number(many));
    user.click(window, "Command1_1");
  });
  user.choose("mnuGoto");
  user.choose("mnuViewEntriesMeanings");
  auto& table = *user.app->window->findChild<QWidget*>("frmView");
  auto& view = dynamic_cast<browse::frmView&>(*user.app->frame.views.front().form);
  EXPECT_FALSE(view.Adodc1.complete);
  for (int turn = 0; !view.Adodc1.complete && turn < 1000; ++turn) QApplication::processEvents();
  EXPECT_EQ(rows(table), view.Adodc1.rows.RecordCount());
  EXPECT_GE(rows(table), many);
  user.click(table, "Close");
}

TEST(Find, ATableIsEditedInPlace) {
  User user;
  makeKitchen(user);
  user.choose("mnuViewEntriesMeanings");
  auto& table = *user.app->window->findChild<QWidget*>("frmView");
  auto& grid = User::find<QTableView>(table, "DataGrid1");
  int row = 0;
  while (row < grid.model()->rowCount() && User::textAt(table, "DataGrid1", row, 0) != "Löffel") ++row;
  int column = 0;
  while (column < grid.model()->columnCount() && User::textAt(table, "DataGrid1", row, column) != "spoon")
    ++column;
  ASSERT_LT(column, grid.model()->columnCount());
  // Through the editor of the cell, as a user does it.
  const QModelIndex cell = grid.model()->index(row, column);
  grid.setCurrentIndex(cell);
  grid.edit(cell);
  auto* box = grid.viewport()->findChild<QLineEdit*>();
  ASSERT_NE(box, nullptr);
  box->setText("ladle");
  QTest::keyClick(box, Qt::Key_Return);
  user.settle();
  EXPECT_EQ(value(user, "select Wortbedeutung from Wortbedeutung"), "ladle");
  user.click(table, "Close");
  EXPECT_EQ(user.app->frame.views.size(), 0u);
  user.choose("mnuViewGeneral");
  user.choose("mnuClose");  // takes the view along
  EXPECT_EQ(user.app->frame.views.size(), 0u);
}

TEST(Find, ATreeOpensItsPropertiesAndJumps) {
  User user;
  makeKitchen(user);
  select(user, 1);
  user.in("frmEintrag", [&](QWidget& window) {
    user.tab(window, "SSTab1", propertiesTab);
    User::find<QListWidget>(window, "DBList9").setCurrentRow(0);
    user.click(window, "AddProperty");
    user.click(window, "Command1_2");
  });
  user.choose("mnuEditEntry");
  select(user, 0);
  user.choose("mnuViewAttributeEntry");
  auto& tree = user.find<QTreeWidget>("outline1");
  ASSERT_GT(tree.topLevelItemCount(), 0);
  tree.topLevelItem(0)->setExpanded(true);
  ASSERT_EQ(tree.topLevelItem(0)->childCount(), 1);
  tree.setCurrentItem(tree.topLevelItem(0)->child(0));
  user.click(*user.app->window->findChild<QWidget*>("frmTreeView"), "Jump");
  EXPECT_EQ(selectedWord(user), "Löffel");
}

}  // namespace
