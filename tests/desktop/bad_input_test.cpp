// Awkward texts and files, as an author meets them.

#include <gtest/gtest.h>

#include <filesystem>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "shell/session/texts.h"
#include "support/fake_media.h"
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

/// The text of the box that tells of a file that was written anew.
std::string putBack(const User& user) {
  return session::dialogText(user.app->session, dialog::file_put_back);
}

void openFile(User& user, const fs::path& file) {
  user.chooseFile(file);
  user.choose("mnuOpen");
}

TEST(BadInput, AFileThatIsMovedOrDeletedWhileOpenIsWrittenAnewAndHasItsEntries) {
  for (const bool moved : {true, false}) {
    User user;
    makeDictionary(user, "Gabel");
    const fs::path file = user.home / "KUECHE.CVB", away = user.home / "MOVED.CVB";
    if (moved)
      fs::rename(file, away);
    else
      fs::remove(file);
    addEntry(user, "Löffel");
    EXPECT_EQ(words(user), (std::vector<std::string>{"Gabel", "Löffel"}));
    user.answer("", putBack(user));
    user.choose("mnuClose");
    EXPECT_FALSE(user.app->session.files.DBOpen);
    EXPECT_EQ(engine::checkDatabase(*user.app->session.files.Workspace, file), std::vector<std::string>{});
    EXPECT_NE(user.log().find("was gone"), std::string::npos);
    openFile(user, file);
    EXPECT_EQ(words(user), (std::vector<std::string>{"Gabel", "Löffel"}));
    addEntry(user, "Messer");
    user.choose("mnuClose");
    EXPECT_EQ(fs::exists(away), moved);
  }
}

TEST(BadInput, AFileThatAnotherReplacedKeepsItsEntriesBesideIt) {
  User user;
  makeDictionary(user, "Gabel");
  user.choose("mnuClose");
  const fs::path file = user.home / "KUECHE.CVB", copy = user.home / "COPY.CVB";
  fs::copy_file(file, copy);
  openFile(user, file);
  addEntry(user, "Löffel");
  fs::rename(copy, file);
  user.answer("", putBack(user));
  user.choose("mnuClose");
  for (const fs::path& each : {file, fs::path(user.home / "KUECHE_rescued.CVB")})
    EXPECT_EQ(engine::checkDatabase(*user.app->session.files.Workspace, each), std::vector<std::string>{});
  openFile(user, file);
  EXPECT_EQ(words(user), (std::vector<std::string>{"Gabel"}));
  user.choose("mnuClose");
  user.chooseFile(user.home / "KUECHE_rescued.CVB");
  user.answer("No");  // it lies under another name than it was made for
  user.choose("mnuOpen");
  EXPECT_EQ(words(user), (std::vector<std::string>{"Gabel", "Löffel"}));
}

TEST(BadInput, TextsThatAreNoTextsAreSavedAsFarAsTheyAre) {
  User user;
  makeDictionary(user, "Gabel");
  user.in("frmEintrag", [&](QWidget& window) {
    auto& box = User::find<QLineEdit>(window, "HeadwordBox");
    box.clear();
    QInputMethodEvent typed;
    typed.setCommitString(QString("Löf") + QChar(0xD800) + "fel");  // half of a character
    QApplication::sendEvent(&box, &typed);
    user.click(window, "Command1_2");
  });
  user.choose("mnuNewEntry");
  ASSERT_EQ(words(user).size(), 2u);
  EXPECT_TRUE(base::isUtf8(words(user)[1]));
  EXPECT_EQ(value(user, "select count(*) from Woerterbuch where Begriff like 'Löf?fel'"), "1");
}

TEST(BadInput, AwkwardSearchTextsAreSearchedOrToldOnceAndTheWindowStays) {
  User user;
  makeDictionary(user, "Gabel");
  user.in("frmSearch", [&](QWidget& window) {
    const std::pair<std::string, const char*> searches[] = {
        {"say \"x\" to", "3075"},      {"l'été", ""},      {"%", nullptr}, {"[a-z", ""},
        {std::string(10000, 'x'), ""}, {"👩‍🍳", ""}};
    for (const auto& [text, told] : searches) {
      user.type(window, "TextBox1", text);
      if (told != nullptr) user.answer("", told);
      user.click(window, "Command1_0");
      EXPECT_FALSE(user.hasPlans()) << text.substr(0, 20);
      EXPECT_TRUE(window.isVisible());
      EXPECT_EQ(User::find<QLineEdit>(window, "TextBox1").text().toStdString(), text);
    }
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  user.choose("mnuSearchEntry");
  EXPECT_EQ(words(user), std::vector<std::string>{"Gabel"});
}

TEST(BadInput, AFilterOnANameWithAnApostropheIsToldAndCanBeReset) {
  User user;
  makeDictionary(user, "Gabel");
  user.app->session.files.CurrentDB.Execute("insert into WKategorie (Kategorie) values (\"Pomme d'or\")");
  user.in("frmFilter", [&](QWidget& window) {
    auto& list = User::find<QListWidget>(window, "PropertyList");
    const auto found = list.findItems("Pomme d'or", Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1);
    found[0]->setCheckState(Qt::Checked);
    user.answer("", "3075");
    user.click(window, "OK");
    ASSERT_TRUE(window.isVisible());
    EXPECT_EQ(found[0]->checkState(), Qt::Checked);
    user.click(window, "Reset");
    user.click(window, "OK");
  });
  user.choose("mnuChoice");
  EXPECT_FALSE(user.hasPlans());
  EXPECT_EQ(words(user), std::vector<std::string>{"Gabel"});
}

TEST(BadInput, AMediaFolderThatCanNotBeWrittenIsToldAndKeepsPictureAndSound) {
  User user;
  makeDictionary(user, "Gabel");
  test::FakeSound sound;
  user.app->session.desk.media.sound = &sound;
  QImage image(20, 20, QImage::Format_RGB32);
  image.fill(Qt::red);
  const std::string picture = user.home / "rot.png";
  ASSERT_TRUE(image.save(QString::fromStdString(picture)));
  const std::string told = session::dialogText(user.app->session, dialog::media_not_writable);
  // A file where the folder should be refuses root as well.
  const std::string folder = user.home.write("Medien", "no folder") + "/";
  user.app->session.files.CurrentDB.Execute("update Sprache set Audiopfad = '" + folder + "'");
  user.in("frmEintrag", [&](QWidget& window) {
    user.chooseFile(picture);
    user.answer("", told);
    user.click(window, "Command4");
    sound.failAt = "save";
    sound.failWith = 70;
    user.click(window, "SSCommand9_0");
    user.answer("", told);
    user.click(window, "SSCommand9_1");
    EXPECT_FALSE(user.hasPlans());
    user.app->session.files.CurrentDB.Execute("update Sprache set Audiopfad = Null");
    sound.failAt.clear();
    user.click(window, "SSCommand9_1");
    user.chooseFile(picture);
    user.click(window, "Command4");
    user.click(window, "Command7");
  });
  user.choose("mnuEditEntry");
  EXPECT_TRUE(value(user, "select Bild from Woerterbuch").ends_with(".png"));
  EXPECT_TRUE(value(user, "select Klang from Woerterbuch").ends_with(".wav"));
}

}  // namespace
