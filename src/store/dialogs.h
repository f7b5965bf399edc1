#pragma once

#include "shell/session/session.h"

namespace store {

/// Flags of file dialogs, as sums.
inline constexpr int overwritePromptAndHideReadOnly = 6, hideReadOnly = 4, fileMustExist = 4096;

/// A dialog for an existing dictionary; `title` is a label.
platform::FileDialog openDialog(const session::Session& s, int title, int flags = hideReadOnly);
/// A dialog for the file that a dictionary is written to.
platform::FileDialog saveDialog(const session::Session& s);

}  // namespace store
