#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <unordered_set>
#include <vector>

#include "engine/recordset.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// Publishing without its window: one walk over the entries that hands every item to the writer of the
/// target.
namespace publish {

/// What a publication holds; every option is a check box of the dialog.
struct PrintOptions {
  bool pronunciation = true, note = true, examples = true;
  bool entryProperties = true, entrySubjects = true;
  bool meaningProperties = true, meaningSubjects = true;
  bool crossReferences = true, urls = true, pictures = true, sound = true, attachments = true,
       subEntries = true;
  bool horizontalRule = true;
  bool pagePerLetter = false;
  int entriesPerPage = 100;
  std::string encoding = "UTF-8";  ///< code of a row of Kodierungen: the files' character set
};

/// An option as the command line and the dialog name it.
struct OptionName {
  const char* name;
  bool PrintOptions::*member;
};
/// All options that can be switched off by name ("note", "examples", ...).
const std::vector<OptionName>& optionNames();

enum class PrintTarget { paper = 1, xml = 2, html = 3, std = 4, rss = 5 };

/// The settings of the Sprache and Autor rows that a run honours, read once at its start.
struct PublishSettings {
  std::string Kurzbeschreibung, UebersetzungVon, UebersetzungNach;
  std::string SchriftVon, SchriftNach, lautschrift;
  std::string AutorName, AutorWebURL, AutorEMail;
  bool EnumMeaning = true, VerwendungAbkuerzungen = false, ShowNewIcon = true, ShowURLSeparate = false,
       ShowRating = true, PictureAsURL = false, ObjectAsAltText = true;
  bool UseRelativPath = true, UseWebsitePath = false, UseAbsolutFilePath = false;
  int NewNumberOfDays = 7;
};

/// The entries of one file that have something hanging on them.
struct RelatedEntries {
  std::unordered_set<std::int64_t> links, attachments, crossReferences, parents;
};

struct frmPrint : platform::Form {
  explicit frmPrint(session::Session& s) : platform::Form("frmPrint"), session(s) {}

  session::Session& session;
  PrintTarget target = PrintTarget::html;
  PrintOptions options;
  PublishSettings settings;

  engine::Recordset firstLevel;                   ///< PrintBegriffeErsteEbene
  engine::Recordset subEntries;                   ///< PrintBegriffeFolgeEbenen
  engine::Recordset crossLinkList;                ///< main entries in their order; positions give pages
  std::map<std::string, RelatedEntries> related;  ///< by upper-cased path; "" when one file is open
  std::int64_t entryCount = 0;
  std::vector<std::string> writtenFiles;
};

/// Prepares the record sets; false (after telling so) when there are no entries to publish.
bool PrintSelectbyLetter(frmPrint& form);
/// Publishes to the file that the save dialog names. Throws Error for failing files or rows, 32755 when
/// the dialog is cancelled; files written so far stay and stand in writtenFiles.
void PrintStart(frmPrint& form);
/// The command: selects and runs under the error log's guard; true when a publication was written.
bool publishNow(frmPrint& form);
/// Preselects and hides options by project type, as the dialog does when it opens.
void applyProjectType(frmPrint& form);

}  // namespace publish
