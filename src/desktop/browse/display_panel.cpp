#include "desktop/browse/display_panel.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTextImageFormat>
#include <algorithm>

#include "browse/page_html.h"
#include "catalogue/label.h"
#include "desktop/application.h"
#include "desktop/browse/entry_page.h"
#include "desktop/browse/media_bar.h"
#include "desktop/kit/heading.h"

namespace desktop {

namespace {

/// The menu of a text that can be marked: what is usual there, and the look-up of the marked word.
template <class Text>
void offerLookUp(Application& app, Face& face, Text& text) {
  text.setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(&text, &QWidget::customContextMenuRequested, &text,
                   [&app, &face, &text](const QPoint& at) {
                     QMenu* menu = text.createStandardContextMenu();
                     menu->setAttribute(Qt::WA_DeleteOnClose);
                     const QString word = text.textCursor().selectedText().trimmed();
                     menu->addSeparator();
                     QAction* action = menu->addAction(face.caption(label::lookup_title));
                     action->setEnabled(!word.isEmpty());
                     QObject::connect(action, &QAction::triggered, &text, [&app, &face, word] {
                       face.run([&] { frame::lookUp(app.frame, word.toStdString()); });
                     });
                     menu->popup(text.mapToGlobal(at));
                   });
  auto* key = new QShortcut(QKeySequence("Ctrl+K"), &text, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
  QObject::connect(key, &QShortcut::activated, &text, [&app, &face, &text] {
    const QString word = text.textCursor().selectedText().trimmed();
    if (!word.isEmpty()) face.run([&] { frame::lookUp(app.frame, word.toStdString()); });
  });
}

}  // namespace

DisplayPanel::DisplayPanel(Application& app, Face& face, browse::frmWoerter& form)
    : app_(app), face_(face), form_(form) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  auto* parts = new QSplitter(Qt::Vertical, this);
  parts->setChildrenCollapsible(false);
  page_ = new EntryPage(parts);
  page_->setObjectName("WebBrowser1");
  QObject::connect(page_, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) {
    face_.run([&] { app_.session.desk.outside.open(url.toString(QUrl::FullyEncoded).toStdString()); });
  });
  page_->pictureActivated = [this](const QString& address) {
    if (address.endsWith(qt(form_.display.aggregate.entry.Bild)))
      face_.run([this] { browse::Image1_DblClick(form_); });
  };
  offerLookUp(app_, face_, *page_);
  parts->addWidget(page_);
  parts->addWidget(grids_ = buildGrids());
  parts->addWidget(new MediaBar(face_, form_, parts));
  parts->setStretchFactor(0, 3);
  parts->setStretchFactor(1, 2);
  parts->setStretchFactor(2, 2);
  column->addWidget(parts, 1);
  face_.onDraw([this] { draw(); });
}

QWidget* DisplayPanel::buildGrids() {
  auto* view = new QWidget(this);
  auto* column = new QVBoxLayout(view);
  column->setContentsMargins(0, 0, 0, 0);
  head_ = new QWidget(view);
  auto* words = new QVBoxLayout(head_);
  const auto text = [&](const char* objectName) {
    auto* made = new QLabel(head_);
    made->setObjectName(objectName);
    made->setTextFormat(Qt::PlainText);
    made->setTextInteractionFlags(Qt::TextSelectableByMouse);
    words->addWidget(made);
    return made;
  };
  headword_ = new Heading(head_);
  headword_->setObjectName("HeadwordLabel");
  words->addWidget(headword_);
  pronunciation_ = text("MSHFlexGridLautschrift");
  created_ = text("DateLabel");
  dictionary_ = text("DictionaryLabel");
  column->addWidget(head_);
  tabs_ = new QTabWidget(view);
  addTab(*tabs_, "MSHFlexGridWortbedBsp", label::meanings, &browse::EntryDisplay::meanings, nullptr);
  auto* notes = new QPlainTextEdit(tabs_);
  note_ = notes;
  name(*note_, "Text2", face_.caption(label::note));
  note_->setReadOnly(true);
  offerLookUp(app_, face_, *note_);
  tabs_->addTab(note_, face_.caption(label::note));
  addTab(*tabs_, "MSHFlexGridKategorien", label::properties, &browse::EntryDisplay::properties, nullptr);
  addTab(*tabs_, "MSHFlexGridSachgebiete", label::subjects, &browse::EntryDisplay::subjects, nullptr);
  addTab(*tabs_, "mshflexgridWortbedWKat", label::meaning_properties,
         &browse::EntryDisplay::meaningProperties, nullptr);
  addTab(*tabs_, "MSHFlexGridWortbedSachgebiet", label::meaning_subjects,
         &browse::EntryDisplay::meaningSubjects, nullptr);
  addTab(*tabs_, "MSHFlexGridQuerverweise", label::cross_references, &browse::EntryDisplay::crossReferences,
         browse::MSHFlexGridQuerverweise_Click);
  addTab(*tabs_, "MSHFlexGridURL", label::web_links, &browse::EntryDisplay::links,
         browse::MSHFlexGridURL_Click);
  addTab(*tabs_, "dbGridAttachment", label::attachments, &browse::EntryDisplay::attachments,
         browse::dbGridAttachment_DblClick);
  column->addWidget(tabs_, 1);
  return view;
}

