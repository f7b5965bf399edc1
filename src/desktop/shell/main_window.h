#pragma once

#include <QMainWindow>
#include <QMap>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/desk.h"

class QAction;
class QComboBox;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QStackedWidget;

namespace desktop {

class Application;
class BrowserWindow;
class Welcome;

/// The frame's window: menus, toolbar, project bar, the browsers as child windows, status bar.
class MainWindow : public QMainWindow {
 public:
  explicit MainWindow(Application& app);
  ~MainWindow() override;

  /// The menu that a right click on an entry shows.
  QMenu* entryMenu() { return menus_["mnuPopUpEditAddDelete"]; }
  QMdiArea& area() { return *area_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void buildMenus();
  QMenu* buildMenu(const std::string& name);
  QAction* buildAction(const std::string& item);
  void buildToolBar();
  void buildProjectBar();
  /// Arranges the child windows in strips, one below the other or side by side.
  void tile(bool down);
  void draw();
  void drawRecentFiles();
  void drawProjectBar();
  /// Gives every browser of the form a window and takes the others away.
  void drawBrowsers();
  void drawViews();
  void viewClosing(const platform::Form& form);
  void leave();

  Application& app_;
  int id_ = 0;
  QStackedWidget* views_ = nullptr;
  QMdiArea* area_ = nullptr;
  Welcome* welcome_ = nullptr;
  QLabel *status_ = nullptr, *flagFrom_ = nullptr, *flagTo_ = nullptr, *languages_ = nullptr,
         *description_ = nullptr;
  QWidget* projectBar_ = nullptr;
  QComboBox* dictionaries_ = nullptr;
  QMenu* recent_ = nullptr;
  std::vector<std::string> recentShown_;
  std::map<std::string, QMenu*> menus_;
  std::map<std::string, QAction*> actions_;          ///< by the item's name
  std::set<std::string> commanded_;                  ///< items that do something
  std::map<int, QMdiSubWindow*> browsers_;           ///< by the open form's number
  std::map<const void*, QMdiSubWindow*> openViews_;  ///< tree and table views, by their form
  bool closing_ = false;
};

}  // namespace desktop
