#include <cstring>

#include "engine/file/open_file.h"

namespace engine::file {

namespace {

constexpr int headerBytes = 100;

int openPage(const FileState& file, std::uint8_t* page, std::uint32_t number) {
  if (file.cipher->open(Domain::mainFile, number, page)) return SQLITE_OK;
  return number == 1 ? SQLITE_NOTADB : SQLITE_IOERR_DATA;
}

// SQLite reads the header before a journal or the log can heal a torn page 1. All it takes from it then are
// the page size and the reserved bytes, and both are constants here.
void standInHeader(std::uint8_t* header) {
  std::memset(header, 0, headerBytes);
  std::memcpy(header, "SQLite format 3", 16);
  header[16] = pageSize >> 8;
  header[18] = header[19] = 1;
  header[20] = reservedBytes;
  header[21] = 64;
  header[22] = header[23] = 32;
}

int writePage(FileState& file, const std::uint8_t* page, std::uint32_t number) {
  if (!file.cipher->seal(Domain::mainFile, number, page, file.scratch.data())) return SQLITE_IOERR_WRITE;
  return writeBelow(file, file.scratch.data(), pageSize, sqlite3_int64{number - 1} * pageSize);
}

// SQLite leaves out unused pages when a file grows. They are written as sealed zeros, so that a page of
// plain zeros is always damage.
int fillGap(FileState& file, std::uint32_t upTo) {
  sqlite3_int64 size = 0;
  if (const int code = file.below->pMethods->xFileSize(file.below, &size); code != SQLITE_OK) return code;
  static constexpr std::array<std::uint8_t, pageSize> zeros{};
  for (auto number = static_cast<std::uint32_t>(size / pageSize + 1); number < upTo; ++number) {
    if (number == lockBytePage) continue;
    if (number == 1) return refuseWrite("a first page that is not page 1", pageSize, 0);
    if (const int code = writePage(file, zeros.data(), number); code != SQLITE_OK) return code;
  }
  return SQLITE_OK;
}

}  // namespace

int readMainFile(FileState& file, std::uint8_t* to, int size, sqlite3_int64 offset) {
  const int within = static_cast<int>(offset % pageSize);
  const sqlite3_int64 pageStart = offset - within;
  const auto number = static_cast<std::uint32_t>(pageStart / pageSize + 1);
  if (within + size > pageSize) return SQLITE_IOERR_READ;
  if (size == pageSize) {
    const int code = readBelow(file, to, size, offset);
    return code == SQLITE_OK ? openPage(file, to, number) : code;
  }
  std::uint8_t* page = file.scratch.data();
  int code = readBelow(file, page, pageSize, pageStart);
  if (code == SQLITE_IOERR_SHORT_READ) std::memset(to, 0, size);
  if (code != SQLITE_OK) return code;
  code = openPage(file, page, number);
  if (code == SQLITE_NOTADB && offset == 0 && size == headerBytes) {
    standInHeader(to);
    return SQLITE_OK;
  }
  if (code == SQLITE_OK) std::memcpy(to, page + within, size);
  return code;
}

int writeMainFile(FileState& file, const std::uint8_t* from, int size, sqlite3_int64 offset) {
  if (size != pageSize || offset % pageSize != 0) return refuseWrite("a part of a page", size, offset);
  if (offset == 0 && (from[16] != pageSize >> 8 || from[17] != 0 || from[20] != reservedBytes))
    return refuseWrite("a page 1 without reserved bytes", size, offset);
  const auto number = static_cast<std::uint32_t>(offset / pageSize + 1);
  if (number > 1)
    if (const int code = fillGap(file, number); code != SQLITE_OK) return code;
  return writePage(file, from, number);
}

}  // namespace engine::file
