#pragma once

#include <cstdint>
#include <string>

#include "platform/images.h"

/// Pictures and files of pictures for tests, written byte by byte where no program writes the format.
namespace test {

inline constexpr std::uint32_t red = 0xFFFF0000, green = 0xFF00FF00, blue = 0xFF0000FF, white = 0xFFFFFFFF;

/// Four quarters: red, green above blue, white.
inline platform::Picture quarters(int width, int height) {
  platform::Picture picture{width, height, {}};
  picture.argb.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      picture.at(x, y) = y < height / 2 ? (x < width / 2 ? red : green) : (x < width / 2 ? blue : white);
  return picture;
}

/// Bytes of a file, numbers with the low byte first.
class Bytes {
 public:
  Bytes& u8(unsigned value) {
    text += static_cast<char>(value & 255U);
    return *this;
  }
  Bytes& u16(unsigned value) { return u8(value).u8(value >> 8U); }
  Bytes& u32(unsigned value) { return u16(value).u16(value >> 16U); }
  Bytes& raw(const std::string& bytes) {
    text += bytes;
    return *this;
  }
  std::string text;
};

/// A vector drawing of the four quarters, with the header that tells its size (in 1/1440 inch).
inline std::string wmfQuarters(unsigned width, unsigned height) {
  Bytes header;
  header.u32(0x9AC6CDD7).u16(0).u16(0).u16(0).u16(width).u16(height).u16(1440).u32(0);
  unsigned checksum = 0;
  for (std::size_t i = 0; i < header.text.size(); i += 2)
    checksum ^= static_cast<unsigned char>(header.text[i]) |
                static_cast<unsigned>(static_cast<unsigned char>(header.text[i + 1])) << 8U;
  header.u16(checksum);

  Bytes records;
  const auto record = [&](unsigned function, std::initializer_list<unsigned> parameters) {
    records.u32(static_cast<unsigned>(3 + parameters.size())).u16(function);
    for (const unsigned parameter : parameters) records.u16(parameter);
  };
  record(0x020B, {0, 0});           // window origin
  record(0x020C, {height, width});  // window extent
  record(0x02FA, {5, 0, 0, 0, 0});  // no pen
  record(0x012D, {0});
  const unsigned colours[] = {0x0000FF, 0x00FF00, 0xFF0000, 0xFFFFFF};  // blue, green, red from the top byte
  for (unsigned n = 0; n < 4; ++n) {
    const unsigned left = (n % 2) * (width / 2), top = (n / 2) * (height / 2);
    record(0x02FC, {0, colours[n] & 0xFFFF, colours[n] >> 16U, 0});  // brush
    record(0x012D, {n + 1});
    record(0x041B, {top + height / 2, left + width / 2, top, left});  // rectangle
  }
  record(0, {});
  Bytes file;
  file.raw(header.text).u16(1).u16(9).u16(0x0300);
  file.u32(static_cast<unsigned>(9 + records.text.size() / 2)).u16(5).u32(8).u16(0).raw(records.text);
  return file.text;
}

/// A bitmap of 256 colours in run lengths, in the first version of the format.
inline std::string wpgQuarters(unsigned width, unsigned height) {
  Bytes bitmap;
  bitmap.u16(width).u16(height).u16(8).u16(75).u16(75);
  for (unsigned y = 0; y < height; ++y)
    for (unsigned half = 0; half < 2; ++half)
      bitmap.u8(0x80 | (width / 2)).u8((y < height / 2 ? 0U : 2U) + half);
  Bytes file;
  file.raw("\xFFWPC").u32(16).u8(1).u8(0x16).u8(1).u8(0).u16(0).u16(0);
  file.u8(0x0F).u8(6).u8(1).u8(0).u16(width).u16(height);
  file.u8(0x0E).u8(16).u16(0).u16(4).raw({"\xFF\0\0\0\xFF\0\0\0\xFF\xFF\xFF\xFF", 12});
  file.u8(0x0B).u8(0xFF).u16(static_cast<unsigned>(bitmap.text.size())).raw(bitmap.text);
  file.u8(0x10).u8(0);
  return file.text;
}

/// A drawing of the four quarters, `side` points wide and two thirds of it high.
inline std::string epsQuarters(int side) {
  const std::string w = std::to_string(side), h = std::to_string(side * 2 / 3);
  const std::string half = " " + w + " 2 div " + h + " 2 div rectfill\n";
  return "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 " + w + " " + h + "\n%%EndComments\n" +
         "1 0 0 setrgbcolor 0 " + h + " 2 div" + half + "0 1 0 setrgbcolor " + w + " 2 div " + h + " 2 div" +
         half + "0 0 1 setrgbcolor 0 0" + half + "1 1 1 setrgbcolor " + w + " 2 div 0" + half +
         "showpage\n%%EOF\n";
}

}  // namespace test
