#include "browse/commands.h"

#include "entry/frmRelink.h"
#include "shell/session/errors.h"

namespace browse {

namespace {

constexpr const char* formName = "frmWoerter";
constexpr int newSubEntry = 0, deleteEntry = 1, editEntry = 3, newMainEntry = 4;

/// Keeps the list's keys and clicks inert while a modal operation runs.
class Inert {
 public:
  explicit Inert(frmWoerter& form) : form_(form) { form_.inert = true; }
  ~Inert() { form_.inert = false; }
  Inert(const Inert&) = delete;
  Inert& operator=(const Inert&) = delete;

 private:
  frmWoerter& form_;
};

template <class Operation>
bool command(frmWoerter& form, Operation&& operation) {
  if (form.inert) return true;
  const Inert inert(form);
  return session::guard(form.session, formName, std::forward<Operation>(operation));
}

bool act(frmWoerter& form, int action) {
  if (form.inert) return true;
  form.session.entry.EntryAction = action;
  const Inert inert(form);
  return AddEditDeleteAction(form);
}

/// A new entry is not what was searched for: its note is not marked.
bool addEntry(frmWoerter& form, int action) {
  form.session.entry.CurrentBegriff.clear();
  form.session.search.SearchTerm.clear();
  return act(form, action);
}

}  // namespace

bool List2_Click(frmWoerter& form, int row) {
  return command(form, [&] {
    selectRow(form, row);
    MarkFoundedWords(form);
  });
}

bool Text3_Change(frmWoerter& form, const std::string& text) {
  return command(form, [&] { searchBoxChanged(form, text); });
}

bool Command1(frmWoerter& form, int index) {
  return command(form, [&] {
    if (index == 0) pageBack(form);
    if (index == 1) pageForward(form);
  });
}

bool letterButton(frmWoerter& form, std::size_t index) {
  if (index >= form.letters.size()) return true;
  return command(form, [&] { pressLetter(form, std::string(form.letters[index])); });
}

bool allLettersButton(frmWoerter& form) {
  return command(form, [&] { showAllLetters(form); });
}

bool Command6(frmWoerter& form) {
  return command(form, [&] {
    ReleaseFilter(form);
    if (letterChosen(form)) {
      const std::int64_t target = form.session.entry.CurrentEntryId;
      showAllLetters(form);
      form.session.entry.CurrentEntryId = target;
    }
    SkipToEntry(form);
    MarkFoundedWords(form);
  });
}

bool mnuNewEntry(frmWoerter& form) {
  form.session.entry.NewEntryLevel = 1;
  return addEntry(form, newMainEntry);
}

bool mnuNewSubEntry(frmWoerter& form) {
  return addEntry(form, newSubEntry);
}

bool mnuEditEntry(frmWoerter& form) {
  return act(form, editEntry);
}

bool mnuDeleteEntry(frmWoerter& form) {
  return act(form, deleteEntry);
}

bool mnuRelinkEntry(frmWoerter& form) {
  return command(form, [&] {
    if (form.list.selected < 0) return;
    entry::frmRelink dialog(form.session);
    if (!entry::Form_Load(dialog)) return;
    form.session.desk.boxes.showModal(dialog);
    entry::Form_Unload(dialog);
    if (!form.session.shell.pendingRefresh) return;
    const std::int64_t moved = form.session.entry.SelectedEntryId;
    FormInit(form);
    form.session.entry.CurrentEntryId = moved;
    SkipToEntry(form);
  });
}

}  // namespace browse
