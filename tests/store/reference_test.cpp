#include "store/reference.h"

#include "catalogue/label.h"
#include "store/dictionary.h"
#include "store/letters.h"
#include "store/locale.h"

namespace {

class Reference : public StoreTest {};

TEST_F(Reference, ADictionaryStartsWithTheStandardCatalogues) {
  create("a.cvb");
  store::fillReferenceData(s);
  EXPECT_GT(count("WKategorie"), 5);
  EXPECT_GT(count("WSachgebiet"), 5);
  EXPECT_GT(count("Sprachen"), 10);
  EXPECT_GT(count("Kodierungen"), 5);
  EXPECT_EQ(rows("select Anwendung from Umgebung where Dateityp = 'MP3'"), "xdg-open");
  EXPECT_EQ(count("Umgebung"), 14);
  EXPECT_EQ(rows("select count(*) from WZeit where year_num = 2024"), "366");
  EXPECT_EQ(rows("select day_num_of_month, month_num_of_year, quarter_num_of_year, day_num_of_year from "
                 "WZeit where date_key = " +
                 rows("select max(date_key) from WZeit where year_num = 2024")),
            "31,12,4,366");
  const std::string german = rows("select Kategorie from WKategorie");
  store::CloseCurrentDB(s);

  create("b.cvb");
  db().Execute("update Sprache set Anwendungssprache = 0");
  store::ImportStandardEigenschaftenundSachgebiete(s);
  EXPECT_NE(rows("select Kategorie from WKategorie"), german);
}

TEST_F(Reference, ALinkCollectionStartsWithThreeRows) {
  create("a.cvb", 2);
  store::ImportStandardEigenschaftenundSachgebiete(s);
  EXPECT_EQ(rows("select Kategorie, Abkuerzung from WKategorie"),
            t.label(label::starter_property) + ",NULL|" + t.label(label::starter_property_2) + ",NULL");
  EXPECT_EQ(rows("select Sachgebiet, Abkuerzung from WSachgebiet"),
            t.label(label::starter_subject) + ",NULL");
}

TEST_F(Reference, LettersBringTheirVariants) {
  create("a.cvb");
  store::GenerateBuchstabenFilter(db());
  EXPECT_EQ(count("Buchstaben"), 26);
  store::BuchstabenZuweisung(s, "N");
  const auto& state = s.filter.FilterBuchstabe;
  EXPECT_EQ(std::vector<std::string>(state.begin() + 1, state.end()),
            (std::vector<std::string>{"Ñ", " ", " ", " ", " "}));
  store::BuchstabenZuweisung(s, "A");
  EXPECT_EQ(state[1] + state[2] + state[3] + state[4] + state[5], "ÅÁÂÃÄ");
  store::BuchstabenZuweisung(s, "Ж");
  EXPECT_EQ(state[1], "Å") << "a caption without a row leaves the variants";
  store::BuchstabenZuweisung(s, "B");
  EXPECT_EQ(state[1] + state[5], "  ");
}

TEST_F(Reference, SortOrdersAreKnownByTheirCaption) {
  EXPECT_EQ(store::localeOfSortOrder(s, t.label(label::sort_greek)), ";LANGID=0x0408;CP=1253;COUNTRY=0");
  EXPECT_EQ(store::sortOrderCaptions(s).size(), 20U);
  s.files.CurrentLocale = "kept";
  store::DefSortOrder(s, "Klingonisch");
  EXPECT_EQ(s.files.CurrentLocale, "kept");
}

TEST_F(Reference, ASortOrderIsKnownByTheCaptionOfTheOtherLanguageToo) {
  const std::vector<std::string> german = store::sortOrderCaptions(s);
  session::TexteEinlesen(s, 2);
  const std::vector<std::string> english = store::sortOrderCaptions(s);
  ASSERT_NE(german, english);
  for (const int language : {2, 1}) {
    session::TexteEinlesen(s, language);
    for (std::size_t n = 0; n < german.size(); ++n) {
      EXPECT_EQ(store::placeOfSortOrder(s, german[n]), n) << german[n];
      EXPECT_EQ(store::placeOfSortOrder(s, english[n]), n) << english[n];
    }
    EXPECT_EQ(store::placeOfSortOrder(s, "Klingonisch"), std::nullopt);
    EXPECT_EQ(store::placeOfSortOrder(s, ""), std::nullopt);
  }
}

TEST_F(Reference, PrintFontsFollowTheProjectsFonts) {
  create("a.cvb");
  s.project.FontFrom = "Gentium";
  s.project.PhoneticFont = "IPAPHON";
  store::LoadDefaultPrintFonts(s);
  store::LoadDefaultPrintFonts(s);
  EXPECT_EQ(count("Druckschriften"), 1);
  EXPECT_EQ(rows("select ObjektSchriftart, ObjektSchriftgroesse, ObjektSchriftFett, AusspracheSchriftart, "
                 "BeispielSchriftart, BeispielSchriftKursiv, QuerverweisSchriftgroesse from Druckschriften"),
            "Gentium,10,-1,IPAPHON,Gentium,-1,8");
}

TEST_F(Reference, TheSettingsRowHoldsDefaultsAndChoices) {
  create("a b.cvb");
  EXPECT_EQ(rows("select khz22, bit16, Stil1, Stil2, SteuerzeichenFeld, SteuerzeichenSatz, NewNumberOfDays, "
                 "BegriffPruefung, VerwendungAbkuerzungen from Sprache"),
            "-1,-1,-1,0,^,~,7,-1,0");
  EXPECT_EQ(rows("select Audiopfad from Sprache"), t.home / "a b/") << "really spelled, with its separator";
  const std::string ignored = rows("select IgnoreAtSort from Sprache");
  EXPECT_TRUE(ignored.starts_with("\"!¡¿") && ignored.ends_with("“”"));
  EXPECT_FALSE(rows("select LautschriftZeichenArialUnicode from Sprache").empty());
}

}  // namespace
