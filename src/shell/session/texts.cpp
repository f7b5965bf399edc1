#include "shell/session/texts.h"

#include <cstddef>
#include <string_view>

namespace session {
namespace {

const std::string& at(const std::vector<std::string>& texts, int key, std::string_view array) {
  if (key < 0 || static_cast<std::size_t>(key) >= texts.size())
    throw base::Error(engine::errors::outOfRange,
                      "The text catalogue has no " + std::string(array) + " " + std::to_string(key) + ".");
  return texts[static_cast<std::size_t>(key)];
}

engine::Database openSystemDatabase(Session& s) {
  return s.files.Workspace->OpenDatabase(s.files.paths.real(s.folders.SystemDBPath).string());
}

/// Rows of a catalogue statement; the last column is the text.
template <class Add>
void readRows(engine::Database& db, const std::string& statement, Add add) {
  engine::Recordset rows = db.OpenRecordset(statement);
  if (rows.RecordCount() == 0) return;
  const std::size_t text = rows.Fields().size() - 1;
  for (rows.MoveFirst(); !rows.EndOfFile(); rows.MoveNext()) add(rows, rows.value(text).textOrEmpty());
}

std::vector<std::string> readTexts(engine::Database& db, const std::string& statement) {
  std::vector<std::string> texts;
  readRows(db, statement,
           [&](const engine::Recordset&, std::string text) { texts.push_back(std::move(text)); });
  return texts;
}

void readCaptions(Session& s, engine::Database& db, const std::string& column) {
  Texts& texts = s.texts;
  texts.MenuTxt =
      readTexts(db, "SELECT DISTINCTROW MenuTxt." + column + " FROM MenuTxt ORDER BY MenuTxt.ID;");
  texts.labelTxt =
      readTexts(db, "SELECT DISTINCTROW labelTxt." + column + " FROM labelTxt ORDER BY labelTxt.ID;");
  texts.DialogTxt.clear();
  readRows(db,
           "SELECT DISTINCTROW DialogTxt.ID, DialogTxt." + column + " FROM DialogTxt ORDER BY DialogTxt.ID;",
           [&](const engine::Recordset& row, std::string text) {
             texts.DialogTxt.emplace_back(row.value(0).asInteger(), std::move(text));
           });
}

void readPrintTexts(Session& s, engine::Database& db) {
  s.texts.PrintTxt = readTexts(
      db, "SELECT DISTINCTROW Printtxt.ID, PrintTxt.DrucktextDtsch FROM PrintTxt ORDER BY Printtxt.ID;");
}

}  // namespace

const std::string& menuText(const Session& s, int key) {
  return at(s.texts.MenuTxt, key, "MenuTxt");
}
const std::string& labelText(const Session& s, int key) {
  return at(s.texts.labelTxt, key, "labelTxt");
}
const std::string& printText(const Session& s, int key) {
  return at(s.texts.PrintTxt, key, "PrintTxt");
}

const std::string& dialogText(const Session& s, int key) {
  if (key < 0 || static_cast<std::size_t>(key) >= s.texts.DialogTxt.size())
    throw base::Error(engine::errors::outOfRange,
                      "The text catalogue has no DialogTxt " + std::to_string(key) + ".");
  return s.texts.DialogTxt[static_cast<std::size_t>(key)].second;
}

void LoadTextCatalogue(Session& s) {
  s.texts = Texts{};
  engine::Database db = openSystemDatabase(s);
  readCaptions(s, db, "BeschriftungDtsch");
  readPrintTexts(s, db);
}

void TexteEinlesen(Session& s, int language) {
  s.texts.MenuTxt.clear();
  s.texts.labelTxt.clear();
  s.texts.DialogTxt.clear();
  if (language != 1 && language != 2) return;
  engine::Database db = openSystemDatabase(s);
  s.texts.UILanguage = language;
  readCaptions(s, db, language == 1 ? "BeschriftungDtsch" : "BeschriftungEngl");
}

void DrucktexteEinlesen(Session& s) {
  engine::Database db = openSystemDatabase(s);
  readPrintTexts(s, db);
}

}  // namespace session
