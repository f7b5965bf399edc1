// The catalogues of properties and subject fields.

#include "entry/dictionary.h"
#include "entry/frmNewKateg.h"

namespace {

using namespace entry;
using platform::box::answerNo;
using platform::box::answerYes;

class CatalogueTest : public EntryTest {
 protected:
  std::string shown(frmNewKateg& items) {
    std::string all;
    for (const CatalogueRow& row : catalogueRows(items))
      all += (all.empty() ? "" : "|") + row.name + "," + row.abbreviation;
    return all;
  }
  bool import(frmNewKateg& items, const std::string& name, const std::string& text) {
    dir.write(name, text);
    script.chooseFile(dir / name);
    return AddFile(items);
  }
};

TEST_F(CatalogueTest, ItemsAreAddedAndEditedInBothCatalogues) {
  for (const bool isProperty : {true, false}) {
    frmNewKateg items(s, isProperty);
    ASSERT_TRUE(Form_Load(items));
    EXPECT_FALSE(addItem(items)) << "nothing is typed";
    items.Text2 = "z.";
    Text1_Change(items, "Zeug");
    EXPECT_TRUE(addItem(items));
    EXPECT_FALSE(items.addEnabled);
    Text1_Change(items, "Amt");
    items.Text2 = " ";
    EXPECT_TRUE(addItem(items));
    EXPECT_EQ(shown(items), "Amt,|Zeug,z.");
    EXPECT_FALSE(editName(items, 0, " "));
    EXPECT_TRUE(script.told("Der Name darf nicht leer sein."));
    EXPECT_FALSE(s.shell.failed);
    EXPECT_TRUE(editName(items, 0, "it's"));
    EXPECT_TRUE(editAbbreviation(items, 0, "i."));
    EXPECT_TRUE(editAbbreviation(items, 1, ""));
    EXPECT_FALSE(editName(items, 1, std::string(51, 'x')));
    EXPECT_FALSE(editAbbreviation(items, 1, std::string(16, 'x')));
    Text1_Change(items, std::string(51, 'x'));
    EXPECT_FALSE(addItem(items));
    EXPECT_EQ(items.Text1.size(), 51u) << "what was refused stays in its box";
    EXPECT_EQ(shown(items), "it's,i.|Zeug,");
    s.shell.failed = false;
  }
  EXPECT_EQ(rows("select count(*) from WKategorie"), "2");
  EXPECT_EQ(rows("select Abkuerzung from WSachgebiet where Sachgebiet = 'Zeug'"), "NULL");
}

TEST_F(CatalogueTest, AFileIsTakenWholeOrNotAtAll) {
  frmNewKateg items(s, false);
  ASSERT_TRUE(Form_Load(items));
  std::string fifty;
  for (int i = 0; i < 50; ++i) fifty += "ä";
  script.answer(answerYes);
  ASSERT_TRUE(import(items, "Liste.txt",
                     "\xEF\xBB\xBF"
                     "Bau;bau.\r\n\r\nArzt\n" +
                         fifty + "zzz;0123456789abcdefgh;x\n"));
  EXPECT_EQ(items.imported, 3);
  EXPECT_EQ(rows("select Sachgebiet, Abkuerzung from WSachgebiet order by ID_Sachgebiet"),
            "Bau,bau.|Arzt,NULL|" + fifty + ",0123456789abcde");
  EXPECT_EQ(catalogueRows(items).size(), 3u);
  EXPECT_FALSE(import(items, "Liste.csv", "x;y\n"));
  EXPECT_TRUE(script.told("endet nicht auf"));
  EXPECT_FALSE(s.shell.failed);
  EXPECT_FALSE(import(items, "latin.txt", "gut\nB\xE4u\n"));
  EXPECT_FALSE(import(items, "nameless.txt", "gut\n;abk\n"));
  EXPECT_TRUE(s.shell.failed);
  script.answer(answerNo);
  EXPECT_FALSE(import(items, "no.TXT", "gut\n"));
  script.chooseFile(dir / "missing.txt");
  EXPECT_FALSE(AddFile(items));
  script.cancelFile();
  EXPECT_FALSE(AddFile(items));
  EXPECT_EQ(rows("select count(*) from WSachgebiet"), "3");
}

}  // namespace
