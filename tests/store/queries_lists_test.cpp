#include <set>

#include "queries_fixture.h"

namespace test {
namespace {

const std::vector<std::string> key = {"Woerterbuch.ID_Woerterbuch"};

class EntryLists : public test::QueriesTest {
 protected:
  template <class Test>
  static std::vector<std::string> entriesWhere(const Test& holds) {
    std::vector<std::string> ids;
    for (const Entry& e : data().entries)
      if (holds(e)) ids.push_back(std::to_string(e.id));
    return ids;
  }

  /// One row for each way in which an entry, or one of its meanings, has what is asked for.
  template <class Test>
  static std::vector<std::string> matches(bool ofMeanings, bool property, bool subject, const Test& holds) {
    const std::vector<Assignment> none{{0, 0, {}}};
    std::vector<std::string> ids;
    for (const Entry& e : data().entries) {
      std::vector<std::int64_t> owners{e.id};
      if (ofMeanings) {
        owners.clear();
        for (const test::Meaning& m : data().meaningsOf(e.id)) owners.push_back(m.id);
      }
      const auto& p = ofMeanings ? data().meaningProperties : data().entryProperties;
      const auto& s = ofMeanings ? data().meaningSubjects : data().entrySubjects;
      for (const std::int64_t owner : owners)
        for (const Assignment& a : property ? Filling::of(p, owner) : none)
          for (const Assignment& b : subject ? Filling::of(s, owner) : none) {
            const std::string name = property ? data().property(a.item) : "";
            const std::string field = subject ? data().subject(b.item) : "";
            if (holds(e, name, field)) ids.push_back(std::to_string(e.id));
          }
    }
    return ids;
  }

