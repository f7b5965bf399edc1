#include "support/pictures.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <cstdlib>
#include <filesystem>

#include "base/error.h"
#include "platform/media/child_process.h"
#include "platform/media/desktop_media.h"
#include "platform/media/picture_files.h"
#include "support/temp_dir.h"

namespace {

using platform::Picture;
using test::TempDir;

int distance(std::uint32_t a, std::uint32_t b) {
  int largest = 0;
  for (unsigned shift = 0; shift < 32; shift += 8)
    largest = std::max(largest,
                       std::abs(static_cast<int>(a >> shift & 255U) - static_cast<int>(b >> shift & 255U)));
  return largest;
}

struct PictureFiles : testing::Test {
  TempDir dir;
  platform::media::PictureFiles files;

  /// A sample file of a format, made as a user's program would.
  std::string sample(const std::string& extension, const std::string& name = "quarters") {
    const std::string file = name + "." + extension, path = dir / file;
    if (extension == "wmf") return dir.write(file, test::wmfQuarters(1440, 960));
    if (extension == "wpg") return dir.write(file, test::wpgQuarters(96, 64));
    if (extension == "eps") return dir.write(file, test::epsQuarters(96));
    const std::string png = dir / "source.png";
    EXPECT_TRUE(platform::media::toQImage(test::quarters(768, 512)).save(QString::fromStdString(png)));
    const std::string coder = extension == "jpg" ? "jpeg" : extension, made = dir / "made";
    const auto run = platform::media::runChild({"/usr/bin/convert", "png:-", coder + ":" + made}, png,
                                               {std::size_t{2} << 30U, 60, 1000});
    EXPECT_EQ(run.exitCode, 0) << extension << ": " << run.errors;
    std::filesystem::rename(made, path);
    return path;
  }
  void expectQuarters(const std::string& path) {
    const Picture picture = files.load(path);
    ASSERT_GT(picture.width, 0) << path;
    EXPECT_NEAR(1.5, static_cast<double>(picture.width) / picture.height, 0.02) << path;
    const int x = picture.width / 4, y = picture.height / 4;
    EXPECT_LT(distance(picture.at(x, y), test::red), 70) << path;
    EXPECT_LT(distance(picture.at(3 * x, y), test::green), 70) << path;
    EXPECT_LT(distance(picture.at(x, 3 * y), test::blue), 70) << path;
    EXPECT_LT(distance(picture.at(3 * x, 3 * y), test::white), 70) << path;
  }
  int refusal(const std::string& path) {
    try {
      files.load(path);
    } catch (const base::Error& error) {
      EXPECT_NE(error.text().find(path), std::string::npos) << error.text();
      return error.number();
    }
    return 0;
  }
};

const char* const readable[] = {"bmp", "jpg", "wmf", "gif", "pcx", "dcx",
                                "pcd", "psd", "png", "tga", "eps", "wpg"};

TEST_F(PictureFiles, ReadsASampleOfEveryFormat) {
  for (const char* extension : readable) expectQuarters(sample(extension));
}

TEST_F(PictureFiles, ReadsFilesWhoseNamesMeanSomethingToReaders) {
  for (const char* name : {"a %d[3]", "-o", "@list", "x:y", "'quoted' \"$(id)\"", "Bär 猫", "|cat"}) {
    expectQuarters(sample("tga", name));
    std::filesystem::copy_file(sample("eps"), dir / (std::string(name) + ".eps"),
                               std::filesystem::copy_options::overwrite_existing);
    expectQuarters(dir / (std::string(name) + ".eps"));
  }
  std::filesystem::rename(sample("png"), dir / "UPPER.PNG");
  expectQuarters(dir / "UPPER.PNG");
  std::filesystem::rename(sample("png"), dir / "really png.jpg");
  expectQuarters(dir / "really png.jpg");
}

TEST_F(PictureFiles, RefusesFakeAndDamagedFiles) {
  for (const std::string extension : readable) {
    EXPECT_EQ(refusal(dir.write("fake." + extension, "This is no picture.\n")),
              platform::picture_error::damaged)
        << extension;
    EXPECT_EQ(refusal(dir.write("empty." + extension, "")), platform::picture_error::damaged) << extension;
    const std::string bytes = TempDir::read(sample(extension));
    EXPECT_EQ(refusal(dir.write("cut." + extension, bytes.substr(0, 14))), platform::picture_error::damaged)
        << extension;
  }
  EXPECT_EQ(refusal(dir / "missing.png"), 53);
  EXPECT_EQ(refusal(dir.write("drawing.svg", "<svg xmlns='http://www.w3.org/2000/svg'/>")),
            platform::picture_error::unknownFormat);
  EXPECT_EQ(
      refusal(dir.write("drawing.png", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>")),
      platform::picture_error::damaged);
}

TEST_F(PictureFiles, RefusesFlashPixByName) {
  try {
    files.load(dir.write("photo.fpx", "\xD0\xCF\x11\xE0"));
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), platform::picture_error::unknownFormat);
    EXPECT_NE(error.text().find("FlashPix"), std::string::npos);
  }
}

// Headers that promise 20,000 by 20,000 pixels, with little behind them.
TEST_F(PictureFiles, RefusesEnormousPictures) {
  QImage wide(20000, 1, QImage::Format_Mono);
  wide.fill(0);
  const auto promise = [&](const char* format, std::size_t heightAt, const std::string& height) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    wide.save(&buffer, format);
    return bytes.toStdString().replace(heightAt, height.size(), height);
  };
  const std::string little{"\x20\x4E\0\0", 4};
  EXPECT_EQ(refusal(dir.write("huge.bmp", promise("BMP", 22, little))), platform::picture_error::tooLarge);
  test::Bytes tga;
  tga.u8(0).u8(0).u8(2).u32(0).u8(0).u32(0).u16(20000).u16(20000).u8(24).u8(0).raw(std::string(60000, 'x'));
  EXPECT_EQ(refusal(dir.write("huge.tga", tga.text)), platform::picture_error::tooLarge);
  QImage image(20000, 20000, QImage::Format_Mono);
  image.fill(1);
  ASSERT_TRUE(image.save(QString::fromStdString(dir / "huge.png")));
  EXPECT_EQ(refusal(dir / "huge.png"), platform::picture_error::tooLarge);

