#pragma once

#include <string>

#include "platform/desk.h"
#include "shell/session/session.h"

namespace store {

/// Copies a dictionary, on request with its media folder, into a folder under a name that carries date
/// and time.
struct frmBackup : platform::Form {
  explicit frmBackup(session::Session& s) : Form("frmBackup"), session(s) {}
  session::Session& session;
  std::string targetFolder;
  bool withMedia = false;
  std::string source;   ///< the open dictionary; set on load, or by the caller where none is open
  std::string written;  ///< the last copy made
};

void Form_Load(frmBackup& form);
/// Makes the copy; closes the open dictionary first, after a question. False when the user did not want
/// that. Throws 53, 61, 70.
bool BackUpDB(frmBackup& form);

}  // namespace store
