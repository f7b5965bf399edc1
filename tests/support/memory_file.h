#pragma once

#include <sqlite3.h>

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "engine/plan/plan.h"
#include "engine/schema/schema.h"
#include "engine/sql/parser.h"
#include "engine/text/collation.h"

/// A catalogue of tables and queries over SQLite databases in memory: what the binder needs, without the
/// store's files.
namespace test {

/// A row as texts; Null is "~".
using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

class MemoryFile final : public engine::schema::Catalog {
 public:
  MemoryFile(sqlite3* connection, std::string schemaName, std::string collation)
      : connection_(connection), schemaName_(std::move(schemaName)), collation_(std::move(collation)) {}

  const std::string& schemaName() const override { return schemaName_; }
  const std::string& collation() const override { return collation_; }
  const engine::schema::Table* table(std::string_view name) const override { return find(tables_, name); }
  const engine::schema::StoredQuery* query(std::string_view name) const override {
    return find(queries_, name);
  }
  std::int64_t version() const override { return 1; }

  /// CREATE TABLE and CREATE INDEX of the dialect.
  void define(std::string_view text) {
    const engine::sql::Statement statement = engine::sql::parse(text);
    if (statement.createTable)
      createTable(*statement.createTable);
    else if (statement.createIndex)
      createIndex(*statement.createIndex);
    else
      throw std::runtime_error("no definition: " + std::string(text));
  }
  void addQuery(const std::string& name, const std::string& text) {
    queries_[base::lower(name)] =
        std::make_unique<engine::schema::StoredQuery>(engine::schema::StoredQuery{name, text});
  }
  /// Values as SQLite writes them, a row in parentheses each: "(1, 'Haus'), (2, NULL)".
  void insert(const std::string& table, const std::string& rows) {
    run("INSERT INTO " + schemaName_ + "." + engine::schema::quoteName(table) + " VALUES " + rows);
  }
  void run(const std::string& sql) {
    char* message = nullptr;
    if (sqlite3_exec(connection_, sql.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
      const std::string text = message != nullptr ? message : "?";
      sqlite3_free(message);
      throw std::runtime_error(text + "\n" + sql);
    }
  }

 private:
  template <class Definition>
  using Named = std::map<std::string, std::unique_ptr<Definition>>;
  template <class Definition>
  static const Definition* find(const Named<Definition>& map, std::string_view name) {
    const auto found = map.find(base::lower(name));
    return found == map.end() ? nullptr : found->second.get();
  }

  std::string declared(const engine::schema::Column& column) const {
    const std::string name = engine::schema::quoteName(column.name);
    switch (column.type) {
      case engine::ColumnType::counter:
        return name + " INTEGER PRIMARY KEY AUTOINCREMENT";
      case engine::ColumnType::longInteger:
      case engine::ColumnType::shortInteger:
      case engine::ColumnType::bit:
        return name + " INTEGER";
      case engine::ColumnType::real:
        return name + " REAL";
      case engine::ColumnType::date:
        return name + " TEXT";
      default:
        return name + " TEXT COLLATE " + collation_;
    }
  }

  void createTable(const engine::sql::CreateTable& create) {
    auto table = std::make_unique<engine::schema::Table>();
    table->name = create.table;
    std::string columns;
    for (const engine::sql::ColumnDecl& decl : create.columns) {
      table->columns.push_back({decl.name, decl.type, decl.size, decl.notNull, true});
      columns += (columns.empty() ? "" : ", ") + declared(table->columns.back());
    }
    run("CREATE TABLE " + schemaName_ + "." + engine::schema::quoteName(create.table) + "(" + columns + ")");
    tables_[base::lower(create.table)] = std::move(table);
  }

  void createIndex(const engine::sql::CreateIndex& create) {
    engine::schema::Table& table = *tables_.at(base::lower(create.table));
    table.indexes.push_back({create.index, create.columns, create.primary, create.unique || create.primary});
    if (create.columns.size() == 1 && table.find(create.columns[0]) == table.counter()) return;
    std::string columns;
    for (const std::string& column : create.columns)
      columns += (columns.empty() ? "" : ", ") + engine::schema::quoteName(column);
    run("CREATE INDEX " + schemaName_ + "." + engine::schema::quoteName(create.table + "$" + create.index) +
        " ON " + engine::schema::quoteName(create.table) + "(" + columns + ")");
  }

  sqlite3* connection_;
  std::string schemaName_, collation_;
  Named<engine::schema::Table> tables_;
  Named<engine::schema::StoredQuery> queries_;
};

/// Several memory files on one connection; the first is the one that statements run on.
class MemoryFiles {
 public:
  MemoryFiles() {
    if (sqlite3_open(":memory:", &connection_) != SQLITE_OK) throw std::runtime_error("no memory database");
    engine::text::registerText(connection_);
    context.open = [this](const std::string& path) -> const engine::schema::Catalog& {
      const auto found = files_.find(base::lower(path));
      if (found == files_.end()) throw engine::Error(engine::errors::badPath, "no file " + path);
      return *found->second;
    };
  }
  ~MemoryFiles() { sqlite3_close_v2(connection_); }
  MemoryFiles(const MemoryFiles&) = delete;
  MemoryFiles& operator=(const MemoryFiles&) = delete;

