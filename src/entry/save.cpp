// Saving, closing, the duplicate check and the navigator of the entry editor.

#include "base/text.h"
#include "catalogue/dialog.h"
#include "entry/attempt.h"
#include "entry/frmEintrag.h"
#include "entry/media_files.h"
#include "entry/search_text.h"
#include "entry/sort_term.h"
#include "entry/sound.h"
#include "entry/visit.h"
#include "shell/session/messages.h"
#include "shell/session/texts.h"
#include "store/flat.h"
#include "store/rows.h"

namespace entry {
namespace {

// The navigator, open for as long as this lives.
class BoundNavigator {
 public:
  explicit BoundNavigator(frmEintrag& form) : form_(form) { bindNavigator(form); }
  ~BoundNavigator() { form_.navigator = {}; }
  BoundNavigator(const BoundNavigator&) = delete;
  BoundNavigator& operator=(const BoundNavigator&) = delete;

 private:
  frmEintrag& form_;
};

// Takes the boxes into the record. A priority that is no byte leaves the record's.
bool takeBoxes(frmEintrag& form) {
  form.record.Begriff = form.headwordBox;
  form.record.Bemerkung = form.notesBox;
  if (form.session.project.ProjectType == 1) form.record.Aussprache = form.pronunciationBox;
  // The mark of a sub-entry goes to its main entry.
  if (form.record.Ebene <= 1) form.record.InBearbeitung = form.inProgressBox;
  return !form.priorityShown || attempt(form, [&] {
    const std::int64_t number = engine::Value(form.priorityBox).asInteger();
    if (number > 255) throw base::Error(engine::errors::overflow, "The priority can be 255 at most.");
    form.record.Prioritaet = static_cast<std::uint8_t>(number);
  });
}

struct Saved {
  bool written = false;  ///< the row itself
  bool all = false;      ///< and everything that is derived from it
};

// The row, then what is derived from it; a failing step is reported and the others run.
Saved writeEntry(frmEintrag& form) {
  session::Session& s = form.session;
  const std::int64_t id = s.entry.CurrentEntryId;
  Saved saved;
  saved.written = attempt(form, [&] { WriteToDB_TabWoerterbuch(s, form.record, id); });
  saved.all = saved.written;
  saved.all &= attempt(form, [&] { store::FillFlatRow(s, id); });
  saved.all &= attempt(form, [&] { MetaSucheEintragen(form, id); });
  saved.all &= SortierBegriffEintragen(form, id);
  if (saved.written) form.savedInVisit = true;
  return saved;
}

void setLevel(frmEintrag& form, int index) {
  session::EntryFlow& flow = form.session.entry;
  if (flow.EntryEditMode != 3) {
    if (index == 0 || index == 3) {
      form.record.Ebene = 2;
      form.record.ID_Woerterbuch1 = flow.SelectedEntryId;
    } else if (flow.NewEntryLevel == 1) {
      form.record.Ebene = 1;
      form.record.ID_Woerterbuch1 = flow.CurrentEntryId;
    } else {
      form.record.Ebene = static_cast<std::uint8_t>(flow.NewEntryLevel);
      form.record.ID_Woerterbuch1 = flow.SelectedMainEntryId;
    }
  }
  flow.SavedMainEntryId = form.record.ID_Woerterbuch1;
}

void setFlag(session::Session& s, const char* column, bool value, std::int64_t id) {
  s.files.CurrentDB.Execute(std::string("UPDATE  woerterbuch SET ") + column + " = '" + (value ? "-1" : "0") +
                            "' Where id_woerterbuch = " + std::to_string(id));
}

// What the editor does once the row is saved.
void goOn(frmEintrag& form, int index) {
  session::EntryFlow& flow = form.session.entry;
  const int mode = flow.EntryEditMode;
  if ((mode == 1 || mode == 3) && index != 2) {
    flow.EntryEditMode = 1;
    flow.NewEntryLevel = 1;
    makeStub(form, flow.PresetBegriff, 0);
  } else if (mode == 2 && index == 3) {
    form.NextPriority = form.NextPriority < 1 ? 1 : form.NextPriority + 1;
    flow.NewEntryLevel = 2;
    form.tab = Tab::entry;
    makeStub(form, {}, flow.SelectedMainEntryId);
  } else {
    if (mode != 2 && mode != 4) flow.CurrentEntryId = flow.SavedMainEntryId;
    form.visible = false;
  }
}

bool save(frmEintrag& form, int index) {
  session::Session& s = form.session;
  session::EntryFlow& flow = s.entry;
  if (base::length(form.headwordBox) > longestHeadword) {
    session::showMessage(s, dialog::headword_too_long, platform::box::exclamation);
    form.focus = Focus::headword;
    return false;
  }
  bool all = attempt(form, [&] { HistorieEintragen(s, flow.CurrentEntryId); });
  setLevel(form, index);
  all &= takeBoxes(form);
  const Saved saved = writeEntry(form);
  // Going on would leave a stub behind and lose what was typed.
  if (!saved.written) return false;
  all &= saved.all;
  if (form.record.Ebene > 1) {
    all &= attempt(form, [&] { setFlag(s, "inbearbeitung", form.inProgressBox, flow.SavedMainEntryId); });
  }
  if (index == 0 || index == 3) {
    all &= attempt(form, [&] { setFlag(s, "unterbegriff", true, flow.SelectedEntryId); });
    flow.NewEntryLevel = 2;
  }
  session::commitGathered(s);
  goOn(form, index);
  return all;
}

bool isStub(frmEintrag& form) {
  auto row = form.session.files.CurrentDB.OpenRecordset(
      "select id_woerterbuch1 from woerterbuch where id_woerterbuch = " +
          std::to_string(form.session.entry.CurrentEntryId),
      engine::RecordsetKind::snapshot);
  return !row.EndOfFile() && row.value(0).isNull();
}

// Whether there is no entry to choose but this one.
bool isOnlyRow(frmEintrag& form, std::int64_t id) {
  const BoundNavigator bound(form);
  engine::Recordset& rows = form.navigator;
  if (!store::hasRows(rows)) return true;
  for (rows.MoveFirst(); !rows.EndOfFile(); rows.MoveNext()) {
    if (rows["ID_Woerterbuch"].asInteger() != id) return false;
  }
  return true;
}

// With the files that were made for it: nothing names them any more.
void deleteStub(frmEintrag& form) {
  session::Session& s = form.session;
  s.files.CurrentDB.Execute("delete * from Woerterbuch where id_woerterbuch = " +
                            std::to_string(s.entry.CurrentEntryId));
  dropRecording(form);
  for (const std::string& name : {form.record.Bild, form.record.Klang})
    attempt(form, [&] { removeMediaFile(s, name); });
}

// True when the stub is gone.
bool discardStub(frmEintrag& form) {
  session::Session& s = form.session;
  if (isOnlyRow(form, s.entry.CurrentEntryId)) {
    session::showBox(s,
                     session::dialogText(s, dialog::last_entry_before) + s.files.CurrentDBPath + " " +
                         session::dialogText(s, dialog::last_entry_after),
                     platform::box::exclamation);
    return false;
  }
  deleteStub(form);
  s.entry.CurrentBegriff.clear();
  // Entries saved before the stub are not told by CurrentBegriff any more.
  if (form.savedInVisit) s.shell.pendingRefresh = true;
  return true;
}

// The answers to the question about a headword that exists: true to go on to the next box.
bool answerDuplicate(frmEintrag& form, std::int64_t existing) {
  session::Session& s = form.session;
  const int answer = session::showMessage(s, dialog::headword_exists, platform::box::yesNoCancel);
  if (answer == platform::box::answerYes) return true;
  if (answer == platform::box::answerNo) {
    deleteStub(form);
    s.entry.EntryEditMode = 3;
    readEntry(form, existing);
  }
  form.focus = Focus::headword;
  return false;
}

// The first entry of the headword in the box, or the one on show.
std::int64_t entryOfHeadword(frmEintrag& form) {
  const BoundNavigator bound(form);
  const std::int64_t own = form.session.entry.CurrentEntryId;
  engine::Recordset& rows = form.navigator;
  if (!store::hasRows(rows)) return own;
  rows.FindFirst("begriff = \"" + base::trim(form.headwordBox) + "\" and ebene > 0");
  return rows.NoMatch() ? own : rows["ID_Woerterbuch"].asInteger();
}

bool checkHeadword(frmEintrag& form) {
  const std::int64_t existing = entryOfHeadword(form);
  return existing == form.session.entry.CurrentEntryId || answerDuplicate(form, existing);
}

// The entry that a step of the navigator leads to.
std::int64_t entryOfStep(frmEintrag& form, Step step) {
  const BoundNavigator bound(form);
  engine::Recordset& rows = form.navigator;
  const std::int64_t own = form.session.entry.CurrentEntryId;
  if (!store::hasRows(rows)) return own;
  rows.FindFirst("ID_Woerterbuch = " + std::to_string(own));
  // An entry that the letter in force leaves out leads to the first of those it shows.
  if (step == Step::first || rows.NoMatch()) {
    rows.MoveFirst();
  } else if (step == Step::last) {
    rows.MoveLast();
  } else {
    rows.Move(step == Step::next ? 1 : -1);
  }
  return rows.BeginOfFile() || rows.EndOfFile() ? own : rows["ID_Woerterbuch"].asInteger();
}

}  // namespace

bool Command1(frmEintrag& form, int index) {
  const Button& button = form.buttons.at(static_cast<std::size_t>(index));
  if (!form.visible || !button.visible || !button.enabled) return false;
  return session::guard(form.session, form.formName, [&] { return save(form, index); });
}

bool Command7(frmEintrag& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    if (s.entry.EntryEditMode <= 2 && isStub(form)) {
      if (session::confirmed(s, dialog::keep_editing_stub)) return;
      if (!discardStub(form)) return;
    }
    form.visible = false;
  });
}

bool headwordEnter(frmEintrag& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    if (s.entry.EntryEditMode == 1 && form.BegriffPruefung) {
      bool goesOn = true;
      const bool checked = attempt(form, [&] { goesOn = checkHeadword(form); });
      if (!goesOn) return true;
      if (!checked) return false;
    }
    if (s.project.ProjectType == 1) {
      form.focus = Focus::pronunciation;
    } else {
      form.tab = Tab::links;
      form.focus = Focus::linksTab;
      refillTab(form);
    }
    return true;
  });
}

bool moveNavigator(frmEintrag& form, Step step) {
  session::Session& s = form.session;
  if (!form.navigatorShown || !form.visible) return false;
  return session::guard(s, form.formName, [&] {
    const std::int64_t id = entryOfStep(form, step);
    if (s.entry.EntryEditMode < 3 || id == s.entry.CurrentEntryId) return true;
    bool all = takeBoxes(form);
    const Saved saved = writeEntry(form);
    if (!saved.written) return false;
    all &= saved.all;
    session::commitGathered(s);
    readEntry(form, id);
    return all;
  });
}

}  // namespace entry
