// Commands on recent work: the histories, and deletion by date.

#include <algorithm>
#include <iostream>

#include "base/datetime.h"
#include "cli/application.h"
#include "cli/editing.h"
#include "entry/frmDeleteEntries.h"
#include "entry/frmHistory.h"

namespace cli {

namespace {

/// A date of an option. A day alone is its first second, or its last.
base::DateTime dateOption(Application& app, const char* option, bool lastSecond) {
  const auto text = app.arguments.value(option);
  if (!text) throw UsageError{std::string(option) + " is needed."};
  const auto date = base::DateTime::fromText(*text);
  if (!date) throw UsageError{"\"" + *text + "\" is no date."};
  const bool dayAlone = text->find(':') == std::string::npos;
  return dayAlone && lastSecond ? base::DateTime{date->plusDays(1).seconds - 1} : *date;
}

}  // namespace

int runHistory(Application& app, const std::vector<std::string>& words) {
  if (words[1] != "new" && words[1] != "changed")
    throw UsageError{"There is no history \"" + words[1] + "\"; there are new and changed."};
  const bool isNew = words[1] == "new";
  const auto days = app.arguments.number("--days", 1);
  return withDictionary(app, words[0], [&] {
    entry::frmHistory form(app.session, isNew);
    required(entry::Form_Load(form));
    if (days) required(entry::showLastDays(form, static_cast<int>(std::min(*days, 20000LL))));
    for (auto& rows = form.Adodc1; !rows.EndOfFile(); rows.MoveNext()) {
      const base::Value date = rows[isNew ? "DateTimeStamp" : "DateLastChange"];
      std::cout << rows["Begriff"].textOrEmpty() << '\t' << rows["ID_Woerterbuch"].asText() << '\t'
                << (date.isNull() ? "" : date.asDate().stamp()) << '\n';
    }
    return true;
  });
}

int runDeleteByDate(Application& app, const std::vector<std::string>& words) {
  const base::DateTime from = dateOption(app, "--from", false), to = dateOption(app, "--to", true);
  return withDictionary(app, words[0], [&] {
    entry::frmDeleteEntries form(app.session);
    entry::Form_Load(form);
    form.from = from;
    form.to = to;
    form.byLastChange = app.arguments.has("--changed");
    required(entry::Command4(form));
    for (; !form.DataGrid1.EndOfFile(); form.DataGrid1.MoveNext())
      std::cout << form.DataGrid1["begriff"].textOrEmpty() << '\n';
    form.DataGrid1 = {};
    return entry::Command1(form);
  });
}

}  // namespace cli
