#pragma once

#include <type_traits>
#include <utility>

#include "platform/desk.h"
#include "shell/session/errors.h"

namespace entry {

/// Runs one step of a command that goes on after a failure: the failure is reported under the form's name.
/// A step may return bool to say so itself. Returns whether it succeeded. A full disk is thrown on: it has
/// undone the steps before and would fail those behind.
template <class FormWithSession, class Step>
bool attempt(FormWithSession& form, Step&& step) {
  try {
    if constexpr (std::is_same_v<std::invoke_result_t<Step>, bool>) {
      return std::forward<Step>(step)();
    } else {
      std::forward<Step>(step)();
      return true;
    }
  } catch (...) {
    const base::Error error = session::currentError();
    if (error.number() == engine::errors::diskFull) throw error;
    session::LogError(form.session, error, form.formName);
    return false;
  }
}

}  // namespace entry
