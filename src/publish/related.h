#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "publish/frmPrint.h"
#include "publish/rows.h"

/// What hangs on an entry beside its senses, read from the entry's own file.
namespace publish {

struct Link {
  std::string name, address, note;
  std::int64_t rating = 0;
};
struct CrossReference {
  std::int64_t target = 0;
  std::string text;
};

std::vector<Link> linksOf(frmPrint& form, const PrintRow& row);
std::vector<Link> attachmentsOf(frmPrint& form, const PrintRow& row);
std::vector<CrossReference> crossReferencesOf(frmPrint& form, const PrintRow& row);

/// Notes, for each file of the session, which entries have links, attachments, cross-references or
/// sub-entries at all: most have none and then cost no query. Called once before the walk.
void noteWhatIsRelated(frmPrint& form);
bool hasSubEntries(const frmPrint& form, const PrintRow& row);

}  // namespace publish
