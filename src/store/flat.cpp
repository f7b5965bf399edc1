#include "store/flat.h"

#include <optional>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

#include "base/datetime.h"
#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/messages.h"
#include "store/rows.h"

namespace store {
namespace {

/// Where one list column comes from: fields of a query's rows, in this order.
struct Column {
  const char* target;
  std::vector<std::string> fields;
};
struct Source {
  const char* query;      ///< of one parameter, the row's key
  const char* linkTable;  ///< whose rows carry the keys that the query has items for
  bool withValue;         ///< items get ": " and the property's value behind them
  std::vector<Column> columns;
};
struct FlatTable {
  const char* table;
  const char* editQuery;  ///< the rows of the table
  const char* walkQuery;  ///< the rows that get one each
  const char* key;
  std::vector<Source> sources;
};

const FlatTable& entries() {
  static const FlatTable table{
      "WoerterbuchFlat",
      "QueryWoerterbuchFlat",
      "AllWords",
      "ID_Woerterbuch",
      {{"BegriffSachgebietParam",
        "relWoertSachgebiet",
        false,
        {{"SachgebieteZumBegriff", {"Sachgebiet"}}, {"AbkSachgebieteZumBegriff", {"Abkuerzung"}}}},
       {"BegriffEigenschaftWertParam1",
        "relWoertWKat",
        true,
        {{"EigenschaftenZumBegriff", {"Kategorie"}}, {"AbkEigenschaftenZumBegriff", {"Abkuerzung"}}}},
       {"BegriffQuerverweisParam", "Querverweis", false, {{"Querverweise", {"Querverweis"}}}},
       {"BegriffURLParam", "URL", false, {{"URLs", {"URLName", "URL", "URLNotiz"}}}}}};
  return table;
}

const FlatTable& meanings() {
  static const FlatTable table{
      "WortbedeutungFlat",
      "QueryWortbedeutungFlat",
      "ViewBegriffWortbedeutung2",
      "ID_Wortbedeutung",
      {{"WortbedSachgebietParam",
        "relWortbedSachgebiet",
        false,
        {{"SachgebieteZurWortbedeutung", {"Sachgebiet"}},
         {"AbkSachgebieteZurWortbedeutung", {"Abkuerzung"}}}},
       {"WortbedEigenschaftWertParam",
        "relWortbedWKat",
        true,
        {{"EigenschaftenZurWortbedeutung", {"Kategorie"}},
         {"AbkEigenschaftenZurWortbedeutung", {"Abkuerzung"}}}},
       {"WortbedBspParam",
        "WortBedBsp",
        false,
        {{"Beispiele", {"Beispiel"}}, {"Beispieluebersetzungen", {"Beispieluebersetzung"}}}}}};
  return table;
}

std::string joinedItems(engine::Recordset& rows, const Source& source, const Column& column) {
  std::string text;
  if (!hasRows(rows)) return text;
  for (rows.MoveFirst(); !rows.EndOfFile(); rows.MoveNext())
    for (const std::string& field : column.fields) {
      const engine::Value item = rows[field];
      if (item.isNull()) continue;
      text += item.asText();
      if (source.withValue) {
        const std::string value = rows["KategorieWert"].textOrEmpty();
        if (!value.empty()) text += ": " + value;
      }
      text += ", ";
    }
  if (!text.empty()) text.resize(text.size() - 2);
  return text;
}

/// Fills rows of one flat table; keeps its recordset open and its queries' parameters at hand.
class FlatWriter {
 public:
  FlatWriter(engine::Database& db, const FlatTable& table, bool emptied)
      : db_(db), table_(table), emptied_(emptied), rows_(db.OpenRecordset(table.editQuery)) {
    for (const Source& source : table.sources)
      parameters_.push_back({{db.queryDef(source.query).parameterNames().at(0), {}}});
    if (!emptied) return;
    for (const Source& source : table.sources) linked_.push_back(keysIn(source.linkTable));
  }

  void fill(std::int64_t key) {
    if (!emptied_) rows_.FindFirst(std::string(table_.key) + " =" + std::to_string(key));
    if (emptied_ || rows_.NoMatch()) {
      rows_.AddNew();
      rows_.set(table_.key, key);
    } else {
      rows_.Edit();
    }
    for (std::size_t i = 0; i < parameters_.size(); ++i) {
      if (emptied_ && !linked_[i].contains(key))
        clearColumns(table_.sources[i]);
      else
        fillColumns(table_.sources[i], parameters_[i], key);
    }
    rows_.Update();
  }

