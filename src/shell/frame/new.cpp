#include <filesystem>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "entry/frmEintrag.h"
#include "shell/frame/firstent.h"
#include "shell/frame/frmMDI.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/settings.h"
#include "store/close.h"
#include "store/create.h"
#include "store/dialogs.h"
#include "store/files.h"
#include "store/project.h"

namespace frame {
namespace {

/// Asks for the kind of project; false when the dialog was left.
bool chooseType(session::Session& s) {
  s.files.NewDBPending = true;
  s.files.NewDBPath.clear();
  s.files.NewDBCancelled = false;
  s.project.blogChosen = false;
  frmChooseDBType form(s);
  s.desk.boxes.showModal(form);
  return !s.files.NewDBCancelled;
}

/// Asks for the file and creates it, in place of an old one.
void createFile(session::Session& s) {
  const std::string chosen = session::askSaveFile(s, store::saveDialog(s)).path;
  const std::string path = store::sessionPath(s, store::ReplaceBlanks(store::withExtension(chosen)));
  const bool replaced = s.files.paths.exists(path);
  store::deleteDictionaryFile(s, path);
  store::NewLocalDB(s, path);
  s.files.OpenDBCount = 1;
  s.files.NewDBPath = path;
  store::prepareMediaFolder(s, replaced);
}

/// Runs the wizard and fills the reference data; false when the wizard was cancelled.
bool FirstRecordInNewDB(session::Session& s) {
  firstent wizard(s);
  Form_Load(wizard);
  s.desk.boxes.showModal(wizard);
  if (!wizard.finished && !wizard.cancelled) store::discardNewDictionary(s);
  if (s.files.NewDBPath.empty()) return false;
  s.entry.CurrentEntryId = 1;
  s.entry.EntryEditMode = 1;
  s.files.NewDBPending = true;
  store::fillReferenceData(s);
  return true;
}

void enterFirstEntry(session::Session& s) {
  s.entry.NewEntryLevel = 1;
  s.entry.CurrentBegriff.clear();
  entry::frmEintrag editor(s);
  s.desk.boxes.showModal(editor);
}

void showAsOpen(frmMDI& form) {
  session::Session& s = form.session;
  store::LoadProjectSettings(s);
  s.shell.configLoaded = true;
  session::UpdateMenu(s);
  store::RefreshProjectBar(s);
  s.files.DBOpen = true;
  s.shell.dictionaryMenus = true;
  s.files.dictionaryList = {s.files.CurrentDBPath};
  s.files.selectedDictionary = 0;
  s.shell.caption = session::labelText(s, label::program_name) + ": " + s.files.CurrentDBPath;
  s.desk.screen.setCaption(s.shell.caption);
  ShowWordInstance(form);
}

/// What is half made is taken away again: only a finished wizard leaves a dictionary.
void discardHalfMade(session::Session& s) {
  if (!s.files.NewDBPath.empty()) store::discardNewDictionary(s);
}

}  // namespace

bool mnuNew(frmMDI& form) {
  session::Session& s = form.session;
  const bool created = session::guard(s, "frmMDI", [&] {
    if (!chooseType(s)) return false;
    if (s.files.DBOpen &&
        !store::closedAfterQuestion(s, dialog::close_open_dictionary, label::question_title))
      return false;
    createFile(s);
    return FirstRecordInNewDB(s);
  });
  if (!created) {
    session::guard(s, "frmMDI", [&] { discardHalfMade(s); });
    s.files.NewDBPending = false;
    return false;
  }
  const bool entered = session::guard(s, "frmMDI", [&] { enterFirstEntry(s); });
  s.files.NewDBPending = false;
  return session::guard(s, "frmMDI", [&] { showAsOpen(form); }) && entered;
}

}  // namespace frame
