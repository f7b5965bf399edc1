#pragma once

#include <functional>
#include <string>
#include <vector>

#include "browse/frmWoerter.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// The filter: one selection of entries that all views share. Confirming the dialog stores the ids of the
/// entries that match in FilterSelektion1; from then on each statement by which a view reads entries (see
/// session::View) is given the clauses that keep it to these.
namespace browse {

/// The thirteen check boxes, in the order in which their clauses are written. All but inWork come in
/// pairs that exclude each other.
enum class Criterion {
  hasNote,
  hasNoNote,
  inWork,
  hasSound,
  hasNoSound,
  hasPicture,
  hasNoPicture,
  hasAttachment,
  hasNoAttachment,
  hasURL,
  hasNoURL,
  hasCrossReference,
  hasNoCrossReference
};
inline constexpr std::size_t criterionCount = 13;

struct CheckBox {
  bool ticked = false, enabled = true;
};
struct ListItem {
  std::string name;
  bool selected = false;
};

/// Which of the trained words the word trainer asks for.
enum class TrainerSelection { all, notYetLearned, wrongLastTime, neverTrained };

/// The panels of the dialog that the view which opened it has a use for; scope, lists and dates always show.
struct FilterPanels {
  bool letterAndSubEntries = false, pageSize = false, content = false;
};

/// The dialog. It stays loaded for the whole session, and its state with it.
struct frmFilter : platform::Form {
  explicit frmFilter(session::Session& s) : Form("frmFilter"), session(s) {}
  ~frmFilter() override;
  frmFilter(const frmFilter&) = delete;
  frmFilter& operator=(const frmFilter&) = delete;

  session::Session& session;
  bool meaningLevel = false;      ///< the scope: meanings (exportview2) instead of entries (exportview1)
  bool meaningLevelShown = true;  ///< link collections have no meanings
  std::vector<ListItem> properties, subjects;
  std::string dateFrom, dateTo;  ///< "dd.mm.yyyy" or empty
  std::array<CheckBox, criterionCount> boxes;
  std::string letter;  ///< of the letter combo; empty is its first item, all letters
  bool letterEnabled = true, contentEnabled = true;
  bool subEntriesInReports = false;
  ListSettings list;  ///< the combos of page size and list limit
  TrainerSelection trainer = TrainerSelection::all;
  session::View opener = session::View::frmWoerter;  ///< the view that it is opened from
  bool visible = false;
  std::function<std::string()> searchBox;  ///< text of the active browser's search box; empty: no browser

  CheckBox& box(Criterion c) { return boxes[static_cast<std::size_t>(c)]; }
};

/// Appends the active filter's clauses to a statement without its order. Which ones depends on the view:
/// frmFilter selects for FilterSelektion1, the others obey the selection. The clauses stand without
/// parentheses of their own, so that the letter's arms group with what stands beside them.
void ApplyFilterToSQL(const frmFilter& form, std::string& sql, session::View view);
/// Whether anything but the letter and the sub-entries box is chosen.
bool FilterIsActive(const frmFilter& form);
/// The text of a view's status label.
std::string ShowFilterStatus(const frmFilter& form);

/// Throws 5 for a view that opens no filter.
FilterPanels panelsOf(session::View opener);
/// Makes the session's statements and questions go through this dialog, until it is destroyed.
void attachFilter(frmFilter& form);
/// Fills the lists, hides what the project has no use for, and makes the boxes consistent.
void Form_Activate(frmFilter& form);
/// Reads the lists of the two catalogues again; what was selected in them stays.
void FillOrderWKategorie(frmFilter& form);
void FillOrderWSachgebiet(frmFilter& form);
/// Both lists, and what else depends on the open dictionary.
void FillFilterCombos(frmFilter& form);
/// Letter combo and content panel serve a single dictionary only.
void FilterDeaktivieren(frmFilter& form);
/// Puts the dialog to its defaults for another dictionary.
void ResetFilterDialog(frmFilter& form);
/// The reset command: the defaults, and the stored selection is emptied.
void resetFilter(frmFilter& form);
/// Ticks or unticks a box; the other one of its pair follows.
void tick(frmFilter& form, Criterion criterion, bool ticked);
/// Leaving a date box: a text that is no date is told and emptied. False then: the focus goes back.
bool dateLeft(frmFilter& form, std::string& dateBox);
/// A combo of page size or list limit was typed into: other than up to three digits is told, and the
/// combo goes to its default or empty.
void comboChanged(frmFilter& form, std::string& combo, const std::string& text,
                  const std::string& defaultText);
/// Confirms: stores the selection and hides the dialog. Reports errors; false when something failed.
bool confirmFilter(frmFilter& form);
/// What the browser does after the dialog closed: takes over the list's settings and loads again.
void refreshAfterFilter(const frmFilter& form, frmWoerter& browser);

/// Asks for a file, and writes the entries of the browser's recordset with their sub-entries and the media
/// folder as a dictionary of its own; of several open files the current one's. False when the user does not
/// want to. Throws 32755 when the dialog is cancelled, 3204 when the file is open, and what fails; a file of
/// that name is replaced when the new one is whole.
bool saveFiltered(frmWoerter& browser);

}  // namespace browse
