#include "shell/session/routines.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/start.h"
#include "support/test_session.h"

namespace {

namespace fs = std::filesystem;

void write(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

TEST(Routines, QuotingChangesTheTextInPlaceAndOnlyItsApostrophes) {
  std::string text = "d'or \"x\" ''";
  EXPECT_EQ(session::EscapeSQLText(text), "d''or \"x\" ''''");
  EXPECT_EQ(session::EscapeSQLText(text), "d''''or \"x\" ''''''''") << "a second call quotes again";
}

TEST(Routines, ACopyAppearsWholeOrNotAtAll) {
  TestSession t;
  const std::string source = t.home / "Quelle ä.bin", target = t.home / "ziel.bin";
  write(source, std::string("a\0b", 3));
  EXPECT_TRUE(session::CopyFileTo(t.session, source, target, false));
  EXPECT_EQ(test::TempDir::read(target), std::string("a\0b", 3));
  write(source, "newer");
  EXPECT_FALSE(session::CopyFileTo(t.session, source, target, false));
  EXPECT_EQ(test::TempDir::read(target), std::string("a\0b", 3));
  EXPECT_TRUE(session::CopyFileTo(t.session, t.home / "QUELLE Ä.BIN", target, true))
      << "found whatever its case";
  EXPECT_EQ(test::TempDir::read(target), "newer");

  try {
    session::CopyFileTo(t.session, t.home / "missing", target, true);
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), 53);
  }
  EXPECT_EQ(test::TempDir::read(target), "newer");
  write(t.home / "big", std::string(100000, 'x'));
  try {
    session::CopyFileTo(t.session, t.home / "big", "/dev/full/x", true);
    ADD_FAILURE() << "nothing can be written there";
  } catch (const base::Error& error) {
    EXPECT_NE(error.text().find("/dev/full/x"), std::string::npos) << error.text();
  }
}

TEST(Routines, AFullDiskIsNamedAndKeepsTheOldFile) {
  TestSession t;
  const std::string path = t.home / "kept.txt";
  session::writeWhole(path, "old");
  fs::create_symlink("/dev/full", path + ".new");
  try {
    session::writeWhole(path, std::string(1 << 20, 'x'));
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), 61) << error.text();
  }
  EXPECT_EQ(test::TempDir::read(path), "old");
}

TEST(Routines, AddressesAndFiltersOfOutputFiles) {
  EXPECT_EQ(session::BuildFileURL("/home/My Files/a.HTM"), "file:///home/My%20Files/a.HTM");
  EXPECT_EQ(session::BuildFileURL("C:\\a b"), "file:///C:\\a%20b");
  EXPECT_TRUE(session::BuildFileFilter(3).ends_with("s (*.htm)|*.htm"));
  EXPECT_THROW(session::BuildFileFilter(1), base::Error);
}

TEST(Routines, APrinterWithoutACommaIsToldAndReturned) {
  TestSession t;
  t.script.printer = " Drucker,cups,usb ";
  EXPECT_EQ(session::GetDefaultPrinter(t.session), "Drucker,cups,usb");
  EXPECT_TRUE(t.script.boxes.empty());
  t.script.printer = " Drucker ";
  EXPECT_EQ(session::GetDefaultPrinter(t.session), "Drucker");
  ASSERT_EQ(t.script.boxes.size(), 1U);
  EXPECT_EQ(t.script.boxes[0].text, t.dialog(dialog::no_default_printer));
  EXPECT_EQ(t.script.boxes[0].flags, 48);
}

TEST(Routines, WindowsCloseFromTheLastToTheFirst) {
  TestSession t;
  std::string closed;
  int own = 0;
  session::registerForm(t.session, "frmWoerter", [&] { closed += "1"; });
  session::registerForm(t.session, "frmSearch", [&] { closed += "2"; });
  own = session::registerForm(t.session, "frmWoerter", [&] { closed += "3"; });
  session::registerForm(t.session, "frmWoerter", [&] {
    closed += "4";
    session::forgetForm(t.session, own);  // takes another one along
  });
  session::CloseOpenForms(t.session, "frmWoerter");
  EXPECT_EQ(closed, "41");
  session::CloseAllForms(t.session);
  EXPECT_EQ(closed, "412");
}

