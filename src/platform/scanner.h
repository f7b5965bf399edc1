#pragma once

#include "platform/images.h"

namespace platform {

/// No scanner is there, or it does not answer.
inline constexpr int noScanner = 488;

class Scanner {
 public:
  virtual ~Scanner() = default;
  /// Acquires one picture from the first scanner in colour; waits until it is done. Throws noScanner, or
  /// picture_error::damaged when the transfer breaks off.
  virtual Picture acquire() = 0;
};

}  // namespace platform
