#pragma once

#include "shell/session/session.h"

namespace browse {

/// Puts the current entry (CurrentEntryId) on the clipboard as text: headword, pronunciation, note and each
/// meaning, a line each; what is empty has none. Nothing happens when the entry is gone. Failures are
/// reported; true when a text was set.
bool ExportEntryToClipboard(session::Session& s);

}  // namespace browse
