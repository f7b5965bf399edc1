#include "queries_fixture.h"

namespace test {
namespace {

class EntryParts : public test::QueriesTest {};

TEST_F(EntryParts, HoldWhatHangsOnOneEntry) {
  for (const Entry& e : data().entries) {
    const engine::Parameters word = {{"lWortID", e.id}};
    expectRows("BegriffParam", {"ID_Woerterbuch", "Begriff"}, {row({text(e.id), e.headword})}, word);

    std::vector<std::string> children, subEntries, meanings;
    for (const Entry& other : data().entries) {
      if (other.mainId == e.id) children.push_back(text(other.id));
      if (other.mainId == e.id && other.id != e.id) subEntries.push_back(text(other.id));
    }
    expectRows("ID_Woerterbuch1Param", {"ID_Woerterbuch"}, children, word);
    expectRows("WoerterbuchRelWoertWoert", {"woerterbuch.id_woerterbuch"}, subEntries, {{"lWordID", e.id}});

    std::vector<std::string> properties, subjects;
    for (const Assignment& a : Filling::of(data().entryProperties, e.id))
      properties.push_back(row({text(e.id), data().property(a.item), a.value}));
    for (const Assignment& a : Filling::of(data().entrySubjects, e.id))
      subjects.push_back(row({text(e.id), data().subject(a.item)}));
    for (const char* query : {"BegriffEigenschaftParam", "KategorieBegriffParam",
                              "BegriffEigenschaftWertParam", "BegriffEigenschaftWertParam1"})
      expectRows(query, {"ID_Woerterbuch", "Kategorie", "KategorieWert"}, properties, word);
    for (const char* query : {"BegriffSachgebietParam", "SachgebietBegriffParam"})
      expectRows(query, {"relWoertSachgebiet.ID_Woerterbuch", "Sachgebiet"}, subjects, word);

    for (const Meaning& m : data().meaningsOf(e.id)) meanings.push_back(row({text(m.id), m.text}));
    expectRows("BegriffWortbedeutungParam", {"ID_Wortbedeutung", "Wortbedeutung"}, meanings, word);
    expectRows("WortbedParam", {"ID_Wortbedeutung", "Wortbedeutung"}, meanings, {{"lWordID", e.id}});
  }
}

TEST_F(EntryParts, ListLinksAttachmentsAndReferences) {
  for (const Entry& e : data().entries) {
    const engine::Parameters word = {{"lWortID", e.id}};
    std::vector<std::string> links, attachments, references;
    for (const Link& l : data().links)
      if (l.entry == e.id) links.push_back(row({text(l.id), l.name, l.address}));
    for (const Link& l : data().attachments)
      if (l.entry == e.id) attachments.push_back(row({text(l.id), l.name, l.address}));
    for (const Reference& r : data().references)
      if (r.entry == e.id) references.push_back(row({text(r.id), text(r.target), r.text}));
    for (const char* query : {"BegriffURLParam", "BegriffURLParam2"})
      expectRows(query, {"ID_URL", "URLName", "URL"}, links, word);
    expectRows("BegriffAttachmentParam", {"ID_Attachment", "AttachmentName", "Attachment"}, attachments,
               word);
    for (const char* query : {"BegriffQuerverweisParam", "BegriffQuerverweisParam1"})
      expectRows(query, {"ID_Querverweis", "ID_WoerterbuchQV", "Querverweis"}, references, word);
  }
}

TEST_F(EntryParts, HoldWhatHangsOnOneMeaning) {
  for (const Meaning& m : data().meanings) {
    std::vector<std::string> properties, subjects, examples;
    for (const Assignment& a : Filling::of(data().meaningProperties, m.id))
      properties.push_back(row({text(m.id), data().property(a.item), a.value}));
    for (const Assignment& a : Filling::of(data().meaningSubjects, m.id))
      subjects.push_back(row({text(m.id), data().subject(a.item)}));
    for (const Example& x : data().examplesOf(m.id))
      examples.push_back(row({text(x.id), x.sentence, x.translation}));
    const engine::Parameters byBed = {{"lWortbedID", m.id}}, byBedeutung = {{"lWortbedeutungID", m.id}};
    const std::vector<std::string> propertyFields = {"relWortbedWKat.ID_Wortbedeutung", "Kategorie",
                                                     "KategorieWert"};
    const std::vector<std::string> subjectFields = {"relWortbedSachgebiet.ID_Wortbedeutung", "Sachgebiet"};
    expectRows("WortbedEigenschaftParam", propertyFields, properties, byBed);
    expectRows("WortbedKategorieWortbedIDParam", propertyFields, properties, byBedeutung);
    expectRows("WortbedEigenschaftWertParam", propertyFields, properties, byBedeutung);
    expectRows("WortbedSachgebietParam", subjectFields, subjects, byBed);
    expectRows("WortbedSachgebietWortbedIDParam", subjectFields, subjects, byBedeutung);
    for (const char* query : {"WortbedBspParam", "WortbedBspParam2"})
      expectRows(query, {"ID_WortbedBsp", "Beispiel", "Beispieluebersetzung"}, examples, byBed);
    expectRows("WortbedeutungParam", {"Wortbedeutung"}, {m.text}, byBedeutung);
  }
}

TEST_F(EntryParts, ShowTheMeaningsOfAnEntryWithTheirParts) {
  for (const Entry& e : data().entries) {
    std::vector<std::string> examples, properties, subjects;
    for (const Meaning& m : data().meaningsOf(e.id)) {
      if (data().examplesOf(m.id).empty()) examples.push_back(row({text(m.id), m.text, {}, {}}));
      for (const Example& x : data().examplesOf(m.id))
        examples.push_back(row({text(m.id), m.text, x.sentence, x.translation}));
      for (const Assignment& a : Filling::of(data().meaningProperties, m.id))
        properties.push_back(row({text(m.id), m.text, data().property(a.item), a.value}));
      for (const Assignment& a : Filling::of(data().meaningSubjects, m.id))
        subjects.push_back(row({text(m.id), m.text, data().subject(a.item)}));
    }
    const engine::Parameters word = {{"LWORTID", e.id}};
    expectRows("AnzeigeWortBedBeispieleBegriffParam",
               {"ID_Wortbedeutung", "Wortbedeutung", "Beispiel", "Beispieluebersetzung"}, examples, word);
    expectRows("AnzeigeWortBedKategorieBegriffParam",
               {"ID_Wortbedeutung", "Wortbedeutung", "Kategorie", "KategorieWert"}, properties, word);
    expectRows("AnzeigeWortBedSachgebietBegriffParam", {"ID_Wortbedeutung", "Wortbedeutung", "Sachgebiet"},
               subjects, word);
  }
}

TEST_F(EntryParts, OrderSubEntriesByPriorityAndSortKey) {
  for (std::int64_t main = 1; main <= 3; ++main) {
    std::pair<std::int64_t, std::string> before{-1, ""};
    for (engine::Recordset rows = db().OpenRecordset("Woerterbuchrelwoertwoert",
                                                     engine::RecordsetKind::dynaset, {{"lWordID", main}});
         !rows.EndOfFile(); rows.MoveNext()) {
      std::pair<std::int64_t, std::string> at{rows["Prioritaet"].asInteger(),
                                              base::lower(rows["SortBegriff"].asText())};
      EXPECT_LE(before, at);
      before = at;
    }
  }
}

TEST_F(EntryParts, ListCataloguesWholeAndInUse) {
  std::vector<std::string> properties, subjects, usedProperties, usedSubjects;
  for (const test::Catalogued& c : data().properties) {
    properties.push_back(c.name);
    const auto& all = data().entryProperties;
    if (std::any_of(all.begin(), all.end(), [&](const Assignment& a) { return a.item == c.id; }))
      usedProperties.push_back(row({c.name, data().path}));
  }
  for (const test::Catalogued& c : data().subjects) {
    subjects.push_back(c.name);
    const auto& all = data().entrySubjects;
    if (std::any_of(all.begin(), all.end(), [&](const Assignment& a) { return a.item == c.id; }))
      usedSubjects.push_back(row({c.name, data().path}));
  }
  for (const char* query : {"OrderWKategorie", "QueryOrderWKategorie"}) {
    expectRows(query, {"Kategorie"}, properties);
    expectOrder(query, "Kategorie");
  }
  for (const char* query : {"OrderWSachgebiet", "QueryOrderWSachgebiet"}) {
    expectRows(query, {"Sachgebiet"}, subjects);
    expectOrder(query, "Sachgebiet");
  }
  expectRows("QueryOrderWKategorie1", {"Kategorie", "DatabaseName"}, usedProperties);
  expectRows("QueryOrderWSachgebiet1", {"Sachgebiet", "DatabaseName"}, usedSubjects);
}

TEST_F(EntryParts, JoinRulesToTheirVariants) {
  std::vector<std::string> all;
  for (const test::Rule& r : data().rules) {
    std::vector<std::string> ofRule;
    for (const test::Variant& v : data().variants)
      if (v.rule == r.id) ofRule.push_back(row({r.name, text(r.id), text(v.id)}));
    if (ofRule.empty()) ofRule.push_back(row({r.name, {}, {}}));
    const std::vector<std::string> fields = {"Regelname", "RegelVarianten.RegelID", "RegelVariantenID"};
    for (const char* query : {"ViewRegelEingabeParam1", "ViewRegelEingabeParamOrderByPrioritaet1"})
      expectRows(query, fields, ofRule, {{"lRegelID", r.id}});
    all.insert(all.end(), ofRule.begin(), ofRule.end());
  }
  expectRows("ViewRegelEingabe1", {"Regelname", "RegelVarianten.RegelID", "RegelVariantenID"}, all);
  expectOrder("ViewRegeln1", "RegelName");
  expectOrder("ViewRegelEingabeParamOrderByPrioritaet1", "VariantenPrioritaet", false, {{"lRegelID", 3}});
  for (const test::Variant& v : data().variants) {
    std::vector<std::string> properties, subjects;
    for (const Assignment& a : Filling::of(data().variantProperties, v.id))
      properties.push_back(row({text(a.item), data().property(a.item), a.value}));
    for (const Assignment& a : Filling::of(data().variantSubjects, v.id))
      subjects.push_back(row({text(a.item), data().subject(a.item)}));
    expectRows("RegelVariantenEigenschaftWertParam", {"ID_WKategorie", "Kategorie", "KategorieWert"},
               properties, {{"lRegelVariantenID", v.id}});
    expectRows("RegelVariantenSachgebietParam", {"WSachgebiet.ID_Sachgebiet", "Sachgebiet"}, subjects,
               {{"lRegelVariantenID", v.id}});
  }
}

}  // namespace
}  // namespace test
