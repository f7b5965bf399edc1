#include "cli/editing.h"

#include <algorithm>

#include "entry/meanings.h"

namespace cli {

namespace {

constexpr int saveAndClose = 2, saveSubEntryAndClose = 0, saveSubEntry = 1;

/// Leaves the editor without saving; the stub of a new entry goes.
void abandon(Application& app, entry::frmEintrag& form) {
  app.console.answerNext(platform::box::answerNo);
  entry::Command7(form);
  app.console.forgetNext();
}

}  // namespace

void failed(const std::string& text) {
  throw base::Error(5, text);
}

void required(bool done) {
  if (!done) throw base::Error(platform::cancelled, "The entry was not changed.");
}

browse::frmWoerter& browser(Application& app) {
  return *app.frame.browsers.front().form;
}

void select(Application& app, std::int64_t id) {
  auto& form = browser(app);
  auto row = app.session.files.CurrentDB.OpenRecordset("BegriffParam", engine::RecordsetKind::snapshot,
                                                       {{"lWortID", id}});
  if (row.EndOfFile()) throw base::Error(3167, "There is no entry " + std::to_string(id) + ".");
  app.session.entry.CurrentEntryId = id;
  browse::SkipToEntry(form);
  const auto& ids = form.list.List1;
  const auto found = std::find(ids.begin(), ids.end(), id);
  if (found == ids.end()) failed("The entry " + std::to_string(id) + " is not in the list.");
  browse::selectRow(form, static_cast<int>(found - ids.begin()));
}

bool inEditor(Application& app, int action, const std::function<void(entry::frmEintrag&)>& deeds) {
  app.console.onForm("frmEintrag", [&](platform::Form& shown) {
    auto& form = dynamic_cast<entry::frmEintrag&>(shown);
    required(entry::Form_Activate(form));
    try {
      deeds(form);
    } catch (...) {
      abandon(app, form);
      throw;
    }
  });
  app.session.entry.EntryAction = action;
  return browse::AddEditDeleteAction(browser(app));
}

void save(entry::frmEintrag& form) {
  const int mode = form.session.entry.EntryEditMode;
  required(entry::Command1(form, mode == 2 ? saveSubEntryAndClose : mode == 4 ? saveSubEntry : saveAndClose));
}

std::size_t meaningRow(entry::frmEintrag& form, std::int64_t id) {
  const auto rows = entry::meaningRows(form);
  const auto found = std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row.id == id; });
  if (found == rows.end()) failed("The entry has no meaning " + std::to_string(id) + ".");
  return static_cast<std::size_t>(found - rows.begin());
}

std::size_t newestMeaning(entry::frmEintrag& form) {
  const auto rows = entry::meaningRows(form);
  const auto newest =
      std::max_element(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.id < b.id; });
  return static_cast<std::size_t>(newest - rows.begin());
}

}  // namespace cli
