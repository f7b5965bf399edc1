#include "publish/related.h"

#include "base/paths.h"
#include "base/text.h"
#include "store/rows.h"

namespace publish {

namespace {

/// The file that a row comes from: the current one unless several are open.
engine::Database databaseOf(frmPrint& form, const std::string& databaseName) {
  auto& files = form.session.files;
  if (files.OpenDBCount < 2 || base::equalsIgnoreCase(databaseName, files.CurrentDB.Name()))
    return files.CurrentDB;
  return files.Workspace->OpenDatabase(files.paths.real(databaseName).string(), false, true);
}

const RelatedEntries& related(const frmPrint& form, const std::string& databaseName) {
  const bool one = form.session.files.OpenDBCount < 2;
  const auto found = form.related.find(one ? std::string() : base::upper(databaseName));
  static const RelatedEntries none;
  return found == form.related.end() ? none : found->second;
}

std::unordered_set<std::int64_t> idsIn(engine::Database& database, const std::string& statement) {
  std::unordered_set<std::int64_t> ids;
  auto rows = database.OpenRecordset(statement, engine::RecordsetKind::snapshot);
  for (; !rows.EndOfFile(); rows.MoveNext())
    if (const auto id = rows.value(0); !id.isNull()) ids.insert(id.asInteger());
  return ids;
}

RelatedEntries readRelated(engine::Database database) {
  return {idsIn(database, "select distinct ID_Woerterbuch from URL"),
          idsIn(database, "select distinct ID_Woerterbuch from Attachment"),
          idsIn(database, "select distinct ID_Woerterbuch from Querverweis"),
          idsIn(database, "select distinct ID_Woerterbuch1 from Woerterbuch where Ebene = 2")};
}

engine::Recordset openFor(frmPrint& form, const PrintRow& row, const char* query) {
  auto database = databaseOf(form, row.databaseName);
  return database.OpenRecordset(query, engine::RecordsetKind::snapshot, {{"lWortID", row.id}});
}

}  // namespace

void noteWhatIsRelated(frmPrint& form) {
  form.related.clear();
  auto& files = form.session.files;
  if (files.OpenDBCount < 2) {
    form.related[""] = readRelated(files.CurrentDB);
    return;
  }
  for (const std::string& path : files.dictionaryList)
    form.related[base::upper(path)] = readRelated(databaseOf(form, path));
}

bool hasSubEntries(const frmPrint& form, const PrintRow& row) {
  return related(form, row.databaseName).parents.count(row.id) > 0;
}

std::vector<Link> linksOf(frmPrint& form, const PrintRow& row) {
  if (related(form, row.databaseName).links.count(row.id) == 0) return {};
  std::vector<Link> links;
  for (auto rows = openFor(form, row, "BegriffURLParam"); !rows.EndOfFile(); rows.MoveNext()) {
    const auto rating = rows["Rating"];
    links.push_back({rows["URLName"].textOrEmpty(), rows["URL"].textOrEmpty(), rows["URLNotiz"].textOrEmpty(),
                     store::numberOf(rating)});
  }
  return links;
}

std::vector<Link> attachmentsOf(frmPrint& form, const PrintRow& row) {
  if (related(form, row.databaseName).attachments.count(row.id) == 0) return {};
  std::vector<Link> files;
  for (auto rows = openFor(form, row, "BegriffAttachmentParam"); !rows.EndOfFile(); rows.MoveNext())
    files.push_back({rows["AttachmentName"].textOrEmpty(), rows["Attachment"].textOrEmpty(),
                     rows["AttachmentNotiz"].textOrEmpty(), 0});
  return files;
}

std::vector<CrossReference> crossReferencesOf(frmPrint& form, const PrintRow& row) {
  if (related(form, row.databaseName).crossReferences.count(row.id) == 0) return {};
  std::vector<CrossReference> references;
  for (auto rows = openFor(form, row, "BegriffQuerverweisParam"); !rows.EndOfFile(); rows.MoveNext()) {
    const auto target = rows["ID_WoerterbuchQV"];
    references.push_back({store::numberOf(target), rows["Querverweis"].textOrEmpty()});
  }
  return references;
}

}  // namespace publish
