#include "browse/page_html.h"

#include <filesystem>
#include <utility>

#include "base/error.h"
#include "base/paths.h"
#include "base/text.h"
#include "catalogue/label.h"
#include "entry/media_files.h"
#include "shell/session/routines.h"
#include "shell/session/start.h"
#include "shell/session/texts.h"
#include "store/rows.h"

namespace browse {

namespace {

namespace fs = std::filesystem;

constexpr const char* usualFont = "Arial Unicode MS";

/// The page as it grows: an item a line.
class Page {
 public:
  explicit Page(const std::string& lineBreak) : lineBreak_(lineBreak) {}
  void add(const std::string& item) { text_ += item + lineBreak_; }
  const std::string& text() const { return text_; }

 private:
  std::string lineBreak_, text_;
};

const std::string& fontOr(const std::string& font, const std::string& otherwise) {
  return font.empty() ? otherwise : font;
}

fs::path dictionaryFolder(const session::Session& s) {
  return s.files.paths.real(s.files.CurrentDBPath).parent_path();
}

/// The set style sheet; while the dictionary has none of its own in that place, the one that ships.
std::string styleSheet(const session::Session& s, const std::string& set) {
  if (set.empty() || s.files.paths.exists(set)) return base::replaceAll(set, "\\", "/");
  const std::string shipped = session::shippedPath(s, "Stylesheets/" + base::fileName(set));
  return shipped.empty() ? base::replaceAll(set, "\\", "/") : fs::path(shipped).lexically_normal().string();
}

std::string ratingImage(const session::Session& s) {
  const std::string shipped = session::shippedPath(s, "Images/Rating.gif");
  return shipped.empty() ? s.folders.AppPath + "/Images/Rating.gif"
                         : fs::path(shipped).lexically_normal().string();
}

/// A picture lies in the media folder; one that was put beside the dictionary counts as well.
std::string pictureAddress(session::Session& s, const std::string& name) {
  const std::string media = entry::mediaPath(s, name);
  std::error_code ignored;
  return fs::exists(media, ignored) ? media : (dictionaryFolder(s) / name).string();
}

void head(Page& page, const std::string& sheet) {
  page.add("<HTML lang=\"de\">");
  page.add("<HEAD>");
  page.add("<META http-equiv=\"content type\" content=\"text/html; charset=UTF-8\">");
  page.add("<link rel=\"stylesheet\" type=\"Text/CSS\" href=\"" + sheet + "\">");
  page.add("</HEAD>");
  page.add("<BODY>");
}

void headword(Page& page, const session::Session& s, const EntryAggregate& entry) {
  page.add("<H1>");
  page.add("<FONT Face=" + fontOr(s.project.FontFrom, usualFont) + ">");
  page.add(entry.entry.Begriff);
  page.add("</FONT>");
  page.add("</H1>");
}

void pronunciation(Page& page, const session::Session& s, const EntryAggregate& entry) {
  if (s.project.ProjectType != 1 || entry.entry.Aussprache.empty()) return;
  page.add("<FONT color=#0000FF Face=" + fontOr(s.project.PhoneticFont, usualFont) + ">");
  page.add("<EM>");
  page.add(" [" + entry.entry.Aussprache + "]");
  page.add("<BR>");
  page.add("</EM>");
}

void list(Page& page, const session::Session& s, int caption, const std::string& text) {
  if (text.empty()) return;
  page.add("<P>");
  page.add("<A> " + session::labelText(s, caption) + " " + text + "</A></P>");
}

void entryLists(Page& page, const session::Session& s, const FlatText& flat) {
  const bool brief = s.project.UseAbbreviations;
  list(page, s, label::properties_prefix,
       brief ? flat.AbkEigenschaftenZumBegriff : flat.EigenschaftenZumBegriff);
  list(page, s, label::subjects_prefix, brief ? flat.AbkSachgebieteZumBegriff : flat.SachgebieteZumBegriff);
}

/// The flat texts of the meanings of an entry, looked up by the meaning's number.
class MeaningLists {
 public:
  MeaningLists(session::Session& s, std::int64_t entry) : session_(s) {
    rows_ = s.files.CurrentDB.OpenRecordset("WortbedParam", engine::RecordsetKind::snapshot,
                                            {{"lWordID", entry}});
  }
  void add(Page& page, std::int64_t meaning) {
    if (!store::hasRows(rows_)) return;
    for (rows_.MoveFirst(); !rows_.EndOfFile(); rows_.MoveNext()) {
      if (store::numberOf(rows_["ID_Wortbedeutung"]) != meaning) continue;
      const std::string brief = session_.project.UseAbbreviations ? "Abk" : "";
      list(page, session_, label::properties_prefix,
           rows_[brief + "EigenschaftenZurWortbedeutung"].textOrEmpty());
      list(page, session_, label::subjects_prefix,
           rows_[brief + "SachgebieteZurWortbedeutung"].textOrEmpty());
    }
  }

