#include "engine/file/vfs.h"

#include <sodium.h>
#include <sqlite3.h>

#include <cerrno>
#include <cstring>
#include <new>

#include "engine/file/open_file.h"
#include "engine/file/probe.h"
#include "engine/types/types.h"

// The table of calls by which SQLite reaches the layer. Nothing may be thrown through it.
namespace engine::file {

namespace {

sqlite3_vfs* below(sqlite3_vfs* layer) {
  return static_cast<sqlite3_vfs*>(layer->pAppData);
}
FileState& state(sqlite3_file* file) {
  return *reinterpret_cast<OpenFile*>(file)->state;
}
sqlite3_file* below(sqlite3_file* file) {
  return state(file).below;
}
const sqlite3_io_methods& methodsBelow(sqlite3_file* file) {
  return *below(file)->pMethods;
}

int closeFile(sqlite3_file* file) {
  auto* open = reinterpret_cast<OpenFile*>(file);
  const int code = methodsBelow(file).xClose(below(file));
  sodium_memzero(open->state->scratch.data(), open->state->scratch.size());
  delete open->state;
  open->state = nullptr;
  return code;
}

int readFile(sqlite3_file* file, void* to, int size, sqlite3_int64 offset) {
  FileState& open = state(file);
  auto* bytes = static_cast<std::uint8_t*>(to);
  switch (open.kind) {
    case Kind::mainFile:
      return readMainFile(open, bytes, size, offset);
    case Kind::log:
      return readLog(open, bytes, size, offset);
    case Kind::journal:
      return readJournal(open, bytes, size, offset);
    case Kind::superJournal:
      return readBelow(open, to, size, offset);
  }
  return SQLITE_IOERR_READ;
}

int writeFile(sqlite3_file* file, const void* from, int size, sqlite3_int64 offset) {
  constexpr int longestName = 1024;
  FileState& open = state(file);
  const auto* bytes = static_cast<const std::uint8_t*>(from);
  switch (open.kind) {
    case Kind::mainFile:
      return writeMainFile(open, bytes, size, offset);
    case Kind::log:
      return writeLog(open, bytes, size, offset);
    case Kind::journal:
      return writeJournal(open, bytes, size, offset);
    case Kind::superJournal:  // names of journals, no content
      return size <= longestName ? writeBelow(open, from, size, offset)
                                 : refuseWrite("a super-journal", size, offset);
  }
  return SQLITE_IOERR_WRITE;
}

int truncateFile(sqlite3_file* file, sqlite3_int64 size) {
  return methodsBelow(file).xTruncate(below(file), size);
}
int syncFile(sqlite3_file* file, int flags) {
  return methodsBelow(file).xSync(below(file), flags);
}
int sizeOfFile(sqlite3_file* file, sqlite3_int64* size) {
  return methodsBelow(file).xFileSize(below(file), size);
}
int lockFile(sqlite3_file* file, int level) {
  return methodsBelow(file).xLock(below(file), level);
}
int unlockFile(sqlite3_file* file, int level) {
  return methodsBelow(file).xUnlock(below(file), level);
}
int checkReserved(sqlite3_file* file, int* result) {
  return methodsBelow(file).xCheckReservedLock(below(file), result);
}
int sectorSize(sqlite3_file* file) {
  return methodsBelow(file).xSectorSize(below(file));
}

int controlFile(sqlite3_file* file, int operation, void* argument) {
  if (operation == SQLITE_FCNTL_MMAP_SIZE) {  // a mapped file would be read unopened
    *static_cast<sqlite3_int64*>(argument) = 0;
    return SQLITE_OK;
  }
  if (operation == SQLITE_FCNTL_CHUNK_SIZE) return SQLITE_OK;  // growing in chunks would leave unsealed pages
  if (operation == SQLITE_FCNTL_PRAGMA) {
    char** words = static_cast<char**>(argument);
    const bool fixed = sqlite3_stricmp(words[1], "page_size") == 0 ||
                       sqlite3_stricmp(words[1], "mmap_size") == 0 ||
                       sqlite3_stricmp(words[1], "temp_store_directory") == 0;
    if (words[2] != nullptr && fixed) return SQLITE_OK;
  }
  return methodsBelow(file).xFileControl(below(file), operation, argument);
}

int characteristics(sqlite3_file* file) {
  constexpr int harmless =
      SQLITE_IOCAP_SAFE_APPEND | SQLITE_IOCAP_SEQUENTIAL | SQLITE_IOCAP_UNDELETABLE_WHEN_OPEN;
  // Without the power-safe flag SQLite splits log frames at sector ends and pads journal headers to a page.
  return (methodsBelow(file).xDeviceCharacteristics(below(file)) & harmless) |
         SQLITE_IOCAP_POWERSAFE_OVERWRITE;
}

int mapIndex(sqlite3_file* file, int region, int size, int extend, void volatile** address) {
  return methodsBelow(file).xShmMap(below(file), region, size, extend, address);
}
int lockIndex(sqlite3_file* file, int offset, int count, int flags) {
  return methodsBelow(file).xShmLock(below(file), offset, count, flags);
}
void indexBarrier(sqlite3_file* file) {
  methodsBelow(file).xShmBarrier(below(file));
}
int unmapIndex(sqlite3_file* file, int remove) {
  return methodsBelow(file).xShmUnmap(below(file), remove);
}

// Version 2: the shared index of the log, but no mapping of the file itself.
const sqlite3_io_methods methods = {
    2,         closeFile,    readFile,      writeFile,   truncateFile, syncFile,        sizeOfFile,
    lockFile,  unlockFile,   checkReserved, controlFile, sectorSize,   characteristics, mapIndex,
    lockIndex, indexBarrier, unmapIndex,    nullptr,     nullptr};

bool kindOf(int flags, Kind& kind) {
  if ((flags & SQLITE_OPEN_MAIN_DB) != 0)
    kind = Kind::mainFile;
  else if ((flags & SQLITE_OPEN_WAL) != 0)
    kind = Kind::log;
  else if ((flags & SQLITE_OPEN_MAIN_JOURNAL) != 0)
    kind = Kind::journal;
  else if ((flags & SQLITE_OPEN_SUPER_JOURNAL) != 0)
    kind = Kind::superJournal;
  else
    return false;
  return true;
}

// A file that the credential does not open is refused here, before SQLite could take its log for worthless
// and delete it.
int giveCipher(FileState& file, const char* name) {
  Credential credential;
  if (!lentCredential(name, credential)) return SQLITE_AUTH;
  sqlite3_int64 size = 0;
  if (const int code = file.below->pMethods->xFileSize(file.below, &size); code != SQLITE_OK) return code;
  if (size == 0) {
    file.cipher = deriveCipher(credential, newSalt(credential));
    return SQLITE_OK;
  }
  const Probe found = probe(file.below, name, credential);
  if (!found.anyPageGood) return SQLITE_NOTADB;
  file.cipher = found.cipher;
  return SQLITE_OK;
}

int openState(sqlite3_vfs* layer, const char* name, OpenFile* open, Kind kind, int flags, int* flagsOut) {
  auto file = std::make_unique<FileState>();
  file->kind = kind;
  file->below = reinterpret_cast<sqlite3_file*>(open + 1);
  if (kind == Kind::log || kind == Kind::journal)
    file->cipher = state(sqlite3_database_file_object(name)).cipher;
  int code = below(layer)->xOpen(below(layer), name, file->below, flags, flagsOut);
  if (code == SQLITE_OK && kind == Kind::mainFile) {
    try {
      code = giveCipher(*file, name);
    } catch (...) {
      file->below->pMethods->xClose(file->below);
      throw;
    }
  }
  if (code != SQLITE_OK) {
    if (file->below->pMethods != nullptr) file->below->pMethods->xClose(file->below);
    return code;
  }
  open->state = file.release();
  open->base.pMethods = &methods;
  return SQLITE_OK;
}

int openFile(sqlite3_vfs* layer, const char* name, sqlite3_file* file, int flags, int* flagsOut) {
  auto* open = reinterpret_cast<OpenFile*>(file);
  std::memset(file, 0, static_cast<std::size_t>(layer->szOsFile));
  Kind kind;
  if (name == nullptr || !kindOf(flags, kind)) {
    sqlite3_log(SQLITE_CANTOPEN, "a temporary file is refused: it would be readable");
    return SQLITE_CANTOPEN;
  }
  try {
    return openState(layer, name, open, kind, flags, flagsOut);
  } catch (const std::bad_alloc&) {
    return SQLITE_NOMEM;
  } catch (const std::exception& problem) {
    sqlite3_log(SQLITE_CANTOPEN, "%s", problem.what());
    return SQLITE_CANTOPEN;
  }
}

int deleteFile(sqlite3_vfs* layer, const char* name, int syncFolder) {
  return below(layer)->xDelete(below(layer), name, syncFolder);
}
int accessFile(sqlite3_vfs* layer, const char* name, int flags, int* result) {
  return below(layer)->xAccess(below(layer), name, flags, result);
}
int fullName(sqlite3_vfs* layer, const char* name, int size, char* out) {
  return below(layer)->xFullPathname(below(layer), name, size, out);
}
int randomness(sqlite3_vfs* layer, int size, char* out) {
  return below(layer)->xRandomness(below(layer), size, out);
}
int sleepFor(sqlite3_vfs* layer, int microseconds) {
  return below(layer)->xSleep(below(layer), microseconds);
}
int currentTime(sqlite3_vfs* layer, double* out) {
  return below(layer)->xCurrentTime(below(layer), out);
}
int lastError(sqlite3_vfs* layer, int size, char* out) {
  return below(layer)->xGetLastError(below(layer), size, out);
}
int currentTime64(sqlite3_vfs* layer, sqlite3_int64* out) {
  return below(layer)->xCurrentTimeInt64(below(layer), out);
}

sqlite3_vfs makeLayer() {
  if (sodium_init() < 0) throw Error(errors::permissionDenied, "The encryption library does not start.");
  sqlite3_vfs* system = systemLayer();
  sqlite3_vfs layer{};
  layer.iVersion = 2;
  layer.szOsFile = static_cast<int>(sizeof(OpenFile)) + system->szOsFile;
  layer.mxPathname = system->mxPathname;
  layer.zName = layerName;
  layer.pAppData = system;
  layer.xOpen = openFile;
  layer.xDelete = deleteFile;
  layer.xAccess = accessFile;
  layer.xFullPathname = fullName;
  layer.xRandomness = randomness;
  layer.xSleep = sleepFor;
  layer.xCurrentTime = currentTime;
  layer.xGetLastError = lastError;
  layer.xCurrentTimeInt64 = currentTime64;
  return layer;  // no xDlOpen: extensions can not be loaded
}

}  // namespace

int writeBelow(FileState& file, const void* from, int size, sqlite3_int64 offset) {
  errno = 0;
  const int code = file.below->pMethods->xWrite(file.below, from, size, offset);
  return code == SQLITE_IOERR_WRITE && (errno == EDQUOT || errno == EFBIG) ? SQLITE_FULL : code;
}

int refuseWrite(const char* what, int size, sqlite3_int64 offset) {
  sqlite3_log(SQLITE_IOERR_WRITE, "refused to write %s (%d bytes at %lld)", what, size, offset);
  return SQLITE_IOERR_WRITE;
}

void registerLayer() {
  static sqlite3_vfs layer = makeLayer();  // SQLite keeps the address
  if (sqlite3_vfs_find(layerName) != &layer && sqlite3_vfs_register(&layer, 0) != SQLITE_OK)
    throw Error(errors::permissionDenied, "The database library refuses the encrypted file layer.");
}

void reserve(sqlite3* connection, const std::string& schemaName) {
  int bytes = reservedBytes;
  if (sqlite3_file_control(connection, schemaName.c_str(), SQLITE_FCNTL_RESERVE_BYTES, &bytes) != SQLITE_OK)
    throw Error(errors::notADictionary, "The file attached as " + schemaName + " can not be encrypted.");
}

}  // namespace engine::file
