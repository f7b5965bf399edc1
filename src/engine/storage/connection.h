#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "engine/file/vfs.h"
#include "engine/schema/schema.h"
#include "engine/storage/readers.h"
#include "engine/storage/statement.h"

struct sqlite3;

namespace engine::storage {

class AttachedFile;
struct CatalogData;

/// A prepared statement borrowed from the connection's cache; it goes back, reset and without
/// bindings, when the lease dies. Not for keeping across statements that change definitions.
class StatementLease {
 public:
  explicit StatementLease(std::shared_ptr<Statement> statement) : statement_(std::move(statement)) {}
  ~StatementLease();
  StatementLease(StatementLease&&) noexcept = default;
  StatementLease& operator=(StatementLease&&) = delete;
  Statement* operator->() const { return statement_.get(); }
  Statement& operator*() const { return *statement_; }

 private:
  std::shared_ptr<Statement> statement_;
};

/// One SQLite connection over an empty main database in memory, to which every file is attached as
/// "d1" to "d10". Not thread-safe.
///
/// Statements prepared outside an Internal scope can neither attach, detach, define, set, nor reach
/// hidden tables.
///
/// Writes gather: the first one opens a transaction that idle() commits. begin() to commit() is the
/// caller's own transaction on top; idle() leaves it open.
class Connection {
 public:
  explicit Connection(file::Credential credential);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  sqlite3* handle() const;
  const file::Credential& credential() const;

  /// Opens the file at a resolved path, or shares it when it is attached already. The file is detached
  /// when the last pointer is gone and no transaction needs it. Falls back to reading only where the
  /// file or its folder can not be written. Throws 53, 70, 3045, 3343, and 3048 beyond ten files.
  std::shared_ptr<AttachedFile> open(const std::string& path, bool exclusive, bool readOnly);
  bool isOpen(const std::string& path) const;
  /// Makes and opens an empty file. Throws 3204, 3044, 61, 70.
  std::shared_ptr<AttachedFile> create(const std::string& path, const std::string& locale);
  /// The attached file that a catalogue is of.
  AttachedFile& fileOf(const schema::Catalog& catalog) const;

  /// A statement by its text, prepared once.
  StatementLease statement(std::string_view text);

  /// Who reads through open statements; told to leave by beforeWrite(), rollback() and each detach.
  Readers& readers() const;

  /// To be called before each write to a file: dismisses the readers, opens the gathered transaction and
  /// takes the file's write lock. Throws 3027 for a file that is read-only, 3260 when another process keeps
  /// it locked.
  void beforeWrite(AttachedFile& file);
  /// Commits what was gathered, outside the caller's transaction, and detaches files without users.
  void idle();
  /// Detaches files that nobody uses and no transaction needs.
  void releaseUnused();
  void begin();
  void commit();    ///< throws 3034 without begin(); also writes what was gathered before
  void rollback();  ///< undoes all since begin(), definitions too
  bool inCallersTransaction() const;
  bool inTransaction() const;  ///< the gathered one or the caller's

  /// Lifts the restrictions on statements while it lives.
  class Internal {
   public:
    explicit Internal(Connection& connection);
    ~Internal();
    Internal(const Internal&) = delete;
    Internal& operator=(const Internal&) = delete;

   private:
    Connection& connection_;
  };

  /// Undoes all writes since its making unless release() was called; does not begin a transaction, so
  /// call beforeWrite() first.
  class Savepoint {
   public:
    explicit Savepoint(Connection& connection);
    ~Savepoint();
    Savepoint(const Savepoint&) = delete;
    Savepoint& operator=(const Savepoint&) = delete;
    void release();

   private:
    Connection& connection_;
    bool open_ = true;
  };

 private:
  struct State;
  std::shared_ptr<AttachedFile> attach(const std::string& path, const std::string& uriOptions, bool readOnly,
                                       bool exclusive, const CatalogData* initial = nullptr);
  void attachExclusively(const std::string& path, const std::string& name, const std::string& schemaName);
  void detach(AttachedFile& file);
  void noticeLostTransaction();
  void reloadCatalogues();
  void commitAll();
  void checkpoint();

  std::unique_ptr<State> state_;
};

}  // namespace engine::storage
