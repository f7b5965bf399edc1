#include "entry/frmDeleteEntries.h"

#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"

namespace entry {
namespace {

// The date of the last change is text: one that is no date makes the whole statement fail.
std::string condition(const frmDeleteEntries& form) {
  const std::string column = form.byLastChange ? "[datetimestamplastchange]" : "[datetimestamp]";
  return " (cdate(" + column + ") >= cdate('" + form.from.stamp() + "') and cdate(" + column +
         ") <= cdate('" + form.to.stamp() + "'))";
}

}  // namespace

void Form_Load(frmDeleteEntries& form) {
  form.from = form.to = base::DateTime::now();
  form.byLastChange = false;
}

bool Command4(frmDeleteEntries& form) {
  return session::guard(form.session, form.formName, [&] {
    form.DataGrid1 = form.session.files.CurrentDB.OpenRecordset(
        "select begriff from woerterbuch where " + condition(form), engine::RecordsetKind::snapshot, {},
        engine::Interface::second);
  });
}

bool Command1(frmDeleteEntries& form) {
  session::Session& s = form.session;
  form.deleted = 0;
  return session::guard(s, form.formName, [&] {
    if (!session::confirmed(s, dialog::delete_entries_of_period, label::program_name)) return false;
    form.deleted = s.files.CurrentDB.Execute("delete * from woerterbuch where " + condition(form));
    session::showBox(s,
                     session::dialogText(s, dialog::entries_deleted) + std::to_string(form.deleted) + " " +
                         session::dialogText(s, dialog::of_the_chosen_period),
                     platform::box::information);
    s.shell.pendingRefresh = true;
    return true;
  });
}

}  // namespace entry
