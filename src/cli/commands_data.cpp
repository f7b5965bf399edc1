// Commands that read and write the data as a whole: list, sql, queries, import-text, publish.

#include <filesystem>
#include <iostream>

#include "base/paths.h"
#include "base/text.h"
#include "browse/frmWoerter.h"
#include "cli/application.h"
#include "engine/sql/parser.h"
#include "exchange/frmImportExternalDB.h"
#include "publish/frmPrint.h"
#include "shell/session/errors.h"

namespace cli {

namespace {

using base::Value;

/// A value for one cell of tab-separated output.
std::string cell(const Value& value) {
  if (value.isNull()) return "\\N";
  std::string text = value.kind() == Value::Kind::date ? value.asDate().iso() : value.asText();
  text = base::replaceAll(text, "\\", "\\\\");
  text = base::replaceAll(text, "\t", "\\t");
  text = base::replaceAll(text, "\r", "\\r");
  return base::replaceAll(text, "\n", "\\n");
}

void printRows(engine::Recordset& rows) {
  const auto& fields = rows.Fields();
  for (std::size_t n = 0; n < fields.size(); ++n) std::cout << (n == 0 ? "" : "\t") << cell(fields[n].name);
  std::cout << '\n';
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    for (std::size_t n = 0; n < fields.size(); ++n) std::cout << (n == 0 ? "" : "\t") << cell(rows.value(n));
    std::cout << '\n';
  }
}

engine::Parameters parametersOf(const Arguments& arguments) {
  engine::Parameters parameters;
  for (const Option& option : arguments.options) {
    if (option.name != "--param") continue;
    const auto equals = option.value.find('=');
    if (equals == std::string::npos || equals == 0) throw UsageError{"--param takes NAME=VALUE."};
    parameters.emplace_back(option.value.substr(0, equals), option.value.substr(equals + 1));
  }
  return parameters;
}

bool isStoredQuery(const engine::Database& database, const std::string& name) {
  for (const std::string& query : database.queryNames())
    if (base::equalsIgnoreCase(query, name)) return true;
  return false;
}

bool givesRows(const std::string& statement) {
  const engine::sql::Statement parsed = engine::sql::parse(statement);
  return parsed.kind == engine::sql::StatementKind::select && parsed.select->into.empty();
}

void runStatement(Application& app, const std::string& statement, const engine::Parameters& parameters) {
  auto& database = app.session.files.CurrentDB;
  const auto way = app.arguments.has("--ado") ? engine::Interface::second : engine::Interface::first;
  const std::string text =
      isStoredQuery(database, statement) ? database.queryDef(statement).SQL() : statement;
  if (givesRows(text)) {
    auto rows = database.OpenRecordset(text, engine::RecordsetKind::snapshot, parameters, way);
    printRows(rows);
  } else {
    std::cout << database.Execute(text, parameters, way) << " rows affected\n";
  }
}

std::size_t column(const exchange::TextSource& source, const std::string& name) {
  const auto found = source.find(name);
  if (!found) throw base::Error(3265, "The file has no column \"" + name + "\".");
  return *found;
}

exchange::TextLayout layoutOf(const Arguments& arguments) {
  exchange::TextLayout layout;
  if (const auto separator = arguments.value("--separator"))
    layout.separator = *separator == "\\t" ? "" : *separator;
  if (const auto charset = arguments.value("--charset")) layout.characterSet = *charset;
  layout.header = !arguments.has("--no-header");
  return layout;
}

/// The columns of the command line, each with the field it goes to.
struct ColumnOption {
  const char* option;
  exchange::Target target;
};
constexpr ColumnOption columnOptions[] = {
    {"--headword", exchange::Target::Begriff}, {"--meaning", exchange::Target::Wortbedeutung},
    {"--note", exchange::Target::Bemerkung},   {"--url", exchange::Target::URL},
    {"--url-name", exchange::Target::URLName}, {"--url-note", exchange::Target::URLNotiz}};

void mapAndImport(Application& app, exchange::frmImportExternalDB& form) {
  for (const ColumnOption& c : columnOptions)
    if (const auto name = app.arguments.value(c.option))
      exchange::mapColumn(form, c.target, column(form.source, *name));
  if (!exchange::canImport(form))
    throw base::Error(5, app.session.project.ProjectType == 1
                             ? "A dictionary needs --headword and --meaning."
                             : "A link collection needs --headword and --url.");
  exchange::importRows(form);
}

void takeOptions(const Arguments& arguments, publish::frmPrint& form) {
  form.options.pagePerLetter = arguments.has("--per-letter");
  if (const auto perPage = arguments.number("--per-page", 1))
    form.options.entriesPerPage = static_cast<int>(*perPage);
  for (const std::string& name : base::split(arguments.value("--without").value_or(""), ",")) {
    if (name.empty()) continue;
    bool known = false;
    for (const publish::OptionName& option : publish::optionNames())
      if (name == option.name) {
        form.options.*option.member = false;
        known = true;
      }
    if (!known) throw UsageError{"There is no option \"" + name + "\" to leave out."};
  }
}

}  // namespace

