#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "browse/grid.h"
#include "entry/record.h"
#include "platform/images.h"
#include "shell/session/session.h"

/// The entry shown beside the list: gathered once at each selection, then shown either in labels and
/// read-only grids or as a page in the web view.
namespace browse {

struct frmWoerter;

/// An assigned property or subject field, of the entry or of one of its meanings.
struct Assignment {
  std::string meaning;  ///< empty for one of the entry itself
  std::string name, abbreviation;
  std::string value;  ///< of a property
};
struct WebLink {
  std::string URLNAME, URL, URLNOTIZ;
  std::int64_t RATING = 0;
};
struct CrossReference {
  std::int64_t ID_WoerterbuchQV = 0;  ///< the entry referred to
  std::string Querverweis;
};
/// A meaning repeats for each of its examples.
struct MeaningExample {
  std::string Wortbedeutung, Beispiel, Beispieluebersetzung;
};
struct AttachedFile {
  std::string AttachmentName, Attachment, AttachmentNotiz;
};
/// The ready texts of the flat table.
struct FlatText {
  std::string EigenschaftenZumBegriff, AbkEigenschaftenZumBegriff, SachgebieteZumBegriff,
      AbkSachgebieteZumBegriff, Querverweise, URLs;
};

/// One entry with all that hangs on it; copied out of the file, so no cursor stays open.
struct EntryAggregate {
  entry::STWOERTERBUCH entry;  ///< its number is 0 when there is no such entry: all is empty then
  FlatText flat;
  std::vector<Assignment> properties, subjects;
  std::vector<WebLink> links;
  std::vector<CrossReference> crossReferences;
  std::vector<MeaningExample> meanings;
  std::vector<Assignment> meaningProperties, meaningSubjects;
  std::vector<AttachedFile> attachments;
};

/// How the dictionary wants its entries shown; of its row of `Sprache`.
struct DisplaySettings {
  bool Stil1 = false, Stil2 = false;  ///< either on: as a page
  bool EnumMeaning = false, ShowURLSeparate = false, ShowRating = false;
  bool RightToLeftFrom = false, RightToLeftTo = false;
  std::string StyleSheetPath;
};

/// A range of the note's characters.
struct MarkedRange {
  std::size_t start = 0;   ///< from 0
  std::size_t length = 0;  ///< 0: nothing is marked
};

/// Colours of the grid presentation, as 0xRRGGBB.
inline constexpr std::uint32_t headwordColour = 0x800000, pronunciationColour = 0x0000FF;

/// What the right side of the browser shows.
struct EntryDisplay {
  EntryAggregate aggregate;
  DisplaySettings settings;
  bool asPage = false;   ///< WebBrowser1 takes the place of labels and grids
  std::string page;      ///< where WebBrowser1 stands: path of the written page; empty: nowhere yet
  std::string pageText;  ///< what was written there; other browsers write to the same place

  std::string headword, headwordFont;
  Grid pronunciation;  ///< MSHFlexGridLautschrift: one cell
  std::string pronunciationFont;
  bool symbolFont = false;     ///< the phonetic font has a character set of its own
  std::string noteFont, note;  ///< Text2
  MarkedRange noteMark;
  std::string created;     ///< label of the date of creation
  std::string dictionary;  ///< label of the file's name; empty with one dictionary

  std::string picture;  ///< path; empty: image and zoom slider are hidden
  /// The picture, read; empty where there is none, where the page shows it, or where it can not be shown.
  std::shared_ptr<const platform::Picture> Image1;
  std::string pictureFailure;  ///< why it can not be shown
  std::string sound;           ///< path; empty: the play button is disabled

  Grid properties;         ///< MSHFlexGridKategorien
  Grid subjects;           ///< MSHFlexGridSachgebiete
  Grid meanings;           ///< MSHFlexGridWortbedBsp
  Grid meaningProperties;  ///< mshflexgridWortbedWKat
  Grid meaningSubjects;    ///< MSHFlexGridWortbedSachgebiet
  Grid links;              ///< MSHFlexGridURL; rows as in aggregate.links
  Grid crossReferences;    ///< MSHFlexGridQuerverweise; rows as in aggregate.crossReferences
  Grid attachments;        ///< dbGridAttachment; rows as in aggregate.attachments
};

/// Reads an entry of the current dictionary. An entry that is gone gives an empty aggregate.
EntryAggregate ReadFromDB_Woerterbuch(session::Session& s, std::int64_t id);
DisplaySettings readDisplaySettings(session::Session& s);

/// Fills the labels and the grids of the grid presentation from the aggregate.
void ShowAllToWordUniCode(frmWoerter& form);
/// Reads and shows the entry that the session has as its selected one.
void ShowEntry(frmWoerter& form);
/// Shows no entry.
void clearDisplay(frmWoerter& form);
/// Reads the picture of the aggregate, to be shown beside or below the entry. A failure is logged and hides
/// the picture.
void OpenPicture(frmWoerter& form);
/// Marks the search term of the session in the note.
void MarkFoundedWords(frmWoerter& form);

// The grids, each with its captions.
Grid MSHFlexGridKategorienDesign(const session::Session& s, const EntryAggregate& entry);
Grid MSHFlexGridSachgebieteDesign(const session::Session& s, const EntryAggregate& entry);
Grid MSHFlexGridWortbedBspDesign(const session::Session& s, const EntryAggregate& entry);
Grid mshflexgridWortbedWKatDesign(const session::Session& s, const EntryAggregate& entry);
Grid MSHFlexGridWortbedSachgebietDesign(const session::Session& s, const EntryAggregate& entry);
Grid MSHFlexGridURLDesign(const session::Session& s, const EntryAggregate& entry);
Grid MSHFlexGridQuerverweisDesign(const session::Session& s, const EntryAggregate& entry);
Grid DBGridAttachmentDesign(const session::Session& s, const EntryAggregate& entry);

// Clicks on rows of the grids; rows count from 0, one that is not there does nothing. They are commands:
// failures are reported, true when nothing failed.
/// Jumps to the entry referred to; an active filter is released, after it was told.
bool MSHFlexGridQuerverweise_Click(frmWoerter& form, std::size_t row);
/// Opens the address, if it is one that the desktop opens (ftp, goph, www, http, file).
bool MSHFlexGridURL_Click(frmWoerter& form, std::size_t row);
/// Opens the attached file.
bool dbGridAttachment_DblClick(frmWoerter& form, std::size_t row);

/// Shows the entry's picture on the full screen. As the click actions a command, like the next.
bool Image1_DblClick(frmWoerter& form);
/// Plays the entry's sound.
bool playEntrySound(frmWoerter& form);

}  // namespace browse
