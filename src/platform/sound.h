#pragma once

#include <array>
#include <string>

namespace platform {

/// Numbers of errors of sound commands, beside those of files.
namespace sound_error {
inline constexpr int badCommand = 489;  ///< no command, or not in this state
inline constexpr int noDevice = 490;    ///< no device for recording or playing, or it refuses the format
inline constexpr int badFile = 491;     ///< no sound file, or damaged
}  // namespace sound_error

/// What the first device for playing can do.
struct SoundCapabilities {
  std::string name;
  /// In the order 11.025, 22.05, 44.1 kHz; within each mono 8 bit, stereo 8 bit, mono 16 bit, stereo 16 bit.
  std::array<bool, 12> formats{};
};

/// Recording and playing by command strings. At most one recording runs, under the alias that opened it:
///   open new type waveaudio alias NAME
///   set NAME bitspersample 8|16      set NAME samplespersec 11025|22050|44100      set NAME channels 1|2
///   record NAME     stop NAME     save NAME FILE     close NAME     play PATH
///   status NAME mode     ("recording" or "stopped")
/// A command returns at once; playing goes on behind it, and a further play ends it.
class Sound {
 public:
  virtual ~Sound() = default;
  /// Carries out a command and returns its answer, empty for all but status. Throws one of sound_error, and
  /// 53, 61, 70 for files. A saved file appears whole or not at all.
  virtual std::string send(const std::string& command) = 0;
  /// The folder of files that a later command names without one.
  virtual void setFolder(const std::string& folder) = 0;
  /// Throws sound_error::noDevice.
  virtual SoundCapabilities capabilities() = 0;
};

}  // namespace platform
