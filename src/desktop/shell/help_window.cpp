#include "desktop/shell/help_window.h"

#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTextBrowser>

#include "catalogue/label.h"
#include "desktop/kit/text.h"
#include "shell/session/start.h"
#include "shell/session/texts.h"

namespace desktop {
namespace {

QPushButton& button(const session::Session& s, QDialog& window, const char* objectName, int caption) {
  auto* made = new QPushButton(qt(session::labelText(s, caption)), &window);
  name(*made, objectName, made->text());
  made->setAutoDefault(false);
  return *made;
}

QTextBrowser& makeWindow(session::Session& s, QWidget* parent) {
  auto* window = new QDialog(parent);
  window->setObjectName("HelpWindow");
  window->setWindowTitle(qt(session::labelText(s, label::help_title)));
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setSizeGripEnabled(true);
  auto* browser = new QTextBrowser(window);
  name(*browser, "HelpPage", window->windowTitle());
  browser->setOpenExternalLinks(true);
  QPushButton& contents = button(s, *window, "Contents", label::help_contents);
  QPushButton& back = button(s, *window, "Back", label::back);
  QPushButton& close = button(s, *window, "Close", label::close);
  back.setEnabled(false);
  QObject::connect(browser, &QTextBrowser::backwardAvailable, &back, &QWidget::setEnabled);
  QObject::connect(&back, &QPushButton::clicked, browser, &QTextBrowser::backward);
  QObject::connect(&contents, &QPushButton::clicked, browser,
                   [browser] { browser->setSource(browser->source().resolved(QUrl("index.md"))); });
  QObject::connect(&close, &QPushButton::clicked, window, &QWidget::close);
  auto* row = new QHBoxLayout;
  row->addWidget(&contents);
  row->addWidget(&back);
  row->addStretch(1);
  row->addWidget(&close);
  auto* column = new QVBoxLayout(window);
  column->addWidget(browser, 1);
  column->addLayout(row);
  window->resize(window->fontMetrics().averageCharWidth() * 90, window->fontMetrics().height() * 32);
  return *browser;
}

}  // namespace

bool showHelpPage(session::Session& s, QWidget* frame, const std::string& page) {
  const std::string folder = session::shippedPath(s, "help");
  if (folder.empty() || !page.starts_with(folder + "/")) return false;
  QWidget* modal = QApplication::activeModalWidget();
  QWidget* parent = modal != nullptr ? modal : frame;
  auto* browser = parent != nullptr ? parent->findChild<QTextBrowser*>("HelpPage") : nullptr;
  if (browser == nullptr) browser = &makeWindow(s, parent);
  browser->setSource(QUrl::fromLocalFile(qt(page)));
  browser->window()->show();
  browser->window()->raise();
  browser->window()->activateWindow();
  browser->setFocus();
  return true;
}

}  // namespace desktop
