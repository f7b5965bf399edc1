// Meanings, examples, properties and subject fields in the editor.

#include "entry/dictionary.h"

namespace {

using namespace entry;
using platform::box::answerNo;
using platform::box::answerYes;

std::vector<std::string> textsOf(frmEintrag& form) {
  std::vector<std::string> texts;
  for (const MeaningRow& row : meaningRows(form)) texts.push_back(row.text);
  return texts;
}

using Texts = std::vector<std::string>;

TEST_F(EntryTest, MeaningsAreStoredAtOnceAndChangedInTheGrid) {
  visit(3, addMain("Haus"));
  addMeaningText("house");
  addMeaningText("   ");
  addMeaningText("building");
  addMeaningText("house");
  EXPECT_EQ(textsOf(form), (Texts{"building", "house", "house"}));
  script.answer(answerNo);
  ASSERT_TRUE(editMeaning(form, 1, ""));
  EXPECT_EQ(textsOf(form), (Texts{"building", "house", "house"}));
  ASSERT_TRUE(selectMeaning(form, 1));
  addExampleText("a", "b");
  script.answer(answerYes);
  ASSERT_TRUE(editMeaning(form, 1, ""));
  EXPECT_EQ(textsOf(form), (Texts{"building", "house"}));
  EXPECT_EQ(rows("select count(*) from WortBedBsp"), "0");
  EXPECT_FALSE(form.exampleCommandsEnabled);
  ASSERT_TRUE(editMeaning(form, 0, "home"));
  EXPECT_EQ(textsOf(form), (Texts{"home", "house"}));
  EXPECT_FALSE(editMeaning(form, 0, std::string(251, 'x')));
  EXPECT_EQ(textsOf(form), (Texts{"home", "house"}));
  EXPECT_EQ(rows("select distinct DatabaseName from Wortbedeutung"), s.files.CurrentDBPath);
}

TEST_F(EntryTest, TheListOfAllMeaningsNarrowsWhileTyping) {
  visit(3, addMain("a"));
  for (const char* text : {"Äpfel", "apple", "Apfel", "banana"}) addMeaningText(text);
  EXPECT_EQ(dictionaryMeanings(form, 3), (Texts{"Apfel", "Äpfel", "apple"}));
  meaningBoxChanged(form, " AP");
  EXPECT_EQ(dictionaryMeanings(form, 9), (Texts{"Apfel", "apple"}));
  pickMeaning(form, "apple");
  dropPickedMeaning(form);
  ASSERT_TRUE(addMeaning(form));
  EXPECT_EQ(rows("select count(*) from Wortbedeutung where wortbedeutung = 'apple'"), "2");
  EXPECT_EQ(form.meaningBox, "");
  EXPECT_EQ(dictionaryMeanings(form, 9).size(), 5U);
}

TEST_F(EntryTest, TypingAnApostropheNarrowsTheListLikeAnyOtherCharacter) {
  visit(3, addMain("Wasser"));
  for (const char* text : {"l'eau", "l\"or", "lac"}) addMeaningText(text);
  meaningBoxChanged(form, "l'");
  EXPECT_EQ(dictionaryMeanings(form, 9), Texts{"l'eau"});
  meaningBoxChanged(form, "l\"");
  EXPECT_EQ(dictionaryMeanings(form, 9), Texts{"l\"or"});
  EXPECT_FALSE(s.shell.failed);
}

TEST_F(EntryTest, APropertyNeverReachesTheMeaningOfAnEntryThatWasLeft) {
  insert("insert into WKategorie (Kategorie) values ('Nomen')");
  insert("insert into WSachgebiet (Sachgebiet) values ('Bau')");
  visit(3, addMain("Haus"));
  addMeaningText("house");
  ASSERT_TRUE(Command1(form, 2));
  visit(3, addMain("Zaun"));
  addMeaningText("fence");
  const auto select = [&] {
    ASSERT_TRUE(selectTab(form, Tab::meaningProperties) && selectMeaningForProperties(form, 0));
    ASSERT_EQ(form.meaningPropertiesLabel, "fence");
  };
  select();
  ASSERT_TRUE(addSubject(form, "Bau", Owner::meaning));
  ASSERT_TRUE(moveNavigator(form, Step::first));
  EXPECT_EQ(form.record.Begriff, "Haus");
  EXPECT_TRUE(form.List5.empty() && propertyRows(form, Owner::meaning).empty());
  EXPECT_FALSE(addProperty(form, "Nomen", Owner::meaning)) << "no meaning of this entry is selected";
  ASSERT_TRUE(moveNavigator(form, Step::last));
  select();
  EXPECT_EQ(form.List5, Texts{"Bau"});
  script.answer(answerYes);
  ASSERT_TRUE(editMeaning(form, 0, ""));
  EXPECT_TRUE(form.List5.empty());
  EXPECT_FALSE(addProperty(form, "Nomen", Owner::meaning)) << "the meaning is gone";
  EXPECT_EQ(rows("select count(*) from relWortbedWKat"), "0");
}

TEST_F(EntryTest, ExamplesHangOnTheSelectedMeaning) {
  const std::int64_t id = addMain("Haus");
  visit(3, id);
  addMeaningText("house");
  EXPECT_FALSE(addExample(form));  // no meaning is selected yet
  ASSERT_TRUE(selectMeaning(form, 0));
  addExampleText("Das ist's", "That's it");
  EXPECT_EQ(form.focus, Focus::example);
  addExampleText("zwei", "");
  EXPECT_EQ(ofEntry("MetaSuche", id), "//house//Das ist's//That's it//zwei//////Haus");
  EXPECT_EQ(rows("select Beispiele from WortbedeutungFlat"), "Das ist's, zwei");
  form.exampleBox = "a \"quote\"";
  EXPECT_FALSE(addExample(form));
  EXPECT_EQ(form.exampleBox, "a \"quote\"");
  EXPECT_EQ(exampleRows(form).size(), 2U);

  ASSERT_TRUE(editExampleSentence(form, 0, ""));
  EXPECT_TRUE(script.told("bisherige Satz"));
  EXPECT_EQ(exampleRows(form)[0].sentence, "Das ist's");
  ASSERT_TRUE(editExampleSentence(form, 0, "eins"));
  ASSERT_TRUE(editExampleTranslation(form, 0, "one"));
  EXPECT_EQ(ofEntry("MetaSuche", id), "//house//eins//one//zwei//////Haus");
  EXPECT_FALSE(deleteExample(form));
  selectExample(form, 1);
  ASSERT_TRUE(deleteExample(form));
  EXPECT_FALSE(form.deleteExampleEnabled);
  EXPECT_EQ(rows("select Beispiel, Beispieluebersetzung from WortBedBsp"), "eins,one");
}

TEST_F(EntryTest, CatalogueItemsAreAssignedByHandAndByThemselves) {
  insert("insert into WKategorie (Kategorie, Abkuerzung, AutoZuordnungZuBegriff) values ('Nomen', 'n.', -1)");
  insert("insert into WKategorie (Kategorie, AutoZuordnungZuWortbedeutung) values ('selten', -1)");
  insert("insert into WSachgebiet (Sachgebiet, AutoZuordnungZuBegriff) values ('Bau', -1)");
  insert("insert into WSachgebiet (Sachgebiet, AutoZuordnungZuWortbedeutung) values ('Recht', -1)");
  const std::int64_t id = addMain("Haus");
  EXPECT_EQ(rows("select ID_WKategorie, KategorieWert from relWoertWKat where ID_Woerterbuch = " +
                 std::to_string(id)),
            "1,NULL");
  visit(3, id);
  ASSERT_TRUE(selectTab(form, Tab::properties));
  EXPECT_EQ(form.List6, (Texts{"Bau"}));
  EXPECT_FALSE(addProperty(form, "Nomen", Owner::entry));
  EXPECT_TRUE(script.told("„Nomen“ ist diesem Eintrag"));
  EXPECT_FALSE(addProperty(form, "nirgends", Owner::entry));
  ASSERT_TRUE(addProperty(form, "SELTEN", Owner::entry));
  ASSERT_TRUE(setPropertyValue(form, "selten", "sehr", Owner::entry));
  EXPECT_FALSE(setPropertyValue(form, "selten", std::string(51, 'x'), Owner::entry));
  std::string shown;
  for (const PropertyRow& row : propertyRows(form, Owner::entry)) shown += row.name + "=" + row.value + ";";
  EXPECT_EQ(shown, "Nomen=;selten=sehr;");
  ASSERT_TRUE(removeProperty(form, "Nomen", Owner::entry));
  EXPECT_EQ(rows("select Kategorie from WKategorie order by Kategorie"), "Nomen|selten");
  EXPECT_FALSE(addSubject(form, "Bau", Owner::entry));
  ASSERT_TRUE(addSubject(form, "Recht", Owner::entry));
  ASSERT_TRUE(removeSubject(form, "Bau", Owner::entry));
  EXPECT_EQ(form.List6, (Texts{"Recht"}));
  EXPECT_EQ(rows("select ID_WSachgebiet from relWoertSachgebiet"), "2");

  addMeaningText("house");
  addMeaningText("home");
  EXPECT_FALSE(addProperty(form, "Nomen", Owner::meaning));  // no meaning is selected yet
  ASSERT_TRUE(selectMeaningForProperties(form, 0));
  EXPECT_EQ(form.meaningPropertiesLabel, "home");
  EXPECT_EQ(propertyRows(form, Owner::meaning).size(), 1U);
  EXPECT_EQ(form.List5, (Texts{"Recht"}));
  ASSERT_TRUE(addProperty(form, "Nomen", Owner::meaning));
  EXPECT_FALSE(addProperty(form, "Nomen", Owner::meaning));
  EXPECT_FALSE(addSubject(form, "Recht", Owner::meaning));
  ASSERT_TRUE(addSubject(form, "Bau", Owner::meaning));
  ASSERT_TRUE(selectMeaningForProperties(form, 1));
  EXPECT_EQ(propertyRows(form, Owner::meaning).size(), 1U);
  EXPECT_EQ(form.List5, (Texts{"Recht"}));
  ASSERT_TRUE(Command1(form, 2));
  EXPECT_EQ(rows("select EigenschaftenZumBegriff, SachgebieteZumBegriff from WoerterbuchFlat"),
            "selten: sehr,Recht");
}

}  // namespace
