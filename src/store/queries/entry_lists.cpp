#include "store/queries/families.h"

namespace store::queries {
namespace {

// Names that begin with AllWords list main entries and sub-entries, the others main entries alone. In
// those with letters the condition is tested with the first letter only; the other letters stand by
// themselves. That is the known behaviour of the letter bar.
constexpr StoredQueryText texts[] = {
    {"AllWordsOrderByBegriff",
     "SELECT woerterbuch.*, woerterbuch.ID_Woerterbuch From woerterbuch ORDER BY "
     "woerterbuch.SortBegriff;"},
    {"AllWords", "SELECT Woerterbuch.* From Woerterbuch ORDER BY Woerterbuch.ID_Woerterbuch;"},
    {"AllWordsOrderByDateTimeStamp",
     "SELECT woerterbuch.*, woerterbuch.ID_Woerterbuch From woerterbuch ORDER BY "
     "woerterbuch.DateTimeStamp DESC;"},
    {"AllWordsErsteEbene",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.* From Woerterbuch Where "
     "((Woerterbuch.Ebene = 1)) ORDER BY Woerterbuch.SortBegriff;"},
    {"AllWordsErsteEbeneOrderByDateTimeStamp",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.* From Woerterbuch Where "
     "((Woerterbuch.Ebene = 1)) ORDER BY Woerterbuch.DateTimeStamp DESC;"},
    {"AllWordsBuchstabeParam",
     "PARAMETERS sBuchstabe Text, sBuchstabe1 Text, sBuchstabe2 Text, sBuchstabe3 Text, "
     "sBuchstabe4 Text, sBuchstabe5 Text; SELECT DISTINCTROW Woerterbuch.*, "
     "Woerterbuch.ID_Woerterbuch From Woerterbuch WHERE ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe] & '*' Or Woerterbuch.SortBegriff Like [sBuchstabe1] & '*' Or "
     "Woerterbuch.SortBegriff Like [sBuchstabe2] & '*' Or Woerterbuch.SortBegriff Like "
     "[sBuchstabe3] & '*' Or Woerterbuch.SortBegriff Like [sBuchstabe4] & '*' Or "
     "Woerterbuch.SortBegriff Like [sBuchstabe5] & '*')) ORDER BY Woerterbuch.SortBegriff;"},
    {"AlleKategorienBuchstabeParam",
     "PARAMETERS sBuchstabe Text, sBuchstabe1 Text, sBuchstabe2 Text, sBuchstabe3 Text, "
     "sBuchstabe4 Text, sBuchstabe5 Text; SELECT DISTINCTROW Woerterbuch.*, "
     "Woerterbuch.ID_Woerterbuch From Woerterbuch WHERE ((Woerterbuch.Ebene = 1) AND "
     "(Woerterbuch.SortBegriff Like [sBuchstabe] & '*' Or Woerterbuch.SortBegriff Like "
     "[sBuchstabe1] & '*' Or Woerterbuch.SortBegriff Like [sBuchstabe2] & '*' Or "
     "Woerterbuch.SortBegriff Like [sBuchstabe3] & '*' Or Woerterbuch.SortBegriff Like "
     "[sBuchstabe4] & '*' Or Woerterbuch.SortBegriff Like [sBuchstabe5] & '*')) ORDER BY "
     "Woerterbuch.SortBegriff;"},
    {"AllWordsBegriffKategorieBuchstabeParam",
     "PARAMETERS sKategorie Text, sBuchstabe Text, sBuchstabe1 Text, sBuchstabe2 Text, "
     "sBuchstabe3 Text, sBuchstabe4 Text, sBuchstabe5 Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WKategorie.*, WKategorie.Kategorie FROM "
     "Woerterbuch INNER JOIN (WKategorie INNER JOIN relWoertWKat ON WKategorie.ID_WKategorie = "
     "relWoertWKat.ID_WKategorie) ON Woerterbuch.ID_Woerterbuch = relWoertWKat.ID_Woerterbuch "
     "WHERE ((WKategorie.Kategorie=[sKategorie]) AND (Woerterbuch.SortBegriff Like [sBuchstabe] & "
     "'*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe1] & '*')) OR ((Woerterbuch.SortBegriff "
     "Like [sBuchstabe2] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe3] & '*')) OR "
     "((Woerterbuch.SortBegriff Like [sBuchstabe4] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe5] & '*')) ORDER BY Woerterbuch.SortBegriff;"},
    {"AllWordsBegriffKategorieParam",
     "PARAMETERS sKategorie Text; SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.*, "
     "WKategorie.*, WKategorie.Kategorie FROM Woerterbuch INNER JOIN (WKategorie INNER JOIN "
     "relWoertWKat ON WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie) ON "
     "Woerterbuch.ID_Woerterbuch = relWoertWKat.ID_Woerterbuch WHERE ((WKategorie.Kategorie Like "
     "[sKategorie])) ORDER BY Woerterbuch.SortBegriff;"},
    {"AllWordsBegriffSachgebietBuchstabeParam",
     "PARAMETERS sSachgebiet Text, sBuchstabe Text, sBuchstabe1 Text, sBuchstabe2 Text, "
     "sBuchstabe3 Text, sBuchstabe4 Text, sBuchstabe5 Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WSachgebiet.Sachgebiet FROM WSachgebiet INNER "
     "JOIN (Woerterbuch INNER JOIN relWoertSachgebiet ON Woerterbuch.ID_Woerterbuch = "
     "relWoertSachgebiet.ID_Woerterbuch) ON WSachgebiet.ID_Sachgebiet = "
     "relWoertSachgebiet.ID_WSachgebiet WHERE ((WSachgebiet.Sachgebiet=[sSachgebiet]) AND "
     "(Woerterbuch.SortBegriff Like [sBuchstabe] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe1] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe2] & '*')) OR "
     "((Woerterbuch.SortBegriff Like [sBuchstabe3] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe4] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe5] & '*')) ORDER BY "
     "Woerterbuch.SortBegriff;"},
    {"AllWordsBegriffSachgebietKategorieBuchstabeParam",
     "PARAMETERS sSachgebiet Text, sKategorie Text, sBuchstabe Text, sBuchstabe1 Text, "
     "sBuchstabe2 Text, sBuchstabe3 Text, sBuchstabe4 Text, sBuchstabe5 Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WKategorie.Kategorie, WSachgebiet.Sachgebiet "
     "FROM WSachgebiet INNER JOIN ((Woerterbuch INNER JOIN (WKategorie INNER JOIN relWoertWKat ON "
     "WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie) ON Woerterbuch.ID_Woerterbuch = "
     "relWoertWKat.ID_Woerterbuch) INNER JOIN relWoertSachgebiet ON Woerterbuch.ID_Woerterbuch = "
     "relWoertSachgebiet.ID_Woerterbuch) ON WSachgebiet.ID_Sachgebiet = "
     "relWoertSachgebiet.ID_WSachgebiet WHERE ((WSachgebiet.Sachgebiet=[sSachgebiet]) AND "
     "(WKategorie.Kategorie=[sKategorie]) AND (Woerterbuch.SortBegriff Like [sBuchstabe] & '*')) "
     "OR ((Woerterbuch.SortBegriff Like [sBuchstabe1] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe2] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe3] & '*')) OR "
     "((Woerterbuch.SortBegriff Like [sBuchstabe4] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe5] & '*')) ORDER BY Woerterbuch.SortBegriff;"},
    {"AllWordsBegriffSachgebietKategorieParam",
     "PARAMETERS sSachgebiet Text, sKategorie Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WKategorie.Kategorie, WSachgebiet.Sachgebiet "
     "FROM WSachgebiet INNER JOIN ((Woerterbuch INNER JOIN (WKategorie INNER JOIN relWoertWKat ON "
     "WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie) ON Woerterbuch.ID_Woerterbuch = "
     "relWoertWKat.ID_Woerterbuch) INNER JOIN relWoertSachgebiet ON Woerterbuch.ID_Woerterbuch = "
     "relWoertSachgebiet.ID_Woerterbuch) ON WSachgebiet.ID_Sachgebiet = "
     "relWoertSachgebiet.ID_WSachgebiet WHERE ((WSachgebiet.Sachgebiet Like [sSachgebiet]) AND "
     "(WKategorie.Kategorie Like [sKategorie])) ORDER BY Woerterbuch.SortBegriff;"},
    {"AllWordsBegriffSachgebietParam1",
     "PARAMETERS sSachgebiet Text; SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.*, "
     "WSachgebiet.Sachgebiet FROM WSachgebiet INNER JOIN (Woerterbuch INNER JOIN "
     "relWoertSachgebiet ON Woerterbuch.ID_Woerterbuch = relWoertSachgebiet.ID_Woerterbuch) ON "
     "WSachgebiet.ID_Sachgebiet = relWoertSachgebiet.ID_WSachgebiet Where "
     "((WSachgebiet.Sachgebiet Like [sSachgebiet])) ORDER BY Woerterbuch.SortBegriff;"},
    {"BegriffSachgebietKategorieBuchstabeParam",
     "PARAMETERS sSachgebiet Text, sKategorie Text, sBuchstabe Text, sBuchstabe1 Text, "
     "sBuchstabe2 Text, sBuchstabe3 Text, sBuchstabe4 Text, sBuchstabe5 Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WKategorie.Kategorie, WSachgebiet.Sachgebiet "
     "FROM WSachgebiet INNER JOIN ((Woerterbuch INNER JOIN (WKategorie INNER JOIN relWoertWKat ON "
     "WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie) ON Woerterbuch.ID_Woerterbuch = "
     "relWoertWKat.ID_Woerterbuch) INNER JOIN relWoertSachgebiet ON Woerterbuch.ID_Woerterbuch = "
     "relWoertSachgebiet.ID_Woerterbuch) ON WSachgebiet.ID_Sachgebiet = "
     "relWoertSachgebiet.ID_WSachgebiet WHERE ((Woerterbuch.Ebene = 1) AND "
     "(((WSachgebiet.Sachgebiet=[sSachgebiet]) AND (WKategorie.Kategorie=[sKategorie]) AND "
     "(Woerterbuch.SortBegriff Like [sBuchstabe] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe1] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe2] & '*')) OR "
     "((Woerterbuch.SortBegriff Like [sBuchstabe3] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe4] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe5] & '*')))) ORDER BY "
     "Woerterbuch.SortBegriff;"},
    {"BegriffSachgebietKategorieParam",
     "PARAMETERS sSachgebiet Text, sKategorie Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WKategorie.Kategorie, WSachgebiet.Sachgebiet "
     "FROM WSachgebiet INNER JOIN ((Woerterbuch INNER JOIN (WKategorie INNER JOIN relWoertWKat ON "
     "WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie) ON Woerterbuch.ID_Woerterbuch = "
     "relWoertWKat.ID_Woerterbuch) INNER JOIN relWoertSachgebiet ON Woerterbuch.ID_Woerterbuch = "
     "relWoertSachgebiet.ID_Woerterbuch) ON WSachgebiet.ID_Sachgebiet = "
     "relWoertSachgebiet.ID_WSachgebiet WHERE ((Woerterbuch.Ebene = 1) AND "
     "(((WSachgebiet.Sachgebiet Like [sSachgebiet]) AND (WKategorie.Kategorie Like "
     "[sKategorie])))) ORDER BY Woerterbuch.SortBegriff;"},
    {"BegriffKategorieParam",
     "PARAMETERS sKategorie Text; SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.*, "
     "WKategorie.*, WKategorie.Kategorie FROM Woerterbuch INNER JOIN (WKategorie INNER JOIN "
     "relWoertWKat ON WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie) ON "
     "Woerterbuch.ID_Woerterbuch = relWoertWKat.ID_Woerterbuch WHERE ((Woerterbuch.Ebene = 1) AND "
     "(((WKategorie.Kategorie Like [sKategorie])))) ORDER BY Woerterbuch.SortBegriff;"},
    {"BegriffKategorieBuchstabeParam",
     "PARAMETERS sKategorie Text, sBuchstabe Text, sBuchstabe1 Text, sBuchstabe2 Text, "
     "sBuchstabe3 Text, sBuchstabe4 Text, sBuchstabe5 Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WKategorie.*, WKategorie.Kategorie FROM "
     "Woerterbuch INNER JOIN (WKategorie INNER JOIN relWoertWKat ON WKategorie.ID_WKategorie = "
     "relWoertWKat.ID_WKategorie) ON Woerterbuch.ID_Woerterbuch = relWoertWKat.ID_Woerterbuch "
     "WHERE ((Woerterbuch.Ebene = 1) AND (((WKategorie.Kategorie=[sKategorie]) AND "
     "(Woerterbuch.SortBegriff Like [sBuchstabe] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe1] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe2] & '*')) OR "
     "((Woerterbuch.SortBegriff Like [sBuchstabe3] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe4] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe5] & '*')))) ORDER BY "
     "Woerterbuch.SortBegriff;"},
    {"BegriffSachgebietParam1",
     "PARAMETERS sSachgebiet Text; SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.*, "
     "WSachgebiet.Sachgebiet FROM WSachgebiet INNER JOIN (Woerterbuch INNER JOIN "
     "relWoertSachgebiet ON Woerterbuch.ID_Woerterbuch = relWoertSachgebiet.ID_Woerterbuch) ON "
     "WSachgebiet.ID_Sachgebiet = relWoertSachgebiet.ID_WSachgebiet WHERE ((Woerterbuch.Ebene = "
     "1) AND (((WSachgebiet.Sachgebiet Like [sSachgebiet])))) ORDER BY Woerterbuch.SortBegriff;"},
    {"BegriffSachgebietBuchstabeParam",
     "PARAMETERS sSachgebiet Text, sBuchstabe Text, sBuchstabe1 Text, sBuchstabe2 Text, "
     "sBuchstabe3 Text, sBuchstabe4 Text, sBuchstabe5 Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WSachgebiet.Sachgebiet FROM WSachgebiet INNER "
     "JOIN (Woerterbuch INNER JOIN relWoertSachgebiet ON Woerterbuch.ID_Woerterbuch = "
     "relWoertSachgebiet.ID_Woerterbuch) ON WSachgebiet.ID_Sachgebiet = "
     "relWoertSachgebiet.ID_WSachgebiet WHERE ((Woerterbuch.Ebene = 1) AND "
     "(((WSachgebiet.Sachgebiet=[sSachgebiet]) AND (Woerterbuch.SortBegriff Like [sBuchstabe] & "
     "'*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe1] & '*')) OR ((Woerterbuch.SortBegriff "
     "Like [sBuchstabe2] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe3] & '*')) OR "
     "((Woerterbuch.SortBegriff Like [sBuchstabe4] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe5] & '*')))) ORDER BY Woerterbuch.SortBegriff;"},
};

}  // namespace

std::span<const StoredQueryText> entryLists() {
  return texts;
}

}  // namespace store::queries
