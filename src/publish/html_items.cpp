// The form of each item of an entry.

#include <algorithm>
#include <set>

#include "base/datetime.h"
#include "base/paths.h"
#include "base/text.h"
#include "publish/html.h"
#include "publish/related.h"
#include "publish/webpath.h"
#include "shell/session/session.h"

namespace publish::html {

namespace {

using base::Value;

std::string fontStyle(const std::string& font) {
  return "style=\"font-family: " + font + ";\"";
}

std::string upperExtension(const std::string& fileName) {
  return base::upper(base::right(fileName, 3));
}

std::string media(const frmPrint& form, const std::string& fileName) {
  return GetWebPath(form.settings, base::withoutExtension4(form.session.files.CurrentDBPath) + "/" + fileName,
                    WebPathKind::media, form.session.files.CurrentDBPath);
}

std::string image(const frmPrint& form, const Pages& pages, const char* name) {
  return GetWebPath(form.settings, pages.folder + "/Images/" + name, WebPathKind::image,
                    form.session.files.CurrentDBPath);
}

bool isNew(const frmPrint& form, const Value& created) {
  if (!form.settings.ShowNewIcon || created.isNull()) return false;
  return created.asDate().date().plusDays(form.settings.NewNumberOfDays) >= base::DateTime::now().date();
}

/// The names of a catalogue over all rows, each once (the joined rows repeat them), with their values.
class NameList {
 public:
  void add(const Value& name, const Value& value) {
    const std::string text = name.textOrEmpty();
    if (text.empty() || list_.find(text + ":") != std::string::npos ||
        list_.find(text + ",") != std::string::npos)
      return;
    list_ += text;
    if (!value.textOrEmpty().empty()) list_ += ": " + value.textOrEmpty();
    list_ += ", ";
  }
  std::string text() const { return list_.empty() ? list_ : list_.substr(0, list_.size() - 2); }

