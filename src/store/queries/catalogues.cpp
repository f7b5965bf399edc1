#include "store/queries/families.h"

namespace store::queries {
namespace {

// The parameters of the value queries are free names: no PARAMETERS clause declares them.
constexpr StoredQueryText texts[] = {
    {"QueryWKategorieWortbedWert",
     "SELECT relWortbedWKat.ID_Wortbedeutung, relWortbedWKat.ID_WKategorie, "
     "relWortbedWKat.KategorieWert From relWortbedWKat;"},
    {"QueryWKategorieWert",
     "SELECT relWoertWKat.ID_Woerterbuch, relWoertWKat.ID_WKategorie, relWoertWKat.KategorieWert "
     "From relWoertWKat;"},
    {"ShowBegriffEigenschaftWertParam",
     "SELECT WKategorie.Kategorie, relWoertWKat.KategorieWert FROM WKategorie INNER JOIN "
     "relWoertWKat ON WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie Where "
     "(((relWoertWKat.ID_Woerterbuch) = [lWortID])) ORDER BY WKategorie.Kategorie;"},
    {"ShowWortbedEigenschaftWertParam",
     "SELECT WKategorie.Kategorie, relWortbedWKat.KategorieWert FROM WKategorie INNER JOIN "
     "relWortbedWKat ON WKategorie.ID_WKategorie = relWortbedWKat.ID_WKategorie Where "
     "(((relWortbedWKat.ID_Wortbedeutung) = [lWortbedeutungID])) ORDER BY WKategorie.Kategorie;"},
    {"WortbedEigenschaftWertParam",
     "SELECT DISTINCTROW relWortbedWKat.ID_Wortbedeutung, relWortbedWKat.ID_WKategorie, "
     "WKategorie.Kategorie, WKategorie.Abkuerzung, relWortbedWKat.KategorieWert FROM WKategorie "
     "INNER JOIN relWortbedWKat ON WKategorie.ID_WKategorie = relWortbedWKat.ID_WKategorie Where "
     "(((relWortbedWKat.ID_Wortbedeutung) = [lWortbedeutungID])) ORDER BY WKategorie.Kategorie;"},
    {"BegriffEigenschaftWertParam",
     "SELECT DISTINCTROW relWoertWKat.ID_Woerterbuch, relWoertWKat.ID_WKategorie, "
     "WKategorie.Kategorie, relWoertWKat.KategorieWert FROM WKategorie INNER JOIN relWoertWKat ON "
     "WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie Where (((relWoertWKat.ID_Woerterbuch) "
     "= [lWortID])) ORDER BY WKategorie.Kategorie;"},
    {"BegriffEigenschaftWertParam1",
     "SELECT DISTINCTROW relWoertWKat.ID_Woerterbuch, relWoertWKat.ID_WKategorie, "
     "WKategorie.Kategorie, WKategorie.Abkuerzung, relWoertWKat.KategorieWert FROM WKategorie "
     "INNER JOIN relWoertWKat ON WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie Where "
     "(((relWoertWKat.ID_Woerterbuch) = [lWortID])) ORDER BY WKategorie.Kategorie;"},
    {"OrderWKategorie", "SELECT * From WKategorie ORDER BY Kategorie;"},
    {"QueryOrderWKategorie",
     "SELECT DISTINCTROW WKategorie.* From WKategorie ORDER BY WKategorie.Kategorie;"},
    {"QueryOrderWKategorie1",
     "SELECT DISTINCT WKategorie.*, Woerterbuch.DatabaseName From Woerterbuch, WKategorie, "
     "relWoertWKat Where (((WKategorie.ID_WKategorie) = [relWoertWKat].[ID_WKategorie]) And "
     "((Woerterbuch.ID_Woerterbuch) = [relWoertWKat].[ID_Woerterbuch])) ORDER BY "
     "WKategorie.Kategorie;"},
    {"OrderWSachgebiet", "SELECT * From WSachgebiet ORDER BY Sachgebiet;"},
    {"QueryOrderWSachgebiet",
     "SELECT DISTINCTROW WSachgebiet.* From WSachgebiet ORDER BY WSachgebiet.Sachgebiet;"},
    {"QueryOrderWSachgebiet1",
     "SELECT DISTINCT WSachgebiet.*, Woerterbuch.DatabaseName From Woerterbuch, WSachgebiet, "
     "relWoertSachgebiet Where (((WSachgebiet.ID_Sachgebiet) = "
     "[relWoertSachgebiet].[ID_WSachgebiet]) And ((Woerterbuch.ID_Woerterbuch) = "
     "[relWoertSachgebiet].[ID_Woerterbuch])) ORDER BY WSachgebiet.Sachgebiet;"},
};

}  // namespace

std::span<const StoredQueryText> catalogues() {
  return texts;
}

}  // namespace store::queries
