#include <set>

#include "queries_fixture.h"

namespace test {
namespace {

/// The items, or one that stands for the missing side of an outer join.
template <class Item>
std::vector<const Item*> orNone(const std::vector<Item>& items) {
  std::vector<const Item*> all;
  for (const Item& item : items) all.push_back(&item);
  if (all.empty()) all.push_back(nullptr);
  return all;
}

class Views : public test::QueriesTest {
 protected:
  /// Walks all entries with their meanings and examples, the missing ones as nullptr.
  template <class Use>
  static void walk(const Use& use) {
    for (const Entry& e : data().entries) {
      const auto meanings = data().meaningsOf(e.id);
      for (const Meaning* m : orNone(meanings)) {
        const auto examples = m == nullptr ? std::vector<Example>() : data().examplesOf(m->id);
        for (const Example* x : orNone(examples)) use(e, m, x);
      }
    }
  }

  static Text nameOf(const Assignment* a, bool property) {
    if (a == nullptr) return {};
    return property ? data().property(a->item) : data().subject(a->item);
  }

  /// Rows of the wide join: every combination of what an entry and its meanings have. `take` makes a row.
  template <class Take>
  static std::vector<std::string> wide(bool withMeaningParts, const Take& take) {
    std::vector<std::string> rows;
    walk([&](const Entry& e, const Meaning* m, const Example* x) {
      const auto ep = Filling::of(data().entryProperties, e.id), es = Filling::of(data().entrySubjects, e.id);
      std::vector<Assignment> mp, ms;
      if (m != nullptr && withMeaningParts) {
        mp = Filling::of(data().meaningProperties, m->id);
        ms = Filling::of(data().meaningSubjects, m->id);
      }
      for (const Assignment* a : orNone(ep))
        for (const Assignment* b : orNone(es))
          for (const Assignment* c : orNone(mp))
            for (const Assignment* d : orNone(ms)) {
              const std::string made = take(e, m, x, a, b, c, d);
              if (!made.empty()) rows.push_back(made);
            }
    });
    return rows;
  }
};

Text textOf(const Meaning* m) {
  return m == nullptr ? Text() : Text(m->text);
}
Text sentenceOf(const Example* x) {
  return x == nullptr ? Text() : Text(x->sentence);
}
Text translationOf(const Example* x) {
  return x == nullptr ? Text() : x->translation;
}
Text valueOf(const Assignment* a) {
  return a == nullptr ? Text() : a->value;
}

TEST_F(Views, ShowEntriesWithTheRelationTheyAreNamedFor) {
  std::vector<std::string> properties, subjects, mProperties, mSubjects, meanings, without, links, references;
  std::set<std::string> referring;
  for (const Assignment& a : data().entryProperties)
    properties.push_back(row({text(a.owner), text(a.item), a.value}));
  for (const Assignment& a : data().entrySubjects) subjects.push_back(row({text(a.owner), text(a.item)}));
  for (const Assignment& a : data().meaningProperties)
    mProperties.push_back(row({text(data().meaning(a.owner).entry), text(a.owner), text(a.item), a.value}));
  for (const Assignment& a : data().meaningSubjects)
    mSubjects.push_back(row({text(data().meaning(a.owner).entry), text(a.owner), text(a.item)}));
  for (const Meaning& m : data().meanings) meanings.push_back(row({text(m.entry), text(m.id), m.text}));
  for (const Entry& e : data().entries)
    if (data().meaningsOf(e.id).empty()) without.push_back(row({text(e.id), {}}));
  for (const Link& l : data().links) links.push_back(row({text(l.entry), text(l.id), l.address}));
  for (const Reference& r : data().references) {
    references.push_back(row({text(r.entry), text(r.id), text(r.target)}));
    referring.insert(text(r.entry));
  }
  for (const char* query :
       {"ViewBegriffKategorie", "ViewBegriffOrderByKategorie", "QueryReportingEigenschaftenZumBegriff",
        "QueryReportingURLEigenschaftenZumBegriff"})
    expectRows(query, {"ID_Woerterbuch", "ID_WKategorie", "KategorieWert"}, properties);
  for (const char* query : {"ViewBegriffSachgebiet", "ViewBegriffOrderBySachgebiet",
                            "QueryReportingSachgebieteZumBegriff", "QueryReportingURLSachgebieteZumBegriff"})
    expectRows(query, {"ID_Woerterbuch", "ID_Sachgebiet"}, subjects);
  expectRows("ViewBegriffWortbedKategorie",
             {"ID_Woerterbuch", "ID_Wortbedeutung", "ID_WKategorie", "KategorieWert"}, mProperties);
  expectRows("ViewBegriffWortbedsachgebiet", {"ID_Woerterbuch", "ID_Wortbedeutung", "ID_Sachgebiet"},
             mSubjects);
  for (const char* query : {"ViewBegriffWortbedeutung", "ViewBegriffWortbedeutung2"})
    expectRows(query, {"ID_Woerterbuch", "ID_Wortbedeutung", "Wortbedeutung"}, meanings);
  expectRows("ViewBegriffOhneWortbedeutung", {"ID_Woerterbuch", "ID_Wortbedeutung"}, without);
  for (const char* query : {"ViewBegriffURL", "URL_1"})
    expectRows(query, {"ID_Woerterbuch", "ID_URL", "URL"}, links);
  for (const char* query : {"ViewBegriffQuerverweise", "QueryQuerverweise", "Querverweis_1",
                            "QueryReportingQuerverweise", "QueryReportingURLQuerverweise"})
    expectRows(query, {"woerterbuch.ID_Woerterbuch", "ID_Querverweis", "ID_WoerterbuchQV"}, references);
  expectRows("BegriffQuerverweise", {"ID_Woerterbuch"}, {referring.begin(), referring.end()});
}

TEST_F(Views, KeepWhatEveryTableViewHas) {
  for (const char* query :
       {"ViewBegriffWortbedBsp", "ViewBegriffKategorie", "ViewBegriffSachgebiet",
        "ViewBegriffWortbedKategorie", "ViewBegriffWortbedSachgebiet", "ViewBegriffWortbedeutung",
        "ViewBegriffOhneWortBedeutung", "ViewBegriffURL", "ViewBegriffQuerverweise", "QueryQuerverweise",
        "BegriffQuerverweise", "ViewBegriffWortbedeutung3"}) {
    expectOrder(query, "SortBegriff");
    for (engine::Recordset rows = db().OpenRecordset(query); !rows.EndOfFile(); rows.MoveNext()) {
      const Entry& e = data().entry(rows["woerterbuch.id_woerterbuch"].asInteger());
      EXPECT_EQ(rows["SortBegriff"].asText(), e.sortKey);
      EXPECT_EQ(rows["DatabaseName"].asText(), data().path);
    }
  }
  expectOrder("ViewBegriffOrderByKategorie", "Kategorie");
  expectOrder("ViewBegriffOrderBySachgebiet", "Sachgebiet");
}

TEST_F(Views, JoinMeaningsAndExamples) {
  std::vector<std::string> all, trainer, reporting;
  walk([&](const Entry& e, const Meaning* m, const Example* x) {
    const std::string made = row({text(e.id), textOf(m), sentenceOf(x), translationOf(x)});
    all.push_back(made);
    if (m != nullptr) trainer.push_back(made);
  });
  const std::vector<std::string> fields = {"ID_Woerterbuch", "Wortbedeutung", "Beispiel",
                                           "Beispieluebersetzung"};
  for (const char* query : {"ViewBegriffWortbedBsp", "ViewBuildMetaSearch", "QueryReporting"})
    expectRows(query, fields, all);
  expectRows("ViewBegriffWortbedeutung3", fields, trainer);
  // Whoever builds search texts relies on an entry's rows standing together.
  std::set<std::int64_t> seen;
  std::int64_t before = 0;
  for (engine::Recordset rows = db().OpenRecordset("ViewBuildMetaSearch"); !rows.EndOfFile();
       rows.MoveNext()) {
    const std::int64_t at = rows["ID_Woerterbuch"].asInteger();
    EXPECT_TRUE(at == before || seen.insert(at).second) << at;
    before = at;
  }
  for (const Entry& e : data().entries) {
    std::vector<std::string> one;
    for (const std::string& made : all)
      if (made.rfind(text(e.id) + "|", 0) == 0) one.push_back(made);
    expectRows("QueryReportingEinzelBegriff", fields, one, {{"lWordID", e.id}});
  }
}

TEST_F(Views, CombineAllThatAnEntryHas) {
  const std::vector<std::string> entryFields = {"ID_Woerterbuch", "ID_Wortbedeutung", "Beispiel",
                                                "Kategorie",      "KategorieWert",    "Sachgebiet"};
  expectRows("ExportView1", entryFields,
             wide(false, [](const Entry& e, const Meaning* m, const Example* x, const Assignment* a,
                            const Assignment* b, const Assignment*, const Assignment*) {
               return row({text(e.id), m ? Text(text(m->id)) : Text(), sentenceOf(x), nameOf(a, true),
                           valueOf(a), nameOf(b, false)});
             }));
  const auto whole = wide(true, [](const Entry& e, const Meaning* m, const Example* x, const Assignment* a,
                                   const Assignment* b, const Assignment* c, const Assignment* d) {
    return row({text(e.id), textOf(m), sentenceOf(x), nameOf(a, true), nameOf(b, false), nameOf(c, true),
                nameOf(d, false)});
  });
  const auto fields = [](const char* entryView) {
    const std::string view = entryView;
    return std::vector<std::string>{"ID_Woerterbuch",        "Wortbedeutung",      "Beispiel",
                                    view + ".Kategorie",     view + ".Sachgebiet", "WKategorie.Kategorie",
                                    "WSachgebiet.Sachgebiet"};
  };
  for (const char* query : {"ExportView2", "ViewAlleInformationen", "ExportinDBViewAlleInformationen"})
    expectRows(query, fields("ExportView1"), whole);
  expectRows("ExportinDBViewAlleInformationenNew",
             {"ID_Woerterbuch", "Wortbedeutung", "Beispiel", "Kategorie", "Sachgebiet",
              "KategorieWortbedeutung", "SachgebietWortbedeutung"},
             whole);
  expectRows("ExportInDBViewAlleInformationen2003",
             {"ObjectID", "MEANING", "EXAMPLE", "CATEGORY_OBJECT", "FIELD_OBJECT", "CATEGORY_MEANING",
              "FIELD_MEANING"},
             whole);
  expectOrder("ExportView2", "SortBegriff");
}

TEST_F(Views, ExportUnderTheNamesOfTheTargetsColumns) {
  const auto columns = [](const std::string& names, const std::string& query) {
    engine::Recordset rows = db().OpenRecordset("select " + names + " from " + query);
    return rows.Fields().size();
  };
  EXPECT_EQ(
      columns("OBJECT, PRONUNCIATION, NOTE, CATEGORY_OBJECT, CATEGORY_OBJECTABR, CATEGORY_OBJECTVALUE, "
              "FIELD_OBJECT, "
              "FIELD_OBJECTABR, MEANING, EXAMPLE, EXAMPLETRANSLATION, CATEGORY_MEANING, CATEGORY_MEANINGABR, "
              "CATEGORIE_MEANINGVALUE, FIELD_MEANING, FIELD_MEANINGABR, CROSSLINKS, OBJECTID, OBJECTID1, "
              "SORTPRIORITY",
              "ExportinDBViewAlleInformationen2003"),
      20u);
  EXPECT_EQ(columns("OBJECT, NOTE, OBJECT_CATEGORY, OBJECT_CATEGORYABR, OBJECT_CATEGORYVALUE, OBJECT_FIELD, "
                    "OBJECT_FIELDABR, "
                    "URL_NAME, URL, URL_NOTE, CROSSLINKS, OBJECTID, OBJECTID1, SORTPRIORITY",
                    "ExportinDBViewAlleInformationenURL2003"),
            14u);
  for (const char* query : {"ViewAllInfos1", "ViewURLAllInfos1"})
    EXPECT_EQ(
        columns("ObjectFirstLevel, PronunciationFirstLevel, NoteFirstLevel, MeaningFirstLevel, "
                "ExampleFirstLevel, "
                "ExampleTranslationFirstLevel, QuerverweisFirstLevel, CategoryToObjectFirstLevel, "
                "AbrCategoryToObjectFirstLevel, FieldToObjectFirstLevel, AbrFieldToObjectFirstLevel, "
                "CategoryToMeaningFirstLevel, AbrCategoryToMeaningFirstLevel, FieldToMeaningFirstLevel, "
                "AbrFieldToMeaningFirstLevel, ObjectSecondLevel, CategoryToMeaningSecondLevel, "
                "QuerverweisSecondLevel, "
                "AbrFieldToMeaningSecondLevel",
                query),
        19u);
}

TEST_F(Views, PairMainEntriesWithTheirSubEntries) {
  std::set<std::string> expected;
  for (const Entry& e : data().entries) {
    if (e.level != 1) continue;
    bool any = false;
    for (const Entry& sub : data().entries) {
      if (sub.level != 2 || sub.mainId != e.id) continue;
      any = true;
      expected.insert(row({text(e.id), e.headword, sub.headword}));
    }
    if (!any) expected.insert(row({text(e.id), e.headword, {}}));
  }
  for (const char* query : {"ViewAllInfos1", "ViewURLAllInfos1"}) {
    const auto found = rows(query, {"ID_Woerterbuch", "ObjectFirstLevel", "ObjectSecondLevel"});
    EXPECT_EQ(std::set<std::string>(found.begin(), found.end()), expected) << query;
  }
  for (engine::Recordset rows = db().OpenRecordset("ViewAllInfosEbene2"); !rows.EndOfFile(); rows.MoveNext())
    EXPECT_EQ(rows["Ebene"].asInteger(), 2);
}

TEST_F(Views, SelectForPrinting) {
  const auto selection = [&](int level, const auto& holds) {
    return wide(true,
                [&](const Entry& e, const Meaning* m, const Example* x, const Assignment* a,
                    const Assignment* b, const Assignment* c, const Assignment* d) -> std::string {
                  if (e.level != level ||
                      !holds(nameOf(a, true), nameOf(b, false), nameOf(c, true), nameOf(d, false)))
                    return "";
                  return row({text(e.id), textOf(m), sentenceOf(x), nameOf(a, true), nameOf(c, true)});
                });
  };
  const std::vector<std::string> fields = {"ID_Woerterbuch", "Wortbedeutung", "Beispiel",
                                           "exportview1.Kategorie", "WKategorie.Kategorie"};
  using Names = const Text&;
  const Text noun = "noun", law = "law";
  const auto all = [](Names, Names, Names, Names) { return true; };
  const engine::Parameters k = {{"sKategorie", "noun"}}, s = {{"sSachgebiet", "law"}},
                           both = {{"sSachgebiet", "law"}, {"sKategorie", "noun"}};
  expectRows("PrintBegriffeErsteEbene", fields, selection(1, all));
  expectRows("PrintBegriffeFolgeEbenen", fields, selection(2, all));
  expectRows("PrintBegriffKategorieParam", fields,
             selection(1, [&](Names a, Names, Names, Names) { return a == noun; }), k);
  expectRows("PrintBegriffSachgebietParam", fields,
             selection(1, [&](Names, Names b, Names, Names) { return b == law; }), s);
  expectRows("PrintBegriffSachgebietKategorieParam", fields,
             selection(1, [&](Names a, Names b, Names, Names) { return a == noun && b == law; }), both);
  expectRows("PrintKategorieParam", fields,
             selection(1, [&](Names, Names, Names c, Names) { return c == noun; }), k);
  expectRows("PrintSachgebietParam", fields,
             selection(1, [&](Names, Names, Names, Names d) { return d == law; }), s);
  expectRows("PrintSachgebietKategorieParam", fields,
             selection(1, [&](Names, Names, Names c, Names d) { return c == noun && d == law; }), both);
  expectOrder("PrintBegriffeErsteEbene", "SortBegriff");
  for (const Entry& e : data().entries) {
    std::vector<std::string> one;
    for (const std::string& made : selection(e.level, all))
      if (made.rfind(text(e.id) + "|", 0) == 0) one.push_back(made);
    expectRows("PrintEinzelBegriffErsteEbeneParam", fields, one, {{"lWordID", e.id}});
    expectRows("ExportInZwischenablage", fields, one, {{"lWordID", e.id}});
  }
}

TEST_F(Views, RestrictTheTrainersPool) {
  const auto pool = [&](bool ofEntry, const Text& property, const Text& subject) {
    std::vector<std::string> rows;
    walk([&](const Entry& e, const Meaning* m, const Example* x) {
      const std::int64_t owner = ofEntry ? e.id : m == nullptr ? 0 : m->id;
      const auto properties = Filling::of(ofEntry ? data().entryProperties : data().meaningProperties, owner);
      const auto subjects = Filling::of(ofEntry ? data().entrySubjects : data().meaningSubjects, owner);
      for (const Assignment* a : property ? orNone(properties) : std::vector<const Assignment*>{nullptr})
        for (const Assignment* b : subject ? orNone(subjects) : std::vector<const Assignment*>{nullptr})
          if (nameOf(a, true) == property && nameOf(b, false) == subject)
            rows.push_back(row({text(e.id), textOf(m), sentenceOf(x)}));
    });
    return rows;
  };
  const std::vector<std::string> fields = {"ID_Woerterbuch", "Wortbedeutung", "Beispiel"};
  const engine::Parameters k = {{"sKategorie", "noun"}}, s = {{"SSACHGEBIET", "law"}},
                           both = {{"sKategorie", "noun"}, {"sSachgebiet", "law"}};
  expectRows("ViewBegriffWortbedKateg", fields, pool(false, "noun", {}), k);
  expectRows("ViewBegriffWortbedSach", fields, pool(false, {}, "law"), s);
  expectRows("ViewBegriffWortbedKategSach", fields, pool(false, "noun", "law"), both);
  expectRows("ViewKategBegriffWortbed", fields, pool(true, "noun", {}), k);
  expectRows("ViewSachBegriffWortbed", fields, pool(true, {}, "law"), s);
  expectRows("ViewKategSachBegriffWortbed", fields, pool(true, "noun", "law"), both);
}

}  // namespace
}  // namespace test
