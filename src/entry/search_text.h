#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/recordset.h"

/// The one text of an entry that full-text search looks at: all its texts behind "//", the headword last
/// behind "////".
namespace entry {

struct frmEintrag;

/// Appends "//" and the piece, unless `text` holds the piece as `key` says it already.
void appendOnce(std::string& text, const std::string& key, const std::string& piece);
/// An example as it stands in the search text: sentence, "//", translation.
std::string examplePiece(const engine::Recordset& row);
/// A web link as it stands in the search text: name, address and note.
std::string linkPiece(const engine::Recordset& row);

/// Writes the search text of the entry in the editor, from the meanings that the editor holds, in their
/// order, each before its own examples. The record's headword goes in as it stands there.
void MetaSucheEintragen(frmEintrag& form, std::int64_t lWortID);

}  // namespace entry
