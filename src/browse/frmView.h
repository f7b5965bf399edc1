#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "browse/result_grid.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// The dictionary as flat tables that are edited in place: ten views, by session.shell.ViewKind. What is
/// typed into a cell goes to the real table at once. Its operations are commands: they report failures and
/// return whether nothing failed.
namespace browse {

inline constexpr int tableViewCount = 10;

/// What a cell belongs to, and so where a change of it is written.
enum class CellOwner {
  locked,
  entry,
  example,
  entryProperty,
  entrySubject,
  meaningProperty,
  meaningSubject,
  meaning,
  crossReference,
  url,
  newMeaning  ///< the empty cell of an entry without meanings
};

struct frmView : platform::Form {
  explicit frmView(session::Session& s) : Form("frmView"), session(s), ViewKind(s.shell.ViewKind) {}

  session::Session& session;
  const int ViewKind;  ///< 1 to 10
  bool visible = false;
  std::string caption;

  std::string recordSource;       ///< of Adodc1: the stored view
  ResultGrid Adodc1;              ///< and its grid
  std::vector<CellOwner> owners;  ///< of each column of the grid
};

/// Makes the view's record set and designs its grid. Throws nothing; false for a number that is no view.
bool Form_Load(frmView& form);
/// Runs the view's query again: the refresh command.
bool requery(frmView& form);
/// Whether a cell can be typed into; rows and columns count from 0. The cells of what a row lacks (an example
/// that is not there) can not.
bool canEdit(frmView& form, std::int64_t row, std::size_t column);
/// A cell was changed. In the view of entries without meanings the text becomes the entry's first meaning,
/// put into the statement as it is. A change that the dictionary refuses is reported and the cell keeps its
/// text. What derives from the changed text (sort keys, search text, flat texts, time of change) follows.
bool editCell(frmView& form, std::int64_t row, std::size_t column, const std::string& text);
void closeView(frmView& form);

/// Fills columns and owners for the view's number.
void DataGridsDesign(frmView& form);

}  // namespace browse
