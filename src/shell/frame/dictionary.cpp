#include <algorithm>
#include <filesystem>

#include "browse/clipboard.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "entry/pictures.h"
#include "shell/frame/firstent.h"
#include "shell/frame/frmMDI.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "shell/session/settings.h"
#include "store/close.h"
#include "store/create.h"
#include "store/dialogs.h"
#include "store/files.h"
#include "store/flat.h"
#include "store/inverse.h"
#include "store/open.h"
#include "store/project.h"
#include "store/services.h"

namespace frame {
namespace {

constexpr const char* formName = "frmMDI";

template <class Operation>
bool command(frmMDI& form, Operation&& operation) {
  return session::guard(form.session, formName, std::forward<Operation>(operation));
}

bool closedForAnother(session::Session& s) {
  return s.files.OpenDBCount < 1 ||
         store::closedAfterQuestion(s, dialog::close_open_dictionary, label::program_name);
}

void showOpened(frmMDI& form) {
  store::RefreshProjectBar(form.session);
  ShowWordInstance(form);
}

}  // namespace

bool mnuOpen(frmMDI& form) {
  session::Session& s = form.session;
  return command(form, [&] {
    if (!closedForAnother(s)) return false;
    const platform::FileChoice choice =
        session::askOpenFile(s, store::openDialog(s, label::open_file_title, store::fileMustExist));
    if (!store::openDictionary(s, choice.path, choice.readOnly)) return false;
    session::UpdateMenu(s);
    showOpened(form);
    return true;
  });
}

bool mnuFilearray(frmMDI& form, int index) {
  session::Session& s = form.session;
  return command(form, [&] {
    const std::string path = index == -1 ? session::trimmedValue(session::ReadIniValue(s, "LastDB", "LastDB"))
                                         : session::trimmedValue(session::pathOfCaption(
                                               s.shell.mnuFilearray.at(static_cast<std::size_t>(index) - 1)));
    if (!closedForAnother(s)) return false;
    if (!store::openDictionary(s, path, false)) return false;
    showOpened(form);
    return true;
  });
}

bool mnuMultiOpen(frmMDI& form) {
  session::Session& s = form.session;
  return command(form, [&] {
    if (!store::hasRoomForDictionary(s)) return false;
    const platform::FileChoice choice =
        session::askOpenFile(s, store::openDialog(s, label::open_file_title, store::fileMustExist));
    if (!store::addDictionary(s, choice.path, choice.readOnly)) return false;
    session::UpdateMenu(s);
    store::RefreshProjectBar(s);
    return true;
  });
}

bool mnuClose(frmMDI& form) {
  session::Session& s = form.session;
  // Settings that can not be written keep no dictionary open.
  const bool written = command(form, [&] { session::WriteIniFile(s); });
  return command(form, [&] { store::CloseCurrentDB(s); }) && written;
}

bool mnuKopieren(frmMDI& form) {
  return browse::ExportEntryToClipboard(form.session);
}
bool mnuCopyPicture(frmMDI& form) {
  session::Session& s = form.session;
  if (form.active == nullptr) return false;
  return session::guard(s, "frmMDI", [&] {
    const browse::EntryDisplay& display = form.active->display;
    platform::Picture read;
    // A page shows its picture itself.
    if (display.Image1 == nullptr && !display.picture.empty())
      read = entry::loadPicture(s, display.aggregate.entry.Bild);
    return entry::mnuCopyPicture(s, display.Image1 != nullptr ? *display.Image1 : read);
  });
}
bool mnuCopyDB(frmMDI& form) {
  return command(form, [&] { store::CopyDB(form.session); });
}
bool mnuCompact(frmMDI& form) {
  return command(form, [&] { store::CompactDB(form.session); });
}
bool mnuCompactCurrentDB(frmMDI& form) {
  return command(form, [&] { store::CompactCurrentDB(form.session, false); });
}
bool mnurepair(frmMDI& form) {
  return command(form, [&] { store::RepairDB(form.session); });
}
bool mnuInverseTranslation(frmMDI& form) {
  return command(form, [&] { return store::InverseTranslation(form.session); });
}
bool mnuBuildReportTables(frmMDI& form) {
  return command(form, [&] { return store::mnuBuildReportTables(form.session); });
}
bool mnuBuildReportTablesDelta(frmMDI& form) {
  return command(form, [&] { return store::mnuBuildReportTablesDelta(form.session); });
}

browse::frmWoerter* ShowWordInstance(frmMDI& form) {
  session::Session& s = form.session;
  if (s.shell.BrowserCount >= browserLimit) {
    session::showMessage(s, dialog::browser_limit, platform::box::exclamation);
    session::ShowStatus(s, "", false);
    return nullptr;
  }
  ++s.shell.BrowserCount;
  s.filter.AlleBuchstaben = true;
  // The first browser of a dictionary: what was filtered in another one says nothing here.
  if (form.browsers.empty()) browse::ResetFilterDialog(form.filter);
  browse::frmWoerter* browser =
      form.browsers.emplace_back(std::make_unique<browse::frmWoerter>(s)).form.get();
  form.browsers.back().id =
      session::registerForm(s, "frmWoerter", [&form, browser] { closeBrowser(form, browser); });
  browser->releaseFilter = [&form, browser] {
    browse::resetFilter(form.filter);
    browse::refreshAfterFilter(form.filter, *browser);
  };
  form.active = browser;
  browse::FormInit(*browser);
  return browser;
}

void browserActivated(frmMDI& form, browse::frmWoerter& browser) {
  form.active = &browser;
  if (!form.session.shell.pendingRefresh) return;
  command(form, [&] { browse::FormInit(browser); });
}

bool onActiveBrowser(frmMDI& form, bool (*command)(browse::frmWoerter&)) {
  if (form.active == nullptr) return false;
  const bool done = command(*form.active);
  if (form.active != nullptr && form.active->closed) closeBrowser(form, form.active);
  return done;
}

void closeBrowser(frmMDI& form, const browse::frmWoerter* browser) {
  const auto found = std::ranges::find_if(
      form.browsers, [&](const OpenBrowser& each) { return each.form.get() == browser; });
  if (found == form.browsers.end()) return;
  session::forgetForm(form.session, found->id);
  form.browsers.erase(found);
  if (form.active == browser) form.active = form.browsers.empty() ? nullptr : form.browsers.back().form.get();
  --form.session.shell.BrowserCount;
}

}  // namespace frame
