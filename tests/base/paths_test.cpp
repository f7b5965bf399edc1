#include "base/paths.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "base/text.h"
#include "support/temp_dir.h"

namespace {

using base::Paths;
using base::upper;
using test::TempDir;

TEST(PathsTest, FindsFilesWithoutRegardToCase) {
  const TempDir dir;
  const std::string file = dir.write("Wörter/Deutsch Englisch.cvb", "x");
  const Paths paths;
  EXPECT_EQ(paths.real(upper(file)), file);
  EXPECT_TRUE(paths.exists(upper(file)));
  std::string backslashes = upper(file);
  std::replace(backslashes.begin(), backslashes.end(), '/', '\\');
  EXPECT_EQ(paths.real(backslashes), file);
  EXPECT_FALSE(paths.exists(upper(dir / "Wörter/fehlt.cvb")));
  EXPECT_EQ(paths.real(dir / "WÖRTER/Neu/Wort.cvb"), dir / "Wörter/Neu/Wort.cvb");
  EXPECT_EQ(paths.real(upper(dir / "Wörter") + "/"), dir / "Wörter");
}

TEST(PathsTest, RefusesAnAmbiguousSpellingUnlessItIsRemembered) {
  const TempDir dir;
  const std::string big = dir.write("A.cvb", "x"), small = dir.write("a.cvb", "y");
  Paths paths;
  try {
    paths.real(upper(small));
    ADD_FAILURE();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), 3044);
    EXPECT_NE(error.text().find(upper(small)), std::string::npos);
  }
  EXPECT_EQ(paths.remember(small), upper(small));
  EXPECT_EQ(paths.real(upper(small)), small);
  paths.remember(big);
  EXPECT_EQ(paths.real(upper(small)), big);
}

TEST(PathsTest, PrefersTheFolderARememberedFileLiesIn) {
  const TempDir dir;
  const std::string file = dir.write("Wort/d.cvb", "x");
  dir.write("WORT/other", "y");
  Paths paths;
  EXPECT_EQ(paths.real(upper(file)), file);  // only one folder leads to the file
  EXPECT_THROW(paths.real(dir / "wort/new.bmp"), base::Error);
  paths.remember(file);
  EXPECT_EQ(paths.real(upper(dir / "Wort") + "/other").string(), dir / "WORT/other");
  EXPECT_EQ(paths.real(upper(dir / "wort/d") + "/BILD.bmp").string(), dir / "Wort/D/BILD.bmp");
}

TEST(PathsTest, SplitsAtEitherSeparator) {
  EXPECT_EQ(base::fileName("/a/b\\c.cvb"), "c.cvb");
  EXPECT_EQ(base::fileName("c.cvb"), "c.cvb");
  EXPECT_EQ(base::folderOf("/a/b/c.cvb"), "/a/b");
  EXPECT_EQ(base::folderOf("c.cvb"), "");
  EXPECT_EQ(base::withoutExtension4("/a/Wörter.cvb"), "/a/Wörter");
  EXPECT_EQ(base::withoutExtension4("cvb"), "");
}

}  // namespace
