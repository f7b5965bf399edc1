// The dialogs that carry items of the catalogues between lists.

#include <gtest/gtest.h>

#include <QTabBar>

#include "windows.h"

using namespace windows;

namespace {

/// The texts of a list.
std::vector<std::string> items(QWidget& window, const char* list) {
  std::vector<std::string> texts;
  const auto& found = User::find<QListWidget>(window, list);
  for (int row = 0; row < found.count(); ++row) texts.push_back(found.item(row)->text().toStdString());
  return texts;
}

void take(User& user, QWidget& window, const char* list, const std::string& item) {
  auto& found = User::find<QListWidget>(window, list);
  const auto rows = found.findItems(QString::fromStdString(item), Qt::MatchExactly);
  ASSERT_EQ(rows.size(), 1) << item;
  found.setCurrentItem(rows.first());
  user.press(window, list, Qt::Key_Return);
}

void addCatalogueItem(User& user, const char* menuItem, const std::string& item) {
  user.in("frmNewKateg", [&, item](QWidget& window) {
    user.type(window, "Text1", item);
    user.click(window, "AddItem");
    user.click(window, "Close");
  });
  user.choose(menuItem);
}

/// Every new entry gets the item, which stands in the list of its catalogue.
void makeAutomatic(User& user, const char* list, const std::string& item) {
  user.in("frmAutokat", [&](QWidget& window) {
    take(user, window, list, item);
    user.click(window, "Close");
  });
  user.choose("mnuAutomatic");
}

TEST(Catalogues, AnAutomaticPropertyComesToANewEntryAndTheTabsHaveFlagsOfTheirOwn) {
  User user;
  makeDictionary(user, "Gabel");
  addCatalogueItem(user, "mnuProperties", "Besteck");
  addCatalogueItem(user, "mnuProperties", "Geschirr");
  user.in("frmAutokat", [&](QWidget& window) {
    take(user, window, "List1", "Besteck");
    EXPECT_EQ(items(window, "List2"), std::vector<std::string>{"Besteck"});
    User::find<QTabBar>(window, "SSTab1").setCurrentIndex(1);
    EXPECT_TRUE(items(window, "List2").empty());
    user.click(window, "Check1");
    EXPECT_EQ(items(window, "List2"), items(window, "List1"));
    user.click(window, "ClearAll");
    User::find<QTabBar>(window, "SSTab1").setCurrentIndex(0);
    EXPECT_EQ(items(window, "List2"), std::vector<std::string>{"Besteck"});
    user.click(window, "Close");
  });
  user.choose("mnuAutomatic");
  addEntry(user, "Löffel");
  EXPECT_EQ(value(user,
                  "select W.Begriff from Woerterbuch as W, relWoertWKat as R, WKategorie as K "
                  "where W.ID_Woerterbuch = R.ID_Woerterbuch and R.ID_WKategorie = K.ID_WKategorie and "
                  "K.Kategorie = 'Besteck'"),
            "Löffel");
}

TEST(Catalogues, APropertyGoesWithItsAssignmentsAndItsEntriesStay) {
  User user;
  makeDictionary(user, "Gabel");
  addCatalogueItem(user, "mnuProperties", "Besteck");
  makeAutomatic(user, "List1", "Besteck");
  addEntry(user, "Löffel");
  const auto open = [&](const char* answer) {
    user.in("frmDeleteEigenschaftSach", [&, answer](QWidget& window) {
      EXPECT_FALSE(User::find<QPushButton>(window, "DeleteItems").isEnabled());
      take(user, window, "List1", "Besteck");
      take(user, window, "List2", "Besteck");
      EXPECT_TRUE(items(window, "List2").empty());
      take(user, window, "List1", "Besteck");
      user.answer(answer);
      if (std::string(answer) == "Yes") user.answer("");
      user.click(window, "DeleteItems");
      user.click(window, "Close");
    });
    user.choose("mnuDeleteEigenschaft");
  };
  open("No");
  EXPECT_EQ(value(user, "select count(*) from relWoertWKat"), "1");
  open("Yes");
  EXPECT_EQ(value(user, "select count(*) from WKategorie where Kategorie = 'Besteck'"), "0");
  EXPECT_EQ(value(user, "select count(*) from relWoertWKat"), "0");
  EXPECT_EQ(words(user), (std::vector<std::string>{"Gabel", "Löffel"}));
}

TEST(Catalogues, EntriesAreDeletedByASubjectAndTheListFollows) {
  User user;
  makeDictionary(user, "Gabel");
  addCatalogueItem(user, "mnuSubjects", "Raubtiere");
  makeAutomatic(user, "List3", "Raubtiere");
  addEntry(user, "Löwe");
  addEntry(user, "Luchs");
  user.in("frmDeleteEintragEigenschaftSach", [&](QWidget& window) {
    take(user, window, "List1", "Raubtiere");
    user.answer("Yes");
    user.answer("", "2");
    user.click(window, "DeleteEntries");
    user.click(window, "Close");
  });
  user.choose("mnuDeleteBySubject");
  EXPECT_EQ(words(user), std::vector<std::string>{"Gabel"});
  EXPECT_EQ(value(user, "select count(*) from WSachgebiet where Sachgebiet = 'Raubtiere'"), "1");
}

}  // namespace