  static engine::Parameters letters(const std::string& first, const std::string& second) {
    return {{"sBuchstabe", first}, {"sBuchstabe1", second}, {"sBuchstabe2", " "},
            {"sBuchstabe3", " "},  {"sBuchstabe4", " "},    {"sBuchstabe5", " "}};
  }
};

TEST_F(EntryLists, HoldAllEntriesInTheirOrder) {
  const auto all = entriesWhere([](const Entry&) { return true; });
  const auto main = entriesWhere([](const Entry& e) { return e.level == 1; });
  for (const char* query : {"AllWordsOrderByBegriff", "AllWords", "AllWordsOrderByDateTimeStamp"})
    expectRows(query, key, all);
  for (const char* query : {"AllWordsErsteEbene", "AllWordsErsteEbeneOrderByDateTimeStamp"})
    expectRows(query, key, main);
  expectOrder("AllWordsOrderByBegriff", "SortBegriff");
  expectOrder("AllWordsErsteEbene", "SortBegriff");
  expectOrder("VonBisdatumFilterParam", "SortBegriff", false,
              {{"sDatumVon", "01.01.2020"}, {"sDatumBis", "31.12.2030"}});
  // The newest entry stands last in AllWords and by its date first in the lists by date.
  engine::Recordset rows = db().OpenRecordset("AllWords");
  rows.MoveLast();
  EXPECT_EQ(rows["ID_Woerterbuch"].asInteger(), 40);
  base::DateTime before = base::DateTime::of(9999, 1, 1);
  for (engine::Recordset dates = db().OpenRecordset("AllWordsOrderByDateTimeStamp"); !dates.EndOfFile();
       dates.MoveNext()) {
    EXPECT_LE(dates["DateTimeStamp"].asDate(), before);
    before = dates["DateTimeStamp"].asDate();
  }
}

TEST_F(EntryLists, FollowTheLettersOfOneButton) {
  const auto begins = [](const Entry& e) { return startsWith(e.sortKey, "h") || startsWith(e.sortKey, "A"); };
  expectRows("AllWordsBuchstabeParam", key, entriesWhere(begins), letters("h", "A"));
  expectRows("AlleKategorienBuchstabeParam", key,
             entriesWhere([&](const Entry& e) { return e.level == 1 && begins(e); }), letters("h", "A"));
}

TEST_F(EntryLists, FollowPropertyAndSubject) {
  using Case =
      std::tuple<const char*, bool, bool, bool, bool>;  // query, of meanings, property, subject, main only
  const Case cases[] = {{"AllWordsBegriffKategorieParam", false, true, false, false},
                        {"AllWordsBegriffSachgebietParam1", false, false, true, false},
                        {"AllWordsBegriffSachgebietKategorieParam", false, true, true, false},
                        {"BegriffKategorieParam", false, true, false, true},
                        {"BegriffSachgebietParam1", false, false, true, true},
                        {"BegriffSachgebietKategorieParam", false, true, true, true},
                        {"AllWordsKategorieParam", true, true, false, false},
                        {"AllWordsSachgebietParam", true, false, true, false},
                        {"AllWordsSachgebietKategorieParam", true, true, true, false},
                        {"KategorieParam", true, true, false, true},
                        {"SachgebietAllWordsEbene1", true, false, true, true},
                        {"SachgebietKategorieParam", true, true, true, true}};
  for (const auto& [query, ofMeanings, property, subject, mainOnly] : cases) {
    engine::Parameters parameters;
    if (property) parameters.emplace_back("sKategorie", "NOUN");
    if (subject) parameters.emplace_back("sSachgebiet", "law");
    const bool p = property, s = subject, m = mainOnly;
    expectRows(query, key,
               matches(ofMeanings, property, subject,
                       [&](const Entry& e, const std::string& name, const std::string& field) {
                         return (!m || e.level == 1) && (!p || name == "noun") && (!s || field == "law");
                       }),
               parameters);
    expectOrder(query, "SortBegriff", false, parameters);
  }
}

/// The condition binds the first letter alone; what begins with another one shows without it.
TEST_F(EntryLists, TestTheConditionWithTheFirstLetterOnly) {
  using Case = std::tuple<const char*, bool, bool, bool, bool>;
  const Case cases[] = {{"AllWordsBegriffKategorieBuchstabeParam", false, true, false, false},
                        {"AllWordsBegriffSachgebietBuchstabeParam", false, false, true, false},
                        {"AllWordsBegriffSachgebietKategorieBuchstabeParam", false, true, true, false},
                        {"BegriffKategorieBuchstabeParam", false, true, false, true},
                        {"BegriffSachgebietBuchstabeParam", false, false, true, true},
                        {"BegriffSachgebietKategorieBuchstabeParam", false, true, true, true},
                        {"AllWordsKategorieBuchstabeParam", true, true, false, false},
                        {"AllWordsSachgebietBuchstabeParam", true, false, true, false},
                        {"AllWordsSachgebietKategorieBuchstabeParam", true, true, true, false},
                        {"KategorieBuchstabeParam", true, true, false, true},
                        {"SachgebietAlleKategorienBuchstabeParam", true, false, true, true},
                        {"SachgebietKategorieBuchstabeParam", true, true, true, true}};
  for (const auto& [query, ofMeanings, property, subject, mainOnly] : cases) {
    engine::Parameters parameters = letters("g", "a");
    if (property) parameters.emplace_back("sKategorie", "noun");
    if (subject) parameters.emplace_back("sSachgebiet", "law");
    const bool p = property, s = subject, m = mainOnly;
    expectRows(query, key,
               matches(ofMeanings, property, subject,
                       [&](const Entry& e, const std::string& name, const std::string& field) {
                         const bool first =
                             startsWith(e.sortKey, "g") && (!p || name == "noun") && (!s || field == "law");
                         return (!m || e.level == 1) && (first || startsWith(e.sortKey, "a"));
                       }),
               parameters);
  }
}

TEST_F(EntryLists, FollowDates) {
  const auto on = [](base::DateTime day) { return day.stamp().substr(0, 10); };
  for (const Entry& one : {data().entries[3], data().entries[20]}) {
    const engine::Parameters created = {{"sDatumVon", on(one.created)}, {"sDatumBis", on(one.created)}};
    expectRows("VonBisdatumFilterParam", {"ID_Woerterbuch"},
               entriesWhere([&](const Entry& e) { return e.created.date() == one.created.date(); }), created);
    const engine::Parameters changed = {{"sDatumVon", one.changed.substr(0, 10)},
                                        {"sDatumBis", one.changed.substr(0, 10)}};
    expectRows("VonBisdatumFilterParam2", {"ID_Woerterbuch"}, entriesWhere([&](const Entry& e) {
                 return e.changed.substr(0, 10) == one.changed.substr(0, 10);
               }),
               changed);
  }
  std::vector<std::string> expected;
  for (const auto& [entry, when] : data().changes)
    expected.push_back(row({std::to_string(entry), data().entry(entry).headword}));
  expectRows("ChangeHistory1", {"ID_Woerterbuch", "Begriff"}, expected);
  expected.clear();
  for (const std::int64_t id : data().created)
    expected.push_back(row({std::to_string(id), data().entry(id).headword}));
  expectRows("NewHistory1", {"ID_Woerterbuch", "Begriff"}, expected);
  expected.clear();
  for (const Entry& e : data().entries)
    if (e.created.year() < 2023)
      expected.push_back(row({e.created.stamp(), std::to_string(e.created.year())}));
  expectRows("Productivity1", {"DateTimeStamp", "year_num"}, expected);
}

}  // namespace
}  // namespace test
