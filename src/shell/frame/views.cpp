// Search, look-up, trees and tables: what finds an entry for the browser to jump to.

#include <algorithm>

#include "browse/commands.h"
#include "browse/frmSearch.h"
#include "browse/frmSearchSelectedWord.h"
#include "browse/frmTreeView.h"
#include "browse/frmView.h"
#include "catalogue/dialog.h"
#include "shell/frame/frmMDI.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"

namespace frame {
namespace {

/// The relay of the browser that is active when the jump comes, not when the dialog opened.
std::function<void()> relay(frmMDI& form) {
  return [&form] {
    if (form.active == nullptr) ShowWordInstance(form);
    if (form.active != nullptr) browse::Command6(*form.active);
  };
}

bool search(frmMDI& form, browse::SearchMode mode) {
  return session::guard(form.session, "frmSearch", [&] {
    browse::frmSearch dialog(form.session, mode);
    dialog.pressCommand6 = relay(form);
    if (!browse::Form_Load(dialog)) return false;
    form.session.desk.boxes.showModal(dialog);
    return true;
  });
}

template <class Form>
Form& keepOpen(frmMDI& frame, std::unique_ptr<Form> form) {
  Form& shown = *form;
  OpenView& open = frame.views.emplace_back();
  open.form = std::move(form);
  open.id =
      session::registerForm(frame.session, shown.formName, [&frame, &shown] { closeView(frame, shown); });
  return shown;
}

}  // namespace

bool mnuGoto(frmMDI& form) {
  return search(form, browse::SearchMode::goTo);
}
bool mnuSearchEntry(frmMDI& form) {
  return search(form, browse::SearchMode::full);
}

bool lookUp(frmMDI& form, const std::string& word) {
  return session::guard(form.session, "frmSearchSelectedWord", [&] {
    form.session.search.SelectedWord = word;
    browse::frmSearchSelectedWord dialog(form.session);
    dialog.pressCommand6 = relay(form);
    if (!browse::Form_Load(dialog)) return false;
    form.session.desk.boxes.showModal(dialog);
    return true;
  });
}

bool showTable(frmMDI& form, int ViewKind) {
  session::Session& s = form.session;
  return session::guard(s, "frmView", [&] {
    if (s.shell.BrowserCount >= browserLimit) {
      session::showMessage(s, dialog::browser_limit, platform::box::exclamation);
      session::ShowStatus(s, "", false);
      return false;
    }
    s.shell.ViewKind = ViewKind;
    auto view = std::make_unique<browse::frmView>(s);
    if (!browse::Form_Load(*view)) return false;
    keepOpen(form, std::move(view));
    return true;
  });
}

bool showTree(frmMDI& form, int ViewKind) {
  session::Session& s = form.session;
  return session::guard(s, "frmTreeView", [&] {
    s.shell.ViewKind = ViewKind;
    auto tree = std::make_unique<browse::frmTreeView>(s);
    tree->pressCommand6 = relay(form);
    tree->clearSearchBox = [&form] {
      if (form.active != nullptr) form.active->Text3.clear();
    };
    if (!browse::BuildTree(*tree)) return false;
    keepOpen(form, std::move(tree));
    return true;
  });
}

void closeView(frmMDI& form, const platform::Form& view) {
  const auto found =
      std::ranges::find_if(form.views, [&](const OpenView& each) { return each.form.get() == &view; });
  if (found == form.views.end()) return;
  session::forgetForm(form.session, found->id);
  if (form.viewClosing) form.viewClosing(view);
  form.views.erase(found);
}

}  // namespace frame
