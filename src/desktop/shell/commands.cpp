#include "desktop/shell/commands.h"

#include "browse/commands.h"
#include "entry/start_browser.h"
#include "shell/session/routines.h"

namespace desktop {
namespace {

struct Command {
  const char* item;
  bool (*run)(frame::frmMDI&);
};

bool helpContents(frame::frmMDI& form) {
  session::ShowHelpTopic(form.session, "");
  return true;
}
bool help(frame::frmMDI& form) {
  session::ShowHelpTopic(form.session, form.active != nullptr ? "frmWoerter" : "");
  return true;
}
bool newBrowser(frame::frmMDI& form) {
  return frame::ShowWordInstance(form) != nullptr;
}

bool webSite(frame::frmMDI& form) {
  return entry::UserControl_Click(form.session, "frmMDI", entry::Opens::webSite);
}

constexpr Command commands[] = {
    {"mnuNew", frame::mnuNew},
    {"mnuOpen", frame::mnuOpen},
    {"mnuMultiOpen", frame::mnuMultiOpen},
    {"mnuClose", frame::mnuClose},
    {"mnuCopyDB", frame::mnuCopyDB},
    {"mnuCompact", frame::mnuCompact},
    {"mnuCompactCurrentDB", frame::mnuCompactCurrentDB},
    {"mnurepair", frame::mnurepair},
    {"mnuBackup", frame::mnuBackup},
    {"mnuExit", frame::mnuExit},
    {"mnuFastEntry", frame::mnuFastEntry},
    {"mnuKopieren", frame::mnuKopieren},
    {"mnuCopyPicture", frame::mnuCopyPicture},
    {"mnuGoto", frame::mnuGoto},
    {"mnuSearchEntry", frame::mnuSearchEntry},
    {"mnuChoice", frame::mnuChoice},
    {"mnuSaveFilter", frame::mnuSaveFilter},
    {"mnuNewHistory", frame::mnuNewHistory},
    {"mnuChangeHistory", frame::mnuChangeHistory},
    {"mnuServicesOverview", frame::mnuServicesOverview},
    {"mnuBuildMetaSearchIndex", frame::mnuBuildMetaSearchIndex},
    {"mnuBuildSortBegriff", frame::mnuBuildSortBegriff},
    {"mnuBuildReportTables", frame::mnuBuildReportTables},
    {"mnuBuildReportTablesDelta", frame::mnuBuildReportTablesDelta},
    {"mnuDeleteByDate", frame::mnuDeleteByDate},
    {"mnuDeleteByProperty", frame::mnuDeleteByProperty},
    {"mnuDeleteBySubject", frame::mnuDeleteBySubject},
    {"mnuInverseTranslation", frame::mnuInverseTranslation},
    {"mnuProperties", frame::mnuProperties},
    {"mnuSubjects", frame::mnuSubjects},
    {"mnuAutomatic", frame::mnuAutomatic},
    {"mnuDeleteEigenschaft", frame::mnuDeleteEigenschaft},
    {"mnuDeleteSachgebiet", frame::mnuDeleteSachgebiet},
    {"mnuEnvironment", frame::mnuEnvironment},
    {"mnuVocariumConfig", frame::mnuVocariumConfig},
    {"mnuSoundInfo", frame::mnuSoundInfo},
    {"mnuNewBrowser", newBrowser},
    {"mnuHTMLHelp", help},
    {"mnuHelpContent", helpContents},
    {"mnuVocariumImWWW", webSite},
};

struct EntryCommand {
  const char* item;
  bool (*run)(browse::frmWoerter&);
};
constexpr EntryCommand entryCommands[] = {
    {"mnuNewEntry", browse::mnuNewEntry},
    {"mnuNewSubEntry", browse::mnuNewSubEntry},
    {"mnuEditEntry", browse::mnuEditEntry},
    {"mnuDeleteEntry", browse::mnuDeleteEntry},
    {"mnuRelinkEntry", browse::mnuRelinkEntry},
    {"mnuPopUpAdd", browse::mnuNewSubEntry},
    {"mnuPopUpAddFirstLevelEntry", browse::mnuNewEntry},
    {"mnuPopUpEdit", browse::mnuEditEntry},
    {"mnuPopUpDelete", browse::mnuDeleteEntry},
    {"mnuPopUpRelink", browse::mnuRelinkEntry},
};

struct ViewCommand {
  const char* item;
  int ViewKind;
  bool (*show)(frame::frmMDI&, int);
};
constexpr ViewCommand viewCommands[] = {
    {"mnuViewGeneral", 1, frame::showTable},
    {"mnuViewEntriesAttributes", 2, frame::showTable},
    {"mnuViewEntriesSubjects", 3, frame::showTable},
    {"mnuViewMeaningsAttributes", 4, frame::showTable},
    {"mnuViewMeaningsSubjects", 5, frame::showTable},
    {"mnuViewEntriesMeanings", 6, frame::showTable},
    {"mnuViewAllInformation", 7, frame::showTable},
    {"mnuViewEntryURL", 8, frame::showTable},
    {"mnuViewEntriesCrossLinks", 9, frame::showTable},
    {"mnuViewEntriesWithoutMeanings", 10, frame::showTable},
    {"mnuViewAttributeEntry", 0, frame::showTree},
    {"mnuViewFieldEntry", 1, frame::showTree},
    {"mnuViewEntryCrosslinks", 2, frame::showTree},
};

}  // namespace

std::function<void(frame::frmMDI&)> commandOf(const std::string& menuItem) {
  for (const Command& command : commands)
    if (menuItem == command.item) return [run = command.run](frame::frmMDI& form) { run(form); };
  for (const EntryCommand& command : entryCommands)
    if (menuItem == command.item)
      return [run = command.run](frame::frmMDI& form) { frame::onActiveBrowser(form, run); };
  for (const ViewCommand& command : viewCommands)
    if (menuItem == command.item)
      return [show = command.show, kind = command.ViewKind](frame::frmMDI& form) { show(form, kind); };
  return {};
}

}  // namespace desktop
