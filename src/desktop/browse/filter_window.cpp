#include "desktop/browse/filter_window.h"

#include <QCalendarWidget>
#include <QGridLayout>
#include <QGroupBox>
#include <QMenu>
#include <QToolButton>
#include <QWidgetAction>

#include "catalogue/label.h"
#include "store/letters.h"

namespace desktop {
namespace {

using browse::Criterion;
using browse::frmFilter;

struct Row {
  Criterion criterion;
  const char* objectName;
  int caption;
};
/// Two columns: with and without.
constexpr Row criteria[] = {
    {Criterion::hasNote, "hasNote", label::filter_with_note},
    {Criterion::hasNoNote, "hasNoNote", label::filter_without_note},
    {Criterion::hasSound, "hasSound", label::filter_with_sound},
    {Criterion::hasNoSound, "hasNoSound", label::filter_without_sound},
    {Criterion::hasPicture, "hasPicture", label::filter_with_picture},
    {Criterion::hasNoPicture, "hasNoPicture", label::filter_without_picture},
    {Criterion::hasAttachment, "hasAttachment", label::filter_with_attachment},
    {Criterion::hasNoAttachment, "hasNoAttachment", label::filter_without_attachment},
    {Criterion::hasURL, "hasURL", label::filter_with_link},
    {Criterion::hasNoURL, "hasNoURL", label::filter_without_link},
    {Criterion::hasCrossReference, "hasCrossReference", label::filter_with_cross_reference},
    {Criterion::hasNoCrossReference, "hasNoCrossReference", label::filter_without_cross_reference},
    {Criterion::inWork, "inWork", label::filter_in_progress},
};

/// A list of several choices, ticked.
QListWidget& tickList(Dialog& dialog, const char* objectName, int caption,
                      std::vector<browse::ListItem>& items) {
  auto* list = new QListWidget(&dialog);
  name(*list, objectName, dialog.face.caption(caption));
  dialog.face.onDraw([list, &items] {
    if (list->count() != static_cast<int>(items.size())) {
      list->clear();
      for (const browse::ListItem& each : items) list->addItem(qt(each.name));
    }
    for (int row = 0; row < list->count(); ++row) {
      const browse::ListItem& each = items[static_cast<std::size_t>(row)];
      list->item(row)->setText(qt(each.name));
      list->item(row)->setCheckState(each.selected ? Qt::Checked : Qt::Unchecked);
    }
  });
  QObject::connect(list, &QListWidget::itemChanged, &dialog, [list, &items, &dialog](QListWidgetItem* item) {
    if (dialog.face.gate().isBusy()) return;
    items.at(static_cast<std::size_t>(list->row(item))).selected = item->checkState() == Qt::Checked;
  });
  return *list;
}

QGroupBox* contentBox(Dialog& dialog, frmFilter& form) {
  auto* box = new QGroupBox(&dialog);
  box->setObjectName("ContentPanel");
  auto* grid = new QGridLayout(box);
  int place = 0;
  for (const Row& row : criteria) {
    auto* tick = new QCheckBox(dialog.face.caption(row.caption), box);
    name(*tick, row.objectName, tick->text());
    dialog.face.onDraw([tick, &form, criterion = row.criterion] {
      tick->setChecked(form.box(criterion).ticked);
      tick->setEnabled(form.box(criterion).enabled && form.contentEnabled);
    });
    QObject::connect(tick, &QCheckBox::clicked, &dialog,
                     [&dialog, &form, criterion = row.criterion](bool ticked) {
                       dialog.face.run([&] { browse::tick(form, criterion, ticked); });
                     });
    grid->addWidget(tick, place / 2, place % 2);
    ++place;
  }
  grid->setRowStretch(place, 1);
  dialog.face.onDraw([&form, box] { box->setVisible(browse::panelsOf(form.opener).content); });
  return box;
}

/// A button behind a date's box that opens a calendar and copies the day chosen there into the box.
QToolButton* calendarOf(Dialog& dialog, const char* objectName, int caption, std::string& text) {
  auto* button = new QToolButton(&dialog);
  name(*button, objectName, dialog.face.caption(caption));
  auto* menu = new QMenu(button);
  auto* calendar = new QCalendarWidget(menu);
  auto* action = new QWidgetAction(menu);
  action->setDefaultWidget(calendar);
  menu->addAction(action);
  button->setMenu(menu);
  button->setPopupMode(QToolButton::InstantPopup);
  constexpr const char* form = "dd.MM.yyyy";
  QObject::connect(menu, &QMenu::aboutToShow, calendar, [calendar, &text, form] {
    const QDate typed = QDate::fromString(qt(text), form);
    calendar->setSelectedDate(typed.isValid() ? typed : QDate::currentDate());
    calendar->setFocus();
  });
  for (const auto chosen : {&QCalendarWidget::clicked, &QCalendarWidget::activated})
    QObject::connect(calendar, chosen, &dialog, [&dialog, menu, &text, form](const QDate& day) {
      menu->close();
      dialog.face.run([&] { text = day.toString(form).toStdString(); });
    });
  return button;
}

QLineEdit& dateBox(Dialog& dialog, frmFilter& form, const char* objectName, int caption, std::string& text) {
  QLineEdit& box = dialog.face.line(objectName, caption, text);
  box.setPlaceholderText("tt.mm.jjjj");
  if (dialog.face.session().texts.UILanguage == 2) box.setPlaceholderText("dd.mm.yyyy");
  QObject::connect(&box, &QLineEdit::editingFinished, &dialog, [&dialog, &form, &box, &text] {
    if (text.empty() || dialog.face.gate().isBusy()) return;
    dialog.face.run([&] {
      if (!browse::dateLeft(form, text)) box.setFocus();
    });
  });
  return box;
}

QComboBox& numberCombo(Dialog& dialog, frmFilter& form, const char* objectName, int caption,
                       std::string& text, const QStringList& items, const std::string& usual) {
  auto* box = new QComboBox(&dialog);
  name(*box, objectName, dialog.face.caption(caption));
  box->setEditable(true);
  box->addItems(items);
  dialog.face.onDraw([box, &text] {
    if (box->currentText() != qt(text)) box->setEditText(qt(text));
  });
  QObject::connect(box, &QComboBox::editTextChanged, &dialog,
                   [&dialog, &form, &text, usual](const QString& typed) {
                     dialog.face.run([&] { browse::comboChanged(form, text, typed.toStdString(), usual); });
                   });
  return *box;
}

const std::string& allLetters(Dialog& dialog) {
  return session::labelText(dialog.face.session(), label::all_letters);
}

QWidget* letterPanel(Dialog& dialog, frmFilter& form) {
  Face& face = dialog.face;
  auto* box = new QWidget(&dialog);
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  QComboBox& letter = face.combo(
      "LetterCombo", label::filter_letter,
      [&dialog] {
        std::vector<std::string> letters{allLetters(dialog)};
        auto rows = dialog.face.session().files.CurrentDB.OpenRecordset("Buchstaben");
        for (; !rows.EndOfFile(); rows.MoveNext()) letters.push_back(rows["FilterBuchstabe1"].textOrEmpty());
        return letters;
      },
      [&form, &dialog] { return form.letter.empty() ? allLetters(dialog) : form.letter; },
      [&form, &dialog](const std::string& text) { form.letter = text == allLetters(dialog) ? "" : text; });
  face.onDraw([&form, &letter] { letter.setEnabled(form.letterEnabled); });
  row->addLayout(face.labelled(label::filter_letter, letter));
  row->addWidget(&face.check("SubEntries", label::filter_with_sub_entries, form.subEntriesInReports));
  row->addStretch(1);
  face.onDraw([&form, box] { box->setVisible(browse::panelsOf(form.opener).letterAndSubEntries); });
  return box;
}

QWidget* pageSizePanel(Dialog& dialog, frmFilter& form) {
  Face& face = dialog.face;
  auto* box = new QWidget(&dialog);
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  row->addLayout(face.labelled(
      label::filter_page_size,
      numberCombo(dialog, form, "PageSizeCombo", label::filter_page_size, form.list.pageSize,
                  {"50", "5", "10", "20", "30", "40", "75", "100", "200", "300", "400", "500"}, "50")));
  row->addLayout(face.labelled(
      label::filter_list_limit,
      numberCombo(dialog, form, "ListLimitCombo", label::filter_list_limit, form.list.listStart,
                  {"---", "5", "10", "20", "30", "40", "50", "75", "100", "200", "300", "400", "500"},
                  "---")));
  row->addStretch(1);
  face.onDraw([&form, box] { box->setVisible(browse::panelsOf(form.opener).pageSize); });
  return box;
}

}  // namespace

void buildFilter(Dialog& dialog, frmFilter& form) {
  dialog.showTitle(label::filter_title);
  Face& face = dialog.face;
  dialog.isOpen = [&form] { return form.visible; };
  // Who cancels finds all as it was: what stands in the boxes counts, applied or not.
  dialog.close = [&form, meaningLevel = form.meaningLevel, properties = form.properties,
                  subjects = form.subjects, from = form.dateFrom, to = form.dateTo, boxes = form.boxes,
                  letter = form.letter, subEntries = form.subEntriesInReports, list = form.list] {
    form.meaningLevel = meaningLevel;
    form.properties = properties;
    form.subjects = subjects;
    form.dateFrom = from;
    form.dateTo = to;
    form.boxes = boxes;
    form.letter = letter;
    form.subEntriesInReports = subEntries;
    form.list = list;
    form.visible = false;
  };
  auto* scope = new QHBoxLayout;
  QRadioButton& entries = face.radio(
      "EntryLevel", label::filter_entry_level, [&form] { return !form.meaningLevel; },
      [&form] { form.meaningLevel = false; });
  QRadioButton& meanings = face.radio(
      "MeaningLevel", label::filter_meaning_level, [&form] { return form.meaningLevel; },
      [&form] { form.meaningLevel = true; });
  scope->addWidget(&entries);
  scope->addWidget(&meanings);
  scope->addStretch(1);
  face.onDraw([&form, &entries, &meanings] {
    for (QRadioButton* each : {&entries, &meanings}) each->setVisible(form.meaningLevelShown);
  });
  auto* lists = new QHBoxLayout;
  lists->addLayout(
      face.below(label::properties, tickList(dialog, "PropertyList", label::properties, form.properties)));
  lists->addLayout(
      face.below(label::subjects, tickList(dialog, "SubjectList", label::subjects, form.subjects)));
  lists->addWidget(contentBox(dialog, form));
  auto* dates = new QHBoxLayout;
  dates->addLayout(
      face.labelled(label::date_from, dateBox(dialog, form, "DateFrom", label::date_from, form.dateFrom)));
  dates->addWidget(calendarOf(dialog, "DatePickerFrom", label::date_from, form.dateFrom));
  dates->addLayout(
      face.labelled(label::date_to, dateBox(dialog, form, "DateTo", label::date_to, form.dateTo)));
  dates->addWidget(calendarOf(dialog, "DatePickerTo", label::date_to, form.dateTo));
  dates->addStretch(1);
  QPushButton& ok = face.button("OK", label::ok, [&form] { browse::confirmFilter(form); });
  ok.setDefault(true);
  auto* column = new QVBoxLayout(&dialog);
  column->addLayout(scope);
  column->addLayout(lists, 1);
  column->addLayout(dates);
  column->addWidget(letterPanel(dialog, form));
  column->addWidget(pageSizePanel(dialog, form));
  column->addLayout(
      dialog.buttonRow({&face.button("Reset", label::filter_reset, [&form] { browse::resetFilter(form); })},
                       {&ok, &face.button("Cancel", label::cancel, dialog.close)}));
  dialog.resize(900, 560);
}

}  // namespace desktop