 private:
  session::Session& session_;
  engine::Recordset rows_;
};

void example(Page& page, const std::string& meaning, const engine::Recordset& row) {
  const std::string text = row["Beispiel"].textOrEmpty();
  const std::string translation = row["Beispieluebersetzung"].textOrEmpty();
  if (text.empty()) return;
  page.add("<H2>");
  page.add(meaning + ": ");
  page.add("<B>");
  page.add(text);
  page.add("</B>");
  if (!translation.empty()) {
    page.add("--> ");
    page.add("<I>");
    page.add(translation);
    page.add("</I>");
    page.add("<BR>");
  }
  page.add("</H2>");
}

/// Each meaning with its examples, its properties and its subject fields below.
void meanings(Page& page, session::Session& s, std::int64_t entry, bool numbered) {
  auto rows = s.files.CurrentDB.OpenRecordset(
      "Select distinct * from QueryReporting where id_woerterbuch = " + std::to_string(entry) + ";",
      engine::RecordsetKind::snapshot);
  if (rows.EndOfFile() || rows["Wortbedeutung.ID_Wortbedeutung"].isNull()) return;
  MeaningLists lists(s, entry);
  std::int64_t current = 0;
  int number = 0;
  std::string text;
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    const std::int64_t id = store::numberOf(rows["Wortbedeutung.ID_Wortbedeutung"]);
    if (id != current) {
      if (current != 0) lists.add(page, current);
      current = id;
      ++number;
      text = (numbered ? std::to_string(number) + ". " : "") + rows["Wortbedeutung"].textOrEmpty();
      page.add("<H2>");
      page.add(text);
      page.add("</H2>");
    }
    example(page, text, rows);
  }
  lists.add(page, current);
}

void note(Page& page, const std::string& text) {
  if (base::trim(text).empty()) return;
  page.add("<H6>");
  page.add(base::replaceAll(text, "\n", "<BR>"));
  page.add("</H6>");
}

void picture(Page& page, session::Session& s, const std::string& name) {
  if (!pageShowsPicture(name)) return;
  page.add("<BR>");
  page.add("<IMG SRC=\"" + pictureAddress(s, name) + "\">");
  page.add("<BR>");
}

void link(Page& page, const session::Session& s, const DisplaySettings& settings, const WebLink& each) {
  if (settings.ShowURLSeparate) {
    page.add("<A HREF=" + each.URL + "><H5>");
    page.add(each.URLNAME);
    page.add("</A>");
    page.add(each.URLNOTIZ);
  } else {
    page.add("<H5>");
    page.add(each.URLNAME);
    page.add("<BR>");
    page.add(each.URLNOTIZ);
    page.add("</H5>");
  }
  if (!settings.ShowRating || each.RATING < 1 || each.RATING > 5) return;
  for (std::int64_t n = 0; n < each.RATING; ++n) page.add("<IMG SRC=\"" + ratingImage(s) + "\">");
}

std::string composed(session::Session& s, const EntryAggregate& entry, const DisplaySettings& settings) {
  Page page(s.CRLF);
  head(page, styleSheet(s, settings.StyleSheetPath));
  if (entry.entry.ID_Woerterbuch != 0) {
    headword(page, s, entry);
    pronunciation(page, s, entry);
    entryLists(page, s, entry.flat);
    if (s.project.ProjectType == 1) meanings(page, s, entry.entry.ID_Woerterbuch, settings.EnumMeaning);
    note(page, entry.entry.Bemerkung);
    picture(page, s, entry.entry.Bild);
    if (s.project.ProjectType == 2)
      for (const WebLink& each : entry.links) link(page, s, settings, each);
  }
  page.add("</BODY>");
  page.add("</HTML>");
  return page.text();
}

bool isRefusal(int number) {
  return number == engine::errors::permissionDenied || number == engine::errors::diskFull || number == 75;
}

/// The elements of the page that hold texts of the source or of the target language.
struct LanguageElement {
  const char *begin, *end;
  bool DisplaySettings::*fromRight;
  bool block;  ///< a paragraph of its own, not a part of one
};
constexpr LanguageElement languageElements[] = {
    {"<H1>", "</H1>", &DisplaySettings::RightToLeftFrom, true},
    {"<H2>", "</H2>", &DisplaySettings::RightToLeftTo, true},
    {"<H6>", "</H6>", &DisplaySettings::RightToLeftFrom, true},
    {"<B>", "</B>", &DisplaySettings::RightToLeftFrom, false},
    {"<I>", "</I>", &DisplaySettings::RightToLeftTo, false},
};
// Marks that keep the direction of a part of a paragraph to itself.
constexpr const char *isolateFromLeft = "\u2066", *isolateFromRight = "\u2067", *isolateEnd = "\u2069";

/// A line that begins or ends an element, with the direction of the element's text.
std::string directedLine(const std::string& line, const DisplaySettings& settings) {
  for (const LanguageElement& element : languageElements) {
    const bool fromRight = settings.*element.fromRight;
    if (line == element.begin) {
      if (!element.block) return line + (fromRight ? isolateFromRight : isolateFromLeft);
      return fromRight ? line.substr(0, line.size() - 1) + " dir=\"rtl\">" : line;
    }
    if (line == element.end && !element.block) return isolateEnd + line;
  }
  return line;
}

/// A line of the page in a form that needs no leniency.
std::string strictLine(const std::string& line) {
  const std::size_t face = line.starts_with("<FONT ") ? line.find("Face=") : std::string::npos;
  if (face != std::string::npos && line.ends_with('>')) {
    const std::size_t name = face + 5;
    return line.substr(0, name) + '"' + line.substr(name, line.size() - name - 1) + "\">";
  }
  return line == "</EM>" ? "</EM></FONT>" : line;
}

}  // namespace

bool pageShowsPicture(const std::string& name) {
  const std::string kind = base::upper(base::right(name, 3));
  return kind == "GIF" || kind == "JPG";
}

WrittenPage WriteHTMLFile(session::Session& s, const EntryAggregate& entry, const DisplaySettings& settings) {
  std::string page = composed(s, entry, settings);
  const fs::path beside = dictionaryFolder(s) / pageFileName;
  try {
    session::writeWhole(beside, page);
    return {beside.string(), std::move(page)};
  } catch (const base::Error& error) {
    if (!isRefusal(error.number())) throw;
  }
  const fs::path own = s.files.paths.real(s.folders.AppConfigPath) / pageFileName;
  session::writeWhole(own, page);
  return {own.string(), std::move(page)};
}

std::string forStrictView(const std::string& page, const DisplaySettings& settings) {
  const bool directed = settings.RightToLeftFrom || settings.RightToLeftTo;
  std::string result;
  for (const std::string& line : base::split(page, "\r\n")) {
    if (!result.empty()) result += "\r\n";
    result += strictLine(directed ? directedLine(line, settings) : line);
  }
  return base::replaceAll(result, "type=\"Text/CSS\"", "type=\"text/css\"");
}

}  // namespace browse
