#include "store/queries/families.h"

namespace store::queries {
namespace {

constexpr StoredQueryText texts[] = {
    {"ViewRegelEingabe1",
     "SELECT DISTINCTROW Regeln.*, RegelVarianten.* FROM Regeln LEFT JOIN RegelVarianten ON "
     "Regeln.RegelID = RegelVarianten.RegelID ORDER BY Regeln.RegelID, "
     "RegelVarianten.RegelVariantenID;"},
    {"QueryRelRegelVariantenWKatWert",
     "SELECT RelRegelVariantenWKat.RegelVariantenID, RelRegelVariantenWKat.ID_WKategorie, "
     "RelRegelVariantenWKat.KategorieWert From RelRegelVariantenWKat;"},
    {"QueryRelRegelVariantenWSachgebiet",
     "SELECT RelRegelVariantenWSachgebiet.RegelVariantenID, "
     "RelRegelVariantenWSachgebiet.ID_Sachgebiet From RelRegelVariantenWSachgebiet;"},
    {"RegelVariantenEigenschaftWertParam",
     "SELECT DISTINCTROW RelRegelVariantenWKat.RegelVariantenID, "
     "RelRegelVariantenWKat.ID_WKategorie, WKategorie.Kategorie, "
     "RelRegelVariantenWKat.KategorieWert FROM WKategorie INNER JOIN RelRegelVariantenWKat ON "
     "WKategorie.ID_WKategorie = RelRegelVariantenWKat.ID_WKategorie Where "
     "(((RelRegelVariantenWKat.RegelVariantenID) = [lRegelVariantenID])) ORDER BY "
     "WKategorie.Kategorie;"},
    {"RegelVariantenSachgebietParam",
     "SELECT DISTINCTROW RelRegelVariantenWSachgebiet.RegelVariantenID, "
     "RelRegelVariantenWSachgebiet.ID_Sachgebiet, WSachgebiet.ID_Sachgebiet, "
     "WSachgebiet.Sachgebiet FROM WSachgebiet INNER JOIN RelRegelVariantenWSachgebiet ON "
     "WSachgebiet.ID_Sachgebiet = RelRegelVariantenWSachgebiet.ID_Sachgebiet Where "
     "(((RelRegelVariantenWSachgebiet.RegelVariantenID) = [lRegelVariantenID])) ORDER BY "
     "WSachgebiet.Sachgebiet;"},
    {"ViewRegeln1", "SELECT Regeln.* From Regeln ORDER BY Regeln.RegelName;"},
    {"ViewRegelEingabeParam1",
     "SELECT DISTINCTROW Regeln.*, RegelVarianten.* FROM Regeln LEFT JOIN RegelVarianten ON "
     "Regeln.RegelID = RegelVarianten.RegelID Where (((Regeln.RegelID) = [lRegelID])) ORDER BY "
     "RegelVarianten.RegelVariantenID;"},
    {"ViewRegelEingabeParamOrderByPrioritaet1",
     "SELECT DISTINCTROW Regeln.*, RegelVarianten.* FROM Regeln LEFT JOIN RegelVarianten ON "
     "Regeln.RegelID = RegelVarianten.RegelID Where (((Regeln.RegelID) = [lRegelID])) ORDER BY "
     "RegelVarianten.VariantenPrioritaet;"},
    {"VonBisdatumFilterParam",
     "PARAMETERS sDatumVon Text, sDatumBis Text; SELECT * From AllWordsOrderByBegriff WHERE "
     "datevalue(datetimestamp) >= datevalue([sDatumVon]) and datevalue(datetimestamp) <= "
     "datevalue([sDatumBis]);"},
    {"VonBisdatumFilterParam2",
     "PARAMETERS sDatumVon Text, sDatumBis Text; SELECT * From AllWordsOrderByBegriff WHERE "
     "datevalue(datetimestamplastchange) >= datevalue([sDatumVon]) and "
     "datevalue(datetimestamplastchange) <= datevalue([sDatumBis]);"},
    {"ChangeHistory1",
     "SELECT ChangeHistory.ID_Woerterbuch, DateLastChange, Begriff FROM Woerterbuch INNER JOIN "
     "ChangeHistory ON Woerterbuch.ID_Woerterbuch = ChangeHistory.ID_Woerterbuch ORDER BY "
     "DateLastChange DESC;"},
    {"NewHistory1",
     "SELECT distinct NewHistory.ID_Woerterbuch, Woerterbuch.Begriff, Woerterbuch.DateTimeStamp "
     "FROM Woerterbuch INNER JOIN NewHistory ON Woerterbuch.ID_Woerterbuch = "
     "NewHistory.ID_Woerterbuch order by Woerterbuch.DateTimeStamp desc;"},
    {"ViewImportFromExternalDB",
     "SELECT DISTINCTROW Woerterbuch.*, Wortbedeutung.* FROM Woerterbuch INNER JOIN Wortbedeutung "
     "ON Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch;"},
    {"ViewImportFromExternalDBURL",
     "SELECT DISTINCTROW Woerterbuch.*, URL.* FROM Woerterbuch INNER JOIN URL ON "
     "Woerterbuch.ID_Woerterbuch = URL.ID_Woerterbuch;"},
    {"QuerySprache", "SELECT Sprache.* From Sprache;"},
    {"SQLTemp", "select * from woerterbuch;"},
    {"FilterSelektion", "SELECT distinct woerterbuch.id_woerterbuch from exportview1;"},
};

}  // namespace

std::span<const StoredQueryText> rulesAndRest() {
  return texts;
}

}  // namespace store::queries
