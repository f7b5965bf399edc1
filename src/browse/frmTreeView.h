#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "browse/result_grid.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// The dictionary as an outline: by property, by subject field, or by cross-reference. Its operations are
/// commands: they report failures and return whether nothing failed.
namespace browse {

/// Values of session.shell.ViewKind for the three trees.
enum class TreeKind { properties = 0, subjects = 1, crossReferences = 2 };

/// What a line of the outline stands for.
enum class LineType {
  group,     ///< a property or subject field; its key is that one's
  entry,     ///< its key is the entry's
  reference  ///< its key is the entry referred to
};

struct frmTreeView : platform::Form {
  /// `kind` as ViewKind says.
  explicit frmTreeView(session::Session& s)
      : Form("frmTreeView"), session(s), kind(static_cast<TreeKind>(s.shell.ViewKind)) {}

  session::Session& session;
  const TreeKind kind;
  bool visible = false;
  std::string caption;

  // outline1: the lines and, aligned index for index, what they stand for.
  std::vector<std::string> lines;
  std::vector<int> indents;            ///< 0 the top level, 1 below a line of it
  std::vector<LineType> types;         ///< first hidden list
  std::vector<std::string> databases;  ///< second hidden list: DatabaseName
  std::vector<std::int64_t> keys;      ///< third hidden list
  std::vector<bool> expanded;          ///< its children are on the outline
  int selected = -1;
  bool jumpEnabled = false;  ///< the selected line leads to an entry

  std::function<void()> clearSearchBox;  ///< of the browser, if that is the active view
  std::function<void()> pressCommand6;   ///< relay of the active browser: goes to CurrentEntryId
};

/// Builds the top level; the children come when a line is expanded. Also the rebuild command.
bool BuildTree(frmTreeView& form);
/// Selects a line.
void selectLine(frmTreeView& form, int line);
/// Puts the children of a line below it: SelectKategorie, SelectSachgebiet or SelectQuerverweis. A line that
/// has them already, or can have none, stays as it is.
bool expandLine(frmTreeView& form, int line);
/// Whether a line can have children.
bool canExpand(const frmTreeView& form, int line);
/// Jumps to the entry of the selected line in the browser.
bool jump(frmTreeView& form);

}  // namespace browse
