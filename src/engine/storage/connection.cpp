#include "engine/storage/connection.h"

#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>

#include "engine/file/replace.h"
#include "engine/storage/connection_state.h"
#include "engine/storage/messages.h"
#include "engine/text/collation.h"

namespace engine::storage {

namespace {

constexpr int maxFiles = 10;
constexpr int busyWait = 5000;  // milliseconds

bool isHidden(const char* table) {
  return table != nullptr &&
         (std::strncmp(table, "vc$", 3) == 0 || sqlite3_strnicmp(table, "sqlite_", 7) == 0);
}

bool startsAsTextIndex(const char* name) {
  return name != nullptr && std::strncmp(name, "vc$text", 7) == 0;
}

// What SQLite asks for when FTS5 declares its columns; it lets nobody write there in earnest.
bool isDeclaration(int action, const char* table, const char* column) {
  return sqlite3_stricmp(table, "sqlite_master") == 0 &&
         (action == SQLITE_UPDATE || sqlite3_stricmp(column, "ROWID") == 0);
}

int authorize(void* internalDepth, int action, const char* first, const char* second, const char*,
              const char* trigger) {
  if (*static_cast<const int*>(internalDepth) > 0) return SQLITE_OK;
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_RECURSIVE:
    case SQLITE_TRANSACTION:
    case SQLITE_SAVEPOINT:
      return SQLITE_OK;
    case SQLITE_READ:
      // By the binder's own selects alone: no name of the dialect leads to a hidden table.
      if (startsAsTextIndex(first) || isDeclaration(action, first, second)) return SQLITE_OK;
      return isHidden(first) ? SQLITE_DENY : SQLITE_OK;
    case SQLITE_PRAGMA:
      // FTS5 asks whether another connection has written.
      return sqlite3_stricmp(first, "data_version") == 0 && second == nullptr ? SQLITE_OK : SQLITE_DENY;
    case SQLITE_INSERT:
      if (startsAsTextIndex(trigger) && startsAsTextIndex(first)) return SQLITE_OK;
      return isHidden(first) ? SQLITE_DENY : SQLITE_OK;
    case SQLITE_UPDATE:
      if (isDeclaration(action, first, second)) return SQLITE_OK;
      return isHidden(first) ? SQLITE_DENY : SQLITE_OK;
    case SQLITE_DELETE:
      return isHidden(first) ? SQLITE_DENY : SQLITE_OK;
    case SQLITE_FUNCTION:
      return sqlite3_stricmp(second, "load_extension") == 0 ? SQLITE_DENY : SQLITE_OK;
    default:
      return SQLITE_DENY;
  }
}

std::string uri(const std::string& path, const std::string& options) {
  std::string text = "file:";
  for (const char c : path) {
    if (c == '%' || c == '?' || c == '#') {
      constexpr const char* digits = "0123456789ABCDEF";
      const auto byte = static_cast<unsigned char>(c);
      text += {'%', digits[byte >> 4], digits[byte & 15]};
    } else {
      text += c;
    }
  }
  return text + "?vfs=" + file::layerName + "&" + options;
}

bool folderWritable(const std::string& path) {
  return ::access(std::filesystem::path(path).parent_path().c_str(), W_OK | X_OK) == 0;
}

bool hasLog(const std::string& path) {
  std::error_code missing;
  const auto size = std::filesystem::file_size(path + "-wal", missing);
  return !missing && size > 0;
}

}  // namespace

StatementLease::~StatementLease() {
  if (!statement_) return;
  statement_->reset();
  sqlite3_clear_bindings(statement_->handle());
}

void Connection::State::run(const char* text, const char* doing) const {
  if (sqlite3_exec(handle, text, nullptr, nullptr, nullptr) != SQLITE_OK) {
    raise(handle, sqlite3_extended_errcode(handle), doing);
  }
}

Connection::Connection(file::Credential credential) : state_(std::make_unique<State>()) {
  state_->credential = std::move(credential);
  file::registerLayer();
  const int flags =
      SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX;
  sqlite3* handle = nullptr;
  const int code = sqlite3_open_v2(":memory:", &handle, flags, file::layerName);
  state_->handle = handle;
  if (code != SQLITE_OK) {
    sqlite3_close(handle);
    raise(nullptr, code, "Starting the engine");
  }
  sqlite3_extended_result_codes(handle, 1);
  sqlite3_busy_timeout(handle, busyWait);
  sqlite3_limit(handle, SQLITE_LIMIT_ATTACHED, maxFiles);
  sqlite3_set_authorizer(handle, authorize, &state_->internalDepth);
  // The log is copied back in checkpoint() alone, behind a commit.
  sqlite3_wal_hook(
      handle,
      [](void* state, sqlite3*, const char* schemaName, int pages) {
        static_cast<State*>(state)->logPages[schemaName] = pages;
        return SQLITE_OK;
      },
      state_.get());
  sqlite3_update_hook(
      handle,
      [](void* state, int, const char* schemaName, const char* table, sqlite3_int64) {
        static_cast<State*>(state)->readers.noteChange(schemaName, table);
      },
      state_.get());
  const Internal internal(*this);
  state_->run("PRAGMA temp_store = MEMORY; PRAGMA foreign_keys = ON; PRAGMA trusted_schema = ON",
              "Starting the engine");
  text::registerText(handle);
}

Connection::~Connection() {
  state_->statements.clear();
  state_->files.clear();
  sqlite3_close_v2(state_->handle);
}

sqlite3* Connection::handle() const {
  return state_->handle;
}

const file::Credential& Connection::credential() const {
  return state_->credential;
}

StatementLease Connection::statement(std::string_view text) {
  return StatementLease(state_->statements.take(state_->handle, text));
}

Readers& Connection::readers() const {
  return state_->readers;
}

