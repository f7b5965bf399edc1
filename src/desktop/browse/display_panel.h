#pragma once

#include <QWidget>

#include "browse/frmWoerter.h"
#include "desktop/kit/face.h"

class QTabWidget;

namespace desktop {

class Application;
class EntryPage;
class Heading;

/// The selected entry: as the written page, or in labels and grids on tabs, as the dictionary wants it. What
/// a page leaves out stands on tabs below it: cross-references, links, attachments.
class DisplayPanel : public QWidget {
 public:
  DisplayPanel(Application& app, Face& face, browse::frmWoerter& form);

 private:
  struct Tab {
    Grid* grid = nullptr;
    browse::Grid browse::EntryDisplay::*rows = nullptr;
    int caption = 0;
    int index = 0;
  };
  QWidget* buildGrids();
  void addTab(QTabWidget& tabs, const char* objectName, int caption, browse::Grid browse::EntryDisplay::*rows,
              bool (*clicked)(browse::frmWoerter&, std::size_t));
  void draw();
  void drawHead();
  void drawNote();
  void drawGrids();
  /// Shows the tabs that the presentation and the kind of project have; false where it is none.
  bool showTabs();
  bool belongs(const Tab& tab) const;
  std::vector<bool> directions(browse::Grid browse::EntryDisplay::*rows) const;

  Application& app_;
  Face& face_;
  browse::frmWoerter& form_;
  EntryPage* page_ = nullptr;  ///< WebBrowser1
  QWidget *grids_ = nullptr, *head_ = nullptr;
  QTabWidget* tabs_ = nullptr;
  std::vector<Tab> tabList_;
  Heading* headword_ = nullptr;
  QLabel *pronunciation_ = nullptr, *created_ = nullptr, *dictionary_ = nullptr;
  QPlainTextEdit* note_ = nullptr;
};

}  // namespace desktop
