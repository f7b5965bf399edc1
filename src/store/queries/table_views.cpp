#include "store/queries/families.h"

namespace store::queries {
namespace {

// Each begins with the key, the file and the sort key of the entry. Only what is edited as a whole
// (ViewBegriffWortbedBsp) keeps entries without meanings or examples.
constexpr StoredQueryText texts[] = {
    {"ViewBegriffWortbedBsp",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Wortbedeutung.ID_Wortbedeutung, WortBedBsp.ID_WortbedBsp, "
     "Woerterbuch.Begriff, Woerterbuch.PraefixBegriff, Woerterbuch.Ebene, Woerterbuch.Prioritaet, "
     "Woerterbuch.Unterbegriff, Woerterbuch.Aussprache, Woerterbuch.Bemerkung, "
     "Wortbedeutung.Wortbedeutung, WortBedBsp.Beispiel, WortBedBsp.Beispieluebersetzung FROM "
     "(Woerterbuch LEFT JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = "
     "Wortbedeutung.ID_Woerterbuch) LEFT JOIN WortBedBsp ON Wortbedeutung.ID_Wortbedeutung = "
     "WortBedBsp.ID_Wortbedeutung ORDER BY Woerterbuch.SortBegriff, Woerterbuch.ID_Woerterbuch;"},
    {"ViewBegriffKategorie",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, WKategorie.ID_WKategorie, Woerterbuch.Begriff, "
     "WKategorie.Kategorie, WKategorie.Abkuerzung, relWoertWKat.KategorieWert FROM Woerterbuch "
     "INNER JOIN (WKategorie INNER JOIN relWoertWKat ON WKategorie.ID_WKategorie = "
     "relWoertWKat.ID_WKategorie) ON Woerterbuch.ID_Woerterbuch = relWoertWKat.ID_Woerterbuch "
     "ORDER BY Woerterbuch.SortBegriff, Woerterbuch.ID_Woerterbuch;"},
    {"ViewBegriffSachgebiet",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, WSachgebiet.ID_Sachgebiet, Woerterbuch.Begriff, "
     "WSachgebiet.Sachgebiet, WSachgebiet.Abkuerzung FROM WSachgebiet INNER JOIN (Woerterbuch "
     "INNER JOIN relWoertSachgebiet ON Woerterbuch.ID_Woerterbuch = "
     "relWoertSachgebiet.ID_Woerterbuch) ON WSachgebiet.ID_Sachgebiet = "
     "relWoertSachgebiet.ID_WSachgebiet ORDER BY Woerterbuch.SortBegriff, "
     "Woerterbuch.ID_Woerterbuch;"},
    {"ViewBegriffWortbedKategorie",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Wortbedeutung.ID_Wortbedeutung, WKategorie.ID_WKategorie, "
     "Woerterbuch.Begriff, Wortbedeutung.Wortbedeutung, WKategorie.Kategorie, "
     "WKategorie.Abkuerzung, relWortbedWKat.KategorieWert FROM (Woerterbuch INNER JOIN "
     "Wortbedeutung ON Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) INNER JOIN "
     "(WKategorie INNER JOIN relWortbedWKat ON WKategorie.ID_WKategorie = "
     "relWortbedWKat.ID_WKategorie) ON Wortbedeutung.ID_Wortbedeutung = "
     "relWortbedWKat.ID_Wortbedeutung ORDER BY Woerterbuch.SortBegriff, "
     "Woerterbuch.ID_Woerterbuch;"},
    {"ViewBegriffWortbedSachgebiet",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Wortbedeutung.ID_Wortbedeutung, WSachgebiet.ID_Sachgebiet, "
     "Woerterbuch.Begriff, Wortbedeutung.Wortbedeutung, WSachgebiet.Sachgebiet, "
     "WSachgebiet.Abkuerzung FROM (Woerterbuch INNER JOIN Wortbedeutung ON "
     "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) INNER JOIN (WSachgebiet INNER "
     "JOIN relWortBedSachgebiet ON WSachgebiet.ID_Sachgebiet = "
     "relWortBedSachgebiet.ID_Sachgebiet) ON Wortbedeutung.ID_Wortbedeutung = "
     "relWortBedSachgebiet.ID_Wortbedeutung ORDER BY Woerterbuch.SortBegriff, "
     "Woerterbuch.ID_Woerterbuch;"},
    {"ViewBegriffWortbedeutung",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Wortbedeutung.ID_Wortbedeutung, Woerterbuch.Begriff, "
     "Woerterbuch.Aussprache, Woerterbuch.Bemerkung, Wortbedeutung.Wortbedeutung FROM Woerterbuch "
     "INNER JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch ORDER "
     "BY Woerterbuch.SortBegriff, Woerterbuch.ID_Woerterbuch;"},
    {"ViewBegriffWortbedeutung2",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Wortbedeutung.ID_Wortbedeutung, Woerterbuch.Begriff, "
     "Wortbedeutung.Wortbedeutung, Woerterbuch.DateTimeStamp, Woerterbuch.DateTimeStampLastChange "
     "FROM Woerterbuch INNER JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = "
     "Wortbedeutung.ID_Woerterbuch ORDER BY Woerterbuch.SortBegriff, Woerterbuch.ID_Woerterbuch;"},
    {"ViewBegriffWortbedeutung3",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Woerterbuch.ID_Woerterbuch1, Woerterbuch.Ebene, "
     "Wortbedeutung.ID_Wortbedeutung, Woerterbuch.Begriff, Wortbedeutung.Wortbedeutung, "
     "WortBedBsp.Beispiel, WortBedBsp.Beispieluebersetzung FROM (Woerterbuch INNER JOIN "
     "Wortbedeutung ON Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) LEFT JOIN "
     "WortBedBsp ON Wortbedeutung.ID_Wortbedeutung = WortBedBsp.ID_Wortbedeutung ORDER BY "
     "Woerterbuch.SortBegriff;"},
    {"ViewBegriffOhneWortBedeutung",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Wortbedeutung.ID_Wortbedeutung, Woerterbuch.Begriff, "
     "Woerterbuch.Aussprache, Woerterbuch.Bemerkung, Wortbedeutung.Wortbedeutung FROM Woerterbuch "
     "left JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch Where "
     "(((Wortbedeutung.Wortbedeutung) Is Null)) ORDER BY Woerterbuch.SortBegriff;"},
    {"ViewBegriffURL",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, URL.ID_URL, Woerterbuch.Begriff, URL.URLName, URL.URL, "
     "URL.URLNotiz, URL.Rating FROM Woerterbuch INNER JOIN URL ON Woerterbuch.ID_Woerterbuch = "
     "URL.ID_Woerterbuch ORDER BY Woerterbuch.SortBegriff, Woerterbuch.ID_Woerterbuch, "
     "URL.URLName;"},
    {"ViewBegriffQuerverweise",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Querverweis.ID_Querverweis, Querverweis.ID_WoerterbuchQV, "
     "Woerterbuch.Begriff, Querverweis.Querverweis FROM Woerterbuch INNER JOIN Querverweis ON "
     "Woerterbuch.ID_Woerterbuch = Querverweis.ID_Woerterbuch ORDER BY Woerterbuch.SortBegriff, "
     "Woerterbuch.ID_Woerterbuch, Querverweis.Querverweis;"},
    {"ViewBegriffOrderByKategorie",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, WKategorie.ID_WKategorie, WKategorie.Kategorie, "
     "WKategorie.Abkuerzung, relWoertWKat.KategorieWert, Woerterbuch.Begriff FROM Woerterbuch "
     "INNER JOIN (WKategorie INNER JOIN relWoertWKat ON WKategorie.ID_WKategorie = "
     "relWoertWKat.ID_WKategorie) ON Woerterbuch.ID_Woerterbuch = relWoertWKat.ID_Woerterbuch "
     "ORDER BY WKategorie.Kategorie, Woerterbuch.SortBegriff;"},
    {"ViewBegriffOrderBySachgebiet",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, WSachgebiet.ID_Sachgebiet, WSachgebiet.Sachgebiet, "
     "WSachgebiet.Abkuerzung, Woerterbuch.Begriff FROM WSachgebiet INNER JOIN (Woerterbuch INNER "
     "JOIN relWoertSachgebiet ON Woerterbuch.ID_Woerterbuch = relWoertSachgebiet.ID_Woerterbuch) "
     "ON WSachgebiet.ID_Sachgebiet = relWoertSachgebiet.ID_WSachgebiet ORDER BY "
     "WSachgebiet.Sachgebiet, Woerterbuch.SortBegriff;"},
    {"QueryQuerverweise",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Woerterbuch.Begriff, Woerterbuch.DateTimeStampLastChange, "
     "Querverweis.ID_Querverweis, Querverweis.ID_WoerterbuchQV, Querverweis.Querverweis FROM "
     "Woerterbuch INNER JOIN Querverweis ON Woerterbuch.ID_Woerterbuch = "
     "Querverweis.ID_Woerterbuch ORDER BY Woerterbuch.SortBegriff;"},
    {"BegriffQuerverweise",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Woerterbuch.Begriff FROM Woerterbuch INNER JOIN Querverweis ON "
     "Woerterbuch.ID_Woerterbuch = Querverweis.ID_Woerterbuch ORDER BY Woerterbuch.SortBegriff;"},
    {"Querverweis_1",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Querverweis.ID_Querverweis, Querverweis.ID_WoerterbuchQV, "
     "Querverweis.Querverweis FROM Woerterbuch RIGHT JOIN Querverweis ON "
     "Woerterbuch.ID_Woerterbuch = Querverweis.ID_Woerterbuch ORDER BY Querverweis.Querverweis;"},
    {"URL_1",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, URL.ID_URL, URL.URLName, URL.URL, URL.URLNotiz, URL.Rating FROM "
     "Woerterbuch RIGHT JOIN URL ON Woerterbuch.ID_Woerterbuch = URL.ID_Woerterbuch ORDER BY "
     "URL.URLName;"},
};

}  // namespace

std::span<const StoredQueryText> tableViews() {
  return texts;
}

}  // namespace store::queries
