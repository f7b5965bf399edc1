#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/recordset.h"
#include "shell/session/session.h"

/// Grids over a result of any size: rows are read when they are shown.
namespace browse {

/// A column that a grid shows, by the field's name in the result.
struct GridColumn {
  std::string field, caption;
};

struct ResultGrid {
  engine::Recordset rows;  ///< not open: the grid is empty
  std::vector<GridColumn> columns;
  std::int64_t known = 0;  ///< rows from the first on that are known to be there ...
  bool complete = true;    ///< ... and whether those are all
  bool visible = false;
  std::string label;           ///< above the grid
  std::int64_t selected = -1;  ///< row from 0, -1 for none
};

/// Stands for a text of the user's in a statement that is still to be rewritten: the rewriter cuts statements
/// at ";" and "ORDER BY", which a text may well hold.
inline constexpr const char* textMark = "\x1A";
/// A statement spanned over all files of the session, with `text` put in place of each mark as it is, in
/// upper case like the rest.
std::string rewritten(session::Session& s, const std::string& sql, session::View view,
                      const std::string& text);

/// Runs a statement over all files of the session, for the view given, and binds the result: the rewritten
/// statement stands in the scratch query SQLTemp before it runs with the wildcards % and _. Only the first
/// rows are looked for; readOn() or gridRows() find the others.
void bindGrid(session::Session& s, ResultGrid& grid, const std::string& sql, session::View view,
              const std::string& text = {});

/// Looks for up to so many more rows behind those known.
void readOn(ResultGrid& grid, std::int64_t rows);
/// All rows, counted at once: as long as it takes.
std::int64_t gridRows(ResultGrid& grid);
bool hasRow(ResultGrid& grid, std::int64_t row);
/// The text of a cell; rows and columns count from 0. Moves the grid's cursor to the row.
std::string gridCell(ResultGrid& grid, std::int64_t row, std::size_t column);
/// The text of any field of a row; empty where the result has no such field.
std::string gridField(ResultGrid& grid, std::int64_t row, const std::string& field);
/// The number in a field of a row; 0 for Null and where the result has no such field.
std::int64_t gridNumber(ResultGrid& grid, std::int64_t row, const std::string& field);

/// A text as a literal in double quotes.
std::string quotedText(const std::string& text);

/// The main entry and the sub-entries of an entry of the current dictionary, as the two grids below a
/// list of hits show them.
struct Hierarchy {
  ResultGrid main;  ///< the main entry of the selected entry
  ResultGrid subEntries;
};
/// Fills both; 0 for a number that is not known shows nothing.
void HierarchischeObjekteAnzeigen(session::Session& s, Hierarchy& grids, std::int64_t ID_Woerterbuch,
                                  std::int64_t ID_Woerterbuch1, session::View view);

/// An entry that a dialog has resolved and the browser is to jump to.
struct JumpTarget {
  std::int64_t ID_Woerterbuch = 0, ID_Woerterbuch1 = 0;  ///< the first 0: none
  std::int64_t Ebene = 1;
  std::string DatabaseName;
};
/// Hands the target to the browser: current entry, its level and how it would be edited.
void setJump(session::Session& s, const JumpTarget& target);

}  // namespace browse
