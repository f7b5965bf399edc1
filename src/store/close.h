#pragma once

#include <string>

#include "shell/session/session.h"

/// Leaving a dictionary and keeping its file small.
namespace store {

/// Closes the current dictionary with all further files, its windows and menus, and compacts it. One that
/// was still being opened is only let go. A compaction that fails is reported and the file stays as it was.
void CloseCurrentDB(session::Session& s);
/// Asks whether the open dictionary may be closed and closes it on yes; true when none is open then.
/// `question` is a message, `title` a label.
bool closedAfterQuestion(session::Session& s, int question, int title);

/// Compacts the current dictionary in its place, after a question when it is open; closes it. Without
/// `quiet` it tells the result. Does nothing when the user does not want to.
void CompactCurrentDB(session::Session& s, bool quiet);

/// Drops the tables and queries that unfinished imports and inverse builds left.
void DropTempTables(engine::Database& db);

}  // namespace store