  MemoryFile& add(const std::string& path, const std::string& collation = "vc_0407") {
    const std::string schemaName = "d" + std::to_string(files_.size() + 1);
    auto& file = files_[base::lower(path)];
    file = std::make_unique<MemoryFile>(connection_, schemaName, collation);
    file->run("ATTACH ':memory:' AS " + schemaName);
    if (context.file == nullptr) context.file = file.get();
    return *file;
  }

  MemoryFile& file(const std::string& path = "A.CVB") { return *files_.at(base::lower(path)); }

  /// The rows of SQLite text; `values` are bound to ?1, ?2, ... as far as the statement has them.
  Rows fetch(const std::string& sql, const std::vector<engine::Value>& values = {}) const {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(connection_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
      throw std::runtime_error(std::string(sqlite3_errmsg(connection_)) + "\n" + sql);
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> owned(statement, sqlite3_finalize);
    for (int i = 0; i < std::min(static_cast<int>(values.size()), sqlite3_bind_parameter_count(statement));
         ++i)
      bindValue(statement, i + 1, values[static_cast<std::size_t>(i)]);
    Rows rows;
    int code = 0;
    while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
      Row& row = rows.emplace_back();
      for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const unsigned char* text = sqlite3_column_text(statement, i);
        row.emplace_back(text != nullptr ? reinterpret_cast<const char*>(text) : "~");
      }
    }
    if (code != SQLITE_DONE) throw std::runtime_error(std::string(sqlite3_errmsg(connection_)) + "\n" + sql);
    return rows;
  }

  engine::plan::Plan bind(std::string_view text) const {
    return engine::plan::bind(engine::sql::parse(text), context);
  }
  /// The rows of a statement of the dialect, parameters by name.
  Rows rows(std::string_view text, const engine::Parameters& parameters = {}) const {
    const engine::plan::Plan plan = bind(text);
    return fetch(engine::plan::emitRows(plan), values(plan, parameters));
  }
  static std::vector<engine::Value> values(const engine::plan::Plan& plan,
                                           const engine::Parameters& parameters) {
    std::vector<engine::Value> result;
    for (const std::string& name : plan.parameters) {
      auto given = parameters.begin();
      while (given != parameters.end() && !base::equalsIgnoreCase(given->first, name)) ++given;
      if (given == parameters.end()) throw std::runtime_error("no value for parameter " + name);
      result.push_back(given->second);
    }
    return result;
  }
  /// SQLite's plan for a statement of the dialect, a step a line.
  std::string explain(std::string_view text, const engine::Parameters& parameters = {}) const {
    const engine::plan::Plan plan = bind(text);
    std::string steps;
    for (const Row& row :
         fetch("EXPLAIN QUERY PLAN " + engine::plan::emitRows(plan), values(plan, parameters)))
      steps += row[3] + "\n";
    return steps;
  }

  engine::plan::Context context;

 private:
  static void bindValue(sqlite3_stmt* statement, int position, const engine::Value& value) {
    using Kind = engine::Value::Kind;
    if (value.isNull()) {
      sqlite3_bind_null(statement, position);
    } else if (value.kind() == Kind::real) {
      sqlite3_bind_double(statement, position, value.asReal());
    } else if (value.kind() == Kind::integer || value.kind() == Kind::boolean) {
      sqlite3_bind_int64(statement, position, value.asInteger());
    } else {
      const std::string text = value.kind() == Kind::date ? value.asDate().iso() : value.text();
      sqlite3_bind_text(statement, position, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
  }

  sqlite3* connection_ = nullptr;
  std::map<std::string, std::unique_ptr<MemoryFile>> files_;
};

}  // namespace test
