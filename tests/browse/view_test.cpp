// The table views: what they list, and that what is typed into a cell reaches the real table.

#include <gtest/gtest.h>

#include "browse/browser.h"
#include "browse/frmView.h"
#include "store/flat.h"

namespace {

class View : public BrowserTest {
 protected:
  void SetUp() override {
    BrowserTest::SetUp();
    s.project.IgnoreAtSort = "-(";
    house = addEntry("Haus");
    home = addMeaning(house, "home");
    building = addMeaning(house, "building");
    example = addRow(
        "WortBedBsp",
        {{"ID_Wortbedeutung", home}, {"Beispiel", "nach Haus"}, {"Beispieluebersetzung", "to the house"}});
    yard = addEntry("Hof");
    plural = addRow("WKategorie", {{"Kategorie", "Plural"}, {"Abkuerzung", "Pl."}});
    subject = addRow("WSachgebiet", {{"Sachgebiet", "Architektur"}, {"Abkuerzung", "Arch."}});
    for (const auto entry : {house, yard}) {
      addRow("relWoertWKat",
             {{"ID_Woerterbuch", entry}, {"ID_WKategorie", plural}, {"KategorieWert", "alt"}});
      addRow("relWoertSachgebiet", {{"ID_Woerterbuch", entry}, {"ID_WSachgebiet", subject}});
    }
    addRow("relWortbedWKat",
           {{"ID_Wortbedeutung", home}, {"ID_WKategorie", plural}, {"KategorieWert", "homes"}});
    addRow("relWortbedSachgebiet", {{"ID_Wortbedeutung", building}, {"ID_Sachgebiet", subject}});
    addRow("Querverweis", {{"ID_Woerterbuch", house}, {"ID_WoerterbuchQV", yard}, {"Querverweis", "Hof"}});
    addRow("URL", {{"ID_Woerterbuch", house}, {"URLName", "Bau"}, {"URL", "www.bau.de"}, {"Rating", 3}});
  }
  std::int64_t addMeaning(std::int64_t entry, const std::string& text) {
    return addRow("Wortbedeutung", {{"ID_Woerterbuch", entry}, {"Wortbedeutung", text}});
  }
  browse::frmView& load(int number) {
    s.shell.ViewKind = number;
    form_ = std::make_unique<browse::frmView>(s);
    EXPECT_TRUE(browse::Form_Load(*form_)) << t.log();
    return *form_;
  }
  std::size_t columnOf(const std::string& field) const {
    for (std::size_t n = 0; n < form_->Adodc1.columns.size(); ++n)
      if (form_->Adodc1.columns[n].field == field) return n;
    ADD_FAILURE() << "no column " << field;
    return 0;
  }
  /// The first row whose column shows a text.
  std::int64_t rowWith(const std::string& field, const std::string& text) {
    for (std::int64_t row = 0; row < browse::gridRows(form_->Adodc1); ++row)
      if (browse::gridField(form_->Adodc1, row, field) == text) return row;
    ADD_FAILURE() << "no row with " << text;
    return -1;
  }
  bool edit(std::int64_t row, const std::string& field, const std::string& text) {
    return browse::editCell(*form_, row, columnOf(field), text);
  }
  std::string shown() {
    std::string all;
    auto& grid = form_->Adodc1;
    for (std::int64_t row = 0; row < browse::gridRows(grid); ++row) {
      for (std::size_t n = 0; n < grid.columns.size(); ++n)
        all += (n > 0 ? "," : "") + browse::gridCell(grid, row, n);
      all += "|";
    }
    return all;
  }

