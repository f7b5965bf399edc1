#include "desktop/shell/main_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <algorithm>
#include <set>

#include "catalogue/label.h"
#include "desktop/application.h"
#include "desktop/browse/browser_window.h"
#include "desktop/browse/view_windows.h"
#include "desktop/kit/dialog.h"
#include "desktop/kit/icon.h"
#include "desktop/kit/text.h"
#include "desktop/shell/about.h"
#include "desktop/shell/commands.h"
#include "desktop/shell/menu_tree.h"
#include "desktop/shell/welcome.h"
#include "shell/session/texts.h"

namespace desktop {
namespace {

constexpr const char* formName = "frmMDI";
/// Items that concern windows alone.
const std::set<std::string> windowItems = {"mnuCascade", "mnuTile", "mnuTileVertical", "mnuAbout"};

}  // namespace

MainWindow::MainWindow(Application& app) : app_(app), commanded_(windowItems) {
  setObjectName(formName);
  setWindowTitle("Vocarium");
  setWindowIcon(icon(app_.session, "vocarium"));
  area_ = new QMdiArea(this);
  area_->setViewMode(QMdiArea::SubWindowView);
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  views_ = new QStackedWidget(this);
  views_->addWidget(area_);
  views_->addWidget(welcome_ = new Welcome(app));
  setCentralWidget(views_);
  status_ = new QLabel(this);
  status_->setObjectName("StatusBar");
  status_->setText(qt(session::labelText(app_.session, label::status_ready)));
  statusBar()->addWidget(status_, 1);
  app_.desk.frame = this;
  app_.desk.status = status_;
  buildMenus();
  buildToolBar();
  buildProjectBar();
  resize(1180, 760);
  restorePlace(app_.session, *this, formName);
  QObject::connect(area_, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* window) {
    auto* browser = window == nullptr ? nullptr : dynamic_cast<BrowserWindow*>(window->widget());
    if (browser == nullptr || app_.frame.active == &browser->form()) return;
    app_.gate.run(formName, [&] { frame::browserActivated(app_.frame, browser->form()); });
  });
  id_ = app_.gate.addWindow(formName, [this] { draw(); });
  app_.gate.idle = [this] { leave(); };
  // A view's grid reads its form while it paints, so its window must not outlive that by a single event.
  app_.frame.viewClosing = [this](const platform::Form& form) { viewClosing(form); };
  app_.gate.draw();
}

MainWindow::~MainWindow() {
  app_.gate.idle = {};
  app_.frame.viewClosing = {};
  app_.gate.removeWindow(id_);
}

void MainWindow::buildMenus() {
  for (const char* name : menuTree().front().items) menuBar()->addMenu(buildMenu(name));
  buildMenu("mnuPopUpEditAddDelete");
  for (const Shortcut& shortcut : menuShortcuts())
    if (const auto found = actions_.find(shortcut.item); found != actions_.end())
      found->second->setShortcut(QKeySequence(shortcut.keys));
}

QMenu* MainWindow::buildMenu(const std::string& name) {
  const Menu* menu = nullptr;
  for (const Menu& each : menuTree())
    if (name == each.name) menu = &each;
  auto* made = new QMenu(this);
  menus_[name] = made;
  made->setObjectName(qt(name));
  made->menuAction()->setObjectName(qt(name));
  for (const frame::MenuItem& item : app_.frame.menu)
    if (item.name == name) made->setTitle(qt(item.caption));
  actions_[name] = made->menuAction();
  if (name == "mnuFilearray") recent_ = made;
  if (menu == nullptr) return made;
  for (const std::string item : menu->items) {
    const bool isMenu =
        item == "mnuFilearray" || std::any_of(menuTree().begin(), menuTree().end(),
                                              [&](const Menu& each) { return item == each.name; });
    if (item == "-")
      made->addSeparator();
    else if (isMenu)
      made->addMenu(buildMenu(item));
    else
      made->addAction(buildAction(item));
  }
  return made;
}

QAction* MainWindow::buildAction(const std::string& item) {
  auto* action = new QAction(this);
  action->setObjectName(qt(item));
  actions_[item] = action;
  for (const frame::MenuItem& each : app_.frame.menu)
    if (each.name == item) action->setText(qt(each.caption));
  if (item == "mnuCascade") {
    QObject::connect(action, &QAction::triggered, area_, &QMdiArea::cascadeSubWindows);
  } else if (item == "mnuTile" || item == "mnuTileVertical") {
    QObject::connect(action, &QAction::triggered, this, [this, down = item == "mnuTile"] { tile(down); });
  } else if (item == "mnuAbout") {
    QObject::connect(action, &QAction::triggered, this,
                     [this] { app_.gate.run(formName, [this] { showAbout(app_.gate, this); }); });
  } else if (const auto command = commandOf(item)) {
    commanded_.insert(item);
    QObject::connect(action, &QAction::triggered, this,
                     [this, command] { app_.gate.run(formName, [&] { command(app_.frame); }); });
  }
  return action;
}

