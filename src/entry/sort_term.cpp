#include "entry/sort_term.h"

#include "base/text.h"
#include "entry/attempt.h"
#include "entry/frmEintrag.h"

namespace entry {
namespace {

std::string sortKeyOf(session::Session& s, std::int64_t lWortID) {
  auto row = s.files.CurrentDB.OpenRecordset("BegriffParam", engine::RecordsetKind::snapshot,
                                             {{"lWortID", lWortID}});
  return row.EndOfFile() ? std::string() : row["SORTBEGRIFF"].textOrEmpty();
}

void writeOwnKey(frmEintrag& form, std::int64_t lWortID) {
  session::Session& s = form.session;
  std::string ParentSort, PriorityText;
  if (s.entry.EntryEditMode == 2 || s.entry.EntryEditMode == 4) {
    ParentSort = sortKeyOf(s, s.entry.SavedMainEntryId);
    PriorityText = form.priorityBox;
  }
  // The record's apostrophes are doubled by now; those of the main entry's key are not.
  const SplitHeadword split = splitHeadword(form.record.Begriff, s.project.IgnoreAtSort);
  s.files.CurrentDB.Execute("UPDATE  woerterbuch SET praefixbegriff = '" + split.prefix +
                            "', sortbegriff = '" + ParentSort + PriorityText + split.rest +
                            "' Where id_woerterbuch = " + std::to_string(lWortID));
}

bool writeKeysOfSubEntries(frmEintrag& form, std::int64_t lWortID) {
  session::Session& s = form.session;
  const std::string ParentSort = sortKeyOf(s, s.entry.SavedMainEntryId);
  auto rows = s.files.CurrentDB.OpenRecordset("ID_Woerterbuch1Param", engine::RecordsetKind::dynaset,
                                              {{"lWortID", lWortID}});
  bool all = true;
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    const engine::Value level = rows["EBENE"];
    if (level.isNull() || level.asInteger() != 2) continue;
    all &= attempt(form, [&] {
      const SplitHeadword split = splitHeadword(rows["BEGRIFF"].textOrEmpty(), s.project.IgnoreAtSort);
      rows.Edit();
      rows.set("PRAEFIXBEGRIFF", split.prefix);
      rows.set("SORTBEGRIFF", ParentSort + rows["PRIORITAET"].textOrEmpty() + split.rest);
      rows.Update();
    });
  }
  return all;
}

}  // namespace

SplitHeadword splitHeadword(std::string_view headword, std::string_view ignoreAtSort) {
  const std::string start = base::left(headword, longestPrefix);
  std::size_t bytes = 0;
  for (const std::string& character : base::characters(start)) {
    if (ignoreAtSort.find(character) == std::string_view::npos) break;
    bytes += character.size();
  }
  return {std::string(headword.substr(0, bytes)), std::string(headword.substr(bytes))};
}

std::vector<std::string> readArticles(session::Session& s) {
  std::vector<std::string> articles;
  auto rows = s.files.CurrentDB.OpenRecordset("select distinct artikel from WArtikel;",
                                              engine::RecordsetKind::snapshot);
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    if (const engine::Value article = rows.value(0); !article.isNull()) articles.push_back(article.asText());
  }
  return articles;
}

void stripArticle(session::Session& s, std::int64_t lWortID, const std::vector<std::string>& articles) {
  if (articles.empty()) return;
  auto row = s.files.CurrentDB.OpenRecordset(
      "select * from Woerterbuch where ebene = 1 and ID_Woerterbuch = " + std::to_string(lWortID));
  if (row.EndOfFile()) return;
  const std::string headword = row["BEGRIFF"].textOrEmpty();
  for (const std::string& article : articles) {
    if (!headword.starts_with(article + " ")) continue;
    row.Edit();
    row.set("SORTBEGRIFF", base::trim(std::string_view(headword).substr(article.size())));
    row.Update();
  }
}

void StripArticleFromSortBegriff(session::Session& s, std::int64_t lWortID) {
  stripArticle(s, lWortID, readArticles(s));
}

bool SortierBegriffEintragen(frmEintrag& form, std::int64_t lWortID) {
  const int mode = form.session.entry.EntryEditMode;
  bool all = attempt(form, [&] { writeOwnKey(form, lWortID); });
  if (form.record.Unterbegriff && (mode == 3 || mode == 4)) {
    all &= attempt(form, [&] { return writeKeysOfSubEntries(form, lWortID); });
  }
  all &= attempt(form, [&] { StripArticleFromSortBegriff(form.session, lWortID); });
  return all;
}

}  // namespace entry
