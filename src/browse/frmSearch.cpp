#include "browse/frmSearch.h"

#include "base/text.h"
#include "browse/dictionary_in_use.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/texts.h"

namespace browse {

namespace {

constexpr auto view = session::View::frmSearch;
constexpr const char* usualFont = "Arial Unicode MS";

/// The scopes of the six options, in a dictionary and in a link collection.
constexpr std::array<SearchScope, 6> dictionaryScopes{SearchScope::term,    SearchScope::meaning,
                                                      SearchScope::example, SearchScope::translation,
                                                      SearchScope::note,    SearchScope::searchText};
constexpr std::array<SearchScope, 6> linkScopes{SearchScope::term,        SearchScope::linkName,
                                                SearchScope::linkAddress, SearchScope::linkNote,
                                                SearchScope::note,        SearchScope::searchText};

bool isLinkCollection(const frmSearch& form) {
  return form.session.project.ProjectType == 2;
}
bool isOwnedScope(const frmSearch& form) {
  return form.option >= 2 && form.option <= 4;
}

std::string captionOf(const session::Session& s, int key) {
  return base::replaceAll(session::labelText(s, key), ":", "");
}

std::array<std::string, 6> optionCaptions(const frmSearch& form) {
  static constexpr std::array<int, 6> dictionary{label::scope_headword, label::field_meaning,
                                                 label::field_example,  label::field_translation,
                                                 label::field_note,     label::scope_search_text};
  static constexpr std::array<int, 6> links{label::scope_headword, label::link_name,
                                            label::link_address,   label::link_note,
                                            label::field_note,     label::scope_search_text};
  std::array<std::string, 6> captions;
  for (std::size_t n = 0; n < captions.size(); ++n)
    captions[n] = captionOf(form.session, isLinkCollection(form) ? links[n] : dictionary[n]);
  return captions;
}

/// The font of the texts that options 2 to 4 search.
std::string fontOf(const frmSearch& form) {
  if (isLinkCollection(form)) return usualFont;
  return form.option == 3 ? form.session.project.FontFrom : form.session.project.FontTo;
}

/// The dictionary chosen in the frame's box becomes the one that is searched.
void useChosenDictionary(session::Session& s) {
  const auto& files = s.files;
  if (files.selectedDictionary < 0) return;
  const auto chosen = static_cast<std::size_t>(files.selectedDictionary);
  if (chosen < files.dictionaryList.size()) useDictionary(s, std::string(files.dictionaryList[chosen]));
}

void forgetHit(frmSearch& form) {
  form.owners = {};
  form.hierarchy = {};
  form.target = {};
  form.jumpEnabled = false;
}

void narrow(frmSearch& form) {
  forgetHit(form);
  bindGrid(form.session, form.hits,
           searchStatement(SearchScope::term, Match::begins, textMark) + " order by begriff", view,
           form.searchText);
  DataGrid1Design(form);
  form.hits.visible = true;
  form.statusLabel = form.hits.complete ? std::to_string(form.hits.known) : "";
}

/// The first entry with this headword in the current dictionary: of several the one that comes first.
JumpTarget resolve(session::Session& s, const std::string& headword) {
  auto row = s.files.CurrentDB.OpenRecordset(
      "Select * from Woerterbuch  where begriff =" + quotedText(headword) +
          (s.files.OpenDBCount > 1 ? " and DatabaseName = " + quotedText(s.files.CurrentDBPath) : ""),
      engine::RecordsetKind::snapshot);
  if (row.EndOfFile()) return {};
  const auto number = [&](const char* field) { return row[field].isNull() ? 0 : row[field].asInteger(); };
  return {number("ID_Woerterbuch"), number("ID_Woerterbuch1"), number("Ebene"),
          row["DatabaseName"].textOrEmpty()};
}

/// Makes the entry with this headword the target and shows what it belongs to.
void takeEntry(frmSearch& form, const std::string& headword, const std::string& databaseName) {
  useDictionary(form.session, databaseName);
  form.target = resolve(form.session, headword);
  setJump(form.session, form.target);
  form.jumpEnabled = form.target.ID_Woerterbuch != 0;
  HierarchischeObjekteAnzeigen(form.session, form.hierarchy, form.target.ID_Woerterbuch,
                               form.target.ID_Woerterbuch1, view);
}

void showOwners(frmSearch& form, std::int64_t row) {
  forgetHit(form);
  bindGrid(form.session, form.owners, ownerStatement(scopeOf(form)), view,
           base::replaceAll(gridCell(form.hits, row, 0), "\"", "\"\""));
  DataGrid2Design(form);
  form.owners.visible = true;
  form.owners.label =
      session::labelText(form.session, label::search_owner) + " " + gridField(form.owners, 0, "databasename");
}

JumpTarget targetIn(ResultGrid& grid, std::int64_t row) {
  const std::int64_t id = gridNumber(grid, row, "id_woerterbuch");
  const std::int64_t main = gridNumber(grid, row, "id_woerterbuch1");
  return {id, main, id == main ? 1 : 2, gridField(grid, row, "databasename")};
}

void goTo(frmSearch& form, const JumpTarget& target) {
  setJump(form.session, target);
  form.session.search.SearchTerm = base::trim(form.searchText);
  if (form.pressCommand6) form.pressCommand6();
}

}  // namespace

bool maySearch(session::Session& s) {
  if (!s.filter.FilterIsActive || !s.filter.FilterIsActive()) return true;
  session::showMessage(s, dialog::filter_is_active, platform::box::exclamation);
  return false;
}

SearchScope scopeOf(const frmSearch& form) {
  const auto& scopes = isLinkCollection(form) ? linkScopes : dictionaryScopes;
  return form.mode == SearchMode::goTo ? SearchScope::term
                                       : scopes.at(static_cast<std::size_t>(form.option - 1));
}

bool Form_Load(frmSearch& form) {
  auto& s = form.session;
  return session::guard(s, form.formName, [&] {
    if (!maySearch(s)) return false;
    const bool full = form.mode == SearchMode::full;
    form.caption = session::labelText(s, label::program_name) + " " +
                   session::labelText(s, full ? label::search_title : label::goto_title);
    form.fonts = s.desk.outside.fontNames();
    form.optionCaptions = optionCaptions(form);
    form.matchCaptions = {session::labelText(s, label::match_exact),
                          session::labelText(s, label::match_contains),
                          session::labelText(s, label::match_begins)};
    form.choicesShown = full;
    form.searchFont = s.project.FontFrom;
    setOption(form, 6);
    forgetHit(form);
    form.hits = {};
    form.hits.label = session::labelText(s, label::search_hits);
    form.visible = true;
    if (!full) {
      form.fontsShown = false;
      narrow(form);
    }
    return true;
  });
}

void setOption(frmSearch& form, int option) {
  if (option < 1 || option > 6) return;
  form.option = option;
  form.fontsShown = option == 6 || isOwnedScope(form);
  form.matchEnabled = option != 6;
  if (option == 6) form.match = Match::contains;
  if (isOwnedScope(form)) form.searchFont = fontOf(form);
}

bool TextBox1_Change(frmSearch& form, const std::string& text) {
  form.searchText = text;
  if (form.mode != SearchMode::goTo) return true;
  return session::guard(form.session, form.formName, [&] { narrow(form); });
}

bool showCount(frmSearch& form) {
  return session::guard(form.session, form.formName,
                        [&] { form.statusLabel = std::to_string(gridRows(form.hits)); });
}

bool runSearch(frmSearch& form) {
  auto& s = form.session;
  if (!form.searchEnabled) return true;
  if (form.mode == SearchMode::goTo) return TextBox1_Change(form, form.searchText);
  return session::guard(s, form.formName, [&] {
    form.statusLabel.clear();
    forgetHit(form);
    form.hits.visible = false;
    useChosenDictionary(s);
    {
      const session::Busy busy(s, session::labelText(s, label::searching));
      bindGrid(s, form.hits, searchStatement(scopeOf(form), form.match, textMark), view, form.searchText);
    }
    DataGrid1Design(form);
    form.hits.visible = hasRow(form.hits, 0);
    if (!form.hits.visible) session::showMessage(s, dialog::nothing_found, platform::box::information);
  });
}

bool selectHit(frmSearch& form, std::int64_t row) {
  return session::guard(form.session, form.formName, [&] {
    if (!hasRow(form.hits, row)) return;
    form.hits.selected = row;
    if (form.mode == SearchMode::full && isOwnedScope(form)) {
      showOwners(form, row);
      return;
    }
    forgetHit(form);
    takeEntry(form, gridField(form.hits, row, "begriff"), gridField(form.hits, row, "databasename"));
  });
}

bool selectOwner(frmSearch& form, std::int64_t row) {
  return session::guard(form.session, form.formName, [&] {
    if (!hasRow(form.owners, row)) return;
    form.owners.selected = row;
    takeEntry(form, gridField(form.owners, row, "begriff"), gridField(form.owners, row, "databasename"));
  });
}

bool showRelated(frmSearch& form, ResultGrid& grid, std::int64_t row) {
  return session::guard(form.session, form.formName, [&] {
    if (!hasRow(grid, row)) return;
    grid.selected = row;
    goTo(form, targetIn(grid, row));
  });
}

bool jump(frmSearch& form) {
  if (!form.jumpEnabled) return true;
  return session::guard(form.session, form.formName, [&] {
    closeSearch(form);
    goTo(form, form.target);
  });
}

bool jumpToRelated(frmSearch& form, ResultGrid& grid, std::int64_t row) {
  return session::guard(form.session, form.formName, [&] {
    if (!hasRow(grid, row)) return;
    const JumpTarget target = targetIn(grid, row);
    closeSearch(form);
    goTo(form, target);
  });
}

void closeSearch(frmSearch& form) {
  form.visible = false;
}

}  // namespace browse
