#pragma once

#include "support/memory_file.h"

namespace test {

inline const char* const exportView1 =
    "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, Woerterbuch.Begriff, Woerterbuch.SortBegriff, "
    "Woerterbuch.DateTimeStamp, Wortbedeutung.Wortbedeutung, Wortbedeutung.ID_Wortbedeutung, "
    "WortBedBsp.Beispiel, WKategorie.Kategorie, relWoertWKat.KategorieWert, WKategorie.Abkuerzung AS "
    "AbkObjKat, "
    "WSachgebiet.Sachgebiet, WSachgebiet.Abkuerzung AS AbkObjSach FROM WSachgebiet RIGHT JOIN "
    "((((Woerterbuch "
    "LEFT JOIN relWoertSachgebiet ON Woerterbuch.ID_Woerterbuch = relWoertSachgebiet.ID_Woerterbuch) LEFT "
    "JOIN "
    "(WKategorie RIGHT JOIN relWoertWKat ON WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie) ON "
    "Woerterbuch.ID_Woerterbuch = relWoertWKat.ID_Woerterbuch) LEFT JOIN Wortbedeutung ON "
    "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch) LEFT JOIN WortBedBsp ON "
    "Wortbedeutung.ID_Wortbedeutung = WortBedBsp.ID_Wortbedeutung) ON WSachgebiet.ID_Sachgebiet = "
    "relWoertSachgebiet.ID_WSachgebiet;";

inline const char* const exportView2 =
    "SELECT DISTINCTROW ExportView1.ID_Woerterbuch, ExportView1.Begriff, ExportView1.SortBegriff, "
    "ExportView1.Wortbedeutung, ExportView1.Kategorie, ExportView1.AbkObjKat, ExportView1.Sachgebiet, "
    "WKategorie.Kategorie, WKategorie.Abkuerzung FROM WKategorie RIGHT JOIN (ExportView1 LEFT JOIN "
    "relWortbedWKat ON ExportView1.ID_Wortbedeutung = relWortbedWKat.ID_Wortbedeutung) ON "
    "WKategorie.ID_WKategorie = relWortbedWKat.ID_WKategorie ORDER BY ExportView1.SortBegriff;";

/// The tables of a dictionary that the binder's tests read, without rows.
inline void defineWords(MemoryFile& file) {
  for (const char* text :
       {"CREATE TABLE Woerterbuch (ID_Woerterbuch COUNTER, ID_Woerterbuch1 LONG, Begriff TEXT(250), "
        "SortBegriff TEXT(250), Ebene SHORT, Unterbegriff BIT, DateTimeStamp DATE, DatabaseName LONGTEXT, "
        "DateTimeStampLastChange TEXT(50))",
        "CREATE UNIQUE INDEX PrimaryKey ON Woerterbuch (ID_Woerterbuch) WITH PRIMARY",
        "CREATE INDEX SortBegriff ON Woerterbuch (SortBegriff)",
        "CREATE INDEX Begriff ON Woerterbuch (Begriff)",
        "CREATE INDEX ID_Woerterbuch1 ON Woerterbuch (ID_Woerterbuch1)",
        "CREATE INDEX DateTimeStamp ON Woerterbuch (DateTimeStamp)",
        "CREATE TABLE Wortbedeutung (ID_Wortbedeutung COUNTER, ID_Woerterbuch LONG, Wortbedeutung TEXT(250))",
        "CREATE UNIQUE INDEX PrimaryKey ON Wortbedeutung (ID_Wortbedeutung) WITH PRIMARY",
        "CREATE INDEX ID_Woerterbuch ON Wortbedeutung (ID_Woerterbuch)",
        "CREATE TABLE WortBedBsp (ID_WortbedBsp COUNTER, ID_Wortbedeutung LONG, Beispiel LONGTEXT)",
        "CREATE UNIQUE INDEX PrimaryKey ON WortBedBsp (ID_WortbedBsp) WITH PRIMARY",
        "CREATE INDEX ID_Wortbedeutung ON WortBedBsp (ID_Wortbedeutung)",
        "CREATE TABLE WKategorie (ID_WKategorie COUNTER, Kategorie TEXT(50), Abkuerzung TEXT(15))",
        "CREATE UNIQUE INDEX PrimaryKey ON WKategorie (ID_WKategorie) WITH PRIMARY",
        "CREATE TABLE WSachgebiet (ID_Sachgebiet COUNTER, Sachgebiet TEXT(50), Abkuerzung TEXT(15))",
        "CREATE UNIQUE INDEX PrimaryKey ON WSachgebiet (ID_Sachgebiet) WITH PRIMARY",
        "CREATE TABLE relWoertWKat (ID_Woerterbuch LONG, ID_WKategorie LONG, KategorieWert TEXT(50))",
        "CREATE INDEX a ON relWoertWKat (ID_Woerterbuch)",
        "CREATE INDEX b ON relWoertWKat (ID_WKategorie)",
        "CREATE TABLE relWoertSachgebiet (ID_Woerterbuch LONG, ID_WSachgebiet LONG)",
        "CREATE INDEX a ON relWoertSachgebiet (ID_Woerterbuch)",
        "CREATE TABLE relWortbedWKat (ID_Wortbedeutung LONG, ID_WKategorie LONG, KategorieWert TEXT(50))",
        "CREATE INDEX a ON relWortbedWKat (ID_Wortbedeutung)",
        "CREATE TABLE FilterSelektion1 (ID_Woerterbuch LONG)",
        "CREATE INDEX ID_Woerterbuch ON FilterSelektion1 (ID_Woerterbuch)"})
    file.define(text);
  file.addQuery("ExportView1", exportView1);
  file.addQuery("ExportView2", exportView2);
  file.addQuery(
      "AllWordsOrderByBegriff",
      "SELECT woerterbuch.*, woerterbuch.ID_Woerterbuch From woerterbuch ORDER BY woerterbuch.SortBegriff;");
}

/// Four entries (the last a sub-entry of the first) with two properties, two subjects and three meanings.
inline void fillWords(MemoryFile& file) {
  file.insert("Woerterbuch",
              "(1, 1, 'Haus', 'haus', 1, -1, '2020-03-12 10:00:00', 'A', '13.03.2020 08:00:00'),"
              "(2, 2, 'Ähre', 'ahre', 1, 0, '2021-05-01 00:00:00', 'A', '01.05.2021 09:30:00'),"
              "(3, 3, 'Zug', 'zug', 1, 0, NULL, 'A', NULL),"
              "(4, 1, 'Haustür', 'haus tür', 2, 0, '2020-03-12 23:59:59', 'A', 'no date')");
  file.insert("Wortbedeutung", "(1, 1, 'house'), (2, 1, 'home'), (3, 3, 'train')");
  file.insert("WortBedBsp", "(1, 1, 'Das Haus ist alt.'), (2, 3, 'Der Zug hält.')");
  file.insert("WKategorie", "(1, 'noun', 'n'), (2, 'plural', 'pl')");
  file.insert("WSachgebiet", "(1, 'Rail', 'r'), (2, 'Farming', NULL)");
  // The second row repeats the first, as an import leaves it.
  file.insert("relWoertWKat", "(1, 1, 'n.'), (1, 1, 'n.'), (1, 2, NULL), (3, 1, 'm.')");
  file.insert("relWoertSachgebiet", "(2, 2), (2, 2), (3, 1), (3, NULL), (3, NULL)");
  file.insert("relWortbedWKat", "(1, 2, 'x'), (3, 1, 'y')");
}

inline std::unique_ptr<MemoryFiles> words() {
  auto files = std::make_unique<MemoryFiles>();
  MemoryFile& file = files->add("A.CVB");
  defineWords(file);
  fillWords(file);
  return files;
}

/// The first column of each row.
inline Row firsts(const Rows& rows) {
  Row result;
  for (const Row& row : rows) result.push_back(row.at(0));
  return result;
}

/// The number of the error that a call throws, 0 when it throws none.
template <class Call>
int errorNumber(Call call) {
  try {
    call();
  } catch (const engine::Error& error) {
    return error.number();
  }
  return 0;
}

}  // namespace test
