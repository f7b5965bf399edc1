#include "plain.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace bench {

namespace {

void check(sqlite3* connection, int code) {
  if (code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE) return;
  std::fprintf(stderr, "yardstick: %s\n", sqlite3_errmsg(connection));
  std::exit(1);
}

}  // namespace

PlainStatement::PlainStatement(sqlite3* connection, const std::string& text) {
  check(connection, sqlite3_prepare_v2(connection, text.c_str(), -1, &statement_, nullptr));
}

void PlainStatement::bind(int at, std::string_view text) {
  check(sqlite3_db_handle(statement_),
        sqlite3_bind_text(statement_, at, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT));
}
void PlainStatement::bind(int at, std::int64_t number) {
  check(sqlite3_db_handle(statement_), sqlite3_bind_int64(statement_, at, number));
}

bool PlainStatement::step() {
  const int code = sqlite3_step(statement_);
  check(sqlite3_db_handle(statement_), code);
  return code == SQLITE_ROW;
}

void PlainStatement::run() {
  while (step()) {
  }
  sqlite3_reset(statement_);
}

std::string_view PlainStatement::text(int column) const {
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
  return {bytes == nullptr ? "" : bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

PlainFile::PlainFile(const std::string& path, bool create) {
  if (create) std::remove(path.c_str());
  check(nullptr, sqlite3_open(path.c_str(), &connection_));
  run("PRAGMA page_size = 4096");
  run("PRAGMA cache_size = -65536");
  run("PRAGMA journal_mode = WAL");
  run("PRAGMA synchronous = NORMAL");
  if (!create) return;
  run("CREATE TABLE woerterbuch (id INTEGER PRIMARY KEY AUTOINCREMENT, main INTEGER, begriff TEXT COLLATE "
      "NOCASE,"
      " sortbegriff TEXT COLLATE NOCASE, praefix TEXT COLLATE NOCASE, metasuche TEXT COLLATE NOCASE, ebene "
      "INTEGER,"
      " bemerkung TEXT COLLATE NOCASE, prioritaet INTEGER, stamp TEXT, databasename TEXT COLLATE NOCASE, "
      "changed TEXT)");
  run("CREATE INDEX w1 ON woerterbuch (begriff)");
  run("CREATE INDEX w2 ON woerterbuch (sortbegriff)");
  run("CREATE INDEX w3 ON woerterbuch (main)");
  run("CREATE INDEX w4 ON woerterbuch (stamp)");
  run("CREATE TABLE wortbedeutung (id INTEGER PRIMARY KEY AUTOINCREMENT, entry INTEGER REFERENCES "
      "woerterbuch,"
      " wortbedeutung TEXT COLLATE NOCASE, databasename TEXT COLLATE NOCASE)");
  run("CREATE INDEX b1 ON wortbedeutung (entry)");
  run("CREATE INDEX b2 ON wortbedeutung (wortbedeutung)");
  run("CREATE TABLE wortbedbsp (id INTEGER PRIMARY KEY, sense INTEGER, beispiel TEXT, uebersetzung TEXT)");
  run("CREATE INDEX s1 ON wortbedbsp (sense)");
  run("CREATE TABLE wkategorie (id INTEGER PRIMARY KEY, kategorie TEXT, abkuerzung TEXT)");
  run("CREATE TABLE wsachgebiet (id INTEGER PRIMARY KEY, sachgebiet TEXT, abkuerzung TEXT)");
  for (const char* link : {"relwoertwkat", "relwoertsachgebiet", "relwortbedwkat", "relwortbedsachgebiet"}) {
    run(std::string("CREATE TABLE ") + link + " (owner INTEGER, item INTEGER, wert TEXT)");
    run(std::string("CREATE INDEX i_") + link + " ON " + link + " (owner)");
  }
}

void PlainFile::run(const std::string& statement) {
  check(connection_, sqlite3_exec(connection_, statement.c_str(), nullptr, nullptr, nullptr));
}

void stop(const std::string& what) {
  std::fprintf(stderr, "bench: %s failed\n", what.c_str());
  std::exit(1);
}

double now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double peakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.rfind("VmHWM:", 0) == 0) return std::strtod(line.c_str() + 6, nullptr) / 1024;
  return 0;
}

void report(const std::string& what, double ours, double plain, const std::string& aim) {
  const bool brief = std::max(ours, plain) < 1;
  const double unit = brief ? 1000 : 1;
  const char* name = brief ? "ms" : "s";
  std::printf("| %s | %.2f %s | %.2f %s | %.2f | %s |\n", what.c_str(), ours * unit, name, plain * unit, name,
              ours / plain, aim.c_str());
  std::fflush(stdout);
}

void report(const std::string& what, double value, const std::string& unit, const std::string& aim) {
  std::printf("| %s | %.2f %s | | | %s |\n", what.c_str(), value, unit.c_str(), aim.c_str());
  std::fflush(stdout);
}

}  // namespace bench
