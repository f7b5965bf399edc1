#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "engine/file/keys.h"

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
  RawFile(const std::string& path, Part part);
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

/// What a bounded look at a file tells.
struct Probe {
  std::int64_t size = 0;
  bool hasSalt = false;  ///< some page bears a salt of this program
  Salt salt{};           ///< page 1's when that is authentic, else the one most pages agree on
  bool firstPageGood = false;
  bool anyPageGood = false;                  ///< some page of file, log or journal opens with the credential
  bool mayHeal = false;                      ///< a log or journal with content lies beside
  std::uint32_t pagesByHeader = 0;           ///< what page 1 says, 0 when it does not open or leaves it out
  std::shared_ptr<const PageCipher> cipher;  ///< null without a salt of a known scheme
};

/// `open` is the file at `path`, in any mode, opened by the operating system's layer.
Probe probe(sqlite3_file* open, const std::string& path, const Credential& credential);

}  // namespace engine::file
