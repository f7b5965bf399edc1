#include "filled_dictionary.h"

#include <algorithm>
#include <random>
#include <stdexcept>

#include "store/queries/stored_queries.h"
#include "store/schema.h"

namespace test {
namespace {

template <class Row>
const Row& byId(const std::vector<Row>& rows, std::int64_t id) {
  for (const Row& row : rows)
    if (row.id == id) return row;
  throw std::out_of_range("no row " + std::to_string(id));
}

class Maker {
 public:
  Maker(unsigned seed, const std::string& path) : random_(seed) { data_.path = path; }

  Filling make() {
    catalogues();
    for (std::int64_t id = 1; id <= 40; ++id) entry(id);
    for (const Entry& entry : data_.entries) dependants(entry);
    rules();
    history();
    return data_;
  }

 private:
  int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }
  Text maybe(const std::string& text) { return below(3) == 0 ? Text() : Text(text); }

  void catalogues() {
    const char* const properties[] = {"noun", "adjective", "plural", "l'article", "unused"};
    const char* const subjects[] = {"law", "botany", "Schach", "unused"};
    for (const char* name : properties) {
      const auto id = static_cast<std::int64_t>(data_.properties.size()) + 1;
      data_.properties.push_back({id, name, maybe(std::string(name).substr(0, 2))});
    }
    for (const char* name : subjects) {
      const auto id = static_cast<std::int64_t>(data_.subjects.size()) + 1;
      data_.subjects.push_back({id, name, maybe(std::string(name).substr(0, 2))});
    }
  }

  /// Every fourth entry is a sub-entry of one before it. Some share a headword and so a sort key.
  void entry(std::int64_t id) {
    static const char* const stems[] = {"Haus",  "Garten",    "Baum",  "l'eau",
                                        "Übung", "\"Zitat\"", "Apfel", "acht"};
    static const char* const keys[] = {"Haus", "Garten", "Baum", "leau", "Uebung", "Zitat", "Apfel", "acht"};
    const int stem = below(8);
    const std::string number = below(5) == 0 ? "" : std::to_string(id);
    Entry made;
    made.id = id;
    made.headword = stems[stem] + number;
    made.sortKey = keys[stem] + number;
    made.level = id > 4 && id % 4 == 0 ? 2 : 1;
    made.mainId = id;
    made.priority = 1;
    if (made.level == 2) {
      made.mainId = 1 + below(3);
      made.priority = below(5);
      made.sortKey = data_.entry(made.mainId).sortKey + std::to_string(made.priority) + made.sortKey;
    }
    made.note = maybe("note of " + made.headword);
    made.created = base::DateTime::of(2020 + below(5), 1 + below(12), 1 + below(28), below(24), below(60), 0);
    made.changed = made.created.plusDays(below(400)).stamp();
    data_.entries.push_back(made);
  }

  void assign(std::vector<Assignment>& to, std::int64_t owner, int items, bool withValue) {
    for (int item = 1; item < items; ++item)  // the last one stays unused
      if (below(4) == 0)
        to.push_back({owner, item, withValue ? maybe("v" + std::to_string(below(9))) : Text()});
  }

  void dependants(const Entry& entry) {
    const int properties = static_cast<int>(data_.properties.size());
    const int subjects = static_cast<int>(data_.subjects.size());
    assign(data_.entryProperties, entry.id, properties, true);
    assign(data_.entrySubjects, entry.id, subjects, false);
    for (int count = below(4); count > 0; --count) {
      const auto id = static_cast<std::int64_t>(data_.meanings.size()) + 1;
      data_.meanings.push_back({id, entry.id, "meaning " + std::to_string(below(100))});
      assign(data_.meaningProperties, id, properties, true);
      assign(data_.meaningSubjects, id, subjects, false);
      for (int examples = below(3); examples > 0; --examples)
        data_.examples.push_back({static_cast<std::int64_t>(data_.examples.size()) + 1, id,
                                  "It's example " + std::to_string(below(1000)), maybe("Es ist \"es\"")});
    }
    const auto link = [&](std::vector<Link>& to, const std::string& start) {
      const auto id = static_cast<std::int64_t>(to.size()) + 1;
      to.push_back({id, entry.id, "name " + std::to_string(below(100)), start + std::to_string(id)});
    };
    for (int count = below(3); count > 0; --count) link(data_.links, "http://a.example/");
    for (int count = below(2); count > 0; --count) link(data_.attachments, "file");
    for (int count = below(3); count > 0; --count) {
      const std::int64_t target = 1 + below(40);
      data_.references.push_back({static_cast<std::int64_t>(data_.references.size()) + 1, entry.id, target,
                                  "to " + std::to_string(target)});
    }
    if (below(2) == 0) data_.flatReferences[entry.id] = "flat " + std::to_string(entry.id);
  }

