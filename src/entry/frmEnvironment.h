#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/desk.h"
#include "shell/session/session.h"

/// The dialog of the applications that open the types of attached files. Nothing is stored before it is
/// saved. Its commands report failures and return whether all went well.
namespace entry {

struct FileType {
  std::string Dateityp;   ///< the extension in upper case, without its point
  std::string Anwendung;  ///< the application's command line
};

struct frmEnvironment : platform::Form {
  explicit frmEnvironment(session::Session& s) : Form("frmEnvironment"), session(s) {}

  session::Session& session;
  std::vector<FileType> DBGrid1;                ///< by type when it was read, new rows last
  std::string typeCaption, applicationCaption;  ///< of the grid's columns
  bool changed = false;
  bool visible = false;
};

bool Form_Load(frmEnvironment& form);
/// Changes a cell; the status bar tells that saving is needed. The row behind the last one adds a row.
void editFileType(frmEnvironment& form, std::size_t row, const std::string& text);
void editApplication(frmEnvironment& form, std::size_t row, const std::string& text);
void deleteFileType(frmEnvironment& form, std::size_t row);
/// Writes the table anew from the grid and closes; rows that are empty are left out. A row that the table
/// would refuse is told before anything is written, and the dialog stays.
bool saveEnvironment(frmEnvironment& form);
/// Closes without writing.
void cancelEnvironment(frmEnvironment& form);

}  // namespace entry
