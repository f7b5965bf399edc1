// Selecting a row, opening its sub-entries, and jumping to an entry by text or number.

#include <algorithm>

#include "base/text.h"
#include "browse/dictionary_in_use.h"
#include "browse/frmWoerter.h"
#include "browse/result_grid.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/texts.h"
#include "store/letters.h"
#include "store/rewriter.h"
#include "store/rows.h"

namespace browse {

namespace {

using base::Value;

bool endsWith(const std::string& text, std::string_view end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

/// The id of the main entry that a sub-entry hangs on; the id itself where the row is gone.
std::int64_t mainEntryOf(session::Session& session, std::int64_t mainId) {
  auto rows = session.files.CurrentDB.OpenRecordset("BegriffParam", engine::RecordsetKind::snapshot,
                                                    {{"lWortID", mainId}});
  return rows.EndOfFile() ? mainId : rows["ID_Woerterbuch"].asInteger();
}

/// Position, main entry and page of the row that rsWoerter stands on, as a pending jump.
void setTarget(frmWoerter& form) {
  auto& rows = form.rsWoerter;
  form.TargetPosition = rows.AbsolutePosition() + 1;
  form.TargetDatabase = rows["DATABASENAME"].textOrEmpty();
  useDictionary(form.session, form.TargetDatabase);
  const Value mainId = rows["ID_Woerterbuch1"];
  form.TargetMainId = mainId.isNull() ? rows["woerterbuch.id_woerterbuch"].asInteger() : mainId.asInteger();
  if (rows["EBENE"].asInteger() != 1) form.TargetMainId = mainEntryOf(form.session, form.TargetMainId);
  form.PageNumber = form.PageSize == 1 ? form.TargetPosition - 1 : form.TargetPosition / (form.PageSize - 1);
  const auto at = static_cast<std::size_t>(std::max<std::int64_t>(form.PageNumber, 0));
  if (form.PageStartId.size() <= at) form.PageStartId.resize(at + 1, 0);
  form.PageStartId[at] = form.TargetMainId;
  form.backEnabled = form.PageNumber > 1;
  form.selectionEnabled = true;
}

/// The row of the pending target on the list, -1 where it shows none.
int targetRow(const frmWoerter& form) {
  const WordList& list = form.list;
  for (std::size_t row = 0; row < list.size(); ++row)
    if (list.List1[row] == form.TargetMainId &&
        (form.session.files.OpenDBCount < 2 || list.List4[row] == form.TargetDatabase))
      return static_cast<int>(row);
  return -1;
}

/// Shows the page of the pending target unless it is on the list already, and selects it.
void goToTarget(frmWoerter& form) {
  int index = targetRow(form);
  if (index < 0) {
    BuildWordTreeNew(form);
    index = targetRow(form);
  }
  form.TargetPosition = 0;
  if (index >= 0) selectRow(form, index);
}

/// Shows the selected entry. The list works on where it can not be shown, which is reported.
void showSelected(frmWoerter& form) {
  try {
    ShowEntry(form);
  } catch (...) {
    session::LogError(form.session, session::currentError(), "frmWoerter");
    clearDisplay(form);
  }
}

void openSubEntries(frmWoerter& form, std::size_t at) {
  auto& list = form.list;
  std::string& text = list.List2[at];
  auto rows = form.session.files.CurrentDB.OpenRecordset(
      "WoerterbuchRelWoertWoert", engine::RecordsetKind::dynaset, {{"lWordID", list.List1[at]}});
  if (rows.EndOfFile()) {
    form.session.files.CurrentDB.Execute("UPDATE  woerterbuch SET Unterbegriff = 0 where id_woerterbuch = " +
                                         std::to_string(list.List1[at]));
    return;
  }
  text.replace(text.size() - 2, 2, "++");
  for (std::size_t below = at + 1; !rows.EndOfFile(); rows.MoveNext(), ++below) {
    const std::string headword = rows["BEGRIFF"].textOrEmpty();
    const bool deeper = store::truth(rows["UNTERBEGRIFF"]);
    list.insert(below, deeper ? headword + "   ->" : "--- " + headword,
                rows["woerterbuch.id_woerterbuch"].asInteger(), rows["ID_Woerterbuch1"].asInteger(),
                rows["DATABASENAME"].textOrEmpty());
  }
}

void offerNewEntry(frmWoerter& form) {
  auto& session = form.session;
  const std::string question = session::dialogText(session, dialog::not_found_before) + " '" + form.Text3 +
                               "' " + session::dialogText(session, dialog::not_found_after);
  if (session::showUnicodeBox(session, question, platform::box::yesNo) != platform::box::answerYes) return;
  session.entry.EntryEditMode = 1;
  session.entry.NewEntryLevel = 1;
  session.entry.CurrentBegriff = form.Text3;
  AddEntry(form);
}

}  // namespace

engine::Recordset readEntry(frmWoerter& form, std::int64_t id) {
  auto& database = form.session.files.CurrentDB;
  std::string sql =
      "select id_woerterbuch, woerterbuch.* from woerterbuch where id_woerterbuch = " + std::to_string(id);
  auto scratch = database.queryDef("SQLTemp");
  scratch.setScratchSQL(store::BuildMultiSQL(form.session, sql, session::View::frmWoerter));
  auto rows = scratch.OpenRecordset();
  while (form.session.files.OpenDBCount > 1 && !rows.EndOfFile() &&
         rows["DATABASENAME"].textOrEmpty() != form.session.files.CurrentDBPath)
    rows.MoveNext();
  return rows;
}

void selectRow(frmWoerter& form, int index) {
  form.list.selected = index;
  SelectEntry(form);
}

void SelectEntry(frmWoerter& form) {
  auto& list = form.list;
  if (list.selected < 0 || list.selected >= static_cast<int>(list.size())) return;
  const auto at = static_cast<std::size_t>(list.selected);
  session::ShowStatus(form.session, session::labelText(form.session, label::reading_entry), true);
  useDictionary(form.session, list.List4[at]);
  if (endsWith(list.List2[at], "->")) openSubEntries(form, at);
  form.session.entry.SelectedEntryId = list.List1[at];
  form.session.entry.SelectedMainEntryId = list.List3[at];
  if (form.session.shell.entryDisplayed) showSelected(form);
  form.selectionEnabled = true;
  form.focus = form.Text3.empty() ? BrowserFocus::list : BrowserFocus::searchBox;
  session::ShowStatus(form.session, "", false);
}

bool CheckIfEntryExists(frmWoerter& form) {
  form.rsWoerter.FindFirst("begriff = " + quotedText(form.Text3));
  if (form.rsWoerter.NoMatch()) return false;
  setTarget(form);
  return true;
}

void ReleaseFilter(frmWoerter& form) {
  auto& session = form.session;
  if (!session.filter.FilterIsActive || !session.filter.FilterIsActive()) return;
  session::showMessage(session, dialog::filter_released, platform::box::information);
  if (form.releaseFilter) form.releaseFilter();
}

void searchBoxChanged(frmWoerter& form, const std::string& text) {
  form.Text3 = text;
  if (!text.empty()) {
    ReleaseFilter(form);
    if (letterChosen(form) || form.session.shell.dateOrder) showAllLetters(form);
  } else if (form.rsWoerter.RecordCount() > 0) {
    form.rsWoerter.MoveFirst();
    return;
  }
  if (CheckIfEntryExists(form)) goToTarget(form);
}

void SkipToEntry(frmWoerter& form) {
  auto& entry = form.session.entry;
  auto rows = readEntry(form, entry.CurrentEntryId);
  if (!rows.EndOfFile() && rows["Ebene"].asInteger() == 2) {
    entry.CurrentEntryId = rows["ID_Woerterbuch1"].asInteger();
    rows = readEntry(form, entry.CurrentEntryId);
  }
  const std::string file =
      form.session.files.OpenDBCount > 1 ? form.session.files.CurrentDBPath : std::string();
  form.rsWoerter.FindFirst(entryCondition(form.session, entry.CurrentEntryId, file));
  if (form.rsWoerter.NoMatch()) {
    offerNewEntry(form);
    return;
  }
  setTarget(form);
  goToTarget(form);
}

std::vector<std::string> GenerateAlphabetCommandCaption(frmWoerter& form) {
  std::vector<std::string> captions;
  auto rows = form.session.files.CurrentDB.OpenRecordset("Buchstaben");
  for (; !rows.EndOfFile(); rows.MoveNext()) captions.push_back(rows["FilterBuchstabe1"].textOrEmpty());
  return captions;
}

void BuchstabenZuweisung(frmWoerter& form, std::size_t index) {
  if (index < form.letters.size()) store::BuchstabenZuweisung(form.session, form.letters[index]);
}

bool letterChosen(const frmWoerter& form) {
  return !form.LetterSelection[0].empty() || !form.session.filter.AlleBuchstaben;
}

void pressLetter(frmWoerter& form, const std::string& caption) {
  auto& filter = form.session.filter;
  filter.FilterBuchstabe[0] = caption;
  store::BuchstabenZuweisung(form.session, caption);
  filter.AlleBuchstaben = false;
  session::ShowStatus(form.session, session::dialogText(form.session, dialog::loading_entries), true);
  form.LetterSelection = filter.FilterBuchstabe;
  FormInit(form);
  session::ShowStatus(form.session, "", false);
}

void showAllLetters(frmWoerter& form) {
  form.session.filter.AlleBuchstaben = true;
  form.session.filter.FilterBuchstabe[0].clear();
  form.session.shell.dateOrder = false;
  session::ShowStatus(form.session, session::dialogText(form.session, dialog::loading_entries), true);
  form.LetterSelection[0].clear();
  FormInit(form);
}

void VisibleEntryDeleteAll(frmWoerter& form) {
  if (form.list.selected >= 0 && form.list.selected < static_cast<int>(form.list.size()))
    form.list.erase(static_cast<std::size_t>(form.list.selected));
  form.countLabel.clear();
  form.pageToolTip.clear();
  clearDisplay(form);
}

}  // namespace browse
