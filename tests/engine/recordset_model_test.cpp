#include <algorithm>
#include <random>

#include "words.h"

using engine::Recordset;
using test::Texts;

namespace {

/// The table and one set on it, kept as plain lists.
class RecordsetModel : public test::Words {
 protected:
  struct Row {
    std::string word, key;
    int level = 1;
  };
  struct Member {
    std::int64_t id;
    bool removed = false;  // through the set itself
  };

  std::map<std::int64_t, Row> table;
  std::vector<Member> members;
  std::mt19937 random;

  std::int64_t upTo(std::int64_t limit) {
    return std::uniform_int_distribution<std::int64_t>(0, limit - 1)(random);
  }

  std::string word() { return "w" + std::to_string(100 + upTo(900)); }

  void fill(int rows) {
    Recordset set = database.OpenRecordset("Woerterbuch");
    for (int i = 0; i < rows; ++i) {
      set.AddNew();
      const Row row{word(), word(), static_cast<int>(upTo(3))};
      table[set["ID_Woerterbuch"].asInteger()] = row;
      write(set, row);
    }
  }

  static void write(Recordset& set, const Row& row) {
    set.set("Begriff", row.word);
    set.set("SortBegriff", row.key);
    set.set("Ebene", row.level);
    set.Update();
  }

  /// The members that a set opened now would have.
  void freeze(bool sortedByKey, int level) {
    members.clear();
    for (const auto& [id, row] : table) {
      if (level < 0 || row.level == level) members.push_back({id});
    }
    if (sortedByKey) {
      std::ranges::stable_sort(
          members, [&](const Member& a, const Member& b) { return table[a.id].key < table[b.id].key; });
    }
  }

  std::vector<std::size_t> present() const {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < members.size(); ++i) {
      if (!members[i].removed) places.push_back(i);
    }
    return places;
  }

  std::string expected(std::size_t member) const {
    const auto row = table.find(members[member].id);
    return row == table.end() ? "(gone)" : row->second.word;
  }

  /// One random step of the set and of the lists. `at` is the member the set stands on, -1 for none.
  void step(Recordset& set, std::int64_t& at);
  void stepOthers();
  void check(Recordset& set, std::int64_t at);
};

void RecordsetModel::check(Recordset& set, std::int64_t at) {
  const std::vector<std::size_t> places = present();
  if (at < 0) return;
  const auto member = static_cast<std::size_t>(at);
  if (members[member].removed) {
    ASSERT_EQ(read(set, "Begriff"), "(gone)");
    return;
  }
  ASSERT_EQ(read(set, "Begriff"), expected(member));
  ASSERT_EQ(set.AbsolutePosition(), std::ranges::find(places, member) - places.begin());
}

void RecordsetModel::stepOthers() {
  const std::int64_t id =
      table.empty() ? 0 : std::next(table.begin(), upTo(static_cast<std::int64_t>(table.size())))->first;
  const std::string where = " WHERE ID_Woerterbuch = " + std::to_string(id);
  switch (upTo(3)) {
    case 0: {
      const Row row{word(), word(), static_cast<int>(upTo(3))};
      database.Execute("UPDATE Woerterbuch SET Begriff = '" + row.word + "', SortBegriff = '" + row.key +
                       "', Ebene = " + std::to_string(row.level) + where);
      if (id > 0) table[id] = row;
      break;
    }
    case 1:
      database.Execute("DELETE * FROM Woerterbuch" + where);
      table.erase(id);
      break;
    default:
      fill(1);
  }
}

