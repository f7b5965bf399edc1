#pragma once

#include <functional>
#include <memory>
#include <string>

#include "engine/database.h"
#include "engine/types/types.h"

namespace engine {

/// Who works. The built-in credential costs nothing at opening; a password of the author's own
/// (`ownPassword`) is stretched with Argon2id before it becomes a key.
struct Login {
  std::string name;  ///< the workspace's name
  std::string user;
  std::string password;
  std::string systemDB;  ///< workgroup file that knows user and password; empty: not checked
  bool ownPassword = false;
};

/// One connection to the engine. All files opened through it share its transactions; each file is
/// attached once, however often it is opened. One thread.
class Workspace {
 public:
  /// Throws 3029 when the workgroup file does not know user and password, 3044 when it is missing.
  explicit Workspace(const Login& login);
  ~Workspace();
  Workspace(Workspace&&) noexcept;
  Workspace& operator=(Workspace&&) noexcept;

  /// A new file with the locale of a connect string (";LANGID=0x0407;CP=1252;COUNTRY=0"); `options`
  /// is a bit set of which 2, encryption, is required. Throws 3204 when the file exists, 3044, 61, 70.
  Database CreateDatabase(const std::string& path, const std::string& locale, int options);
  /// Throws 53, 70, 3045 (exclusively locked elsewhere) and 3343 in three texts: no dictionary, another
  /// credential's, damaged. Opening a path that is open already costs microseconds.
  Database OpenDatabase(const std::string& path, bool exclusive = false, bool readOnly = false);

  void BeginTrans();
  void CommitTrans();
  void Rollback();
  /// Commits what was gathered since the last call, outside BeginTrans. Called at the end of each
  /// operation, before each question and each turn of the message loop. Throws when it can not be written.
  void Idle();

  class Impl;
  Impl& impl() { return *impl_; }

 private:
  std::unique_ptr<Impl> impl_;
};

/// Text of a progress report and a share from 0 to 1; may throw to cancel.
using Progress = std::function<void(double)>;

/// Writes a compact copy of `source` with `locale` (empty keeps it) to the new file `target`: checked,
/// synced and complete, or not there. Neither may be open; equal paths are refused (3204, as is an
/// existing target). Encrypted like every file; `options` as in CreateDatabase.
void CompactDatabase(Workspace& workspace, const std::string& source, const std::string& target,
                     const std::string& locale, int options, const Progress& progress = {});
/// Writes a copy of a file that may be open here and elsewhere to the new file `target`, with all that is
/// committed: compact, checked, synced and complete, or not there. Equal paths are refused as above.
void CopyDatabase(Workspace& workspace, const std::string& source, const std::string& target,
                  const Progress& progress = {});
/// Whether compacting would change anything: false when the file is as the last compaction left it
/// and that used the same locale.
bool needsCompaction(Workspace& workspace, const std::string& path, const std::string& locale);

/// What a repair or a check found, a line each, for people; empty lists when all is well.
struct RepairReport {
  std::int64_t rowsKept = 0;
  std::int64_t rowsLost = 0;  ///< known to be lost; pages that held an unknown number count in `lines`
  std::vector<std::string> lines;
  std::string keptOriginal;  ///< where the damaged file was put aside; empty when nothing was lost
};
/// Copies all that can be read of a closed file into a sound one and puts that in its place.
RepairReport RepairDatabase(Workspace& workspace, const std::string& path, const Progress& progress = {});
/// Authenticates every page and checks indexes, relations and the catalogue; changes nothing.
std::vector<std::string> checkDatabase(Workspace& workspace, const std::string& path,
                                       const Progress& progress = {});

/// Writes a workgroup file that knows the one user; replaces an old one.
void createWorkgroupFile(const std::string& path, const std::string& user, const std::string& password);

}  // namespace engine
