// The whole way of an author, through real clicks and keys.

#include <gtest/gtest.h>

#include <QTextBrowser>

#include "windows.h"

using namespace windows;

namespace {

TEST(Way, FromTheWizardToTheEntryInTheBrowser) {
  User user;
  const std::string path = makeDictionary(user, "Löffel");
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
  const QString page = user.find<QTextBrowser>("WebBrowser1").toPlainText();
  for (const char* part : {"Gabel", "1. fork", "2. pitchfork", "knife and fork", "aus Holz & Stahl"})
    EXPECT_TRUE(page.contains(part)) << part << " in " << page.toStdString();
  EXPECT_FALSE(user.hasPlans());
}

TEST(Way, TheLastDictionaryIsThereAgainAfterARestart) {
  User user;
  makeDictionary(user, "Löffel");
  addEntry(user, "Gabel");
  user.app->window->close();
  EXPECT_TRUE(user.app->frame.unloaded);
  user.restart();
  EXPECT_TRUE(user.app->session.files.DBOpen);
  EXPECT_EQ(words(user), (std::vector<std::string>{"Gabel", "Löffel"}));
}

TEST(Way, EnglishAsksAndCaptionsInEnglish) {
  User user(true);
  makeDictionary(user, "spoon");
  addEntry(user, "fork");
  EXPECT_EQ(user.find<QAction>("mnuNewEntry").text(), "&New entry ...");
  user.answer("No", "fork");
  user.press(*user.app->window, "List2", Qt::Key_Delete);
  EXPECT_EQ(words(user).size(), 2u);
  EXPECT_EQ(user.told.back().find("Soll"), std::string::npos) << user.told.back();
}

}  // namespace
