#pragma once

#include <string>

namespace engine::file {

/// The right to bring a log into its file (checkpoint), held by one connection at a time across all
/// processes. SQLite before 3.51.3 can lose a log that is reset while two connections checkpoint it.
///
/// It is an flock on the file's folder: it needs no file of its own, ends with the process, and leaves
/// SQLite's POSIX locks on the dictionary alone. Files of one folder share it, so ask, do not wait:
/// who does not get it checkpoints after a later write.
///
///     if (const CheckpointLock lock(path); lock.held()) sqlite3_wal_checkpoint_v2(...);
///
/// A mode other than PASSIVE is the safer one: it also keeps writers out. The last connection of a file
/// checkpoints by itself when it closes, alone with the file, and needs no lock.
class CheckpointLock {
 public:
  explicit CheckpointLock(const std::string& path);
  ~CheckpointLock();
  CheckpointLock(const CheckpointLock&) = delete;
  CheckpointLock& operator=(const CheckpointLock&) = delete;

  bool held() const { return folder_ >= 0; }

 private:
  int folder_ = -1;
};

}  // namespace engine::file
