#pragma once

#include "platform/desk.h"
#include "platform/media/picture_files.h"
#include "platform/media/qt_sound_device.h"
#include "platform/media/sane_scanner.h"
#include "platform/media/sound_commands.h"

namespace platform::media {

/// All ports of a desktop for pictures and sound. Needs a QGuiApplication; lives as long as the desk that
/// holds its ports. No device is touched before it is used.
class DesktopMedia {
 public:
  Media ports() { return {&images_, &clipboard_, &scanner_, &sound_}; }
  bool soundDevicePresent() const { return device_.present(); }

 private:
  PictureFiles images_;
  DesktopPictureClipboard clipboard_;
  SaneScanner scanner_;
  QtSoundDevice device_;
  SoundCommands sound_{device_};
};

}  // namespace platform::media
