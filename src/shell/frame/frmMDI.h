#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "browse/frmFilter.h"
#include "browse/frmWoerter.h"
#include "shell/frame/menus.h"
#include "shell/session/session.h"

/// The application frame: the process from start to end, and the commands that create, open and close
/// dictionaries. Commands guard themselves: what fails was reported when they return false.
namespace frame {

/// An entry browser and its number among the open windows.
struct OpenBrowser {
  std::unique_ptr<browse::frmWoerter> form;
  int id = 0;
};

/// A tree or table view that is open, and its number among the open windows.
struct OpenView {
  std::unique_ptr<platform::Form> form;  ///< a browse::frmTreeView or browse::frmView
  int id = 0;
};

/// The main window. It owns the entry browsers; its window shows what stands here.
struct frmMDI {
  explicit frmMDI(session::Session& s) : session(s), filter(s) {}
  frmMDI(const frmMDI&) = delete;
  frmMDI& operator=(const frmMDI&) = delete;

  session::Session& session;
  browse::frmFilter filter;  ///< stays loaded, hidden
  std::vector<MenuItem> menu;
  std::vector<OpenBrowser> browsers;     ///< in the order of opening
  browse::frmWoerter* active = nullptr;  ///< the browser that commands are for; null without any
  std::vector<OpenView> views;
  std::function<void(const platform::Form&)> viewClosing;  ///< its window goes first; empty: there is none
  std::string helpFile;                                    ///< empty: there is none
  bool unloaded = false;                                   ///< the process ends
};

inline constexpr int browserLimit = 5;

/// Captions of the splash window, which shows for a second.
inline constexpr const char* splashSubtitle = "Wörterbücher, Enzyklopädien, Wissensmanagement";
inline constexpr int splashMilliseconds = 1000;

/// Before the frame: folders, system database, first settings, secured workspace, sound device.
/// `programPath` is the folder of the executable.
bool frmStart_Load(session::Session& s, const std::string& programPath);
/// Takes the folders from the settings file, in upper case, and creates the workspace anew.
bool frmMDI_Initialize(frmMDI& form);
/// Texts, menus, status bar, recent files.
bool frmMDI_Load(frmMDI& form);
/// Menus, labels and messages in another language (1 German, 2 English), for a start that asks for one.
bool chooseLanguage(frmMDI& form, int language);
/// Reopens the last dictionary, once after start.
bool frmMDI_Activate(frmMDI& form);

/// Opens a new entry browser if the limit allows; returns it, or null after the refusal.
browse::frmWoerter* ShowWordInstance(frmMDI& form);
/// A browser came to the front: commands are for it from now on. It is built anew where that is due.
void browserActivated(frmMDI& form, browse::frmWoerter& browser);
/// Carries out a command of the active browser, as of browse/commands.h; false without a browser.
bool onActiveBrowser(frmMDI& form, bool (*command)(browse::frmWoerter&));
/// Forgets a browser that was closed.
void closeBrowser(frmMDI& form, const browse::frmWoerter* browser);

// The commands of the menu and the toolbar.

bool mnuNew(frmMDI& form);
bool mnuOpen(frmMDI& form);
bool mnuMultiOpen(frmMDI& form);
/// A recent file by its number in the menu, from 1; -1 is the last dictionary of the settings file.
bool mnuFilearray(frmMDI& form, int index);
bool mnuClose(frmMDI& form);
/// Puts the current entry on the clipboard as text.
bool mnuKopieren(frmMDI& form);
/// Puts the picture of the active browser's entry on the clipboard.
bool mnuCopyPicture(frmMDI& form);
bool mnuCopyDB(frmMDI& form);
bool mnuCompact(frmMDI& form);
bool mnuCompactCurrentDB(frmMDI& form);
bool mnurepair(frmMDI& form);
bool mnuBuildReportTables(frmMDI& form);
bool mnuBuildReportTablesDelta(frmMDI& form);

// Dialogs.
bool mnuBackup(frmMDI& form);
bool mnuServicesOverview(frmMDI& form);
bool mnuBuildMetaSearchIndex(frmMDI& form);
bool mnuBuildSortBegriff(frmMDI& form);
bool mnuFastEntry(frmMDI& form);
bool mnuNewHistory(frmMDI& form);
bool mnuChangeHistory(frmMDI& form);
bool mnuDeleteByDate(frmMDI& form);
bool mnuProperties(frmMDI& form);
bool mnuSubjects(frmMDI& form);
bool mnuAutomatic(frmMDI& form);
bool mnuDeleteEigenschaft(frmMDI& form);
bool mnuDeleteSachgebiet(frmMDI& form);
bool mnuDeleteByProperty(frmMDI& form);
bool mnuDeleteBySubject(frmMDI& form);
bool mnuEnvironment(frmMDI& form);
bool mnuVocariumConfig(frmMDI& form);
bool mnuSoundInfo(frmMDI& form);
/// Releases an active filter after a question, then shows the filter dialog.
bool mnuChoice(frmMDI& form);
/// Saves what the active browser lists as a dictionary of its own.
bool mnuSaveFilter(frmMDI& form);
/// Makes a dictionary whose entries are the meanings of another one.
bool mnuInverseTranslation(frmMDI& form);

// Ways to an entry.
bool mnuGoto(frmMDI& form);
bool mnuSearchEntry(frmMDI& form);
/// Looks a word up that is marked in the entry display.
bool lookUp(frmMDI& form, const std::string& word);
/// Opens a table view (1 to 10) or a tree view (0 to 2); tables obey the limit of browsers.
bool showTable(frmMDI& form, int ViewKind);
bool showTree(frmMDI& form, int ViewKind);
/// Forgets a view that was closed.
void closeView(frmMDI& form, const platform::Form& view);

/// Ends the program, which a close of the frame's window does too; offers a backup when the last one is
/// more than 15 days old. False when the program runs on.
bool mnuExit(frmMDI& form);

}  // namespace frame
