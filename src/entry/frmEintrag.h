#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/recordset.h"
#include "entry/media_controls.h"
#include "entry/record.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// The entry editor without its window. A new entry is a real row from the moment a visit starts, so that
/// meanings, examples and properties are stored against its number before it is saved; a stub that is
/// abandoned is deleted again.
///
/// A visit: the caller sets EntryEditMode and the selection in the session and shows the form modally.
/// Whoever shows it calls Form_Activate, then what the user does, until `visible` is false. Every operation
/// here is a command: it reports what goes wrong through the error log, commits what it wrote and returns
/// whether all went well.
namespace entry {

enum class Tab {
  entry,
  meanings,
  examples,
  links,
  properties,
  meaningProperties,
  crossReferences,
  attachments,
  rules
};
inline constexpr std::size_t tabCount = 9;

enum class Focus { headword, pronunciation, linksTab, example, linkAddress, attachmentName, elsewhere };

struct Button {
  bool visible = false, enabled = false;
  std::string caption;
};

/// Assignments hang on the entry or on one of its meanings.
enum class Owner { entry, meaning };

struct frmEintrag : platform::Form {
  explicit frmEintrag(session::Session& s) : Form("frmEintrag"), session(s) {}

  session::Session& session;
  STWOERTERBUCH record;
  bool visible = false;
  bool savedInVisit = false;

  // Settings of the dictionary, read when a visit starts.
  bool BegriffPruefung = false, Blog = false, ShowMeaningsForEditing = false;
  std::string DateFormat;

  // The entry's own controls.
  std::string headwordBox, pronunciationBox, notesBox, priorityBox;
  bool inProgressBox = false;
  std::array<Button, 4> buttons;                    ///< Command1(0..3)
  std::string closeCaption;                         ///< Command7
  std::array<std::string, tabCount> captionLabels;  ///< the headword above each tab
  std::array<bool, tabCount> tabVisible{};
  int tabRows = 5;
  Tab tab = Tab::entry;
  Focus focus = Focus::headword;
  bool pronunciationShown = true, priorityShown = false, navigatorShown = false, pictureShown = false;
  bool playEnabled = false;
  PictureControls picture;
  SoundControls sound;
  int NextPriority = 1;

  // Lists of entries and catalogues.
  engine::Recordset navigator;     ///< Data1: where the editor stands
  engine::Recordset Data3, Data7;  ///< catalogues of properties and subject fields

  // Meanings and examples.
  engine::Recordset Adodc2;                            ///< meanings of the entry
  engine::Recordset Adodc5;                            ///< examples of the selected meaning
  std::string Adodc3;                                  ///< statement of the list of all meanings
  std::string meaningBox, exampleBox, translationBox;  ///< TextBox2, Text5, Text6
  std::string selectedMeaningLabel, PickedMeaning;
  std::int64_t SelectedMeaningId = 0, SelectedExampleId = 0;
  bool exampleCommandsEnabled = false, deleteExampleEnabled = false;

  // Assigned properties and subject fields.
  engine::Recordset Data13, Data9;        ///< of the entry
  engine::Recordset Data8, Data5;         ///< of the meaning `lWortbedeutungID`
  std::vector<std::string> List6, List5;  ///< subject fields of entry and meaning
  std::int64_t lWortbedeutungID = 0;
  std::string meaningPropertiesLabel;  ///< WindowedLabel2

  // What else hangs on the entry, filled when its tab is opened.
  engine::Recordset crossReferences;
  engine::Recordset links;                               ///< DBGridURL
  std::string linkNameBox, linkAddressBox, linkNoteBox;  ///< Text7, Text8, Text9
  int linkRatingBox = 0;                                 ///< Combo1, of the items 0 to 5
  std::int64_t SelectedLinkId = 0;
  std::int64_t EditedLinkId = 0;  ///< the link that the boxes show for editing, 0 for a new one
  bool openLinkArmed = false;     ///< a click on the selected link opens it
  engine::Recordset attachments;  ///< dbGridAttachment
  std::string attachmentNoteBox, attachmentFileBox, attachmentNameBox;  ///< Text10, Text11, Text12
  bool attachmentIsCopied = true;  ///< Option1: the file goes into the dictionary's folder; false is Option2
  std::int64_t SelectedAttachmentId = 0;
  std::int64_t EditedAttachmentId = 0;  ///< as EditedLinkId
};

/// Starts a visit in the session's EntryEditMode: binds the lists, makes a stub (modes 1, 2) or reads
/// CurrentEntryId (3, 4). The form is visible afterwards unless that failed.
bool Form_Activate(frmEintrag& form);
/// Gives up all lists. A visit must be over.
void Form_Unload(frmEintrag& form);

/// The headword box was typed into: the save commands are enabled while it is not empty.
void headwordChanged(frmEintrag& form, const std::string& text);
/// Enter in the headword box. In mode 1 a headword that exists already is asked about: go on, change it, or
/// edit the existing entry in place of the new one.
bool headwordEnter(frmEintrag& form);
/// Digits are taken into the priority box, all other keys are swallowed.
void priorityChanged(frmEintrag& form, const std::string& text);

/// A save command by its index; one that is not shown or not enabled does nothing. The form hides, or
/// goes on with the next stub. Where the row itself could not be written it stays as it is.
bool Command1(frmEintrag& form, int index);
/// Closes without saving; asks about an unsaved stub. False only for a failure: see `visible`.
bool Command7(frmEintrag& form);

enum class Step { first, previous, next, last };
/// Moves to another entry (mode 3), saving the one that is left.
bool moveNavigator(frmEintrag& form, Step step);
bool selectTab(frmEintrag& form, Tab tab);

// Steps that other operations of the layer share.
/// Shows the entry `lWortID`, which the record holds, in the controls.
void StichwortBedeutungNeuAnzeigen(frmEintrag& form, std::int64_t lWortID);
/// Puts the record into the controls.
void Assign_STWOERTERBUCH_Out(frmEintrag& form);
/// Binds the navigator to all main entries (modes 1, 3) or all entries (2, 4), or to the letter in force.
void SetData10(frmEintrag& form);
void SelectByLetter(frmEintrag& form);
/// Fills what the tab on show lists.
void refillTab(frmEintrag& form);

}  // namespace entry
