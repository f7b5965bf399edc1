// Gathering an entry with all that hangs on it, and showing it.

#include "browse/display.h"

#include <utility>

#include "base/text.h"
#include "browse/frmWoerter.h"
#include "browse/page_html.h"
#include "catalogue/label.h"
#include "entry/media_files.h"
#include "shell/session/errors.h"
#include "shell/session/texts.h"
#include "store/rows.h"

namespace browse {

namespace {

using engine::Recordset;
using engine::RecordsetKind;

/// The rows of a stored query for one entry, each read by `read`.
template <class Row, class Read>
std::vector<Row> rowsOf(session::Session& s, const std::string& query, std::int64_t id, Read read) {
  std::vector<Row> result;
  auto rows = s.files.CurrentDB.OpenRecordset(query, RecordsetKind::snapshot, {{"lWortID", id}});
  for (; !rows.EndOfFile(); rows.MoveNext()) result.push_back(read(rows));
  return result;
}

Assignment property(const Recordset& row) {
  return {"", row["Kategorie"].textOrEmpty(), row["Abkuerzung"].textOrEmpty(),
          row["KategorieWert"].textOrEmpty()};
}
Assignment subject(const Recordset& row) {
  return {"", row["Sachgebiet"].textOrEmpty(), row["Abkuerzung"].textOrEmpty(), ""};
}
Assignment ofMeaning(Assignment assignment, const Recordset& row) {
  assignment.meaning = row["Wortbedeutung"].textOrEmpty();
  return assignment;
}

FlatText readFlat(session::Session& s, std::int64_t id) {
  auto row = s.files.CurrentDB.OpenRecordset(
      "Select distinct * from WoerterbuchFlat where id_woerterbuch = " + std::to_string(id),
      RecordsetKind::snapshot);
  if (row.EndOfFile()) return {};
  return {row["EigenschaftenZumBegriff"].textOrEmpty(),
          row["AbkEigenschaftenZumBegriff"].textOrEmpty(),
          row["SachgebieteZumBegriff"].textOrEmpty(),
          row["AbkSachgebieteZumBegriff"].textOrEmpty(),
          row["Querverweise"].textOrEmpty(),
          row["URLs"].textOrEmpty()};
}

std::vector<WebLink> readLinks(session::Session& s, std::int64_t id) {
  std::vector<WebLink> links;
  auto rows = s.files.CurrentDB.OpenRecordset(
      "Select distinct * from URL where id_woerterbuch = " + std::to_string(id) + ";",
      RecordsetKind::snapshot);
  for (; !rows.EndOfFile(); rows.MoveNext())
    links.push_back({rows["URLNAME"].textOrEmpty(), rows["URL"].textOrEmpty(), rows["URLNOTIZ"].textOrEmpty(),
                     store::numberOf(rows["RATING"])});
  return links;
}

void readParts(session::Session& s, EntryAggregate& entry, std::int64_t id) {
  entry.flat = readFlat(s, id);
  entry.properties = rowsOf<Assignment>(s, "KategorieBegriffParam", id, property);
  entry.subjects = rowsOf<Assignment>(s, "SachgebietBegriffParam", id, subject);
  entry.links = readLinks(s, id);
  entry.crossReferences = rowsOf<CrossReference>(s, "BegriffQuerverweisParam", id, [](const Recordset& row) {
    return CrossReference{store::numberOf(row["ID_WoerterbuchQV"]), row["Querverweis"].textOrEmpty()};
  });
  entry.meanings =
      rowsOf<MeaningExample>(s, "AnzeigeWortBedBeispieleBegriffParam", id, [](const Recordset& row) {
        return MeaningExample{row["Wortbedeutung"].textOrEmpty(), row["Beispiel"].textOrEmpty(),
                              row["Beispieluebersetzung"].textOrEmpty()};
      });
  entry.meaningProperties =
      rowsOf<Assignment>(s, "AnzeigeWortBedKategorieBegriffParam", id,
                         [](const Recordset& row) { return ofMeaning(property(row), row); });
  entry.meaningSubjects =
      rowsOf<Assignment>(s, "AnzeigeWortBedSachgebietBegriffParam", id,
                         [](const Recordset& row) { return ofMeaning(subject(row), row); });
  entry.attachments = rowsOf<AttachedFile>(s, "BegriffAttachmentParam", id, [](const Recordset& row) {
    return AttachedFile{row["AttachmentName"].textOrEmpty(), row["Attachment"].textOrEmpty(),
                        row["AttachmentNotiz"].textOrEmpty()};
  });
}

std::string createdLabel(const session::Session& s, const EntryAggregate& entry) {
  if (!entry.entry.DateTimeStamp) return "";
  return session::labelText(s, label::created_on) + " " +
         base::formatDate(*entry.entry.DateTimeStamp, "dd/mm/yy");
}

/// The path of a media file; empty where the entry names none.
std::string mediaOf(session::Session& s, const std::string& name) {
  return base::trim(name).empty() ? "" : entry::mediaPath(s, name);
}

/// What both presentations show outside the labels: media, links, attachments, cross-references.
void showSurroundings(frmWoerter& form) {
  session::Session& s = form.session;
  EntryDisplay& display = form.display;
  const EntryAggregate& entry = display.aggregate;
  display.picture = mediaOf(s, entry.entry.Bild);
  display.sound = mediaOf(s, entry.entry.Klang);
  display.links = MSHFlexGridURLDesign(s, entry);
  display.attachments = DBGridAttachmentDesign(s, entry);
  display.crossReferences = MSHFlexGridQuerverweisDesign(s, entry);
  OpenPicture(form);
}

}  // namespace

EntryAggregate ReadFromDB_Woerterbuch(session::Session& s, std::int64_t id) {
  EntryAggregate entry;
  try {
    entry::ReadFromDB_TabWoerterbuch(s, entry.entry, id);
  } catch (const base::Error& error) {
    if (error.number() != engine::errors::noCurrentRecord) throw;
    return entry;
  }
  readParts(s, entry, id);
  return entry;
}

DisplaySettings readDisplaySettings(session::Session& s) {
  DisplaySettings settings;
  auto row = s.files.CurrentDB.OpenRecordset("Sprache", RecordsetKind::snapshot);
  if (row.EndOfFile()) return settings;
  settings.Stil1 = store::truth(row["Stil1"]);
  settings.Stil2 = store::truth(row["Stil2"]);
  settings.EnumMeaning = store::truth(row["EnumMeaning"]);
  settings.ShowURLSeparate = store::truth(row["ShowURLSeparate"]);
  settings.ShowRating = store::truth(row["ShowRating"]);
  settings.RightToLeftFrom = store::truth(row["RightToLeftFrom"]);
  settings.RightToLeftTo = store::truth(row["RightToLeftTo"]);
  settings.StyleSheetPath = row["StyleSheetPath"].textOrEmpty();
  return settings;
}

void ShowAllToWordUniCode(frmWoerter& form) {
  const session::Session& s = form.session;
  EntryDisplay& display = form.display;
  const EntryAggregate& entry = display.aggregate;
  display.headword = entry.entry.Begriff;
  display.headwordFont = s.project.FontFrom;
  display.pronunciation = {{session::labelText(s, label::pronunciation)}, {{entry.entry.Aussprache}}};
  display.pronunciationFont = s.project.PhoneticFont;
  display.symbolFont = base::equalsIgnoreCase(s.project.PhoneticFont, "IPAPHON");
  display.note = entry.entry.Bemerkung;
  display.noteFont = s.project.FontRemark;
  display.created = createdLabel(s, entry);
  if (s.files.OpenDBCount > 1)
    display.dictionary = session::labelText(s, label::dictionary) + " " + entry.entry.DatabaseName;
  display.properties = MSHFlexGridKategorienDesign(s, entry);
  display.subjects = MSHFlexGridSachgebieteDesign(s, entry);
  display.meanings = MSHFlexGridWortbedBspDesign(s, entry);
  display.meaningProperties = mshflexgridWortbedWKatDesign(s, entry);
  display.meaningSubjects = MSHFlexGridWortbedSachgebietDesign(s, entry);
}

void clearDisplay(frmWoerter& form) {
  form.display = {};
  ++form.entriesShown;
}

void ShowEntry(frmWoerter& form) {
  session::Session& s = form.session;
  clearDisplay(form);
  EntryDisplay& display = form.display;
  display.aggregate = ReadFromDB_Woerterbuch(s, s.entry.SelectedEntryId);
  display.settings = readDisplaySettings(s);
  display.asPage = display.settings.Stil1 || display.settings.Stil2;
  if (display.asPage) {
    WrittenPage written = WriteHTMLFile(s, display.aggregate, display.settings);
    display.page = std::move(written.path);
    display.pageText = std::move(written.text);
  } else {
    ShowAllToWordUniCode(form);
  }
  showSurroundings(form);
}

void MarkFoundedWords(frmWoerter& form) {
  const std::string& term = form.session.search.SearchTerm;
  EntryDisplay& display = form.display;
  display.noteMark = {};
  if (term.empty()) return;
  const std::size_t position = base::inStrIgnoreCase(display.note, term);
  if (position > 0) display.noteMark = {position - 1, base::length(term)};
}

}  // namespace browse
