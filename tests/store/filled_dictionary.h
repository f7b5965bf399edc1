#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "engine/workspace.h"
#include "support/temp_dir.h"

/// A dictionary with something in every table, and the same data as plain structs for loops to walk.
namespace test {

using Text = std::optional<std::string>;  ///< nothing is Null

struct Entry {
  std::int64_t id, mainId;
  std::string headword, sortKey;
  int level, priority;
  Text note;
  base::DateTime created;
  std::string changed;
};
struct Meaning {
  std::int64_t id, entry;
  std::string text;
};
struct Example {
  std::int64_t id, meaning;
  std::string sentence;
  Text translation;
};
struct Catalogued {
  std::int64_t id;
  std::string name;
  Text abbreviation;
};
struct Assignment {
  std::int64_t owner, item;  ///< entry, meaning or rule variant; property or subject
  Text value;
};
struct Link {
  std::int64_t id, entry;
  std::string name, address;
};
struct Reference {
  std::int64_t id, entry, target;
  std::string text;
};
struct Rule {
  std::int64_t id;
  std::string name;
};
struct Variant {
  std::int64_t id, rule;
  std::optional<int> priority;
};

struct Filling {
  std::vector<Entry> entries;
  std::vector<Meaning> meanings;
  std::vector<Example> examples;
  std::vector<Catalogued> properties, subjects;
  std::vector<Assignment> entryProperties, entrySubjects, meaningProperties, meaningSubjects;
  std::vector<Assignment> variantProperties, variantSubjects;
  std::vector<Link> links, attachments;
  std::vector<Reference> references;
  std::vector<Rule> rules;
  std::vector<Variant> variants;
  std::map<std::int64_t, std::string> flatReferences;  ///< entry to WoerterbuchFlat.Querverweise
  std::vector<std::pair<std::int64_t, base::DateTime>> changes;
  std::vector<std::int64_t> created;
  std::string path;

  const Entry& entry(std::int64_t id) const;
  const Meaning& meaning(std::int64_t id) const;
  std::vector<Meaning> meaningsOf(std::int64_t entry) const;
  std::vector<Example> examplesOf(std::int64_t meaning) const;
  static std::vector<Assignment> of(const std::vector<Assignment>& all, std::int64_t owner);
  const std::string& property(std::int64_t id) const;
  const std::string& subject(std::int64_t id) const;
};

/// Makes the data; the same for the same seed.
Filling makeFilling(unsigned seed, const std::string& path);

/// A new file at `path` with all tables, relations and stored queries, and without a row.
engine::Database createEmpty(engine::Workspace& workspace, const std::string& path);
void fill(engine::Database& db, const Filling& data);

/// Rows of a recordset as text: fields joined by "|", Null as "NULL".
std::vector<std::string> rowsOf(engine::Recordset rows, const std::vector<std::string>& fields);
std::string row(const std::vector<Text>& fields);

inline engine::Login testLogin() {
  return {"", "VocariumUser", "built-in", "", false};
}

}  // namespace test
