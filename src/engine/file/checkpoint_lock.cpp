#include "engine/file/checkpoint_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>

namespace engine::file {

CheckpointLock::CheckpointLock(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  const int opened = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (opened < 0) return;
  if (::flock(opened, LOCK_EX | LOCK_NB) == 0)
    folder_ = opened;
  else
    ::close(opened);
}

CheckpointLock::~CheckpointLock() {
  if (folder_ >= 0) ::close(folder_);
}

}  // namespace engine::file
