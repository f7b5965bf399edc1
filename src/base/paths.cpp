#include "base/paths.h"

#include <algorithm>
#include <system_error>
#include <vector>

#include "base/error.h"
#include "base/text.h"

namespace base {
namespace {

namespace fs = std::filesystem;

std::string withSlashes(std::string_view path) {
  std::string result(path);
  std::replace(result.begin(), result.end(), '\\', '/');
  return result;
}

std::string withoutClosingSlash(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

std::string keyOf(std::string_view path) {
  return upper(withoutClosingSlash(withSlashes(path)));
}

// What lies in a folder under a name of any case. A folder that can be passed but not listed is asked
// for the name as it stands.
std::vector<fs::path> spelledLike(const fs::path& folder, const std::string& name) {
  std::error_code code;
  if (name == "." || name == "..") return {folder / name};
  const fs::path exact = folder.empty() ? fs::path(name) : folder / name;
  std::vector<fs::path> found;
  fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, code);
  if (code) {
    if (fs::exists(fs::symlink_status(exact, code))) found.push_back(exact);
    return found;
  }
  for (const fs::directory_iterator end; entry != end && !code; entry.increment(code)) {
    const std::string real = entry->path().filename().string();
    if (equalsIgnoreCase(real, name)) found.push_back(folder.empty() ? fs::path(real) : folder / real);
  }
  return found;
}

struct Match {
  std::vector<fs::path> found;       // every real spelling of the part that exists
  std::vector<std::string> missing;  // the names behind it, as they stand
};

Match match(const std::string& path) {
  Match result;
  const bool absolute = !path.empty() && path.front() == '/';
  result.found.emplace_back(absolute ? "/" : "");
  std::vector<std::string> names = split(path, "/");
  std::erase(names, std::string());
  for (const std::string& name : names) {
    std::vector<fs::path> next;
    if (result.missing.empty()) {
      for (const fs::path& folder : result.found) {
        for (fs::path& one : spelledLike(folder, name)) next.push_back(std::move(one));
      }
    }
    if (next.empty()) {
      result.missing.push_back(name);
    } else {
      result.found = std::move(next);
    }
  }
  return result;
}

}  // namespace

std::string Paths::remember(std::string_view real) {
  const std::string path = withSlashes(real);
  known_[keyOf(path)] = withoutClosingSlash(path);
  return upper(path);
}

fs::path Paths::real(std::string_view path) const {
  const std::string wanted = withSlashes(path);
  if (const auto known = known_.find(keyOf(wanted)); known != known_.end()) return known->second;

  Match found = match(wanted);
  if (found.found.size() > 1) {
    // Between several folders that differ in case alone, one that a remembered path lies in is meant.
    std::erase_if(found.found, [&](const fs::path& one) {
      const std::string folder = (found.missing.empty() ? one.parent_path() : one).string() + "/";
      return std::none_of(known_.begin(), known_.end(),
                          [&](const auto& entry) { return entry.second.starts_with(folder); });
    });
    if (found.found.size() != 1) {
      throw Error(3044,
                  "\"" + wanted + "\" stands for several files that differ in upper and lower case alone.");
    }
  }
  fs::path result = found.found.front();
  for (const std::string& name : found.missing) result /= name;
  return result;
}

bool Paths::exists(std::string_view path) const {
  const std::string wanted = withSlashes(path);
  std::error_code code;
  if (const auto known = known_.find(keyOf(wanted)); known != known_.end()) {
    return fs::exists(known->second, code);
  }
  return !wanted.empty() && match(wanted).missing.empty();
}

std::string fileName(std::string_view path) {
  const std::size_t at = path.find_last_of("/\\");
  return std::string(at == std::string_view::npos ? path : path.substr(at + 1));
}

std::string folderOf(std::string_view path) {
  const std::size_t at = path.find_last_of("/\\");
  return std::string(at == std::string_view::npos ? std::string_view() : path.substr(0, at));
}

std::string withoutExtension4(std::string_view path) {
  const std::size_t all = length(path);
  return all <= 4 ? std::string() : left(path, all - 4);
}

}  // namespace base
