#include "store/upgrade.h"

#include <algorithm>

#include "base/text.h"
#include "shell/session/errors.h"
#include "store/queries/stored_queries.h"
#include "store/reference.h"
#include "store/schema.h"

namespace store {
namespace {

// The characters of a new dictionary and the two separators of paths.
constexpr const char* ignoreAtSort = "\"!¡¿()-_+#'?[]&%$§=´`<>|.,;:@{}~*“”/\\";

bool hasTable(engine::Database& db, const std::string& name) {
  return std::ranges::any_of(db.tableNames(),
                             [&](const auto& each) { return base::equalsIgnoreCase(each, name); });
}

bool hasField(engine::Database& db, const std::string& table, const std::string& name) {
  return std::ranges::any_of(db.tableDef(table).Fields(),
                             [&](const auto& field) { return base::equalsIgnoreCase(field.name, name); });
}

void tellDone(session::Session& s, const std::string& what) {
  session::LogError(s, base::Error(engine::errors::tableExists, "[" + what + "] exists already."), "frmMDI");
}

/// Adds a text column to the settings row and stores a value in it.
void addSetting(session::Session& s, engine::Database& db, const std::string& name,
                const std::string& value) {
  if (hasField(db, "Sprache", name)) {
    tellDone(s, name);
  } else {
    db.Execute("ALTER TABLE [Sprache] ADD COLUMN [" + name + "] TEXT(50) ");
  }
  engine::Recordset row = db.OpenRecordset("Sprache");
  if (row.EndOfFile()) return;
  row.Edit();
  row.set(name, value);
  row.Update();
}

/// Creates a table and fills it; one that is there already is left as it is.
template <class Fill>
void addTable(session::Session& s, engine::Database& db, const std::string& name, Fill fill) {
  if (hasTable(db, name)) return tellDone(s, name);
  CreateTable(db, name);
  fill();
}

}  // namespace

void UpdateFrom2012rV17ToCurrentVersion(session::Session& s, engine::Database& db) {
  addSetting(s, db, "SchriftBemerkung", "Arial Unicode MS");
  if (hasTable(db, "Kodierungen")) db.Execute("drop TABLE [Kodierungen];");
  addTable(s, db, "Kodierungen", [&] { ImportStandardKodierungen(s, db); });
  addTable(s, db, "Umgebung", [&] { FillDefaultEnvironment(db); });
  addTable(s, db, "FilterSelektion1", [] {});
  addTable(s, db, "WArtikel", [] {});
  addSetting(s, db, "IgnoreAtSort", ignoreAtSort);
  addTable(s, db, "WZeit", [&] { ImportWZeit(s, db); });
  CreateQueries(db);
  WatchOpeningChecks(db);
  KeepSubEntries(db);
  IndexSearchedTexts(db);
  engine::Recordset info = db.OpenRecordset("Info");
  info.Edit();
  info.set("Version", currentVersion);
  info.Update();
}

}  // namespace store
