#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "base/error.h"
#include "engine/file/vfs.h"
#include "support/temp_dir.h"

/// SQLite over the encrypted layer without the engine above it, and the means to do damage.
namespace rawdb {

inline const engine::file::Credential owner{"VocariumUser", "built-in", false};

/// A connection with one file attached as "d".
class Connection {
 public:
  explicit Connection(const std::string& path, const engine::file::Credential& credential = owner) {
    engine::file::registerLayer();
    EXPECT_EQ(sqlite3_open_v2(":memory:", &handle_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                              engine::file::layerName),
              SQLITE_OK);
    run("PRAGMA temp_store=MEMORY");
    code_ = attach(path, "d", credential);
  }
  ~Connection() { sqlite3_close(handle_); }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  int attach(const std::string& path, const std::string& schema, const engine::file::Credential& credential) {
    const engine::file::KeyLease lease(path, credential);
    const int code = run("ATTACH '" + path + "' AS " + schema);
    if (code == SQLITE_OK) engine::file::reserve(handle_, schema);
    return code;
  }
  int run(const std::string& statement) {
    return sqlite3_exec(handle_, statement.c_str(), nullptr, nullptr, nullptr);
  }
  void must(const std::string& statement) {
    ASSERT_EQ(run(statement), SQLITE_OK) << statement << ": " << sqlite3_errmsg(handle_);
  }
  /// The first column of the first row; "failed: ..." when the statement fails.
  std::string ask(const std::string& statement) {
    sqlite3_stmt* prepared = nullptr;
    std::string answer;
    int code = sqlite3_prepare_v2(handle_, statement.c_str(), -1, &prepared, nullptr);
    if (code == SQLITE_OK) code = sqlite3_step(prepared);
    if (code == SQLITE_ROW) {
      const auto* text = sqlite3_column_text(prepared, 0);
      answer = text == nullptr ? "" : std::string(reinterpret_cast<const char*>(text));
    }
    sqlite3_finalize(prepared);
    return code == SQLITE_ROW || code == SQLITE_DONE ? answer
                                                     : std::string("failed: ") + sqlite3_errmsg(handle_);
  }
  int code() const { return code_; }
  sqlite3* handle() const { return handle_; }

 private:
  sqlite3* handle_ = nullptr;
  int code_ = SQLITE_OK;
};

/// Makes a file with a table of words: `rows` rows, each a page's eighth or so.
inline void makeWords(const std::string& path, int rows, const std::string& mode = "WAL",
                      const engine::file::Credential& credential = owner) {
  Connection connection(path, credential);
  ASSERT_EQ(connection.code(), SQLITE_OK);
  EXPECT_EQ(connection.ask("PRAGMA d.journal_mode=" + mode), mode == "WAL" ? "wal" : "delete");
  connection.must("CREATE TABLE d.words(id INTEGER PRIMARY KEY, headword TEXT, note TEXT)");
  connection.must("CREATE INDEX d.byHeadword ON words(headword)");
  connection.must("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" +
                  std::to_string(rows) +
                  ") INSERT INTO d.words SELECT i, 'Headword'||i, printf('plainnote %0480d', i) FROM n");
}

inline std::string contents(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}
inline void overwrite(const std::string& path, const std::string& bytes) {
  std::ofstream stream(path, std::ios::binary | std::ios::trunc);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// Number and text of the error that an operation ends in; 0 when it ends well.
struct Outcome {
  int number = 0;
  std::string text;
};
template <typename Operation>
Outcome outcomeOf(Operation operation) {
  try {
    operation();
  } catch (const base::Error& error) {
    return {error.number(), error.text()};
  }
  return {};
}
inline Outcome examined(const std::string& path, const engine::file::Credential& credential = owner) {
  return outcomeOf([&] { engine::file::examine(path, credential); });
}

}  // namespace rawdb
