// The editor's first tab: headword, pronunciation, notes, mark and rank, picture and sound.

#include <QFormLayout>
#include <QIntValidator>
#include <QLineEdit>
#include <QToolButton>

#include "catalogue/label.h"
#include "desktop/entry/editor_tabs.h"
#include "desktop/entry/media_box.h"
#include "desktop/entry/phonetic_pad.h"

namespace desktop {
QWidget* entryTab(Editor& editor) {
  Face& face = editor.face;
  entry::frmEintrag& form = editor.form;
  QLineEdit& headword = face.line("HeadwordBox", label::headword, form.headwordBox,
                                  [&form](const std::string& text) { entry::headwordChanged(form, text); });
  asSource(editor, headword);
  QObject::connect(&headword, &QLineEdit::returnPressed, &editor.dialog,
                   [editor] { editor.face.run([&] { entry::headwordEnter(editor.form); }); });
  QLineEdit& pronunciation = face.line("PronunciationBox", label::pronunciation, form.pronunciationBox);
  pronunciation.setFont(fontNamed(face.session().project.PhoneticFont, true));
  QPlainTextEdit& notes = face.memo("NotesBox", label::note, form.notesBox);
  asNote(editor, notes);
  QLineEdit& priority = face.line("PriorityBox", label::priority, form.priorityBox,
                                  [&form](const std::string& text) { entry::priorityChanged(form, text); });
  priority.setMaximumWidth(priority.fontMetrics().averageCharWidth() * 12);
  QCheckBox& inProgress = face.check("InProgressBox", label::in_progress, form.inProgressBox);

  auto* boxes = new QFormLayout;
  boxes->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  const auto row = [&](int caption, QWidget& box, QWidget* behind = nullptr) {
    auto* line = new QWidget(&editor.dialog);
    auto* cells = new QHBoxLayout(line);
    cells->setContentsMargins(0, 0, 0, 0);
    cells->addWidget(&box, 1);
    if (behind != nullptr) cells->addWidget(behind);
    QLabel& text = face.label(caption);
    text.setBuddy(&box);
    boxes->addRow(&text, line);
    return line;
  };
  row(label::headword, headword);
  QWidget* pronunciationRow = row(label::pronunciation, pronunciation, phoneticPad(editor, pronunciation));
  QWidget* priorityRow = row(label::priority, priority);
  row(label::note, notes);
  boxes->addRow(QString(), &inProgress);
  face.onDraw([boxes, pronunciationRow, priorityRow, &form] {
    boxes->setRowVisible(pronunciationRow, form.pronunciationShown);
    boxes->setRowVisible(priorityRow, form.priorityShown);
  });
  auto* halves = new QHBoxLayout;
  halves->addLayout(boxes, 1);
  halves->addWidget(mediaBox(editor));
  return tabPage(editor, entry::Tab::entry, halves);
}

}  // namespace desktop
