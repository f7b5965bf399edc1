#pragma once

#include <string>
#include <vector>

namespace platform::media {

struct WaveFormat {
  int samplesPerSecond = 11025;
  int bits = 8;  ///< 8 (unsigned) or 16 (signed, the processor's byte order)
  int channels = 1;

  int bytesPerSecond() const { return samplesPerSecond * channels * bits / 8; }
};

/// A sound as it is played: 16 bits a sample whatever the file has, channels in turn.
struct WaveSound {
  WaveFormat format;  ///< of the file
  std::vector<short> samples;
};

/// Writes samples of a format, as the device gave them, as a WAV file; the old file stays until the new one
/// is complete. Throws 61, 70.
void writeWave(const std::string& path, const WaveFormat& format, const std::string& pcm);
/// Throws 53, 70, sound_error::badFile.
WaveSound readWave(const std::string& path);

}  // namespace platform::media
