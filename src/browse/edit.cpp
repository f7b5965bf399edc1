// The browser's commands on entries: new, edit, delete.

#include <algorithm>

#include "base/text.h"
#include "browse/dictionary_in_use.h"
#include "browse/frmWoerter.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/texts.h"
#include "store/rows.h"

namespace browse {

namespace {

constexpr const char* formName = "frmWoerter";

enum class Action { newSubEntry = 0, remove = 1, close = 2, edit = 3, newMainEntry = 4 };
constexpr int firstLetterAction = 5;

bool endsWith(const std::string& text, std::string_view end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

bool somethingSelected(const frmWoerter& form) {
  return form.list.selected >= 0 && form.list.selected < static_cast<int>(form.list.size());
}

/// Several files open: new entries go to the one that was added last.
void useTargetDictionary(session::Session& session) {
  if (!session.files.dictionaryList.empty()) useDictionary(session, session.files.dictionaryList.back());
}

bool selectById(frmWoerter& form, std::int64_t id) {
  const auto& ids = form.list.List1;
  const auto found = std::find(ids.begin(), ids.end(), id);
  if (found == ids.end()) return false;
  selectRow(form, static_cast<int>(found - ids.begin()));
  return true;
}

/// Fills the page on show again and selects an entry that may have moved: on that page, else on its own.
void showAgain(frmWoerter& form, std::int64_t id, std::int64_t mainId) {
  if (form.PageNumber > 1 && form.list.size() > 0) {
    form.TargetPosition = 1;
    form.TargetMainId = form.list.List1.front();
  }
  BuildWordTreeNew(form);
  if (selectById(form, id)) return;
  form.rsWoerter.FindFirst(entryCondition(form.session, id, form.session.files.CurrentDBPath));
  if (form.rsWoerter.NoMatch()) return;
  if (!selectById(form, mainId)) {
    form.session.entry.CurrentEntryId = id;
    SkipToEntry(form);
  }
  selectById(form, id);
}

/// Reopens rsWoerter and goes back to where the next page begins.
void reloadInPlace(frmWoerter& form) {
  auto& rows = form.rsWoerter;
  const bool atEnd = !rows.isOpen() || rows.EndOfFile();
  const std::int64_t next = atEnd ? 0 : store::numberOf(rows["woerterbuch.id_woerterbuch"]);
  const std::string file = atEnd ? std::string() : rows["DATABASENAME"].textOrEmpty();
  LoadAllWords(form);
  showCount(form);
  if (!atEnd) rows.FindFirst(entryCondition(form.session, next, file));
  if (atEnd && !rows.EndOfFile()) rows.MoveNext();
}

/// Places the row just saved: a main entry at the end of the list, a sub-entry below the selected row.
void placeNewRow(frmWoerter& form) {
  auto& session = form.session;
  auto row = session.files.CurrentDB.OpenRecordset("BegriffParam", engine::RecordsetKind::snapshot,
                                                   {{"lWortID", session.entry.CurrentEntryId}});
  if (row.EndOfFile()) return;
  const bool subEntry = row["Ebene"].asInteger() > 1;
  const std::string headword = row["Begriff"].textOrEmpty();
  const auto at = subEntry && somethingSelected(form) ? static_cast<std::size_t>(form.list.selected) + 1
                                                      : form.list.size();
  form.list.insert(at, subEntry ? "--- " + headword : headword, session.entry.CurrentEntryId,
                   row["ID_Woerterbuch1"].asInteger(), row["DatabaseName"].textOrEmpty());
  selectRow(form, static_cast<int>(at));
}

bool onlyRowLeft(frmWoerter& form) {
  auto rows = form.session.files.CurrentDB.OpenRecordset("AllWordsOrderByBegriff");
  if (rows.EndOfFile()) return true;
  rows.MoveLast();
  return rows.RecordCount() == 1;
}

/// Unloads every other form, starting again after each one since unloading may close more.
void unloadOtherForms(session::Session& session) {
  auto& forms = session.shell.openForms;
  for (;;) {
    const auto other = std::find_if(forms.rbegin(), forms.rend(),
                                    [](const session::OpenForm& f) { return f.name != formName; });
    if (other == forms.rend()) return;
    const session::OpenForm closing = *other;
    forms.erase(std::next(other).base());
    if (closing.unload) closing.unload();
  }
}

/// The row of an entry of the current dictionary; a list over several files can not be written through.
engine::Recordset ownRow(session::Session& session, std::int64_t id) {
  return session.files.CurrentDB.OpenRecordset("BegriffParam", engine::RecordsetKind::dynaset,
                                               {{"lWortID", id}});
}

void deleteReferencesTo(session::Session& session, std::int64_t id) {
  auto references = session.files.CurrentDB.OpenRecordset(
      "select * from Querverweis where ID_WoerterbuchQV = " + std::to_string(id));
  for (; !references.EndOfFile(); references.MoveNext()) references.Delete();
}

/// The row above a deleted sub-entry loses its mark, even if it has further sub-entries.
void clearMarkOfRowAbove(frmWoerter& form) {
  if (form.list.selected < 1) return;
  const std::int64_t above = form.list.List1[static_cast<std::size_t>(form.list.selected - 1)];
  auto row = ownRow(form.session, above);
  if (row.EndOfFile()) return;
  row.Edit();
  row.set("UNTERBEGRIFF", false);
  row.Update();
}

}  // namespace

void AddEntry(frmWoerter& form) {
  auto& session = form.session;
  auto& entry = session.entry;
  ReleaseFilter(form);
  useTargetDictionary(session);
  if (entry.SelectedEntryId == entry.SelectedMainEntryId || entry.EntryEditMode == 1) entry.NewEntryLevel = 1;
  session::ShowStatus(session, session::labelText(session, label::reading_entry), true);
  if (entry.CurrentBegriff.empty()) entry.CurrentBegriff = session::labelText(session, label::new_headword);
  session.desk.boxes.showModal(form.editor);
  if (entry.CurrentBegriff.empty()) return;
  reloadInPlace(form);
  placeNewRow(form);
}

void EditEntry(frmWoerter& form) {
  if (!somethingSelected(form)) return;
  auto& session = form.session;
  const auto at = static_cast<std::size_t>(form.list.selected);
  session.entry.EntryEditMode = form.list.List2[at].rfind("---", 0) == 0 ? 4 : 3;
  const std::int64_t mainId = form.list.List3[at];
  session.desk.boxes.showModal(form.editor);
  if (session.entry.CurrentBegriff.empty()) {
    // Nothing was saved, but what hangs on the entry was stored at once: meanings, picture, sound.
    SelectEntry(form);
    return;
  }
  const std::int64_t edited = session.entry.CurrentEntryId;
  LoadAllWords(form);
  if (form.rsWoerter.RecordCount() > 0) showAgain(form, edited, mainId);
  form.selectionEnabled = true;
}

void DeleteEntry(frmWoerter& form) {
  auto& session = form.session;
  if (onlyRowLeft(form)) {
    session::showBox(session,
                     session::dialogText(session, dialog::last_entry_before) +
                         session.files.CurrentDB.Name() + " " +
                         session::dialogText(session, dialog::last_entry_after),
                     platform::box::exclamation);
    return;
  }
  if (!somethingSelected(form)) return;
  const auto at = static_cast<std::size_t>(form.list.selected);
  if (endsWith(form.list.List2[at], "++")) {
    session::showMessage(session, dialog::has_sub_entries, platform::box::exclamation);
    return;
  }
  unloadOtherForms(session);
  const std::int64_t id = form.list.List1[at], mainId = form.list.List3[at];
  auto row = ownRow(session, id);
  if (row.EndOfFile()) return;
  const std::string question = session::dialogText(session, dialog::delete_entry_before) +
                               row["BEGRIFF"].textOrEmpty() +
                               session::dialogText(session, dialog::delete_entry_after);
  if (session::showUnicodeBox(session, question, platform::box::yesNo) != platform::box::answerYes) return;

  row.Delete();
  deleteReferencesTo(session, id);
  if (id != mainId) clearMarkOfRowAbove(form);
  VisibleEntryDeleteAll(form);
  LoadAllWords(form);
  session.entry.CurrentBegriff.clear();
  if (form.rsWoerter.RecordCount() == 0) {
    form.closed = true;
    return;
  }
  SelectByLetter(form);
  BuildWordTreeNew(form);
  if (form.list.size() > 0) selectRow(form, 0);
}

bool AddEditDeleteAction(frmWoerter& form) {
  auto& session = form.session;
  return session::guard(session, formName, [&] {
    session::ShowStatus(session, session::labelText(session, label::reading_entry), true);
    if (somethingSelected(form))
      session.entry.CurrentEntryId = form.list.List1[static_cast<std::size_t>(form.list.selected)];
    if (session.entry.EntryAction >= firstLetterAction) {
      const auto index = static_cast<std::size_t>(session.entry.EntryAction - firstLetterAction);
      if (index < form.letters.size()) pressLetter(form, std::string(form.letters[index]));
    }
    switch (static_cast<Action>(session.entry.EntryAction)) {
      case Action::newSubEntry:
        session.entry.EntryEditMode = 2;
        AddEntry(form);
        break;
      case Action::remove:
        DeleteEntry(form);
        break;
      case Action::close:
        form.closed = true;
        return;
      case Action::edit:
        EditEntry(form);
        break;
      case Action::newMainEntry:
        session.entry.EntryEditMode = 1;
        AddEntry(form);
        break;
    }
    form.Text3.clear();
    session::ShowStatus(session, "", false);
  });
}

}  // namespace browse
