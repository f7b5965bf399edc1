#include "browse/clipboard.h"

#include <set>

#include "shell/session/errors.h"

namespace browse {

namespace {

void addLine(session::Session& s, std::string& text, const base::Value& value) {
  const std::string line = value.textOrEmpty();
  if (line.empty()) return;
  if (!text.empty()) text += s.CRLF;
  text += line;
}

/// The rows repeat a meaning for each of its examples, properties and subject fields.
std::string entryText(session::Session& s, engine::Recordset& rows) {
  std::string text;
  addLine(s, text, rows["Begriff"]);
  addLine(s, text, rows["Aussprache"]);
  addLine(s, text, rows["Bemerkung"]);
  std::set<std::int64_t> written;
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    const base::Value id = rows["ID_Wortbedeutung"];
    if (!id.isNull() && written.insert(id.asInteger()).second) addLine(s, text, rows["Wortbedeutung"]);
  }
  return text;
}

}  // namespace

bool ExportEntryToClipboard(session::Session& s) {
  return session::guard(s, "frmWoerter", [&] {
    auto rows = s.files.CurrentDB.OpenRecordset("ExportInZwischenablage", engine::RecordsetKind::snapshot,
                                                {{"lWordID", s.entry.CurrentEntryId}});
    if (rows.EndOfFile()) return false;
    s.desk.outside.setClipboard(entryText(s, rows));
    return true;
  });
}

}  // namespace browse