AttachedFile& Connection::fileOf(const schema::Catalog& catalog) const {
  for (const auto& file : state_->files) {
    if (file.get() == &catalog) return *file;
  }
  throw Error(errors::invalidArgument, "The file is not open.");
}

bool Connection::isOpen(const std::string& path) const {
  return std::any_of(state_->files.begin(), state_->files.end(),
                     [&](const auto& file) { return file->path() == path; });
}

std::shared_ptr<AttachedFile> Connection::open(const std::string& path, bool exclusive, bool readOnly) {
  for (auto file = state_->files.begin(); file != state_->files.end(); ++file) {
    if ((*file)->path() != path) continue;
    if (exclusive && !(*file)->exclusive())
      throw Error(errors::locked, "The file " + path + " is open already.");
    if (!(*file)->readOnly() || readOnly || ::access(path.c_str(), W_OK) != 0 || !folderWritable(path))
      return *file;
    releaseUnused();
    break;
  }
  for (const auto& file : state_->files) {
    if (file->path() == path) {
      throw Error(errors::permissionDenied, "The file " + path + " is open for reading only.");
    }
  }
  file::examine(path, state_->credential);
  const bool writable = ::access(path.c_str(), W_OK) == 0 && folderWritable(path);
  if (!readOnly && writable) {
    return attach(path, "mode=rw", false, exclusive);
  }
  // A log needs its shared index beside the file; where that can not be made, an empty log is as good as
  // none.
  if (folderWritable(path)) return attach(path, "mode=ro", true, false);
  if (hasLog(path)) {
    throw Error(errors::permissionDenied,
                "The file " + path +
                    " was not closed properly, and its folder can not be "
                    "written. Copy it with its log to a folder that can, and open it there.");
  }
  return attach(path, "mode=ro&immutable=1", true, false);
}

std::shared_ptr<AttachedFile> Connection::create(const std::string& path, const std::string& locale) {
  const std::string collation = text::collationName(locale);
  if (std::filesystem::exists(path))
    throw Error(errors::databaseExists, "The file " + path + " exists already.");
  if (!std::filesystem::is_directory(std::filesystem::path(path).parent_path())) {
    throw Error(errors::badPath, "The folder of " + path + " does not exist.");
  }
  if (!folderWritable(path)) {
    throw Error(errors::permissionDenied, "No permission to write in the folder of " + path + ".");
  }
  if (state_->callers) {
    throw Error(errors::invalidArgument, "A file can not be made within a transaction: " + path + ".");
  }
  idle();
  CatalogData data;
  data.locale = locale;
  data.collation = collation;
  data.collationVersion = text::collationVersion(collation);
  data.user = state_->credential.user;
  try {
    return attach(path, "mode=rwc", false, false, &data);
  } catch (...) {
    file::removeFile(path);
    throw;
  }
}

std::shared_ptr<AttachedFile> Connection::attach(const std::string& path, const std::string& uriOptions,
                                                 bool readOnly, bool exclusive, const CatalogData* initial) {
  releaseUnused();
  std::string name;
  for (int i = 1; i <= maxFiles && name.empty(); ++i) {
    const std::string candidate = "d" + std::to_string(i);
    const auto taken = [&](const auto& file) { return file->schemaName() == candidate; };
    if (std::none_of(state_->files.begin(), state_->files.end(), taken)) name = candidate;
  }
  if (name.empty()) {
    throw Error(errorNumbers::tooManyFiles, "No more than ten files can be open at a time: " + path + ".");
  }
  const Internal internal(*this);
  const file::KeyLease lease(path, state_->credential);
  if (exclusive) {
    attachExclusively(path, uri(path, uriOptions), name);
  } else {
    runStatement(state_->handle, "ATTACH ?1 AS " + name, {uri(path, uriOptions)});
  }
  std::shared_ptr<AttachedFile> file(new AttachedFile(*this, path, name, readOnly, exclusive));
  try {
    if (initial != nullptr) file->initialise(*initial);
    file->start();
  } catch (...) {
    detach(*file);
    throw;
  }
  state_->files.push_back(file);
  return file;
}

// Only a file that is attached in exclusive mode from the start does without the index that others share. The
// mode is set for all files, and taken back from the others before any of them is touched.
void Connection::attachExclusively(const std::string& path, const std::string& name,
                                   const std::string& schemaName) {
  state_->run("PRAGMA locking_mode = EXCLUSIVE", "Opening a file");
  try {
    runStatement(state_->handle, "ATTACH ?1 AS " + schemaName, {name});
  } catch (const Error& error) {
    state_->run("PRAGMA locking_mode = NORMAL", "Opening a file");
    if (error.number() != errors::busy) throw;
    throw Error(errors::locked, "The file " + path + " is in use by another program.");
  }
  state_->run("PRAGMA locking_mode = NORMAL", "Opening a file");
}

void Connection::detach(AttachedFile& file) {
  state_->readers.dismiss();
  const Internal internal(*this);
  state_->statements.clear();
  state_->logPages.erase(file.schemaName());
  runStatement(state_->handle, "DETACH " + file.schemaName());
}

void Connection::releaseUnused() {
  for (auto file = state_->files.begin(); file != state_->files.end();) {
    const bool used = file->use_count() > 1 ||
                      sqlite3_txn_state(state_->handle, (*file)->schemaName().c_str()) != SQLITE_TXN_NONE;
    if (used) {
      ++file;
      continue;
    }
    detach(**file);
    file = state_->files.erase(file);
  }
}

Connection::Internal::Internal(Connection& connection) : connection_(connection) {
  ++connection_.state_->internalDepth;
}

Connection::Internal::~Internal() {
  --connection_.state_->internalDepth;
}

}  // namespace engine::storage
