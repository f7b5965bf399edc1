// page, search, lookup, tree, view: commands that find and show entries.

#include <iostream>

#include "browse/page_html.h"
#include "cli/application.h"
#include "cli/editing.h"

namespace cli {

int runPage(Application& app, const std::vector<std::string>& words) {
  const std::int64_t id = entryNumber(words[1]);
  return withDictionary(app, words[0], [&] {
    auto& session = app.session;
    select(app, id);
    const auto entry = browse::ReadFromDB_Woerterbuch(session, id);
    std::cout << browse::WriteHTMLFile(session, entry, browse::readDisplaySettings(session)) << '\n';
    return true;
  });
}

}  // namespace cli
