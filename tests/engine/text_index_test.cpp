// What the index of texts finds, against a loop over the same rows.
#include "indexed_texts.h"

using namespace stored;

namespace {

constexpr const char* turkish = ";LANGID=0x041F;CP=1254;COUNTRY=0";
constexpr const char* greek = ";LANGID=0x0408;CP=1253;COUNTRY=0";
constexpr const char* japanese = ";LANGID=0x0411;CP=932;COUNTRY=0";

}  // namespace

TEST(TextIndex, FindsWhatALoopFindsInEachLocale) {
  for (const char* locale : {german, turkish, greek, japanese}) {
    IndexedTexts texts(locale);
    texts.expectPatternsFound(10);
    EXPECT_FALSE(texts.isIndexed());
    texts.compact();
    ASSERT_TRUE(texts.isIndexed());
    EXPECT_EQ(lines(texts.faults()), "");
    texts.expectPatternsFound(40);
    texts.compact(german);
    texts.expectPatternsFound(10);
  }
}

TEST(TextIndex, KeepsNullAndNotApartAndServesJoinsAndTheSecondInterface) {
  IndexedTexts texts(german);
  texts.compact();
  for (int i = 0; i < 10; ++i) {
    const std::string one = texts.pattern(), like = " LIKE \"" + one + "\"";
    const auto note = [](bool, std::optional<bool> hit) { return hit && *hit; };
    const auto noNote = [](bool, std::optional<bool> hit) { return hit && !*hit; };
    const auto rest = [](bool, std::optional<bool> hit) { return !hit || !*hit; };
    EXPECT_EQ(texts.found("NOT bemerkung" + like), texts.expected(one, noNote)) << one;
    EXPECT_EQ(texts.found("bemerkung NOT" + like), texts.expected(one, noNote)) << one;
    EXPECT_EQ(texts.found("(bemerkung" + like + ") IS NULL OR (bemerkung" + like + ") = 0"),
              texts.expected(one, rest))
        << one;
    EXPECT_EQ(texts.found("woerterbuch.id_haupt = haupt.id AND bemerkung" + like, "woerterbuch, haupt"),
              texts.expected(one, note));
    EXPECT_EQ(
        texts.found("bemerkung" + like, "haupt LEFT JOIN woerterbuch ON haupt.id = woerterbuch.id_haupt"),
        texts.expected(one, note));
    const std::string other = texts.pattern();
    Ids both = texts.expected(one, note);
    both.merge(texts.expected(other, [](bool search, auto) { return search; }));
    EXPECT_EQ(texts.found("bemerkung" + like + " OR metasuche LIKE \"" + other + "\""), both) << other;
    std::string second = one;
    for (char& c : second) c = c == '*' ? '%' : c == '?' ? '_' : c;
    EXPECT_EQ(texts.found("bemerkung LIKE \"" + second + "\"", "woerterbuch", engine::Interface::second),
              texts.expected(second, note, 2));
  }
  texts.database().CreateQueryDef("Notizen", "SELECT * FROM Woerterbuch WHERE ebene = 1 ORDER BY metasuche");
  const std::string one = texts.pattern();
  EXPECT_EQ(texts.found("metasuche LIKE \"" + one + "\"", "Notizen"),
            texts.expected(one, [](bool search, auto) { return search; }));
  EXPECT_ANY_THROW(texts.database().OpenRecordset("SELECT * FROM [vc$text]"));
  EXPECT_ANY_THROW(texts.database().OpenRecordset("SELECT * FROM [vc$text$11$Woerterbuch$changed]"));
}

TEST(TextIndex, HelpsAConditionThatAnotherIndexServesOnItsOwn) {
  IndexedTexts texts(german);
  texts.database().Execute("CREATE INDEX Note ON Woerterbuch (Bemerkung)");
  texts.compact();
  for (int i = 0; i < 30; ++i) {
    const std::string inside = texts.pattern(), begins = texts.pattern().substr(1);
    Ids both = texts.expected(inside, [](bool search, auto) { return search; });
    const auto note = [](bool, std::optional<bool> hit) { return hit.value_or(false); };
    both.merge(texts.expected(begins, note));
    EXPECT_EQ(texts.found("bemerkung LIKE \"" + begins + "\" OR metasuche LIKE \"" + inside + "\""), both)
        << begins << " " << inside;
    EXPECT_EQ(texts.found("bemerkung LIKE \"" + begins + "\""), texts.expected(begins, note)) << begins;
    EXPECT_EQ(texts.found("bemerkung LIKE \"" + begins + "\" OR bemerkung LIKE \"" + begins + "\""),
              texts.expected(begins, note))
        << begins;
  }
}

