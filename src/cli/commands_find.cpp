// page, search, lookup, tree, view: commands that find and show entries.

#include <algorithm>
#include <array>
#include <iostream>
#include <set>

#include "base/text.h"
#include "browse/frmSearch.h"
#include "browse/frmSearchSelectedWord.h"
#include "browse/frmTreeView.h"
#include "browse/frmView.h"
#include "browse/page_html.h"
#include "cli/application.h"
#include "cli/editing.h"

namespace cli {

namespace {

/// A line an entry: number, headword and file.
void printEntry(std::int64_t id, const std::string& headword, const std::string& file) {
  std::cout << id << '\t' << headword << '\t' << file << '\n';
}

void printRow(browse::ResultGrid& grid, std::int64_t row) {
  printEntry(browse::gridNumber(grid, row, "id_woerterbuch"), browse::gridField(grid, row, "begriff"),
             browse::gridField(grid, row, "databasename"));
}

/// The options of the search dialog by name; 0 where a kind of project has no such option.
struct ScopeName {
  const char* name;
  int inDictionary, inLinkCollection;
};
constexpr std::array scopeNames = {
    ScopeName{"term", 1, 1},        ScopeName{"meaning", 2, 0},      ScopeName{"example", 3, 0},
    ScopeName{"translation", 4, 0}, ScopeName{"note", 5, 5},         ScopeName{"text", 6, 6},
    ScopeName{"link-name", 0, 2},   ScopeName{"link-address", 0, 3}, ScopeName{"link-note", 0, 4}};
constexpr std::array<const char*, 3> matchNames{"exact", "contains", "begins"};

const ScopeName& scopeNamed(const std::string& name) {
  const auto* found = std::ranges::find_if(scopeNames, [&](const ScopeName& s) { return name == s.name; });
  if (found == scopeNames.end()) throw UsageError{"--scope does not know " + name + "."};
  return *found;
}

browse::Match matchNamed(const std::string& name) {
  const auto* found = std::ranges::find_if(matchNames, [&](const char* m) { return name == m; });
  if (found == matchNames.end()) throw UsageError{"--mode does not know " + name + "."};
  return static_cast<browse::Match>(found - matchNames.begin());
}

/// The owners of all hits, each once, in the order of the hits.
void printOwners(browse::frmSearch& dialog) {
  std::set<std::string> texts;
  std::set<std::pair<std::int64_t, std::string>> printed;
  for (std::int64_t hit = 0; hit < browse::gridRows(dialog.hits); ++hit) {
    if (!texts.insert(browse::gridCell(dialog.hits, hit, 0)).second) continue;
    required(browse::selectHit(dialog, hit));
    for (std::int64_t row = 0; row < browse::gridRows(dialog.owners); ++row)
      if (printed
              .emplace(browse::gridNumber(dialog.owners, row, "id_woerterbuch"),
                       browse::gridField(dialog.owners, row, "databasename"))
              .second)
        printRow(dialog.owners, row);
  }
}

/// Text for one cell of tab-separated output.
std::string cell(std::string text) {
  for (const auto& [what, by] : {std::pair{"\\", "\\\\"}, {"\t", "\\t"}, {"\r", "\\r"}, {"\n", "\\n"}})
    text = base::replaceAll(text, what, by);
  return text;
}

constexpr std::array<const char*, 3> treeNames{"properties", "subjects", "crossreferences"};

int treeNamed(const std::string& name) {
  const auto* found = std::ranges::find_if(treeNames, [&](const char* tree) { return name == tree; });
  if (found == treeNames.end()) throw UsageError{"There is no tree of " + name + "."};
  return static_cast<int>(found - treeNames.begin());
}

}  // namespace

int runPage(Application& app, const std::vector<std::string>& words) {
  const std::int64_t id = entryNumber(words[1]);
  return withDictionary(app, words[0], [&] {
    auto& session = app.session;
    select(app, id);
    const auto entry = browse::ReadFromDB_Woerterbuch(session, id);
    std::cout << browse::WriteHTMLFile(session, entry, browse::readDisplaySettings(session)).path << '\n';
    return true;
  });
}

int runSearch(Application& app, const std::vector<std::string>& words) {
  const ScopeName& scope = scopeNamed(app.arguments.value("--scope").value_or("text"));
  const auto mode = matchNamed(app.arguments.value("--mode").value_or("contains"));
  return withDictionary(app, words[0], [&] {
    browse::frmSearch dialog(app.session, browse::SearchMode::full);
    if (!browse::Form_Load(dialog)) return false;
    const bool links = app.session.project.ProjectType == 2;
    const int option = links ? scope.inLinkCollection : scope.inDictionary;
    if (option == 0)
      failed(std::string(links ? "A link collection" : "A dictionary") + " has no scope " + scope.name + ".");
    browse::setOption(dialog, option);
    dialog.match = mode;
    browse::TextBox1_Change(dialog, words[1]);
    if (!browse::runSearch(dialog)) return false;
    if (option >= 2 && option <= 4)
      printOwners(dialog);
    else
      for (std::int64_t row = 0; row < browse::gridRows(dialog.hits); ++row) printRow(dialog.hits, row);
    return true;
  });
}

int runLookup(Application& app, const std::vector<std::string>& words) {
  return withDictionary(app, words[0], [&] {
    app.session.search.SelectedWord = words[1];
    browse::frmSearchSelectedWord dialog(app.session);
    if (!browse::Form_Load(dialog)) return false;
    for (std::size_t n = 0; n < dialog.lists.size(); ++n) {
      if (n > 0) std::cout << '\n';
      const browse::WordList& list = dialog.lists[n];
      for (std::size_t row = 0; row < list.size(); ++row)
        printEntry(list.List1[row], list.List2[row], list.List4[row]);
    }
    return true;
  });
}

int runTree(Application& app, const std::vector<std::string>& words) {
  const int kind = treeNamed(words[1]);
  return withDictionary(app, words[0], [&] {
    app.session.shell.ViewKind = kind;
    browse::frmTreeView tree(app.session);
    if (!browse::BuildTree(tree)) return false;
    for (std::size_t line = 0; line < tree.lines.size(); ++line) {
      printEntry(tree.keys[line], tree.lines[line], tree.databases[line]);
      if (!browse::expandLine(tree, static_cast<int>(line))) return false;
    }
    return true;
  });
}

int runView(Application& app, const std::vector<std::string>& words) {
  const long long number = wholeNumber(words[1], "The view's number");
  if (number < 1 || number > browse::tableViewCount) throw UsageError{"The views bear the numbers 1 to 10."};
  return withDictionary(app, words[0], [&] {
    app.session.shell.ViewKind = static_cast<int>(number);
    browse::frmView view(app.session);
    if (!browse::Form_Load(view)) return false;
    auto& grid = view.Adodc1;
    for (std::int64_t row = 0; row < browse::gridRows(grid); ++row) {
      std::cout << browse::gridNumber(grid, row, "ID_Woerterbuch") << '\t'
                << cell(browse::gridField(grid, row, "Begriff")) << '\t'
                << browse::gridField(grid, row, "DatabaseName");
      for (std::size_t column = 1; column < grid.columns.size(); ++column)
        std::cout << '\t' << cell(browse::gridCell(grid, row, column));
      std::cout << '\n';
    }
    return true;
  });
}

}  // namespace cli