  std::int64_t house = 0, yard = 0, home = 0, building = 0, example = 0, plural = 0, subject = 0;
  std::unique_ptr<browse::frmView> form_;
};

TEST_F(View, ListsWhatItIsNamedAfter) {
  load(2);
  EXPECT_EQ(shown(), "Haus,Plural,alt,Pl.|Hof,Plural,alt,Pl.|");
  load(3);
  EXPECT_EQ(shown(), "Haus,Architektur,Arch.|Hof,Architektur,Arch.|");
  load(4);
  EXPECT_EQ(shown(), "Haus,home,Plural,homes,Pl.|");
  load(5);
  EXPECT_EQ(shown(), "Haus,building,Architektur,Arch.|");
  load(6);
  EXPECT_EQ(browse::gridRows(form_->Adodc1), 2);
  load(8);
  EXPECT_EQ(shown(), "Haus,Bau,www.bau.de,,3|");
  load(9);
  EXPECT_EQ(shown(), "Haus,Hof|");
  load(10);
  EXPECT_EQ(shown(), "Hof,,,|");
  load(1);
  EXPECT_EQ(browse::gridRows(form_->Adodc1), 3);
  load(7);
  const auto row = rowWith("Wortbedeutung", "home");
  EXPECT_EQ(browse::gridCell(form_->Adodc1, row, columnOf("ExportView1.KategorieWert")), "alt");
  EXPECT_EQ(browse::gridCell(form_->Adodc1, row, columnOf("relWortbedWKat.KategorieWert")), "homes");
  EXPECT_FALSE(browse::canEdit(*form_, row, columnOf("WKategorie.Kategorie")));
  EXPECT_TRUE(browse::canEdit(*form_, row, columnOf("Wortbedeutung")));
  s.shell.ViewKind = 11;
  browse::frmView none(s);
  EXPECT_FALSE(browse::Form_Load(none));
}

TEST_F(View, AHeadwordChangesInAllItsRowsWithItsKeys) {
  const auto door = addSub(house, "-tür");
  db().Execute("update Woerterbuch set Prioritaet = 3 where ID_Woerterbuch = " + std::to_string(door));
  addRow("WArtikel", {{"Artikel", "das"}});
  load(1);
  ASSERT_TRUE(edit(rowWith("Wortbedeutung", "home"), "Begriff", "(das Heim")) << t.log();
  EXPECT_EQ(browse::gridField(form_->Adodc1, rowWith("Wortbedeutung", "building"), "Begriff"), "(das Heim");
  EXPECT_EQ(column("SortBegriff", house), "das Heim");
  EXPECT_EQ(column("PraefixBegriff", house), "(");
  ASSERT_TRUE(edit(rowWith("Wortbedeutung", "home"), "Begriff", "das Heim"));
  EXPECT_EQ(column("SortBegriff", house), "Heim") << "the article does not sort";
  EXPECT_EQ(column("SortBegriff", door), "Heim3tür");
  EXPECT_EQ(column("MetaSuche", house), "//building//home//nach Haus//to the house////das Heim");
  EXPECT_NE(column("DateTimeStampLastChange", house), "01.02.2020 10:00:00");
  ASSERT_TRUE(edit(rowWith("Begriff", "-tür"), "Begriff", "-dach"));
  EXPECT_EQ(column("SortBegriff", door), "Heim3dach");
  EXPECT_EQ(column("PraefixBegriff", door), "-");
}

TEST_F(View, EachColumnIsWrittenToItsOwnTable) {
  load(1);
  ASSERT_TRUE(edit(rowWith("Wortbedeutung", "home"), "Wortbedeutung", "the home")) << t.log();
  ASSERT_TRUE(edit(rowWith("Wortbedeutung", "the home"), "Beispiel", "nach Hause's"));
  ASSERT_TRUE(edit(rowWith("Wortbedeutung", "the home"), "Beispieluebersetzung", "home"));
  ASSERT_TRUE(edit(rowWith("Wortbedeutung", "building"), "Bemerkung", "eine \"Notiz\""));
  EXPECT_EQ(rows("select Wortbedeutung from Wortbedeutung order by ID_Wortbedeutung"), "the home|building");
  EXPECT_EQ(rows("select ID_Wortbedeutung, Beispiel, Beispieluebersetzung from WortBedBsp"),
            std::to_string(home) + ",nach Hause's,home");
  EXPECT_EQ(column("Bemerkung", house), "eine \"Notiz\"");
  EXPECT_EQ(column("MetaSuche", house), "//building//the home//nach Hause's//home////Haus");
  load(2);
  ASSERT_TRUE(edit(rowWith("Begriff", "Hof"), "KategorieWert", "Höfe"));
  ASSERT_TRUE(edit(rowWith("Begriff", "Hof"), "Kategorie", "Mehrzahl"));
  EXPECT_EQ(shown(), "Haus,Mehrzahl,alt,Pl.|Hof,Mehrzahl,Höfe,Pl.|") << "the catalogue's row serves both";
  EXPECT_EQ(rows("select EigenschaftenZumBegriff from WoerterbuchFlat where ID_Woerterbuch = " +
                 std::to_string(yard)),
            "Mehrzahl: Höfe");
  load(3);
  ASSERT_TRUE(edit(0, "Abkuerzung", "Bau."));
  load(4);
  ASSERT_TRUE(edit(0, "KategorieWert", "Heime"));
  load(5);
  ASSERT_TRUE(edit(0, "Sachgebiet", "Bauwesen"));
  EXPECT_EQ(rows("select Sachgebiet, Abkuerzung from WSachgebiet"), "Bauwesen,Bau.");
  EXPECT_EQ(rows("select KategorieWert from relWortbedWKat"), "Heime");
  EXPECT_EQ(rows("select KategorieWert from relWoertWKat order by ID_Woerterbuch"), "alt|Höfe");
  load(8);
  ASSERT_TRUE(edit(0, "Rating", "5"));
  ASSERT_TRUE(edit(0, "URLNotiz", "gut"));
  load(9);
  ASSERT_TRUE(edit(0, "Querverweis", "der Hof"));
  EXPECT_EQ(rows("select URLNotiz, Rating from URL"), "gut,5");
  EXPECT_EQ(rows("select Querverweis, ID_WoerterbuchQV from Querverweis"), "der Hof," + std::to_string(yard));
  EXPECT_EQ(rows("select Querverweise from WoerterbuchFlat where ID_Woerterbuch = " + std::to_string(house)),
            "der Hof");
}

TEST_F(View, ARefusedChangeIsReportedAndLeavesTheCell) {
  load(1);
  const auto row = rowWith("Wortbedeutung", "home");
  EXPECT_FALSE(edit(row, "Begriff", ""));
  EXPECT_FALSE(edit(row, "Begriff", std::string(251, 'x')));
  EXPECT_FALSE(edit(row, "Ebene", "zwei"));
  EXPECT_EQ(t.script.boxes.size(), 3U);
  EXPECT_EQ(browse::gridField(form_->Adodc1, row, "Begriff"), "Haus");
  EXPECT_EQ(column("Ebene", house), "1");
  EXPECT_FALSE(edit(row, "Begriff", "(")) << "nothing is left to sort by";
  EXPECT_EQ(column("SortBegriff", house), "Haus");
  const auto without = rowWith("Begriff", "Hof");
  EXPECT_FALSE(browse::canEdit(*form_, without, columnOf("Beispiel")));
  EXPECT_TRUE(edit(without, "Beispiel", "x"));
  EXPECT_EQ(count("WortBedBsp"), 1) << "there is no example that the cell could belong to";
}

TEST_F(View, AnEntryWithoutMeaningsGetsItsFirst) {
  load(10);
  EXPECT_FALSE(edit(0, "Wortbedeutung", "master's yard")) << "the text goes in as it is";
  EXPECT_EQ(browse::gridRows(form_->Adodc1), 1);
  ASSERT_TRUE(edit(0, "Wortbedeutung", "yard")) << t.log();
  EXPECT_EQ(browse::gridRows(form_->Adodc1), 0) << "it has one now";
  EXPECT_EQ(rows("select Wortbedeutung, DatabaseName from Wortbedeutung where ID_Woerterbuch = " +
                 std::to_string(yard)),
            "yard," + s.files.CurrentDBPath);
  EXPECT_EQ(column("MetaSuche", yard), "//yard////Hof");
}

TEST_F(View, OfSeveralFilesWritesToTheFileOfTheRow) {
  const std::string first = s.files.CurrentDBPath, second = t.home / "Zweites.cvb";
  store::CloseCurrentDB(s);
  create("Zweites.cvb");
  addEntry("Auge");
  addMeaning(1, "eye");
  store::CloseCurrentDB(s);
  open(first);
  ASSERT_TRUE(store::addDictionary(s, second, false));
  load(6);
  ASSERT_EQ(browse::gridRows(form_->Adodc1), 3);
  ASSERT_TRUE(edit(rowWith("Begriff", "Auge"), "Wortbedeutung", "an eye")) << t.log();
  EXPECT_EQ(s.files.CurrentDBPath, base::upper(second));
  EXPECT_EQ(rows("select Wortbedeutung from Wortbedeutung"), "an eye");
  EXPECT_EQ(browse::gridField(form_->Adodc1, rowWith("Begriff", "Auge"), "Wortbedeutung"), "an eye");
  ASSERT_TRUE(edit(rowWith("Wortbedeutung", "home"), "Begriff", "Zuhause"));
  EXPECT_EQ(s.files.CurrentDBPath, first);
  EXPECT_EQ(column("Begriff", house), "Zuhause");
}

class LinkView : public BrowserTest {
 protected:
  void SetUp() override { create("Links.cvb", 2); }
};

TEST_F(LinkView, ShowsAllInformationWithTheLinks) {
  const auto topic = addEntry("Bauen");
  addRow("URL", {{"ID_Woerterbuch", topic}, {"URLName", "Bau"}, {"URL", "www.bau.de"}});
  s.shell.ViewKind = 7;
  browse::frmView view(s);
  ASSERT_TRUE(browse::Form_Load(view)) << t.log();
  EXPECT_EQ(view.recordSource, "ViewAlleInformationenURL");
  ASSERT_EQ(browse::gridRows(view.Adodc1), 1);
  for (std::size_t n = 0; n < view.Adodc1.columns.size(); ++n)
    if (view.Adodc1.columns[n].field == "URL") {
      ASSERT_TRUE(browse::editCell(view, 0, n, "www.haus.de"));
    }
  EXPECT_EQ(rows("select URL from URL"), "www.haus.de");
  EXPECT_EQ(column("MetaSuche", topic), "//Bau//www.haus.de//////Bauen");
}

}  // namespace
