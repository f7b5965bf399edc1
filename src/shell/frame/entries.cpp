// Commands on the entries of the active browser.

#include "entry/frmRelink.h"
#include "shell/frame/frmMDI.h"
#include "shell/session/errors.h"

namespace frame {
namespace {

constexpr int newSubEntry = 0, remove = 1, edit = 3, newMainEntry = 4;

bool entryCommand(frmMDI& form, int action) {
  if (form.active == nullptr) return false;
  form.session.entry.EntryAction = action;
  const bool done = browse::AddEditDeleteAction(*form.active);
  if (form.active != nullptr && form.active->closed) closeBrowser(form, form.active);
  return done;
}

}  // namespace

bool mnuNewEntry(frmMDI& form) {
  session::EntryFlow& entry = form.session.entry;
  entry.EntryEditMode = 1;
  entry.NewEntryLevel = 1;
  entry.CurrentBegriff.clear();
  return entryCommand(form, newMainEntry);
}

bool mnuNewSubEntry(frmMDI& form) {
  form.session.entry.CurrentBegriff.clear();
  return entryCommand(form, newSubEntry);
}

bool mnuEditEntry(frmMDI& form) {
  return entryCommand(form, edit);
}
bool mnuDeleteEntry(frmMDI& form) {
  return entryCommand(form, remove);
}

bool mnuRelinkEntry(frmMDI& form) {
  session::Session& s = form.session;
  if (form.active == nullptr || form.active->list.selected < 0) return false;
  return session::guard(s, "frmRelink", [&] {
    entry::frmRelink relink(s);
    if (!entry::Form_Load(relink)) return false;
    s.desk.boxes.showModal(relink);
    entry::Form_Unload(relink);
    browserActivated(form, *form.active);
    return true;
  });
}

}  // namespace frame
