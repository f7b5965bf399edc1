#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/paths.h"
#include "engine/workspace.h"
#include "platform/desk.h"

/// The one record that all operations share, made in main and handed down by reference. Its fields bear
/// their documented names. Two sessions can live in one process.
namespace session {

/// The views that a reading statement may be for; the rewriter and the filter tell them apart.
enum class View {
  none,
  frmWoerter,
  frmFilter,
  frmPrint,
  frmStatist,
  frmStandardReports,
  frmEintrag,
  frmWordTrainer,
  frmSearch,
  frmTreeView,
  frmView,
  frmQuerverweise,
  frmExport
};

struct Folders {
  std::string ProgramPath;  ///< of the executable, as it is spelled
  std::string AppPath;      ///< of the executable; in upper case once the frame is initialised
  std::string AppDataPath;
  std::string AppConfigPath;
  std::string SystemDBPath;
};

struct Files {
  std::unique_ptr<engine::Workspace> Workspace;
  engine::Database CurrentDB;
  std::array<engine::Database, 6> ExtraDB;  ///< the first OpenDBCount - 1 are in use
  std::array<std::string, 6> MultiPaths;
  std::string CurrentDBPath;  ///< upper-cased; empty when none is open
  std::string DBVersion;
  std::string CurrentLocale;  ///< connect string used by compaction
  std::string DictFolder;     ///< "/" and the dictionary's path without its extension
  bool DBOpen = false;
  bool ReadOnlyMode = false;
  int OpenDBCount = 0;
  bool NewDBPending = false;
  std::string NewDBPath;
  bool NewDBCancelled = false;
  bool NewDBMadeFolder = false;             ///< the media folder was not there before
  std::vector<std::string> dictionaryList;  ///< the frame's list of the session's files
  int selectedDictionary = -1;
  base::Paths paths;
};

struct EntryFlow {
  int EntryEditMode = 0;  ///< 1 new main, 2 new sub, 3 edit main, 4 edit sub
  std::int64_t CurrentEntryId = 0;
  std::int64_t SelectedEntryId = 0;
  std::int64_t SelectedMainEntryId = 0;
  std::int64_t SavedMainEntryId = 0;
  int NewEntryLevel = 1;
  std::string CurrentBegriff;  ///< empty: nothing was saved
  std::string PresetBegriff;
  int EntryAction = 0;
};

struct Filter {
  std::string FilterKategorien, FilterSachgebiete;
  std::array<std::string, 6> FilterBuchstabe;  ///< FilterBuchstabe1 .. 6; the first empty: no letter
  bool AlleBuchstaben = true;
  /// Adds the active filter's clauses to a statement for a view; empty function: no filter yet.
  std::function<void(std::string& sql, View view)> ApplyFilterToSQL;
  std::function<bool()> FilterIsActive;
};

/// What a search hands to the views that show its hits.
struct Search {
  std::string SearchTerm;    ///< marked in the notes of the entries shown; empty: nothing is marked
  std::string SelectedWord;  ///< the word marked in the entry display, for the look-up
};

/// Settings of the open dictionary that are cached (its `Sprache` row holds all of them).
struct Project {
  int ProjectType = 1;
  bool UseAbbreviations = false;
  std::string PhoneticFont, FontFrom, FontTo, FontRemark;
  std::string IgnoreAtSort;
  bool blogChosen = false;  ///< the third panel of frmChooseDBType
};

/// Texts by position; see texts.h for the constants.
struct Texts {
  std::vector<std::string> MenuTxt, labelTxt, PrintTxt;
  std::vector<std::pair<std::int64_t, std::string>> DialogTxt;
  int UILanguage = 1;  ///< 1 German, 2 English
};

/// A window that is open inside the frame; see registerForm in routines.h.
struct OpenForm {
  int id = 0;
  std::string name;
  std::function<void()> unload;
};

/// What the bar below the menu shows of the open dictionary.
struct ProjectBar {
  bool visible = false;
  std::string from, to, description;  ///< of the `Sprache` row
  std::string flagFrom, flagTo;       ///< flag pictures of the two languages; empty: none
};

struct Shell {
  int BrowserCount = 0;
  std::string StatusText;
  int ViewKind = 0;
  bool SoundDevicePresent = false;
  bool FirstFrameShow = true;
  int LastMsgResult = 0;
  int toolTipKind = -1;
  std::string caption;           ///< of the frame
  bool dictionaryMenus = false;  ///< the items that need an open dictionary are enabled
  ProjectBar projectBar;
  bool configLoaded = false;                         ///< frmConfig stands ready, hidden
  std::chrono::steady_clock::time_point lastTurn{};  ///< of the message loop
  std::vector<std::string> mnuFilearray;             ///< captions "&1 PATH"
  std::vector<OpenForm> openForms;                   ///< in the order of opening, without the frame
  int lastFormId = 0;
  bool failed = false;     ///< LogError reported something since this was cleared
  bool dateOrder = false;  ///< lists by date of creation
  bool pendingRefresh = false;
  bool entryDisplayed = true;  ///< browsers gather and show the selected entry; off where no one looks
};

struct Session {
  explicit Session(platform::Desk d) : desk(d) {}
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  Folders folders;
  Files files;
  EntryFlow entry;
  Filter filter;
  Search search;
  Project project;
  Texts texts;
  Shell shell;
  platform::Desk desk;
  std::string CRLF = "\r\n";
};

}  // namespace session
