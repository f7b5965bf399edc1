#include "exchange/frmImportExternalDB.h"

#include "base/datetime.h"
#include "base/paths.h"
#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "entry/sort_term.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/texts.h"

namespace exchange {

namespace {

using base::Value;

constexpr const char* textFilter = "Text-Dateien (*.TXT)|*.TXT";
constexpr const char* dialogTitle = "Quell-Datenbank zum Import öffnen";
constexpr const char* textExtension = "TXT";
constexpr int fileMustExist = 4;

std::size_t indexOf(Target target) {
  return static_cast<std::size_t>(target);
}
bool isMapped(const frmImportExternalDB& form, Target target) {
  return form.mapping[indexOf(target)] >= 0;
}

std::optional<std::string> fieldOf(const frmImportExternalDB& form, const TextSource::Row& row,
                                   Target target) {
  if (!isMapped(form, target)) return {};
  return row[static_cast<std::size_t>(form.mapping[indexOf(target)])];
}

/// A text for a memo field: line breaks become CR LF and other control characters go.
std::string cleaned(const std::string& text) {
  std::string result;
  for (std::size_t n = 0; n < text.size(); ++n) {
    const auto c = static_cast<unsigned char>(text[n]);
    if (c == '\r' || c == '\n') {
      if (c == '\r' && n + 1 < text.size() && text[n + 1] == '\n') ++n;
      result += "\r\n";
    } else if (c >= ' ' || c == '\t') {
      result += text[n];
    }
  }
  return result;
}

enum class OnNull { skipRow, endImport };

/// A required field is Null: yes skips the row, no ends the import.
OnNull askAboutNull(session::Session& session, int message) {
  const std::string text = session::dialogText(session, message) + " " +
                           session::dialogText(session, dialog::import_row_skip_question);
  return session::showUnicodeBox(session, text, platform::box::yesNo) == platform::box::answerYes
             ? OnNull::skipRow
             : OnNull::endImport;
}

/// The columns of the target view, looked up once.
struct ViewFields {
  ViewFields(const engine::Recordset& view, int projectType)
      : id(view.field("woerterbuch.ID_Woerterbuch")),
        mainId(view.field("ID_Woerterbuch1")),
        headword(view.field("Begriff")),
        sortKey(view.field("SortBegriff")),
        prefix(view.field("PraefixBegriff")),
        database(view.field("Woerterbuch.DatabaseName")),
        searchText(view.field("MetaSuche")),
        level(view.field("Ebene")),
        priority(view.field("Prioritaet")),
        note(view.field("Bemerkung")),
        created(view.field("DATETIMESTAMP")),
        changed(view.field("DATETIMESTAMPLASTCHANGE")) {
    if (projectType == 1) {
      meaning = view.field("Wortbedeutung.Wortbedeutung");
      meaningEntry = view.field("Wortbedeutung.ID_Woerterbuch");
      meaningDatabase = view.field("Wortbedeutung.DatabaseName");
    } else {
      url = view.field("URL.URL");
      urlName = view.field("URLName");
      urlNote = view.field("URLNotiz");
      urlEntry = view.field("URL.ID_Woerterbuch");
    }
  }
  std::size_t id, mainId, headword, sortKey, prefix, database, searchText, level, priority, note, created,
      changed;
  std::size_t meaning = 0, meaningEntry = 0, meaningDatabase = 0, url = 0, urlName = 0, urlNote = 0,
              urlEntry = 0;
};

/// One run of the import command.
class Import {
 public:
  explicit Import(frmImportExternalDB& form)
      : form_(form),
        session_(form.session),
        type_(form.session.project.ProjectType),
        view_(form.session.files.CurrentDB.OpenRecordset(
            std::string("select * from ") +
            (type_ == 1 ? "ViewImportFromExternalDB" : "ViewImportFromExternalDBURL"))),
        fields_(view_, type_),
        now_(base::DateTime::now()) {
    if (!form.properties.empty())
      propertyLinks_ = session_.files.CurrentDB.OpenRecordset("select * from RelWoertWKat");
    if (!form.subjects.empty())
      subjectLinks_ = session_.files.CurrentDB.OpenRecordset("select * from relWoertSachgebiet");
  }

  /// False ends the import.
  bool take(const TextSource::Row& row) {
    const auto headword = fieldOf(form_, row, Target::Begriff);
    const Target second = type_ == 1 ? Target::Wortbedeutung : Target::URL;
    const auto secondText = fieldOf(form_, row, second);
    if (!headword || !secondText) {
      const int message = !headword    ? dialog::import_headword_missing
                          : type_ == 1 ? dialog::import_meaning_missing
                                       : dialog::import_url_missing;
      ++form_.skipped;
      return askAboutNull(session_, message) == OnNull::skipRow;
    }
    write(row, *headword, *secondText);
    ++form_.imported;
    return true;
  }

