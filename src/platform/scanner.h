#pragma once

#include "platform/images.h"

namespace platform {

/// No scanner is there, or it does not do what it is asked to.
inline constexpr int noScanner = 488;

class Scanner {
 public:
  virtual ~Scanner() = default;
  /// Acquires one picture from the first scanner, in colour where it can; waits until it is done. Throws
  /// noScanner, or picture_error::tooLarge.
  virtual Picture acquire() = 0;
};

}  // namespace platform
