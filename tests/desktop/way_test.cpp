// The whole way of an author, through real clicks and keys.

#include <gtest/gtest.h>

#include "support/user.h"

namespace {

constexpr int meaningsTab = 1, examplesTab = 2;

/// A new dictionary with its first entry, through the panels and the wizard.
void makeDictionary(User& user, const std::string& path, const std::string& headword) {
  user.in("frmChooseDBType", [&](QWidget& window) { user.click(window, "Panel_1"); });
  user.chooseFile(path);
  user.in("firstent", [&](QWidget& window) {
    user.type(window, "SourceLanguage", "Deutsch");
    user.type(window, "TargetLanguage", "Englisch");
    user.click(window, "Next");
    user.type(window, "Description", "Küche");
    User::find<QListWidget>(window, "List1").setCurrentRow(0);
    user.click(window, "Command1");
  });
  user.in("frmEintrag", [&, headword](QWidget& window) {
    user.type(window, "HeadwordBox", headword);
    user.click(window, "Command1_2");
  });
  user.choose("mnuNew");
}

std::vector<std::string> words(User& user) {
  std::vector<std::string> texts;
  const auto& list = user.find<QListWidget>("List2");
  for (int row = 0; row < list.count(); ++row) texts.push_back(list.item(row)->text().toStdString());
  return texts;
}

TEST(Way, FromTheWizardToTheEntryInTheBrowser) {
  User user;
  const std::string path = user.home / "Kueche.cvb";
  makeDictionary(user, path, "Löffel");
  ASSERT_TRUE(user.app->session.files.DBOpen);
  EXPECT_EQ(words(user), std::vector<std::string>{"Löffel"});

  user.in("frmEintrag", [&](QWidget& window) {
    user.type(window, "HeadwordBox", "Gabel");
    user.press(window, "HeadwordBox", Qt::Key_Return);
    user.type(window, "NotesBox", "aus Holz & Stahl");
    user.tab(window, "SSTab1", meaningsTab);
    user.type(window, "TextBox2", "fork");
    user.press(window, "TextBox2", Qt::Key_Return);
    user.type(window, "TextBox2", "pitchfork");
    user.click(window, "AddMeaning");
    EXPECT_EQ(User::textAt(window, "DataGrid2", 1, 0), "pitchfork");
    user.tab(window, "SSTab1", examplesTab);
    user.pickRow(window, "DataGrid5", 0);
    user.type(window, "Text5", "Messer und Gabel");
    user.type(window, "Text6", "knife and fork");
    user.answer("");
    user.click(window, "AddExample");
    user.click(window, "Command1_2");
  });
  user.choose("mnuNewEntry");
  EXPECT_EQ(words(user), (std::vector<std::string>{"Löffel", "Gabel"}));

  user.in("frmEintrag", [&](QWidget& window) {
    user.type(window, "HeadwordBox", "Kuchengabel");
    user.click(window, "Command1_0");
  });
  user.choose("mnuNewSubEntry");
  EXPECT_EQ(words(user), (std::vector<std::string>{"Löffel", "Gabel", "--- Kuchengabel"}));

  user.choose("mnuClose");
  EXPECT_FALSE(user.app->session.files.DBOpen);
  user.chooseFile(path);
  user.choose("mnuOpen");
  EXPECT_EQ(words(user), (std::vector<std::string>{"Gabel   ++", "--- Kuchengabel", "Löffel"}));
  EXPECT_FALSE(user.hasPlans());
}

}  // namespace
