// The command that gives an entry a picture, with the real readers of pictures.

#include <gtest/gtest.h>

#include "run_cli.h"
#include "support/pictures.h"

namespace {

using test::cli;

TEST(Media, setsAPictureAndKeepsItWhereANewOneIsRefused) {
  const test::CliFolder folder;
  test::makeDictionary("Haus und Hof.cvb");
  ASSERT_TRUE(std::filesystem::exists("Haus_und_Hof.cvb"));
  const std::string dictionary = "Haus_und_Hof.cvb", stored = "Haus_und_Hof/H1f.";
  folder.write("a picture.wpg", test::wpgQuarters(40, 20));
  EXPECT_EQ(cli({"picture", "set", dictionary, "1", "A Picture.WPG"}).out, "H1f.wpg\n");
  EXPECT_EQ(folder.read(stored + "wpg"), test::wpgQuarters(40, 20));
  const auto bild = [&] { return test::rows("select Bild from Woerterbuch", dictionary).at(0); };
  EXPECT_EQ(bild(), "H1f.wpg");

  folder.write("damaged.wpg", test::wpgQuarters(40, 20).substr(0, 20));
  folder.write("photo.fpx", "FlashPix");
  for (const char* refused : {"damaged.wpg", "photo.fpx", "missing.png", "Haus_und_Hof.cvb"}) {
    const auto result = cli({"picture", "set", dictionary, "1", refused});
    EXPECT_EQ(result.code, 1) << refused;
    EXPECT_NE(result.err.find(refused), std::string::npos) << result.err;
    EXPECT_TRUE(result.out.empty());
  }
  EXPECT_EQ(cli({"picture", "set", dictionary, "9", "a picture.wpg"}).code, 1);
  EXPECT_EQ(bild(), "H1f.wpg");
  EXPECT_EQ(folder.read(stored + "wpg"), test::wpgQuarters(40, 20));

  folder.write("drawing.eps", test::epsQuarters(60));
  EXPECT_EQ(cli({"picture", "set", dictionary, "1", "drawing.eps"}).out, "H1f.eps\n");
  EXPECT_EQ(bild(), "H1f.eps");
}

}  // namespace
