#include "browse/frmView.h"

#include "browse/derived.h"
#include "browse/dictionary_in_use.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "shell/session/texts.h"

namespace browse {

namespace {

constexpr auto view = session::View::frmView;

/// Where the cells of one owner are written: the row that is read first, by one or two keys of the grid's
/// row.
struct OwnerRow {
  const char *select, *key, *secondClause, *secondKey;
};
const OwnerRow& rowOf(CellOwner owner) {
  static constexpr OwnerRow entry{"select * from Woerterbuch where ID_Woerterbuch = ", "ID_Woerterbuch", "",
                                  nullptr},
      example{"select * from ViewBegriffWortbedBsp where ID_WortbedBsp = ", "ID_WortbedBsp", "", nullptr},
      entryProperty{"select * from ViewBegriffKategorie where ID_WKategorie = ", "ID_WKategorie",
                    " and ID_Woerterbuch = ", "ID_Woerterbuch"},
      entrySubject{"select * from ViewBegriffSachgebiet where ID_Sachgebiet = ", "ID_Sachgebiet",
                   " and ID_Woerterbuch = ", "ID_Woerterbuch"},
      meaningProperty{"select * from ViewBegriffWortbedKategorie where ID_WKategorie = ", "ID_WKategorie",
                      " and ID_Wortbedeutung = ", "ID_Wortbedeutung"},
      meaningSubject{"select * from ViewBegriffWortbedSachgebiet where ID_Sachgebiet = ", "ID_Sachgebiet",
                     " and ID_Wortbedeutung = ", "ID_Wortbedeutung"},
      meaning{"select * from ViewBegriffWortbedeutung where ID_Wortbedeutung = ", "ID_Wortbedeutung", "",
              nullptr},
      crossReference{"select * from ViewBegriffQuerverweise where ID_Querverweis = ", "ID_Querverweis", "",
                     nullptr},
      url{"select * from ViewBegriffURL where ID_URL = ", "ID_URL", "", nullptr};
  switch (owner) {
    case CellOwner::example:
      return example;
    case CellOwner::entryProperty:
      return entryProperty;
    case CellOwner::entrySubject:
      return entrySubject;
    case CellOwner::meaningProperty:
      return meaningProperty;
    case CellOwner::meaningSubject:
      return meaningSubject;
    case CellOwner::meaning:
      return meaning;
    case CellOwner::crossReference:
      return crossReference;
    case CellOwner::url:
      return url;
    default:
      return entry;
  }
}

void bindView(frmView& form) {
  auto& s = form.session;
  const session::Busy busy(s, session::labelText(s, label::loading_view));
  bindGrid(s, form.Adodc1, s.files.CurrentDB.queryDef(form.recordSource).SQL(), view);
  form.Adodc1.visible = true;
}

/// Rows of several files do not follow what is written beneath them.
void refresh(frmView& form) {
  if (form.session.files.OpenDBCount > 1) bindView(form);
}

std::string statementFor(frmView& form, std::int64_t row, CellOwner owner) {
  const OwnerRow& target = rowOf(owner);
  std::string sql = target.select + std::to_string(gridNumber(form.Adodc1, row, target.key));
  if (target.secondKey != nullptr)
    sql += target.secondClause + std::to_string(gridNumber(form.Adodc1, row, target.secondKey));
  return sql;
}

/// Writes one cell; false when the row is gone.
bool writeCell(frmView& form, std::int64_t row, std::size_t column, const std::string& text) {
  auto rows = form.session.files.CurrentDB.OpenRecordset(statementFor(form, row, form.owners[column]));
  if (rows.EndOfFile()) return false;
  rows.Edit();
  rows.set(form.Adodc1.columns[column].field, text);
  rows.Update();
  return true;
}

void addMeaning(frmView& form, std::int64_t row, const std::string& text) {
  auto& s = form.session;
  const std::int64_t entry = gridNumber(form.Adodc1, row, "ID_Woerterbuch");
  s.files.CurrentDB.Execute(
      "Insert into Wortbedeutung (id_woerterbuch, wortbedeutung,databasename) values (" +
      std::to_string(entry) + ",'" + text + "','" + session::escapedSQLText(s.files.CurrentDBPath) + "')");
  refreshDerived(s, entry, Changed::text);
  bindView(form);
}

Changed kindOf(CellOwner owner, const std::string& field) {
  switch (owner) {
    case CellOwner::entry:
      return field == "Begriff" ? Changed::headword : Changed::other;
    case CellOwner::meaning:
    case CellOwner::example:
    case CellOwner::url:
      return Changed::text;
    default:
      return Changed::other;
  }
}

void writeAndFollow(frmView& form, std::int64_t row, std::size_t column, const std::string& text) {
  auto& s = form.session;
  const CellOwner owner = form.owners[column];
  const std::int64_t entry = gridNumber(form.Adodc1, row, "ID_Woerterbuch");
  const std::int64_t meaning = gridNumber(form.Adodc1, row, "ID_Wortbedeutung");
  if (!writeCell(form, row, column, text)) return;
  refreshDerived(s, entry, kindOf(owner, form.Adodc1.columns[column].field));
  if (owner != CellOwner::entry) refreshFlat(s, entry, meaning);
  refresh(form);
}

}  // namespace

bool Form_Load(frmView& form) {
  if (form.ViewKind < 1 || form.ViewKind > tableViewCount) return false;
  auto& s = form.session;
  return session::guard(s, form.formName, [&] {
    form.visible = true;
    form.caption = session::labelText(s, label::view_title);
    DataGridsDesign(form);
    bindView(form);
  });
}

bool requery(frmView& form) {
  return session::guard(form.session, form.formName, [&] { bindView(form); });
}

bool canEdit(frmView& form, std::int64_t row, std::size_t column) {
  if (column >= form.owners.size() || !hasRow(form.Adodc1, row)) return false;
  const CellOwner owner = form.owners[column];
  if (owner == CellOwner::locked || form.session.files.ReadOnlyMode) return false;
  return owner == CellOwner::newMeaning || gridNumber(form.Adodc1, row, rowOf(owner).key) != 0;
}

bool editCell(frmView& form, std::int64_t row, std::size_t column, const std::string& text) {
  auto& s = form.session;
  return session::guard(s, form.formName, [&] {
    if (!canEdit(form, row, column) || gridCell(form.Adodc1, row, column) == text) return;
    useDictionary(s, gridField(form.Adodc1, row, "DatabaseName"));
    if (form.owners[column] == CellOwner::newMeaning)
      addMeaning(form, row, text);
    else
      writeAndFollow(form, row, column, text);
  });
}

void closeView(frmView& form) {
  form.Adodc1 = {};
  form.visible = false;
}

}  // namespace browse
