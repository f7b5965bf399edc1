#pragma once

#include <cstdint>

#include "shell/session/session.h"

/// The flat tables: for each entry and each meaning its linked catalogues and texts as ready strings,
/// items joined by ", ". Derived data, as current as the last build; `Sprache.LastReportTableUpdate` is
/// the time of that.
namespace store {

/// Fills the row of one entry, of one meaning; adds it where there is none.
void FillFlatRow(session::Session& s, std::int64_t entry);
void FillFlatMeaningRow(session::Session& s, std::int64_t meaning);

/// Rebuilds one table: all rows, or those of entries changed since the last build. Without a time of a
/// last build all. Stores the time; a failure throws and leaves the old time, so that the next delta
/// repeats what this one missed.
void BuildWoerterbuchFlat(session::Session& s, bool full);
void BuildWortbedeutungFlat(session::Session& s, bool full);
/// Both, for changes since the same last build.
void buildReportTables(session::Session& s, bool full);

/// The commands: a question, both tables, a closing box. False when the user did not want to.
bool mnuBuildReportTables(session::Session& s);
bool mnuBuildReportTablesDelta(session::Session& s);

}  // namespace store
