#include <cstring>

#include "engine/file/open_file.h"

// The write-ahead log: a header of 32 bytes, then frames of 24 + 4096 bytes. Bytes 8 to 23 of a frame's
// header (the log's salts and a checksum over plain text) go to disk as one permuted block.
namespace engine::file {

namespace {

constexpr int hiddenAt = 8;

int readFrame(FileState& file, std::uint8_t* frame, sqlite3_int64 offset) {
  const int code = readBelow(file, frame, frameBytes, offset);
  if (code != SQLITE_OK) return code;
  const bool good = file.cipher->showBlock(frame + hiddenAt) &&
                    file.cipher->open(Domain::log, bigEndian(frame), frame + frameHeaderBytes);
  // A torn tail has to look like a frame that does not belong here, where recovery ends; as an
  // input error it would make the whole log unreadable.
  if (!good) std::memset(frame + hiddenAt, 0, frameHeaderBytes - hiddenAt);
  return SQLITE_OK;
}

int readFramePage(FileState& file, std::uint8_t* page, sqlite3_int64 frameStart) {
  std::uint8_t* frame = file.scratch.data();
  const int code = readBelow(file, frame, frameBytes, frameStart);
  if (code != SQLITE_OK) return code;
  if (!file.cipher->open(Domain::log, bigEndian(frame), frame + frameHeaderBytes)) return SQLITE_IOERR_DATA;
  std::memcpy(page, frame + frameHeaderBytes, pageSize);
  return SQLITE_OK;
}

int readFrameHeader(FileState& file, std::uint8_t* to, int size, sqlite3_int64 frameStart, int within) {
  std::uint8_t header[frameHeaderBytes];
  const int code = readBelow(file, header, frameHeaderBytes, frameStart);
  if (code != SQLITE_OK) return code;
  if (!file.cipher->showBlock(header + hiddenAt)) return SQLITE_IOERR_READ;
  std::memcpy(to, header + within, size);
  return SQLITE_OK;
}

int writeFrameHeader(FileState& file, const std::uint8_t* from, sqlite3_int64 offset) {
  std::uint8_t header[frameHeaderBytes];
  std::memcpy(header, from, frameHeaderBytes);
  if (!file.cipher->hideBlock(header + hiddenAt)) return SQLITE_IOERR_WRITE;
  file.pageAt = offset + frameHeaderBytes;
  file.pageNumber = bigEndian(from);
  return writeBelow(file, header, frameHeaderBytes, offset);
}

// Within a transaction SQLite may write a page again into its old frame, without the header.
int writeFramePage(FileState& file, const std::uint8_t* page, sqlite3_int64 offset) {
  std::uint32_t number = file.pageNumber;
  if (file.pageAt != offset) {
    std::uint8_t bytes[4];
    if (const int code = readBelow(file, bytes, 4, offset - frameHeaderBytes); code != SQLITE_OK) return code;
    number = bigEndian(bytes);
  }
  if (!file.cipher->seal(Domain::log, number, page, file.scratch.data())) return SQLITE_IOERR_WRITE;
  return writeBelow(file, file.scratch.data(), pageSize, offset);
}

}  // namespace

int readLog(FileState& file, std::uint8_t* to, int size, sqlite3_int64 offset) {
  if (offset < logHeaderBytes)
    return offset + size <= logHeaderBytes ? readBelow(file, to, size, offset) : SQLITE_IOERR_READ;
  const int within = static_cast<int>((offset - logHeaderBytes) % frameBytes);
  const sqlite3_int64 frameStart = offset - within;
  if (within == 0 && size == frameBytes) return readFrame(file, to, offset);
  if (within == frameHeaderBytes && size == pageSize) return readFramePage(file, to, frameStart);
  if (within + size <= frameHeaderBytes) return readFrameHeader(file, to, size, frameStart, within);
  return SQLITE_IOERR_READ;
}

int writeLog(FileState& file, const std::uint8_t* from, int size, sqlite3_int64 offset) {
  if (offset == 0 && size == logHeaderBytes) return writeBelow(file, from, size, offset);
  const sqlite3_int64 within = offset < logHeaderBytes ? -1 : (offset - logHeaderBytes) % frameBytes;
  if (within == 0 && size == frameHeaderBytes) return writeFrameHeader(file, from, offset);
  if (within == frameHeaderBytes && size == pageSize) return writeFramePage(file, from, offset);
  return refuseWrite("an unknown part of a log", size, offset);
}

}  // namespace engine::file
