#include "browse/derived.h"

#include "entry/search_text.h"
#include "entry/sort_term.h"
#include "store/flat.h"
#include "store/rows.h"

namespace browse {

namespace {

engine::Recordset entryRow(session::Session& s, std::int64_t id) {
  return s.files.CurrentDB.OpenRecordset("BegriffParam", engine::RecordsetKind::dynaset, {{"lWortID", id}});
}

void appendExamples(session::Session& s, const std::string& meaning, std::string& text) {
  auto rows = s.files.CurrentDB.OpenRecordset(
      "select distinctrow * from WortBedBsp where ID_Wortbedeutung =" + meaning,
      engine::RecordsetKind::snapshot);
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    const std::string example = entry::examplePiece(rows);
    entry::appendOnce(text, example, example);
  }
}

std::string searchText(session::Session& s, std::int64_t id, const std::string& headword) {
  std::string text;
  auto& database = s.files.CurrentDB;
  if (s.project.ProjectType == 2) {
    auto links =
        database.OpenRecordset("select distinctrow * from URL where ID_Woerterbuch =" + std::to_string(id),
                               engine::RecordsetKind::snapshot);
    for (; !links.EndOfFile(); links.MoveNext()) {
      const std::string link = entry::linkPiece(links);
      entry::appendOnce(text, link, link);
    }
  } else {
    auto meanings = database.OpenRecordset("BegriffWortbedeutungParam", engine::RecordsetKind::snapshot,
                                           {{"lWortID", id}});
    for (; !meanings.EndOfFile(); meanings.MoveNext()) {
      const std::string meaning = meanings["Wortbedeutung"].textOrEmpty();
      entry::appendOnce(text, meaning, meaning);
      appendExamples(s, meanings["ID_Wortbedeutung"].asText(), text);
    }
  }
  if (text.find("////" + headword) == std::string::npos) text += "////" + headword;
  return text;
}

/// Writes prefix and key of the row that the set stands on. `parentKey` is empty for a main entry.
void writeKey(session::Session& s, engine::Recordset& row, const std::string& parentKey) {
  const auto split = entry::splitHeadword(row["BEGRIFF"].textOrEmpty(), s.project.IgnoreAtSort);
  const bool sub = store::numberOf(row["EBENE"]) == 2;
  row.Edit();
  row.set("PRAEFIXBEGRIFF", split.prefix);
  row.set("SORTBEGRIFF", sub ? parentKey + row["PRIORITAET"].textOrEmpty() + split.rest : split.rest);
  row.Update();
}

std::string keyOf(session::Session& s, std::int64_t id) {
  auto row = entryRow(s, id);
  return row.EndOfFile() ? "" : row["SORTBEGRIFF"].textOrEmpty();
}

void refreshKeys(session::Session& s, engine::Recordset& row, std::int64_t id) {
  const bool sub = store::numberOf(row["EBENE"]) == 2;
  writeKey(s, row, sub ? keyOf(s, store::numberOf(row["ID_Woerterbuch1"])) : "");
  if (sub) return;
  entry::StripArticleFromSortBegriff(s, id);
  const std::string key = keyOf(s, id);
  auto below = s.files.CurrentDB.OpenRecordset("ID_Woerterbuch1Param", engine::RecordsetKind::dynaset,
                                               {{"lWortID", id}});
  for (; !below.EndOfFile(); below.MoveNext())
    if (store::numberOf(below["EBENE"]) == 2) writeKey(s, below, key);
}

}  // namespace

void refreshDerived(session::Session& s, std::int64_t id, Changed changed) {
  auto row = entryRow(s, id);
  if (row.EndOfFile()) return;
  row.Edit();
  row.set("DATETIMESTAMPLASTCHANGE", base::DateTime::now().stamp());
  if (changed != Changed::other) row.set("METASUCHE", searchText(s, id, row["BEGRIFF"].textOrEmpty()));
  row.Update();
  if (changed == Changed::headword) refreshKeys(s, row, id);
}

void refreshFlat(session::Session& s, std::int64_t entry, std::int64_t meaning) {
  store::FillFlatRow(s, entry);
  if (meaning != 0) store::FillFlatMeaningRow(s, meaning);
}

}  // namespace browse
