// catalogue: the properties or subject fields of a dictionary, and the import of a list of them.

#include <iostream>

#include "cli/application.h"
#include "cli/editing.h"
#include "entry/frmNewKateg.h"

namespace cli {

int runCatalogue(Application& app, const std::vector<std::string>& words) {
  if (words[1] != "properties" && words[1] != "subjects")
    throw UsageError{"There is no catalogue \"" + words[1] + "\"; there are properties and subjects."};
  return withDictionary(app, words[0], [&] {
    entry::frmNewKateg form(app.session, words[1] == "properties");
    required(entry::Form_Load(form));
    if (const auto file = app.arguments.value("--import")) {
      app.console.answerFileDialog({existingFile(app, *file)});
      return entry::AddFile(form);
    }
    for (const auto& row : entry::catalogueRows(form))
      std::cout << row.name << '\t' << row.abbreviation << '\n';
    return true;
  });
}

}  // namespace cli
