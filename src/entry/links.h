#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "entry/frmEintrag.h"

/// Web links of the entry in the editor, in link collections alone. They are stored at once. Rows count from
/// 0 in the order that the grid shows. The commands report failures and return whether all went well; one
/// with nothing selected does nothing and returns false.
namespace entry {

/// What an address begins with while nothing is typed.
inline constexpr const char* emptyAddress = "HTTP://";
inline constexpr int highestRating = 5;

struct LinkRow {
  std::int64_t id = 0;
  std::string name, address, note;
  int rating = 0;
};
std::vector<LinkRow> linkRows(frmEintrag& form);

/// Selects a row of the grid; one with an address of a known kind arms `openLinkArmed`.
bool selectLink(frmEintrag& form, std::size_t row);
/// Whether an address begins like one of the web.
bool isWebAddress(std::string_view address);
/// Stores the boxes as a new link, or as the link that is being edited.
bool Command5(frmEintrag& form);
/// Puts the selected link into the boxes, for Command5 to store it again.
bool mnuEditURL(frmEintrag& form);
/// Deletes the selected link, without a question.
bool mnuDeleteURL(frmEintrag& form);
/// Opens the selected link on the desktop, whatever its address begins with.
bool openLink(frmEintrag& form);

// Steps; they throw.
/// The tab comes to the front: its list is read and the address box begins anew.
void openLinksTab(frmEintrag& form);
void LinkRefill(frmEintrag& form);
/// Gives up list, selection and boxes, as another entry is shown.
void clearLinks(frmEintrag& form);

}  // namespace entry
