// Commands on the entries of the active browser.

#include "browse/commands.h"
#include "shell/frame/frmMDI.h"

namespace frame {
namespace {

bool entryCommand(frmMDI& form, const char* menuItem) {
  if (form.active == nullptr) return false;
  const bool done = browse::entryMenu(*form.active, menuItem);
  if (form.active != nullptr && form.active->closed) closeBrowser(form, form.active);
  return done;
}

}  // namespace

bool mnuNewEntry(frmMDI& form) {
  return entryCommand(form, "mnuNewEntry");
}
bool mnuNewSubEntry(frmMDI& form) {
  return entryCommand(form, "mnuNewSubEntry");
}
bool mnuEditEntry(frmMDI& form) {
  return entryCommand(form, "mnuEditEntry");
}
bool mnuDeleteEntry(frmMDI& form) {
  return entryCommand(form, "mnuDeleteEntry");
}
bool mnuRelinkEntry(frmMDI& form) {
  return entryCommand(form, "mnuRelinkEntry");
}

}  // namespace frame