  void rules() {
    for (std::int64_t id = 1; id <= 4; ++id) {
      data_.rules.push_back({id, "rule " + std::to_string(9 - id)});
      if (id == 4) continue;  // a rule without variants
      for (std::int64_t count = 0; count < id; ++count) {
        const auto variant = static_cast<std::int64_t>(data_.variants.size()) + 1;
        data_.variants.push_back({variant, id, 9 - static_cast<int>(count)});
        assign(data_.variantProperties, variant, static_cast<int>(data_.properties.size()), true);
        assign(data_.variantSubjects, variant, static_cast<int>(data_.subjects.size()), false);
      }
    }
  }

  void history() {
    for (const Entry& entry : data_.entries) {
      if (below(3) == 0) data_.created.push_back(entry.id);
      for (int count = below(3); count > 0; --count)
        data_.changes.emplace_back(entry.id, entry.created.plusDays(below(900)));
    }
  }

  std::mt19937 random_;
  Filling data_;
};

using Fields = std::vector<std::pair<std::string, engine::Value>>;

engine::Value value(const Text& text) {
  return text ? engine::Value(*text) : engine::Value();
}

class Table {
 public:
  Table(engine::Database& db, const std::string& name) : rows_(db.OpenRecordset(name)) {}
  void add(const Fields& fields) {
    rows_.AddNew();
    for (const auto& [name, content] : fields) rows_.set(name, content);
    rows_.Update();
  }

 private:
  engine::Recordset rows_;
};

void fillEntries(engine::Database& db, const Filling& data) {
  Table entries(db, "Woerterbuch");
  for (const Entry& e : data.entries)
    entries.add({{"ID_Woerterbuch", e.id},
                 {"ID_Woerterbuch1", e.mainId},
                 {"Begriff", e.headword},
                 {"SortBegriff", e.sortKey},
                 {"Ebene", e.level},
                 {"Prioritaet", e.priority},
                 {"Bemerkung", value(e.note)},
                 {"MetaSuche", "////" + e.headword},
                 {"DateTimeStamp", e.created},
                 {"DateTimeStampLastChange", e.changed},
                 {"DatabaseName", data.path}});
  Table meanings(db, "Wortbedeutung");
  for (const Meaning& m : data.meanings)
    meanings.add({{"ID_Wortbedeutung", m.id},
                  {"ID_Woerterbuch", m.entry},
                  {"Wortbedeutung", m.text},
                  {"DatabaseName", data.path}});
  Table examples(db, "WortBedBsp");
  for (const Example& x : data.examples)
    examples.add({{"ID_WortbedBsp", x.id},
                  {"ID_Wortbedeutung", x.meaning},
                  {"Beispiel", x.sentence},
                  {"Beispieluebersetzung", value(x.translation)}});
  Table links(db, "URL");
  for (const Link& l : data.links)
    links.add({{"ID_URL", l.id},
               {"ID_Woerterbuch", l.entry},
               {"URLName", l.name},
               {"URL", l.address},
               {"Rating", 3}});
  Table attachments(db, "Attachment");
  for (const Link& l : data.attachments)
    attachments.add({{"ID_Attachment", l.id},
                     {"ID_Woerterbuch", l.entry},
                     {"AttachmentName", l.name},
                     {"Attachment", l.address}});
  Table references(db, "Querverweis");
  for (const Reference& r : data.references)
    references.add({{"ID_Querverweis", r.id},
                    {"ID_Woerterbuch", r.entry},
                    {"ID_WoerterbuchQV", r.target},
                    {"Querverweis", r.text}});
  Table flat(db, "WoerterbuchFlat");
  for (const auto& [entry, text] : data.flatReferences)
    flat.add({{"ID_Woerterbuch", entry}, {"Querverweise", text}});
}

void fillCatalogues(engine::Database& db, const Filling& data) {
  Table properties(db, "WKategorie");
  for (const Catalogued& c : data.properties)
    properties.add({{"ID_WKategorie", c.id}, {"Kategorie", c.name}, {"Abkuerzung", value(c.abbreviation)}});
  Table subjects(db, "WSachgebiet");
  for (const Catalogued& c : data.subjects)
    subjects.add({{"ID_Sachgebiet", c.id}, {"Sachgebiet", c.name}, {"Abkuerzung", value(c.abbreviation)}});
}

void fillAssignments(engine::Database& db, const Filling& data) {
  const auto assign = [&](const char* table, const char* owner, const char* item, const char* valueField,
                          const std::vector<Assignment>& all) {
    Table rows(db, table);
    for (const Assignment& a : all) {
      Fields fields{{owner, a.owner}, {item, a.item}};
      if (valueField != nullptr) fields.emplace_back(valueField, value(a.value));
      rows.add(fields);
    }
  };
  assign("relWoertWKat", "ID_Woerterbuch", "ID_WKategorie", "KategorieWert", data.entryProperties);
  assign("relWoertSachgebiet", "ID_Woerterbuch", "ID_WSachgebiet", nullptr, data.entrySubjects);
  assign("relWortbedWKat", "ID_Wortbedeutung", "ID_WKategorie", "KategorieWert", data.meaningProperties);
  assign("relWortbedSachgebiet", "ID_Wortbedeutung", "ID_Sachgebiet", nullptr, data.meaningSubjects);
  assign("RelRegelVariantenWKat", "RegelVariantenID", "ID_WKategorie", "KategorieWert",
         data.variantProperties);
  assign("RelRegelVariantenWSachgebiet", "RegelVariantenID", "ID_Sachgebiet", nullptr, data.variantSubjects);
}

void fillRest(engine::Database& db, const Filling& data) {
  Table rules(db, "Regeln");
  for (const Rule& r : data.rules) rules.add({{"RegelID", r.id}, {"RegelName", r.name}});
  Table variants(db, "RegelVarianten");
  for (const Variant& v : data.variants)
    variants.add({{"RegelVariantenID", v.id}, {"RegelID", v.rule}, {"VariantenPrioritaet", *v.priority}});
  Table changes(db, "ChangeHistory");
  for (const auto& [entry, when] : data.changes)
    changes.add({{"ID_Woerterbuch", entry}, {"DateLastChange", when}});
  Table created(db, "NewHistory");
  for (const std::int64_t entry : data.created) created.add({{"ID_Woerterbuch", entry}});
  Table calendar(db, "WZeit");
  for (base::DateTime day = base::DateTime::of(2020, 1, 1); day.year() < 2023; day = day.plusDays(1))
    calendar.add({{"date_key", day.seconds / 86400}, {"full_date", day}, {"year_num", day.year()}});
  Table settings(db, "Sprache");
  settings.add({{"ProjektTyp", 1}, {"UebersetzungVon", "Deutsch"}, {"UebersetzungNach", "English"}});
}

}  // namespace

