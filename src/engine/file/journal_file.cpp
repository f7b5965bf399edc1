#include <cstring>

#include "engine/file/open_file.h"

// The rollback journal: headers of 512 bytes without content, then records of page number, page and checksum.
// The checksum is over plain text, so it is masked by a function of the sealed page's tag.
namespace engine::file {

namespace {

constexpr int smallPart = 512;

int maskChecksum(FileState& file, std::uint8_t* checksum) {
  std::uint8_t mask[tagBytes];
  std::memcpy(mask, file.recordTag.data(), tagBytes);
  if (!file.cipher->hideBlock(mask)) return SQLITE_IOERR;
  for (int i = 0; i < 4; ++i) checksum[i] ^= mask[i];
  return SQLITE_OK;
}

void noteRecord(FileState& file, const std::uint8_t* sealedPage, sqlite3_int64 pageStart) {
  std::memcpy(file.recordTag.data(), sealedPage + tagAt, tagBytes);
  file.recordEnd = pageStart + pageSize;
}

int readPage(FileState& file, std::uint8_t* page, sqlite3_int64 offset) {
  if (offset < 4) return SQLITE_IOERR_READ;
  std::uint8_t* record = file.scratch.data();
  if (const int code = readBelow(file, record, 4 + pageSize, offset - 4); code != SQLITE_OK) return code;
  noteRecord(file, record + 4, offset);
  // A torn record becomes a page of zeros whose checksum does not match: SQLite ends its playback there.
  file.cipher->open(Domain::journal, bigEndian(record), record + 4);
  std::memcpy(page, record + 4, pageSize);
  return SQLITE_OK;
}

int writePage(FileState& file, const std::uint8_t* page, sqlite3_int64 offset) {
  if (file.pageAt != offset) return refuseWrite("a journal page without a number", pageSize, offset);
  file.pageAt = -1;
  if (!file.cipher->seal(Domain::journal, file.pageNumber, page, file.scratch.data()))
    return SQLITE_IOERR_WRITE;
  noteRecord(file, file.scratch.data(), offset);
  return writeBelow(file, file.scratch.data(), pageSize, offset);
}

}  // namespace

int readJournal(FileState& file, std::uint8_t* to, int size, sqlite3_int64 offset) {
  if (size == pageSize) return readPage(file, to, offset);
  const int code = readBelow(file, to, size, offset);
  return code == SQLITE_OK && size == 4 && offset == file.recordEnd ? maskChecksum(file, to) : code;
}

int writeJournal(FileState& file, const std::uint8_t* from, int size, sqlite3_int64 offset) {
  if (size == pageSize) return writePage(file, from, offset);
  if (size > smallPart) return refuseWrite("an unknown part of a journal", size, offset);
  if (size != 4) return writeBelow(file, from, size, offset);
  std::uint8_t word[4];
  std::memcpy(word, from, 4);
  if (offset == file.recordEnd) {
    file.recordEnd = -1;
    if (const int code = maskChecksum(file, word); code != SQLITE_OK) return code;
  } else {
    file.pageAt = offset + 4;
    file.pageNumber = bigEndian(from);
  }
  return writeBelow(file, word, 4, offset);
}

}  // namespace engine::file