TEST(Start, PutsTheSystemDatabaseInPlaceOnce) {
  TestSession t;
  const std::string path = t.session.folders.SystemDBPath;
  EXPECT_FALSE(t.session.texts.labelTxt.empty());
  fs::remove(path);
  session::placeSystemDatabase(t.session);
  EXPECT_TRUE(fs::exists(path));
  const auto time = fs::last_write_time(path);
  session::placeSystemDatabase(t.session);
  EXPECT_EQ(fs::last_write_time(path), time);

  t.session.folders.ProgramPath = t.home / "moved away";
  session::placeSystemDatabase(t.session);
  fs::remove(path);
  EXPECT_THROW(session::placeSystemDatabase(t.session), base::Error);
}

TEST(Start, ALaterSystemDatabaseReplacesACopyThatWasMadeAfterItWasBuilt) {
  using std::chrono::hours;
  TestSession t;
  const auto now = fs::file_time_type::clock::now();
  const auto ship = [&](const std::string& content, fs::file_time_type built) {
    for (const char* name : {"corvasys.cvb", "Sys.mda"})
      fs::last_write_time(t.home.write(std::string("program/share/") + name, content), built);
  };
  t.session.folders.ProgramPath = t.home / "program";
  fs::remove(t.session.folders.SystemDBPath);
  ship("first", now - hours(50));
  session::placeSystemDatabase(t.session);
  ship("second", now - hours(20));
  session::placeSystemDatabase(t.session);
  EXPECT_EQ(test::TempDir::read(t.session.folders.SystemDBPath), "second");
  ship("older", now - hours(30));
  session::placeSystemDatabase(t.session);
  EXPECT_EQ(test::TempDir::read(t.session.folders.SystemDBPath), "second");
}

TEST(Start, FallsBackToTheUsersDataFolder) {
  TestSession t;
  unsetenv("APPDATA");
  setenv("XDG_DATA_HOME", "/data", 1);
  EXPECT_EQ(session::foldersFromEnvironment("/opt").AppConfigPath, "/data/Vocarium/Config");
  unsetenv("XDG_DATA_HOME");
  setenv("HOME", "/home/me", 1);
  EXPECT_EQ(session::foldersFromEnvironment("/opt").SystemDBPath,
            "/home/me/.local/share/Vocarium/Config/corvasys.cvb");
}

TEST(Texts, AreReadByPositionInBothLanguages) {
  TestSession t;
  const std::string german = t.label(label::status_ready);
  const std::size_t count = t.session.texts.labelTxt.size();
  session::TexteEinlesen(t.session, 2);
  EXPECT_EQ(t.session.texts.UILanguage, 2);
  EXPECT_EQ(t.session.texts.labelTxt.size(), count);
  EXPECT_NE(t.label(label::status_ready), german);
  session::TexteEinlesen(t.session, 1);
  EXPECT_EQ(t.label(label::status_ready), german);
  for (std::size_t i = 0; i < t.session.texts.DialogTxt.size(); ++i)
    ASSERT_EQ(t.session.texts.DialogTxt[i].first - t.session.texts.DialogTxt[0].first,
              static_cast<std::int64_t>(i))
        << "numbers run without gaps";

  session::TexteEinlesen(t.session, 0);
  EXPECT_TRUE(t.session.texts.MenuTxt.empty());
  EXPECT_FALSE(t.session.texts.PrintTxt.empty());
  EXPECT_THROW(t.label(label::status_ready), base::Error);
}

TEST(Help, OpensTheTopicOrTheContentsInTheTextsLanguage) {
  TestSession t;
  session::ShowHelpTopic(t.session, "");
  t.session.texts.UILanguage = 2;
  session::ShowHelpTopic(t.session, "no-such-topic");
  ASSERT_EQ(t.script.opened.size(), 2u);
  EXPECT_NE(t.script.opened[0].find("help/de/index.md"), std::string::npos);
  EXPECT_NE(t.script.opened[1].find("help/en/index.md"), std::string::npos);
  for (const std::string& page : t.script.opened) EXPECT_FALSE(test::TempDir::read(page).empty());
  t.session.folders.ProgramPath = "/nowhere";
  EXPECT_THROW(session::ShowHelpTopic(t.session, ""), base::Error);
}

}  // namespace
