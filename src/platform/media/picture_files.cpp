#include "platform/media/picture_files.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QImageWriter>
#include <QLoggingCategory>
#include <QPainter>
#include <QSaveFile>
#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "platform/media/picture_readers.h"

namespace platform::media {
namespace {

enum class Reader { toolkit, imageMagick, ghostscript, none };

struct Format {
  std::string_view extension;
  Reader reader;
  const char* coder;  ///< the reader's own name of the format
};

constexpr std::array<Format, 14> formats{{{"bmp", Reader::toolkit, "bmp"},
                                          {"jpg", Reader::toolkit, "jpeg"},
                                          {"jpeg", Reader::toolkit, "jpeg"},
                                          {"wmf", Reader::imageMagick, "WMF"},
                                          {"gif", Reader::toolkit, "gif"},
                                          {"pcx", Reader::imageMagick, "PCX"},
                                          {"dcx", Reader::imageMagick, "DCX"},
                                          {"pcd", Reader::imageMagick, "PCD"},
                                          {"fpx", Reader::none, "FlashPix"},
                                          {"psd", Reader::imageMagick, "PSD"},
                                          {"png", Reader::toolkit, "png"},
                                          {"tga", Reader::imageMagick, "TGA"},
                                          {"eps", Reader::ghostscript, ""},
                                          {"wpg", Reader::imageMagick, "WPG"}}};

std::string extensionOf(const std::string& path) {
  const std::size_t point = path.find_last_of("./");
  return point == std::string::npos || path[point] == '/' ? "" : base::lower(path.substr(point + 1));
}

[[noreturn]] void refuse(int number, const char* what, const std::string& path) {
  throw base::Error(number, what + path);
}

/// ImageMagick has a try at what the toolkit can not read, before a file is called damaged: it also tells
/// why, where a picture is too large.
QImage readByToolkit(const std::string& path) {
  // What is wrong with a file is told by the error alone, not on the terminal as well.
  QLoggingCategory::setFilterRules("qt.gui.imageio*=false");
  QImageReader::setAllocationLimit(static_cast<int>(mostPixels * 8 / (1024 * 1024)));
  QImageReader reader(QString::fromStdString(path));
  // A picture under another one's extension is read all the same, but nothing that is no plain raster.
  reader.setDecideFormatFromContent(true);
  const QByteArray found = reader.format();
  const auto format = std::find_if(formats.begin(), formats.end(), [&](const Format& each) {
    return each.reader == Reader::toolkit && found == each.coder;
  });
  if (format == formats.end())
    refuse(picture_error::damaged, "The file is damaged or holds no picture: ", path);
  const QSize size = reader.size();
  if (std::int64_t{size.width()} * size.height() > mostPixels)
    refuse(picture_error::tooLarge, "The picture is too large: ", path);
  reader.setAutoTransform(true);
  const QImage image = reader.read();
  return image.isNull() ? readByImageMagick(path, format->coder) : image;
}

}  // namespace

QImage toQImage(const Picture& picture) {
  if (picture.empty()) return {};
  return QImage(reinterpret_cast<const uchar*>(picture.argb.data()), picture.width, picture.height,
                picture.width * 4, QImage::Format_ARGB32)
      .copy();
}

Picture fromQImage(QImage image) {
  image.convertTo(QImage::Format_ARGB32);
  Picture picture{image.width(), image.height(), {}};
  const auto width = static_cast<std::size_t>(picture.width);
  picture.argb.resize(width * static_cast<std::size_t>(picture.height));
  for (int y = 0; y < picture.height; ++y)
    std::memcpy(picture.argb.data() + static_cast<std::size_t>(y) * width, image.constScanLine(y), width * 4);
  return picture;
}

Picture PictureFiles::load(const std::string& path) {
  const QFileInfo file(QString::fromStdString(path));
  if (!file.isFile()) refuse(53, "The file does not exist: ", path);
  if (!file.isReadable()) refuse(70, "The file can not be read: ", path);
  const std::string extension = extensionOf(path);
  for (const Format& format : formats) {
    if (format.extension != extension) continue;
    QImage image;
    if (format.reader == Reader::toolkit) image = readByToolkit(path);
    if (format.reader == Reader::imageMagick) image = readByImageMagick(path, format.coder);
    if (format.reader == Reader::ghostscript) image = readByGhostscript(path);
    if (format.reader == Reader::none)
      refuse(picture_error::unknownFormat, "FlashPix pictures (fpx) can not be read: ", path);
    if (std::int64_t{image.width()} * image.height() > mostPixels)
      refuse(picture_error::tooLarge, "The picture is too large: ", path);
    return fromQImage(std::move(image));
  }
  refuse(picture_error::unknownFormat, "This picture format can not be read: ", path);
}

void PictureFiles::save(const Picture& picture, const std::string& path) {
  const std::string extension = extensionOf(path);
  if (extension != "jpg" && extension != "bmp")
    throw base::Error(5, "Pictures are written as jpg or bmp, not as \"" + extension + "\".");
  if (picture.empty()) throw base::Error(picture_error::damaged, "There is no picture to write.");
  QImage opaque(picture.width, picture.height, QImage::Format_RGB32);
  if (opaque.isNull()) throw base::Error(7, "There is not enough memory.");
  opaque.fill(Qt::white);
  const QImage source(reinterpret_cast<const uchar*>(picture.argb.data()), picture.width, picture.height,
                      picture.width * 4, QImage::Format_ARGB32);
  QPainter(&opaque).drawImage(0, 0, source);

  QSaveFile file(QString::fromStdString(path));
  if (!file.open(QIODevice::WriteOnly)) refuse(70, "The file can not be written: ", path);
  constexpr int jpegQuality = 90;
  QImageWriter writer(&file, extension.c_str());
  writer.setQuality(jpegQuality);
  const bool written = writer.write(opaque);
  if (!written && file.error() == QFileDevice::NoError)
    refuse(picture_error::tooLarge, "The picture is too large for its format: ", path);
  if (!written || !file.commit()) refuse(61, "The disk is full or fails: ", path);
}

std::optional<Picture> DesktopPictureClipboard::picture() {
  QImage image = QGuiApplication::clipboard()->image();
  if (image.isNull()) return std::nullopt;
  if (std::int64_t{image.width()} * image.height() > mostPixels)
    throw base::Error(picture_error::tooLarge, "The picture on the clipboard is too large.");
  return fromQImage(std::move(image));
}

void DesktopPictureClipboard::setPicture(const Picture& picture) {
  QGuiApplication::clipboard()->setImage(toQImage(picture));
}

}  // namespace platform::media
