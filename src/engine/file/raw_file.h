#pragma once

#include <cstdint>
#include <memory>
#include <string>

struct sqlite3_file;
struct sqlite3_vfs;

namespace engine::file {

/// The layer of the operating system below ours.
sqlite3_vfs* systemLayer();

/// A file opened for reading through the operating system's layer, which alone may open and close what
/// SQLite has open.
class RawFile {
 public:
  enum class Part { mainFile, log, journal };
  RawFile(const std::string& path, Part part, bool writable = false);
  ~RawFile();
  RawFile(const RawFile&) = delete;
  RawFile& operator=(const RawFile&) = delete;

  bool isOpen() const { return code_ == 0; }
  int code() const { return code_; }  ///< SQLite's result of the opening
  sqlite3_file* handle() const;
  std::int64_t size() const;  ///< 0 when it can not be told
  bool read(void* to, int size, std::int64_t offset) const;

 private:
  std::unique_ptr<std::uint8_t[]> object_;
  char* name_ = nullptr;
  int code_ = 0;
};

/// Keeps every other connection, of this process or another, out of a file. Reading through RawFile goes on.
class ExclusiveHold {
 public:
  /// Throws 3045 when the file is open anywhere, 70 when it can not be opened. A file that can not be written
  /// is merely kept from being locked by others.
  explicit ExclusiveHold(const std::string& path);
  ~ExclusiveHold();
  ExclusiveHold(const ExclusiveHold&) = delete;
  ExclusiveHold& operator=(const ExclusiveHold&) = delete;

 private:
  std::unique_ptr<RawFile> file_;
};

}  // namespace engine::file
