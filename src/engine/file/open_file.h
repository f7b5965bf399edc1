#pragma once

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>

#include "engine/file/page_cipher.h"

namespace engine::file {

/// What SQLite opens through the layer; every other kind (temporary files above all) is refused.
enum class Kind { mainFile, log, journal, superJournal };

/// A file of SQLite's as the layer holds it. The read and write calls below return SQLite's result codes and
/// know the shapes in which SQLite reads and writes each kind; any other shape is refused.
struct FileState {
  Kind kind;
  sqlite3_file* below;  ///< the operating system's layer; owned by OpenFile
  std::shared_ptr<const PageCipher> cipher;
  std::array<std::uint8_t, pageSize + 32> scratch;
  /// A log frame's header or a journal record's number was written last: its page belongs at `pageAt`.
  sqlite3_int64 pageAt = -1;
  std::uint32_t pageNumber = 0;
  /// End of the journal page read or written last, where its checksum stands, and the page's tag.
  sqlite3_int64 recordEnd = -1;
  std::array<std::uint8_t, tagBytes> recordTag;
};

/// SQLite allocates this, with the operating system layer's own file object behind it.
struct OpenFile {
  sqlite3_file base;
  FileState* state;  ///< owned; null until opened
};

int readMainFile(FileState& file, std::uint8_t* to, int size, sqlite3_int64 offset);
int writeMainFile(FileState& file, const std::uint8_t* from, int size, sqlite3_int64 offset);
int readLog(FileState& file, std::uint8_t* to, int size, sqlite3_int64 offset);
int writeLog(FileState& file, const std::uint8_t* from, int size, sqlite3_int64 offset);
int readJournal(FileState& file, std::uint8_t* to, int size, sqlite3_int64 offset);
int writeJournal(FileState& file, const std::uint8_t* from, int size, sqlite3_int64 offset);

/// Logs and returns the failure for a write of a shape that the layer does not know.
int refuseWrite(const char* what, int size, sqlite3_int64 offset);

inline int readBelow(FileState& file, void* to, int size, sqlite3_int64 offset) {
  return file.below->pMethods->xRead(file.below, to, size, offset);
}
/// A full quota and a limit of the file's size count as a full disk.
int writeBelow(FileState& file, const void* from, int size, sqlite3_int64 offset);
inline std::uint32_t bigEndian(const std::uint8_t* bytes) {
  return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 |
         bytes[3];
}
inline bool allZero(const std::uint8_t* bytes, int size) {
  return std::all_of(bytes, bytes + size, [](std::uint8_t byte) { return byte == 0; });
}

/// The page that holds SQLite's lock bytes: never written, a hole in any file above 1 GiB.
inline constexpr std::uint32_t lockBytePage = 0x40000000 / pageSize + 1;

// Shapes of the log and the journal.
inline constexpr int logHeaderBytes = 32, frameHeaderBytes = 24, frameBytes = frameHeaderBytes + pageSize;
inline constexpr int journalHeaderBytes = 512, recordBytes = 4 + pageSize + 4;

}  // namespace engine::file