 private:
  void write(const TextSource::Row& row, const std::string& headword, const std::string& second) {
    const std::string term = base::trim(headword);
    const entry::SplitHeadword split = entry::splitHeadword(headword, session_.project.IgnoreAtSort);
    const std::string rest = base::trim(split.rest);
    // A headword of ignorable characters alone keeps them in its key, which can not be empty.
    const bool prefixed = !split.prefix.empty() && !rest.empty();
    view_.AddNew();
    view_.set(fields_.headword, term);
    if (prefixed) view_.set(fields_.prefix, split.prefix);
    view_.set(fields_.sortKey, prefixed ? rest : term);
    view_.set(fields_.database, session_.files.CurrentDBPath);
    if (type_ == 1)
      writeMeaning(term, base::trim(second));
    else
      writeLink(row, term, second);
    if (const auto note = fieldOf(form_, row, Target::Bemerkung)) view_.set(fields_.note, cleaned(*note));
    view_.set(fields_.level, 1);
    view_.set(fields_.priority, 1);
    const Value id = view_.value(fields_.id);
    view_.set(fields_.mainId, id);
    view_.set(type_ == 1 ? fields_.meaningEntry : fields_.urlEntry, id);
    view_.set(fields_.created, now_);
    view_.set(fields_.changed, now_.stamp());
    view_.Update();
    writeLinks(id);
  }

  void writeMeaning(const std::string& term, const std::string& meaning) {
    view_.set(fields_.meaningDatabase, session_.files.CurrentDBPath);
    view_.set(fields_.searchText, "//" + term + "////" + meaning);
    view_.set(fields_.meaning, meaning);
  }

  void writeLink(const TextSource::Row& row, const std::string& term, const std::string& url) {
    view_.set(fields_.searchText, "////" + term);
    view_.set(fields_.url, url);
    view_.set(fields_.urlName, fieldOf(form_, row, Target::URLName).value_or(""));
    view_.set(fields_.urlNote, cleaned(fieldOf(form_, row, Target::URLNotiz).value_or("")));
  }

  void writeLinks(const Value& id) {
    for (const std::int64_t property : form_.properties) {
      propertyLinks_.AddNew();
      propertyLinks_.set("ID_Woerterbuch", id);
      propertyLinks_.set("ID_WKategorie", property);
      propertyLinks_.Update();
    }
    for (const std::int64_t subject : form_.subjects) {
      subjectLinks_.AddNew();
      subjectLinks_.set("ID_Woerterbuch", id);
      subjectLinks_.set("ID_WSachgebiet", subject);
      subjectLinks_.Update();
    }
  }

  frmImportExternalDB& form_;
  session::Session& session_;
  int type_;
  engine::Recordset view_;
  ViewFields fields_;
  engine::Recordset propertyLinks_, subjectLinks_;
  base::DateTime now_;
};

void readAllRows(frmImportExternalDB& form) {
  session::ProgressForm progress(form.session, session::labelText(form.session, label::import_progress));
  Import import(form);
  TextSource::Row row;
  for (std::int64_t done = 1; form.source.next(row); ++done) {
    progress.step(done, form.source.rowCount());
    try {
      if (!import.take(row)) return;
    } catch (const base::Error& error) {
      throw base::Error(error.number(), "Row " + std::to_string(done) + " of the source: " + error.text());
    }
  }
}

}  // namespace

void accept(frmTextImport& form) {
  MakeSchema(form.path, form.layout);
  form.cancelled = false;
}

void mapColumn(frmImportExternalDB& form, Target target, std::size_t column) {
  if (column >= form.source.columns().size()) throw base::Error(9, "The source has no such column.");
  form.mapping[indexOf(target)] = static_cast<std::int32_t>(column);
}

bool canImport(const frmImportExternalDB& form) {
  const Target second = form.session.project.ProjectType == 1 ? Target::Wortbedeutung : Target::URL;
  return isMapped(form, Target::Begriff) && isMapped(form, second);
}

void importRows(frmImportExternalDB& form) {
  auto& session = form.session;
  if (!session::confirmed(session, dialog::import_question)) return;
  if (form.source.rowCount() == 0) {
    session::showMessage(session, dialog::import_source_empty, platform::box::information);
    return;
  }
  readAllRows(form);
  session::ShowStatus(session, "", false);
  session::showBox(session,
                   std::to_string(form.imported) + " " + session::dialogText(session, dialog::import_done),
                   platform::box::information);
}

bool importTextFormat(session::Session& session) {
  std::int64_t imported = 0;
  const bool sound = session::guard(session, "frmMDI", [&] {
    platform::FileDialog ask;
    ask.folder = session.folders.AppDataPath;
    ask.title = dialogTitle;
    ask.filter = textFilter;
    ask.extension = textExtension;
    ask.flags = fileMustExist;
    frmTextImport description;
    description.path = session::askOpenFile(session, ask).path;
    session.desk.boxes.showModal(description);
    if (description.cancelled) return;
    frmImportExternalDB form(session, TextSource(description.path, readSchema(description.path)));
    session.desk.boxes.showModal(form);
    imported = form.imported;
  });
  return sound && imported > 0;
}

}  // namespace exchange
