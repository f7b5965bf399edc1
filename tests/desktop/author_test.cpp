// What an author meets: several browsers, right to left, long headwords, keys alone, a filter that is
// cancelled.

#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QComboBox>
#include <QMenu>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolButton>

#include "windows.h"

using namespace windows;

namespace {

std::string pageOf(QWidget& browser) {
  return User::find<QTextBrowser>(browser, "WebBrowser1").toPlainText().trimmed().toStdString();
}

TEST(Author, EachBrowserKeepsItsPageAndTheCountFollowsNewEntries) {
  User user;
  makeDictionary(user, "Apfel");
  addEntry(user, "Birne");
  EXPECT_TRUE(user.find<QLabel>("CountLabel").text().endsWith(" 2"));
  user.choose("mnuNewBrowser");
  std::vector<std::string> pages;
  for (auto* page : user.app->window->findChildren<QTextBrowser*>("WebBrowser1"))
    pages.push_back(page->toPlainText().trimmed().toStdString());
  EXPECT_EQ(pages, (std::vector<std::string>{"Birne", "Apfel"}));
}

TEST(Author, TextsFromRightToLeftStandAtTheRight) {
  User user;
  makeDictionary(user, "בית");
  user.app->session.files.CurrentDB.Execute("UPDATE Sprache SET RightToLeftFrom = True");
  select(user, -1);
  select(user, 0);
  EXPECT_EQ(user.find<QListWidget>("List2").layoutDirection(), Qt::RightToLeft);
  auto& page = user.find<QTextBrowser>("WebBrowser1");
  EXPECT_EQ(page.document()->begin().blockFormat().layoutDirection(), Qt::RightToLeft);
  EXPECT_EQ(pageOf(*user.app->window), "בית");
  user.in("frmEintrag", [&](QWidget& window) {
    EXPECT_EQ(User::find<QPlainTextEdit>(window, "NotesBox").document()->defaultTextOption().textDirection(),
              Qt::RightToLeft);
    user.click(window, "Command7");
  });
  user.choose("mnuEditEntry");
}

TEST(Author, ALongHeadwordMakesNoWindowWider) {
  User user;
  makeDictionary(user, std::string(240, 'w'));
  const int width = user.app->window->width();
  user.in("frmEintrag", [&](QWidget& window) {
    EXPECT_LT(window.width(), width);
    user.click(window, "Command7");
  });
  user.choose("mnuEditEntry");
  EXPECT_EQ(user.app->window->width(), width);
}

TEST(Author, KeysAloneFindAnEntryAndSaveOne) {
  User user;
  makeDictionary(user, "Apfel");
  user.in("frmEintrag", [&](QWidget& window) {
    user.type(window, "HeadwordBox", "Birne");
    QApplication::setActiveWindow(&window);
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(window.isVisible());
  });
  user.choose("mnuNewEntry");
  user.in("frmSearch", [&](QWidget& window) {
    user.type(window, "TextBox1", "Apf");
    user.press(window, "TextBox1", Qt::Key_Return);
  });
  user.choose("mnuGoto");
  EXPECT_EQ(user.find<QListWidget>("List2").currentItem()->text(), "Apfel");
  EXPECT_FALSE(user.hasPlans());
}

TEST(Author, ACancelledFilterLeavesTheListAlone) {
  User user;
  makeDictionary(user, "Apfel");
  const QString before = user.find<QLabel>("Label1").text();
  user.in("frmFilter", [&](QWidget& window) {
    user.click(window, "hasPicture");
    user.type(window, "DateFrom", "01.01.2020");
    auto& picker = User::find<QToolButton>(window, "DatePickerFrom");
    auto* calendar = picker.menu()->findChild<QCalendarWidget*>();
    ASSERT_NE(calendar, nullptr);
    Q_EMIT calendar->clicked(QDate(2021, 3, 4));
    EXPECT_EQ(User::find<QLineEdit>(window, "DateFrom").text(), "04.03.2021");
    EXPECT_FALSE(User::find<QComboBox>(window, "LetterCombo").isVisible()) << "the bar of letters is there";
    user.click(window, "Cancel");
  });
  user.choose("mnuChoice");
  EXPECT_EQ(words(user), std::vector<std::string>{"Apfel"});
  EXPECT_EQ(user.find<QLabel>("Label1").text(), before);
  user.in("frmFilter", [&](QWidget& window) {
    EXPECT_FALSE(User::find<QCheckBox>(window, "hasPicture").isChecked());
    user.click(window, "hasPicture");
    user.click(window, "OK");
  });
  user.choose("mnuChoice");
  EXPECT_EQ(words(user).size(), 0u);
  EXPECT_NE(user.find<QLabel>("Label1").text(), before);
}

}  // namespace
