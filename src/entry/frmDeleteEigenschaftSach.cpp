#include "entry/frmDeleteEigenschaftSach.h"

#include <string>

#include "base/datetime.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"

namespace entry {
namespace {

// The statements of a catalogue, each to be followed by an item's number.
struct Statements {
  const char* ofEntries;
  const char* removeFromEntries;
  const char* ofMeanings;
  const char* removeFromMeanings;
  const char* catalogue;
  const char* key;
  int question, done;
};

constexpr Statements ofProperties{
    "select * from relwoertwkat where id_wkategorie = ",
    "delete * from relwoertwkat where id_wkategorie = ",
    "select * from wortbedeutung,relwortbedwkat where wortbedeutung.id_wortbedeutung = "
    "relwortbedwkat.id_wortbedeutung and id_wkategorie = ",
    "delete * from relwortbedwkat where id_wkategorie = ",
    "WKategorie",
    "ID_WKategorie",
    dialog::delete_properties,
    dialog::properties_deleted};
constexpr Statements ofSubjects{
    "select * from relwoertsachgebiet where id_wsachgebiet = ",
    "delete * from relwoertsachgebiet where id_wsachgebiet = ",
    "select * from wortbedeutung, relwortbedsachgebiet where wortbedeutung.id_wortbedeutung = "
    "relwortbedsachgebiet.id_wortbedeutung and id_sachgebiet = ",
    "delete * from relwortbedsachgebiet where id_sachgebiet = ",
    "WSachgebiet",
    "ID_Sachgebiet",
    dialog::delete_subjects,
    dialog::subjects_deleted};

// Marks the entries of the rows as changed now.
void stampEntries(session::Session& s, const std::string& rowsOfItem) {
  auto rows = s.files.CurrentDB.OpenRecordset(rowsOfItem, engine::RecordsetKind::snapshot);
  if (rows.EndOfFile()) return;
  session::ProgressForm progress(s, session::labelText(s, label::removing_assignments));
  rows.MoveLast();
  const std::int64_t count = rows.RecordCount();
  const std::size_t entry = rows.field("ID_Woerterbuch");
  rows.MoveFirst();
  for (std::int64_t n = 1; !rows.EndOfFile(); rows.MoveNext(), ++n) {
    progress.step(n, count);
    if (rows.value(entry).isNull()) continue;
    s.files.CurrentDB.Execute("UPDATE  woerterbuch SET DateTimeStampLastChange = '" +
                              base::DateTime::now().stamp() +
                              "' where id_woerterbuch =" + rows.value(entry).asText());
  }
}

void deleteItem(frmDeleteEigenschaftSach& form, const Statements& statements, std::int64_t id) {
  session::Session& s = form.session;
  const std::string number = std::to_string(id);
  stampEntries(s, statements.ofEntries + number);
  s.files.CurrentDB.Execute(statements.removeFromEntries + number);
  if (form.meaningsToo) {
    stampEntries(s, statements.ofMeanings + number);
    s.files.CurrentDB.Execute(statements.removeFromMeanings + number);
  }
  auto catalogue = s.files.CurrentDB.OpenRecordset(statements.catalogue);
  catalogue.FindFirst(std::string(statements.key) + " = " + number);
  if (catalogue.NoMatch()) return;
  catalogue.Delete();
  ++form.deleted;
}

}  // namespace

bool Form_Load(frmDeleteEigenschaftSach& form) {
  return session::guard(form.session, form.formName,
                        [&] { form.lists = readChoice(form.session, form.CatalogueDeleteMode); });
}

bool deleteItems(frmDeleteEigenschaftSach& form) {
  session::Session& s = form.session;
  form.deleted = 0;
  if (form.lists.chosen.empty()) return false;
  const Statements& statements = form.CatalogueDeleteMode ? ofProperties : ofSubjects;
  const bool done = session::guard(s, form.formName, [&] {
    if (!session::confirmed(s, statements.question)) return false;
    for (const CatalogueItem& item : form.lists.chosen) deleteItem(form, statements, item.id);
    session::showMessage(s, statements.done, platform::box::information);
    return true;
  });
  // A failure in the middle leaves a part of the items deleted, too.
  if (form.deleted == 0) return done;
  s.shell.pendingRefresh = true;
  return Form_Load(form) && done;
}

}  // namespace entry
