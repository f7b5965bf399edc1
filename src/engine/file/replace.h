#pragma once

#include <string>

/// Putting a new file in an old one's place, so that a kill or a power loss leaves the one or the other.
/// None of the files may be open in this process.
namespace engine::file {

/// The name of a file in the making beside `path` ("WORDS.CVB~compact"). Only who has the file to itself
/// may use it; what an earlier, killed run left under it is removed with removeFile().
std::string siblingName(const std::string& path, const std::string& purpose);
/// Removes a file and SQLite's -wal, -shm and -journal beside it, where they exist. Throws 70, 61.
void removeFile(const std::string& path);
/// Brings the content of a file to the disk; SQLite does not for a file it closes. Throws 61, 70, 53.
void syncFile(const std::string& path);
/// Brings the names in a file's folder to the disk.
void syncFolderOf(const std::string& path);
enum class OldLog { mustBeEmpty, isWorthless };
/// Renames `sibling` over `path`: synced before, the folder after, nothing of the old log left. A log that
/// must be empty and is not was left by someone who opened the old file meanwhile: throws 3045 and leaves
/// that in place.
void replaceBy(const std::string& path, const std::string& sibling, OldLog oldLog = OldLog::mustBeEmpty);

/// A file in the making beside its later place. What is not finished is removed.
class NewFile {
 public:
  /// Removes what an earlier, killed run left.
  NewFile(std::string target, const std::string& purpose);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  const std::string& path() const { return path_; }
  /// Puts the complete, closed file at its place; see replaceBy().
  void finish(OldLog oldLog = OldLog::mustBeEmpty);

 private:
  std::string target_, path_;
  bool finished_ = false;
};

/// An unused name beside `path` that tells what it is ("WORDS_rescued.CVB", "WORDS_rescued2.CVB" ...).
std::string nameBeside(const std::string& path, const std::string& what);
/// Gives the file at `path` a second, unused name that tells what it is ("WORDS_damaged.CVB",
/// "WORDS_damaged2.CVB" ...), and its log and journal too; returns that. The file stays at `path` as well.
std::string keepAside(const std::string& path, const std::string& what);

/// Throws the Error for an errno of a file operation: 61, 70, 53, 3044.
[[noreturn]] void raiseSystem(int code, const std::string& doing, const std::string& path);

}  // namespace engine::file
