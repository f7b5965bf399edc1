// The filter dialog's state, and confirming it.

#include <algorithm>

#include "base/text.h"
#include "browse/frmFilter.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/texts.h"
#include "store/rewriter.h"

namespace browse {

namespace {

constexpr const char* datePattern = "dd.mm.yyyy";
constexpr const char* earliestDate = "01.01.2000";
constexpr const char* noLimit = "---";

std::string allProperties(const session::Session& s) {
  return session::labelText(s, label::all_properties);
}
std::string allSubjects(const session::Session& s) {
  return session::labelText(s, label::all_subjects);
}

bool anyTicked(const frmFilter& form) {
  return std::any_of(form.boxes.begin(), form.boxes.end(), [](const CheckBox& box) { return box.ticked; });
}

std::vector<ListItem> itemsOf(session::Session& s, const char* query, const char* column,
                              const std::vector<ListItem>& before) {
  std::vector<ListItem> items;
  auto rows = s.files.CurrentDB.OpenRecordset(query, engine::RecordsetKind::snapshot);
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    const std::string name = rows[column].textOrEmpty();
    const bool selected = std::any_of(before.begin(), before.end(), [&](const ListItem& item) {
      return item.selected && item.name == name;
    });
    items.push_back({name, selected});
  }
  return items;
}

/// The chosen names in quotes, just as they are: a name that holds an apostrophe makes the clause invalid.
std::string chosen(const std::vector<ListItem>& items, const std::string& all) {
  std::string names;
  for (const ListItem& item : items)
    if (item.selected) names += "'" + item.name + "',";
  if (names.empty()) return all;
  names.pop_back();
  return names;
}

void completeDates(frmFilter& form) {
  const bool from = !base::trim(form.dateFrom).empty(), to = !base::trim(form.dateTo).empty();
  if (from && !to) form.dateTo = base::formatDate(base::DateTime::now(), datePattern);
  if (to && !from) form.dateFrom = earliestDate;
}

/// Adds what `source` yields under the dialog's clauses to the stored selection.
void runSelection(session::Session& s, const std::string& source) {
  auto& database = s.files.CurrentDB;
  auto scratch = database.queryDef("FilterSelektion");
  scratch.setScratchSQL("SELECT distinct woerterbuch.id_woerterbuch from " + source);
  database.Execute("INSERT INTO [Filterselektion1] ([id_woerterbuch]) " +
                   store::BuildMultiSQL(s, scratch.SQL(), session::View::frmFilter));
}

/// Stands for running the same selection a second time: the numbers stand twice then.
void repeatSelection(session::Session& s) {
  s.files.CurrentDB.Execute(
      "INSERT INTO [Filterselektion1] ([id_woerterbuch]) SELECT ID_Woerterbuch FROM Filterselektion1");
}

/// Calls `work` with each further file of the session.
template <class Work>
void eachFurtherFile(session::Session& s, const Work& work) {
  for (int n = 0; n + 1 < s.files.OpenDBCount; ++n) work(s.files.ExtraDB.at(static_cast<std::size_t>(n)));
}

void emptySelection(session::Session& s) {
  constexpr const char* statement = "delete * from Filterselektion1;";
  s.files.CurrentDB.Execute(statement);
  eachFurtherFile(s, [&](engine::Database& file) { file.Execute(statement); });
}

/// The selection clause reads the current dictionary's table, and the current one changes with the row that
/// is shown: each file gets the same numbers.
void spreadSelection(session::Session& s) {
  eachFurtherFile(s, [&](engine::Database& file) {
    file.Execute(
        "INSERT INTO [Filterselektion1] ([id_woerterbuch]) SELECT ID_Woerterbuch FROM Filterselektion1 IN "
        "\"" +
        s.files.CurrentDB.Name() + "\"");
  });
}

void toDefaults(frmFilter& form) {
  auto& filter = form.session.filter;
  for (ListItem& item : form.properties) item.selected = false;
  for (ListItem& item : form.subjects) item.selected = false;
  filter.FilterKategorien = allProperties(form.session);
  filter.FilterSachgebiete = allSubjects(form.session);
  form.meaningLevel = false;
  form.dateFrom.clear();
  form.dateTo.clear();
  form.boxes.fill({});
  form.letter.clear();
  form.list = {};
}

/// The other box of a pair; the box itself where it has none.
std::size_t opposite(std::size_t box) {
  constexpr auto alone = static_cast<std::size_t>(Criterion::inWork);
  if (box == alone) return box;
  const std::size_t inPairs = box < alone ? box : box - 1;
  const std::size_t other = inPairs ^ 1U;
  return other < alone ? other : other + 1;
}

void excludeOpposites(frmFilter& form) {
  for (std::size_t n = 0; n < criterionCount; ++n)
    if (opposite(n) != n) form.boxes[n].enabled = !form.boxes[opposite(n)].ticked;
}

}  // namespace

frmFilter::~frmFilter() {
  session.filter.ApplyFilterToSQL = {};
  session.filter.FilterIsActive = {};
}

