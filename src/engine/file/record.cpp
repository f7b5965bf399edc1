#include "engine/file/record.h"

#include <bit>

namespace engine::file {

namespace {

constexpr int integerBytes[] = {0, 1, 2, 3, 4, 6, 8};

std::int64_t readInteger(Bytes bytes) {
  std::uint64_t value = !bytes.empty() && (bytes[0] & 0x80) != 0 ? ~std::uint64_t{0} : 0;
  for (const std::uint8_t byte : bytes) value = value << 8 | byte;
  return static_cast<std::int64_t>(value);
}

std::uint64_t storedBytes(std::uint64_t type) {
  if (type >= 12) return (type - 12) / 2;
  if (type == 7) return 8;
  return type <= 6 ? static_cast<std::uint64_t>(integerBytes[type]) : 0;
}

StoredValue readValue(std::uint64_t type, Bytes bytes) {
  if (type == 0) return {};
  if (type == 7) return std::bit_cast<double>(readInteger(bytes));
  if (type == 8 || type == 9) return static_cast<std::int64_t>(type - 8);
  if (type <= 6) return readInteger(bytes);
  std::string text(bytes.begin(), bytes.end());
  if (type % 2 == 0) return Blob{std::move(text)};
  return text;
}

// The start of a text whose end is lost, without half a character at its end.
std::string startOfText(Bytes bytes) {
  std::size_t size = bytes.size();
  while (size > 0 && (bytes[size - 1] & 0xC0) == 0x80) --size;
  if (size > 0 && bytes[size - 1] >= 0xC0) --size;
  return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)};
}

}  // namespace

std::optional<std::uint64_t> readVarint(Bytes bytes, std::size_t& at) {
  std::uint64_t value = 0;
  for (int i = 0; i < 9; ++i) {
    if (at >= bytes.size()) return {};
    const std::uint8_t byte = bytes[at++];
    if (i == 8) return value << 8 | byte;
    value = value << 7 | (byte & 0x7F);
    if (byte < 0x80) return value;
  }
  return value;
}

Record decodeRecord(Bytes bytes) {
  Record record;
  std::size_t at = 0;
  const auto headerSize = readVarint(bytes, at);
  if (!headerSize || *headerSize > bytes.size()) return {{}, false};
  std::size_t body = static_cast<std::size_t>(*headerSize);
  while (at < *headerSize) {
    const auto type = readVarint(bytes, at);
    if (!type || *type == 10 || *type == 11) return {std::move(record.values), false};
    const std::uint64_t size = storedBytes(*type);
    if (size <= bytes.size() - body) {
      record.values.push_back(readValue(*type, bytes.subspan(body, static_cast<std::size_t>(size))));
      body += static_cast<std::size_t>(size);
      continue;
    }
    if (*type >= 13 && *type % 2 == 1) record.values.emplace_back(startOfText(bytes.subspan(body)));
    record.whole = false;
    return record;
  }
  return record;
}

}  // namespace engine::file
