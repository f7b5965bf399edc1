#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "browse/display.h"
#include "engine/recordset.h"
#include "entry/frmEintrag.h"
#include "shell/session/session.h"

/// The entry browser without its window: one page of the word list at a time over a recordset of all
/// entries, jumps to an entry, and the commands that add, edit and delete one.
namespace browse {

/// How the list is paged; set in the filter dialog.
struct ListSettings {
  std::string pageSize = "50";
  std::string listStart = "---";  ///< number of the row that the list begins with, or "---"
};

/// The list on show: four lists that stay aligned index for index. The text's marks tell the kinds of
/// row apart: "--- " before a sub-entry, "   ->" and "   ++" behind a main entry with sub-entries
/// (closed, opened), "_IN PROCESS_ " before an entry being worked on.
struct WordList {
  std::vector<std::string> List2;   ///< display texts
  std::vector<std::int64_t> List1;  ///< ID_Woerterbuch
  std::vector<std::int64_t> List3;  ///< ID_Woerterbuch1
  std::vector<std::string> List4;   ///< DatabaseName
  int selected = -1;

  std::size_t size() const { return List2.size(); }
  void clear();
  void insert(std::size_t at, std::string text, std::int64_t id, std::int64_t mainId,
              std::string databaseName);
  void erase(std::size_t at);
};

enum class BrowserFocus { list, searchBox, note };

struct frmWoerter {
  explicit frmWoerter(session::Session& s) : session(s), editor(s) {}

  session::Session& session;
  engine::Recordset rsWoerter;
  WordList list;
  ListSettings settings;
  entry::frmEintrag editor;  ///< stays loaded between visits

  int PageSize = 50;
  std::int64_t PageNumber = 1;
  std::vector<std::int64_t> PageStartId;  ///< [n]: first row of page n + 1, 0 where unknown
  std::int64_t TargetPosition = 0;        ///< from 1; above 0 while a jump is pending
  std::int64_t TargetMainId = 0;
  std::string TargetDatabase;  ///< DatabaseName of that entry; empty: of any file
  std::int64_t RowCounter = 1;
  std::array<std::string, 6> LetterSelection;  ///< the first is empty when no letter is chosen

  std::string Text3;                    ///< the search box
  std::function<void()> releaseFilter;  ///< resets the filter dialog; empty: there is none
  EntryDisplay display;                 ///< the right side
  int entriesShown = 0;                 ///< another number each time that side changes
  std::vector<std::string> letters;     ///< captions of the letter buttons, at most 26
  std::vector<std::string> KategorieCombo, SachgebietCombo;
  BrowserFocus focus = BrowserFocus::list;
  bool inert = false;  ///< a modal operation runs: keys and clicks on the list do nothing
  std::string countLabel, caption, pageToolTip;
  bool backEnabled = false, forwardEnabled = false, selectionEnabled = false;
  bool closed = false;
};

/// Rebuilds the view after a change of dictionary, letter or filter.
void FormInit(frmWoerter& form);
/// Reopens rsWoerter.
void LoadAllWords(frmWoerter& form);
/// Reopens rsWoerter under the ordering in force and updates the count label.
void SelectByLetter(frmWoerter& form);
/// Counts the rows of rsWoerter for the count label; it stands on the last one then.
void showCount(frmWoerter& form);
/// Fills the first page, or the page that begins with the pending target, into the four lists.
void BuildWordTreeNew(frmWoerter& form);
void pageForward(frmWoerter& form);
void pageBack(frmWoerter& form);

/// Selects the row at `index` of the list and opens it when it has closed sub-entries.
void selectRow(frmWoerter& form, int index);
void SelectEntry(frmWoerter& form);
/// Tells that an active filter is released, and releases it.
void ReleaseFilter(frmWoerter& form);
/// The search box was typed into.
void searchBoxChanged(frmWoerter& form, const std::string& text);
/// Finds the row whose headword equals the search box's text; true when there is one: the jump is then
/// pending in TargetPosition.
bool CheckIfEntryExists(frmWoerter& form);
/// The row of an entry of the current dictionary by its number, through the scratch query and the rewriter;
/// at its end where there is none.
engine::Recordset readEntry(frmWoerter& form, std::int64_t id);
/// Jumps to CurrentEntryId (to its main entry when it is a sub-entry); offers to make a new entry when
/// no row matches.
void SkipToEntry(frmWoerter& form);
/// The captions of the letter buttons, in the dictionary's order.
std::vector<std::string> GenerateAlphabetCommandCaption(frmWoerter& form);
/// Copies what counts as the letter of button `index` (from 0) into the filter state.
void BuchstabenZuweisung(frmWoerter& form, std::size_t index);
/// A letter button, by its caption: keeps the list to that letter and those that count as the same.
void pressLetter(frmWoerter& form, const std::string& caption);
/// Whether the row that rsWoerter stands on is one of the list: a main entry of the letters chosen.
bool onList(const frmWoerter& form);
/// Whether a letter keeps the list to its entries.
bool letterChosen(const frmWoerter& form);
/// Drops the letter and the order by date and shows all.
void showAllLetters(frmWoerter& form);
/// Removes the selected row from the lists.
void VisibleEntryDeleteAll(frmWoerter& form);

/// Carries out session.entry.EntryAction on the selected row: 0 new sub-entry, 1 delete, 2 close, 3 edit,
/// 4 new main entry, 5 and on the letter buttons. Errors are reported through the error log; true when
/// nothing failed.
bool AddEditDeleteAction(frmWoerter& form);
void AddEntry(frmWoerter& form);
void EditEntry(frmWoerter& form);
void DeleteEntry(frmWoerter& form);

/// Names of the properties and of the subject fields in their order, for the two combos.
std::vector<std::string> FillKategorieCombo(frmWoerter& form);
std::vector<std::string> FillSachgebietCombo(frmWoerter& form);
/// The window's caption again, after a change of texts or settings.
void Timer1(frmWoerter& form);

}  // namespace browse