 private:
  std::string list_;
};

void heading3(Pages& pages, const NameList& names) {
  if (!names.text().empty()) line(pages, "<H3>" + names.text() + "</H3>");
}

using RowRange = std::pair<EntryRows::const_iterator, EntryRows::const_iterator>;
using Member = Value PrintRow::*;

void nameList(Pages& pages, const RowRange& rows, Member name, Member value) {
  NameList names;
  static const Value none;
  for (auto row = rows.first; row != rows.second; ++row)
    names.add((*row).*name, value ? (*row).*value : none);
  heading3(pages, names);
}

void properties(const frmPrint& form, Pages& pages, const RowRange& rows) {
  if (form.settings.VerwendungAbkuerzungen)
    nameList(pages, rows, &PrintRow::propertyShort, nullptr);
  else
    nameList(pages, rows, &PrintRow::property, &PrintRow::propertyValue);
}

void meaningProperties(const frmPrint& form, Pages& pages, const RowRange& rows) {
  if (form.settings.VerwendungAbkuerzungen)
    nameList(pages, rows, &PrintRow::meaningPropertyShort, nullptr);
  else
    nameList(pages, rows, &PrintRow::meaningProperty, &PrintRow::meaningPropertyValue);
}

/// The examples of one sense, each once, with their translations.
void examples(const frmPrint& form, Pages& pages, const RowRange& rows) {
  std::set<std::pair<std::string, std::string>> written;
  const auto& s = form.settings;
  for (auto row = rows.first; row != rows.second; ++row) {
    const std::string text = row->example.textOrEmpty(), translation = row->exampleTranslation.textOrEmpty();
    if (text.empty() && translation.empty()) continue;
    if (!written.emplace(text, translation).second) continue;
    if (!text.empty()) line(pages, "<B " + fontStyle(s.SchriftVon) + ">" + text + "<BR></B>");
    if (!translation.empty()) line(pages, "<I " + fontStyle(s.SchriftNach) + ">" + translation + "<BR></I>");
  }
}

/// A link in the form that links and attachments share.
void linkBlock(const frmPrint& form, Pages& pages, const Link& link, const std::string& href) {
  line(pages, "<H4>");
  if (form.settings.ShowURLSeparate)
    line(pages, link.name);
  else
    line(pages, "<A HREF=\"" + href + "\">" + (link.name.empty() ? link.address : link.name) + "</A>");
  if (form.settings.ShowRating && link.rating >= 1 && link.rating <= 5)
    for (std::int64_t n = 0; n < link.rating; ++n)
      line(pages, "<IMG SRC=\"" + image(form, pages, "Rating.gif") + "\" ALT=\"Rating.gif\">");
  line(pages, "</H4>");
  if (form.settings.ShowURLSeparate) line(pages, "<A HREF=\"" + href + "\">" + link.address + "</A><BR>");
  line(pages, "<H5>");
  if (!link.note.empty()) line(pages, link.note + "<BR>");
  line(pages, "</H5>");
}

}  // namespace

void term(frmPrint& form, Pages& pages, const PrintRow& row) {
  line(pages, "<H1 ID=\"" + std::to_string(row.id) + "\"");
  line(pages, fontStyle(form.settings.SchriftVon) + ">");
  if (isNew(form, row.created))
    line(pages, "<IMG SRC=\"" + image(form, pages, "neu.gif") + "\" ALT=\"Neu.gif\">");
  line(pages, row.headword + "</H1>");
}

void pronunciation(frmPrint& form, Pages& pages, const PrintRow& row) {
  const std::string text = row.pronunciation.textOrEmpty();
  if (!form.options.pronunciation || text.empty()) {
    line(pages, "<BR>");
    return;
  }
  line(pages, "<EM " + fontStyle(form.settings.lautschrift) + ">");
  line(pages, " [" + text + "]");
  line(pages, "<BR>");
  line(pages, "</EM>");
}

void entryLists(frmPrint& form, Pages& pages, const EntryRows& rows) {
  const RowRange all{rows.begin(), rows.end()};
  if (form.options.entryProperties) properties(form, pages, all);
  if (form.options.entrySubjects)
    nameList(pages, all, form.settings.VerwendungAbkuerzungen ? &PrintRow::subjectShort : &PrintRow::subject,
             nullptr);
}

void meanings(frmPrint& form, Pages& pages, const EntryRows& rows) {
  const auto& options = form.options;
  int number = 0;
  for (auto first = rows.begin(); first != rows.end();) {
    const auto last =
        std::find_if(first, rows.end(), [&](const PrintRow& r) { return r.meaningId != first->meaningId; });
    const RowRange sense{first, last};
    if (first->meaningId != 0) {
      ++number;
      const std::string prefix = form.settings.EnumMeaning ? std::to_string(number) + ". " : "";
      line(pages, "<H2 " + fontStyle(form.settings.SchriftNach) + ">" + prefix +
                      first->meaning.textOrEmpty() + "</H2>");
    }
    if (options.examples) examples(form, pages, sense);
    if (options.meaningProperties) meaningProperties(form, pages, sense);
    if (options.meaningSubjects)
      nameList(
          pages, sense,
          form.settings.VerwendungAbkuerzungen ? &PrintRow::meaningSubjectShort : &PrintRow::meaningSubject,
          nullptr);
    first = last;
  }
}

void note(frmPrint& form, Pages& pages, const PrintRow& row) {
  const std::string text = row.note.textOrEmpty();
  if (!form.options.note || text.empty()) return;
  line(pages, "<H6>");
  line(pages, text);
  line(pages, "</H6>");
}

void links(frmPrint& form, Pages& pages, const PrintRow& row) {
  if (!form.options.urls) return;
  for (const Link& link : linksOf(form, row)) linkBlock(form, pages, link, link.address);
}

void attachments(frmPrint& form, Pages& pages, const PrintRow& row) {
  if (!form.options.attachments) return;
  for (const Link& file : attachmentsOf(form, row)) linkBlock(form, pages, file, media(form, file.address));
}

void picture(frmPrint& form, Pages& pages, const PrintRow& row) {
  const std::string file = row.picture.textOrEmpty();
  const std::string kind = upperExtension(file);
  if (!form.options.pictures || (kind != "GIF" && kind != "JPG")) return;
  const std::string url = media(form, file);
  line(pages, "<BR>");
  if (form.settings.PictureAsURL) line(pages, "<A HREF=\"" + url + "\">");
  line(pages,
       "<IMG SRC=\"" + url + "\"" + (form.settings.ObjectAsAltText ? " ALT=\"" + row.headword + "\">" : ">"));
  if (form.settings.PictureAsURL) line(pages, "</A>");
  line(pages, "<BR>");
}

void sound(frmPrint& form, Pages& pages, const PrintRow& row) {
  const std::string file = row.sound.textOrEmpty();
  if (!form.options.sound || file.empty()) return;
  line(pages, "<BR>");
  line(pages, "<AUDIO controls SRC=\"" + media(form, file) + "\" type=\"audio/x-wav\">");
  line(pages, "</AUDIO>");
  line(pages, "<BR>");
}

void crossReferences(frmPrint& form, Pages& pages, const PrintRow& row, bool subEntry) {
  if (!form.options.crossReferences) return;
  std::string text;
  for (const CrossReference& reference : crossReferencesOf(form, row)) {
    if (!text.empty()) text += ", ";
    text += "<a HREF=\"" + pages.baseName + "_" +
            std::to_string(CalcCrossLinkHTMLPage(form, reference.target)) + ".HTM#" +
            std::to_string(reference.target) + "\">" + reference.text + "</a>";
  }
  if (text.empty()) return;
  if (subEntry) line(pages, "<SMALL>");
  line(pages, text);
  if (subEntry) line(pages, "</SMALL>");
  line(pages, "<BR>");
  line(pages, "<BR>");
}

std::int64_t CalcCrossLinkHTMLPage(frmPrint& form, std::int64_t id) {
  form.crossLinkList.FindFirst("ID_Woerterbuch = " + std::to_string(id));
  if (form.crossLinkList.NoMatch()) return 1;
  return form.crossLinkList.AbsolutePosition() / std::max(form.options.entriesPerPage, 1) + 1;
}

}  // namespace publish::html
