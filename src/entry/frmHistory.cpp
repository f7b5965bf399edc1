#include "entry/frmHistory.h"

#include <array>

#include "base/datetime.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/texts.h"

namespace entry {
namespace {

// The year goes into the statement with two digits, which reach back to 1950.
constexpr int datedBack = 20000;

struct Period {
  int text;
  int days;
};
constexpr std::array<Period, 6> periods{{{label::last_7_days, 7},
                                         {label::last_14_days, 14},
                                         {label::last_30_days, 30},
                                         {label::last_90_days, 90},
                                         {label::last_183_days, 183},
                                         {label::last_365_days, 365}}};

}  // namespace

bool Form_Load(frmHistory& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    form.Combo1 = {session::labelText(s, label::all_periods)};
    form.period = form.Combo1.front();
    for (const Period& period : periods) form.Combo1.push_back(session::labelText(s, period.text));
    form.caption = session::labelText(s, form.HistoryIsNew ? label::new_entries : label::changed_entries);
    return showLastDays(form, 0);
  });
}

bool Combo1_Click(frmHistory& form, const std::string& period) {
  int days = 0;
  for (const Period& known : periods) {
    if (period == session::labelText(form.session, known.text)) days = known.days;
  }
  form.period = period;
  return showLastDays(form, days);
}

bool showLastDays(frmHistory& form, int days) {
  return session::guard(form.session, form.formName, [&] {
    std::string sql = std::string("SELECT * from ") + (form.HistoryIsNew ? "NewHistory1" : "ChangeHistory1");
    if (days > 0 && days < datedBack) {
      // A date between number signs is read month first.
      sql += std::string(" where ") + (form.HistoryIsNew ? "DateTimeStamp" : "DateLastChange") + " > #" +
             base::formatDate(base::DateTime::now().plusDays(-days), "mm-dd-yy hh:mm:ss") + "#";
    }
    form.SelectedEntryId = 0;
    form.Adodc1 = form.session.files.CurrentDB.OpenRecordset(sql, engine::RecordsetKind::snapshot, {},
                                                             engine::Interface::second);
  });
}

bool selectRow(frmHistory& form, std::int64_t row) {
  form.SelectedEntryId = 0;
  return session::guard(form.session, form.formName, [&] {
    form.Adodc1.setAbsolutePosition(row);
    form.SelectedEntryId = form.Adodc1["ID_Woerterbuch"].asInteger();
  });
}

bool Command1(frmHistory& form) {
  if (form.SelectedEntryId == 0) return false;
  form.session.entry.CurrentEntryId = form.SelectedEntryId;
  return true;
}

bool Command4(frmHistory& form) {
  return session::guard(form.session, form.formName, [&] {
    auto rows = form.session.files.CurrentDB.OpenRecordset(form.HistoryIsNew ? "NewHistory" : "ChangeHistory",
                                                           engine::RecordsetKind::table);
    for (; !rows.EndOfFile(); rows.MoveNext()) rows.Delete();
    return showLastDays(form, 0);
  });
}

}  // namespace entry
