#include "desktop/browse/display_panel.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTextImageFormat>

#include "browse/page_html.h"
#include "catalogue/label.h"
#include "desktop/application.h"
#include "desktop/browse/entry_page.h"
#include "desktop/browse/media_bar.h"

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
  views_ = new QStackedWidget(parts);
  page_ = new EntryPage(views_);
  page_->setObjectName("WebBrowser1");
  QObject::connect(page_, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) {
    face_.run([&] { app_.session.desk.outside.open(url.toString().toStdString()); });
  });
  page_->pictureActivated = [this](const QString& address) {
    if (address.endsWith(qt(form_.display.aggregate.entry.Bild)))
      face_.run([this] { browse::Image1_DblClick(form_); });
  };
  offerLookUp(app_, face_, *page_);
  views_->addWidget(page_);
  views_->addWidget(buildGrids());
  parts->addWidget(views_);
  parts->addWidget(new MediaBar(face_, form_, parts));
  parts->setStretchFactor(0, 3);
  parts->setStretchFactor(1, 2);
  column->addWidget(parts, 1);
  face_.onDraw([this] { draw(); });
}

QWidget* DisplayPanel::buildGrids() {
  auto* view = new QWidget(views_);
  auto* column = new QVBoxLayout(view);
  auto* head = new QHBoxLayout;
  const auto text = [&](const char* objectName) {
    auto* made = new QLabel(view);
    made->setObjectName(objectName);
    made->setTextFormat(Qt::PlainText);
    made->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return made;
  };
  auto* words = new QVBoxLayout;
  words->addWidget(headword_ = text("HeadwordLabel"));
  words->addWidget(pronunciation_ = text("MSHFlexGridLautschrift"));
  words->addWidget(created_ = text("DateLabel"));
  words->addWidget(dictionary_ = text("DictionaryLabel"));
  headword_->setWordWrap(true);
  head->addLayout(words, 1);
  column->addLayout(head);
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
  grids_.push_back({&grid, rows, caption, index});
}

void DisplayPanel::draw() {
  const browse::EntryDisplay& display = form_.display;
  views_->setCurrentIndex(display.asPage ? 0 : 1);
  if (display.asPage)
    page_->open(qt(display.page));
  else
    drawGrids();
}

void DisplayPanel::drawGrids() {
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
  pronunciation_->setFont(fontNamed(display.pronunciationFont, true));
  pronunciation_->setStyleSheet(dark ? QString() : colour(browse::pronunciationColour));
  const auto& cells = display.pronunciation.rows;
  pronunciation_->setText(cells.empty() || cells[0].empty() ? QString() : qt(cells[0][0]));
  created_->setText(qt(display.created));
  dictionary_->setText(qt(display.dictionary));
  dictionary_->setVisible(!display.dictionary.empty());
  showText(*note_, display.note);
  note_->setFont(fontNamed(display.noteFont));
  if (display.noteMark.length > 0) {
    QTextCursor cursor = note_->textCursor();
    cursor.setPosition(static_cast<int>(display.noteMark.start));
    cursor.setPosition(static_cast<int>(display.noteMark.start + display.noteMark.length),
                       QTextCursor::KeepAnchor);
    note_->setTextCursor(cursor);
    tabs_->setCurrentWidget(note_);
  }
  for (const Tab& tab : grids_) {
    const browse::Grid& rows = display.*tab.rows;
    QStringList heads;
    for (const std::string& each : rows.captions) heads << qt(each);
    tab.grid->setHeads(heads);
    tab.grid->setRows(rows.rows);
    const QString count = rows.rows.empty() ? QString() : QString(" (%1)").arg(rows.rows.size());
    tabs_->setTabText(tab.index, face_.caption(tab.caption) + count);
  }
}

}  // namespace desktop
