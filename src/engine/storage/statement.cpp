#include "engine/storage/statement.h"

#include <sqlite3.h>

#include <utility>

#include "engine/storage/messages.h"
#include "engine/text/functions.h"

namespace engine::storage {

namespace {

// A limit on the size of a file and a used-up quota come as failed writes, and the cause in errno is gone by
// the time that SQLite reports them.
bool isFull(int code) {
  return (code & 0xff) == SQLITE_FULL || code == SQLITE_IOERR_WRITE || code == SQLITE_IOERR_FSYNC ||
         code == SQLITE_IOERR_SHMSIZE || code == SQLITE_IOERR_TRUNCATE;
}

int constraintNumber(int code) {
  switch (code) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return errors::duplicateKey;
    case SQLITE_CONSTRAINT_FOREIGNKEY:
      return errors::relatedRowRequired;
    case SQLITE_CONSTRAINT_NOTNULL:
      return errors::nullRefused;
    default:
      return errors::invalidArgument;
  }
}

}  // namespace

void raise(sqlite3* connection, int code, const std::string& doing) {
  const std::string message = connection != nullptr ? sqlite3_errmsg(connection) : sqlite3_errstr(code);
  const std::string because = doing + ": " + message + ".";
  if (isFull(code)) throw Error(errors::diskFull, doing + ": the disk is full or fails.");
  switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      throw Error(errors::busy, doing + ": the file is in use by another program; try again in a moment.");
    case SQLITE_READONLY:
      throw Error(errors::readOnly, doing + ": the file can only be read.");
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      throw Error(errors::notADictionary, because + " The file is damaged.");
    case SQLITE_IOERR:
      if (code == SQLITE_IOERR_NOMEM) throw Error(errorNumbers::outOfMemory, doing + ": out of memory.");
      throw Error(errors::notADictionary,
                  because + " The file can not be read or written; it may be damaged.");
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      throw Error(errors::permissionDenied, because);
    case SQLITE_NOMEM:
      throw Error(errorNumbers::outOfMemory, doing + ": out of memory.");
    case SQLITE_INTERRUPT:
      throw Error(errorNumbers::cancelled, doing + ": cancelled.");
    case SQLITE_TOOBIG:
      throw Error(errors::tooLong, because);
    case SQLITE_MISMATCH:
      throw Error(errors::typeMismatch, because);
    case SQLITE_CONSTRAINT:
      throw Error(constraintNumber(code), because);
    default:
      break;
  }
  if (const auto ours = text::errorOf(message)) throw *ours;
  throw Error(errors::syntax, because);
}

Statement::Statement(sqlite3* connection, std::string_view text) : connection_(connection) {
  const char* tail = nullptr;
  const int code = sqlite3_prepare_v3(connection, text.data(), static_cast<int>(text.size()),
                                      SQLITE_PREPARE_PERSISTENT, &statement_, &tail);
  if (code != SQLITE_OK) raise(connection, sqlite3_extended_errcode(connection), "Preparing a statement");
}

Statement::~Statement() {
  sqlite3_finalize(statement_);  // repeats the code of the last step, which was reported then
}

Statement::Statement(Statement&& other) noexcept
    : connection_(other.connection_), statement_(std::exchange(other.statement_, nullptr)) {}

Statement& Statement::operator=(Statement&& other) noexcept {
  std::swap(connection_, other.connection_);
  std::swap(statement_, other.statement_);
  return *this;
}

namespace {

void check(sqlite3* connection, int code) {
  if (code != SQLITE_OK) raise(connection, code, "Setting a parameter");
}

}  // namespace

void Statement::bind(int parameter, const Value& value) {
  switch (value.kind()) {
    case Value::Kind::null:
      return bindNull(parameter);
    case Value::Kind::boolean:
    case Value::Kind::integer:
      return bindInteger(parameter, value.asInteger());
    case Value::Kind::real:
      return check(connection_, sqlite3_bind_double(statement_, parameter, value.asReal()));
    case Value::Kind::date:
      return bindText(parameter, value.asDate().iso());
    case Value::Kind::text:
      return bindText(parameter, value.text());
  }
}

void Statement::bindInteger(int parameter, std::int64_t value) {
  check(connection_, sqlite3_bind_int64(statement_, parameter, value));
}

void Statement::bindText(int parameter, std::string_view value) {
  // A null pointer would bind Null; an empty view may hold one.
  const char* data = value.data() != nullptr ? value.data() : "";
  check(connection_,
        sqlite3_bind_text64(statement_, parameter, data, value.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
}

void Statement::bindNull(int parameter) {
  check(connection_, sqlite3_bind_null(statement_, parameter));
}

bool Statement::step() {
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  // The reset must not run before the message was taken.
  try {
    raise(connection_, sqlite3_extended_errcode(connection_), "Running a statement");
  } catch (...) {
    sqlite3_reset(statement_);
    throw;
  }
}

void Statement::run() {
  while (step()) {
  }
  reset();
}

void Statement::reset() {
  sqlite3_reset(statement_);  // repeats the code of the last step, which was reported then
}

int Statement::columnCount() const {
  return sqlite3_column_count(statement_);
}

bool Statement::isNull(int column) const {
  return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}

std::int64_t Statement::integer(int column) const {
  return sqlite3_column_int64(statement_, column);
}

double Statement::real(int column) const {
  return sqlite3_column_double(statement_, column);
}

std::string_view Statement::text(int column) const {
  const auto* data = sqlite3_column_text(statement_, column);
  if (data == nullptr) return {};
  return {reinterpret_cast<const char*>(data),
          static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

Value Statement::value(int column, ColumnType type) const {
  switch (sqlite3_column_type(statement_, column)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      if (type == ColumnType::bit) return Value(integer(column) != 0);
      return Value(integer(column));
    case SQLITE_FLOAT:
      return Value(real(column));
    default:
      break;
  }
  const std::string_view content = text(column);
  if (type == ColumnType::date) {
    if (const auto date = base::DateTime::fromIso(content)) return Value(*date);
  }
  return Value(content);
}

}  // namespace engine::storage
