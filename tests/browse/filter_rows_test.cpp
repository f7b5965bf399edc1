// What the filter selects, against loops over the same data.

#include <map>
#include <set>

#include "browse/browser.h"
#include "browse/frmFilter.h"

namespace {

class FilterRows : public BrowserTest {
 protected:
  static constexpr int entries = 60, names = 3;

  /// Entry n has property 1 + n mod 4 (if there is one) and, where n is even, subject field 1 + n mod 3; its
  /// meaning has them the other way round.
  void SetUp() override {
    BrowserTest::SetUp();
    browse::attachFilter(filter);
    for (int n = 1; n <= names; ++n) {
      addRow("WKategorie", {{"Kategorie", "p" + std::to_string(n)}});
      addRow("WSachgebiet", {{"Sachgebiet", "s" + std::to_string(n)}});
    }
    for (int n = 1; n <= entries; ++n) {
      const std::int64_t id = addEntry("e" + std::to_string(n));
      const std::int64_t meaning =
          addRow("Wortbedeutung", {{"ID_Woerterbuch", id}, {"Wortbedeutung", "m" + std::to_string(n)}});
      if (property(n) != 0) {
        addRow("relWoertWKat", {{"ID_Woerterbuch", id}, {"ID_WKategorie", property(n)}});
        addRow("relWortbedSachgebiet", {{"ID_Wortbedeutung", meaning}, {"ID_Sachgebiet", property(n)}});
      }
      if (subject(n) != 0) {
        addRow("relWoertSachgebiet", {{"ID_Woerterbuch", id}, {"ID_WSachgebiet", subject(n)}});
        addRow("relWortbedWKat", {{"ID_Wortbedeutung", meaning}, {"ID_WKategorie", subject(n)}});
      }
    }
  }
  static std::int64_t property(int n) { return (1 + n % 4) % 4; }
  static std::int64_t subject(int n) { return n % 2 == 0 ? 1 + n % 3 : 0; }

  void confirm(const std::set<std::int64_t>& properties, const std::set<std::int64_t>& subjects,
               bool meaning) {
    browse::resetFilter(filter);
    browse::Form_Activate(filter);
    filter.meaningLevel = meaning;
    for (const std::int64_t n : properties)
      filter.properties.at(static_cast<std::size_t>(n - 1)).selected = true;
    for (const std::int64_t n : subjects) filter.subjects.at(static_cast<std::size_t>(n - 1)).selected = true;
    ASSERT_TRUE(browse::confirmFilter(filter)) << t.log();
  }
  std::map<std::int64_t, int> selected() {
    std::map<std::int64_t, int> times;
    auto rows = db().OpenRecordset("FilterSelektion1");
    for (; !rows.EndOfFile(); rows.MoveNext()) ++times[rows["ID_Woerterbuch"].asInteger()];
    return times;
  }

  browse::frmFilter filter{s};
};

TEST_F(FilterRows, ListsSelectInTheirScopeOncePerListChosen) {
  const std::set<std::int64_t> none, one{1}, two{1, 3}, last{2};
  for (const auto& properties : {none, one, two})
    for (const auto& subjects : {none, last, two})
      for (const bool meaning : {false, true}) {
        if (properties.empty() && subjects.empty()) continue;
        confirm(properties, subjects, meaning);
        std::map<std::int64_t, int> expected;
        for (int n = 1; n <= entries; ++n) {
          const std::int64_t p = meaning ? subject(n) : property(n), f = meaning ? property(n) : subject(n);
          if (!properties.empty() && properties.count(p) == 0) continue;
          if (!subjects.empty() && subjects.count(f) == 0) continue;
          expected[n] = (properties.empty() ? 0 : 1) + (subjects.empty() ? 0 : 1);
        }
        EXPECT_EQ(selected(), expected) << properties.size() << subjects.size() << meaning;

        browse::refreshAfterFilter(filter, form);
        std::set<std::int64_t> shown(form.list.List1.begin(), form.list.List1.end()), numbers;
        for (const auto& [id, times] : expected) numbers.insert(id);
        EXPECT_EQ(shown, numbers);
      }
}

}  // namespace
