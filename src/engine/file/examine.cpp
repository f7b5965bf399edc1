#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>

#include "engine/file/open_file.h"
#include "engine/file/probe.h"
#include "engine/types/types.h"

namespace engine::file {

namespace {

constexpr int lockWait = 2000, lockPause = 20;  // milliseconds

void mustBeReadable(const std::string& path) {
  std::error_code problem;
  const auto status = std::filesystem::status(path, problem);
  if (status.type() == std::filesystem::file_type::not_found)
    throw Error(errors::fileNotFound, "The file " + path + " does not exist.");
  if (problem || ::access(path.c_str(), R_OK) != 0)
    throw Error(errors::permissionDenied, "No permission to read the file " + path + ".");
  if (!std::filesystem::is_regular_file(status)) throw Error(errors::notADictionary, noDictionaryText(path));
}

void mustNotBeLocked(const RawFile& file, const std::string& path) {
  const auto* methods = file.handle()->pMethods;
  for (int waited = 0;; waited += lockPause) {
    const int code = methods->xLock(file.handle(), SQLITE_LOCK_SHARED);
    if (code == SQLITE_OK) break;
    if (code != SQLITE_BUSY || waited >= lockWait)
      throw Error(errors::locked, "The file " + path + " is opened exclusively by another program.");
    sqlite3_sleep(lockPause);
  }
  methods->xUnlock(file.handle(), SQLITE_LOCK_NONE);
}

}  // namespace

std::string noDictionaryText(const std::string& path) {
  return path + " is not a dictionary.";
}

std::string otherCredentialText(const std::string& path) {
  return path + " is a dictionary of another user or with another password.";
}

std::string damagedText(const std::string& path) {
  return "The dictionary " + path + " is damaged or cut off. A repair copies what can still be read.";
}

std::string unknownSchemeText(const std::string& path, int scheme) {
  return path + " was written by a later version of the program (encryption scheme " +
         std::to_string(scheme) + ").";
}

void examine(const std::string& path, const Credential& credential) {
  mustBeReadable(path);
  const RawFile file(path, RawFile::Part::mainFile);
  if (file.isOpen()) mustNotBeLocked(file, path);
  const Probe found = probeOrThrow(file, path, credential);
  if (found.mayHeal) return;
  if (!found.firstPageGood || found.size % pageSize != 0 || found.size / pageSize < found.pagesByHeader)
    throw Error(errors::notADictionary, damagedText(path));
}

}  // namespace engine::file
