#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/desk.h"
#include "shell/session/session.h"

/// Fast entry: ten rows of boxes, each a new main entry with up to three meanings. The entries get neither
/// automatic properties nor a row of the history.
namespace entry {

inline constexpr std::size_t fastRows = 10;

struct frmFastEntry : platform::Form {
  explicit frmFastEntry(session::Session& s) : Form("frmFastEntry"), session(s) {}

  using Boxes = std::array<std::string, fastRows>;

  session::Session& session;
  Boxes TextBox1;                          ///< headwords
  Boxes TextBox2, TextBox3, TextBox4;      ///< meanings; shown in dictionaries (project type 1) alone
  std::array<std::string, 3> columnHeads;  ///< of the meanings
  bool meaningsShown = true;
  bool Check1 = false;  ///< skip headwords that exist
  std::string statusLabel;
  std::size_t focusRow = 0, focusColumn = 0;  ///< the box with the focus; column 0 is the headword
  std::int64_t stored = 0;                    ///< entries of the last Command3
  std::int64_t newId = 0;                     ///< of the entry stored last
};

bool Form_Load(frmFastEntry& form);
/// Arrow keys and Enter move the focus; any other key does nothing.
enum class FastKey { up, down, enter };
void TextBox_KeyDown(frmFastEntry& form, FastKey key);
/// Stores the rows that have a headword and clears their boxes. Texts go into the statements as they are: a
/// double quote in a headword or meaning and an apostrophe in the headword or search text make one fail.
/// That is reported, and a box that was not stored keeps its text; where only a derived column failed the
/// entry counts as stored. True when nothing failed.
bool Command3(frmFastEntry& form);

}  // namespace entry
