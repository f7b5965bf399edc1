#pragma once

#include <string>
#include <type_traits>
#include <utility>

#include "shell/session/session.h"

/// The one error report that every failed command ends in, and the guard that leads there.
namespace session {

inline constexpr int silentMissingItem = 3265;
inline constexpr int silentCancel = 32755;

/// Appends the error to the log in the configuration folder, shows it below a sentence of the user's
/// language, and puts pointer and status bar back. `source` is the reporting window's or module's name. A
/// missing item of a collection (3265) and a cancelled file dialog (32755) are normal and leave no trace.
/// Sets Shell::failed. Never throws: a log that can not be written is told in the same box.
void LogError(Session& s, const base::Error& error, const std::string& source);

/// Appends the error to the log alone: for a failure that the window shows in its own way. Never throws.
void NoteError(Session& s, const base::Error& error, const std::string& source);

/// The exception being handled as an Error; for a catch (...) alone.
base::Error currentError();

/// Commits what is gathered, or throws and gives it up. What the user typed may be taken out of a form only
/// behind it.
void commitGathered(Session& s);

/// Runs an operation. Whatever it throws ends in LogError: the operation is abandoned and what it wrote
/// stays. Commits at its end; the same failure again is not told twice. An operation that returns bool
/// decides success by that as well. Returns whether it succeeded.
template <class Operation>
bool guard(Session& s, const std::string& formName, Operation&& operation) {
  bool succeeded = true;
  int told = 0;
  try {
    if constexpr (std::is_same_v<std::invoke_result_t<Operation>, bool>)
      succeeded = std::forward<Operation>(operation)();
    else
      std::forward<Operation>(operation)();
  } catch (...) {
    succeeded = false;
    const base::Error error = currentError();
    told = error.number();
    LogError(s, error, formName);
  }
  try {
    commitGathered(s);
  } catch (...) {
    succeeded = false;
    const base::Error error = currentError();
    if (error.number() == told)
      NoteError(s, error, formName);
    else
      LogError(s, error, formName);
  }
  return succeeded;
}

}  // namespace session
