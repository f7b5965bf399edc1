// The publishing run: selecting, the walk over the entries, and its end.

#include "publish/frmPrint.h"

#include <algorithm>

#include "base/paths.h"
#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "publish/html.h"
#include "publish/related.h"
#include "publish/rows.h"
#include "publish/webpath.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "shell/session/texts.h"
#include "store/rewriter.h"
#include "store/rows.h"

namespace publish {

namespace {

using base::Value;
constexpr const char* crossLinkStatement =
    "select distinct * from woerterbuch where ebene = 1 order by sortbegriff;";
constexpr const char* defaultWebURL = "HTTP://localhost";
constexpr const char* wizardWebURL = "http://";  // what the wizard presets; nothing was typed behind it

std::string textOr(const engine::Recordset& row, const char* field, const std::string& otherwise) {
  const std::string text = base::trim(row[field].textOrEmpty());
  return text.empty() ? otherwise : text;
}

PublishSettings readSettings(session::Session& session) {
  PublishSettings s;
  auto& database = session.files.CurrentDB;
  const std::string product = session::labelText(session, label::program_name);
  auto row = database.OpenRecordset("Sprache", engine::RecordsetKind::snapshot);
  if (row.EndOfFile()) throw base::Error(3021, "The dictionary has no project settings.");
  s.Kurzbeschreibung = textOr(row, "Kurzbeschreibung", product);
  s.UebersetzungVon = row["UebersetzungVon"].textOrEmpty();
  s.UebersetzungNach = row["UebersetzungNach"].textOrEmpty();
  s.SchriftVon = row["SchriftVon"].textOrEmpty();
  s.SchriftNach = row["SchriftNach"].textOrEmpty();
  s.lautschrift = row["Lautschrift"].textOrEmpty();
  s.EnumMeaning = store::truth(row["EnumMeaning"]);
  s.VerwendungAbkuerzungen = store::truth(row["VerwendungAbkuerzungen"]);
  s.ShowNewIcon = store::truth(row["ShowNewIcon"]);
  s.ShowURLSeparate = store::truth(row["ShowURLSeparate"]);
  s.ShowRating = store::truth(row["ShowRating"]);
  s.PictureAsURL = store::truth(row["PictureAsURL"]);
  s.ObjectAsAltText = store::truth(row["ObjectAsAltText"]);
  s.UseRelativPath = store::truth(row["UseRelativPath"]);
  s.UseWebsitePath = store::truth(row["UseWebsitePath"]);
  s.UseAbsolutFilePath = store::truth(row["UseAbsolutFilePath"]);
  if (const Value days = row["NewNumberOfDays"]; !days.isNull())
    s.NewNumberOfDays = static_cast<int>(days.asInteger());

  s.AutorWebURL = defaultWebURL;
  s.AutorName = s.AutorEMail = product;
  auto author = database.OpenRecordset("Autor", engine::RecordsetKind::snapshot);
  if (!author.EndOfFile()) {
    s.AutorWebURL = textOr(author, "AutorWebURL", s.AutorWebURL);
    if (base::equalsIgnoreCase(s.AutorWebURL, wizardWebURL)) s.AutorWebURL = defaultWebURL;
    s.AutorName = textOr(author, "Autorname", s.AutorName);
    s.AutorEMail = textOr(author, "AutorEMail", s.AutorEMail);
  }
  return s;
}

engine::Recordset openRewritten(frmPrint& form, std::string sql) {
  return form.session.files.CurrentDB.OpenRecordset(
      store::BuildMultiSQL(form.session, sql, session::View::frmPrint));
}

std::string storedText(frmPrint& form, const char* query) {
  return form.session.files.CurrentDB.queryDef(query).SQL();
}

/// The output's path: the dictionary's name with ".HTM", blanks as "_", as the save dialog offers it.
std::string askForPath(frmPrint& form) {
  platform::FileDialog dialog;
  dialog.folder = form.session.folders.AppDataPath;
  const std::string name = base::fileName(form.session.files.CurrentDB.Name());
  dialog.fileName = base::replaceAll(base::withoutExtension4(name) + ".HTM", " ", "_");
  dialog.extension = "htm";
  dialog.filter = session::BuildFileFilter(static_cast<int>(form.target));
  return session::askSaveFile(form.session, dialog).path;
}

/// How many entries the run passes at most. Counting the joined rows would walk them twice.
std::int64_t mainEntries(frmPrint& form) {
  std::int64_t count = 0;
  auto& files = form.session.files;
  const auto add = [&](engine::Database& database) {
    count += database.OpenRecordset("select count(*) as n from woerterbuch where ebene = 1")["n"].asInteger();
  };
  add(files.CurrentDB);
  for (int n = 0; n + 1 < files.OpenDBCount; ++n) add(files.ExtraDB[static_cast<std::size_t>(n)]);
  return count;
}

bool letterMatches(const session::Filter& filter, const std::string& headword) {
  if (filter.FilterBuchstabe[0].empty()) return true;
  const std::string first = base::upper(base::left(headword, 1));
  return std::find(filter.FilterBuchstabe.begin(), filter.FilterBuchstabe.end(), first) !=
         filter.FilterBuchstabe.end();
}

/// One entry, main or sub-entry, from its term to its attachments.
void printEntry(frmPrint& form, html::Pages& pages, const EntryRows& rows, bool subEntry) {
  const PrintRow& last = rows.back();
  html::term(form, pages, rows.front());
  html::pronunciation(form, pages, rows.front());
  html::entryLists(form, pages, rows);
  if (form.session.project.ProjectType == 1) html::meanings(form, pages, rows);
  html::note(form, pages, last);
  if (form.session.project.ProjectType == 2) html::links(form, pages, last);
  html::picture(form, pages, last);
  html::sound(form, pages, last);
  html::crossReferences(form, pages, last, subEntry);
  html::attachments(form, pages, last);
  html::line(pages, "<BR>");
}

void walk(frmPrint& form, html::Pages& pages) {
  session::ProgressForm progress(form.session,
                                 session::labelText(form.session, label::publishing_progress) + " ...");
  EntryReader entries(form.firstLevel);
  EntryReader below(form.subEntries);
  std::int64_t done = 0;
  for (EntryRows rows = entries.next(); !rows.empty(); rows = entries.next()) {
    progress.step(++done, form.entryCount);
    if (!letterMatches(form.session.filter, rows.front().headword)) continue;
    html::breakPage(form, pages, rows.front());
    printEntry(form, pages, rows, false);
    if (form.options.subEntries && hasSubEntries(form, rows.front()))
      for (const EntryRows& sub : below.entriesBelow(rows.front().id, rows.front().databaseName))
        printEntry(form, pages, sub, true);
    if (form.options.horizontalRule) html::line(pages, "<HR>");
  }
}

}  // namespace

const std::vector<OptionName>& optionNames() {
  static const std::vector<OptionName> names = {{"pronunciation", &PrintOptions::pronunciation},
                                                {"note", &PrintOptions::note},
                                                {"examples", &PrintOptions::examples},
                                                {"entry-properties", &PrintOptions::entryProperties},
                                                {"entry-subjects", &PrintOptions::entrySubjects},
                                                {"meaning-properties", &PrintOptions::meaningProperties},
                                                {"meaning-subjects", &PrintOptions::meaningSubjects},
                                                {"cross-references", &PrintOptions::crossReferences},
                                                {"urls", &PrintOptions::urls},
                                                {"pictures", &PrintOptions::pictures},
                                                {"sound", &PrintOptions::sound},
                                                {"attachments", &PrintOptions::attachments},
                                                {"sub-entries", &PrintOptions::subEntries},
                                                {"horizontal-rule", &PrintOptions::horizontalRule}};
  return names;
}

void applyProjectType(frmPrint& form) {
  auto& options = form.options;
  if (form.session.project.ProjectType == 2) {
    options.examples = options.meaningProperties = options.meaningSubjects = false;
    options.subEntries = options.urls = true;
  } else {
    options.urls = false;
  }
}

bool PrintSelectbyLetter(frmPrint& form) {
  form.firstLevel = openRewritten(form, storedText(form, "PrintBegriffeErsteEbene"));
  form.crossLinkList = form.session.files.CurrentDB.OpenRecordset(crossLinkStatement);
  form.subEntries = openRewritten(form, storedText(form, "PrintBegriffeFolgeEbenen"));
  if (form.firstLevel.EndOfFile()) {
    session::showMessage(form.session, dialog::nothing_to_print, platform::box::exclamation);
    return false;
  }
  form.entryCount = mainEntries(form);
  return true;
}

void PrintStart(frmPrint& form) {
  form.writtenFiles.clear();
  form.settings = readSettings(form.session);
  const std::string path = askForPath(form);
  noteWhatIsRelated(form);
  html::Pages pages = html::begin(form, path);
  walk(form, pages);
  html::finish(form, pages);
  copySupportFiles(form, pages.folder);
}

bool publishNow(frmPrint& form) {
  auto& session = form.session;
  bool written = false;
  const bool sound = session::guard(session, form.formName, [&] {
    const session::Busy busy(session, session::labelText(session, label::publishing));
    if (PrintSelectbyLetter(form)) {
      PrintStart(form);
      written = true;
      session::showBox(session,
                       session::dialogText(session, dialog::published) + " " + form.writtenFiles.back() + "!",
                       platform::box::information);
    }
  });
  return sound && written;
}

}  // namespace publish
