#include <algorithm>
#include <cstring>

#include "base/error.h"
#include "platform/media/sane_scanner.h"

namespace platform::media {
namespace {

/// One sample as eight bits.
std::uint32_t sample(const ScannedFrame& frame, int line, int column) {
  const char* const row = frame.bytes.data() + static_cast<std::size_t>(line) * frame.bytesPerLine;
  if (frame.depth == 1)
    return (static_cast<unsigned char>(row[column / 8]) >> (7 - column % 8) & 1) != 0 ? 0 : 255;
  if (frame.depth == 8) return static_cast<unsigned char>(row[column]);
  std::uint16_t wide = 0;
  std::memcpy(&wide, row + 2 * column, sizeof wide);
  return wide >> 8U;
}

int linesOf(const ScannedFrame& frame) {
  const std::size_t samples =
      static_cast<std::size_t>(frame.width) * (frame.colour == ScannedFrame::Colour::rgb ? 3 : 1);
  const bool known = frame.depth == 1 || frame.depth == 8 || frame.depth == 16;
  if (frame.width < 1 || !known ||
      frame.bytesPerLine < (samples * static_cast<std::size_t>(frame.depth) + 7) / 8)
    return 0;
  return static_cast<int>(frame.bytes.size() / frame.bytesPerLine);
}

void addFrame(Picture& picture, const ScannedFrame& frame) {
  using Colour = ScannedFrame::Colour;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      std::uint32_t& pixel = picture.at(x, y);
      if (frame.colour == Colour::rgb) {
        pixel |=
            sample(frame, y, 3 * x) << 16U | sample(frame, y, 3 * x + 1) << 8U | sample(frame, y, 3 * x + 2);
        continue;
      }
      const std::uint32_t value = sample(frame, y, x);
      if (frame.colour == Colour::grey) pixel |= value << 16U | value << 8U | value;
      if (frame.colour == Colour::red) pixel |= value << 16U;
      if (frame.colour == Colour::green) pixel |= value << 8U;
      if (frame.colour == Colour::blue) pixel |= value;
    }
  }
}

}  // namespace

Picture pictureOfFrames(const std::vector<ScannedFrame>& frames) {
  Picture picture;
  for (const ScannedFrame& frame : frames) {
    const int lines = linesOf(frame);
    picture.height = picture.width == 0 ? lines : std::min(picture.height, lines);
    if (picture.width == 0) picture.width = frame.width;
    if (picture.width != frame.width) picture.height = 0;
  }
  if (picture.height == 0) throw base::Error(noScanner, "The scanner sent no picture.");
  if (std::int64_t{picture.width} * picture.height > mostPixels)
    throw base::Error(picture_error::tooLarge, "The scanned picture is too large.");
  constexpr std::uint32_t opaqueBlack = 0xFF000000;
  picture.argb.assign(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height),
                      opaqueBlack);
  for (const ScannedFrame& frame : frames) addFrame(picture, frame);
  return picture;
}

}  // namespace platform::media
