#pragma once

#include <array>
#include <functional>
#include <string>

#include "browse/frmWoerter.h"
#include "browse/result_grid.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// Looks the word up that is marked in the entry display (session.search.SelectedWord), in three ways at
/// once. Its operations are commands: they report failures and return whether nothing failed.
namespace browse {

struct frmSearchSelectedWord : platform::Form {
  explicit frmSearchSelectedWord(session::Session& s) : Form("frmSearchSelectedWord"), session(s) {}

  session::Session& session;
  bool visible = false;
  std::string word;
  std::string Label1;  ///< the word; once a row is selected the headword and the file of that row

  /// Search text, exact headword, headword contains; each with the headwords in List2 and their identity
  /// beside them.
  std::array<WordList, 3> lists;
  std::array<std::string, 3> listCaptions;
  Hierarchy hierarchy;  ///< DataGrid1 the main entry, DataGrid2 the sub-entries
  bool jumpEnabled = false;

  std::function<void()> pressCommand6;  ///< relay of the active browser: goes to CurrentEntryId

  JumpTarget target;
};

/// Runs the three searches. The word goes into the statements as it is: wildcards in it work, and an
/// apostrophe is reported and leaves the lists empty.
bool Form_Load(frmSearchSelectedWord& form);
/// A click on a row of one of the lists, all counted from 0.
bool selectRow(frmSearchSelectedWord& form, std::size_t list, std::size_t row);
/// Closes the dialog and jumps to the selected row's entry; does nothing before one is selected.
bool jump(frmSearchSelectedWord& form);
void closeLookup(frmSearchSelectedWord& form);

}  // namespace browse
