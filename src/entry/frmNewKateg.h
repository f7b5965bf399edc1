#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/recordset.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// The dialog of one of the two catalogues: adds and edits its items and imports a list of them. Its
/// operations are commands: they report failures and return whether all went well.
namespace entry {

struct frmNewKateg : platform::Form {
  frmNewKateg(session::Session& s, bool isProperty)
      : Form("frmNewKateg"), session(s), CatalogueIsProperty(isProperty) {}

  session::Session& session;
  const bool CatalogueIsProperty;  ///< works on the properties, not on the subject fields
  std::string Text1, Text2;        ///< name and abbreviation of a new item
  bool addEnabled = false;
  engine::Recordset Data1;    ///< the catalogue by name
  std::int64_t imported = 0;  ///< items of the last AddFile
};

struct CatalogueRow {
  std::string name, abbreviation;
};

bool Form_Load(frmNewKateg& form);
/// The items in the grid's order, from which rows count from 0.
std::vector<CatalogueRow> catalogueRows(frmNewKateg& form);
/// The name was typed into: an item can be added while it is not empty.
void Text1_Change(frmNewKateg& form, const std::string& text);
/// Adds the two boxes' texts as an item and clears them.
bool addItem(frmNewKateg& form);
/// Changes a cell of the grid. An empty name is refused with a message.
bool editName(frmNewKateg& form, std::size_t row, const std::string& text);
bool editAbbreviation(frmNewKateg& form, std::size_t row, const std::string& text);
/// Asks for a text file in UTF-8 and adds each of its lines that is not blank: a name of 50 characters at
/// most and, behind ";", an abbreviation of 15; what is longer is cut. The file is read whole before anything
/// is written. False when the file's name does not end in "txt" or the question is not answered with yes.
bool AddFile(frmNewKateg& form);

}  // namespace entry