 private:
  std::unordered_set<std::int64_t> keysIn(const char* linkTable) {
    std::unordered_set<std::int64_t> keys;
    engine::Recordset rows = db_.OpenRecordset(
        "select distinct " + std::string(table_.key) + " from " + linkTable, engine::RecordsetKind::snapshot);
    for (; !rows.EndOfFile(); rows.MoveNext())
      if (!rows.value(0).isNull()) keys.insert(rows.value(0).asInteger());
    return keys;
  }
  void clearColumns(const Source& source) {
    for (const Column& column : source.columns) rows_.set(column.target, "");
  }
  /// All columns are set, so that what was unlinked vanishes.
  void fillColumns(const Source& source, engine::Parameters& parameters, std::int64_t key) {
    parameters.front().second = key;
    engine::Recordset items = db_.OpenRecordset(source.query, engine::RecordsetKind::snapshot, parameters);
    for (const Column& column : source.columns) rows_.set(column.target, joinedItems(items, source, column));
  }

  engine::Database& db_;
  const FlatTable& table_;
  bool emptied_;  ///< no row can be there already
  engine::Recordset rows_;
  std::vector<engine::Parameters> parameters_;  ///< of each source, the key alone
  /// Of each source, the keys that have items: a full build opens no query for the others.
  std::vector<std::unordered_set<std::int64_t>> linked_;
};

/// The time of the last build; nothing asks for a full one.
std::optional<base::DateTime> lastBuild(engine::Database& db) {
  engine::Recordset row = db.OpenRecordset("QuerySprache");
  if (row.EndOfFile()) return std::nullopt;
  const std::string text = base::trim(row["LastReportTableUpdate"].textOrEmpty());
  if (text.empty()) return std::nullopt;
  return engine::Value(text).asDate();
}

void storeBuildTime(engine::Database& db) {
  engine::Recordset row = db.OpenRecordset("QuerySprache");
  if (row.EndOfFile()) return;
  row.Edit();
  row.set("LastReportTableUpdate", base::DateTime::now().stamp());
  row.Update();
}

void buildAll(session::Session& s, const FlatTable& table) {
  engine::Database& db = s.files.CurrentDB;
  db.Execute("delete * from " + std::string(table.table) + ";");
  engine::Recordset rows = db.OpenRecordset(table.walkQuery);
  if (rows.EndOfFile()) return;
  session::ProgressForm progress(s, session::labelText(s, label::building_report_tables) + " ...");
  rows.MoveLast();
  const std::int64_t total = rows.RecordCount();
  const std::size_t key = rows.field(table.key);
  FlatWriter writer(db, table, true);
  std::int64_t done = 0;
  for (rows.MoveFirst(); !rows.EndOfFile(); rows.MoveNext()) {
    progress.step(++done, total);
    if (!rows.value(key).isNull()) writer.fill(rows.value(key).asInteger());
  }
}

void buildChanged(session::Session& s, const FlatTable& table, base::DateTime since) {
  engine::Database& db = s.files.CurrentDB;
  const std::string criterion =
      "DateTimeStampLastChange >= #" + base::formatDate(since, "mm-dd-yy hh:mm:ss") + "#";
  engine::Recordset rows = db.OpenRecordset(table.walkQuery);
  FlatWriter writer(db, table, false);
  const std::size_t key = rows.field(table.key);
  for (rows.FindFirst(criterion); !rows.NoMatch(); rows.FindNext(criterion)) {
    session::turnLoop(s);
    if (!rows.value(key).isNull()) writer.fill(rows.value(key).asInteger());
  }
}

void build(session::Session& s, std::span<const FlatTable* const> tables, bool full) {
  const std::optional<base::DateTime> since = lastBuild(s.files.CurrentDB);
  for (const FlatTable* table : tables) {
    if (full || !since)
      buildAll(s, *table);
    else
      buildChanged(s, *table, *since);
  }
  storeBuildTime(s.files.CurrentDB);
}

bool buildOnRequest(session::Session& s, bool full, int question) {
  if (!session::confirmed(s, question)) return false;
  {
    const session::Busy busy(s, session::labelText(s, label::building_report_tables) + " ...");
    buildReportTables(s, full);
  }
  session::showMessage(s, dialog::report_tables_built, platform::box::exclamation);
  return true;
}

}  // namespace

void FillFlatRow(session::Session& s, std::int64_t entry) {
  FlatWriter(s.files.CurrentDB, entries(), false).fill(entry);
}

void FillFlatMeaningRow(session::Session& s, std::int64_t meaning) {
  FlatWriter(s.files.CurrentDB, meanings(), false).fill(meaning);
}

void BuildWoerterbuchFlat(session::Session& s, bool full) {
  const FlatTable* tables[] = {&entries()};
  build(s, tables, full);
}

void BuildWortbedeutungFlat(session::Session& s, bool full) {
  const FlatTable* tables[] = {&meanings()};
  build(s, tables, full);
}

void buildReportTables(session::Session& s, bool full) {
  const FlatTable* tables[] = {&entries(), &meanings()};
  build(s, tables, full);
}

bool mnuBuildReportTables(session::Session& s) {
  return buildOnRequest(s, true, dialog::rebuild_report_tables);
}

bool mnuBuildReportTablesDelta(session::Session& s) {
  return buildOnRequest(s, false, dialog::update_report_tables);
}

}  // namespace store
