#include "desktop/shell/commands.h"

#include "entry/start_browser.h"
#include "shell/session/routines.h"

namespace desktop {
namespace {

struct Command {
  const char* item;
  bool (*run)(frame::frmMDI&);
};

bool help(frame::frmMDI& form) {
  session::ShowHelpTopic(form.session, "");
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
    {"mnuNewEntry", frame::mnuNewEntry},
    {"mnuNewSubEntry", frame::mnuNewSubEntry},
    {"mnuEditEntry", frame::mnuEditEntry},
    {"mnuDeleteEntry", frame::mnuDeleteEntry},
    {"mnuRelinkEntry", frame::mnuRelinkEntry},
    {"mnuPopUpAdd", frame::mnuNewSubEntry},
    {"mnuPopUpAddFirstLevelEntry", frame::mnuNewEntry},
    {"mnuPopUpEdit", frame::mnuEditEntry},
    {"mnuPopUpDelete", frame::mnuDeleteEntry},
    {"mnuPopUpRelink", frame::mnuRelinkEntry},
    {"mnuFastEntry", frame::mnuFastEntry},
    {"mnuKopieren", frame::mnuKopieren},
    {"mnuCopyPicture", frame::mnuCopyPicture},
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
    {"mnuInverseTranslation", frame::mnuInverseTranslation},
    {"mnuProperties", frame::mnuProperties},
    {"mnuSubjects", frame::mnuSubjects},
    {"mnuSoundInfo", frame::mnuSoundInfo},
    {"mnuNewBrowser", newBrowser},
    {"mnuHTMLHelp", help},
    {"mnuHelpContent", help},
    {"mnuVocariumImWWW", webSite},
};

}  // namespace

std::function<void(frame::frmMDI&)> commandOf(const std::string& menuItem) {
  for (const Command& command : commands)
    if (menuItem == command.item) return [run = command.run](frame::frmMDI& form) { run(form); };
  return {};
}

}  // namespace desktop
