// Page frames, page breaks and the index page.

#include <filesystem>
#include <fstream>

#include "base/datetime.h"
#include "base/error.h"
#include "base/paths.h"
#include "base/text.h"
#include "catalogue/label.h"
#include "publish/html.h"
#include "publish/webpath.h"
#include "shell/session/texts.h"

namespace publish::html {

namespace {

std::string pageName(const Pages& pages, std::int64_t number) {
  return pages.baseName + "_" + std::to_string(number) + ".HTM";
}
std::string indexName(const Pages& pages) {
  return pages.baseName + "_INDEX.HTM";
}

std::string address(const frmPrint& form, const Pages& pages, const std::string& fileName) {
  return GetWebPath(form.settings, pages.folder + "/" + fileName, WebPathKind::output,
                    form.session.files.CurrentDBPath);
}

std::string image(const frmPrint& form, const Pages& pages, const std::string& name) {
  return GetWebPath(form.settings, pages.folder + "/Images/" + name, WebPathKind::image,
                    form.session.files.CurrentDBPath);
}

/// Title and heading: the product, the languages or the description, and today's date.
std::string heading(const frmPrint& form) {
  const auto& s = form.settings;
  const std::string product = session::labelText(form.session, label::program_name);
  const std::string today = base::formatDate(base::DateTime::now(), "dd.mm.yyyy");
  if (form.session.project.ProjectType == 2)
    return base::trim(product + std::string(12, ' ') + s.Kurzbeschreibung) + " " + today;
  if (s.UebersetzungVon.empty() && s.UebersetzungNach.empty()) return product + " " + today;
  return product + " " + s.UebersetzungVon + " -> " + s.UebersetzungNach + ", " + today;
}

std::string styleSheetAddress(const frmPrint& form, const Pages& pages) {
  return GetWebPath(form.settings, styleSheetFor(form.session, pages.folder).target, WebPathKind::styleSheet,
                    form.session.files.CurrentDBPath);
}

void styleSheetLink(Pages& pages) {
  line(pages, "<link rel=\"stylesheet\" type=\"Text/CSS\" HREF=\"" + pages.styleSheet + "\">");
}

void PrintHTMLMetaTagsAndTitle(const frmPrint& form, Pages& pages) {
  line(pages, "<META charset=\"" + form.options.encoding + "\">");
  line(pages, "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1.0\">");
  line(pages, "<TITLE>" + heading(form) + "</TITLE>");
}

void PrintHTMLHeader(const frmPrint& form, Pages& pages) {
  line(pages, "<header>");
  line(pages, "<a HREF=\"" + form.settings.AutorWebURL + "\"><img src=\"" + pages.logo + "\" alt=\"" +
                  session::labelText(form.session, label::program_name) + "\"></a>");
  line(pages, "<H1>" + heading(form) + "</H1>");
  line(pages, "<HR>");
  line(pages, "</header>");
}

void PrintHTMLFooter(const frmPrint& form, Pages& pages) {
  line(pages, "<footer>");
  line(pages, "<BR>");
  line(pages, "<BR>");
  line(pages, "<a>powered by </a>");
  line(pages, "<a HREF=\"" + form.settings.AutorWebURL + "\">" +
                  session::labelText(form.session, label::program_name) + "</a>");
  line(pages, "</footer>");
}

void openFrame(const frmPrint& form, Pages& pages) {
  line(pages, "<!doctype html>");
  line(pages, "<HTML lang=\"de\">");
  line(pages, "<HEAD>");
  PrintHTMLMetaTagsAndTitle(form, pages);
}

void openPage(const frmPrint& form, Pages& pages) {
  pages.text.clear();
  pages.entriesOnPage = 0;
  openFrame(form, pages);
  styleSheetLink(pages);
  line(pages, "</HEAD>");
  line(pages, "<BODY>");
  PrintHTMLHeader(form, pages);
  line(pages, "<h1><a HREF=\"" + address(form, pages, indexName(pages)) + "\">" +
                  session::labelText(form.session, label::index_page) + "</a></h1>");
}

void closeFrame(const frmPrint& form, Pages& pages) {
  PrintHTMLFooter(form, pages);
  line(pages, "</BODY>");
  line(pages, "</HTML>");
}

void save(frmPrint& form, const Pages& pages, const std::string& name) {
  const std::string path = pages.folder + "/" + name;
  const std::string bytes = base::fromUtf8(pages.text, form.options.encoding);
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file)
    throw base::Error(std::filesystem::exists(pages.folder) ? 61 : 3044,
                      "The page could not be written: " + path);
  form.writtenFiles.push_back(path);
}

void closePage(frmPrint& form, Pages& pages) {
  closeFrame(form, pages);
  save(form, pages, pageName(pages, pages.pageNumber));
}

void listItem(Pages& pages, const std::string& href, const std::string& text) {
  line(pages, "<li>");
  line(pages, "<A HREF=\"" + href + "\">" + text + "</A>");
  line(pages, "</li>");
}

void writeIndexPage(frmPrint& form, Pages& pages) {
  pages.text.clear();
  openFrame(form, pages);
  line(pages, "</HEAD>");
  line(pages, "<BODY>");
  PrintHTMLHeader(form, pages);
  line(pages, "<BR>");
  styleSheetLink(pages);
  // The list's head and the way to page 1 belong to the form by letters alone; both forms end it.
  if (form.options.pagePerLetter) {
    line(pages, "<nav>");
    line(pages, "<ul>");
    listItem(pages, address(form, pages, pageName(pages, 1)), pageName(pages, 1));
  }
  for (std::int64_t n = 2; n <= pages.pageNumber; ++n)
    listItem(pages, pageName(pages, n), pageName(pages, n));
  line(pages, "</ul>");
  line(pages, "</nav>");
  closeFrame(form, pages);
  save(form, pages, indexName(pages));
}

std::string firstLetter(const std::string& text) {
  return base::upper(base::left(text, 1));
}

}  // namespace

void line(Pages& pages, std::string_view text) {
  pages.text += text;
  pages.text += "\r\n";
}

Pages begin(frmPrint& form, const std::string& path) {
  Pages pages;
  pages.folder = base::folderOf(path);
  if (pages.folder.empty()) pages.folder = std::filesystem::current_path().string();
  std::error_code refused;
  std::filesystem::create_directories(pages.folder, refused);
  if (refused)
    throw base::Error(3044, "The folder " + pages.folder + " can not be made: " + refused.message());
  pages.baseName = base::fileName(path);
  if (base::upper(base::right(pages.baseName, 4)) == ".HTM")
    pages.baseName = base::left(pages.baseName, base::length(pages.baseName) - 4);
  pages.styleSheet = styleSheetAddress(form, pages);
  pages.logo = image(form, pages, "VC_logo.jpg");
  openPage(form, pages);
  return pages;
}

void breakPage(frmPrint& form, Pages& pages, const PrintRow& entry) {
  const std::string letter = firstLetter(entry.headword);
  const bool newLetter =
      form.options.pagePerLetter && !pages.currentLetter.empty() && letter != pages.currentLetter;
  if (newLetter || pages.entriesOnPage == form.options.entriesPerPage) {
    closePage(form, pages);
    ++pages.pageNumber;
    openPage(form, pages);
  }
  pages.currentLetter = letter;
  ++pages.entriesOnPage;
}

void finish(frmPrint& form, Pages& pages) {
  closePage(form, pages);
  writeIndexPage(form, pages);
}

}  // namespace publish::html
