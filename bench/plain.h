#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>

/// The yardstick: the plain SQLite C interface on an unencrypted file, with prepared statements and the
/// engine's page size and cache. Ends the process on any failure.
namespace bench {

class PlainStatement {
 public:
  PlainStatement(sqlite3* connection, const std::string& text);
  ~PlainStatement() { sqlite3_finalize(statement_); }
  PlainStatement(const PlainStatement&) = delete;
  PlainStatement& operator=(const PlainStatement&) = delete;

  void bind(int at, std::string_view text);
  void bind(int at, std::int64_t number);
  bool step();
  void run();
  std::string_view text(int column) const;
  std::int64_t integer(int column) const { return sqlite3_column_int64(statement_, column); }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

class PlainFile {
 public:
  /// Opens the file, or creates it with the entry tables of a dictionary and their indexes.
  PlainFile(const std::string& path, bool create);
  ~PlainFile() { sqlite3_close(connection_); }
  PlainFile(const PlainFile&) = delete;
  PlainFile& operator=(const PlainFile&) = delete;

  void run(const std::string& statement);
  sqlite3* connection() const { return connection_; }

 private:
  sqlite3* connection_ = nullptr;
};

/// Ends the process: what was to be measured did not work.
[[noreturn]] void stop(const std::string& what);
/// Seconds on a steady clock.
double now();
/// The most memory that this process has held so far, in MiB.
double peakMemory();
/// One line of the table: what, ours, the yardstick's, their ratio and the aim.
void report(const std::string& what, double ours, double plain, const std::string& aim);
/// A line without a yardstick.
void report(const std::string& what, double value, const std::string& unit, const std::string& aim);

}  // namespace bench
