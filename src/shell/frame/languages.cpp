#include "shell/frame/languages.h"

#include <algorithm>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "shell/session/messages.h"

namespace frame {

void appendLanguages(std::vector<Language>& languages, engine::Recordset rows) {
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    const std::string name = rows["Sprache"].textOrEmpty();
    if (std::ranges::find(languages, name, &Language::name) == languages.end())
      languages.push_back({name, rows["Flagge"].textOrEmpty()});
  }
}

void appendOwnLanguages(session::Session& s, std::vector<Language>& languages) {
  appendLanguages(languages, s.files.CurrentDB.OpenRecordset("select * from Sprachen order by sprache"));
}

bool askForNewLanguage(session::Session& s) {
  const std::string name = base::trim(
      s.desk.boxes.input(session::dialogText(s, dialog::new_language_prompt), session::boxTitle(s)));
  if (name.empty()) return false;
  engine::Recordset rows = s.files.CurrentDB.OpenRecordset("Sprachen");
  rows.AddNew();
  rows.set("Sprache", name);
  rows.Update();
  return true;
}

}  // namespace frame
