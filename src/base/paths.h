#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace base {

/// Dictionary paths are held upper-cased and found without regard to case; this remembers the real
/// spelling of each path that came from the user or the system.
///
/// "/" is the separator; a "\" in a path from data counts as one. Not thread-safe: one per session.
class Paths {
 public:
  /// Notes how a path is really spelled; returns it upper-cased.
  std::string remember(std::string_view real);
  /// The real spelling: a remembered one, else the file or folder that exists under these letters in any
  /// case (each folder of the path is looked through), else the path as it stands with the deepest
  /// existing folder's real spelling. Throws Error 3044 naming the path when two real ones match.
  std::filesystem::path real(std::string_view path) const;
  bool exists(std::string_view path) const;

 private:
  std::map<std::string, std::string> known_;  // upper-cased to real
};

/// The part behind the last separator, and the part before it (without the separator).
std::string fileName(std::string_view path);
std::string folderOf(std::string_view path);
/// The path without its last four characters: a dictionary's media folder, whatever those four are.
std::string withoutExtension4(std::string_view path);

}  // namespace base
