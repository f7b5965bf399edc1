#include "store/files.h"

#include <algorithm>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "shell/session/routines.h"
#include "shell/session/texts.h"

namespace store {

namespace fs = std::filesystem;

std::string ReplaceBlanks(std::string_view path) {
  std::string result(path);
  const std::size_t separator = result.find_last_of("/\\");
  const std::size_t name = separator == std::string::npos ? 0 : separator + 1;
  std::replace(result.begin() + static_cast<std::ptrdiff_t>(name), result.end(), ' ', '_');
  return result;
}

std::filesystem::path mediaFolder(const session::Session& s, std::string_view dictionary) {
  return s.files.paths.real(base::withoutExtension4(s.files.paths.real(dictionary).string()));
}

void CheckIfDBDirExists(session::Session& s, std::string_view dictionary) {
  const fs::path folder = mediaFolder(s, dictionary);
  std::error_code failed;
  fs::create_directories(folder, failed);
  if (failed)
    throw base::Error(session::fileError(failed, folder.string()).number(),
                      session::dialogText(s, dialog::media_not_writable) + " " + folder.string());
  s.files.DictFolder = "/" + base::withoutExtension4(dictionary);
}

std::string withExtension(std::string path) {
  return base::fileName(path).find('.') == std::string::npos ? path + ".CVB" : path;
}

std::string sessionPath(session::Session& s, std::string_view path) {
  return s.files.paths.remember(
      fs::absolute(s.files.paths.real(base::trim(path))).lexically_normal().string());
}

void deleteDictionaryFile(const session::Session& s, std::string_view path) {
  const fs::path real = s.files.paths.real(path);
  for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
    std::error_code failed;
    fs::remove(real.string() + suffix, failed);
    if (failed) throw session::fileError(failed, real.string());
  }
}

}  // namespace store
