#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/scanner.h"

namespace platform::media {

/// The first scanner of this computer that SANE knows. The variable SANE_CONFIG_DIR chooses its settings.
class SaneScanner : public Scanner {
 public:
  Picture acquire() override;
};

/// What one transfer of a scanner gives; colours come in one frame or in three.
struct ScannedFrame {
  enum class Colour { grey, rgb, red, green, blue };
  Colour colour = Colour::grey;
  int width = 0, depth = 8;  ///< bits a sample: 1 (black is 1), 8 or 16 in the processor's byte order
  std::size_t bytesPerLine = 0;
  std::string bytes;
};
/// The picture of all frames of a scan; lines that are not whole fall away. Throws noScanner where the frames
/// make none.
Picture pictureOfFrames(const std::vector<ScannedFrame>& frames);

}  // namespace platform::media
