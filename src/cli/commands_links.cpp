// Web links and attachments of an entry.

#include <algorithm>
#include <iostream>

#include "cli/application.h"
#include "cli/editing.h"
#include "entry/attachments.h"
#include "entry/links.h"

namespace cli {
namespace {

bool inTab(Application& app, std::int64_t id, entry::Tab tab,
           const std::function<void(entry::frmEintrag&)>& deeds) {
  select(app, id);
  return inEditor(app, editEntry, [&](entry::frmEintrag& form) {
    if (!entry::selectTab(form, tab)) failed("This dictionary has no web links, only meanings.");
    deeds(form);
    save(form);
  });
}

template <class Rows>
std::int64_t newest(const Rows& rows) {
  std::int64_t id = 0;
  for (const auto& row : rows) id = std::max(id, row.id);
  return id;
}

}  // namespace

int runLinkAdd(Application& app, const std::vector<std::string>& words) {
  const std::int64_t id = entryNumber(words[1]);
  const auto url = app.arguments.value("--url");
  if (!url || url->empty()) throw UsageError{"link add needs --url."};
  const auto rating = app.arguments.number("--rating", 0).value_or(0);
  if (rating > entry::highestRating) throw UsageError{"--rating is a number from 0 to 5."};
  return withDictionary(app, words[0], [&] {
    std::int64_t added = 0;
    const bool done = inTab(app, id, entry::Tab::links, [&](entry::frmEintrag& form) {
      form.linkAddressBox = *url;
      form.linkNameBox = app.arguments.value("--name").value_or("");
      form.linkNoteBox = app.arguments.value("--note").value_or("");
      form.linkRatingBox = static_cast<int>(rating);
      required(entry::Command5(form));
      added = newest(entry::linkRows(form));
    });
    if (done) std::cout << added << '\n';
    return done;
  });
}

int runAttach(Application& app, const std::vector<std::string>& words) {
  const std::int64_t id = entryNumber(words[1]);
  return withDictionary(app, words[0], [&] {
    std::int64_t added = 0;
    const std::string file = existingFile(app, words[2]);
    const bool done = inTab(app, id, entry::Tab::attachments, [&](entry::frmEintrag& form) {
      form.attachmentFileBox = file;
      form.attachmentNameBox = app.arguments.value("--name").value_or("");
      form.attachmentNoteBox = app.arguments.value("--note").value_or("");
      form.attachmentIsCopied = app.arguments.has("--copy");
      required(entry::Command8(form));
      added = newest(entry::attachmentRows(form));
    });
    if (done) std::cout << added << '\n';
    return done;
  });
}

}  // namespace cli
