#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/media/wave_files.h"
#include "platform/sound.h"

namespace platform::media {

/// What records and plays behind the commands. Throws sound_error::noDevice.
class SoundDevice {
 public:
  using Take = std::function<void(std::string_view pcm)>;

  virtual ~SoundDevice() = default;
  /// Hands over samples as they come, in the thread that began the recording.
  virtual void startRecording(const WaveFormat& format, Take take) = 0;
  /// Hands over what is left before it returns.
  virtual void stopRecording() = 0;
  /// Plays behind the caller's back; ends what plays already.
  virtual void play(const WaveSound& sound) = 0;
  virtual SoundCapabilities capabilities() = 0;
};

/// A recording ends by itself after so many seconds.
inline constexpr int longestRecording = 30 * 60;

/// The interpreter of the command strings.
class SoundCommands : public Sound {
 public:
  explicit SoundCommands(SoundDevice& device) : device_(device) {}
  ~SoundCommands() override;

  std::string send(const std::string& command) override;
  void setFolder(const std::string& folder) override { folder_ = folder; }
  SoundCapabilities capabilities() override { return device_.capabilities(); }

 private:
  struct Recording {
    std::string alias;
    WaveFormat format;
    std::string pcm;
    bool running = false;
  };

  void open(const std::vector<std::string>& words);
  void set(const std::vector<std::string>& words);
  void record();
  void stop();

  SoundDevice& device_;
  std::string folder_;
  std::optional<Recording> recording_;
};

}  // namespace platform::media
