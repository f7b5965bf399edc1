#include "engine/file/log_scan.h"

#include <cstring>

namespace engine::file {

namespace {

constexpr int headerSalts = 16, headerSum = 24, frameSalts = 8, frameSum = 16;
constexpr std::uint32_t logMagic = 0x377f0682;  // its lowest bit tells the order of the checksum's words

}  // namespace

LogScan::LogScan(const RawFile& log, const PageCipher& cipher) : log_(log), cipher_(cipher) {
  std::array<std::uint8_t, logHeaderBytes> header;
  if (!log.read(header.data(), logHeaderBytes, 0)) return;
  bigEndianWords_ = (bigEndian(header.data()) & 1) != 0;
  add(header.data(), headerSum);
  valid_ = (bigEndian(header.data()) & ~1U) == logMagic && bigEndian(&header[headerSum]) == first_ &&
           bigEndian(&header[headerSum + 4]) == second_;
  saltsKnown_ = valid_;
  std::memcpy(salts_.data(), &header[headerSalts], salts_.size());
}

std::uint32_t LogScan::word(const std::uint8_t* bytes) const {
  if (bigEndianWords_) return bigEndian(bytes);
  return std::uint32_t{bytes[3]} << 24 | std::uint32_t{bytes[2]} << 16 | std::uint32_t{bytes[1]} << 8 |
         bytes[0];
}

void LogScan::add(const std::uint8_t* bytes, int size) {
  for (int i = 0; i < size; i += 8) {
    first_ += word(bytes + i) + second_;
    second_ += word(bytes + i + 4) + first_;
  }
}

bool LogScan::next() {
  if (!log_.read(frame_.data(), frameBytes, at_)) return false;
  at_ += frameBytes;
  const bool shown = cipher_.showBlock(&frame_[frameSalts]);
  const bool authentic = cipher_.open(Domain::log, pageNumber(), &frame_[frameHeaderBytes]);
  if (authentic && !saltsKnown_) {  // the log's own header is damaged: its first frame tells
    std::memcpy(salts_.data(), &frame_[frameSalts], salts_.size());
    saltsKnown_ = true;
  }
  ours_ = shown && authentic && std::memcmp(&frame_[frameSalts], salts_.data(), salts_.size()) == 0;
  if (valid_) {
    add(frame_.data(), frameSalts);
    add(page(), pageSize);
    valid_ = ours_ && bigEndian(&frame_[frameSum]) == first_ && bigEndian(&frame_[frameSum + 4]) == second_;
  }
  return true;
}

}  // namespace engine::file
