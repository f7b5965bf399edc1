#pragma once

#include <type_traits>
#include <utility>

#include "platform/desk.h"
#include "shell/session/errors.h"

namespace entry {

/// Runs one step of a command that goes on after a failure: the failure is reported under the form's name.
/// A step may return bool to say so itself. Returns whether it succeeded.
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
    session::LogError(form.session, session::currentError(), form.formName);
    return false;
  }
}

}  // namespace entry
