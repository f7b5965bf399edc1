#include "desktop/entry/editor.h"

#include <QShortcut>
#include <QTabWidget>
#include <QToolButton>
#include <array>
#include <utility>

#include "catalogue/label.h"
#include "desktop/entry/editor_tabs.h"
#include "desktop/kit/heading.h"
#include "shell/session/messages.h"

namespace desktop {
namespace {

using entry::Tab;

struct Page {
  Tab tab;
  int caption;
  QWidget* (*make)(Editor&);
};
/// In the order of the tabs. The rules have no page yet: their tab stands there and can not be chosen.
constexpr Page pages[] = {
    {Tab::entry, label::tab_entry, entryTab},
    {Tab::meanings, label::tab_meanings, meaningsTab},
    {Tab::examples, label::tab_examples, examplesTab},
    {Tab::links, label::tab_links, linksTab},
    {Tab::properties, label::tab_properties, propertiesTab},
    {Tab::meaningProperties, label::meaning_properties, meaningPropertiesTab},
    {Tab::crossReferences, label::tab_cross_references, crossReferencesTab},
    {Tab::attachments, label::tab_attachments, attachmentsTab},
    {Tab::rules, label::rule_list, nullptr},
};

QWidget* rulesTab(Editor& editor) {
  return new QWidget(&editor.dialog);
}

void buildTabs(Editor editor, QTabWidget& tabs) {
  tabs.setObjectName("SSTab1");
  for (const Page& page : pages) {
    const int index = tabs.addTab(page.make != nullptr ? page.make(editor) : rulesTab(editor),
                                  editor.face.caption(page.caption));
    if (page.make == nullptr) tabs.setTabEnabled(index, false);
  }
  editor.face.onDraw([editor, &tabs] {
    for (int n = 0; n < tabs.count(); ++n)
      tabs.setTabVisible(n, editor.form.tabVisible[static_cast<std::size_t>(n)]);
    tabs.setCurrentIndex(static_cast<int>(editor.form.tab));
  });
  QObject::connect(&tabs, &QTabWidget::currentChanged, &editor.dialog, [editor](int index) {
    editor.face.run([&] { entry::selectTab(editor.form, static_cast<Tab>(index)); });
  });
}

struct FocusPlace {
  entry::Focus focus;
  const char* objectName;
};
constexpr FocusPlace focusPlaces[] = {
    {entry::Focus::headword, "HeadwordBox"}, {entry::Focus::pronunciation, "PronunciationBox"},
    {entry::Focus::linksTab, "Text7"},       {entry::Focus::linkAddress, "Text8"},
    {entry::Focus::example, "Text5"},        {entry::Focus::attachmentName, "Text12"},
};

/// Takes the focus where the form asks for it, once. The headword of another entry is marked, to be typed
/// over.
void followFocus(Editor editor) {
  editor.face.onDraw([editor, marked = std::int64_t{-1}]() mutable {
    const entry::Focus wanted = std::exchange(editor.form.focus, entry::Focus::elsewhere);
    const std::int64_t id = editor.face.session().entry.CurrentEntryId;
    for (const FocusPlace& place : focusPlaces) {
      if (place.focus != wanted) continue;
      auto* box = editor.dialog.findChild<QLineEdit*>(place.objectName);
      box->setFocus();
      if (wanted == entry::Focus::headword && std::exchange(marked, id) != id) box->selectAll();
    }
  });
}

/// The buttons that save and close, and that save and go on, by the number of the mode.
struct SaveButtons {
  std::size_t close, next;
};
constexpr SaveButtons saveButtons[] = {{0, 0}, {2, 1}, {0, 3}, {2, 1}, {1, 1}};

void addSaveKeys(Editor editor) {
  const auto add = [editor](const char* keys, std::size_t SaveButtons::*which) {
    auto* key = new QShortcut(QKeySequence(keys), &editor.dialog);
    QObject::connect(key, &QShortcut::activated, &editor.dialog, [editor, which] {
      const auto mode = static_cast<std::size_t>(editor.face.session().entry.EntryEditMode);
      editor.face.run([&] { entry::Command1(editor.form, static_cast<int>(saveButtons[mode].*which)); });
    });
  };
  add("Ctrl+S", &SaveButtons::close);
  add("Ctrl+N", &SaveButtons::next);
}

QString keysOf(Editor editor, std::size_t button) {
  const SaveButtons& buttons =
      saveButtons[static_cast<std::size_t>(editor.face.session().entry.EntryEditMode)];
  const char* keys = button == buttons.close ? "Ctrl+S" : button == buttons.next ? "Ctrl+N" : "";
  return QKeySequence(keys).toString(QKeySequence::NativeText);
}

QLayout* buildNavigator(Editor editor) {
  struct Step {
    entry::Step step;
    const char* text;
    const char* objectName;
    int caption;
  };
  constexpr Step steps[] = {{entry::Step::first, "⏮", "DataFirst", label::first_entry},
                            {entry::Step::previous, "◀", "DataPrevious", label::previous_entry},
                            {entry::Step::next, "▶", "DataNext", label::next_entry},
                            {entry::Step::last, "⏭", "DataLast", label::last_entry}};
  auto* box = new QWidget(&editor.dialog);
  box->setObjectName("Data1");
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  for (const Step& each : steps) {
    auto* button = new QToolButton(box);
    button->setText(each.text);
    name(*button, each.objectName, editor.face.caption(each.caption));
    button->setToolTip(editor.face.caption(each.caption));
    QObject::connect(button, &QToolButton::clicked, &editor.dialog, [editor, step = each.step] {
      editor.face.run([&] { entry::moveNavigator(editor.form, step); });
    });
    row->addWidget(button);
  }
  editor.face.onDraw([editor, box] { box->setVisible(editor.form.navigatorShown); });
  auto* column = new QHBoxLayout;
  column->addWidget(box);
  return column;
}

QHBoxLayout* buildButtons(Editor editor) {
  auto* row = new QHBoxLayout;
  row->addWidget(&editor.dialog.helpButton());
  row->addLayout(buildNavigator(editor));
  row->addStretch(1);
  for (std::size_t index = 0; index < editor.form.buttons.size(); ++index) {
    auto* button = new QPushButton(&editor.dialog);
    button->setObjectName("Command1_" + QString::number(index));
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, &editor.dialog, [editor, index] {
      editor.face.run([&] { entry::Command1(editor.form, static_cast<int>(index)); });
    });
    editor.face.onDraw([editor, button, index] {
      const entry::Button& state = editor.form.buttons[index];
      button->setVisible(state.visible);
      button->setEnabled(state.enabled);
      button->setText(qt(state.caption));
      button->setAccessibleName(qt(state.caption));
      button->setToolTip(keysOf(editor, index));
    });
    row->addWidget(button);
  }
  auto* close = new QPushButton(&editor.dialog);
  close->setObjectName("Command7");
  close->setAutoDefault(false);
  QObject::connect(close, &QPushButton::clicked, &editor.dialog,
                   [editor] { editor.face.run([&] { entry::Command7(editor.form); }); });
  editor.face.onDraw([editor, close] { close->setText(qt(editor.form.closeCaption)); });
  row->addWidget(close);
  return row;
}

void language(QWidget& box, const std::string& font, bool fromRight) {
  box.setFont(fontNamed(font));
  setDirection(box, fromRight);
}

}  // namespace

