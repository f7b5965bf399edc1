#include "entry/links.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "entry/start_browser.h"
#include "shell/session/errors.h"
#include "store/rows.h"

namespace entry {
namespace {

LinkRow readRow(const engine::Recordset& row) {
  const engine::Value rating = row["Rating"];
  return {row["ID_URL"].asInteger(), row["URLName"].textOrEmpty(), row["URL"].textOrEmpty(),
          row["URLNotiz"].textOrEmpty(), static_cast<int>(store::numberOf(rating))};
}

// The links of the entry for writing.
engine::Recordset openForWriting(frmEintrag& form) {
  return form.session.files.CurrentDB.OpenRecordset("select distinctrow * from URL where ID_Woerterbuch =" +
                                                    std::to_string(form.session.entry.CurrentEntryId));
}

void placeOn(engine::Recordset& rows, std::int64_t id) {
  rows.FindFirst("ID_URL = " + std::to_string(id));
  if (rows.NoMatch()) throw base::Error(engine::errors::recordDeleted, "This link has been deleted.");
}

void clearBoxes(frmEintrag& form) {
  form.linkNameBox.clear();
  form.linkAddressBox = emptyAddress;
  form.linkNoteBox.clear();
  form.linkRatingBox = 0;
  form.EditedLinkId = 0;
}

void store(frmEintrag& form) {
  if (form.linkRatingBox < 0 || form.linkRatingBox > highestRating)
    throw base::Error(engine::errors::invalidArgument, "The rating of a link is a number from 0 to 5.");
  engine::Recordset Data1 = openForWriting(form);
  if (form.EditedLinkId != 0) {
    placeOn(Data1, form.EditedLinkId);
    Data1.Edit();
  } else {
    Data1.AddNew();
    Data1.set("ID_Woerterbuch", form.session.entry.CurrentEntryId);
  }
  Data1.set("URLName", form.linkNameBox);
  Data1.set("URL", form.linkAddressBox);
  Data1.set("URLNotiz", form.linkNoteBox);
  Data1.set("Rating", form.linkRatingBox);
  Data1.Update();
}

}  // namespace

std::vector<LinkRow> linkRows(frmEintrag& form) {
  return store::allRows<LinkRow>(form.links, readRow);
}

bool isWebAddress(std::string_view address) {
  static constexpr std::array<std::string_view, 4> starts{"ftp", "goph", "www", "http"};
  const std::string lower = base::lower(address);
  return std::ranges::any_of(starts, [&](std::string_view start) { return lower.starts_with(start); });
}

bool selectLink(frmEintrag& form, std::size_t row) {
  return session::guard(form.session, form.formName, [&] {
    form.links.setAbsolutePosition(static_cast<std::int64_t>(row));
    const LinkRow link = readRow(form.links);
    form.SelectedLinkId = link.id;
    form.openLinkArmed = isWebAddress(link.address);
  });
}

bool Command5(frmEintrag& form) {
  return session::guard(form.session, form.formName, [&] {
    store(form);
    session::commitGathered(form.session);
    clearBoxes(form);
    LinkRefill(form);
    form.focus = Focus::linkAddress;
  });
}

bool mnuEditURL(frmEintrag& form) {
  if (form.SelectedLinkId == 0) return false;
  return session::guard(form.session, form.formName, [&] {
    engine::Recordset rows = openForWriting(form);
    placeOn(rows, form.SelectedLinkId);
    const LinkRow link = readRow(rows);
    form.linkNameBox = link.name;
    form.linkAddressBox = link.address;
    form.linkNoteBox = link.note;
    form.linkRatingBox = std::clamp(link.rating, 0, highestRating);
    form.EditedLinkId = link.id;
    form.focus = Focus::linkAddress;
  });
}

bool mnuDeleteURL(frmEintrag& form) {
  if (form.SelectedLinkId == 0) return false;
  return session::guard(form.session, form.formName, [&] {
    engine::Recordset rows = openForWriting(form);
    placeOn(rows, form.SelectedLinkId);
    rows.Delete();
    if (form.EditedLinkId == form.SelectedLinkId) clearBoxes(form);
    LinkRefill(form);
  });
}

bool openLink(frmEintrag& form) {
  if (form.SelectedLinkId == 0) return false;
  return session::guard(form.session, form.formName, [&] {
    engine::Recordset rows = openForWriting(form);
    placeOn(rows, form.SelectedLinkId);
    return UserControl_Click(form.session, form.formName, Opens::link, rows["URL"].textOrEmpty());
  });
}

void openLinksTab(frmEintrag& form) {
  // A link that was left in the boxes half edited would get the empty address.
  if (form.EditedLinkId != 0) clearBoxes(form);
  form.linkAddressBox = emptyAddress;
  LinkRefill(form);
}

void LinkRefill(frmEintrag& form) {
  form.links = form.session.files.CurrentDB.OpenRecordset("BegriffURLParam2", engine::RecordsetKind::dynaset,
                                                          {{"lWortID", form.session.entry.CurrentEntryId}});
  form.SelectedLinkId = 0;
  form.openLinkArmed = false;
}

void clearLinks(frmEintrag& form) {
  if (form.links.isOpen()) form.links.Close();
  form.SelectedLinkId = 0;
  form.openLinkArmed = false;
  clearBoxes(form);
}

}  // namespace entry