void RecordsetModel::step(Recordset& set, std::int64_t& at) {
  const std::vector<std::size_t> places = present();
  const auto randomPlace = [&] {
    return static_cast<std::size_t>(upTo(static_cast<std::int64_t>(places.size())));
  };
  if (places.empty()) return;
  switch (upTo(9)) {
    case 0: {
      const std::size_t place = randomPlace();
      set.setAbsolutePosition(static_cast<std::int64_t>(place));
      at = static_cast<std::int64_t>(places[place]);
      break;
    }
    case 1:
      if (at >= 0) {
        const auto next = std::ranges::upper_bound(places, static_cast<std::size_t>(at));
        set.MoveNext();
        ASSERT_EQ(set.EndOfFile(), next == places.end());
        at = next == places.end() ? -1 : static_cast<std::int64_t>(*next);
      }
      break;
    case 2:
      if (at >= 0) {
        const auto here = std::ranges::lower_bound(places, static_cast<std::size_t>(at));
        set.MovePrevious();
        ASSERT_EQ(set.BeginOfFile(), here == places.begin());
        at = here == places.begin() ? -1 : static_cast<std::int64_t>(*std::prev(here));
      }
      break;
    case 3:
      upTo(2) == 0 ? set.MoveFirst() : set.MoveLast();
      at = static_cast<std::int64_t>(set.AbsolutePosition() == 0 ? places.front() : places.back());
      break;
    case 4: {
      set.AddNew();
      const Row row{word(), word(), static_cast<int>(upTo(3))};
      const std::int64_t id = set["ID_Woerterbuch"].asInteger();
      table[id] = row;
      members.push_back({id});
      write(set, row);
      break;
    }
    case 5:
      if (at >= 0 && !members[static_cast<std::size_t>(at)].removed) {
        const std::int64_t id = members[static_cast<std::size_t>(at)].id;
        if (!table.contains(id)) {
          ASSERT_EQ(errorOf([&] { set.Edit(); }), 3167);
          break;
        }
        table[id] = {word(), word(), static_cast<int>(upTo(3))};
        set.Edit();
        write(set, table[id]);
      }
      break;
    case 6:
      if (at >= 0 && table.contains(members[static_cast<std::size_t>(at)].id)) {
        set.Delete();
        table.erase(members[static_cast<std::size_t>(at)].id);
        members[static_cast<std::size_t>(at)].removed = true;
      }
      break;
    default: {
      const std::size_t place = randomPlace();
      const std::string sought = expected(places[place]);
      const std::string criterion =
          upTo(2) == 0 ? "Begriff = \"" + sought + "\"" : "Begriff & '' = '" + sought + "'";
      const bool next = upTo(2) == 0 && at >= 0;
      next ? set.FindNext(criterion) : set.FindFirst(criterion);
      const auto hit = std::ranges::find_if(places, [&](std::size_t member) {
        return (!next || static_cast<std::int64_t>(member) > at) && sought != "(gone)" &&
               expected(member) == sought;
      });
      ASSERT_EQ(set.NoMatch(), hit == places.end()) << criterion;
      if (hit != places.end()) at = static_cast<std::int64_t>(*hit);
    }
  }
}

}  // namespace

TEST_F(RecordsetModel, RandomStepsAgreeWithPlainLists) {
  const std::pair<const char*, std::pair<bool, int>> shapes[] = {
      {"SELECT * FROM Woerterbuch ORDER BY SortBegriff, ID_Woerterbuch", {true, -1}},
      {"SELECT * FROM Woerterbuch", {false, -1}},
      {"SELECT * FROM Woerterbuch WHERE Ebene = 1 ORDER BY SortBegriff, ID_Woerterbuch", {true, 1}}};
  for (unsigned seed = 1; seed <= 12; ++seed) {
    for (const auto& [statement, shape] : shapes) {
      SCOPED_TRACE(std::string(statement) + ", seed " + std::to_string(seed));
      random.seed(seed);
      database.Execute("DELETE * FROM Woerterbuch");
      table.clear();
      fill(seed % 3 == 0 ? 300 : 40);
      freeze(shape.first, shape.second);
      Recordset set = database.OpenRecordset(statement);
      std::int64_t at = members.empty() ? -1 : 0;
      const std::int64_t oneInOthers = 2 + upTo(6);
      for (int i = 0; i < 120; ++i) {
        upTo(oneInOthers) == 0 ? stepOthers() : step(set, at);
        if (HasFatalFailure()) return;
        if (upTo(2) == 0) check(set, at);
        if (HasFatalFailure()) return;
      }
      Texts rest;
      for (const std::size_t place : present()) rest.push_back(expected(place));
      ASSERT_EQ(column(set, "Begriff"), rest);
      ASSERT_EQ(set.RecordCount(), static_cast<std::int64_t>(rest.size()));
    }
  }
}
