#pragma once

#include <cstdint>

#include "entry/catalogue_items.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// Deletes items of a catalogue with their assignments. Its operations are commands: they report failures and
/// return whether all went well.
namespace entry {

struct frmDeleteEigenschaftSach : platform::Form {
  frmDeleteEigenschaftSach(session::Session& s, bool properties)
      : Form("frmDeleteEigenschaftSach"), session(s), CatalogueDeleteMode(properties) {}

  session::Session& session;
  const bool CatalogueDeleteMode;  ///< works on the properties, not on the subject fields
  CatalogueChoice lists;
  /// Check2: the assignments to meanings are deleted one by one as well, and their entries count as changed.
  /// Off is Check1. The item itself takes with it whatever assignment is left.
  bool meaningsToo = true;
  std::int64_t deleted = 0;  ///< items of the last deleteItems
};

bool Form_Load(frmDeleteEigenschaftSach& form);
/// Deletes the chosen items after a question (no counts as not done). Every entry that bore one in the scope
/// counts as changed now. Nothing happens without a chosen item.
bool deleteItems(frmDeleteEigenschaftSach& form);

}  // namespace entry