TEST(TextIndex, FollowsEveryKindOfWrite) {
  IndexedTexts texts(german);
  for (int round = 0; round < 3; ++round) {
    if (round != 1) texts.compact();
    const std::int64_t base = 2000 + round * 100;
    for (std::int64_t i = 0; i < 30; ++i) texts.insert(base + i);
    for (std::int64_t id = 3; id < 300; id += 17) texts.update(id + round);
    for (std::int64_t id = 5 + round; id < 400; id += 40) {
      if (texts.rows().count(id) == 0) continue;
      texts.erase(id);
      texts.insert(id);  // another text under a number that the index knows
    }
    for (std::int64_t id = 701 + round * 10; id < 705 + round * 10; ++id) texts.erase(id);
    texts.expectPatternsFound(10);
    // One statement over many rows, and a recordset.
    texts.database().Execute("UPDATE Woerterbuch SET Bemerkung = 'Sammelnotiz' WHERE ID_Woerterbuch > 1200");
    for (auto& [id, row] : texts.rows())
      if (id > 1200) row.second = "Sammelnotiz";
    engine::Recordset rows =
        texts.database().OpenRecordset("SELECT * FROM Woerterbuch WHERE ID_Woerterbuch = 900");
    rows.Edit();
    rows.set("MetaSuche", Value("Handarbeit " + std::to_string(round)));
    rows.Update();
    texts.rows()[900].first = "Handarbeit " + std::to_string(round);
    rows.Close();
    EXPECT_EQ(texts.found("bemerkung LIKE \"*melnot*\"").size(),
              static_cast<std::size_t>(std::count_if(texts.rows().begin(), texts.rows().end(),
                                                     [](const auto& row) { return row.first > 1200; })));
    EXPECT_EQ(texts.found("metasuche LIKE \"*darbeit " + std::to_string(round) + "*\""), Ids{900});
    texts.expectPatternsFound(10);
    EXPECT_EQ(lines(texts.faults()), "");
  }
  texts.database().Execute("DELETE FROM Haupt WHERE ID = 2");  // takes its entries along
  std::erase_if(texts.rows(), [](const auto& row) { return row.first % 2 == 1; });
  texts.expectPatternsFound(10);
  texts.compact();
  texts.expectPatternsFound(10);
  EXPECT_EQ(lines(texts.faults()), "");
}

TEST(TextIndex, GoesWithItsFieldsAndTables) {
  IndexedTexts texts(german);
  texts.compact();
  engine::Database& database = texts.database();
  const auto columns = [&] { return database.impl()->file->data().texts; };
  database.Execute("ALTER TABLE Woerterbuch DROP COLUMN Ebene");
  EXPECT_EQ(columns().size(), 1U);
  const std::string one = texts.pattern();
  const auto search = [](bool hit, auto) { return hit; };
  EXPECT_EQ(texts.found("metasuche LIKE \"" + one + "\""), texts.expected(one, search));
  EXPECT_EQ(lines(texts.faults()), "");
  texts.compact();
  EXPECT_TRUE(texts.isIndexed());
  EXPECT_EQ(texts.found("metasuche LIKE \"" + one + "\""), texts.expected(one, search));
  database.Execute("ALTER TABLE Woerterbuch DROP COLUMN Bemerkung");
  EXPECT_TRUE(columns().empty());
  EXPECT_EQ(texts.found("metasuche LIKE \"" + one + "\""), texts.expected(one, search));
  engine::indexTexts(database, "Woerterbuch", {"MetaSuche"});
  texts.compact();
  EXPECT_TRUE(texts.isIndexed());
  EXPECT_EQ(texts.found("metasuche LIKE \"" + one + "\""), texts.expected(one, search));
  const auto refused = [&](const char* table, const char* field) {
    try {
      engine::indexTexts(database, table, {field});
    } catch (const engine::Error& error) {
      return error.number();
    }
    return 0;
  };
  EXPECT_EQ(refused("Keine", "MetaSuche"), 3078);
  EXPECT_EQ(refused("Woerterbuch", "Keins"), 3265);
  EXPECT_EQ(refused("Woerterbuch", "ID_Haupt"), 5);
}
