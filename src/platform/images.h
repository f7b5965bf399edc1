#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Pictures: read, written, scanned, and exchanged with the clipboard.
namespace platform {

/// A picture in memory: rows from top to bottom, pixels from left to right, each 0xAARRGGBB with its
/// colours not multiplied by its alpha.
struct Picture {
  int width = 0, height = 0;
  std::vector<std::uint32_t> argb;

  bool empty() const { return argb.empty(); }
  std::uint32_t& at(int x, int y) { return argb[static_cast<std::size_t>(y) * width + x]; }
  std::uint32_t at(int x, int y) const { return argb[static_cast<std::size_t>(y) * width + x]; }
};

/// A picture of more pixels is refused; all work on one stays below a gigabyte.
inline constexpr std::int64_t mostPixels = 100'000'000;

/// Numbers of errors that files of pictures end in, beside 53, 61 and 70.
namespace picture_error {
inline constexpr int damaged = 481;        ///< no picture, or broken
inline constexpr int unknownFormat = 485;  ///< a format that is not read
inline constexpr int tooLarge = 486;       ///< more than mostPixels, or more than a reader's time
inline constexpr int readerMissing = 487;  ///< the program that reads the format is not installed
}  // namespace picture_error

class Images {
 public:
  virtual ~Images() = default;
  /// Reads a file; its extension, in any case, tells the format: bmp, jpg, wmf, gif, pcx, dcx, pcd, psd, png,
  /// tga, eps, wpg. Of several pictures in a file the first. Throws 53, 70, or one of picture_error.
  virtual Picture load(const std::string& path) = 0;
  /// Writes a JPEG (extension jpg) or a bitmap (bmp); transparent parts become white. The old file stays
  /// until the new one is complete. Throws 5 for another extension, 61, 70, 75.
  virtual void save(const Picture& picture, const std::string& path) = 0;
};

/// The clipboard as far as it holds a picture; texts go through Outside.
class PictureClipboard {
 public:
  virtual ~PictureClipboard() = default;
  /// The picture on the clipboard, if there is one.
  virtual std::optional<Picture> picture() = 0;
  virtual void setPicture(const Picture& picture) = 0;
};

}  // namespace platform
