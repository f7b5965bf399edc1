#pragma once

#include "platform/desk.h"
#include "shell/session/session.h"

/// The services dialog: rebuilds the derived columns of a whole dictionary.
namespace entry {

struct frmServices : platform::Form {
  explicit frmServices(session::Session& s) : Form("frmServices"), session(s) {}
  session::Session& session;
};

/// Rebuilds prefix and sort key of every entry, after two questions. A sub-entry whose main entry is gone is
/// deleted; one that stands before its main entry takes that one's old key, which a second run settles. A
/// row that refuses its new key keeps the old one; such rows are told in one report at the end. True when
/// all of it was done.
bool GenerateSortBegriff(frmServices& form);
/// Rebuilds the search text of every entry, after two questions: all meanings first, then all examples.
bool GenerateMetaSearchIndex(frmServices& form);

}  // namespace entry
