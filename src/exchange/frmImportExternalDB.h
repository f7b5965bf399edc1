#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "exchange/text_source.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// Entries from a foreign table of rows: its columns are mapped to the dictionary's fields, and each row
/// becomes a main entry.
namespace exchange {

/// Describes a delimited text file before it is imported.
struct frmTextImport : platform::Form {
  frmTextImport() : platform::Form("frmTextImport") {}
  std::string path;
  TextLayout layout;
  bool cancelled = true;
};
/// The dialog's OK: writes "schema.ini" and closes.
void accept(frmTextImport& form);

/// The fields of the dictionary that a column can go to.
enum class Target { Begriff, Wortbedeutung, Bemerkung, URL, URLName, URLNotiz };
inline constexpr std::size_t targetCount = 6;

struct frmImportExternalDB : platform::Form {
  frmImportExternalDB(session::Session& s, TextSource rows)
      : platform::Form("frmImportExternalDB"), session(s), source(std::move(rows)) {
    mapping.fill(-1);
  }
  session::Session& session;
  TextSource source;
  std::array<std::int32_t, targetCount> mapping;   ///< column number for each target, -1 while unset
  std::vector<std::int64_t> properties, subjects;  ///< catalogue keys that every imported entry gets
  std::int64_t imported = 0, skipped = 0;
};

/// Maps a column to a target.
void mapColumn(frmImportExternalDB& form, Target target, std::size_t column);
/// Whether the columns that the project type requires are mapped.
bool canImport(const frmImportExternalDB& form);
/// The import command: asks, reads all rows and writes the entries. Rows written before an error or a
/// "no" stay. Throws what the engine throws.
void importRows(frmImportExternalDB& form);

/// `ImportExternalDBFormat` for delimited text: asks for the file, lets frmTextImport describe it, shows
/// frmImportExternalDB. Errors end in the error log; true when entries were imported.
bool importTextFormat(session::Session& session);

}  // namespace exchange
