// entry show: the whole entry as lines of name, tab, value.

#include <iostream>

#include "cli/application.h"

namespace cli {

namespace {

using base::Value;

engine::Recordset query(Application& app, const char* name, const char* parameter, std::int64_t id) {
  return app.session.files.CurrentDB.OpenRecordset(name, engine::RecordsetKind::snapshot, {{parameter, id}});
}

void line(const std::string& name, const std::string& value) {
  std::cout << name << '\t' << value << '\n';
}

void lineUnlessEmpty(const std::string& name, const Value& value) {
  if (const std::string text = value.textOrEmpty(); !text.empty()) line(name, text);
}

std::string withValue(const Value& name, const Value& value) {
  const std::string text = value.textOrEmpty();
  return name.textOrEmpty() + (text.empty() ? "" : ": " + text);
}

void showAssignments(Application& app, const char* indent, const char* properties, const char* subjects,
                     const char* propertyParameter, const char* subjectParameter, std::int64_t id) {
  for (auto rows = query(app, properties, propertyParameter, id); !rows.EndOfFile(); rows.MoveNext())
    line(std::string(indent) + "property", withValue(rows["Kategorie"], rows["KategorieWert"]));
  for (auto rows = query(app, subjects, subjectParameter, id); !rows.EndOfFile(); rows.MoveNext())
    line(std::string(indent) + "subject", rows["Sachgebiet"].textOrEmpty());
}

void showMeanings(Application& app, std::int64_t id) {
  for (auto rows = query(app, "BegriffWortbedeutungParam", "lWortID", id); !rows.EndOfFile();
       rows.MoveNext()) {
    const std::int64_t meaning = rows["ID_Wortbedeutung"].asInteger();
    std::cout << "meaning\t" << rows["Wortbedeutung"].textOrEmpty() << '\t' << meaning << '\n';
    for (auto examples = query(app, "WortbedBspParam2", "lWortbedID", meaning); !examples.EndOfFile();
         examples.MoveNext())
      std::cout << "  example\t" << examples["Beispiel"].textOrEmpty() << '\t'
                << examples["Beispieluebersetzung"].textOrEmpty() << '\n';
    showAssignments(app, "  ", "WortbedEigenschaftWertParam", "WortbedSachgebietWortbedIDParam",
                    "lWortbedeutungID", "lWortbedeutungID", meaning);
  }
}

void showRelated(Application& app, std::int64_t id) {
  for (auto rows = query(app, "BegriffURLParam", "lWortID", id); !rows.EndOfFile(); rows.MoveNext())
    std::cout << "link\t" << rows["URLName"].textOrEmpty() << '\t' << rows["URL"].textOrEmpty() << '\n';
  for (auto rows = query(app, "BegriffAttachmentParam", "lWortID", id); !rows.EndOfFile(); rows.MoveNext())
    std::cout << "attachment\t" << rows["AttachmentName"].textOrEmpty() << '\t'
              << rows["Attachment"].textOrEmpty() << '\n';
  for (auto rows = query(app, "BegriffQuerverweisParam", "lWortID", id); !rows.EndOfFile(); rows.MoveNext())
    std::cout << "cross-reference\t" << rows["Querverweis"].textOrEmpty() << '\t'
              << rows["ID_WoerterbuchQV"].textOrEmpty() << '\n';
  for (auto rows = query(app, "Woerterbuchrelwoertwoert", "lWordID", id); !rows.EndOfFile(); rows.MoveNext())
    std::cout << "sub-entry\t" << rows["Begriff"].textOrEmpty() << '\t'
              << rows["woerterbuch.ID_Woerterbuch"].asInteger() << '\n';
}

void show(Application& app, std::int64_t id) {
  auto row = query(app, "BegriffParam", "lWortID", id);
  if (row.EndOfFile()) throw base::Error(3167, "There is no entry " + std::to_string(id) + ".");
  line("id", std::to_string(id));
  line("main entry", row["ID_Woerterbuch1"].textOrEmpty());
  line("level", row["Ebene"].textOrEmpty());
  line("headword", row["Begriff"].textOrEmpty());
  lineUnlessEmpty("prefix", row["PraefixBegriff"]);
  line("sort key", row["SortBegriff"].textOrEmpty());
  lineUnlessEmpty("search text", row["MetaSuche"]);
  lineUnlessEmpty("pronunciation", row["Aussprache"]);
  lineUnlessEmpty("note", row["Bemerkung"]);
  lineUnlessEmpty("picture", row["Bild"]);
  lineUnlessEmpty("sound", row["Klang"]);
  line("created", row["DateTimeStamp"].textOrEmpty());
  lineUnlessEmpty("changed", row["DateTimeStampLastChange"]);
  showAssignments(app, "", "BegriffEigenschaftWertParam", "BegriffSachgebietParam", "lWortID", "lWortID", id);
  showMeanings(app, id);
  showRelated(app, id);
}

}  // namespace

int runEntryShow(Application& app, const std::vector<std::string>& words) {
  const std::int64_t id = entryNumber(words[1]);
  return withDictionary(app, words[0], [&] {
    show(app, id);
    return true;
  });
}

}  // namespace cli
