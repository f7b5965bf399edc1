// The filter's clauses as text: each row of the table, and how they join.

#include "browse/browser.h"
#include "browse/frmFilter.h"
#include "catalogue/label.h"
#include "store/rewriter.h"

namespace {

using browse::Criterion;
using session::View;

class FilterText : public BrowserTest {
 protected:
  void SetUp() override {
    BrowserTest::SetUp();
    browse::attachFilter(filter);
  }
  std::string apply(std::string sql, View view) {
    browse::ApplyFilterToSQL(filter, sql, view);
    return sql;
  }

  browse::frmFilter filter{s};
  const std::string named = "SELECT WOERTERBUCH.ID_WOERTERBUCH FROM X";
};

/// A clause behind a statement without and with a condition.
struct Row {
  const char *where, *further;
};

constexpr Row criteria[] = {
    {" WHERE ( exists (Select ID_Woerterbuch from Woerterbuch as Q4 WHERE bemerkung is not null and "
     "bemerkung "
     "<> '' and Q4.id_woerterbuch = woerterbuch.id_woerterbuch))",
     " and  ( exists (Select ID_Woerterbuch from Woerterbuch as Q4 WHERE bemerkung is not null and bemerkung "
     "<> '' and Q4.id_woerterbuch = woerterbuch.id_woerterbuch))"},
    {" WHERE ( not exists (Select ID_Woerterbuch from Woerterbuch as Q4 WHERE bemerkung is not null and "
     "bemerkung <> '' and Q4.id_woerterbuch = Woerterbuch.ID_Woerterbuch))",
     " and  ( not exists (Select ID_Woerterbuch from Woerterbuch as Q4 WHERE bemerkung is not null and "
     "bemerkung <> '' and Q4.id_woerterbuch = Woerterbuch.ID_Woerterbuch))"},
    {" WHERE ( exists (Select ID_Woerterbuch from Woerterbuch as Q1 WHERE InBearbeitung <> 0 and "
     "Q1.id_woerterbuch = woerterbuch.id_woerterbuch))",
     " and  ( exists (Select ID_Woerterbuch from Woerterbuch as Q1 WHERE InBearbeitung <> 0 and "
     "Q1.id_woerterbuch = woerterbuch.id_woerterbuch))"},
    {" WHERE ( exists (Select ID_Woerterbuch from Woerterbuch as Q2 WHERE klang is not null and klang <> '' "
     "and Q2.id_woerterbuch = woerterbuch.id_woerterbuch))",
     " and  ( exists (Select ID_Woerterbuch from Woerterbuch as Q2 WHERE klang is not null and klang <> '' "
     "and Q2.id_woerterbuch = woerterbuch.id_woerterbuch))"},
    {" WHERE ( not exists (Select ID_Woerterbuch from Woerterbuch as Q2 WHERE klang is not null and klang <> "
     "'' and Q2.id_woerterbuch = woerterbuch.id_woerterbuch))",
     " and ( not exists (Select ID_Woerterbuch from Woerterbuch as Q2 WHERE klang is not null and klang <> "
     "'' and Q2.id_woerterbuch = woerterbuch.id_woerterbuch))"},
    {" WHERE ( exists (Select ID_Woerterbuch from Woerterbuch as Q3 WHERE bild is not null and bild <> '' "
     "and "
     "Q3.id_woerterbuch = woerterbuch.id_woerterbuch))",
     " and  ( exists (Select ID_Woerterbuch from Woerterbuch as Q3 WHERE bild is not null and bild <> '' and "
     "Q3.id_woerterbuch = woerterbuch.id_woerterbuch))"},
    {" WHERE ( not exists (Select ID_Woerterbuch from Woerterbuch as Q3 WHERE bild is not null and bild <> "
     "'' "
     "and Q3.id_woerterbuch = woerterbuch.id_woerterbuch))",
     " and  ( not exists (Select ID_Woerterbuch from Woerterbuch as Q3 WHERE bild is not null and bild <> '' "
     "and Q3.id_woerterbuch = woerterbuch.id_woerterbuch))"},
    {" WHERE ( exists (Select ID_Woerterbuch from Attachment WHERE woerterbuch.id_woerterbuch = "
     "attachment.id_woerterbuch))",
     " and ( exists (Select ID_Woerterbuch from Attachment WHERE woerterbuch.id_woerterbuch = "
     "attachment.id_woerterbuch))"},
    {" WHERE ( not exists (Select ID_Woerterbuch from Attachment WHERE woerterbuch.id_woerterbuch = "
     "attachment.id_woerterbuch))",
     " and ( not exists (Select ID_Woerterbuch from Attachment WHERE woerterbuch.id_woerterbuch = "
     "attachment.id_woerterbuch))"},
    {" WHERE ( exists (Select ID_Woerterbuch from URL WHERE woerterbuch.id_woerterbuch = "
     "URL.id_woerterbuch))",
     " and ( exists (Select ID_Woerterbuch from URL WHERE woerterbuch.id_woerterbuch = URL.id_woerterbuch))"},
    {" WHERE ( not exists (Select ID_Woerterbuch from URL WHERE woerterbuch.id_woerterbuch = "
     "URL.id_woerterbuch))",
     " and ( not exists (Select ID_Woerterbuch from URL WHERE woerterbuch.id_woerterbuch = "
     "URL.id_woerterbuch))"},
    {" WHERE ( exists (Select ID_Woerterbuch from Querverweis WHERE woerterbuch.id_woerterbuch = "
     "Querverweis.id_woerterbuch))",
     " and ( exists (Select ID_Woerterbuch from Querverweis WHERE woerterbuch.id_woerterbuch = "
     "Querverweis.id_woerterbuch))"},
    {" WHERE ( not exists (Select ID_Woerterbuch from Querverweis WHERE woerterbuch.id_woerterbuch = "
     "Querverweis.id_woerterbuch))",
     " and ( not exists (Select ID_Woerterbuch from Querverweis WHERE woerterbuch.id_woerterbuch = "
     "Querverweis.id_woerterbuch))"}};

TEST_F(FilterText, EachBoxAddsItsClause) {
  for (std::size_t n = 0; n < std::size(criteria); ++n) {
    filter.boxes.fill({});
    filter.boxes[n].ticked = true;
    EXPECT_EQ(apply("SELECT 1 FROM X", View::frmFilter), "SELECT 1 FROM X" + std::string(criteria[n].where));
    EXPECT_EQ(apply("SELECT 1 FROM X WHERE Y", View::frmFilter),
              "SELECT 1 FROM X WHERE Y" + std::string(criteria[n].further));
  }
}

TEST_F(FilterText, EachPairOfBoxesJoinsInTheirOrder) {
  for (std::size_t a = 0; a < std::size(criteria); ++a)
    for (std::size_t b = a + 1; b < std::size(criteria); ++b) {
      filter.boxes.fill({});
      filter.boxes[a].ticked = filter.boxes[b].ticked = true;
      EXPECT_EQ(apply("SELECT 1 FROM X;", View::frmFilter),
                std::string("SELECT 1 FROM X") + criteria[a].where + criteria[b].further);
    }
}

TEST_F(FilterText, ListsAndDatesComeInTheScopeChosen) {
  s.filter.FilterKategorien = "'a','b'";
  s.filter.FilterSachgebiete = "'c'";
  filter.dateFrom = "01.02.2003";
  EXPECT_EQ(apply("SELECT 1 FROM X", View::frmFilter),
            "SELECT 1 FROM X WHERE kategorie in ('a','b') and sachgebiet in ('c')");
  filter.dateTo = "04.05.2006";
  filter.box(Criterion::hasURL).ticked = true;
  const std::string dates =
      " and (DateValue([datetimestamp]) >= datevalue('01.02.2003') and DateValue([datetimestamp]) <= "
      "datevalue('04.05.2006'))";
  EXPECT_EQ(apply("SELECT 1 FROM X", View::frmFilter),
            "SELECT 1 FROM X WHERE kategorie in ('a','b') and sachgebiet in ('c')" +
                std::string(criteria[9].further) + dates);
  filter.meaningLevel = true;
  filter.box(Criterion::hasURL).ticked = false;
  EXPECT_EQ(apply("SELECT 1 FROM X", View::frmFilter),
            "SELECT 1 FROM X WHERE exportview2.wkategorie.kategorie in ('a','b') and "
            "exportview2.wsachgebiet.sachgebiet in ('c')" +
                dates);
  s.filter.FilterKategorien = t.label(label::all_properties);
  EXPECT_EQ(apply("SELECT 1 FROM X", View::frmFilter),
            "SELECT 1 FROM X WHERE exportview2.wsachgebiet.sachgebiet in ('c')" + dates);
  s.filter.FilterSachgebiete = t.label(label::all_subjects);
  EXPECT_EQ(apply("SELECT 1 FROM X", View::frmFilter),
            "SELECT 1 FROM X WHERE (DateValue([datetimestamp]) >= datevalue('01.02.2003') and "
            "DateValue([datetimestamp]) <= datevalue('04.05.2006'))");
}

TEST_F(FilterText, LetterAndSearchBoxServeTheirViewsOnly) {
  s.filter.FilterBuchstabe = {"N", "Ñ", " ", " ", " ", " "};
  s.filter.AlleBuchstaben = false;
  const std::string arms =
      " SortBegriff like \"N*\" or SortBegriff like \"Ñ*\" or SortBegriff like \" *\" or SortBegriff like \" "
      "*\" or SortBegriff like \" *\" or SortBegriff like \" *\"";
  EXPECT_EQ(apply(named, View::frmStatist), named + " WHERE" + arms);
  EXPECT_EQ(apply(named + " WHERE Y", View::frmWoerter), named + " WHERE Y and" + arms + " or ebene = 2");
  EXPECT_EQ(apply(named, View::frmStandardReports), named + " WHERE" + arms + " and woerterbuch.ebene = 1");
  for (const View other : {View::frmFilter, View::frmPrint, View::frmEintrag, View::frmWordTrainer,
                           View::frmSearch, View::frmTreeView, View::frmView, View::none})
    EXPECT_EQ(apply(named + ";", other).find("like"), std::string::npos);

  s.filter.AlleBuchstaben = true;
  filter.searchBox = [] { return std::string("ab%1"); };
  EXPECT_EQ(apply(named, View::frmWoerter), named + " WHERE woerterbuch.SortBegriff like \"ab%1*\"");
  EXPECT_EQ(apply(named + " WHERE Y", View::frmWoerter),
            named + " WHERE Y and woerterbuch.SortBegriff like \"ab%1*\"");
  EXPECT_EQ(apply(named, View::frmStatist), named);
  filter.letter = "N";
  EXPECT_EQ(apply(named, View::frmWoerter),
            named + " WHERE woerterbuch.SortBegriff like \"ab%1*\" and" + arms + " or ebene = 2");
}

TEST_F(FilterText, TheSelectionIsNamedAsTheStatementNamesItsTable) {
  filter.box(Criterion::inWork).ticked = true;
  const std::string table =
      "woerterbuch.id_woerterbuch1 in (Select distinct ID_Woerterbuch from FilterSelektion1 as FS where "
      "FS.id_woerterbuch = woerterbuch.id_woerterbuch1)";
  const std::string bare =
      "id_woerterbuch1 in (Select distinct ID_Woerterbuch from FilterSelektion1 as FS where "
      "FS.id_woerterbuch = id_woerterbuch1)";
  for (const View view :
       {View::frmWoerter, View::frmStatist, View::frmPrint, View::frmEintrag, View::frmWordTrainer}) {
    EXPECT_EQ(apply(named, view), named + " WHERE  " + table);
    EXPECT_EQ(apply(named + " WHERE Y", view), named + " WHERE Y and  " + table);
    EXPECT_EQ(apply("SELECT 1 FROM X", view), "SELECT 1 FROM X WHERE  " + bare);
    EXPECT_EQ(apply("SELECT 1 FROM X WHERE Y", view), "SELECT 1 FROM X WHERE Y and " + bare);
  }
  EXPECT_EQ(apply(named, View::frmStandardReports),
            named + " WHERE  " + table + " and woerterbuch.ebene = 1");
  filter.subEntriesInReports = true;
  EXPECT_EQ(apply(named, View::frmStandardReports), named + " WHERE  " + table);
  for (const View view : {View::frmSearch, View::frmExport, View::frmQuerverweise, View::none})
    EXPECT_EQ(apply(named, view), named);
}

TEST_F(FilterText, TheTrainerAsksForWhatWasLearnedOrNot) {
  const std::string head =
      " (select * from Vokabeltraining where Woerterbuch.Begriff = Vokabeltraining.Begriff and "
      "Wortbedeutung.Wortbedeutung = Vokabeltraining.Wortbedeutung";
  const std::pair<browse::TrainerSelection, std::string> options[] = {
      {browse::TrainerSelection::all, ""},
      {browse::TrainerSelection::notYetLearned, "not exists" + head + " and Richtig >= 5) "},
      {browse::TrainerSelection::wrongLastTime, "exists" + head + " and Richtig = 0) "},
      {browse::TrainerSelection::neverTrained, "not exists" + head + ") "}};
  for (const auto& [option, clause] : options) {
    filter.trainer = option;
    EXPECT_EQ(apply(named, View::frmWordTrainer), named + (clause.empty() ? "" : " WHERE " + clause));
    EXPECT_EQ(apply(named + " WHERE Y", View::frmWordTrainer),
              named + " WHERE Y" + (clause.empty() ? "" : " and " + clause));
    EXPECT_EQ(apply(named, View::frmPrint), named);
  }
}

TEST_F(FilterText, TheEndOfTheStatementIsCutAndItsParametersStay) {
  filter.box(Criterion::inWork).ticked = true;
  const std::string clause = criteria[2].where;
  EXPECT_EQ(apply("SELECT 1 FROM X ;  ", View::frmFilter), "SELECT 1 FROM X " + clause);
  EXPECT_EQ(apply("SELECT 1 FROM X; 3456789", View::frmFilter), "SELECT 1 FROM X" + clause);
  EXPECT_EQ(apply("SELECT 1 FROM X; 34567890A", View::frmFilter), "SELECT 1 FROM X; 34567890A" + clause)
      << "only the last ten characters tell";
  EXPECT_EQ(apply("PARAMETERS P TEXT; SELECT 1 FROM X;", View::frmFilter),
            "PARAMETERS P TEXT; SELECT 1 FROM X" + clause);
  EXPECT_EQ(store::BuildMultiSQL(s, "parameters p Text; select a from x order by a;", View::frmFilter),
            "PARAMETERS P TEXT; SELECT A FROM X" + clause + " ORDER BY A");
}

/// What each view adds when everything is chosen that there is, in the order of adding.
std::vector<Row> allChosen(View view) {
  static const Row dialogRows[] = {{" WHERE kategorie in ('p')", " and kategorie in ('p')"},
                                   {" WHERE sachgebiet in ('s')", " and sachgebiet in ('s')"},
                                   criteria[2]};
  static const Row box = {" WHERE woerterbuch.SortBegriff like \"x*\"",
                          " and woerterbuch.SortBegriff like \"x*\""};
  static const Row letter = {
      " WHERE SortBegriff like \"N*\" or SortBegriff like \" *\" or SortBegriff like \" *\" or SortBegriff "
      "like "
      "\" *\" or SortBegriff like \" *\" or SortBegriff like \" *\"",
      " and SortBegriff like \"N*\" or SortBegriff like \" *\" or SortBegriff like \" *\" or SortBegriff "
      "like "
      "\" *\" or SortBegriff like \" *\" or SortBegriff like \" *\""};
  static const Row subEntries = {" or ebene = 2", " or ebene = 2"};
  static const Row selection = {
      " WHERE  id_woerterbuch1 in (Select distinct ID_Woerterbuch from FilterSelektion1 as FS where "
      "FS.id_woerterbuch = id_woerterbuch1)",
      " and id_woerterbuch1 in (Select distinct ID_Woerterbuch from FilterSelektion1 as FS where "
      "FS.id_woerterbuch = id_woerterbuch1)"};
  static const Row mainEntries = {" WHERE woerterbuch.ebene = 1", " and woerterbuch.ebene = 1"};
  static const Row trainer = {
      " WHERE not exists (select * from Vokabeltraining where Woerterbuch.Begriff = Vokabeltraining.Begriff "
      "and "
      "Wortbedeutung.Wortbedeutung = Vokabeltraining.Wortbedeutung)",
      " and not exists (select * from Vokabeltraining where Woerterbuch.Begriff = Vokabeltraining.Begriff "
      "and "
      "Wortbedeutung.Wortbedeutung = Vokabeltraining.Wortbedeutung)"};
  switch (view) {
    case View::frmFilter:
      return {dialogRows[0], dialogRows[1], dialogRows[2]};
    case View::frmStatist:
      return {letter, selection};
    case View::frmStandardReports:
      return {letter, selection, mainEntries};
    case View::frmWoerter:
      return {box, letter, subEntries, selection};
    case View::frmEintrag:
    case View::frmPrint:
      return {selection};
    case View::frmWordTrainer:
      return {selection, trainer};
    default:
      return {};
  }
}

TEST_F(FilterText, EveryViewWithAndWithoutConditionOrderParametersAndFurtherFiles) {
  const std::string first = s.files.CurrentDB.Name();
  store::CloseCurrentDB(s);
  const std::string b = createClosed("b.cvb"), c = createClosed("c d.cvb");
  open(first);
  const std::string further[] = {b, c};
  for (int files = 1; files <= 3; ++files) {
    if (files > 1) {
      ASSERT_TRUE(store::addDictionary(s, further[files - 2], false));
    }
    s.filter.FilterKategorien = "'p'";
    s.filter.FilterSachgebiete = "'s'";
    filter.box(Criterion::inWork).ticked = true;
    filter.trainer = browse::TrainerSelection::neverTrained;
    filter.searchBox = [] { return std::string("x"); };
    s.filter.FilterBuchstabe = {"N", " ", " ", " ", " ", " "};
    s.filter.AlleBuchstaben = false;
    for (int view = 0; view <= static_cast<int>(View::frmExport); ++view)
      for (int parts = 0; parts < 8; ++parts) {
        const auto shown = static_cast<View>(view);
        const bool where = (parts & 1) != 0, order = (parts & 2) != 0, parameters = (parts & 4) != 0;
        // Read off the rule: the clauses one after the other, then an arm for each further file.
        std::string condition = where ? " WHERE E=1" : "";
        for (const Row& row : allChosen(shown)) condition += condition.empty() ? row.where : row.further;
        std::string expected = "SELECT A FROM X" + condition;
        for (int n = 1; n < files; ++n) {
          expected += " UNION SELECT A FROM X" + std::string(condition.empty() ? "" : " ") + " IN \"" +
                      s.files.ExtraDB[static_cast<std::size_t>(n - 1)].Name() + "\"" + condition;
        }
        const bool printed = shown == View::frmPrint || shown == View::frmStandardReports;
        if (order)
          expected += " ORDER BY A";
        else if (printed)
          expected += " order by Sortbegriff;";
        if (parameters) expected = "PARAMETERS P TEXT; " + expected;
        EXPECT_EQ(
            store::BuildMultiSQL(s,
                                 std::string(parameters ? "parameters p text; " : "") + "select a from x" +
                                     (where ? " where e=1" : "") + (order ? " order by a;" : ";"),
                                 shown),
            expected)
            << "view " << view << " parts " << parts << " files " << files;
      }
  }
}

}  // namespace