int runList(Application& app, const std::vector<std::string>& words) {
  const auto page = app.arguments.number("--page", 1).value_or(1);
  const auto pageSize = app.arguments.number("--page-size", 1);
  return withDictionary(app, words[0], [&] {
    browse::frmWoerter& browser = *app.frame.browsers.front().form;
    if (pageSize) browser.settings.pageSize = std::to_string(*pageSize);
    browse::FormInit(browser);
    for (long long n = 1; n < page; ++n) {
      if (!browser.forwardEnabled) throw base::Error(9, "The list has only " + std::to_string(n) + " pages.");
      browse::pageForward(browser);
    }
    const bool several = app.session.files.OpenDBCount > 1;
    for (std::size_t n = 0; n < browser.list.size(); ++n) {
      std::cout << browser.list.List2[n] << '\t' << browser.list.List1[n];
      if (several) std::cout << '\t' << browser.list.List4[n];
      std::cout << '\n';
    }
    return true;
  });
}

int runSql(Application& app, const std::vector<std::string>& words) {
  const engine::Parameters parameters = parametersOf(app.arguments);
  return withDictionary(app, words[0], [&] {
    runStatement(app, words[1], parameters);
    return true;
  });
}

int runQueries(Application& app, const std::vector<std::string>& words) {
  return withDictionary(app, words[0], [&] {
    auto& database = app.session.files.CurrentDB;
    for (const std::string& name : database.queryNames())
      std::cout << name << '\t' << cell(database.queryDef(name).SQL()) << '\n';
    return true;
  });
}

int runImportText(Application& app, const std::vector<std::string>& words) {
  if (!app.arguments.has("--headword")) throw UsageError{"import-text needs --headword."};
  const exchange::TextLayout layout = layoutOf(app.arguments);
  return withDictionary(app, words[0], [&] {
    app.console.answerFileDialog({existingFile(app, words[1])});
    app.console.onForm("frmTextImport", [&](platform::Form& shown) {
      auto& form = dynamic_cast<exchange::frmTextImport&>(shown);
      form.layout = layout;
      exchange::accept(form);
    });
    app.console.onForm("frmImportExternalDB", [&](platform::Form& shown) {
      mapAndImport(app, dynamic_cast<exchange::frmImportExternalDB&>(shown));
    });
    return exchange::importTextFormat(app.session);
  });
}

int runPublish(Application& app, const std::vector<std::string>& words) {
  if (words[1] != "html") throw UsageError{"The target \"" + words[1] + "\" is not known; there is html."};
  publish::frmPrint form(app.session);
  takeOptions(app.arguments, form);
  return withDictionary(app, words[0], [&] {
    const publish::PrintOptions asked = form.options;
    publish::applyProjectType(form);
    for (const publish::OptionName& option : publish::optionNames())
      if (!(asked.*option.member)) form.options.*option.member = false;
    app.console.answerFileDialog({std::filesystem::absolute(words[2]).string()});
    if (!publish::publishNow(form)) return false;
    for (const std::string& file : form.writtenFiles) std::cout << file << '\n';
    return true;
  });
}

}  // namespace cli
