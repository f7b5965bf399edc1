#pragma once

#include <cstdint>
#include <string>

#include "platform/images.h"

/// The controls of the entry editor that show its picture and its sound.
namespace entry {

struct PictureControls {
  platform::Picture Lead1;  ///< the picture in hand, which Picture1 shows
  bool deleteEnabled = false, zoomEnabled = false;
  int version = 0;  ///< another one for each picture in Lead1
};

struct SoundControls {
  std::int64_t recordedId = 0;  ///< entry that the alias "recwave" records for; 0: none is open
  bool recordEnabled = true, stopEnabled = false;  ///< SSCommand9(0) and (1); (2) is playEnabled
  bool Timer2 = false;                             ///< runs, 10 times a second
  bool progressShown = false;
  int progress = 0;  ///< percent of the bar, which begins again when it is full
};

}  // namespace entry
