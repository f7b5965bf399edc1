#pragma once

#include <string>

#include "shell/session/session.h"

/// The one place that every reading statement of entry lists passes through.
namespace store {

/// Applies the active filter of a view to a statement and spans it over all open files: one arm for each
/// further file, bound to it by IN "file", joined by UNION, with one order for the whole. Returns the text
/// to run; `sql` is upper-cased, filtered and left without its parameters and order.
std::string BuildMultiSQL(session::Session& s, std::string& sql, session::View view);
/// The same for a text that is not needed afterwards.
std::string BuildMultiSQL(session::Session& s, std::string&& sql, session::View view);
/// Rewrites the text of a stored query of the current dictionary and opens the result.
engine::Recordset openRewritten(session::Session& s, const std::string& query, session::View view,
                                const engine::Parameters& parameters = {});

}  // namespace store
