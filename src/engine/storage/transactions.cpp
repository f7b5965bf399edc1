#include <algorithm>

#include "engine/file/checkpoint_lock.h"
#include "engine/storage/connection_state.h"
#include "engine/storage/messages.h"

namespace engine::storage {

namespace {

// The log is copied back when it holds so many pages (32 MiB): each time costs syncs and random writes.
constexpr int checkpointPages = 8192;

bool isWriting(sqlite3* connection, const AttachedFile& file) {
  return sqlite3_txn_state(connection, file.schemaName().c_str()) == SQLITE_TXN_WRITE;
}

}  // namespace

// SQLite undoes the whole transaction by itself after some failures, a full disk among them.
void Connection::noticeLostTransaction() {
  if (!state_->inTransaction || sqlite3_get_autocommit(state_->handle) == 0) return;
  state_->inTransaction = false;
  state_->callers = false;
  reloadCatalogues();
}

void Connection::reloadCatalogues() {
  for (const auto& file : state_->files) file->load();
}

void Connection::beforeWrite(AttachedFile& file) {
  if (file.readOnly()) throw Error(errors::readOnly, "The file " + file.path() + " can only be read.");
  noticeLostTransaction();
  state_->readers.dismiss();
  if (isWriting(state_->handle, file)) return;
  if (!state_->inTransaction) {
    state_->run("BEGIN", "Beginning a transaction");
    state_->inTransaction = true;
  }
  // Changes nothing, but takes the write lock, so that a busy file is told before the statement starts.
  const Internal internal(*this);
  const std::string lock = "UPDATE " + file.schemaName() + ".\"vc$file\" SET \"value\" = \"value\" WHERE 0";
  const auto writingAny = [&] {
    return std::any_of(state_->files.begin(), state_->files.end(),
                       [&](const auto& any) { return isWriting(state_->handle, *any); });
  };
  int code = sqlite3_exec(state_->handle, lock.c_str(), nullptr, nullptr, nullptr);
  if (code == SQLITE_BUSY_SNAPSHOT && !state_->callers && !writingAny()) {
    // Another process wrote since we read; nothing of ours is lost when the reading begins anew.
    state_->run("COMMIT; BEGIN", "Beginning a transaction");
    code = sqlite3_exec(state_->handle, lock.c_str(), nullptr, nullptr, nullptr);
  }
  if (code != SQLITE_OK) raise(state_->handle, code, "Writing to " + file.path());
}

void Connection::idle() {
  noticeLostTransaction();
  if (state_->inTransaction && !state_->callers) {
    commitAll();
    checkpoint();
  }
  releaseUnused();
}

void Connection::commitAll() {
  const int code = sqlite3_exec(state_->handle, "COMMIT", nullptr, nullptr, nullptr);
  if (code == SQLITE_OK) {
    state_->inTransaction = state_->callers = false;
    return;
  }
  // The texts have to be taken before the connection is used again.
  try {
    raise(state_->handle, sqlite3_extended_errcode(state_->handle), "Writing the changes to disk");
  } catch (...) {
    if (sqlite3_get_autocommit(state_->handle) == 0) {
      // What can not be committed now would fail again at each later operation and take its work along.
      if (sqlite3_exec(state_->handle, "ROLLBACK", nullptr, nullptr, nullptr) != SQLITE_OK) throw;
    }
    state_->inTransaction = state_->callers = false;
    reloadCatalogues();
    throw;
  }
}

// A log of some length is copied back into the file. Not being able to now is no failure: the next time will
// do.
void Connection::checkpoint() {
  for (auto& [schemaName, pages] : state_->logPages) {
    if (pages < checkpointPages) continue;
    const auto isIt = [&](const auto& file) { return file->schemaName() == schemaName; };
    const auto found = std::find_if(state_->files.begin(), state_->files.end(), isIt);
    if (found == state_->files.end()) continue;
    const file::CheckpointLock lock((*found)->path());
    if (!lock.held()) continue;
    const int code = sqlite3_wal_checkpoint_v2(state_->handle, schemaName.c_str(), SQLITE_CHECKPOINT_PASSIVE,
                                               nullptr, nullptr);
    if (code == SQLITE_BUSY || code == SQLITE_LOCKED) continue;
    if (code != SQLITE_OK) raise(state_->handle, code, "Copying the log into the file");
    pages = 0;
  }
}

void Connection::begin() {
  if (state_->callers) throw Error(errorNumbers::noTransaction, "A transaction is open already.");
  idle();
  if (!state_->inTransaction) state_->run("BEGIN", "Beginning a transaction");
  state_->inTransaction = state_->callers = true;
}

void Connection::commit() {
  const bool begun = state_->callers;
  noticeLostTransaction();
  if (!begun) throw Error(errorNumbers::noTransaction, "There is no transaction to commit.");
  if (!state_->callers) {
    throw Error(errorNumbers::noTransaction, "The transaction was undone by an earlier failure.");
  }
  commitAll();
  checkpoint();
}

void Connection::rollback() {
  const bool begun = state_->callers;
  noticeLostTransaction();
  if (!begun) throw Error(errorNumbers::noTransaction, "There is no transaction to undo.");
  if (!state_->inTransaction) return;
  state_->readers.dismiss();
  state_->run("ROLLBACK", "Undoing a transaction");
  state_->inTransaction = state_->callers = false;
  reloadCatalogues();
}

bool Connection::inCallersTransaction() const {
  return state_->callers;
}

bool Connection::inTransaction() const {
  return state_->inTransaction && sqlite3_get_autocommit(state_->handle) == 0;
}

Connection::Savepoint::Savepoint(Connection& connection) : connection_(connection) {
  connection_.state_->run("SAVEPOINT \"vc$statement\"", "Beginning a statement");
}

Connection::Savepoint::~Savepoint() {
  if (!open_ || !connection_.inTransaction()) return;
  // On failure SQLite has undone the whole transaction; the next call on the connection notices.
  sqlite3_exec(connection_.handle(), "ROLLBACK TO \"vc$statement\"; RELEASE \"vc$statement\"", nullptr,
               nullptr, nullptr);
}

void Connection::Savepoint::release() {
  connection_.state_->run("RELEASE \"vc$statement\"", "Ending a statement");
  open_ = false;
}

}  // namespace engine::storage
