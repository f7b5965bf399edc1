#include "publish/rows.h"

#include <algorithm>

#include "base/text.h"
#include "store/rows.h"

namespace publish {

namespace {

bool sameEntry(const PrintRow& a, const PrintRow& b) {
  return a.id == b.id && base::equalsIgnoreCase(a.databaseName, b.databaseName);
}

void append(std::deque<EntryRows>& entries, PrintRow row) {
  auto entry = std::find_if(entries.begin(), entries.end(),
                            [&](const EntryRows& rows) { return sameEntry(rows.front(), row); });
  if (entry == entries.end()) {
    entries.emplace_back();
    entry = std::prev(entries.end());
  }
  entry->push_back(std::move(row));
}

}  // namespace

EntryReader::EntryReader(engine::Recordset& rows) : rows_(rows), fields_(lookUp(rows)) {}

EntryReader::Fields EntryReader::lookUp(const engine::Recordset& rows) {
  const auto at = [&](const char* name) { return rows.field(name); };
  return {at("ID_Woerterbuch"),
          at("ID_Woerterbuch1"),
          at("ID_Wortbedeutung"),
          at("Begriff"),
          at("SortBegriff"),
          at("DatabaseName"),
          at("Aussprache"),
          at("Bemerkung"),
          at("Bild"),
          at("Klang"),
          at("DateTimeStamp"),
          at("Wortbedeutung"),
          at("Beispiel"),
          at("Beispieluebersetzung"),
          at("ExportView1.Kategorie"),
          at("ExportView1.KategorieWert"),
          at("AbkObjKat"),
          at("ExportView1.Sachgebiet"),
          at("AbkObjSach"),
          at("WKategorie.Kategorie"),
          at("relWortbedWKat.KategorieWert"),
          at("WKategorie.Abkuerzung"),
          at("WSachgebiet.Sachgebiet"),
          at("WSachgebiet.Abkuerzung")};
}

PrintRow EntryReader::read() const {
  const auto value = [&](std::size_t field) { return rows_.value(field); };
  const Fields& f = fields_;
  return {store::numberOf(value(f.id)),
          store::numberOf(value(f.mainId)),
          store::numberOf(value(f.meaningId)),
          value(f.headword).textOrEmpty(),
          value(f.sortKey).textOrEmpty(),
          value(f.databaseName).textOrEmpty(),
          value(f.pronunciation),
          value(f.note),
          value(f.picture),
          value(f.sound),
          value(f.created),
          value(f.meaning),
          value(f.example),
          value(f.exampleTranslation),
          value(f.property),
          value(f.propertyValue),
          value(f.propertyShort),
          value(f.subject),
          value(f.subjectShort),
          value(f.meaningProperty),
          value(f.meaningPropertyValue),
          value(f.meaningPropertyShort),
          value(f.meaningSubject),
          value(f.meaningSubjectShort)};
}

void EntryReader::readEqualKeys() {
  if (rows_.EndOfFile()) return;
  const std::string key = rows_.value(fields_.sortKey).textOrEmpty();
  do {
    append(pending_, read());
    rows_.MoveNext();
  } while (!rows_.EndOfFile() && base::equalsIgnoreCase(rows_.value(fields_.sortKey).textOrEmpty(), key));
}

EntryRows EntryReader::next() {
  if (pending_.empty()) readEqualKeys();
  if (pending_.empty()) return {};
  EntryRows entry = std::move(pending_.front());
  pending_.pop_front();
  return entry;
}

std::vector<EntryRows> EntryReader::entriesBelow(std::int64_t mainId, const std::string& databaseName) {
  std::deque<EntryRows> entries;
  rows_.FindFirst("ID_Woerterbuch1 = " + std::to_string(mainId) + " and databasename = '" +
                  base::replaceAll(databaseName, "'", "''") + "'");
  if (rows_.NoMatch()) return {};
  for (; !rows_.EndOfFile() && store::numberOf(rows_.value(fields_.mainId)) == mainId; rows_.MoveNext())
    if (base::equalsIgnoreCase(rows_.value(fields_.databaseName).textOrEmpty(), databaseName))
      append(entries, read());
  return {std::make_move_iterator(entries.begin()), std::make_move_iterator(entries.end())};
}

}  // namespace publish
