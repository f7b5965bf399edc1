#include "store/queries/families.h"

namespace store::queries {
namespace {

constexpr StoredQueryText texts[] = {
    {"QueryReporting",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.ID_Woerterbuch1, "
     "Woerterbuch.Begriff, Woerterbuch.SortBegriff, Woerterbuch.Ebene, Woerterbuch.Prioritaet, "
     "Woerterbuch.Unterbegriff, Woerterbuch.Aussprache, Woerterbuch.Bemerkung, Woerterbuch.Bild, "
     "Woerterbuch.Klang, Woerterbuch.DatabaseName, Woerterbuch.DateTimeStamp, "
     "Woerterbuch.DateTimeStampLastChange, WoerterbuchFlat.EigenschaftenZumBegriff, "
     "WoerterbuchFlat.SachgebieteZumBegriff, WoerterbuchFlat.AbkEigenschaftenZumBegriff, "
     "WoerterbuchFlat.AbkSachgebieteZumBegriff, WoerterbuchFlat.Querverweise, "
     "WoerterbuchFlat.URLs, Wortbedeutung.ID_Wortbedeutung, Wortbedeutung.Wortbedeutung, "
     "WortbedeutungFlat.EigenschaftenZurWortbedeutung, "
     "WortbedeutungFlat.SachgebieteZurWortbedeutung, "
     "WortbedeutungFlat.AbkEigenschaftenZurWortbedeutung, "
     "WortbedeutungFlat.AbkSachgebieteZurWortbedeutung, WortBedBsp.ID_WortbedBsp, "
     "WortBedBsp.Beispiel, WortBedBsp.Beispieluebersetzung FROM (((Woerterbuch LEFT JOIN "
     "WoerterbuchFlat ON Woerterbuch.ID_Woerterbuch = WoerterbuchFlat.ID_Woerterbuch) LEFT JOIN "
     "Wortbedeutung ON Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) LEFT JOIN "
     "WortbedeutungFlat ON Wortbedeutung.ID_Wortbedeutung = WortbedeutungFlat.ID_Wortbedeutung) "
     "LEFT JOIN WortBedBsp ON Wortbedeutung.ID_Wortbedeutung = WortBedBsp.ID_Wortbedeutung ORDER "
     "BY Woerterbuch.SortBegriff, Woerterbuch.ID_Woerterbuch, Wortbedeutung.Wortbedeutung, "
     "Wortbedeutung.ID_Wortbedeutung, WortBedBsp.ID_WortbedBsp;"},
    {"QueryReportingURL",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.ID_Woerterbuch1, "
     "Woerterbuch.Begriff, Woerterbuch.SortBegriff, Woerterbuch.Ebene, Woerterbuch.Prioritaet, "
     "Woerterbuch.Unterbegriff, Woerterbuch.Bemerkung, Woerterbuch.Bild, Woerterbuch.Klang, "
     "Woerterbuch.DatabaseName, Woerterbuch.DateTimeStamp, Woerterbuch.DateTimeStampLastChange, "
     "WoerterbuchFlat.EigenschaftenZumBegriff, WoerterbuchFlat.SachgebieteZumBegriff, "
     "WoerterbuchFlat.AbkEigenschaftenZumBegriff, WoerterbuchFlat.AbkSachgebieteZumBegriff, "
     "WoerterbuchFlat.Querverweise, WoerterbuchFlat.URLs, URL.ID_URL, URL.URLName, URL.URL, "
     "URL.URLNotiz, URL.Rating FROM (Woerterbuch LEFT JOIN WoerterbuchFlat ON "
     "Woerterbuch.ID_Woerterbuch = WoerterbuchFlat.ID_Woerterbuch) LEFT JOIN URL ON "
     "Woerterbuch.ID_Woerterbuch = URL.ID_Woerterbuch ORDER BY Woerterbuch.SortBegriff, "
     "Woerterbuch.ID_Woerterbuch, URL.URLName;"},
    {"QueryReportingURLQuerverweise",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Woerterbuch.Begriff, Querverweis.ID_Querverweis, "
     "Querverweis.ID_WoerterbuchQV, Querverweis.Querverweis FROM Woerterbuch INNER JOIN "
     "Querverweis ON Woerterbuch.ID_Woerterbuch = Querverweis.ID_Woerterbuch ORDER BY "
     "Woerterbuch.SortBegriff, Querverweis.Querverweis;"},
    {"QueryReportingURLEigenschaftenZumBegriff",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Woerterbuch.Begriff, WKategorie.ID_WKategorie, "
     "WKategorie.Kategorie, WKategorie.Abkuerzung, relWoertWKat.KategorieWert FROM Woerterbuch "
     "INNER JOIN (WKategorie INNER JOIN relWoertWKat ON WKategorie.ID_WKategorie = "
     "relWoertWKat.ID_WKategorie) ON Woerterbuch.ID_Woerterbuch = relWoertWKat.ID_Woerterbuch "
     "ORDER BY Woerterbuch.SortBegriff, WKategorie.Kategorie;"},
    {"QueryReportingURLSachgebieteZumBegriff",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Woerterbuch.Begriff, WSachgebiet.ID_Sachgebiet, "
     "WSachgebiet.Sachgebiet, WSachgebiet.Abkuerzung FROM WSachgebiet INNER JOIN (Woerterbuch "
     "INNER JOIN relWoertSachgebiet ON Woerterbuch.ID_Woerterbuch = "
     "relWoertSachgebiet.ID_Woerterbuch) ON WSachgebiet.ID_Sachgebiet = "
     "relWoertSachgebiet.ID_WSachgebiet ORDER BY Woerterbuch.SortBegriff, WSachgebiet.Sachgebiet;"},
    {"QueryReportingSachgebieteZumBegriff",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Woerterbuch.Begriff, WSachgebiet.ID_Sachgebiet, "
     "WSachgebiet.Sachgebiet, WSachgebiet.Abkuerzung FROM WSachgebiet INNER JOIN (Woerterbuch "
     "INNER JOIN relWoertSachgebiet ON Woerterbuch.ID_Woerterbuch = "
     "relWoertSachgebiet.ID_Woerterbuch) ON WSachgebiet.ID_Sachgebiet = "
     "relWoertSachgebiet.ID_WSachgebiet ORDER BY Woerterbuch.SortBegriff, WSachgebiet.Sachgebiet;"},
    {"QueryReportingEigenschaftenZumBegriff",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Woerterbuch.Begriff, WKategorie.ID_WKategorie, "
     "WKategorie.Kategorie, WKategorie.Abkuerzung, relWoertWKat.KategorieWert FROM Woerterbuch "
     "INNER JOIN (WKategorie INNER JOIN relWoertWKat ON WKategorie.ID_WKategorie = "
     "relWoertWKat.ID_WKategorie) ON Woerterbuch.ID_Woerterbuch = relWoertWKat.ID_Woerterbuch "
     "ORDER BY Woerterbuch.SortBegriff, WKategorie.Kategorie;"},
    {"QueryReportingQuerverweise",
     "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, "
     "Woerterbuch.SortBegriff, Woerterbuch.Begriff, Querverweis.ID_Querverweis, "
     "Querverweis.ID_WoerterbuchQV, Querverweis.Querverweis FROM Woerterbuch INNER JOIN "
     "Querverweis ON Woerterbuch.ID_Woerterbuch = Querverweis.ID_Woerterbuch ORDER BY "
     "Woerterbuch.SortBegriff, Querverweis.Querverweis;"},
    {"QueryReportingEinzelBegriff",
     "PARAMETERS lWordID Long; SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, "
     "Woerterbuch.ID_Woerterbuch1, Woerterbuch.Begriff, Woerterbuch.SortBegriff, "
     "Woerterbuch.Ebene, Woerterbuch.Prioritaet, Woerterbuch.Unterbegriff, "
     "Woerterbuch.Aussprache, Woerterbuch.Bemerkung, Woerterbuch.Bild, Woerterbuch.Klang, "
     "Woerterbuch.DatabaseName, Woerterbuch.DateTimeStamp, Woerterbuch.DateTimeStampLastChange, "
     "WoerterbuchFlat.EigenschaftenZumBegriff, WoerterbuchFlat.SachgebieteZumBegriff, "
     "WoerterbuchFlat.AbkEigenschaftenZumBegriff, WoerterbuchFlat.AbkSachgebieteZumBegriff, "
     "WoerterbuchFlat.Querverweise, WoerterbuchFlat.URLs, Wortbedeutung.ID_Wortbedeutung, "
     "Wortbedeutung.Wortbedeutung, WortbedeutungFlat.EigenschaftenZurWortbedeutung, "
     "WortbedeutungFlat.SachgebieteZurWortbedeutung, "
     "WortbedeutungFlat.AbkEigenschaftenZurWortbedeutung, "
     "WortbedeutungFlat.AbkSachgebieteZurWortbedeutung, WortBedBsp.ID_WortbedBsp, "
     "WortBedBsp.Beispiel, WortBedBsp.Beispieluebersetzung FROM (((Woerterbuch LEFT JOIN "
     "WoerterbuchFlat ON Woerterbuch.ID_Woerterbuch = WoerterbuchFlat.ID_Woerterbuch) LEFT JOIN "
     "Wortbedeutung ON Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) LEFT JOIN "
     "WortbedeutungFlat ON Wortbedeutung.ID_Wortbedeutung = WortbedeutungFlat.ID_Wortbedeutung) "
     "LEFT JOIN WortBedBsp ON Wortbedeutung.ID_Wortbedeutung = WortBedBsp.ID_Wortbedeutung Where "
     "(((Woerterbuch.ID_Woerterbuch) = [lWordID])) ORDER BY Woerterbuch.SortBegriff, "
     "Woerterbuch.ID_Woerterbuch, Wortbedeutung.Wortbedeutung, Wortbedeutung.ID_Wortbedeutung, "
     "WortBedBsp.ID_WortbedBsp;"},
    {"QueryReportingURLEinzelBegriff",
     "PARAMETERS lWordID Long; SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, "
     "Woerterbuch.ID_Woerterbuch1, Woerterbuch.Begriff, Woerterbuch.SortBegriff, "
     "Woerterbuch.Ebene, Woerterbuch.Prioritaet, Woerterbuch.Unterbegriff, Woerterbuch.Bemerkung, "
     "Woerterbuch.Bild, Woerterbuch.Klang, Woerterbuch.DatabaseName, Woerterbuch.DateTimeStamp, "
     "Woerterbuch.DateTimeStampLastChange, WoerterbuchFlat.EigenschaftenZumBegriff, "
     "WoerterbuchFlat.SachgebieteZumBegriff, WoerterbuchFlat.AbkEigenschaftenZumBegriff, "
     "WoerterbuchFlat.AbkSachgebieteZumBegriff, WoerterbuchFlat.Querverweise, "
     "WoerterbuchFlat.URLs, URL.ID_URL, URL.URLName, URL.URL, URL.URLNotiz, URL.Rating FROM "
     "(Woerterbuch LEFT JOIN WoerterbuchFlat ON Woerterbuch.ID_Woerterbuch = "
     "WoerterbuchFlat.ID_Woerterbuch) LEFT JOIN URL ON Woerterbuch.ID_Woerterbuch = "
     "URL.ID_Woerterbuch Where (((Woerterbuch.ID_Woerterbuch) = [lWordID])) ORDER BY "
     "Woerterbuch.SortBegriff, Woerterbuch.ID_Woerterbuch, URL.URLName;"},
    {"QueryWoerterbuchFlat", "SELECT WoerterbuchFlat.* From WoerterbuchFlat;"},
    {"QueryWortbedeutungFlat", "SELECT WortbedeutungFlat.* From WortbedeutungFlat;"},
    {"Productivity1",
     "select woerterbuch.DateTimeStamp, WZeit.* from woerterbuch, WZeit where "
     "datevalue(woerterbuch.DateTimeStamp) = WZeit.full_date;"},
};

}  // namespace

std::span<const StoredQueryText> reports() {
  return texts;
}

}  // namespace store::queries