void MainWindow::tile(bool down) {
  const QList<QMdiSubWindow*> windows = area_->subWindowList();
  const auto count = static_cast<int>(windows.size());
  if (count == 0) return;
  for (QMdiSubWindow* window : windows) window->showNormal();
  // Where the room is too small for all of them the frame scrolls along them.
  QSize room = area_->contentsRect().size();
  int needed = 0;
  for (const QMdiSubWindow* window : windows) {
    const QSize least = window->minimumSizeHint();
    needed += std::max(down ? least.height() : least.width(), (down ? room.height() : room.width()) / count);
  }
  const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  if (needed > (down ? room.height() : room.width())) (down ? room.rwidth() : room.rheight()) -= scrollBar;
  const QSize share =
      down ? QSize(room.width(), room.height() / count) : QSize(room.width() / count, room.height());
  QPoint place;
  for (QMdiSubWindow* window : windows) {
    const QSize size = share.expandedTo(window->minimumSizeHint());
    window->setGeometry({place, size});
    (down ? place.ry() : place.rx()) += down ? size.height() : size.width();
  }
}

void MainWindow::draw() {
  for (const frame::MenuItem& item : app_.frame.menu) {
    const auto found = actions_.find(item.name);
    if (found == actions_.end()) continue;
    const bool does = found->second->menu() != nullptr || commanded_.contains(item.name);
    found->second->setEnabled(does && frame::isEnabled(app_.session, item));
  }
  drawRecentFiles();
  drawProjectBar();
  drawBrowsers();
  drawViews();
  // A dictionary whose browsers were all closed is still open.
  views_->setCurrentIndex(app_.session.files.OpenDBCount > 0 ? 0 : 1);
  if (views_->currentIndex() == 1) welcome_->draw();
}

void MainWindow::drawRecentFiles() {
  const auto& files = app_.session.shell.mnuFilearray;
  if (files == recentShown_) return;
  recentShown_ = files;
  recent_->clear();
  for (std::size_t n = 0; n < files.size(); ++n) {
    QAction* action = recent_->addAction(qt(files[n]));
    QObject::connect(action, &QAction::triggered, this, [this, n] {
      app_.gate.run(formName, [&] { frame::mnuFilearray(app_.frame, static_cast<int>(n) + 1); });
    });
  }
}

void MainWindow::drawBrowsers() {
  for (std::size_t n = app_.frame.browsers.size(); n-- > 0;)
    if (const auto* form = app_.frame.browsers[n].form.get(); form->closed)
      frame::closeBrowser(app_.frame, form);
  std::map<int, QMdiSubWindow*> kept;
  for (const frame::OpenBrowser& open : app_.frame.browsers) {
    const auto found = browsers_.find(open.id);
    if (found != browsers_.end()) {
      kept[open.id] = found->second;
      continue;
    }
    QMdiSubWindow* window = area_->addSubWindow(new BrowserWindow(app_, *open.form));
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    kept[open.id] = window;
    if (app_.frame.browsers.size() == 1)
      window->showMaximized();
    else
      window->show();
    area_->setActiveSubWindow(window);
  }
  for (const auto& [id, window] : browsers_)
    if (!kept.contains(id)) {
      area_->removeSubWindow(window);
      delete window;
    }
  browsers_ = std::move(kept);
}

void MainWindow::viewClosing(const platform::Form& form) {
  const auto found = openViews_.find(&form);
  if (found == openViews_.end()) return;
  area_->removeSubWindow(found->second);
  delete found->second;
  openViews_.erase(found);
}

void MainWindow::drawViews() {
  for (const auto& [form, window] : std::map(openViews_))
    if (const auto* view = dynamic_cast<ViewWindow*>(window->widget()); view->isClosing())
      frame::closeView(app_.frame, view->form());
  for (const frame::OpenView& open : app_.frame.views) {
    if (openViews_.contains(open.form.get())) continue;
    QMdiSubWindow* window = area_->addSubWindow(new ViewWindow(app_, *open.form));
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    openViews_[open.form.get()] = window;
    // Beside a browser that fills the frame a view fills it as well; closing it brings the browser back so.
    const QMdiSubWindow* before = area_->activeSubWindow();
    if (before != nullptr && before->isMaximized())
      window->showMaximized();
    else
      window->show();
    area_->setActiveSubWindow(window);
  }
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (!app_.gate.run(formName, [this] { frame::mnuExit(app_.frame); })) app_.desk.closeWanted = true;
}

void MainWindow::leave() {
  if (app_.frame.unloaded && !closing_) {
    closing_ = true;
    keepPlace(app_.session, *this, formName);
    hide();
    QCoreApplication::quit();
  } else if (std::exchange(app_.desk.closeWanted, false) && !app_.frame.unloaded) {
    QMetaObject::invokeMethod(
        this, [this] { close(); }, Qt::QueuedConnection);
  }
}

}  // namespace desktop