bool FilterIsActive(const frmFilter& form) {
  const auto& s = form.session;
  return !form.dateFrom.empty() || !form.dateTo.empty() || s.filter.FilterKategorien != allProperties(s) ||
         s.filter.FilterSachgebiete != allSubjects(s) || form.list.listStart != noLimit || anyTicked(form);
}

std::string ShowFilterStatus(const frmFilter& form) {
  const bool on = FilterIsActive(form) || !form.letter.empty();
  return session::labelText(form.session, on ? label::filter_on : label::filter_off);
}

void attachFilter(frmFilter& form) {
  toDefaults(form);
  auto& filter = form.session.filter;
  filter.ApplyFilterToSQL = [&form](std::string& sql, session::View view) {
    ApplyFilterToSQL(form, sql, view);
  };
  filter.FilterIsActive = [&form] { return FilterIsActive(form); };
}

void FillOrderWKategorie(frmFilter& form) {
  form.properties = itemsOf(form.session, "OrderWKategorie", "Kategorie", form.properties);
}

void FillOrderWSachgebiet(frmFilter& form) {
  form.subjects = itemsOf(form.session, "OrderWSachgebiet", "Sachgebiet", form.subjects);
}

void FillFilterCombos(frmFilter& form) {
  FillOrderWKategorie(form);
  FillOrderWSachgebiet(form);
  form.meaningLevelShown = form.session.project.ProjectType != 2;
  if (!form.meaningLevelShown) form.meaningLevel = false;
}

FilterPanels panelsOf(session::View opener) {
  using session::View;
  struct Row {
    View view;
    FilterPanels panels;
  };
  static constexpr Row rows[] = {{View::frmWoerter, {false, true, true}},
                                 {View::frmPrint, {false, false, true}},
                                 {View::frmStatist, {false, false, false}},
                                 {View::frmStandardReports, {true, false, true}},
                                 {View::frmWordTrainer, {false, false, false}}};
  const auto* found = std::ranges::find(rows, opener, &Row::view);
  if (found == std::end(rows)) throw base::Error(5, "This view opens no filter.");
  return found->panels;
}

void Form_Activate(frmFilter& form) {
  FillFilterCombos(form);
  excludeOpposites(form);
  FilterDeaktivieren(form);
  form.visible = true;
}

void FilterDeaktivieren(frmFilter& form) {
  form.letterEnabled = form.contentEnabled = form.session.files.OpenDBCount < 2;
}

void ResetFilterDialog(frmFilter& form) {
  toDefaults(form);
  form.properties.clear();
  form.subjects.clear();
  form.subEntriesInReports = false;
}

void resetFilter(frmFilter& form) {
  toDefaults(form);
  emptySelection(form.session);
}

void tick(frmFilter& form, Criterion criterion, bool ticked) {
  CheckBox& box = form.box(criterion);
  if (!box.enabled || !form.contentEnabled) return;
  box.ticked = ticked;
  excludeOpposites(form);
}

bool dateLeft(frmFilter& form, std::string& dateBox) {
  const std::string text = base::trim(dateBox);
  if (text.empty()) return true;
  if (text.find_first_not_of("0123456789.") == std::string::npos && base::DateTime::fromText(text))
    return true;
  session::showMessage(form.session, dialog::not_a_date, platform::box::exclamation);
  dateBox.clear();
  return false;
}

void comboChanged(frmFilter& form, std::string& combo, const std::string& text,
                  const std::string& defaultText) {
  const bool digits = text.find_first_not_of("0123456789") == std::string::npos;
  combo = text;
  if (text == defaultText || (digits && text.size() <= 3)) return;
  session::showMessage(form.session, dialog::number_up_to_three_digits, platform::box::exclamation);
  combo = digits ? "" : defaultText;
}

bool confirmFilter(frmFilter& form) {
  auto& s = form.session;
  return session::guard(s, "frmFilter", [&] {
    completeDates(form);
    s.filter.FilterKategorien = chosen(form.properties, allProperties(s));
    s.filter.FilterSachgebiete = chosen(form.subjects, allSubjects(s));
    emptySelection(s);
    const bool byProperty = s.filter.FilterKategorien != allProperties(s);
    const bool bySubject = s.filter.FilterSachgebiete != allSubjects(s);
    const char* entries = form.meaningLevel ? "exportview2" : "exportview1";
    // Each of the two lists selects under the clauses of both: its readers ask for distinct numbers.
    if (byProperty) runSelection(s, entries);
    if (bySubject && byProperty)
      repeatSelection(s);
    else if (bySubject)
      runSelection(s, entries);
    if (!byProperty && !bySubject && FilterIsActive(form)) runSelection(s, "AllWordsOrderByBegriff");
    spreadSelection(s);
    form.visible = false;
  });
}

void refreshAfterFilter(const frmFilter& form, frmWoerter& browser) {
  browser.settings = form.list;
  FormInit(browser);
}

}  // namespace browse
