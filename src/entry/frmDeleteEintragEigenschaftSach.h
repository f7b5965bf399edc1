#pragma once

#include <cstdint>

#include "entry/catalogue_items.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// Deletes the entries that bear a property or a subject field; the items themselves stay. Its operations are
/// commands: they report failures and return whether all went well.
namespace entry {

struct frmDeleteEintragEigenschaftSach : platform::Form {
  frmDeleteEintragEigenschaftSach(session::Session& s, bool properties)
      : Form("frmDeleteEintragEigenschaftSach"), session(s), CatalogueDeleteMode(properties) {}

  session::Session& session;
  const bool CatalogueDeleteMode;  ///< works on the properties, not on the subject fields
  CatalogueChoice lists;
  std::int64_t deleted = 0;  ///< entries of the last deleteEntries
};

bool Form_Load(frmDeleteEintragEigenschaftSach& form);
/// Deletes every entry that bears a chosen item, with all that hangs on it, after a question (no counts as
/// not done). Its sub-entries stay unless they bear the item themselves; a rebuild of the sort keys takes
/// those that lost their main entry. Nothing happens without a chosen item.
bool deleteEntries(frmDeleteEintragEigenschaftSach& form);

}  // namespace entry
