#include "browse/frmTreeView.h"

#include "browse/dictionary_in_use.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "shell/session/texts.h"
#include "store/rewriter.h"
#include "store/rows.h"

namespace browse {

namespace {

constexpr auto view = session::View::frmTreeView;

/// The queries of a tree and the columns that its top level shows.
struct TreeSource {
  const char *query, *text, *key;
  LineType type;
  const char *children, *childKey;  ///< of the lines below; the statement goes on with the key
  int caption;
};
constexpr TreeSource sources[] = {
    {"QueryOrderWKategorie1", "Kategorie", "ID_WKategorie", LineType::group,
     "Select * from ViewBegriffOrderByKategorie where ID_WKategorie = ", "ID_Woerterbuch", label::properties},
    {"QueryOrderWSachgebiet1", "Sachgebiet", "ID_Sachgebiet", LineType::group,
     "Select * from ViewBegriffOrderBySachgebiet where ID_Sachgebiet = ", "ID_Woerterbuch", label::subjects},
    {"BegriffQuerverweise", "Begriff", "ID_Woerterbuch", LineType::entry, nullptr, "ID_WoerterbuchQV",
     label::cross_references}};

const TreeSource& sourceOf(const frmTreeView& form) {
  return sources[static_cast<std::size_t>(form.kind)];
}
bool severalFiles(const frmTreeView& form) {
  return form.session.files.OpenDBCount > 1;
}

void clear(frmTreeView& form) {
  form.lines.clear();
  form.indents.clear();
  form.types.clear();
  form.databases.clear();
  form.keys.clear();
  form.expanded.clear();
  selectLine(form, -1);
}

void insertLine(frmTreeView& form, std::size_t at, std::string text, int indent, LineType type,
                std::string database, std::int64_t key) {
  const auto offset = static_cast<std::ptrdiff_t>(at);
  form.lines.insert(form.lines.begin() + offset, std::move(text));
  form.indents.insert(form.indents.begin() + offset, indent);
  form.types.insert(form.types.begin() + offset, type);
  form.databases.insert(form.databases.begin() + offset, std::move(database));
  form.keys.insert(form.keys.begin() + offset, key);
  form.expanded.insert(form.expanded.begin() + offset, false);
}

std::string topText(const frmTreeView& form, const std::string& name, const std::string& database) {
  if (form.kind == TreeKind::crossReferences) return name + "   ->";
  return severalFiles(form) ? name + " (" + database + ")   ->" : name + " ->";
}

engine::Recordset openTopLevel(frmTreeView& form) {
  auto& database = form.session.files.CurrentDB;
  auto scratch = database.queryDef("SQLTemp");
  scratch.setScratchSQL(
      store::BuildMultiSQL(form.session, database.queryDef(sourceOf(form).query).SQL(), view));
  return scratch.OpenRecordset(engine::RecordsetKind::snapshot);
}

void addTopLevel(frmTreeView& form) {
  const TreeSource& source = sourceOf(form);
  auto rows = openTopLevel(form);
  if (rows.EndOfFile()) return;
  rows.MoveLast();
  const std::int64_t total = rows.RecordCount();
  session::ProgressForm progress(form.session, form.caption);
  std::int64_t done = 0;
  for (rows.MoveFirst(); !rows.EndOfFile(); rows.MoveNext()) {
    progress.step(++done, total);
    const std::string database = rows["DatabaseName"].textOrEmpty();
    insertLine(form, form.lines.size(), topText(form, rows[source.text].textOrEmpty(), database), 0,
               source.type, database, store::numberOf(rows[source.key]));
  }
}

/// The rows below a line, from the line's own file.
engine::Recordset openChildren(frmTreeView& form, std::size_t line) {
  auto& database = databaseOf(form.session, form.databases[line]);
  if (form.kind == TreeKind::crossReferences)
    return database.OpenRecordset("BegriffQuerverweisParam1", engine::RecordsetKind::snapshot,
                                  {{"lWortID", form.keys[line]}});
  return database.OpenRecordset(sourceOf(form).children + std::to_string(form.keys[line]),
                                engine::RecordsetKind::snapshot);
}

std::string childText(const frmTreeView& form, const engine::Recordset& row) {
  if (form.kind != TreeKind::crossReferences) return row["Begriff"].textOrEmpty();
  const std::string reference = row["Querverweis"].textOrEmpty();
  return severalFiles(form) ? reference + " --- " + row["DatabaseName"].textOrEmpty() : reference;
}

}  // namespace

bool BuildTree(frmTreeView& form) {
  auto& s = form.session;
  return session::guard(s, form.formName, [&] {
    form.visible = true;
    form.caption =
        session::labelText(s, label::tree_title) + ": " + session::labelText(s, sourceOf(form).caption);
    clear(form);
    if (form.clearSearchBox) form.clearSearchBox();
    addTopLevel(form);
  });
}

void selectLine(frmTreeView& form, int line) {
  const bool there = line >= 0 && line < static_cast<int>(form.lines.size());
  form.selected = there ? line : -1;
  form.jumpEnabled = there && form.types[static_cast<std::size_t>(line)] != LineType::group;
}

bool canExpand(const frmTreeView& form, int line) {
  return line >= 0 && line < static_cast<int>(form.lines.size()) &&
         form.indents[static_cast<std::size_t>(line)] == 0;
}

bool expandLine(frmTreeView& form, int line) {
  const auto at = static_cast<std::size_t>(line);
  if (!canExpand(form, line) || form.expanded[at]) return true;
  return session::guard(form.session, form.formName, [&] {
    const LineType type = form.kind == TreeKind::crossReferences ? LineType::reference : LineType::entry;
    auto rows = openChildren(form, at);
    for (std::size_t below = at + 1; !rows.EndOfFile(); rows.MoveNext(), ++below)
      insertLine(form, below, childText(form, rows), 1, type, rows["DatabaseName"].textOrEmpty(),
                 store::numberOf(rows[sourceOf(form).childKey]));
    form.expanded[at] = true;
    if (form.selected > line) form.selected = -1;
  });
}

bool jump(frmTreeView& form) {
  auto& s = form.session;
  if (!form.jumpEnabled || form.selected < 0) return true;
  return session::guard(s, form.formName, [&] {
    const auto at = static_cast<std::size_t>(form.selected);
    const std::string file = databaseOf(s, form.databases[at]).Name();
    auto scratch = s.files.CurrentDB.queryDef("SQLTemp");
    std::string sql = "Select * from Woerterbuch in '" + session::escapedSQLText(file) +
                      "' where id_woerterbuch = " + std::to_string(form.keys[at]);
    if (!form.databases[at].empty()) sql += " And DatabaseName = " + quotedText(form.databases[at]);
    scratch.setScratchSQL(sql);
    auto row = scratch.OpenRecordset(engine::RecordsetKind::snapshot);
    if (row.EndOfFile()) return;
    const JumpTarget target{store::numberOf(row["ID_Woerterbuch"]), store::numberOf(row["ID_Woerterbuch1"]),
                            store::numberOf(row["ebene"]), form.databases[at]};
    row.Close();
    setJump(s, target);
    if (form.pressCommand6) form.pressCommand6();
  });
}

}  // namespace browse
