// The filter as clauses behind a statement.

#include <algorithm>

#include "base/text.h"
#include "browse/frmFilter.h"
#include "catalogue/label.h"
#include "shell/session/texts.h"

namespace browse {

namespace {

using session::View;

/// How a clause begins in a statement without and with a condition, and how it goes on; "%1" and "%2"
/// stand for values.
struct Clause {
  const char *where, *further, *rest;
};

enum Row : std::size_t {
  entryProperties,
  entrySubjects,
  meaningProperties,
  meaningSubjects,
  firstCriterion,
  dateRange = firstCriterion + criterionCount,
  searchText,
  letters,
  selectionNamed,
  selectionUnnamed,
  mainEntriesOnly,
  notYetLearned,
  wrongLastTime,
  neverTrained
};

constexpr Clause clauses[] = {
    {" WHERE kategorie", " and kategorie", " in (%1)"},
    {" WHERE sachgebiet", " and sachgebiet", " in (%1)"},
    {" WHERE exportview2.wkategorie.kategorie", " and exportview2.wkategorie.kategorie", " in (%1)"},
    {" WHERE exportview2.wsachgebiet.sachgebiet", " and exportview2.wsachgebiet.sachgebiet", " in (%1)"},

    // The criteria, in the order of their boxes.
    {" WHERE ( exists", " and  ( exists",
     " (Select ID_Woerterbuch from Woerterbuch as Q4 WHERE bemerkung is not null and bemerkung <> ''"
     " and Q4.id_woerterbuch = woerterbuch.id_woerterbuch))"},
    {" WHERE ( not exists", " and  ( not exists",
     " (Select ID_Woerterbuch from Woerterbuch as Q4 WHERE bemerkung is not null and bemerkung <> ''"
     " and Q4.id_woerterbuch = Woerterbuch.ID_Woerterbuch))"},
    {" WHERE ( exists", " and  ( exists",
     " (Select ID_Woerterbuch from Woerterbuch as Q1 WHERE InBearbeitung <> 0"
     " and Q1.id_woerterbuch = woerterbuch.id_woerterbuch))"},
    {" WHERE ( exists", " and  ( exists",
     " (Select ID_Woerterbuch from Woerterbuch as Q2 WHERE klang is not null and klang <> ''"
     " and Q2.id_woerterbuch = woerterbuch.id_woerterbuch))"},
    {" WHERE ( not exists", " and ( not exists",
     " (Select ID_Woerterbuch from Woerterbuch as Q2 WHERE klang is not null and klang <> ''"
     " and Q2.id_woerterbuch = woerterbuch.id_woerterbuch))"},
    {" WHERE ( exists", " and  ( exists",
     " (Select ID_Woerterbuch from Woerterbuch as Q3 WHERE bild is not null and bild <> ''"
     " and Q3.id_woerterbuch = woerterbuch.id_woerterbuch))"},
    {" WHERE ( not exists", " and  ( not exists",
     " (Select ID_Woerterbuch from Woerterbuch as Q3 WHERE bild is not null and bild <> ''"
     " and Q3.id_woerterbuch = woerterbuch.id_woerterbuch))"},
    {" WHERE ( exists", " and ( exists",
     " (Select ID_Woerterbuch from Attachment WHERE woerterbuch.id_woerterbuch = "
     "attachment.id_woerterbuch))"},
    {" WHERE ( not exists", " and ( not exists",
     " (Select ID_Woerterbuch from Attachment WHERE woerterbuch.id_woerterbuch = "
     "attachment.id_woerterbuch))"},
    {" WHERE ( exists", " and ( exists",
     " (Select ID_Woerterbuch from URL WHERE woerterbuch.id_woerterbuch = URL.id_woerterbuch))"},
    {" WHERE ( not exists", " and ( not exists",
     " (Select ID_Woerterbuch from URL WHERE woerterbuch.id_woerterbuch = URL.id_woerterbuch))"},
    {" WHERE ( exists", " and ( exists",
     " (Select ID_Woerterbuch from Querverweis WHERE woerterbuch.id_woerterbuch ="
     " Querverweis.id_woerterbuch))"},
    {" WHERE ( not exists", " and ( not exists",
     " (Select ID_Woerterbuch from Querverweis WHERE woerterbuch.id_woerterbuch ="
     " Querverweis.id_woerterbuch))"},

    {" WHERE (DateValue", " and (DateValue",
     "([datetimestamp]) >= datevalue('%1') and DateValue([datetimestamp]) <= datevalue('%2'))"},
    {" WHERE", " and", " woerterbuch.SortBegriff like \"%1*\""},
    {" WHERE", " and", " SortBegriff like \"%1*\""},
    {" WHERE  woerterbuch.id_woerterbuch1", " and  woerterbuch.id_woerterbuch1",
     " in (Select distinct ID_Woerterbuch from FilterSelektion1 as FS where FS.id_woerterbuch ="
     " woerterbuch.id_woerterbuch1)"},
    {" WHERE  id_woerterbuch1", " and id_woerterbuch1",
     " in (Select distinct ID_Woerterbuch from FilterSelektion1 as FS where FS.id_woerterbuch ="
     " id_woerterbuch1)"},
    {" WHERE", " and", " woerterbuch.ebene = 1"},

    // What the word trainer asks for.
    {" WHERE not exists", " and not exists",
     " (select * from Vokabeltraining where Woerterbuch.Begriff = Vokabeltraining.Begriff and"
     " Wortbedeutung.Wortbedeutung = Vokabeltraining.Wortbedeutung and Richtig >= 5) "},
    {" WHERE exists", " and exists",
     " (select * from Vokabeltraining where Woerterbuch.Begriff = Vokabeltraining.Begriff and"
     " Wortbedeutung.Wortbedeutung = Vokabeltraining.Wortbedeutung and Richtig = 0) "},
    {" WHERE not exists", " and not exists",
     " (select * from Vokabeltraining where Woerterbuch.Begriff = Vokabeltraining.Begriff and"
     " Wortbedeutung.Wortbedeutung = Vokabeltraining.Wortbedeutung) "},
};
static_assert(std::size(clauses) == neverTrained + 1);

void append(std::string& sql, std::size_t row, const std::string& first = "",
            const std::string& second = "") {
  const Clause& clause = clauses[row];
  const bool hasCondition = base::inStrIgnoreCase(sql, "WHERE") > 0;
  // Values go in one after the other from behind, so that one that holds a mark is not filled again.
  std::string rest = clause.rest;
  if (const auto at = rest.find("%2"); at != std::string::npos) rest.replace(at, 2, second);
  if (const auto at = rest.find("%1"); at != std::string::npos) rest.replace(at, 2, first);
  sql += (hasCondition ? clause.further : clause.where) + rest;
}

/// Cuts a statement that ends in ";" there; the ";" of its parameters stays.
void cutAtSemicolon(std::string& sql) {
  if (base::right(base::trim(sql), 10).find(';') == std::string::npos) return;
  const std::size_t select = base::inStrIgnoreCase(sql, "SELECT");
  const bool parameters =
      base::inStrIgnoreCase(sql, "PARAMETERS") > 0 && base::inStrIgnoreCase(sql, "PARAMETERS") < select;
  const std::size_t cut = base::inStr(sql, ";", parameters ? select : 1);
  if (cut > 0) sql = base::left(sql, cut - 1);
}

bool isOneOf(View view, std::initializer_list<View> views) {
  return std::find(views.begin(), views.end(), view) != views.end();
}

void selectForDialog(const frmFilter& form, std::string& sql) {
  const auto& s = form.session;
  const auto& filter = s.filter;
  if (filter.FilterKategorien != session::labelText(s, label::all_properties))
    append(sql, form.meaningLevel ? meaningProperties : entryProperties, filter.FilterKategorien);
  if (filter.FilterSachgebiete != session::labelText(s, label::all_subjects))
    append(sql, form.meaningLevel ? meaningSubjects : entrySubjects, filter.FilterSachgebiete);
  for (std::size_t n = 0; n < criterionCount; ++n)
    if (form.boxes[n].ticked) append(sql, firstCriterion + n);
  if (!base::trim(form.dateFrom).empty() && !base::trim(form.dateTo).empty())
    append(sql, dateRange, form.dateFrom, form.dateTo);
}

void restrictToLetter(const frmFilter& form, std::string& sql, View view) {
  if (view == View::frmWoerter && form.searchBox)
    if (const std::string text = form.searchBox(); !text.empty()) append(sql, searchText, text);
  const auto& filter = form.session.filter;
  if (form.letter.empty() && filter.AlleBuchstaben) return;
  append(sql, letters, filter.FilterBuchstabe[0]);
  for (std::size_t n = 1; n < filter.FilterBuchstabe.size(); ++n)
    sql += " or SortBegriff like \"" + filter.FilterBuchstabe[n] + "*\"";
  if (view == View::frmWoerter) sql += " or ebene = 2";
}

void restrictToSelection(const frmFilter& form, std::string& sql, View view) {
  if (FilterIsActive(form))
    append(sql,
           sql.find("WOERTERBUCH.ID_WOERTERBUCH") != std::string::npos ? selectionNamed : selectionUnnamed);
  if (view == View::frmStandardReports && !form.subEntriesInReports) append(sql, mainEntriesOnly);
}

}  // namespace

void ApplyFilterToSQL(const frmFilter& form, std::string& sql, View view) {
  if (view == View::frmFilter) {
    cutAtSemicolon(sql);
    selectForDialog(form, sql);
  }
  if (isOneOf(view, {View::frmStatist, View::frmStandardReports, View::frmWoerter})) {
    cutAtSemicolon(sql);
    restrictToLetter(form, sql, view);
  }
  if (isOneOf(view, {View::frmStandardReports, View::frmEintrag, View::frmWordTrainer, View::frmPrint,
                     View::frmStatist, View::frmWoerter})) {
    cutAtSemicolon(sql);
    restrictToSelection(form, sql, view);
  }
  if (view == View::frmWordTrainer && form.trainer != TrainerSelection::all)
    append(sql, neverTrained - 3 + static_cast<std::size_t>(form.trainer));
}

}  // namespace browse
