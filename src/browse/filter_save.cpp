// Saving what the filter shows as a dictionary of its own.

#include <algorithm>
#include <filesystem>

#include "base/text.h"
#include "browse/frmFilter.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "store/dialogs.h"
#include "store/files.h"
#include "store/services.h"

namespace browse {

namespace {

constexpr int encrypted = 2;

bool isOpenFile(session::Session& s, const std::string& path) {
  const auto& open = s.files.dictionaryList;
  const auto real = s.files.paths.real(path);
  std::error_code missing;
  return std::ranges::any_of(open, [&](const std::string& each) {
    return each == path || std::filesystem::equivalent(s.files.paths.real(each), real, missing);
  });
}

/// Notes the numbers of all rows in the copy's table of settings. The browser's set is left on its row.
void noteRows(frmWoerter& browser, engine::Database& copy) {
  auto& rows = browser.rsWoerter;
  if (rows.RecordCount() == 0) return;
  const bool atRow = !rows.EndOfFile() && !rows.BeginOfFile();
  const std::string mark = atRow ? rows.Bookmark() : "";
  const std::string file = base::upper(browser.session.files.CurrentDB.Name());
  const bool several = browser.session.files.OpenDBCount > 1;
  auto settings = copy.OpenRecordset("FilterSettings", engine::RecordsetKind::table);
  rows.MoveFirst();
  const std::size_t id = rows.field("Woerterbuch.ID_Woerterbuch"), database = rows.field("DatabaseName");
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    // Equal numbers of other files are other entries.
    if (several && base::upper(rows.value(database).textOrEmpty()) != file) continue;
    settings.AddNew();
    settings.set(0, rows.value(id));
    settings.Update();
    session::turnLoop(browser.session);
  }
  if (atRow) rows.setBookmark(mark);
}

/// Leaves the noted entries, and the sub-entries of those that are left.
void keepNoted(engine::Database& copy) {
  copy.Execute(
      "delete * from Woerterbuch  where ebene = 1 and ID_Woerterbuch NOT IN (select distinct ID_Woerterbuch "
      "from FilterSettings);  ");
  copy.Execute(
      "delete * from Woerterbuch  where ebene = 2 and ID_Woerterbuch1 NOT IN (select distinct ID_Woerterbuch "
      "from Woerterbuch);  ");
  copy.Execute("delete * from FilterSettings; ");
}

/// The copy is made beside its place, and compacted into it when the other entries are gone: nothing of
/// them is left in the file, and an old one stays until the new one is whole.
void writeSelection(frmWoerter& browser, const std::string& target) {
  auto& s = browser.session;
  auto& workspace = *s.files.Workspace;
  const std::string path = s.files.paths.real(target).string(), whole = path + ".whole";
  store::deleteDictionaryFile(s, whole);
  try {
    engine::CopyDatabase(workspace, s.files.CurrentDB.Name(), whole);
    engine::Database copy = workspace.OpenDatabase(whole);
    const std::string locale = copy.locale();
    noteRows(browser, copy);
    keepNoted(copy);
    workspace.Idle();
    copy.Close();
    store::deleteDictionaryFile(s, target);
    engine::CompactDatabase(workspace, whole, path, locale, encrypted);
  } catch (...) {
    store::deleteDictionaryFile(s, whole);
    throw;
  }
  store::deleteDictionaryFile(s, whole);
}

}  // namespace

bool saveFiltered(frmWoerter& browser) {
  auto& s = browser.session;
  const std::string target =
      store::sessionPath(s, store::withExtension(session::askSaveFile(s, store::saveDialog(s)).path));
  if (isOpenFile(s, target))
    throw base::Error(engine::errors::databaseExists, "The dictionary " + target + " is open.");
  if (!session::confirmed(s, dialog::save_filtered)) return false;
  {
    const session::Busy busy(s, session::labelText(s, label::saving_filter_result));
    writeSelection(browser, target);
    store::copyMediaFolder(s, s.files.CurrentDB.Name(), target);
  }
  session::showMessage(s, dialog::filtered_saved, platform::box::information);
  return true;
}

}  // namespace browse
