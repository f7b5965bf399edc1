#include "entry/frmEnvironment.h"

#include <algorithm>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"

namespace entry {
namespace {

constexpr std::size_t longestType = 5;

void markChanged(frmEnvironment& form) {
  form.changed = true;
  session::ShowStatus(form.session, session::labelText(form.session, label::save_to_keep_changes), false);
}

FileType& rowForEditing(frmEnvironment& form, std::size_t row) {
  if (row >= form.DBGrid1.size()) return form.DBGrid1.emplace_back();
  return form.DBGrid1[row];
}

bool isEmpty(const FileType& row) {
  return row.Dateityp.empty() && row.Anwendung.empty();
}

// Tells the first row that can not be stored.
bool tellRefused(frmEnvironment& form) {
  for (const FileType& row : form.DBGrid1) {
    if (isEmpty(row)) continue;
    const bool incomplete = row.Dateityp.empty() || row.Anwendung.empty();
    if (!incomplete && base::length(row.Dateityp) <= longestType) continue;
    session::Session& s = form.session;
    const int message = incomplete ? dialog::file_type_incomplete : dialog::file_type_too_long;
    session::showBox(s, session::dialogText(s, message) + " " + row.Dateityp + " " + row.Anwendung,
                     platform::box::exclamation);
    return true;
  }
  return false;
}

void writeRows(frmEnvironment& form) {
  engine::Database& db = form.session.files.CurrentDB;
  db.Execute("delete * from Umgebung;");
  engine::Recordset rows = db.OpenRecordset("Umgebung");
  for (const FileType& row : form.DBGrid1) {
    if (isEmpty(row)) continue;
    rows.AddNew();
    rows.set("Dateityp", row.Dateityp);
    rows.set("Anwendung", row.Anwendung);
    rows.Update();
  }
}

}  // namespace

bool Form_Load(frmEnvironment& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    form.typeCaption = session::labelText(s, label::file_type) + ": ";
    form.applicationCaption = session::labelText(s, label::application) + ": ";
    form.DBGrid1.clear();
    auto rows = s.files.CurrentDB.OpenRecordset("select dateityp, anwendung from umgebung order by dateityp",
                                                engine::RecordsetKind::snapshot);
    for (; !rows.EndOfFile(); rows.MoveNext())
      form.DBGrid1.push_back({rows.value(0).textOrEmpty(), rows.value(1).textOrEmpty()});
    form.changed = false;
    form.visible = true;
  });
}

void editFileType(frmEnvironment& form, std::size_t row, const std::string& text) {
  std::string type = base::upper(base::trim(text));
  if (type.starts_with('.')) type.erase(0, 1);
  rowForEditing(form, row).Dateityp = type;
  markChanged(form);
}

void editApplication(frmEnvironment& form, std::size_t row, const std::string& text) {
  rowForEditing(form, row).Anwendung = base::trim(text);
  markChanged(form);
}

void deleteFileType(frmEnvironment& form, std::size_t row) {
  if (row >= form.DBGrid1.size()) return;
  form.DBGrid1.erase(form.DBGrid1.begin() + static_cast<std::ptrdiff_t>(row));
  markChanged(form);
}

bool saveEnvironment(frmEnvironment& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    if (tellRefused(form)) return false;
    writeRows(form);
    session::commitGathered(s);
    cancelEnvironment(form);
    return true;
  });
}

void cancelEnvironment(frmEnvironment& form) {
  form.changed = false;
  form.visible = false;
  session::ShowStatus(form.session, "", false);
}

}  // namespace entry
