#include "engine/file/replace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "engine/types/types.h"

namespace engine::file {

namespace {

constexpr const char* besides[] = {"-wal", "-shm", "-journal"};

void removeOne(const std::string& path) {
  if (::unlink(path.c_str()) != 0 && errno != ENOENT) raiseSystem(errno, "remove", path);
}

void sync(const std::string& path, int flags) {
  const int opened = ::open(path.c_str(), flags | O_CLOEXEC);
  if (opened < 0) raiseSystem(errno, "open", path);
  const int code = ::fsync(opened) == 0 ? 0 : errno;
  ::close(opened);
  // Some file systems can not sync a folder; their names are as safe as they get.
  if (code != 0 && code != EINVAL) raiseSystem(code, "write", path);
}

// A second name where the file system has links, else a copy.
void duplicate(const std::string& from, const std::string& to) {
  if (::link(from.c_str(), to.c_str()) == 0) return;
  if (errno == EEXIST || errno == ENOENT) raiseSystem(errno, "keep", from);
  std::error_code problem;
  if (!std::filesystem::copy_file(from, to, problem)) raiseSystem(problem.value(), "copy", from);
  syncFile(to);
}

}  // namespace

void raiseSystem(int code, const std::string& doing, const std::string& path) {
  const std::string text = "Can not " + doing + " " + path + ": " + std::strerror(code) + ".";
  switch (code) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      throw Error(errors::diskFull, text);
    case EACCES:
    case EPERM:
    case EROFS:
      throw Error(errors::permissionDenied, text);
    case ENOENT:
      throw Error(errors::fileNotFound, text);
    default:
      throw Error(errors::badPath, text);
  }
}

std::string siblingName(const std::string& path, const std::string& purpose) {
  return path + "~" + purpose;
}

void removeFile(const std::string& path) {
  for (const char* beside : besides) removeOne(path + beside);
  removeOne(path);
}

void syncFile(const std::string& path) {
  sync(path, O_RDONLY);
}

void syncFolderOf(const std::string& path) {
  sync(std::filesystem::path(path).parent_path().string(), O_RDONLY | O_DIRECTORY);
}

void replaceBy(const std::string& path, const std::string& sibling, OldLog oldLog) {
  syncFile(sibling);
  std::error_code missing;
  for (const char* log : {"-wal", "-journal"}) {
    if (oldLog == OldLog::mustBeEmpty && std::filesystem::file_size(path + log, missing) > 0 && !missing)
      throw Error(errors::locked, "The file " + path + " was opened by another program meanwhile.");
  }
  for (const char* beside : besides) removeOne(sibling + beside);
  // A journal would be played back into the new file. The pages of a log do not open under its salt.
  removeOne(path + "-journal");
  if (::rename(sibling.c_str(), path.c_str()) != 0) raiseSystem(errno, "replace", path);
  syncFolderOf(path);
  removeOne(path + "-wal");
  removeOne(path + "-shm");
}

NewFile::NewFile(std::string target, const std::string& purpose)
    : target_(std::move(target)), path_(siblingName(target_, purpose)) {
  removeFile(path_);
}

NewFile::~NewFile() {
  if (finished_) return;
  std::error_code ignored;  // the failure that brought us here is the one to tell
  for (const char* part : {"", "-wal", "-shm", "-journal"}) std::filesystem::remove(path_ + part, ignored);
}

void NewFile::finish(OldLog oldLog) {
  replaceBy(target_, path_, oldLog);
  finished_ = true;
}

std::string nameBeside(const std::string& path, const std::string& what) {
  const std::filesystem::path whole(path);
  const std::string stem = (whole.parent_path() / whole.stem()).string() + "_" + what;
  const auto taken = [](const std::string& name) {
    return std::any_of(std::begin(besides), std::end(besides),
                       [&](const char* beside) { return std::filesystem::exists(name + beside); }) ||
           std::filesystem::exists(name);
  };
  std::string kept = stem + whole.extension().string();
  for (int number = 2; taken(kept); ++number)
    kept = stem + std::to_string(number) + whole.extension().string();
  return kept;
}

std::string keepAside(const std::string& path, const std::string& what) {
  const std::string kept = nameBeside(path, what);
  for (const char* log : {"-wal", "-journal"}) {
    if (std::filesystem::exists(path + log)) duplicate(path + log, kept + log);
  }
  duplicate(path, kept);
  syncFolderOf(path);
  return kept;
}

}  // namespace engine::file
