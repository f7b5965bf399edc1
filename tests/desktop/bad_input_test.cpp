// Awkward texts and files, as an author meets them.

#include <gtest/gtest.h>

#include <filesystem>

#include "windows.h"

using namespace windows;

namespace {

namespace fs = std::filesystem;

std::string repeated(const std::string& text, int times) {
  std::string all;
  for (int n = 0; n < times; ++n) all += text;
  return all;
}

TEST(BadInput, AHeadwordOf251CharactersIsRefusedAnd250Stand) {
  User user;
  makeDictionary(user, "Gabel");
  user.in("frmEintrag", [&](QWidget& window) {
    user.type(window, "HeadwordBox", repeated("ä", 251));
    user.answer("");
    user.click(window, "Command1_2");
    ASSERT_TRUE(window.isVisible());
    EXPECT_EQ(User::find<QLineEdit>(window, "HeadwordBox").text().size(), 251);
    user.type(window, "HeadwordBox", repeated("ä", 250));
    user.click(window, "Command1_2");
  });
  user.choose("mnuNewEntry");
  EXPECT_EQ(value(user, "select count(*) from Woerterbuch"), "2");
  EXPECT_EQ(value(user, "select Begriff from Woerterbuch where Begriff like 'ä*'"), repeated("ä", 250));
}

TEST(BadInput, EmojiCombiningMarksAndQuotesComeBackAsTyped) {
  User user;
  makeDictionary(user, "Gabel");
  const std::string awkward[] = {"👩‍🍳 Köchin", "e\u0301clair", "l'été <b>", "back\\slash % _ * ?",
                                 "   Rand"};
  for (const std::string& headword : awkward) addEntry(user, headword);
  user.choose("mnuClose");
  user.chooseFile(user.home / "KUECHE.CVB");
  user.choose("mnuOpen");
  const auto shown = words(user);
  for (const std::string& headword : awkward)
    EXPECT_NE(std::find(shown.begin(), shown.end(), headword), shown.end()) << headword;
}

TEST(BadInput, AReadOnlyDictionaryRefusesEachChangeOnce) {
  User user;
  makeDictionary(user, "Gabel");
  user.choose("mnuClose");
  user.in("FileDialog", [&](QWidget& dialog) {
    dynamic_cast<QFileDialog&>(dialog).findChild<QCheckBox*>("ReadOnly")->setChecked(true);
    auto* box = dialog.findChild<QLineEdit*>("fileNameEdit");
    box->setText(QString::fromStdString(user.home / "KUECHE.CVB"));
    QTest::keyClick(box, Qt::Key_Return);
  });
  user.choose("mnuMultiOpen");
  ASSERT_TRUE(user.app->session.files.ReadOnlyMode);
  user.answer("");
  user.choose("mnuNewEntry");
  EXPECT_EQ(value(user, "select count(*) from Woerterbuch"), "1");
}

TEST(BadInput, AFileThatIsMovedWhileOpenIsToldAndHasItsEntriesOnceItIsBack) {
  User user;
  makeDictionary(user, "Gabel");
  const fs::path file = user.home / "KUECHE.CVB", away = user.home / "MOVED.CVB";
  fs::rename(file, away);
  addEntry(user, "Löffel");
  user.answer("", file.string());
  user.choose("mnuClose");
  EXPECT_FALSE(user.app->session.files.DBOpen);
  EXPECT_FALSE(fs::exists(file));
  // What was written since stands in the log, which belongs to the old place.
  fs::rename(away, file);
  user.chooseFile(file);
  user.choose("mnuOpen");
  EXPECT_EQ(words(user), (std::vector<std::string>{"Gabel", "Löffel"}));
}

}  // namespace
