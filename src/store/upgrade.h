#pragma once

#include "shell/session/session.h"

namespace store {

/// Brings a file of schema 2012 up to the current one, step by step. A step that an earlier, interrupted
/// run has done already is reported and passed over; any other failure throws and leaves the version.
void UpdateFrom2012rV17ToCurrentVersion(session::Session& s, engine::Database& db);

}  // namespace store
