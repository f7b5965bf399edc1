// Automatic assignment, and deletion by the items of the two catalogues.

#include <algorithm>

#include "entry/dictionary.h"
#include "entry/frmAutokat.h"
#include "entry/frmDeleteEigenschaftSach.h"
#include "entry/frmDeleteEintragEigenschaftSach.h"
#include "entry/frmServices.h"

namespace {

using namespace entry;
using platform::box::answerNo;
using platform::box::answerYes;

/// The position of a name in a list of items.
std::size_t at(const std::vector<CatalogueItem>& items, const std::string& name) {
  const auto found = std::ranges::find(items, name, &CatalogueItem::name);
  EXPECT_NE(found, items.end()) << name;
  return static_cast<std::size_t>(found - items.begin());
}
std::string names(const std::vector<CatalogueItem>& items) {
  std::string all;
  for (const CatalogueItem& item : items) all += (all.empty() ? "" : ",") + item.name;
  return all;
}

class ItemsTest : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    for (const char* name : {"Verb", "Adverb", "Nomen"})
      insert(std::string("insert into WKategorie (Kategorie) values ('") + name + "')");
    for (const char* name : {"Recht", "Bau"})
      insert(std::string("insert into WSachgebiet (Sachgebiet) values ('") + name + "')");
  }
  /// Makes an entry look as if it was changed long ago.
  void age(std::int64_t id) {
    insert("update Woerterbuch set DateTimeStampLastChange = '01.01.2001 00:00:00' where ID_Woerterbuch = " +
           std::to_string(id));
  }
  bool isAged(std::int64_t id) { return ofEntry("DateTimeStampLastChange", id) == "01.01.2001 00:00:00"; }
};

TEST_F(ItemsTest, FlagsAreSetOneByOneInBulkAndForNewEntriesOnly) {
  frmAutokat automatic(s);
  ASSERT_TRUE(Form_Load(automatic));
  EXPECT_EQ(names(automatic.properties.catalogue), "Adverb,Nomen,Verb");
  ASSERT_TRUE(setFlag(automatic, true, 2));
  ASSERT_TRUE(setFlag(automatic, true, 2));
  ASSERT_TRUE(setFlag(automatic, true, 1));
  ASSERT_TRUE(flagAll(automatic, false, true));
  EXPECT_EQ(names(automatic.properties.flagged), "Nomen,Verb");
  EXPECT_EQ(names(automatic.subjects.flagged), "Bau,Recht");
  ASSERT_TRUE(clearFlag(automatic, true, 0));
  EXPECT_FALSE(clearFlag(automatic, true, 1)) << "there is no such row";
  ASSERT_TRUE(selectTab(automatic, AutomaticTab::toMeanings));
  EXPECT_EQ(names(automatic.properties.flagged), "");
  ASSERT_TRUE(setFlag(automatic, true, 0));

  addMain("Haus");
  visit(3, s.entry.CurrentEntryId);
  addMeaningText("house");
  EXPECT_EQ(rows("select ID_WKategorie from relWoertWKat"), "1");
  EXPECT_EQ(rows("select count(*) from relWoertSachgebiet"), "2");
  EXPECT_EQ(rows("select ID_WKategorie from relWortbedWKat"), "2");

  ASSERT_TRUE(selectTab(automatic, AutomaticTab::toEntries));
  ASSERT_TRUE(clearAllFlags(automatic));
  EXPECT_EQ(names(automatic.properties.flagged) + names(automatic.subjects.flagged), "");
  ASSERT_TRUE(selectTab(automatic, AutomaticTab::toMeanings));
  EXPECT_EQ(names(automatic.properties.flagged), "Adverb") << "the flags for meanings stay";
}

