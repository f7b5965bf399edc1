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

  std::size_t randomPlace(const std::vector<std::size_t>& places) {
    return static_cast<std::size_t>(upTo(static_cast<std::int64_t>(places.size())));
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
  // What a step may be; `places` are the members present.
  void move(Recordset& set, std::int64_t& at, const std::vector<std::size_t>& places, bool back);
  void add(Recordset& set);
  void edit(Recordset& set, std::int64_t at);
  void remove(Recordset& set, std::int64_t at);
  void find(Recordset& set, std::int64_t& at, const std::vector<std::size_t>& places);
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

void RecordsetModel::move(Recordset& set, std::int64_t& at, const std::vector<std::size_t>& places,
                          bool back) {
  if (at < 0) return;
  const auto member = static_cast<std::size_t>(at);
  const auto place =
      back ? std::ranges::lower_bound(places, member) : std::ranges::upper_bound(places, member);
  const bool over = place == (back ? places.begin() : places.end());
  if (back)
    set.MovePrevious();
  else
    set.MoveNext();
  ASSERT_EQ(back ? set.BeginOfFile() : set.EndOfFile(), over);
  at = over ? -1 : static_cast<std::int64_t>(back ? *std::prev(place) : *place);
}

void RecordsetModel::add(Recordset& set) {
  set.AddNew();
  const Row row{word(), word(), static_cast<int>(upTo(3))};
  const std::int64_t id = set["ID_Woerterbuch"].asInteger();
  table[id] = row;
  members.push_back({id});
  write(set, row);
}

void RecordsetModel::edit(Recordset& set, std::int64_t at) {
  if (at < 0 || members[static_cast<std::size_t>(at)].removed) return;
  const std::int64_t id = members[static_cast<std::size_t>(at)].id;
  if (!table.contains(id)) {
    ASSERT_EQ(errorOf([&] { set.Edit(); }), 3167);
    return;
  }
  table[id] = {word(), word(), static_cast<int>(upTo(3))};
  set.Edit();
  write(set, table[id]);
}

void RecordsetModel::remove(Recordset& set, std::int64_t at) {
  if (at < 0) return;
  Member& member = members[static_cast<std::size_t>(at)];
  if (!table.contains(member.id)) return;
  set.Delete();
  table.erase(member.id);
  member.removed = true;
}

void RecordsetModel::find(Recordset& set, std::int64_t& at, const std::vector<std::size_t>& places) {
  const std::string sought = expected(places[randomPlace(places)]);
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

void RecordsetModel::step(Recordset& set, std::int64_t& at) {
  const std::vector<std::size_t> places = present();
  if (places.empty()) return;
  switch (upTo(9)) {
    case 0: {
      const std::size_t place = randomPlace(places);
      set.setAbsolutePosition(static_cast<std::int64_t>(place));
      at = static_cast<std::int64_t>(places[place]);
      break;
    }
    case 1:
      move(set, at, places, false);
      break;
    case 2:
      move(set, at, places, true);
      break;
    case 3:
      upTo(2) == 0 ? set.MoveFirst() : set.MoveLast();
      at = static_cast<std::int64_t>(set.AbsolutePosition() == 0 ? places.front() : places.back());
      break;
    case 4:
      add(set);
      break;
    case 5:
      edit(set, at);
      break;
    case 6:
      remove(set, at);
      break;
    default:
      find(set, at, places);
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
