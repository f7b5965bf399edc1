#include "shell/session/settings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "base/text.h"
#include "support/test_session.h"

namespace {

using session::ReadIniValue;

void writeSettings(TestSession& t, const std::string& text) {
  std::ofstream(t.session.files.paths.real(session::settingsPath(t.session)), std::ios::binary) << text;
}

std::vector<std::string> paths(const TestSession& t) {
  std::vector<std::string> all;
  for (const std::string& caption : t.session.shell.mnuFilearray)
    all.push_back(session::pathOfCaption(caption));
  return all;
}

void openInMenu(TestSession& t, const std::string& path) {
  t.session.files.CurrentDBPath = path;
  session::UpdateMenu(t.session);
}

TEST(Settings, ShortAndMissingValuesComeBackAsTheWholeBuffer) {
  TestSession t;
  writeSettings(t, "[LastDB]\r\nLastDB=X\r\n[File1]\n1 = /A B.CVB \n[File2]\n2=\n");
  EXPECT_EQ(ReadIniValue(t.session, "file1", "1"), "/A B.CVB");
  EXPECT_EQ(ReadIniValue(t.session, "File2", "2"), std::string(128, '\0'));
  EXPECT_EQ(ReadIniValue(t.session, "File9", "9"), std::string(128, '\0'));
  EXPECT_EQ(ReadIniValue(t.session, "LastDB", "LastDB"), "X" + std::string(127, '\0'));
  EXPECT_FALSE(session::isPresent(ReadIniValue(t.session, "File2", "2")));
  EXPECT_TRUE(session::isPresent(ReadIniValue(t.session, "File1", "1")));
  EXPECT_EQ(session::trimmedValue(ReadIniValue(t.session, "LastDB", "LastDB")), "X");
}

TEST(Settings, LongValuesAreCutAt127Characters) {
  TestSession t;
  std::string path = "/";
  for (int i = 0; i < 140; ++i) path += "Ö";
  writeSettings(t, "[LastDB]\nLastDB=" + path + "\n");
  EXPECT_EQ(ReadIniValue(t.session, "LastDB", "LastDB"), base::left(path, 127));
}

TEST(Settings, AKeyIsSoughtInItsOwnSectionOnly) {
  TestSession t;
  writeSettings(t, "[A]\nOther=wrong\n[B]\nKey=right\n");
  EXPECT_FALSE(session::isPresent(ReadIniValue(t.session, "A", "Key")));
  session::WriteIniValue(t.session, "A", "Key", "new");
  session::WriteIniValue(t.session, "B", "KEY", "changed");
  session::WriteIniValue(t.session, "C", "Third", "3rd");
  EXPECT_EQ(ReadIniValue(t.session, "A", "Key"), "new");
  EXPECT_EQ(ReadIniValue(t.session, "A", "Other"), "wrong");
  EXPECT_EQ(ReadIniValue(t.session, "B", "Key"), "changed");
  EXPECT_EQ(ReadIniValue(t.session, "C", "Third"), "3rd");
}

TEST(Settings, AWrittenFileGivesTheSameMenuBack) {
  TestSession t;
  session::WriteFirstIni(t.session);
  EXPECT_EQ(ReadIniValue(t.session, "AppDataPath", "AppDataPath"), t.session.folders.AppDataPath);
  EXPECT_EQ(ReadIniValue(t.session, "Options", "SystemDB"), t.session.folders.AppConfigPath + "/SYS.MDA");
  session::GenerateFileMenu(t.session);
  EXPECT_TRUE(t.session.shell.mnuFilearray.empty());

  openInMenu(t, "/HOME/ÄRA 1.CVB");
  openInMenu(t, "/HOME/B.CVB");
  t.session.folders.AppDataPath = "/CHOSEN/BY THE USER";
  session::WriteIniFile(t.session);
  const std::vector<std::string> before = t.session.shell.mnuFilearray;
  session::GenerateFileMenu(t.session);
  EXPECT_EQ(t.session.shell.mnuFilearray, before);
  EXPECT_EQ(before.front(), "&1 /HOME/ÄRA 1.CVB");
  EXPECT_EQ(ReadIniValue(t.session, "LastDB", "LastDB"), "/HOME/B.CVB");
  EXPECT_EQ(ReadIniValue(t.session, "AppDataPath", "AppDataPath"), t.home / "Vocarium")
      << "the regular writing takes the folder from the environment";
}

TEST(Settings, TheListGrowsAtItsEndAndAFullOneAtItsTop) {
  TestSession t;
  std::vector<std::string> expected;
  for (int i = 1; i <= 8; ++i) {
    openInMenu(t, "/D" + std::to_string(i) + ".CVB");
    expected.push_back("/D" + std::to_string(i) + ".CVB");
  }
  EXPECT_EQ(paths(t), expected);
  openInMenu(t, "/D3.CVB");
  EXPECT_EQ(paths(t), expected) << "a known path does not move";

  openInMenu(t, "/D9.CVB");
  expected.insert(expected.begin(), "/D9.CVB");
  expected.pop_back();
  EXPECT_EQ(paths(t), expected);
  for (std::size_t i = 0; i < 8; ++i)
    EXPECT_EQ(t.session.shell.mnuFilearray[i].substr(0, 3), "&" + std::to_string(i + 1) + " ");
}

TEST(Settings, AFileThatCanNotBeWrittenLeavesTheOldOne) {
  TestSession t;
  session::WriteFirstIni(t.session);
  const std::string path = session::settingsPath(t.session);
  const std::string before = test::TempDir::read(path);
  std::filesystem::create_directory(path + ".new");  // where the new file would be written
  openInMenu(t, "/D.CVB");
  EXPECT_THROW(session::WriteIniFile(t.session), base::Error);
  EXPECT_EQ(test::TempDir::read(path), before);
}

}  // namespace
