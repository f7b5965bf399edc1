#pragma once

#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace test {

/// While it lives no file of this process can grow beyond the size that `file` has now: what is written to a
/// log then fails as on a full disk, for root as well and without a mount.
class FullDisk {
 public:
  explicit FullDisk(const std::filesystem::path& file) : before_(std::signal(SIGXFSZ, SIG_IGN)) {
    if (getrlimit(RLIMIT_FSIZE, &limit_) != 0) throw std::runtime_error("no limit can be read");
    setLimit(std::filesystem::file_size(file));
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &limit_);
    std::signal(SIGXFSZ, before_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void setLimit(rlim_t bytes) const {
    const rlimit tight{bytes, limit_.rlim_max};
    if (setrlimit(RLIMIT_FSIZE, &tight) != 0) throw std::runtime_error("no limit can be set");
  }

  rlimit limit_{};
  void (*before_)(int);
};

}  // namespace test
