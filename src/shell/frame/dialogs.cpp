// Commands that show a dialog. The browser is built anew behind those that changed entries.

#include <functional>

#include "catalogue/dialog.h"
#include "entry/frmAutokat.h"
#include "entry/frmDeleteEigenschaftSach.h"
#include "entry/frmDeleteEintragEigenschaftSach.h"
#include "entry/frmDeleteEntries.h"
#include "entry/frmEnvironment.h"
#include "entry/frmFastEntry.h"
#include "entry/frmHistory.h"
#include "entry/frmNewKateg.h"
#include "entry/frmServices.h"
#include "entry/frmSoundInfo.h"
#include "shell/frame/frmConfig.h"
#include "shell/frame/frmMDI.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "store/frmBackup.h"

namespace frame {
namespace {

void load(store::frmBackup& form) {
  store::Form_Load(form);
}
bool load(entry::frmFastEntry& form) {
  return entry::Form_Load(form);
}
bool load(entry::frmHistory& form) {
  return entry::Form_Load(form);
}
bool load(entry::frmNewKateg& form) {
  return entry::Form_Load(form);
}
void load(entry::frmDeleteEntries& form) {
  entry::Form_Load(form);
}

bool load(entry::frmAutokat& form) {
  return entry::Form_Load(form);
}
bool load(entry::frmDeleteEigenschaftSach& form) {
  return entry::Form_Load(form);
}
bool load(entry::frmDeleteEintragEigenschaftSach& form) {
  return entry::Form_Load(form);
}
bool load(entry::frmEnvironment& form) {
  return entry::Form_Load(form);
}
bool load(entry::frmSoundInfo& form) {
  return entry::Form_Load(form);
}
bool load(frmConfig& form) {
  return Form_Load(form);
}

void refreshWhereDue(frmMDI& form) {
  if (form.active != nullptr) browserActivated(form, *form.active);
}

/// Loads a dialog's form and shows it; its guard is the frame's, its own commands have theirs.
template <class Form, class... Arguments>
bool shown(frmMDI& frame, Arguments... arguments) {
  return session::guard(frame.session, "frmMDI", [&] {
    Form form(frame.session, arguments...);
    if constexpr (std::is_same_v<decltype(load(form)), bool>) {
      if (!load(form)) return false;
    } else {
      load(form);
    }
    frame.session.desk.boxes.showModal(form);
    refreshWhereDue(frame);
    return true;
  });
}

/// A dialog that leaves an entry to jump to in CurrentEntryId.
bool history(frmMDI& frame, bool isNew) {
  session::EntryFlow& flow = frame.session.entry;
  const std::int64_t before = std::exchange(flow.CurrentEntryId, 0);
  const bool done = shown<entry::frmHistory>(frame, isNew);
  if (flow.CurrentEntryId == 0) {
    flow.CurrentEntryId = before;
    return done;
  }
  if (frame.active == nullptr) return false;
  return session::guard(frame.session, "frmHistory", [&] { browse::SkipToEntry(*frame.active); }) && done;
}

template <class Operation>
bool service(frmMDI& frame, Operation operation) {
  entry::frmServices form(frame.session);
  const bool done = operation(form);
  if (done) frame.session.shell.pendingRefresh = true;
  refreshWhereDue(frame);
  return done;
}

}  // namespace

bool mnuBackup(frmMDI& form) {
  return shown<store::frmBackup>(form);
}

bool mnuServicesOverview(frmMDI& form) {
  return session::guard(form.session, "frmServices", [&] {
    entry::frmServices services(form.session);
    form.session.desk.boxes.showModal(services);
    form.session.shell.pendingRefresh = true;
    refreshWhereDue(form);
  });
}

bool mnuBuildMetaSearchIndex(frmMDI& form) {
  return service(form, [](entry::frmServices& services) { return entry::GenerateMetaSearchIndex(services); });
}
bool mnuBuildSortBegriff(frmMDI& form) {
  return service(form, [](entry::frmServices& services) { return entry::GenerateSortBegriff(services); });
}
bool mnuFastEntry(frmMDI& form) {
  return shown<entry::frmFastEntry>(form);
}
bool mnuNewHistory(frmMDI& form) {
  return history(form, true);
}
bool mnuChangeHistory(frmMDI& form) {
  return history(form, false);
}
bool mnuDeleteByDate(frmMDI& form) {
  return shown<entry::frmDeleteEntries>(form);
}
bool mnuProperties(frmMDI& form) {
  return shown<entry::frmNewKateg>(form, true);
}
bool mnuSubjects(frmMDI& form) {
  return shown<entry::frmNewKateg>(form, false);
}
bool mnuAutomatic(frmMDI& form) {
  return shown<entry::frmAutokat>(form);
}
bool mnuDeleteEigenschaft(frmMDI& form) {
  return shown<entry::frmDeleteEigenschaftSach>(form, true);
}
bool mnuDeleteSachgebiet(frmMDI& form) {
  return shown<entry::frmDeleteEigenschaftSach>(form, false);
}
bool mnuDeleteByProperty(frmMDI& form) {
  return shown<entry::frmDeleteEintragEigenschaftSach>(form, true);
}
bool mnuDeleteBySubject(frmMDI& form) {
  return shown<entry::frmDeleteEintragEigenschaftSach>(form, false);
}
bool mnuEnvironment(frmMDI& form) {
  return shown<entry::frmEnvironment>(form);
}
bool mnuSoundInfo(frmMDI& form) {
  return shown<entry::frmSoundInfo>(form);
}
bool mnuVocariumConfig(frmMDI& form) {
  return shown<frmConfig>(form, std::ref(form.filter));
}

bool mnuChoice(frmMDI& form) {
  session::Session& s = form.session;
  return session::guard(s, "frmFilter", [&] {
    if (form.active == nullptr) return false;
    if (browse::FilterIsActive(form.filter)) {
      if (!session::confirmed(s, dialog::filter_is_active)) return false;
      browse::resetFilter(form.filter);
    }
    browse::Form_Activate(form.filter);
    s.desk.boxes.showModal(form.filter);
    browse::refreshAfterFilter(form.filter, *form.active);
    return true;
  });
}
bool mnuSaveFilter(frmMDI& form) {
  return form.active != nullptr &&
         session::guard(form.session, "frmWoerter", [&] { return browse::saveFiltered(*form.active); });
}

}  // namespace frame
