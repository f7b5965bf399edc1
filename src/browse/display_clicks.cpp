// What a click on a row of the display's grids does.

#include <algorithm>
#include <array>

#include "base/text.h"
#include "browse/display.h"
#include "browse/frmWoerter.h"
#include "entry/start_browser.h"
#include "shell/session/errors.h"
#include "store/rows.h"

namespace browse {

namespace {

constexpr const char* formName = "frmWoerter";
constexpr std::array<const char*, 5> addressStarts{"ftp", "goph", "www", "http", "file"};

bool isAddress(const std::string& url) {
  const std::string start = base::lower(base::left(base::trim(url), 4));
  return std::ranges::any_of(addressStarts, [&](const char* each) { return start.starts_with(each); });
}

}  // namespace

bool MSHFlexGridQuerverweise_Click(frmWoerter& form, std::size_t row) {
  session::Session& s = form.session;
  if (row >= form.display.aggregate.crossReferences.size()) return true;
  const std::int64_t target = form.display.aggregate.crossReferences[row].ID_WoerterbuchQV;
  return session::guard(s, formName, [&] {
    ReleaseFilter(form);
    if (letterChosen(form)) showAllLetters(form);
    s.entry.CurrentEntryId = target;
    auto found = readEntry(form, target);
    if (found.EndOfFile()) return;
    s.entry.EntryEditMode = store::numberOf(found["ID_Woerterbuch1"]) == target ? 3 : 4;
    found.Close();
    SkipToEntry(form);
  });
}

bool MSHFlexGridURL_Click(frmWoerter& form, std::size_t row) {
  session::Session& s = form.session;
  const auto& links = form.display.aggregate.links;
  if (row >= links.size() || !isAddress(links[row].URL)) return true;
  return entry::UserControl_Click(s, formName, entry::Opens::link, links[row].URL);
}

bool dbGridAttachment_DblClick(frmWoerter& form, std::size_t row) {
  session::Session& s = form.session;
  const auto& files = form.display.aggregate.attachments;
  if (row >= files.size() || files[row].Attachment.empty()) return true;
  return entry::UserControl_Click(s, formName, entry::Opens::attachment, files[row].Attachment);
}

}  // namespace browse
