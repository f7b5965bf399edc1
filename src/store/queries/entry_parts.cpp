#include "store/queries/families.h"

namespace store::queries {
namespace {

// Callers set parameters by name, so the spellings differ as they do: lWordID and lWortID are an entry,
// lWortbedID and lWortbedeutungID a meaning.
constexpr StoredQueryText texts[] = {
    {"WortbedParam",
     "PARAMETERS lWordID Long; SELECT Wortbedeutung.ID_Wortbedeutung, "
     "Wortbedeutung.ID_Woerterbuch, Wortbedeutung.Wortbedeutung, Wortbedeutung.DatabaseName, "
     "WortbedeutungFlat.EigenschaftenZurWortbedeutung, "
     "WortbedeutungFlat.SachgebieteZurWortbedeutung, "
     "WortbedeutungFlat.AbkEigenschaftenZurWortbedeutung, "
     "WortbedeutungFlat.AbkSachgebieteZurWortbedeutung, WortbedeutungFlat.Beispiele, "
     "WortbedeutungFlat.Beispieluebersetzungen FROM Wortbedeutung LEFT JOIN WortbedeutungFlat ON "
     "Wortbedeutung.ID_Wortbedeutung = WortbedeutungFlat.ID_Wortbedeutung Where "
     "(((Wortbedeutung.ID_Woerterbuch) = [lWordID])) ORDER BY Wortbedeutung.Wortbedeutung;"},
    {"WortbedEigenschaftParam",
     "PARAMETERS lWortbedID Long; SELECT DISTINCTROW relWortbedWKat.ID_Wortbedeutung, "
     "relWortbedWKat.ID_WKategorie, WKategorie.Kategorie, WKategorie.Abkuerzung, "
     "relWortbedWKat.KategorieWert FROM WKategorie INNER JOIN relWortbedWKat ON "
     "WKategorie.ID_WKategorie = relWortbedWKat.ID_WKategorie Where "
     "(((relWortbedWKat.ID_Wortbedeutung) = [lWortbedID])) ORDER BY WKategorie.Kategorie;"},
    {"WortbedSachgebietParam",
     "PARAMETERS lWortbedID Long; SELECT DISTINCTROW relWortbedSachgebiet.ID_Wortbedeutung, "
     "relWortbedSachgebiet.ID_Sachgebiet, WSachgebiet.Sachgebiet, WSachgebiet.Abkuerzung FROM "
     "WSachgebiet INNER JOIN relWortbedSachgebiet ON WSachgebiet.ID_Sachgebiet = "
     "relWortbedSachgebiet.ID_Sachgebiet Where (((relWortbedSachgebiet.ID_Wortbedeutung) = "
     "[lWortbedID])) ORDER BY WSachgebiet.Sachgebiet;"},
    {"BegriffWortbedeutungParam",
     "PARAMETERS lWortID Long; SELECT DISTINCTROW * From WortBedeutung Where ID_Woerterbuch = "
     "LWortID ORDER BY Wortbedeutung;"},
    {"WortbedKategorieWortbedIDParam",
     "PARAMETERS lWortbedeutungID Long; SELECT DISTINCTROW relWortbedWKat.ID_Wortbedeutung, "
     "relWortbedWKat.ID_WKategorie, relWortbedWKat.KategorieWert, WKategorie.Kategorie, "
     "WKategorie.Abkuerzung FROM WKategorie INNER JOIN relWortbedWKat ON WKategorie.ID_WKategorie "
     "= relWortbedWKat.ID_WKategorie Where (((relWortbedWKat.ID_Wortbedeutung) = "
     "[lWortbedeutungID])) ORDER BY WKategorie.Kategorie;"},
    {"WortbedSachgebietWortbedIDParam",
     "PARAMETERS lWortbedeutungID Long; SELECT DISTINCTROW relWortbedSachgebiet.ID_Wortbedeutung, "
     "relWortbedSachgebiet.ID_Sachgebiet, WSachgebiet.Sachgebiet, WSachgebiet.Abkuerzung FROM "
     "WSachgebiet INNER JOIN relWortbedSachgebiet ON WSachgebiet.ID_Sachgebiet = "
     "relWortbedSachgebiet.ID_Sachgebiet Where (((relWortbedSachgebiet.ID_Wortbedeutung) = "
     "[lWortbedeutungID])) ORDER BY WSachgebiet.Sachgebiet;"},
    {"WortbedeutungParam",
     "PARAMETERS lWortbedeutungID Long; SELECT DISTINCTROW Wortbedeutung.* From Wortbedeutung "
     "Where (((Wortbedeutung.ID_Wortbedeutung) = [lWortbedeutungID]));"},
    {"WortbedBspParam",
     "PARAMETERS lWortbedID Long; SELECT DISTINCTROW WortBedBsp.* From WortBedBsp Where "
     "(((WortBedBsp.ID_Wortbedeutung) = [lWortbedID])) ORDER BY WortBedBsp.ID_WortbedBsp;"},
    {"WortbedBspParam2",
     "PARAMETERS lWortbedID Long; SELECT DISTINCTROW WortBedBsp.ID_WortbedBsp, "
     "WortBedBsp.ID_Wortbedeutung, WortBedBsp.Beispiel, WortBedBsp.Beispieluebersetzung From "
     "WortBedBsp Where (((WortBedBsp.ID_Wortbedeutung) = [lWortbedID])) ORDER BY "
     "WortBedBsp.ID_WortbedBsp;"},
    {"EigenschaftWortbedIDParam",
     "PARAMETERS lWortbedID Long; SELECT DISTINCTROW WKategorie.* FROM WKategorie INNER JOIN "
     "relWortbedWKat ON WKategorie.ID_WKategorie = relWortbedWKat.ID_WKategorie Where "
     "(((relWortbedWKat.ID_Wortbedeutung) = [lWortbedID])) ORDER BY WKategorie.Kategorie;"},
    {"SachgebietWortbedIDParam",
     "PARAMETERS lWortbedID Long; SELECT DISTINCTROW WSachgebiet.* FROM WSachgebiet INNER JOIN "
     "relWortbedSachgebiet ON WSachgebiet.ID_Sachgebiet = relWortbedSachgebiet.ID_Sachgebiet "
     "Where (((relWortbedSachgebiet.ID_Wortbedeutung) = [lWortbedID])) ORDER BY "
     "WSachgebiet.Sachgebiet;"},
    {"BegriffParam",
     "PARAMETERS lWortID Long; SELECT DISTINCTROW Woerterbuch.* From Woerterbuch Where "
     "(((Woerterbuch.ID_Woerterbuch) = [lWortID]));"},
    {"ID_Woerterbuch1Param",
     "PARAMETERS lWortID Long; SELECT * From woerterbuch WHERE "
     "(((woerterbuch.ID_Woerterbuch1)=[LWortID]));"},
    {"Woerterbuchrelwoertwoert",
     "PARAMETERS lWordID Long; SELECT Woerterbuch.*, Woerterbuch.ID_Woerterbuch From Woerterbuch "
     "Where ((Woerterbuch.ID_Woerterbuch <> [ID_Woerterbuch1]) And (Woerterbuch.ID_Woerterbuch1 = "
     "[lwordid])) ORDER BY Woerterbuch.Prioritaet, Woerterbuch.SortBegriff;"},
    {"BegriffEigenschaftParam",
     "PARAMETERS lWortID Long; SELECT DISTINCTROW relWoertWKat.ID_Woerterbuch, "
     "relWoertWKat.ID_WKategorie, relWoertWKat.KategorieWert, WKategorie.Kategorie, "
     "WKategorie.Abkuerzung FROM WKategorie INNER JOIN relWoertWKat ON WKategorie.ID_WKategorie = "
     "relWoertWKat.ID_WKategorie Where (((relWoertWKat.ID_Woerterbuch) = [lWortID])) ORDER BY "
     "WKategorie.Kategorie;"},
    {"BegriffSachgebietParam",
     "PARAMETERS lWortID Long; SELECT DISTINCTROW relWoertSachgebiet.ID_Woerterbuch, "
     "relWoertSachgebiet.ID_WSachgebiet, WSachgebiet.ID_Sachgebiet, WSachgebiet.Sachgebiet, "
     "WSachgebiet.Abkuerzung FROM WSachgebiet INNER JOIN relWoertSachgebiet ON "
     "WSachgebiet.ID_Sachgebiet = relWoertSachgebiet.ID_WSachgebiet Where "
     "(((relWoertSachgebiet.ID_Woerterbuch) = [lWortID])) ORDER BY WSachgebiet.Sachgebiet;"},
    {"EigenschaftWortIDParam",
     "PARAMETERS lWortID Long; SELECT DISTINCTROW WKategorie.* FROM WKategorie INNER JOIN "
     "relWoertWKat ON WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie Where "
     "(((relWoertWKat.ID_Woerterbuch) = [lWortID])) ORDER BY WKategorie.Kategorie;"},
    {"SachgebietWortIDParam",
     "PARAMETERS lWortID Long; SELECT DISTINCTROW WSachgebiet.* FROM WSachgebiet INNER JOIN "
     "relWoertSachgebiet ON WSachgebiet.ID_Sachgebiet = relWoertSachgebiet.ID_WSachgebiet Where "
     "(((relWoertSachgebiet.ID_Woerterbuch) = [lWortID])) ORDER BY WSachgebiet.Sachgebiet;"},
    {"BegriffURLParam",
     "PARAMETERS lWortID Long; SELECT DISTINCTROW URL.* From URL Where (((URL.ID_Woerterbuch) = "
     "[lWortID])) ORDER BY URL.URLName;"},
    {"BegriffURLParam2",
     "PARAMETERS lWortID Long;SELECT DISTINCTROW URL.ID_URL, URL.ID_Woerterbuch, URL.URLName, "
     "URL.URL, URL.URLNotiz, URL.Rating From URL Where (((URL.ID_Woerterbuch) = [lWortID])) ORDER "
     "BY URL.URLName;"},
    {"BegriffAttachmentParam",
     "PARAMETERS lWortID Long; SELECT DISTINCTROW Attachment.* From Attachment Where "
     "(((Attachment.ID_Woerterbuch) = [lWortID])) ORDER BY Attachment.AttachmentName;"},
    {"BegriffQuerverweisParam",
     "PARAMETERS lWortID Long; SELECT DISTINCTROW Querverweis.* From Querverweis Where "
     "(((Querverweis.ID_Woerterbuch) = [lWortID])) ORDER BY Querverweis.Querverweis;"},
    {"BegriffQuerverweisParam1",
     "PARAMETERS lWortID Long; SELECT DISTINCTROW Querverweis.ID_Querverweis, "
     "Querverweis.ID_Woerterbuch, woerterbuch.ID_Woerterbuch1, Querverweis.ID_WoerterbuchQV, "
     "Querverweis.Querverweis, woerterbuch.DatabaseName From Querverweis, woerterbuch Where "
     "(((Querverweis.id_woerterbuch) = [lWortID] And (Querverweis.id_woerterbuch) = "
     "[woerterbuch].[id_woerterbuch])) ORDER BY Querverweis.Querverweis;"},
    {"SachgebietBegriffParam",
     "PARAMETERS lWortID Long; SELECT relWoertSachgebiet.ID_Woerterbuch, WSachgebiet.Sachgebiet, "
     "WSachgebiet.Abkuerzung FROM WSachgebiet INNER JOIN relWoertSachgebiet ON "
     "WSachgebiet.ID_Sachgebiet = relWoertSachgebiet.ID_WSachgebiet Where "
     "(((relWoertSachgebiet.ID_Woerterbuch) = [lWortID])) ORDER BY WSachgebiet.Sachgebiet;"},
    {"KategorieBegriffParam",
     "PARAMETERS lWortID Long; SELECT relWoertWKat.ID_Woerterbuch, WKategorie.Kategorie, "
     "WKategorie.Abkuerzung, relWoertWKat.KategorieWert FROM WKategorie INNER JOIN relWoertWKat "
     "ON WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie Where "
     "(((relWoertWKat.ID_Woerterbuch) = [lWortID])) ORDER BY WKategorie.Kategorie;"},
    {"AnzeigeWortbedBeispieleBegriffParam",
     "PARAMETERS lWortID Long; SELECT Wortbedeutung.ID_Wortbedeutung, "
     "Wortbedeutung.ID_Woerterbuch, Wortbedeutung.Wortbedeutung, WortBedBsp.Beispiel, "
     "WortBedBsp.Beispieluebersetzung FROM Wortbedeutung LEFT JOIN WortBedBsp ON "
     "Wortbedeutung.ID_Wortbedeutung = WortBedBsp.ID_Wortbedeutung Where "
     "(((Wortbedeutung.ID_Woerterbuch) = [lWortID])) ORDER BY Wortbedeutung.Wortbedeutung, "
     "Wortbedeutung.ID_Wortbedeutung, WortBedBsp.ID_WortbedBsp;"},
    {"AnzeigeWortbedKategorieBegriffParam",
     "PARAMETERS lWortID Long; SELECT Wortbedeutung.ID_Wortbedeutung, "
     "Wortbedeutung.ID_Woerterbuch, Wortbedeutung.Wortbedeutung, WKategorie.Kategorie, "
     "WKategorie.Abkuerzung, relWortbedWKat.KategorieWert FROM Wortbedeutung INNER JOIN "
     "(WKategorie INNER JOIN relWortbedWKat ON WKategorie.ID_WKategorie = "
     "relWortbedWKat.ID_WKategorie) ON Wortbedeutung.ID_Wortbedeutung = "
     "relWortbedWKat.ID_Wortbedeutung Where (((Wortbedeutung.ID_Woerterbuch) = [lWortID])) ORDER "
     "BY Wortbedeutung.Wortbedeutung, Wortbedeutung.ID_Wortbedeutung, WKategorie.Kategorie;"},
    {"AnzeigeWortbedSachgebietBegriffParam",
     "PARAMETERS lWortID Long; SELECT Wortbedeutung.ID_Wortbedeutung, "
     "Wortbedeutung.ID_Woerterbuch, Wortbedeutung.Wortbedeutung, WSachgebiet.Sachgebiet, "
     "WSachgebiet.Abkuerzung FROM Wortbedeutung INNER JOIN (WSachgebiet INNER JOIN "
     "relWortbedSachgebiet ON WSachgebiet.ID_Sachgebiet = relWortbedSachgebiet.ID_Sachgebiet) ON "
     "Wortbedeutung.ID_Wortbedeutung = relWortbedSachgebiet.ID_Wortbedeutung Where "
     "(((Wortbedeutung.ID_Woerterbuch) = [lWortID])) ORDER BY Wortbedeutung.Wortbedeutung, "
     "Wortbedeutung.ID_Wortbedeutung, WSachgebiet.Sachgebiet;"},
};

}  // namespace

std::span<const StoredQueryText> entryParts() {
  return texts;
}

}  // namespace store::queries