  // A drawing has no pixels of its own: however large, it is drawn at a size for the screen.
  expectQuarters(dir.write("huge.eps", test::epsQuarters(20000)));
  EXPECT_LE(files.load(dir / "huge.eps").width, 2001);
}

TEST_F(PictureFiles, DrawsNothingThatReachesOtherFiles) {
  const std::string secret = dir.write("secret", "mine"), written = dir / "written";
  const std::string head = "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 10 10\n";
  EXPECT_EQ(refusal(dir.write("read.eps", head + "(" + secret + ") (r) file closefile showpage\n")),
            platform::picture_error::damaged);
  EXPECT_EQ(refusal(dir.write("write.eps", head + "(" + written + ") (w) file closefile showpage\n")),
            platform::picture_error::damaged);
  EXPECT_FALSE(std::filesystem::exists(written));
}

TEST_F(PictureFiles, SavesAndReadsBack) {
  Picture picture = test::quarters(30, 20);
  files.save(picture, dir / "saved.bmp");
  EXPECT_EQ(files.load(dir / "saved.bmp").argb, picture.argb);
  files.save(picture, dir / "saved.jpg");
  expectQuarters(dir / "saved.jpg");

  picture.at(0, 0) = 0x00123456;  // transparent: paper shows through
  picture.at(1, 0) = 0x80000000;
  files.save(picture, dir / "saved.bmp");
  EXPECT_EQ(files.load(dir / "saved.bmp").at(0, 0), test::white);
  EXPECT_LT(distance(files.load(dir / "saved.bmp").at(1, 0), 0xFF7F7F7F), 3);

  EXPECT_THROW(files.save(picture, dir / "saved.gif"), base::Error);
  EXPECT_THROW(files.save({}, dir / "empty.bmp"), base::Error);
  EXPECT_THROW(files.save(picture, dir / "no such folder/saved.bmp"), base::Error);
  EXPECT_FALSE(std::filesystem::exists(dir / "saved.gif"));
  EXPECT_FALSE(std::filesystem::exists(dir / "empty.bmp"));
}

TEST_F(PictureFiles, KeepsTheOldFileWhenWritingFails) {
  Picture picture = test::quarters(30, 20);
  files.save(picture, dir / "saved.jpg");
  const std::string before = TempDir::read(dir / "saved.jpg");
  // No side of a JPEG may be longer than 65,535 pixels: the write fails half way.
  EXPECT_THROW(files.save(test::quarters(70000, 2), dir / "saved.jpg"), base::Error);
  EXPECT_EQ(TempDir::read(dir / "saved.jpg"), before);
  std::size_t left = 0;
  for (const auto& file : std::filesystem::directory_iterator(dir.path())) left += file.exists() ? 1 : 0;
  EXPECT_EQ(left, 1U);
}

TEST_F(PictureFiles, StopsReadersThatDoNotEnd) {
  using platform::media::runChild;
  const std::string input = dir.write("input", "abc");
  const std::size_t memory = std::size_t{1} << 30U;
  EXPECT_EQ(runChild({"/bin/cat"}, input, {memory, 10, 1000}).output, "abc");
  EXPECT_TRUE(runChild({"/bin/sleep", "100"}, input, {memory, 1, 1000}).stopped);
  EXPECT_TRUE(runChild({"/usr/bin/yes"}, input, {memory, 10, 1000}).stopped);
  EXPECT_NE(runChild({"/bin/false"}, input, {memory, 10, 1000}).exitCode, 0);
  EXPECT_THROW(runChild({"/no/such/program"}, input, {memory, 10, 1000}), base::Error);
}

TEST(DesktopMedia, ExchangesPicturesWithTheClipboard) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  int argc = 1;
  char name[] = "test";
  char* argv[] = {name, nullptr};
  const QGuiApplication application(argc, argv);
  platform::media::DesktopMedia media;
  platform::PictureClipboard& clipboard = *media.ports().clipboard;
  QGuiApplication::clipboard()->setText("no picture");
  EXPECT_FALSE(clipboard.picture().has_value());
  Picture picture = test::quarters(7, 5);
  picture.at(1, 1) = 0x80402010;
  clipboard.setPicture(picture);
  const auto held = clipboard.picture();
  ASSERT_TRUE(held.has_value());
  EXPECT_EQ(held->width, 7);
  EXPECT_EQ(held->argb, picture.argb);
}

}  // namespace
