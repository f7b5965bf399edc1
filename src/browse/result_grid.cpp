#include "browse/result_grid.h"

#include <algorithm>

#include "base/text.h"
#include "browse/dictionary_in_use.h"
#include "catalogue/label.h"
#include "shell/session/texts.h"
#include "store/rewriter.h"
#include "store/rows.h"

namespace browse {

namespace {

/// The field of this name, "table.column" or, for the first of that name, the column alone.
const engine::FieldInfo* findField(const engine::Recordset& rows, const std::string& name) {
  const bool whole = name.find('.') != std::string::npos;
  for (const engine::FieldInfo& field : rows.Fields()) {
    const std::size_t point = whole ? std::string::npos : field.name.rfind('.');
    const std::string plain = point == std::string::npos ? field.name : field.name.substr(point + 1);
    if (base::equalsIgnoreCase(plain, name)) return &field;
  }
  return nullptr;
}

constexpr std::int64_t firstRows = 100;  // more than a grid shows at a time

base::Value fieldValue(ResultGrid& grid, std::int64_t row, const std::string& field) {
  if (!hasRow(grid, row)) return {};
  const engine::FieldInfo* info = findField(grid.rows, field);
  if (info == nullptr) return {};
  if (grid.rows.AbsolutePosition() != row) grid.rows.setAbsolutePosition(row);
  return grid.rows.value(static_cast<std::size_t>(info - grid.rows.Fields().data()));
}

/// Numbers repeat from file to file: with several open only the current one is meant.
std::string inCurrentFile(const session::Session& s) {
  return s.files.OpenDBCount > 1 ? " and databasename = " + quotedText(s.files.CurrentDBPath) : "";
}

}  // namespace

std::string rewritten(session::Session& s, const std::string& sql, session::View view,
                      const std::string& text) {
  return base::replaceAll(store::BuildMultiSQL(s, std::string(sql), view), textMark, base::upper(text));
}

void bindGrid(session::Session& s, ResultGrid& grid, const std::string& sql, session::View view,
              const std::string& text) {
  auto& database = s.files.CurrentDB;
  grid.selected = -1;
  grid.rows = {};
  grid.known = 0;
  grid.complete = true;
  auto scratch = database.queryDef("SQLTemp");
  scratch.setScratchSQL(rewritten(s, sql, view, text));
  grid.rows =
      database.OpenRecordset(scratch.SQL(), engine::RecordsetKind::dynaset, {}, engine::Interface::second);
  grid.complete = false;
  readOn(grid, firstRows);
}

void readOn(ResultGrid& grid, std::int64_t rows) {
  if (grid.complete) return;
  engine::Recordset& set = grid.rows;
  grid.complete = set.EndOfFile() && set.BeginOfFile();
  if (grid.complete) return;
  const std::int64_t place = set.AbsolutePosition();
  set.setAbsolutePosition(std::max<std::int64_t>(grid.known - 1, 0));
  grid.known = std::max<std::int64_t>(grid.known, 1);
  for (; rows > 0 && !grid.complete; --rows) {
    set.MoveNext();
    grid.complete = set.EndOfFile();
    if (!grid.complete) ++grid.known;
  }
  set.setAbsolutePosition(std::max<std::int64_t>(place, 0));
}

std::int64_t gridRows(ResultGrid& grid) {
  if (!grid.rows.isOpen()) return 0;
  grid.known = grid.rows.RecordCount();
  grid.complete = true;
  return grid.known;
}

bool hasRow(ResultGrid& grid, std::int64_t row) {
  return row >= 0 && (row < grid.known || row < gridRows(grid));
}

std::string gridCell(ResultGrid& grid, std::int64_t row, std::size_t column) {
  return column < grid.columns.size() ? gridField(grid, row, grid.columns[column].field) : "";
}

std::string gridField(ResultGrid& grid, std::int64_t row, const std::string& field) {
  return fieldValue(grid, row, field).textOrEmpty();
}

std::int64_t gridNumber(ResultGrid& grid, std::int64_t row, const std::string& field) {
  return store::numberOf(fieldValue(grid, row, field));
}

std::string quotedText(const std::string& text) {
  return "\"" + base::replaceAll(text, "\"", "\"\"") + "\"";
}

void HierarchischeObjekteAnzeigen(session::Session& s, Hierarchy& grids, std::int64_t ID_Woerterbuch,
                                  std::int64_t ID_Woerterbuch1, session::View view) {
  const std::string main = std::to_string(ID_Woerterbuch1), own = std::to_string(ID_Woerterbuch);
  bindGrid(s, grids.main,
           ID_Woerterbuch1 != 0
               ? "Select * from Woerterbuch where id_woerterbuch like " + main +
                     " and id_woerterbuch1 like " + main + inCurrentFile(s) + " order by begriff"
               : "Select * from Woerterbuch where id_woerterbuch = 0",
           view);
  const std::string columns = "Select id_woerterbuch,id_woerterbuch1,begriff,databasename from Woerterbuch";
  bindGrid(s, grids.subEntries,
           columns + (ID_Woerterbuch != 0 ? " where id_woerterbuch1 like " + own + inCurrentFile(s) +
                                                " and ebene = 2 order by begriff"
                                          : " where id_woerterbuch = 0"),
           view);
  grids.main.columns = {{"begriff", session::labelText(s, label::main_entry)}};
  grids.subEntries.columns = {{"begriff", session::labelText(s, label::sub_entries)}};
  grids.main.visible = grids.subEntries.visible = true;
}

void setJump(session::Session& s, const JumpTarget& target) {
  useDictionary(s, target.DatabaseName);
  s.entry.CurrentEntryId = target.ID_Woerterbuch;
  s.entry.NewEntryLevel = static_cast<int>(target.Ebene);
  s.entry.EntryEditMode = target.Ebene == 1 ? 3 : 4;
}

}  // namespace browse
