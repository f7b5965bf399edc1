#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "browse/result_grid.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// The dictionary search. It finds entries of all open files by one of six texts, shows who owns a hit and
/// its main and sub-entries, and lets the browser jump to it. As "go to" it narrows the headwords at each
/// keystroke. Its operations are commands: they report failures and return whether nothing failed.
namespace browse {

enum class SearchMode { goTo, full };
/// The match combo, in its order.
enum class Match { exact, contains, begins };
/// What is searched. The six options give meaning, example and translation in a dictionary, and the three
/// texts of a link in a link collection.
enum class SearchScope {
  term,
  meaning,
  linkName,
  example,
  linkAddress,
  translation,
  linkNote,
  note,
  searchText
};

struct frmSearch : platform::Form {
  frmSearch(session::Session& s, SearchMode m) : Form("frmSearch"), session(s), mode(m) {}

  session::Session& session;
  const SearchMode mode;
  bool visible = false;
  std::string caption;

  std::string searchText;          ///< TextBox1
  std::string searchFont;          ///< of TextBox1
  std::vector<std::string> fonts;  ///< all installed ones, to choose searchFont from
  bool fontsShown = false;
  int option = 6;  ///< Option1 to Option6
  std::array<std::string, 6> optionCaptions;
  Match match = Match::contains;  ///< Combo1
  std::array<std::string, 3> matchCaptions;
  bool matchEnabled = false;
  bool choicesShown = false;  ///< options and match combo, in full search
  std::string statusLabel;    ///< number of hits of "go to"; of many, empty until showCount() was called
  bool searchEnabled = true, jumpEnabled = false;  ///< Command1(0), Command1(2)

  ResultGrid hits;      ///< DataGrid1
  ResultGrid owners;    ///< DataGrid2: entries that own the selected hit
  Hierarchy hierarchy;  ///< DataGrid4 and DataGrid3
  JumpTarget target;    ///< the entry that the jump goes to

  std::function<void()> pressCommand6;  ///< relay of the active browser: goes to CurrentEntryId
};

/// Whether searching may start: an active filter forbids it, which is told.
bool maySearch(session::Session& s);
/// Brings the dialog up: search text and contains in full search, the list of all headwords in "go to".
/// False also when a filter is active.
bool Form_Load(frmSearch& form);
/// Chooses an option, 1 to 6.
void setOption(frmSearch& form, int option);
SearchScope scopeOf(const frmSearch& form);
/// The search box was typed into: "go to" narrows its list.
bool TextBox1_Change(frmSearch& form, const std::string& text);
/// Counts the hits of "go to" into the status label, best when the first of them are on show.
bool showCount(frmSearch& form);
/// Command1(0), and Enter in the search box while it is enabled.
bool runSearch(frmSearch& form);
/// A row of the hits, counted from 0: shows owners or main and sub-entries.
bool selectHit(frmSearch& form, std::int64_t row);
/// A row of the owners' grid.
bool selectOwner(frmSearch& form, std::int64_t row);
/// A click on a row of the main entry's or the sub-entries' grid shows that entry in the browser.
bool showRelated(frmSearch& form, ResultGrid& grid, std::int64_t row);
/// Command1(2), a double click on a hit, and Enter in a grid: closes the dialog and jumps; the search text
/// is marked in the entry. Does nothing while it is not enabled.
bool jump(frmSearch& form);
/// A double click on a row of the main entry's or the sub-entries' grid.
bool jumpToRelated(frmSearch& form, ResultGrid& grid, std::int64_t row);
/// Command1(1).
void closeSearch(frmSearch& form);

// The statements, and the columns of the grids.
/// The statement of a search; the text stands in it as it is.
std::string searchStatement(SearchScope scope, Match match, const std::string& text);
/// The entries that own a hit whose text, with its quotes doubled, is put in place of the mark.
std::string ownerStatement(SearchScope scope);
void DataGrid1Design(frmSearch& form);
void DataGrid2Design(frmSearch& form);

}  // namespace browse