TEST_F(ItemsTest, AnItemGoesWithItsAssignmentsAndItsEntriesCountAsChanged) {
  const std::int64_t ofEntry = addMain("Haus"), ofMeaning = addMain("Zaun"), neither = addMain("Dach");
  for (const bool properties : {true, false}) {
    const std::string item = properties ? "Verb" : "Recht";
    visit(3, ofEntry);
    ASSERT_TRUE(properties ? addProperty(form, item, Owner::entry) : addSubject(form, item, Owner::entry));
    visit(3, ofMeaning);
    addMeaningText("fence");
    ASSERT_TRUE(selectMeaningForProperties(form, 0));
    ASSERT_TRUE(properties ? addProperty(form, item, Owner::meaning)
                           : addSubject(form, item, Owner::meaning));
    for (const std::int64_t id : {ofEntry, ofMeaning, neither}) age(id);

    frmDeleteEigenschaftSach deletion(s, properties);
    ASSERT_TRUE(Form_Load(deletion));
    EXPECT_FALSE(deleteItems(deletion)) << "nothing is chosen, nothing is asked";
    choose(deletion.lists, 0);
    choose(deletion.lists, at(deletion.lists.items, item));
    giveBack(deletion.lists, 0);
    EXPECT_EQ(names(deletion.lists.chosen), item);
    EXPECT_EQ(names(deletion.lists.items), properties ? "Adverb,Nomen" : "Bau");
    script.answer(answerNo, properties ? "Eigenschaften" : "Sachgebiete");
    EXPECT_FALSE(deleteItems(deletion));
    EXPECT_EQ(names(deletion.lists.chosen), item);
    script.answer(answerYes);
    ASSERT_TRUE(deleteItems(deletion));
    EXPECT_EQ(deletion.deleted, 1);
    EXPECT_EQ(names(deletion.lists.items), properties ? "Adverb,Nomen" : "Bau");
    EXPECT_FALSE(isAged(ofEntry) || isAged(ofMeaning));
    EXPECT_TRUE(isAged(neither));
  }
  for (const char* table : {"relWoertWKat", "relWortbedWKat", "relWoertSachgebiet", "relWortbedSachgebiet"})
    EXPECT_EQ(rows(std::string("select count(*) from ") + table), "0") << table;
  EXPECT_EQ(rows("select count(*) from Woerterbuch"), "3");
}

TEST_F(ItemsTest, InTheScopeOfEntriesAnEntryOfAMeaningDoesNotCountAsChanged) {
  const std::int64_t id = addMain("Zaun");
  visit(3, id);
  addMeaningText("fence");
  ASSERT_TRUE(selectMeaningForProperties(form, 0));
  ASSERT_TRUE(addProperty(form, "Verb", Owner::meaning));
  age(id);
  frmDeleteEigenschaftSach deletion(s, true);
  ASSERT_TRUE(Form_Load(deletion));
  deletion.meaningsToo = false;
  choose(deletion.lists, at(deletion.lists.items, "Verb"));
  script.answer(answerYes);
  ASSERT_TRUE(deleteItems(deletion));
  EXPECT_TRUE(isAged(id));
  EXPECT_EQ(rows("select count(*) from relWortbedWKat"), "0") << "an assignment to nothing can not be";
}

TEST_F(ItemsTest, EntriesGoByAnItemAndLeaveTheirSubEntries) {
  const std::int64_t house = addMain("Haus"), fence = addMain("Zaun"), door = addSub(house, "Haustür");
  visit(3, house);
  ASSERT_TRUE(addProperty(form, "Nomen", Owner::entry));
  ASSERT_TRUE(addSubject(form, "Bau", Owner::entry));
  frmDeleteEintragEigenschaftSach deletion(s, false);
  ASSERT_TRUE(Form_Load(deletion));
  EXPECT_FALSE(deleteEntries(deletion));
  choose(deletion.lists, at(deletion.lists.items, "Recht"));
  script.answer(answerYes, "Sachgebieten");
  ASSERT_TRUE(deleteEntries(deletion));
  EXPECT_EQ(deletion.deleted, 0);
  choose(deletion.lists, at(deletion.lists.items, "Bau"));
  script.answer(answerYes);
  ASSERT_TRUE(deleteEntries(deletion));
  EXPECT_EQ(deletion.deleted, 1);
  EXPECT_TRUE(script.told("Gelöschte Einträge: 1"));
  EXPECT_EQ(rows("select ID_Woerterbuch from Woerterbuch order by ID_Woerterbuch"),
            std::to_string(fence) + "|" + std::to_string(door));
  EXPECT_EQ(rows("select count(*) from relWoertWKat"), "0");
  EXPECT_EQ(rows("select count(*) from WSachgebiet"), "2") << "the items stay";
  frmServices services(s);
  script.answer(answerYes);
  script.answer(answerYes);
  ASSERT_TRUE(GenerateSortBegriff(services));
  EXPECT_EQ(rows("select ID_Woerterbuch from Woerterbuch"), std::to_string(fence));
}

}  // namespace
