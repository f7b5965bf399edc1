#pragma once

#include <QImage>

#include "platform/images.h"

namespace platform::media {

/// Pictures as the toolkit holds them, and back. The first shares no memory with its picture.
QImage toQImage(const Picture& picture);
Picture fromQImage(QImage image);

/// Files of pictures: read by the toolkit where it knows the format, by other programs where not.
/// Works without an application object.
class PictureFiles : public Images {
 public:
  Picture load(const std::string& path) override;
  void save(const Picture& picture, const std::string& path) override;
};

/// The desktop's clipboard. Needs a QGuiApplication.
class DesktopPictureClipboard : public PictureClipboard {
 public:
  std::optional<Picture> picture() override;
  void setPicture(const Picture& picture) override;
};

}  // namespace platform::media