void DisplayPanel::addTab(QTabWidget& tabs, const char* objectName, int caption,
                          browse::Grid browse::EntryDisplay::*rows,
                          bool (*clicked)(browse::frmWoerter&, std::size_t)) {
  Grid& grid = face_.grid(objectName, caption);
  if (clicked != nullptr)
    grid.activated = [this, clicked](int row) {
      face_.run([&] { clicked(form_, static_cast<std::size_t>(row)); });
    };
  const int index = tabs.addTab(&grid, face_.caption(caption));
  tabList_.push_back({&grid, rows, caption, index});
}

void DisplayPanel::draw() {
  const bool asPage = form_.display.asPage;
  page_->setVisible(asPage);
  head_->setVisible(!asPage);
  if (asPage) page_->open(form_.display, form_.entriesShown);
  if (!asPage) drawHead();
  drawGrids();
  grids_->setVisible(showTabs());
  if (!asPage) drawNote();
}

void DisplayPanel::drawHead() {
  const browse::EntryDisplay& display = form_.display;
  QFont font = fontNamed(display.headwordFont);
  font.setPointSizeF(font.pointSizeF() * 1.6);
  font.setBold(true);
  headword_->setFont(font);
  const auto colour = [](std::uint32_t rgb) { return QString("color: #%1").arg(rgb, 6, 16, QChar('0')); };
  // The documented colours are for light paper; on a dark palette the text colour is readable.
  const bool dark = palette().color(QPalette::Base).lightness() < 128;
  headword_->setStyleSheet(dark ? QString() : colour(browse::headwordColour));
  headword_->setText(qt(display.headword));
  setDirection(*headword_, display.settings.RightToLeftFrom);
  pronunciation_->setFont(fontNamed(display.pronunciationFont, true));
  pronunciation_->setStyleSheet(dark ? QString() : colour(browse::pronunciationColour));
  const auto& cells = display.pronunciation.rows;
  pronunciation_->setText(cells.empty() || cells[0].empty() ? QString() : qt(cells[0][0]));
  created_->setText(qt(display.created));
  dictionary_->setText(qt(display.dictionary));
  dictionary_->setVisible(!display.dictionary.empty());
}

void DisplayPanel::drawNote() {
  const browse::EntryDisplay& display = form_.display;
  showText(*note_, display.note);
  note_->setFont(fontNamed(display.noteFont));
  setDirection(*note_, display.settings.RightToLeftFrom);
  if (display.noteMark.length == 0) return;
  QTextCursor cursor = note_->textCursor();
  cursor.setPosition(static_cast<int>(display.noteMark.start));
  cursor.setPosition(static_cast<int>(display.noteMark.start + display.noteMark.length),
                     QTextCursor::KeepAnchor);
  note_->setTextCursor(cursor);
  tabs_->setCurrentWidget(note_);
}

void DisplayPanel::drawGrids() {
  const browse::EntryDisplay& display = form_.display;
  for (const Tab& tab : tabList_) {
    const browse::Grid& rows = display.*tab.rows;
    QStringList heads;
    for (const std::string& each : rows.captions) heads << qt(each);
    if (heads != tab.grid->heads()) tab.grid->setHeads(heads);
    tab.grid->setRows(rows.rows);
    tab.grid->setRightToLeft(directions(tab.rows));
    const QString count = rows.rows.empty() ? QString() : QString(" (%1)").arg(rows.rows.size());
    tabs_->setTabText(tab.index, face_.caption(tab.caption) + count);
  }
}

bool DisplayPanel::belongs(const Tab& tab) const {
  const bool besidePage = tab.rows == &browse::EntryDisplay::crossReferences ||
                          tab.rows == &browse::EntryDisplay::links ||
                          tab.rows == &browse::EntryDisplay::attachments;
  if (form_.display.asPage) return besidePage && !(form_.display.*tab.rows).rows.empty();
  const bool ofMeanings = tab.rows == &browse::EntryDisplay::meanings ||
                          tab.rows == &browse::EntryDisplay::meaningProperties ||
                          tab.rows == &browse::EntryDisplay::meaningSubjects;
  return !ofMeanings || app_.session.project.ProjectType == 1;
}

bool DisplayPanel::showTabs() {
  bool changed = false;
  const auto show = [&](int index, bool shown) {
    if (tabs_->isTabVisible(index) == shown) return;
    tabs_->setTabVisible(index, shown);
    changed = true;
  };
  show(tabs_->indexOf(note_), !form_.display.asPage);
  for (const Tab& tab : tabList_) show(tab.index, belongs(tab));
  // A link collection begins with its links.
  std::vector<int> order;
  for (const Tab& tab : tabList_)
    if (tab.rows == &browse::EntryDisplay::links && app_.session.project.ProjectType != 1)
      order.push_back(tab.index);
  for (int n = 0; n < tabs_->count(); ++n) order.push_back(n);
  const auto first = std::ranges::find_if(order, [this](int index) { return tabs_->isTabVisible(index); });
  if (first == order.end()) return false;
  if (changed) tabs_->setCurrentIndex(*first);
  return true;
}

/// The columns that hold texts of a language: meanings come first, then examples with their translations.
std::vector<bool> DisplayPanel::directions(browse::Grid browse::EntryDisplay::*rows) const {
  const bool from = form_.display.settings.RightToLeftFrom, to = form_.display.settings.RightToLeftTo;
  if (rows == &browse::EntryDisplay::meanings) return {to, from, to};
  if (rows == &browse::EntryDisplay::meaningProperties || rows == &browse::EntryDisplay::meaningSubjects)
    return {to};
  if (rows == &browse::EntryDisplay::crossReferences) return {from};
  return {};
}

}  // namespace desktop
