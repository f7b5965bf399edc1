#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <ctime>
#include <filesystem>

#include "engine/file/raw_file.h"
#include "engine/file/replace.h"
#include "engine/file_checks.h"
#include "engine/impl.h"
#include "engine/rescue.h"
#include "engine/row_copy.h"
#include "engine/storage/catalog.h"
#include "engine/storage/text_index.h"
#include "engine/text/collation.h"

namespace engine {

namespace {

constexpr int encrypted = 2;
constexpr double rowsShare = 0.6, indexesShare = 0.9;

using storage::AttachedFile;
using storage::Connection;

storage::CatalogData dataFor(const AttachedFile& source, const std::string& locale, std::time_t stamp) {
  storage::CatalogData data = source.data();
  if (!locale.empty()) data.locale = locale;
  data.collation = text::collationName(data.locale);
  data.collationVersion = text::collationVersion(data.collation);
  data.compaction = std::to_string(stamp);
  data.format = storage::formatVersion;
  return data;
}

void copyAll(const AttachedFile& source, const AttachedFile& target, const storage::CatalogData& data,
             const Progress& progress) {
  sqlite3* const handle = source.connection().handle();
  storage::writeCatalog(handle, target.schemaName(), data);
  double done = 0, all = 1;
  for (const schema::Table& table : data.tables) all += static_cast<double>(lastRow(source, table));
  for (const schema::Table& table : data.tables) {
    storage::runStatement(handle, storage::tableStatement(data, table, target.schemaName()));
    copyRows(source, target, table, [&](std::int64_t rowid) {
      if (progress) progress(rowsShare * (done + static_cast<double>(rowid)) / all);
    });
    done += static_cast<double>(lastRow(source, table));
  }
  copyCounters(source, target, data);
  double tables = 0;
  for (const schema::Table& table : data.tables) {
    for (const storage::StoredIndex& index : storage::indexStatements(data, table, target.schemaName()))
      storage::runStatement(handle, index.statement);
    if (progress)
      progress(rowsShare + (indexesShare - rowsShare) * ++tables / static_cast<double>(data.tables.size()));
  }
  for (storage::TextIndexRecord record : data.texts) storage::copyTextIndex(source, target, data, record);
}

void writeCopy(const file::Credential& credential, const std::string& from, bool exclusive,
               const std::string& to, const std::string& locale, std::time_t stamp,
               const Progress& progress) {
  Connection connection(credential);
  const auto source = connection.open(from, exclusive, !exclusive);
  const storage::CatalogData data = dataFor(*source, locale, stamp);
  const auto target = connection.create(to, data.locale);
  const Connection::Internal internal(connection);
  BulkWrite write(*target);
  copyAll(*source, *target, data, progress);
  write.commit();
}

// The time of the last change that a compaction gives to its file, and notes in it: whoever writes to the
// file later changes the one and not the other. In the past, as no later write can be.
std::time_t stampOfNow() {
  constexpr std::time_t minute = 60;
  return (std::time(nullptr) / minute - 1) * minute;
}

void setFileTime(const std::string& path, std::time_t stamp) {
  const timespec times[2] = {{stamp, 0}, {stamp, 0}};
  if (::utimensat(AT_FDCWD, path.c_str(), times, 0) != 0) file::raiseSystem(errno, "set the time of", path);
}

bool bearsStamp(const std::string& path, const std::string& stamp) {
  std::int64_t seconds = 0;
  const auto [end, code] = std::from_chars(stamp.data(), stamp.data() + stamp.size(), seconds);
  struct stat status {};
  return code == std::errc{} && end == stamp.data() + stamp.size() && ::stat(path.c_str(), &status) == 0 &&
         status.st_mtim.tv_sec == seconds && status.st_mtim.tv_nsec == 0;
}

bool hasLog(const std::string& path) {
  std::error_code missing;
  return std::filesystem::file_size(path + "-wal", missing) > 0 && !missing;
}

}  // namespace

namespace {

/// Writes the copy beside its place, checks it and puts it there.
void copyFile(Workspace& workspace, const std::string& source, bool exclusive, const std::string& target,
              const std::string& locale, const Progress& progress) {
  WorkspaceCore& core = *workspace.impl().core;
  const std::string from = core.resolved(source), to = core.newPath(target);
  if (from == to || std::filesystem::exists(to))
    throw Error(errors::databaseExists, "The file " + to + " exists already.");
  if (!locale.empty()) text::collationName(locale);  // throws before anything is written
  const file::Credential& credential = core.connection().credential();
  // Tells at once what the opening below would wait for.
  if (exclusive) {
    const file::ExclusiveHold nobodyElse(from);
  }
  file::NewFile copy(to, "compact");
  const std::time_t stamp = stampOfNow();
  writeCopy(credential, from, exclusive, copy.path(), locale, stamp, progress);
  checks::mustBeSound(credential, copy.path());
  setFileTime(copy.path(), stamp);
  copy.finish();
  if (progress) progress(1);
}

}  // namespace

void CompactDatabase(Workspace& workspace, const std::string& source, const std::string& target,
                     const std::string& locale, int options, const Progress& progress) {
  workspace.Idle();
  if ((options & encrypted) == 0)
    throw Error(errors::invalidArgument, "Dictionaries are always encrypted (option 2).");
  copyFile(workspace, source, true, target, locale, progress);
}

void CopyDatabase(Workspace& workspace, const std::string& source, const std::string& target,
                  const Progress& progress) {
  workspace.Idle();
  copyFile(workspace, source, false, target, "", progress);
}

bool hasVanished(const Database& open) {
  const AttachedFile& file = *open.impl()->file;
  int moved = 0;
  const int code = sqlite3_file_control(file.connection().handle(), file.schemaName().c_str(),
                                        SQLITE_FCNTL_HAS_MOVED, &moved);
  return code == SQLITE_OK && moved != 0;
}

std::string RescueDatabase(Workspace& workspace, const Database& open) {
  workspace.Idle();
  const AttachedFile& source = *open.impl()->file;
  const std::string path = source.path();
  const bool taken = std::filesystem::exists(path);
  const std::string target = taken ? file::nameBeside(path, "rescued") : path;
  const std::time_t stamp = stampOfNow();
  file::NewFile copy(target, "rescue");
  {
    Connection& connection = source.connection();
    const storage::CatalogData data = dataFor(source, "", stamp);
    const auto made = connection.create(copy.path(), data.locale);
    const Connection::Internal internal(connection);
    BulkWrite write(*made);
    copyAll(source, *made, data, {});
    write.commit();
  }
  source.connection().releaseUnused();
  checks::mustBeSound(source.connection().credential(), copy.path());
  setFileTime(copy.path(), stamp);
  copy.finish(file::OldLog::isWorthless);
  // The log at the path is the vanished file's, and would be read as that of the file that stands there now.
  if (taken)
    for (const char* part : {"-wal", "-shm"}) std::filesystem::remove(path + part);
  return target;
}

bool needsCompaction(Workspace& workspace, const std::string& path, const std::string& locale) {
  workspace.Idle();
  WorkspaceCore& core = *workspace.impl().core;
  const std::string real = core.resolved(path);
  if (hasLog(real)) return true;
  Connection connection(core.connection().credential());
  const auto file = connection.open(real, false, false);
  const storage::CatalogData& data = file->data();
  if (!bearsStamp(real, data.compaction)) return true;
  return !locale.empty() && locale != data.locale;
}

}  // namespace engine
