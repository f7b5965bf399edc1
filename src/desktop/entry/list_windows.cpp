// The dialogs of recent work, of entries by date, of a catalogue, and of the services.

#include <QDateTimeEdit>
#include <QFormLayout>

#include "catalogue/label.h"
#include "catalogue/menu.h"
#include "desktop/entry/entry_windows.h"
#include "shell/session/messages.h"

namespace desktop {
namespace {

QDateTime shownDate(const base::DateTime& date) {
  return {QDate(date.year(), date.month(), date.day()), QTime(date.hour(), date.minute(), date.second())};
}

base::DateTime typedDate(const QDateTime& typed) {
  const QDate day = typed.date();
  const QTime time = typed.time();
  return base::DateTime::of(day.year(), day.month(), day.day(), time.hour(), time.minute(), time.second());
}

QDateTimeEdit& dateBox(Dialog& dialog, const char* objectName, int caption, base::DateTime& date) {
  auto* box = new QDateTimeEdit(&dialog);
  name(*box, objectName, dialog.face.caption(caption));
  box->setDisplayFormat("dd.MM.yyyy hh:mm:ss");
  box->setCalendarPopup(true);
  dialog.face.onDraw([box, &date] { box->setDateTime(shownDate(date)); });
  QObject::connect(box, &QDateTimeEdit::dateTimeChanged, &dialog, [&dialog, &date](const QDateTime& typed) {
    if (!dialog.face.gate().isBusy()) date = typedDate(typed);
  });
  return *box;
}

}  // namespace

void buildHistory(Dialog& dialog, entry::frmHistory& form) {
  dialog.showTitle(form.HistoryIsNew ? label::history_new_title : label::history_changed_title);
  Face& face = dialog.face;
  QComboBox& period = face.combo(
      "Combo1", label::all_periods, [&form] { return form.Combo1; },
      [&form] { return form.period.empty() && !form.Combo1.empty() ? form.Combo1.front() : form.period; },
      [&form](const std::string& text) { entry::Combo1_Click(form, text); });
  Grid& grid = face.grid("DataGrid1", label::headword);
  grid.setHeads({qt(form.caption), face.caption(form.HistoryIsNew ? label::created_on : label::changed_on)});
  face.onDraw([&form, &grid] {
    grid.setRecordset(form.Adodc1, {"Begriff", form.HistoryIsNew ? "DateTimeStamp" : "DateLastChange"});
  });
  const auto jump = [&form, &dialog] {
    if (entry::Command1(form)) dialog.finish();
  };
  grid.selected = [&form, &dialog](int row) { dialog.face.run([&] { entry::selectRow(form, row); }); };
  grid.activated = [&form, &dialog, jump](int row) {
    dialog.face.run([&] {
      entry::selectRow(form, row);
      jump();
    });
  };
  auto* column = new QVBoxLayout(&dialog);
  column->addWidget(&period);
  column->addWidget(&grid, 1);
  column->addLayout(dialog.buttonRow(
      {&face.button("Command4", label::history_clear, [&form] { entry::Command4(form); })},
      {&face.button("Command1", label::search_jump, jump, [&form] { return form.SelectedEntryId != 0; }),
       &dialog.closeButton()}));
  dialog.resize(620, 480);
}

void buildDeleteEntries(Dialog& dialog, entry::frmDeleteEntries& form) {
  dialog.showTitle(label::delete_entries_title);
  Face& face = dialog.face;
  auto* range = new QHBoxLayout;
  QDateTimeEdit& from = dateBox(dialog, "DTPicker1", label::date_from, form.from);
  QDateTimeEdit& to = dateBox(dialog, "DTPicker2", label::date_to, form.to);
  range->addLayout(face.labelled(label::date_from, from));
  range->addLayout(face.labelled(label::date_to, to));
  range->addStretch(1);
  auto* kinds = new QHBoxLayout;
  kinds->addWidget(&face.radio(
      "Option1_0", label::by_creation, [&form] { return !form.byLastChange; },
      [&form] { form.byLastChange = false; }));
  kinds->addWidget(&face.radio(
      "Option1_1", label::by_change, [&form] { return form.byLastChange; },
      [&form] { form.byLastChange = true; }));
  kinds->addStretch(1);
  Grid& grid = face.grid("DataGrid1", label::headword);
  grid.setHeads({face.caption(label::headword)});
  face.onDraw([&form, &grid] { grid.setRecordset(form.DataGrid1, {"begriff"}); });
  auto* column = new QVBoxLayout(&dialog);
  column->addLayout(range);
  column->addLayout(kinds);
  column->addWidget(&grid, 1);
  column->addLayout(
      dialog.buttonRow({&face.button("Command4", label::show, [&form] { entry::Command4(form); })},
                       {&face.button("Command1", label::remove,
                                     [&form] {
                                       form.DataGrid1 = {};
                                       entry::Command1(form);
                                     }),
                        &dialog.closeButton()}));
  dialog.resize(620, 480);
}

void buildNewKateg(Dialog& dialog, entry::frmNewKateg& form) {
  dialog.showTitle(form.CatalogueIsProperty ? label::catalogue_properties_title
                                            : label::catalogue_subjects_title);
  Face& face = dialog.face;
  Grid& grid = face.grid("DBGrid1", form.CatalogueIsProperty ? label::properties : label::subjects);
  grid.setHeads({face.caption(label::catalogue_name), face.caption(label::abbreviation)});
  grid.edited = [&dialog, &form](int row, int column, const std::string& text) {
    const auto change = column == 0 ? entry::editName : entry::editAbbreviation;
    dialog.face.run([&] { change(form, static_cast<std::size_t>(row), text); });
  };
  face.onDraw([&form, &grid] {
    Grid::Rows rows;
    for (const entry::CatalogueRow& each : entry::catalogueRows(form))
      rows.push_back({each.name, each.abbreviation});
    grid.setRows(std::move(rows));
  });
  QLineEdit& itemName = face.line("Text1", label::catalogue_name, form.Text1,
                                  [&form](const std::string& text) { entry::Text1_Change(form, text); });
  QLineEdit& abbreviation = face.line("Text2", label::abbreviation, form.Text2);
  QPushButton& add = face.button(
      "AddItem", label::add,
      [&form, &itemName] {
        entry::addItem(form);
        itemName.setFocus();
      },
      [&form] { return form.addEnabled; });
  QObject::connect(&itemName, &QLineEdit::returnPressed, &abbreviation,
                   [&abbreviation] { abbreviation.setFocus(); });
  QObject::connect(&abbreviation, &QLineEdit::returnPressed, &add, &QPushButton::click);
  auto* typed = new QHBoxLayout;
  typed->addLayout(face.labelled(label::catalogue_name, itemName), 2);
  typed->addLayout(face.labelled(label::abbreviation, abbreviation), 1);
  typed->addWidget(&add);
  auto* column = new QVBoxLayout(&dialog);
  column->addLayout(typed);
  column->addWidget(&grid, 1);
  column->addLayout(dialog.buttonRow(
      {&face.button("AddFile", label::catalogue_from_file, [&form] { entry::AddFile(form); })},
      {&dialog.closeButton()}));
  itemName.setFocus();
  dialog.resize(600, 480);
}

void buildServices(Dialog& dialog, entry::frmServices& form) {
  dialog.showTitle(label::services_title);
  Face& face = dialog.face;
  struct Service {
    const char* objectName;
    int caption;
    bool (*run)(entry::frmServices&);
  };
  constexpr Service services[] = {{"Command1", menu::mnuBuildMetaSearchIndex, entry::GenerateMetaSearchIndex},
                                  {"Command2", menu::mnuBuildSortBegriff, entry::GenerateSortBegriff}};
  auto* column = new QVBoxLayout(&dialog);
  for (const Service& service : services) {
    auto* button = new QPushButton(qt(session::menuText(face.session(), service.caption)), &dialog);
    name(*button, service.objectName, button->text());
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, &dialog,
                     [&dialog, &form, run = service.run] { dialog.face.run([&] { run(form); }); });
    column->addWidget(button);
  }
  column->addStretch(1);
  column->addLayout(dialog.buttonRow({}, {&dialog.closeButton()}));
  dialog.resize(420, 180);
}

}  // namespace desktop
