#include "engine/file/raw_file.h"

#include <sqlite3.h>
#include <unistd.h>

#include "engine/types/types.h"

namespace engine::file {

sqlite3_vfs* systemLayer() {
  sqlite3_vfs* layer = sqlite3_vfs_find("unix");
  if (layer == nullptr) throw Error(errors::permissionDenied, "The database library has no file access.");
  return layer;
}

RawFile::RawFile(const std::string& path, Part part, bool writable) {
  sqlite3_vfs* layer = systemLayer();
  object_ = std::make_unique<std::uint8_t[]>(static_cast<std::size_t>(layer->szOsFile));
  const char* suffix = part == Part::log ? "-wal" : part == Part::journal ? "-journal" : "";
  const int type = part == Part::log       ? SQLITE_OPEN_WAL
                   : part == Part::journal ? SQLITE_OPEN_MAIN_JOURNAL
                                           : SQLITE_OPEN_MAIN_DB;
  name_ = const_cast<char*>(sqlite3_create_filename((path + suffix).c_str(), "", "", 0, nullptr));
  const int access = writable ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY;
  int flags = 0;
  code_ = name_ == nullptr ? SQLITE_NOMEM : layer->xOpen(layer, name_, handle(), type | access, &flags);
}

RawFile::~RawFile() {
  if (handle()->pMethods != nullptr) handle()->pMethods->xClose(handle());
  sqlite3_free_filename(name_);
}

sqlite3_file* RawFile::handle() const {
  return reinterpret_cast<sqlite3_file*>(object_.get());
}

std::int64_t RawFile::size() const {
  sqlite3_int64 size = 0;
  return isOpen() && handle()->pMethods->xFileSize(handle(), &size) == SQLITE_OK ? size : 0;
}

bool RawFile::read(void* to, int size, std::int64_t offset) const {
  return isOpen() && handle()->pMethods->xRead(handle(), to, size, offset) == SQLITE_OK;
}

ExclusiveHold::ExclusiveHold(const std::string& path) {
  // Asked before: SQLite opens for reading what it can not open for writing, and then can not lock it alone.
  const bool writable = ::access(path.c_str(), W_OK) == 0;
  file_ = std::make_unique<RawFile>(path, RawFile::Part::mainFile, writable);
  if (!file_->isOpen()) throw Error(errors::permissionDenied, "The file " + path + " can not be opened.");
  const auto* methods = file_->handle()->pMethods;
  int code = methods->xLock(file_->handle(), SQLITE_LOCK_SHARED);
  if (code == SQLITE_OK && writable) code = methods->xLock(file_->handle(), SQLITE_LOCK_EXCLUSIVE);
  if (code != SQLITE_OK)
    throw Error(errors::locked, "The file " + path + " is open in this or another program.");
}

ExclusiveHold::~ExclusiveHold() {
  file_->handle()->pMethods->xUnlock(file_->handle(), SQLITE_LOCK_NONE);
}

}  // namespace engine::file
