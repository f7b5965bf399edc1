#include "store/queries/families.h"

namespace store::queries {
namespace {

// exportview1.* is the entry's property or subject, wkategorie.* and wsachgebiet.* the meaning's.
// View...Begriff... of the trainer: outer joins, so entries without meanings or examples stay.
constexpr StoredQueryText texts[] = {
    {"PrintBegriffeErsteEbene",
     "SELECT DISTINCTROW * From exportindbviewalleinformationen Where "
     "((exportindbviewalleinformationen.ID_Woerterbuch = [ID_Woerterbuch1])) ORDER BY "
     "exportindbviewalleinformationen.SortBegriff, exportindbviewalleinformationen.Wortbedeutung, "
     "exportindbviewalleinformationen.ID_Wortbedeutung;"},
    {"PrintBegriffeFolgeEbenen",
     "SELECT DISTINCTROW * From exportindbviewalleinformationen Where "
     "((exportindbviewalleinformationen.ID_Woerterbuch <> [ID_Woerterbuch1])) ORDER BY "
     "exportindbviewalleinformationen.ID_Woerterbuch1, "
     "exportindbviewalleinformationen.ID_Woerterbuch, exportindbviewalleinformationen.prioritaet, "
     "exportindbviewalleinformationen.SortBegriff, exportindbviewalleinformationen.Wortbedeutung;"},
    {"PrintBegriffKategorieParam",
     "PARAMETERS sKategorie Text; SELECT DISTINCTROW * From exportindbviewalleinformationen Where "
     "((exportindbviewalleinformationen.ID_Woerterbuch = [ID_Woerterbuch1])) and "
     "exportview1.Kategorie = [sKategorie] ORDER BY exportindbviewalleinformationen.SortBegriff, "
     "exportindbviewalleinformationen.Wortbedeutung;"},
    {"PrintBegriffSachgebietKategorieParam",
     "PARAMETERS sSachgebiet Text, sKategorie Text; SELECT DISTINCTROW * From "
     "exportindbviewalleinformationen Where ((exportindbviewalleinformationen.ID_Woerterbuch = "
     "[ID_Woerterbuch1])) and exportview1.Sachgebiet = [sSachgebiet] and exportview1.Kategorie = "
     "[sKategorie] ORDER BY exportindbviewalleinformationen.SortBegriff, "
     "exportindbviewalleinformationen.Wortbedeutung;"},
    {"PrintBegriffSachgebietParam",
     "PARAMETERS sSachgebiet Text; SELECT DISTINCTROW * From exportindbviewalleinformationen "
     "Where ((exportindbviewalleinformationen.ID_Woerterbuch = [ID_Woerterbuch1])) and "
     "exportview1.Sachgebiet = [sSachgebiet] ORDER BY "
     "exportindbviewalleinformationen.SortBegriff, exportindbviewalleinformationen.Wortbedeutung;"},
    {"PrintKategorieParam",
     "PARAMETERS sKategorie Text; SELECT DISTINCTROW * From exportindbviewalleinformationen Where "
     "((exportindbviewalleinformationen.ID_Woerterbuch = [ID_Woerterbuch1])) and "
     "exportindbviewalleinformationen.wkategorie.Kategorie = [sKategorie] ORDER BY "
     "exportindbviewalleinformationen.SortBegriff, exportindbviewalleinformationen.Wortbedeutung;"},
    {"PrintSachgebietKategorieParam",
     "PARAMETERS sSachgebiet Text, sKategorie Text; SELECT DISTINCTROW * From "
     "exportindbviewalleinformationen Where ((exportindbviewalleinformationen.ID_Woerterbuch = "
     "[ID_Woerterbuch1])) and exportindbviewalleinformationen.wsachgebiet.Sachgebiet = "
     "[sSachgebiet] and exportindbviewalleinformationen.wkategorie.Kategorie = [sKategorie] ORDER "
     "BY exportindbviewalleinformationen.SortBegriff, "
     "exportindbviewalleinformationen.Wortbedeutung;"},
    {"PrintSachgebietParam",
     "PARAMETERS sSachgebiet Text; SELECT DISTINCTROW * From exportindbviewalleinformationen "
     "Where ((exportindbviewalleinformationen.ID_Woerterbuch = [ID_Woerterbuch1])) and "
     "exportindbviewalleinformationen.wsachgebiet.Sachgebiet = [sSachgebiet] ORDER BY "
     "exportindbviewalleinformationen.SortBegriff, exportindbviewalleinformationen.Wortbedeutung;"},
    {"PrintEinzelBegriffErsteEbeneParam",
     "PARAMETERS lWordID Long; SELECT DISTINCTROW * From exportindbviewalleinformationen Where "
     "((exportindbviewalleinformationen.ID_Woerterbuch = [lWordID])) ORDER BY "
     "exportindbviewalleinformationen.SortBegriff, exportindbviewalleinformationen.Wortbedeutung, "
     "exportindbviewalleinformationen.ID_Wortbedeutung;"},
    {"ViewBegriffWortbedKateg",
     "PARAMETERS sKategorie Text; SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, "
     "Woerterbuch.DatabaseName, Woerterbuch.SortBegriff, Woerterbuch.ID_Woerterbuch1, "
     "Woerterbuch.Ebene, Wortbedeutung.ID_Wortbedeutung, Woerterbuch.Begriff, "
     "Wortbedeutung.Wortbedeutung, WortBedBsp.Beispiel, WortBedBsp.Beispieluebersetzung, "
     "WKategorie.Kategorie FROM ((Woerterbuch LEFT JOIN Wortbedeutung ON "
     "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) LEFT JOIN WortBedBsp ON "
     "Wortbedeutung.ID_Wortbedeutung = WortBedBsp.ID_Wortbedeutung) LEFT JOIN (WKategorie RIGHT "
     "JOIN relWortbedWKat ON WKategorie.ID_WKategorie = relWortbedWKat.ID_WKategorie) ON "
     "Wortbedeutung.ID_Wortbedeutung = relWortbedWKat.ID_Wortbedeutung Where "
     "(((WKategorie.Kategorie) = [sKategorie])) ORDER BY Woerterbuch.SortBegriff;"},
    {"ViewBegriffWortbedSach",
     "PARAMETERS sSachgebiet Text; SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, "
     "Woerterbuch.DatabaseName, Woerterbuch.SortBegriff, Woerterbuch.ID_Woerterbuch1, "
     "Woerterbuch.Ebene, Wortbedeutung.ID_Wortbedeutung, Woerterbuch.Begriff, "
     "Wortbedeutung.Wortbedeutung, WortBedBsp.Beispiel, WortBedBsp.Beispieluebersetzung, "
     "WSachgebiet.Sachgebiet FROM ((Woerterbuch LEFT JOIN Wortbedeutung ON "
     "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) LEFT JOIN WortBedBsp ON "
     "Wortbedeutung.ID_Wortbedeutung = WortBedBsp.ID_Wortbedeutung) LEFT JOIN (WSachgebiet RIGHT "
     "JOIN relWortbedSachgebiet ON WSachgebiet.ID_Sachgebiet = "
     "relWortbedSachgebiet.ID_Sachgebiet) ON Wortbedeutung.ID_Wortbedeutung = "
     "relWortbedSachgebiet.ID_Wortbedeutung Where (((WSachgebiet.Sachgebiet) = [sSachgebiet])) "
     "ORDER BY Woerterbuch.SortBegriff;"},
    {"ViewBegriffWortbedKategSach",
     "PARAMETERS sKategorie Text, sSachgebiet Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, Woerterbuch.SortBegriff, "
     "Woerterbuch.ID_Woerterbuch1, Woerterbuch.Ebene, Wortbedeutung.ID_Wortbedeutung, "
     "Woerterbuch.Begriff, Wortbedeutung.Wortbedeutung, WortBedBsp.Beispiel, "
     "WortBedBsp.Beispieluebersetzung, WKategorie.Kategorie, WSachgebiet.Sachgebiet FROM "
     "(((Woerterbuch LEFT JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = "
     "Wortbedeutung.ID_Woerterbuch) LEFT JOIN WortBedBsp ON Wortbedeutung.ID_Wortbedeutung = "
     "WortBedBsp.ID_Wortbedeutung) LEFT JOIN (WKategorie RIGHT JOIN relWortbedWKat ON "
     "WKategorie.ID_WKategorie = relWortbedWKat.ID_WKategorie) ON Wortbedeutung.ID_Wortbedeutung "
     "= relWortbedWKat.ID_Wortbedeutung) LEFT JOIN (WSachgebiet RIGHT JOIN relWortbedSachgebiet "
     "ON WSachgebiet.ID_Sachgebiet = relWortbedSachgebiet.ID_Sachgebiet) ON "
     "Wortbedeutung.ID_Wortbedeutung = relWortbedSachgebiet.ID_Wortbedeutung Where "
     "(((WKategorie.Kategorie) = [sKategorie]) And ((WSachgebiet.Sachgebiet) = [sSachgebiet])) "
     "ORDER BY Woerterbuch.SortBegriff;"},
    {"ViewKategBegriffWortbed",
     "PARAMETERS sKategorie Text; SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, "
     "Woerterbuch.DatabaseName, Woerterbuch.SortBegriff, Woerterbuch.ID_Woerterbuch1, "
     "Woerterbuch.Ebene, Wortbedeutung.ID_Wortbedeutung, Woerterbuch.Begriff, "
     "Wortbedeutung.Wortbedeutung, WortBedBsp.Beispiel, WortBedBsp.Beispieluebersetzung, "
     "WKategorie.Kategorie FROM ((Woerterbuch LEFT JOIN Wortbedeutung ON "
     "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) LEFT JOIN WortBedBsp ON "
     "Wortbedeutung.ID_Wortbedeutung = WortBedBsp.ID_Wortbedeutung) LEFT JOIN (WKategorie RIGHT "
     "JOIN relWoertWKat ON WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie) ON "
     "Woerterbuch.ID_Woerterbuch = relWoertWKat.ID_Woerterbuch Where (((WKategorie.Kategorie) = "
     "[sKategorie])) ORDER BY Woerterbuch.SortBegriff;"},
    {"ViewSachBegriffWortbed",
     "PARAMETERS sSachgebiet Text; SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, "
     "Woerterbuch.DatabaseName, Woerterbuch.SortBegriff, Woerterbuch.ID_Woerterbuch1, "
     "Woerterbuch.Ebene, Wortbedeutung.ID_Wortbedeutung, Woerterbuch.Begriff, "
     "Wortbedeutung.Wortbedeutung, WortBedBsp.Beispiel, WortBedBsp.Beispieluebersetzung, "
     "WSachgebiet.Sachgebiet FROM ((Woerterbuch LEFT JOIN Wortbedeutung ON "
     "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) LEFT JOIN WortBedBsp ON "
     "Wortbedeutung.ID_Wortbedeutung = WortBedBsp.ID_Wortbedeutung) LEFT JOIN (WSachgebiet RIGHT "
     "JOIN relWoertSachgebiet ON WSachgebiet.ID_Sachgebiet = relWoertSachgebiet.ID_WSachgebiet) "
     "ON Woerterbuch.ID_Woerterbuch = relWoertSachgebiet.ID_Woerterbuch Where "
     "(((WSachgebiet.Sachgebiet) = [sSachgebiet])) ORDER BY Woerterbuch.SortBegriff;"},
    {"ViewKategSachBegriffWortbed",
     "PARAMETERS sKategorie Text, sSachgebiet Text; SELECT DISTINCTROW "
     "Woerterbuch.ID_Woerterbuch, Woerterbuch.DatabaseName, Woerterbuch.SortBegriff, "
     "Woerterbuch.ID_Woerterbuch1, Woerterbuch.Ebene, Wortbedeutung.ID_Wortbedeutung, "
     "Woerterbuch.Begriff, Wortbedeutung.Wortbedeutung, WortBedBsp.Beispiel, "
     "WortBedBsp.Beispieluebersetzung, WKategorie.Kategorie, WSachgebiet.Sachgebiet FROM "
     "(((Woerterbuch LEFT JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = "
     "Wortbedeutung.ID_Woerterbuch) LEFT JOIN WortBedBsp ON Wortbedeutung.ID_Wortbedeutung = "
     "WortBedBsp.ID_Wortbedeutung) LEFT JOIN (WKategorie RIGHT JOIN relWoertWKat ON "
     "WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie) ON Woerterbuch.ID_Woerterbuch = "
     "relWoertWKat.ID_Woerterbuch) LEFT JOIN (WSachgebiet RIGHT JOIN relWoertSachgebiet ON "
     "WSachgebiet.ID_Sachgebiet = relWoertSachgebiet.ID_WSachgebiet) ON "
     "Woerterbuch.ID_Woerterbuch = relWoertSachgebiet.ID_Woerterbuch Where "
     "(((WKategorie.Kategorie) = [sKategorie]) And ((WSachgebiet.Sachgebiet) = [sSachgebiet])) "
     "ORDER BY Woerterbuch.SortBegriff;"},
};

}  // namespace

std::span<const StoredQueryText> printSelections() {
  return texts;
}

}  // namespace store::queries
