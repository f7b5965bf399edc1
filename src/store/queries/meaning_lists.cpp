#include "store/queries/families.h"

namespace store::queries {
namespace {

constexpr StoredQueryText texts[] = {
    {"KategorieParam",
     "PARAMETERS sKategorie Text; SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.*, "
     "WKategorie.*, Wortbedeutung.* FROM (Woerterbuch INNER JOIN Wortbedeutung ON "
     "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) INNER JOIN (WKategorie INNER "
     "JOIN relWortbedWKat ON WKategorie.ID_WKategorie = relWortbedWKat.ID_WKategorie) ON "
     "Wortbedeutung.ID_Wortbedeutung = relWortbedWKat.ID_Wortbedeutung WHERE ((Woerterbuch.Ebene "
     "= 1) AND (((WKategorie.Kategorie Like [sKategorie])))) ORDER BY Woerterbuch.SortBegriff;"},
    {"KategorieBuchstabeParam",
     "PARAMETERS sKategorie Text, sBuchstabe Text, sBuchstabe1 Text, sBuchstabe2 Text, "
     "sBuchstabe3 Text, sBuchstabe4 Text, sBuchstabe5 Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WKategorie.*, Wortbedeutung.* FROM (Woerterbuch "
     "INNER JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) "
     "INNER JOIN (WKategorie INNER JOIN relWortbedWKat ON WKategorie.ID_WKategorie = "
     "relWortbedWKat.ID_WKategorie) ON Wortbedeutung.ID_Wortbedeutung = "
     "relWortbedWKat.ID_Wortbedeutung WHERE ((Woerterbuch.Ebene = 1) AND "
     "(((WKategorie.Kategorie=[sKategorie]) AND (Woerterbuch.SortBegriff Like [sBuchstabe] & "
     "'*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe1] & '*')) OR ((Woerterbuch.SortBegriff "
     "Like [sBuchstabe2] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe3] & '*')) OR "
     "((Woerterbuch.SortBegriff Like [sBuchstabe4] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe5] & '*')))) ORDER BY Woerterbuch.SortBegriff;"},
    {"SachgebietAlleKategorienBuchstabeParam",
     "PARAMETERS sSachgebiet Text, sBuchstabe Text, sBuchstabe1 Text, sBuchstabe2 Text, "
     "sBuchstabe3 Text, sBuchstabe4 Text, sBuchstabe5 Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WSachgebiet.*, Wortbedeutung.* FROM (Woerterbuch "
     "INNER JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) "
     "INNER JOIN (WSachgebiet INNER JOIN relWortBedSachgebiet ON WSachgebiet.ID_Sachgebiet = "
     "relWortBedSachgebiet.ID_Sachgebiet) ON Wortbedeutung.ID_Wortbedeutung = "
     "relWortBedSachgebiet.ID_Wortbedeutung WHERE ((Woerterbuch.Ebene = 1) AND "
     "(((WSachgebiet.Sachgebiet=[sSachgebiet]) AND (Woerterbuch.SortBegriff Like [sBuchstabe] & "
     "'*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe1] & '*')) OR ((Woerterbuch.SortBegriff "
     "Like [sBuchstabe2] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe3] & '*')) OR "
     "((Woerterbuch.SortBegriff Like [sBuchstabe4] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe5] & '*')))) ORDER BY Woerterbuch.SortBegriff;"},
    {"SachgebietAllWordsEbene1",
     "PARAMETERS sSachgebiet Text; SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.*, "
     "WSachgebiet.*, Wortbedeutung.* FROM (Woerterbuch INNER JOIN Wortbedeutung ON "
     "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) INNER JOIN (WSachgebiet INNER "
     "JOIN relWortBedSachgebiet ON WSachgebiet.ID_Sachgebiet = "
     "relWortBedSachgebiet.ID_Sachgebiet) ON Wortbedeutung.ID_Wortbedeutung = "
     "relWortBedSachgebiet.ID_Wortbedeutung WHERE ((Woerterbuch.Ebene = 1) AND "
     "(((WSachgebiet.Sachgebiet Like [sSachgebiet])))) ORDER BY Woerterbuch.SortBegriff;"},
    {"SachgebietKategorieBuchstabeParam",
     "PARAMETERS sSachgebiet Text, sKategorie Text, sBuchstabe Text, sBuchstabe1 Text, "
     "sBuchstabe2 Text, sBuchstabe3 Text, sBuchstabe4 Text, sBuchstabe5 Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WKategorie.Kategorie, WSachgebiet.Sachgebiet, "
     "Wortbedeutung.* FROM ((Woerterbuch INNER JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = "
     "Wortbedeutung.ID_Woerterbuch) INNER JOIN (WKategorie INNER JOIN relWortbedWKat ON "
     "WKategorie.ID_WKategorie = relWortbedWKat.ID_WKategorie) ON Wortbedeutung.ID_Wortbedeutung "
     "= relWortbedWKat.ID_Wortbedeutung) INNER JOIN (WSachgebiet INNER JOIN relWortBedSachgebiet "
     "ON WSachgebiet.ID_Sachgebiet = relWortBedSachgebiet.ID_Sachgebiet) ON "
     "Wortbedeutung.ID_Wortbedeutung = relWortBedSachgebiet.ID_Wortbedeutung WHERE "
     "((Woerterbuch.Ebene = 1) AND (((WSachgebiet.Sachgebiet=[sSachgebiet]) AND "
     "(WKategorie.Kategorie=[sKategorie]) AND (Woerterbuch.SortBegriff Like [sBuchstabe] & '*')) "
     "OR ((Woerterbuch.SortBegriff Like [sBuchstabe1] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe2] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe3] & '*')) OR "
     "((Woerterbuch.SortBegriff Like [sBuchstabe4] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe5] & '*')))) ORDER BY Woerterbuch.SortBegriff;"},
    {"SachgebietKategorieParam",
     "PARAMETERS sSachgebiet Text, sKategorie Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WKategorie.Kategorie, WSachgebiet.Sachgebiet, "
     "Wortbedeutung.* FROM ((Woerterbuch INNER JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = "
     "Wortbedeutung.ID_Woerterbuch) INNER JOIN (WKategorie INNER JOIN relWortbedWKat ON "
     "WKategorie.ID_WKategorie = relWortbedWKat.ID_WKategorie) ON Wortbedeutung.ID_Wortbedeutung "
     "= relWortbedWKat.ID_Wortbedeutung) INNER JOIN (WSachgebiet INNER JOIN relWortBedSachgebiet "
     "ON WSachgebiet.ID_Sachgebiet = relWortBedSachgebiet.ID_Sachgebiet) ON "
     "Wortbedeutung.ID_Wortbedeutung = relWortBedSachgebiet.ID_Wortbedeutung WHERE "
     "((Woerterbuch.Ebene = 1) AND (((WSachgebiet.Sachgebiet Like [sSachgebiet]) AND "
     "(WKategorie.Kategorie Like [sKategorie])))) ORDER BY Woerterbuch.SortBegriff;"},
    {"AllWordsKategorieBuchstabeParam",
     "PARAMETERS sKategorie Text, sBuchstabe Text, sBuchstabe1 Text, sBuchstabe2 Text, "
     "sBuchstabe3 Text, sBuchstabe4 Text, sBuchstabe5 Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WKategorie.*, Wortbedeutung.* FROM (Woerterbuch "
     "INNER JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) "
     "INNER JOIN (WKategorie INNER JOIN relWortbedWKat ON WKategorie.ID_WKategorie = "
     "relWortbedWKat.ID_WKategorie) ON Wortbedeutung.ID_Wortbedeutung = "
     "relWortbedWKat.ID_Wortbedeutung WHERE ((WKategorie.Kategorie=[sKategorie]) AND "
     "(Woerterbuch.SortBegriff Like [sBuchstabe] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe1] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe2] & '*')) OR "
     "((Woerterbuch.SortBegriff Like [sBuchstabe3] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe4] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe5] & '*')) ORDER BY "
     "Woerterbuch.SortBegriff;"},
    {"AllWordsKategorieParam",
     "PARAMETERS sKategorie Text; SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.*, "
     "WKategorie.*, Wortbedeutung.* FROM (Woerterbuch INNER JOIN Wortbedeutung ON "
     "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) INNER JOIN (WKategorie INNER "
     "JOIN relWortbedWKat ON WKategorie.ID_WKategorie = relWortbedWKat.ID_WKategorie) ON "
     "Wortbedeutung.ID_Wortbedeutung = relWortbedWKat.ID_Wortbedeutung Where "
     "((WKategorie.Kategorie Like [sKategorie])) ORDER BY Woerterbuch.SortBegriff;"},
    {"AllWordsSachgebietBuchstabeParam",
     "PARAMETERS sSachgebiet Text, sBuchstabe Text, sBuchstabe1 Text, sBuchstabe2 Text, "
     "sBuchstabe3 Text, sBuchstabe4 Text, sBuchstabe5 Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WSachgebiet.*, Wortbedeutung.* FROM (Woerterbuch "
     "INNER JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) "
     "INNER JOIN (WSachgebiet INNER JOIN relWortBedSachgebiet ON WSachgebiet.ID_Sachgebiet = "
     "relWortBedSachgebiet.ID_Sachgebiet) ON Wortbedeutung.ID_Wortbedeutung = "
     "relWortBedSachgebiet.ID_Wortbedeutung WHERE ((WSachgebiet.Sachgebiet=[sSachgebiet]) AND "
     "(Woerterbuch.SortBegriff Like [sBuchstabe] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe1] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe2] & '*')) OR "
     "((Woerterbuch.SortBegriff Like [sBuchstabe3] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe4] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe5] & '*')) ORDER BY "
     "Woerterbuch.SortBegriff;"},
    {"AllWordsSachgebietKategorieBuchstabeParam",
     "PARAMETERS sSachgebiet Text, sKategorie Text, sBuchstabe Text, sBuchstabe1 Text, "
     "sBuchstabe2 Text, sBuchstabe3 Text, sBuchstabe4 Text, sBuchstabe5 Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WKategorie.Kategorie, WSachgebiet.Sachgebiet, "
     "Wortbedeutung.* FROM ((Woerterbuch INNER JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = "
     "Wortbedeutung.ID_Woerterbuch) INNER JOIN (WKategorie INNER JOIN relWortbedWKat ON "
     "WKategorie.ID_WKategorie = relWortbedWKat.ID_WKategorie) ON Wortbedeutung.ID_Wortbedeutung "
     "= relWortbedWKat.ID_Wortbedeutung) INNER JOIN (WSachgebiet INNER JOIN relWortBedSachgebiet "
     "ON WSachgebiet.ID_Sachgebiet = relWortBedSachgebiet.ID_Sachgebiet) ON "
     "Wortbedeutung.ID_Wortbedeutung = relWortBedSachgebiet.ID_Wortbedeutung WHERE "
     "((WSachgebiet.Sachgebiet=[sSachgebiet]) AND (WKategorie.Kategorie=[sKategorie]) AND "
     "(Woerterbuch.SortBegriff Like [sBuchstabe] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe1] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe2] & '*')) OR "
     "((Woerterbuch.SortBegriff Like [sBuchstabe3] & '*')) OR ((Woerterbuch.SortBegriff Like "
     "[sBuchstabe4] & '*')) OR ((Woerterbuch.SortBegriff Like [sBuchstabe5] & '*')) ORDER BY "
     "Woerterbuch.SortBegriff;"},
    {"AllWordsSachgebietKategorieParam",
     "PARAMETERS sSachgebiet Text, sKategorie Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.*, WKategorie.Kategorie, WSachgebiet.Sachgebiet, "
     "Wortbedeutung.* FROM ((Woerterbuch INNER JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = "
     "Wortbedeutung.ID_Woerterbuch) INNER JOIN (WKategorie INNER JOIN relWortbedWKat ON "
     "WKategorie.ID_WKategorie = relWortbedWKat.ID_WKategorie) ON Wortbedeutung.ID_Wortbedeutung "
     "= relWortbedWKat.ID_Wortbedeutung) INNER JOIN (WSachgebiet INNER JOIN relWortBedSachgebiet "
     "ON WSachgebiet.ID_Sachgebiet = relWortBedSachgebiet.ID_Sachgebiet) ON "
     "Wortbedeutung.ID_Wortbedeutung = relWortBedSachgebiet.ID_Wortbedeutung WHERE "
     "((WSachgebiet.Sachgebiet Like [sSachgebiet]) AND (WKategorie.Kategorie Like [sKategorie])) "
     "ORDER BY Woerterbuch.SortBegriff;"},
    {"AllWordsSachgebietParam",
     "PARAMETERS sSachgebiet Text; SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.*, "
     "WSachgebiet.*, Wortbedeutung.* FROM (Woerterbuch INNER JOIN Wortbedeutung ON "
     "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) INNER JOIN (WSachgebiet INNER "
     "JOIN relWortBedSachgebiet ON WSachgebiet.ID_Sachgebiet = "
     "relWortBedSachgebiet.ID_Sachgebiet) ON Wortbedeutung.ID_Wortbedeutung = "
     "relWortBedSachgebiet.ID_Wortbedeutung WHERE ((WSachgebiet.Sachgebiet Like [sSachgebiet])) "
     "ORDER BY Woerterbuch.SortBegriff;"},
};

}  // namespace

std::span<const StoredQueryText> meaningLists() {
  return texts;
}

}  // namespace store::queries
