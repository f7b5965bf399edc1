#include "browse/commands.h"

#include <array>
#include <string_view>

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

bool addMainEntry(frmWoerter& form) {
  auto& entry = form.session.entry;
  entry.NewEntryLevel = 1;
  entry.CurrentBegriff.clear();
  return act(form, newMainEntry);
}

bool edit(frmWoerter& form) {
  return act(form, editEntry);
}
bool remove(frmWoerter& form) {
  return act(form, deleteEntry);
}
bool addSubEntry(frmWoerter& form) {
  form.session.entry.CurrentBegriff.clear();
  return act(form, newSubEntry);
}

struct MenuCommand {
  std::string_view item;
  bool (*run)(frmWoerter& form);
};
constexpr std::array<MenuCommand, 12> menuCommands{{{"mnuNewEntry", addMainEntry},
                                                    {"mnuNewSubEntry", addSubEntry},
                                                    {"mnuEditEntry", edit},
                                                    {"mnuDeleteEntry", remove},
                                                    {"mnuRelinkEntry", RelinkEntry},
                                                    {"mnuPrintSingleEntry", printButton},
                                                    {"mnuPopUpAddFirstLevelEntry", addMainEntry},
                                                    {"mnuPopUpAdd", addSubEntry},
                                                    {"mnuPopUpEdit", edit},
                                                    {"mnuPopUpDelete", remove},
                                                    {"mnuPopUpRelink", RelinkEntry},
                                                    {"mnuPopUpPrintEntry", printButton}}};

/// What a button of the toolbar sends to the relay.
struct ToolbarButton {
  int index, EntryAction;
  MouseMessage message;
};
constexpr std::array<ToolbarButton, 5> toolbarButtons{{{2, newSubEntry, MouseMessage::rightDown},
                                                       {8, newSubEntry, MouseMessage::leftDown},
                                                       {9, editEntry, MouseMessage::leftDown},
                                                       {10, deleteEntry, MouseMessage::leftDown},
                                                       {11, deleteEntry, MouseMessage::rightUp}}};

}  // namespace

bool List2_Click(frmWoerter& form, int row) {
  return command(form, [&] {
    selectRow(form, row);
    MarkFoundedWords(form);
  });
}

bool List2_DblClick(frmWoerter& form) {
  return edit(form);
}

bool List2_KeyDown(frmWoerter& form, ListKey key) {
  return key == ListKey::enter ? edit(form) : remove(form);
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

bool Command3(frmWoerter& form, MouseMessage message) {
  switch (message) {
    case MouseMessage::leftDown:
      return act(form, form.session.entry.EntryAction);
    case MouseMessage::rightDown:
      return addMainEntry(form);
    case MouseMessage::rightUp:
      return RelinkEntry(form);
  }
  return false;
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

bool printButton(frmWoerter& form) {
  return command(form, [&] {
    if (form.printEntry) form.printEntry();
  });
}

bool RelinkEntry(frmWoerter& form) {
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

bool entryMenu(frmWoerter& form, const std::string& item) {
  for (const MenuCommand& each : menuCommands)
    if (each.item == item) return each.run(form);
  return false;
}

bool toolbarButton(frmWoerter& form, int index) {
  for (const ToolbarButton& each : toolbarButtons) {
    if (each.index != index) continue;
    form.session.entry.EntryAction = each.EntryAction;
    form.session.search.SearchTerm.clear();
    if (each.message == MouseMessage::rightDown) form.session.entry.EntryEditMode = 1;
    return Command3(form, each.message);
  }
  return false;
}

}  // namespace browse
