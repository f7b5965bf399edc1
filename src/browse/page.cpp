// The paged word list: opening the recordset of all entries and filling one page from it.

#include <algorithm>

#include "base/text.h"
#include "browse/dictionary_in_use.h"
#include "browse/frmWoerter.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/messages.h"
#include "shell/session/session.h"
#include "shell/session/texts.h"
#include "store/rewriter.h"
#include "store/rows.h"

namespace browse {

namespace {

using base::Value;

constexpr const char* withSubEntries = "   ->";
constexpr const char* inProcess = "_IN PROCESS_ ";

/// The columns that a page reads, looked up once a page.
struct PageFields {
  explicit PageFields(const engine::Recordset& rows)
      : level(rows.field("EBENE")),
        sortKey(rows.field("SORTBEGRIFF")),
        id(rows.field("woerterbuch.id_woerterbuch")),
        mainId(rows.field("ID_Woerterbuch1")),
        database(rows.field("DATABASENAME")),
        headword(rows.field("BEGRIFF")),
        hasSubEntries(rows.field("UNTERBEGRIFF")),
        inWork(rows.field("INBEARBEITUNG")) {}
  std::size_t level, sortKey, id, mainId, database, headword, hasSubEntries, inWork;
};

bool letterMatches(const frmWoerter& form, const Value& sortKey) {
  if (form.LetterSelection[0].empty()) return true;
  const std::string first = base::upper(base::left(sortKey.textOrEmpty(), 1));
  return std::any_of(form.LetterSelection.begin(), form.LetterSelection.end(),
                     [&](const std::string& letter) { return base::equalsIgnoreCase(first, letter); });
}

bool belongsOnList(const frmWoerter& form, const PageFields& f) {
  return store::numberOf(form.rsWoerter.value(f.level)) == 1 &&
         letterMatches(form, form.rsWoerter.value(f.sortKey));
}

std::string displayText(const engine::Recordset& rows, const PageFields& f) {
  std::string text = rows.value(f.headword).textOrEmpty();
  if (store::truth(rows.value(f.hasSubEntries))) text += withSubEntries;
  return store::truth(rows.value(f.inWork)) ? inProcess + text : text;
}

/// Notes which row the page `pageNumber` + 1 begins with.
void recordPageStart(frmWoerter& form, std::int64_t pageNumber, std::int64_t id) {
  const auto at = static_cast<std::size_t>(std::max<std::int64_t>(pageNumber, 0));
  if (form.PageStartId.size() <= at) form.PageStartId.resize(at + 1, 0);
  form.PageStartId[at] = id;
}

void showPageBounds(frmWoerter& form) {
  const std::int64_t first = (form.PageNumber - 1) * form.PageSize - (form.PageNumber - 2);
  const std::int64_t last = first + std::max(form.PageSize - 2, 0);
  form.pageToolTip = session::labelText(form.session, label::page_rows) + "\n" + std::to_string(first) +
                     " -" + std::to_string(last);
}

/// Takes rows from where rsWoerter stands until the page is full or the set ends.
void fillPage(frmWoerter& form) {
  form.list.clear();
  form.RowCounter = 1;
  auto& rows = form.rsWoerter;
  const PageFields f(rows);
  while (!rows.EndOfFile() && form.RowCounter != form.PageSize) {
    if (belongsOnList(form, f)) {
      ++form.RowCounter;
      form.list.insert(form.list.size(), displayText(rows, f), store::numberOf(rows.value(f.id)),
                       store::numberOf(rows.value(f.mainId)), rows.value(f.database).textOrEmpty());
    }
    rows.MoveNext();
  }
  form.forwardEnabled = !rows.EndOfFile();
  showPageBounds(form);
}

/// The dialog's combo can be left empty; 0 would load the whole dictionary.
int pageSizeOf(const ListSettings& settings) {
  const std::int64_t size = settings.pageSize.empty() ? 0 : Value(settings.pageSize).asInteger();
  return size < 1 ? 50 : static_cast<int>(size);
}

/// Goes to the row that the start-position setting names; to the first one where it names none.
void moveToListStart(frmWoerter& form) {
  auto& rows = form.rsWoerter;
  const std::string& start = form.settings.listStart;
  if (start != "---" && !start.empty()) {
    const std::int64_t number = Value(start).asInteger();
    rows.MoveLast();
    const bool inside = number > 0 && number < rows.RecordCount();
    rows.MoveFirst();
    if (inside) rows.Move(number - 1);
    return;
  }
  rows.MoveFirst();
}

bool hasRows(const engine::Recordset& rows) {
  return rows.RecordCount() > 0;
}

std::string storedText(session::Session& session, const char* query) {
  return session.files.CurrentDB.queryDef(query).SQL();
}

engine::Recordset openRewritten(session::Session& session, const char* query) {
  std::string sql = storedText(session, query);
  return session.files.CurrentDB.OpenRecordset(store::BuildMultiSQL(session, sql, session::View::frmWoerter));
}

/// "Title - source language[ - letter]".
std::string windowCaption(frmWoerter& form) {
  auto settings = form.session.files.CurrentDB.OpenRecordset("Sprache", engine::RecordsetKind::snapshot);
  std::string caption =
      settings["Kurzbeschreibung"].textOrEmpty() + " - " + settings["UebersetzungVon"].textOrEmpty();
  if (!form.LetterSelection[0].empty()) caption += " - " + form.LetterSelection[0];
  return caption;
}

}  // namespace

void WordList::clear() {
  List1.clear();
  List2.clear();
  List3.clear();
  List4.clear();
  selected = -1;
}

void WordList::insert(std::size_t at, std::string text, std::int64_t id, std::int64_t mainId,
                      std::string databaseName) {
  const auto offset = static_cast<std::ptrdiff_t>(at);
  List2.insert(List2.begin() + offset, std::move(text));
  List1.insert(List1.begin() + offset, id);
  List3.insert(List3.begin() + offset, mainId);
  List4.insert(List4.begin() + offset, std::move(databaseName));
}

void WordList::erase(std::size_t at) {
  const auto offset = static_cast<std::ptrdiff_t>(at);
  List2.erase(List2.begin() + offset);
  List1.erase(List1.begin() + offset);
  List3.erase(List3.begin() + offset);
  List4.erase(List4.begin() + offset);
  if (selected >= static_cast<int>(size())) selected = static_cast<int>(size()) - 1;
}

bool onList(const frmWoerter& form) {
  return belongsOnList(form, PageFields(form.rsWoerter));
}

void LoadAllWords(frmWoerter& form) {
  session::ShowStatus(form.session, session::dialogText(form.session, dialog::loading_entries), true);
  form.rsWoerter = openRewritten(form.session, "AllWordsOrderByBegriff");
  session::ShowStatus(form.session, "", false);
}

void showCount(frmWoerter& form) {
  if (!hasRows(form.rsWoerter)) return;
  form.rsWoerter.MoveLast();
  form.countLabel = session::labelText(form.session, label::entry_count) + " " +
                    std::to_string(form.rsWoerter.RecordCount());
}

void SelectByLetter(frmWoerter& form) {
  form.rsWoerter = openRewritten(
      form.session, form.session.shell.dateOrder ? "AllWordsOrderByDateTimeStamp" : "AllWordsOrderByBegriff");
  showCount(form);
  form.session.shell.pendingRefresh = false;
}

void BuildWordTreeNew(frmWoerter& form) {
  if (form.TargetPosition > 0) {
    form.rsWoerter.FindFirst(entryCondition(form.session, form.TargetMainId, form.TargetDatabase));
    form.TargetPosition = 0;
  } else {
    moveToListStart(form);
    form.PageNumber = 1;
    form.backEnabled = false;
    recordPageStart(form, 0, store::numberOf(form.rsWoerter["woerterbuch.id_woerterbuch"]));
  }
  fillPage(form);
}

void pageForward(frmWoerter& form) {
  auto& rows = form.rsWoerter;
  if (rows.EndOfFile()) {
    form.forwardEnabled = false;
    return;
  }
  recordPageStart(form, form.PageNumber, store::numberOf(rows["woerterbuch.id_woerterbuch"]));
  ++form.PageNumber;
  fillPage(form);
  form.backEnabled = form.PageNumber > 1;
}

void pageBack(frmWoerter& form) {
  if (form.PageNumber <= 1) return;
  form.forwardEnabled = true;
  --form.PageNumber;
  const auto at = static_cast<std::size_t>(form.PageNumber - 1);
  const std::int64_t id = at < form.PageStartId.size() ? form.PageStartId[at] : 0;
  auto& rows = form.rsWoerter;
  if (id != 0) rows.FindFirst("woerterbuch.ID_Woerterbuch = " + std::to_string(id));
  if (id == 0 || rows.NoMatch()) {
    // A page that was jumped over has no recorded start: count it off from the beginning.
    rows.MoveFirst();
    rows.Move((form.PageNumber - 1) * std::max(form.PageSize - 1, 1));
  }
  if (!rows.EndOfFile()) useDictionary(form.session, rows["DATABASENAME"].textOrEmpty());
  fillPage(form);
  form.backEnabled = form.PageNumber > 1;
}

void FormInit(frmWoerter& form) {
  form.PageSize = pageSizeOf(form.settings);
  Timer1(form);
  form.letters = GenerateAlphabetCommandCaption(form);
  form.KategorieCombo = FillKategorieCombo(form);
  form.SachgebietCombo = FillSachgebietCombo(form);
  clearDisplay(form);
  form.list.clear();
  form.PageStartId.clear();
  SelectByLetter(form);
  if (!hasRows(form.rsWoerter)) {
    VisibleEntryDeleteAll(form);
    return;
  }
  BuildWordTreeNew(form);
  if (form.list.size() > 0) selectRow(form, 0);
}

void Timer1(frmWoerter& form) {
  form.caption = windowCaption(form);
}

namespace {

std::vector<std::string> comboNames(frmWoerter& form, const char* query, const char* column) {
  std::vector<std::string> names;
  auto rows = form.session.files.CurrentDB.OpenRecordset(query, engine::RecordsetKind::snapshot);
  const std::size_t name = rows.EndOfFile() ? 0 : rows.field(column);
  for (; !rows.EndOfFile(); rows.MoveNext()) names.push_back(rows.value(name).textOrEmpty());
  return names;
}

}  // namespace

std::vector<std::string> FillKategorieCombo(frmWoerter& form) {
  return comboNames(form, "OrderWKategorie", "Kategorie");
}
std::vector<std::string> FillSachgebietCombo(frmWoerter& form) {
  return comboNames(form, "OrderWSachgebiet", "Sachgebiet");
}

}  // namespace browse