const Entry& Filling::entry(std::int64_t id) const {
  return byId(entries, id);
}
const Meaning& Filling::meaning(std::int64_t id) const {
  return byId(meanings, id);
}
const std::string& Filling::property(std::int64_t id) const {
  return byId(properties, id).name;
}
const std::string& Filling::subject(std::int64_t id) const {
  return byId(subjects, id).name;
}

std::vector<Meaning> Filling::meaningsOf(std::int64_t entry) const {
  std::vector<Meaning> found;
  for (const Meaning& m : meanings)
    if (m.entry == entry) found.push_back(m);
  return found;
}

std::vector<Example> Filling::examplesOf(std::int64_t meaning) const {
  std::vector<Example> found;
  for (const Example& x : examples)
    if (x.meaning == meaning) found.push_back(x);
  return found;
}

std::vector<Assignment> Filling::of(const std::vector<Assignment>& all, std::int64_t owner) {
  std::vector<Assignment> found;
  for (const Assignment& a : all)
    if (a.owner == owner) found.push_back(a);
  return found;
}

Filling makeFilling(unsigned seed, const std::string& path) {
  return Maker(seed, path).make();
}

engine::Database createEmpty(engine::Workspace& workspace, const std::string& path) {
  engine::Database db = workspace.CreateDatabase(path, ";LANGID=0x0407;CP=1252;COUNTRY=0", 2);
  store::CreateTables(db);
  store::CreateRelations(db);
  store::CreateQueries(db);
  store::SetTableProperties(db);
  workspace.Idle();
  return db;
}

void fill(engine::Database& db, const Filling& data) {
  fillCatalogues(db, data);
  fillEntries(db, data);
  fillRest(db, data);
  fillAssignments(db, data);
}

std::vector<std::string> rowsOf(engine::Recordset rows, const std::vector<std::string>& fields) {
  std::vector<std::string> all;
  std::vector<std::size_t> positions;
  for (const std::string& field : fields) positions.push_back(rows.field(field));
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    std::vector<Text> texts;
    for (const std::size_t position : positions) {
      const engine::Value content = rows.value(position);
      texts.push_back(content.isNull() ? Text() : Text(content.asText()));
    }
    all.push_back(row(texts));
  }
  return all;
}

std::string row(const std::vector<Text>& fields) {
  std::string all;
  for (const Text& field : fields) all += (all.empty() ? "" : "|") + field.value_or("NULL");
  return all;
}

}  // namespace test
