#pragma once

#include <array>
#include <cstdint>

#include "engine/file/open_file.h"
#include "engine/file/raw_file.h"

namespace engine::file {

/// Walks the frames of a log as recovery does, with the running checksum of SQLite's format, and beyond the
/// frame where recovery ends.
class LogScan {
 public:
  LogScan(const RawFile& log, const PageCipher& cipher);

  /// Reads the next frame; false at the end of the file.
  bool next();
  bool valid() const { return valid_; }  ///< recovery takes this frame and all before it
  /// Authentic and of this log's present round, so written after what stands before it.
  bool ours() const { return ours_; }
  std::uint32_t pageNumber() const { return bigEndian(frame_.data()); }
  bool commits() const { return bigEndian(&frame_[4]) != 0; }  ///< ends a transaction
  const std::uint8_t* page() const { return &frame_[frameHeaderBytes]; }
  std::int64_t pageOffset() const { return at_ - pageSize; }

 private:
  std::uint32_t word(const std::uint8_t* bytes) const;
  void add(const std::uint8_t* bytes, int size);

  const RawFile& log_;
  const PageCipher& cipher_;
  std::array<std::uint8_t, frameBytes> frame_{};
  std::array<std::uint8_t, 8> salts_{};
  std::int64_t at_ = logHeaderBytes;
  bool saltsKnown_ = false, valid_ = false, ours_ = false, bigEndianWords_ = false;
  std::uint32_t first_ = 0, second_ = 0;
};

}  // namespace engine::file
