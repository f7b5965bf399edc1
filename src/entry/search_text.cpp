#include "entry/search_text.h"

#include "entry/frmEintrag.h"
#include "shell/session/routines.h"
#include "store/rows.h"

namespace entry {
namespace {

bool holds(const std::string& text, const std::string& piece) {
  return text.find(piece) != std::string::npos;
}

void appendMeanings(frmEintrag& form, std::string& text) {
  engine::Recordset& meanings = form.Adodc2;
  if (!store::hasRows(meanings)) return;
  const std::string place = meanings.EndOfFile() ? std::string() : meanings.Bookmark();
  for (meanings.MoveFirst(); !meanings.EndOfFile(); meanings.MoveNext()) {
    const std::string meaning = meanings["wortbedeutung"].textOrEmpty();
    appendOnce(text, meaning, meaning);
    auto examples = form.session.files.CurrentDB.OpenRecordset(
        "WortbedBspParam2", engine::RecordsetKind::snapshot, {{"lWortbedID", meanings["id_wortbedeutung"]}});
    for (; !examples.EndOfFile(); examples.MoveNext()) {
      const std::string example = examplePiece(examples);
      appendOnce(text, example, example);
    }
  }
  if (place.empty()) {
    meanings.MoveFirst();
  } else {
    meanings.setBookmark(place);
  }
}

void appendLinks(frmEintrag& form, std::int64_t lWortID, std::string& text) {
  auto links = form.session.files.CurrentDB.OpenRecordset(
      "select distinctrow * from URL where ID_Woerterbuch =" + std::to_string(lWortID),
      engine::RecordsetKind::snapshot);
  for (; !links.EndOfFile(); links.MoveNext()) {
    const std::string link = linkPiece(links);
    appendOnce(text, link, link);
  }
}

}  // namespace

void appendOnce(std::string& text, const std::string& key, const std::string& piece) {
  if (!holds(text, key)) text += "//" + piece;
}

std::string examplePiece(const engine::Recordset& row) {
  return row["beispiel"].textOrEmpty() + "//" + row["beispieluebersetzung"].textOrEmpty();
}

std::string linkPiece(const engine::Recordset& row) {
  return row["URLName"].textOrEmpty() + "//" + row["URL"].textOrEmpty() + "//" +
         row["URLNotiz"].textOrEmpty();
}

void MetaSucheEintragen(frmEintrag& form, std::int64_t lWortID) {
  session::Session& s = form.session;
  std::string text;
  if (s.project.ProjectType == 2) appendLinks(form, lWortID, text);
  if (s.project.ProjectType == 1) appendMeanings(form, text);
  if (!holds(text, "////" + form.record.Begriff)) text += "////" + form.record.Begriff;
  s.files.CurrentDB.Execute("UPDATE  woerterbuch SET metasuche = '" + session::EscapeSQLText(text) +
                            "' Where id_woerterbuch = " + std::to_string(lWortID));
}

}  // namespace entry
