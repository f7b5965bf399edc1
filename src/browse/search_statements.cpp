// The statements of the dictionary search and the columns of its grids.

#include "base/text.h"
#include "browse/frmSearch.h"
#include "catalogue/label.h"
#include "shell/session/texts.h"

namespace browse {

namespace {

/// How one scope is searched and who owns its hits.
struct ScopeText {
  const char* columns;  ///< and the table
  const char* column;   ///< that is compared
  const char* owners;   ///< joined tables of the owners' statement
  std::vector<GridColumn> (*grid)(const session::Session& s);
};

constexpr const char* entryColumns = "id_woerterbuch,id_woerterbuch1,begriff,databasename from Woerterbuch";
constexpr const char* ofMeanings =
    "woerterbuch, Wortbedeutung where woerterbuch.id_woerterbuch = wortbedeutung.id_woerterbuch";
constexpr const char* ofExamples =
    "woerterbuch, wortbedeutung,wortbedbsp  where woerterbuch.id_woerterbuch = wortbedeutung.id_woerterbuch"
    "  and wortbedeutung.id_wortbedeutung = wortbedbsp.id_wortbedeutung ";
constexpr const char* ofLinks = "woerterbuch, url where woerterbuch.id_woerterbuch = url.id_woerterbuch";

std::vector<GridColumn> entryGrid(const session::Session& s) {
  std::vector<GridColumn> columns{{"begriff", session::labelText(s, label::headword)}};
  if (s.files.OpenDBCount > 1)
    columns.push_back({"databasename", session::labelText(s, label::the_dictionary)});
  return columns;
}
std::vector<GridColumn> meaningGrid(const session::Session& s) {
  return {{"wortbedeutung", session::labelText(s, label::meaning)}};
}
std::vector<GridColumn> exampleGrid(const session::Session& s) {
  return {{"beispiel", session::labelText(s, label::example)},
          {"beispieluebersetzung", session::labelText(s, label::example_translation)}};
}
std::vector<GridColumn> translationGrid(const session::Session& s) {
  return {exampleGrid(s)[1], exampleGrid(s)[0]};
}
std::vector<GridColumn> linkNameGrid(const session::Session& s) {
  return {{"urlname", session::labelText(s, label::link_name)},
          {"url", session::labelText(s, label::link_address)}};
}
std::vector<GridColumn> linkAddressGrid(const session::Session& s) {
  return {linkNameGrid(s)[1], linkNameGrid(s)[0]};
}
std::vector<GridColumn> linkNoteGrid(const session::Session& s) {
  return {{"urlnotiz", session::labelText(s, label::link_note)}, linkNameGrid(s)[0]};
}

/// In the order of SearchScope.
constexpr ScopeText scopes[] = {
    {entryColumns, "begriff", nullptr, entryGrid},
    {"* from Wortbedeutung", "Wortbedeutung", ofMeanings, meaningGrid},
    {"ID_URL, ID_Woerterbuch, URLName,URL from URL", "URLName", ofLinks, linkNameGrid},
    {"* from Wortbedbsp", "beispiel", ofExamples, exampleGrid},
    {"ID_URL, ID_Woerterbuch, URL,URLName from URL", "URL", ofLinks, linkAddressGrid},
    {"id_wortbedbsp,id_wortbedeutung,beispieluebersetzung, beispiel from Wortbedbsp", "beispieluebersetzung",
     ofExamples, translationGrid},
    {"ID_URL, ID_Woerterbuch, URLNotiz,URLName from URL", "URLNotiz", ofLinks, linkNoteGrid},
    {entryColumns, "bemerkung", nullptr, entryGrid},
    {entryColumns, "metasuche", nullptr, entryGrid}};

const ScopeText& textOf(SearchScope scope) {
  return scopes[static_cast<std::size_t>(scope)];
}

}  // namespace

std::string searchStatement(SearchScope scope, Match match, const std::string& text) {
  const ScopeText& searched = textOf(scope);
  const std::string column = searched.column;
  if (match == Match::exact) {
    // The exact search of all texts has never asked for the main entry's number.
    const std::string columns = scope == SearchScope::searchText
                                    ? "id_woerterbuch,begriff,databasename from Woerterbuch"
                                    : searched.columns;
    return "Select " + columns + " where " + column + " = \"" + text + "\"";
  }
  // Three of the statements have always had a second blank; the scratch query shows it.
  const bool wide =
      match == Match::contains &&
      (scope == SearchScope::term || scope == SearchScope::meaning || scope == SearchScope::example);
  const std::string pattern = (match == Match::contains ? "\"%" : "\"") + text + "%\"";
  std::string sql =
      std::string(wide ? "Select  " : "Select ") + searched.columns + " where " + column + " like " + pattern;
  if (scope == SearchScope::searchText && match == Match::contains) sql += " Or bemerkung Like " + pattern;
  return sql;
}

std::string ownerStatement(SearchScope scope) {
  const ScopeText& searched = textOf(scope);
  const std::string text = quotedText(textMark);
  if (searched.owners == nullptr) return std::string("Select ") + entryColumns + " where begriff = " + text;
  return std::string(
             "Select woerterbuch.id_woerterbuch,id_woerterbuch1,begriff,woerterbuch.databasename from ") +
         searched.owners + " and " + searched.column + " = " + text;
}

void DataGrid1Design(frmSearch& form) {
  form.hits.columns = textOf(scopeOf(form)).grid(form.session);
}

void DataGrid2Design(frmSearch& form) {
  form.owners.columns = entryGrid(form.session);
}

}  // namespace browse
