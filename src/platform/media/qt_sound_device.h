#pragma once

#include <memory>

#include "platform/media/sound_commands.h"

namespace platform::media {

/// The desktop's default devices for recording and playing. Needs an application object, and its event loop
/// while it records or plays.
class QtSoundDevice : public SoundDevice {
 public:
  QtSoundDevice();
  ~QtSoundDevice() override;

  void startRecording(const WaveFormat& format, Take take) override;
  void stopRecording() override;
  void play(const WaveSound& sound) override;
  SoundCapabilities capabilities() override;
  /// Whether there is a device for playing.
  bool present() const;

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace platform::media