void asSource(Editor& editor, QWidget& box) {
  session::Session& s = editor.face.session();
  language(box, s.project.FontFrom, sourceFromRight(s));
}
void asTarget(Editor& editor, QWidget& box) {
  session::Session& s = editor.face.session();
  language(box, s.project.FontTo, targetFromRight(s));
}
void asNote(Editor& editor, QWidget& box) {
  session::Session& s = editor.face.session();
  language(box, s.project.FontRemark, sourceFromRight(s));
}

QWidget* tabPage(Editor& editor, Tab tab, QLayout* content) {
  auto* page = new QWidget(&editor.dialog);
  auto* column = new QVBoxLayout(page);
  auto* head = new Heading(page);
  asSource(editor, *head);
  QFont font = head->font();
  font.setPointSizeF(font.pointSizeF() * 1.3);
  font.setBold(true);
  head->setFont(font);
  const auto place = static_cast<std::size_t>(tab);
  head->setObjectName("CaptionLabel_" + QString::number(place));
  editor.face.onDraw([form = &editor.form, head, place] {
    head->setText(qt(form->captionLabels[place]));
    head->setVisible(!head->text().isEmpty());
  });
  column->addWidget(head);
  column->addLayout(qobject_cast<QLayout*>(content), 1);
  return page;
}

void buildEditor(Dialog& dialog, entry::frmEintrag& form) {
  dialog.showTitle(label::editor_title);
  Editor editor{dialog, dialog.face, form};
  dialog.start = [&form] { entry::Form_Activate(form); };
  dialog.isOpen = [&form] { return form.visible; };
  dialog.close = [&form] { entry::Command7(form); };
  auto* column = new QVBoxLayout(&dialog);
  auto* tabs = new QTabWidget(&dialog);
  buildTabs(editor, *tabs);
  followFocus(editor);
  addSaveKeys(editor);
  column->addWidget(tabs, 1);
  column->addLayout(buildButtons(editor));
  dialog.resize(860, 600);
}

}  // namespace desktop
