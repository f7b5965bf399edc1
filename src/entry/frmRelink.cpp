#include "entry/frmRelink.h"

#include "base/text.h"
#include "catalogue/dialog.h"
#include "entry/sort_term.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "store/rewriter.h"
#include "store/rows.h"

namespace entry {
namespace {

engine::Recordset entryRow(session::Session& s, std::int64_t lWortID) {
  return s.files.CurrentDB.OpenRecordset("BegriffParam", engine::RecordsetKind::dynaset,
                                         {{"lWortID", lWortID}});
}

engine::Recordset selectedEntry(session::Session& s) {
  auto row = entryRow(s, s.entry.SelectedEntryId);
  row.MoveLast();
  return row;
}

std::int64_t mainIdOf(const engine::Recordset& row) {
  return store::numberOf(row["ID_Woerterbuch1"]);
}

bool hasSubEntries(session::Session& s, std::int64_t mainId) {
  auto rows = s.files.CurrentDB.OpenRecordset("ID_Woerterbuch1Param", engine::RecordsetKind::dynaset,
                                              {{"lWortID", mainId}});
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    if (rows["ID_Woerterbuch"].asInteger() != mainId) return true;
  }
  return false;
}

// A main entry that an entry has left; a missing one has nothing to put right.
void mendFormerMain(session::Session& s, std::int64_t mainId) {
  if (hasSubEntries(s, mainId)) return;
  auto row = entryRow(s, mainId);
  if (row.EndOfFile()) return;
  row.Edit();
  row.set("UNTERBEGRIFF", false);
  row.set("EBENE", 1);
  row.Update();
}

bool refuse(session::Session& s, int message) {
  session::showMessage(s, message, platform::box::exclamation);
  return false;
}

// Whether the row of the list can take the entry: one of this file and not the entry itself.
bool isTarget(frmRelink& form) {
  if (!form.targetSelected) return false;
  const session::Session& s = form.session;
  if (form.Adodc1["ID_Woerterbuch"].asInteger() == s.entry.SelectedEntryId) return false;
  return s.files.OpenDBCount < 2 ||
         base::equalsIgnoreCase(form.Adodc1["DatabaseName"].textOrEmpty(), s.files.CurrentDBPath);
}

bool placeBelowTarget(frmRelink& form) {
  session::Session& s = form.session;
  if (!isTarget(form)) return refuse(s, dialog::select_main_entry);
  auto row = selectedEntry(s);
  if (store::truth(row["UNTERBEGRIFF"])) return refuse(s, dialog::has_own_sub_entries);

  const std::int64_t target = form.Adodc1["ID_Woerterbuch"].asInteger();
  const std::int64_t formerMain = mainIdOf(row);
  const SplitHeadword own = splitHeadword(row["BEGRIFF"].textOrEmpty(), s.project.IgnoreAtSort);
  const SplitHeadword main = splitHeadword(form.Adodc1["BEGRIFF"].textOrEmpty(), s.project.IgnoreAtSort);
  row.Edit();
  row.set("ID_Woerterbuch1", target);
  row.set("EBENE", 2);
  row.set("UNTERBEGRIFF", false);
  // The blank differs from the key that a save builds; the next rebuild takes it out.
  row.set("SORTBEGRIFF", main.rest + " 1" + own.rest);
  row.set("PRIORITAET", 1);
  row.Update();

  auto targetRow = entryRow(s, target);
  targetRow.Edit();
  targetRow.set("UNTERBEGRIFF", true);
  targetRow.Update();
  // A former main entry is its own main entry: it must not become one again.
  if (formerMain != s.entry.SelectedEntryId) mendFormerMain(s, formerMain);
  session::showMessage(s, dialog::made_sub_entry, platform::box::information);
  return true;
}

bool makeMainEntry(frmRelink& form) {
  session::Session& s = form.session;
  auto row = selectedEntry(s);
  const std::int64_t id = s.entry.SelectedEntryId;
  const std::int64_t formerMain = mainIdOf(row);
  if (formerMain == id) return refuse(s, dialog::is_main_entry);
  row.Edit();
  row.set("ID_Woerterbuch1", id);
  row.set("EBENE", 1);
  row.set("SORTBEGRIFF", splitHeadword(row["BEGRIFF"].textOrEmpty(), s.project.IgnoreAtSort).rest);
  row.set("PRIORITAET", 1);
  row.Update();
  mendFormerMain(s, formerMain);
  session::showMessage(s, dialog::made_main_entry, platform::box::information);
  return true;
}

}  // namespace

bool Form_Load(frmRelink& form) {
  form.Text1.clear();
  form.SQLTemp = "AllWordsErsteEbene";
  form.targetSelected = false;
  return session::guard(form.session, form.formName, [&] {
    form.Adodc1 = store::openRewritten(form.session, form.SQLTemp, session::View::none);
  });
}

bool Text1_Change(frmRelink& form, const std::string& text) {
  session::Session& s = form.session;
  form.Text1 = text;
  form.targetSelected = false;
  return session::guard(s, form.formName, [&] {
    form.SQLTemp = "Select * from AllWordsErsteEbene where begriff like \"" +
                   base::replaceAll(text, "\"", "\"\"") + "%\" order by begriff";
    form.SQLTemp = store::BuildMultiSQL(s, std::string(form.SQLTemp), session::View::none);
    form.Adodc1 = s.files.CurrentDB.OpenRecordset(form.SQLTemp, engine::RecordsetKind::snapshot, {},
                                                  engine::Interface::second);
  });
}

bool selectTarget(frmRelink& form, std::int64_t lWortID) {
  form.targetSelected = false;
  return session::guard(form.session, form.formName, [&] {
    if (!store::hasRows(form.Adodc1)) return false;
    for (form.Adodc1.MoveFirst(); !form.Adodc1.EndOfFile(); form.Adodc1.MoveNext()) {
      form.targetSelected = form.Adodc1["ID_Woerterbuch"].asInteger() == lWortID;
      if (form.targetSelected) return true;
    }
    return false;
  });
}

bool Command1(frmRelink& form) {
  return session::guard(form.session, form.formName, [&] { return placeBelowTarget(form); });
}

bool Command3(frmRelink& form) {
  return session::guard(form.session, form.formName, [&] { return makeMainEntry(form); });
}

void Form_Unload(frmRelink& form) {
  form.Adodc1 = {};
  form.targetSelected = false;
  form.session.shell.pendingRefresh = true;
}

}  // namespace entry
