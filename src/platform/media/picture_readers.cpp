#include "platform/media/picture_readers.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "platform/images.h"
#include "platform/media/child_process.h"

namespace platform::media {
namespace {

constexpr std::size_t megabyte = 1024 * 1024;
constexpr ChildLimits limits{3072 * megabyte, 30, 600 * megabyte};

const std::string damagedText = "The file is damaged or holds no picture: ";

std::string installed(const std::vector<std::string>& programs, const std::string& name) {
  for (const std::string& program : programs)
    if (std::filesystem::exists(program)) return program;
  throw base::Error(picture_error::readerMissing,
                    "This picture format needs " + name + ", which is not installed.");
}

bool tooLarge(const ChildResult& result) {
  if (result.stopped) return true;
  for (const char* part :
       {"exceeds limit", "resources exhausted", "limit exceeded", "emory allocation failed"})
    if (result.errors.find(part) != std::string::npos) return true;
  return false;
}

QImage decoded(const ChildResult& result, const std::string& path) {
  if (tooLarge(result)) throw base::Error(picture_error::tooLarge, "The picture is too large: " + path);
  QImage image;
  if (result.exitCode == 0)
    image = QImage::fromData(reinterpret_cast<const uchar*>(result.output.data()),
                             static_cast<int>(result.output.size()));
  if (image.isNull()) throw base::Error(picture_error::damaged, damagedText + path);
  return image;
}

struct Box {
  double left, bottom, right, top;
};

/// The box of a drawing in points, out of its header comments; they may say that it stands at the end.
std::optional<Box> boundingBox(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  constexpr std::string_view key = "%%BoundingBox:";
  constexpr std::size_t longestNumbers = 100;
  for (std::size_t at = text.find(key); at != std::string::npos; at = text.find(key, at + key.size())) {
    std::istringstream numbers(text.substr(at + key.size(), longestNumbers));
    Box box{};
    if (numbers >> box.left >> box.bottom >> box.right >> box.top) return box;
  }
  return std::nullopt;
}

}  // namespace

QImage readByImageMagick(const std::string& path, const std::string& coder) {
  const std::string pixels = std::to_string(mostPixels);
  const std::string side = std::to_string(mostPixels / 1000);
  const ChildResult result = runChild({installed({"/usr/bin/magick", "/usr/bin/convert"}, "ImageMagick"),
                                       "-limit",
                                       "width",
                                       side,
                                       "-limit",
                                       "height",
                                       side,
                                       "-limit",
                                       "area",
                                       pixels,
                                       "-limit",
                                       "memory",
                                       "1GiB",
                                       "-limit",
                                       "map",
                                       "1GiB",
                                       "-limit",
                                       "disk",
                                       "1GiB",
                                       coder + ":" + childInput + "[0]",
                                       "-colorspace",
                                       "sRGB",
                                       "-alpha",
                                       "set",
                                       "-depth",
                                       "8",
                                       "BMP:-"},
                                      path, limits);
  const QImage image = decoded(result, path);
  // A WPG file that breaks off is answered with one pixel.
  if (coder == "WPG" && image.width() == 1 && image.height() == 1)
    throw base::Error(picture_error::damaged, damagedText + path);
  return image;
}

QImage readByGhostscript(const std::string& path) {
  const std::string program = installed({"/usr/bin/gs"}, "Ghostscript");
  const std::optional<Box> box = boundingBox(path);
  const double longest = box ? std::max(box->right - box->left, box->top - box->bottom) : 0;
  if (!(longest > 0) || !(box->right > box->left) || !(box->top > box->bottom))
    throw base::Error(picture_error::damaged, "The file has no drawing with a bounding box: " + path);
  constexpr double usualDensity = 150, pointsPerInch = 72;
  const double density = std::min(usualDensity, longestDrawnSide * pointsPerInch / longest);
  const ChildResult result =
      runChild({program, "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-dEPSCrop", "-dLastPage=1",
                "-dTextAlphaBits=4", "-dGraphicsAlphaBits=4", "-sDEVICE=pngalpha",
                "-r" + std::to_string(density), "-sstdout=%stderr", "-sOutputFile=-", "-f", childInput},
               path, limits);
  return decoded(result, path);
}

}  // namespace platform::media
