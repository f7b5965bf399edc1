#include "desktop/shell/config_window.h"

#include <QScrollArea>
#include <QTabWidget>

#include "catalogue/label.h"
#include "desktop/shell/config_pages.h"

namespace desktop {
namespace {

using frame::ConfigTab;

struct Page {
  ConfigTab tab;
  int caption;
  QLayout* (*special)(const ConfigWindow&);  ///< shown above the table's controls; it takes the room left
};
/// In the order of the tabs.
constexpr Page pages[] = {
    {ConfigTab::languages, label::config_languages, languageChoice},
    {ConfigTab::sound, label::config_sound, nullptr},
    {ConfigTab::sorting, label::config_sorting, sortingAndFonts},
    {ConfigTab::publishing, label::config_publishing, nullptr},
    {ConfigTab::entry, label::config_entry, articleList},
    {ConfigTab::printFonts, label::config_print_fonts, printFonts},
    {ConfigTab::author, label::config_author, nullptr},
    {ConfigTab::reports, label::config_report_attributes, reportAttributes},
    {ConfigTab::program, label::config_program, programSettings},
};

QWidget* pageOf(const ConfigWindow& window, const Page& page) {
  auto* content = new QWidget(&window.dialog);
  auto* column = new QVBoxLayout(content);
  column->addLayout(tableOfControls(window, page.tab));
  QLayout* special = page.special != nullptr ? page.special(window) : nullptr;
  if (special != nullptr)
    column->addLayout(special, 1);
  else
    column->addStretch(1);
  // On a small screen with large letters a page is higher than the window.
  auto* area = new QScrollArea(&window.dialog);
  area->setWidget(content);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  return area;
}

QTabWidget& tabs(const ConfigWindow& window) {
  auto* strip = new QTabWidget(&window.dialog);
  strip->setObjectName("SSTab1");
  for (const Page& page : pages) strip->addTab(pageOf(window, page), window.face.caption(page.caption));
  window.face.onDraw([strip, &form = window.form] { strip->setCurrentIndex(static_cast<int>(form.tab)); });
  QObject::connect(strip, &QTabWidget::currentChanged, &window.dialog,
                   [&form = window.form](int index) { form.tab = static_cast<ConfigTab>(index); });
  return *strip;
}

}  // namespace

void buildConfig(Dialog& dialog, frame::frmConfig& form) {
  dialog.showTitle(label::config_title);
  const ConfigWindow window{dialog, dialog.face, form};
  dialog.isOpen = [&form] { return form.visible; };
  dialog.close = [&form] { form.visible = false; };
  auto* column = new QVBoxLayout(&dialog);
  column->addWidget(&tabs(window), 1);
  QPushButton& save = window.face.button("OK", label::ok, [&form] { frame::saveConfig(form); });
  save.setDefault(true);
  column->addLayout(
      dialog.buttonRow({}, {&save, &window.face.button("Cancel", label::cancel, dialog.close)}));
  dialog.resize(860, 600);
}

}  // namespace desktop
