#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "base/error.h"
#include "platform/media/sane_scanner.h"
#include "support/temp_dir.h"

namespace {

using platform::Picture;
using platform::media::pictureOfFrames;
using platform::media::SaneScanner;
using platform::media::ScannedFrame;
using Colour = ScannedFrame::Colour;

/// SANE with settings of its own: a device that needs no scanner.
struct Scanner : testing::Test {
  test::TempDir dir;

  void configure(const std::string& backends, const std::string& settings) {
    dir.write("dll.conf", backends + "\n");
    dir.write("test.conf", "number_of_devices 1\n" + settings);
    setenv("SANE_CONFIG_DIR", dir.path().c_str(), 1);
  }
  int refusal() {
    try {
      SaneScanner().acquire();
    } catch (const base::Error& error) {
      return error.number();
    }
    return 0;
  }
};

TEST_F(Scanner, AcquiresAPictureInColour) {
  // Pure colours stand in the pattern, which comes in one frame or in three, of a length told or not.
  for (const char* settings : {"", "three-pass true\n", "hand-scanner true\n"}) {
    configure("test", std::string("test-picture \"Color pattern\"\nmode Color\n") + settings);
    const Picture picture = SaneScanner().acquire();
    ASSERT_GT(picture.width, 10) << settings;
    ASSERT_GT(picture.height, 10) << settings;
    const std::set<std::uint32_t> colours(picture.argb.begin(), picture.argb.end());
    for (const std::uint32_t pure : {0xFFFF0000U, 0xFF00FF00U, 0xFF0000FFU, 0xFF000000U})
      EXPECT_EQ(colours.count(pure), 1U) << settings << std::hex << pure;
  }
  configure("test", "test-picture \"Solid white\"\nmode Color\ndepth 16\n");
  const Picture picture = SaneScanner().acquire();
  EXPECT_EQ(picture.argb, std::vector<std::uint32_t>(picture.argb.size(), 0xFFFFFFFFU));
}

TEST_F(Scanner, TellsThatThereIsNoneOrThatItFails) {
  configure("", "");
  EXPECT_EQ(refusal(), platform::noScanner);
  configure("test", "read-status-code \"SANE_STATUS_IO_ERROR\"\n");
  EXPECT_EQ(refusal(), platform::noScanner);
  configure("test", "read-status-code \"SANE_STATUS_NO_DOCS\"\n");
  EXPECT_EQ(refusal(), platform::noScanner);
}

TEST(Frames, BecomeAPicture) {
  const auto only = [](const ScannedFrame& frame) { return pictureOfFrames({frame}).argb; };
  using Pixels = std::vector<std::uint32_t>;
  EXPECT_EQ(only({Colour::grey, 2, 8, 3, std::string("\x00\x80\xEE\xFF\x01", 5)}),
            (Pixels{0xFF000000, 0xFF808080}))
      << "a line that breaks off falls away";
  EXPECT_EQ(only({Colour::grey, 9, 1, 2, std::string("\x80\x80", 2)}),
            (Pixels{0xFF000000, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF,
                    0xFFFFFFFF, 0xFF000000}));
  EXPECT_EQ(only({Colour::rgb, 1, 8, 3, "\x01\x02\x03"}), Pixels{0xFF010203});
  const std::uint16_t wide[] = {0x12FF, 0x3400, 0x5680};
  EXPECT_EQ(only({Colour::rgb, 1, 16, 6, std::string(reinterpret_cast<const char*>(wide), 6)}),
            Pixels{0xFF123456});
  EXPECT_EQ(
      pictureOfFrames(
          {{Colour::blue, 1, 8, 1, "\x03"}, {Colour::red, 1, 8, 1, "\x01"}, {Colour::green, 1, 8, 1, "\x02"}})
          .argb,
      Pixels{0xFF010203});
  for (const ScannedFrame& bad :
       {ScannedFrame{Colour::grey, 0, 8, 1, "x"}, ScannedFrame{Colour::rgb, 2, 8, 5, "12345"},
        ScannedFrame{Colour::grey, 1, 4, 1, "x"}, ScannedFrame{Colour::grey, 1, 8, 1, ""}})
    EXPECT_THROW(pictureOfFrames({bad}), base::Error);
  EXPECT_THROW(pictureOfFrames({{Colour::red, 1, 8, 1, "x"}, {Colour::green, 2, 8, 2, "xx"}}), base::Error);
  EXPECT_THROW(pictureOfFrames({}), base::Error);
}

}  // namespace
