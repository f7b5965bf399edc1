#include "desktop/entry/catalogue_windows.h"

#include <QTabBar>
#include <algorithm>

#include "catalogue/label.h"
#include "desktop/kit/keys.h"

namespace desktop {
namespace {

using Items = std::vector<entry::CatalogueItem>;
using RowOperation = std::function<void(std::size_t row)>;

/// Runs the operation on the current row of a list. The row that follows is the current one afterwards, so
/// that several can be taken one after the other.
void take(Face& face, QListWidget& list, const RowOperation& operation) {
  const int row = list.currentRow();
  if (row < 0) return;
  face.run([&] { operation(static_cast<std::size_t>(row)); });
  if (list.count() > 0) list.setCurrentRow(std::min(row, list.count() - 1));
}

/// A list of items; `taken` runs on a double click or Enter.
QListWidget& itemList(Face& face, const char* objectName, int caption, const Items& items,
                      const RowOperation& taken) {
  QListWidget& list = face.list(objectName, caption,
                                [&items] {
                                  std::vector<std::string> names;
                                  for (const entry::CatalogueItem& item : items) names.push_back(item.name);
                                  return names;
                                },
                                {}, {});
  const auto run = [&face, &list, taken] { take(face, list, taken); };
  QObject::connect(&list, &QListWidget::doubleClicked, &list, run);
  onKeys(list, {Qt::Key_Return, Qt::Key_Enter}, run);
  return list;
}

struct AutomaticRow {
  bool property;
  const char *catalogue, *flagged, *all;
  int catalogueCaption, flaggedCaption, allCaption;
};
constexpr AutomaticRow automaticRows[] = {
    {true, "List1", "List2", "Check1", label::properties, label::automatic_properties,
     label::automatic_all_properties},
    {false, "List3", "List4", "Check2", label::subjects, label::automatic_subjects,
     label::automatic_all_subjects},
};

/// The command that flags all items of a catalogue, or none.
QCheckBox& allBox(Dialog& dialog, entry::frmAutokat& form, const AutomaticRow& row,
                  const entry::frmAutokat::Lists& lists) {
  auto* box = new QCheckBox(dialog.face.caption(row.allCaption), &dialog);
  name(*box, row.all, box->text());
  dialog.face.onDraw([box, &lists] {
    box->setChecked(!lists.catalogue.empty() && lists.flagged.size() == lists.catalogue.size());
  });
  QObject::connect(box, &QCheckBox::clicked, &dialog, [&dialog, &form, property = row.property](bool ticked) {
    dialog.face.run([&] { entry::flagAll(form, property, ticked); });
  });
  return *box;
}

QLayout* automaticLists(Dialog& dialog, entry::frmAutokat& form, const AutomaticRow& row) {
  Face& face = dialog.face;
  const bool property = row.property;
  const entry::frmAutokat::Lists& lists = property ? form.properties : form.subjects;
  QListWidget& catalogue =
      itemList(face, row.catalogue, row.catalogueCaption, lists.catalogue,
               [&form, property](std::size_t item) { entry::setFlag(form, property, item); });
  QListWidget& flagged =
      itemList(face, row.flagged, row.flaggedCaption, lists.flagged,
               [&form, property](std::size_t item) { entry::clearFlag(form, property, item); });
  auto* left = face.below(row.catalogueCaption, catalogue);
  left->addWidget(&allBox(dialog, form, row, lists));
  auto* columns = new QHBoxLayout;
  columns->addLayout(left, 1);
  columns->addLayout(face.below(row.flaggedCaption, flagged), 1);
  return columns;
}

QTabBar& automaticTabs(Dialog& dialog, entry::frmAutokat& form) {
  auto* tabs = new QTabBar(&dialog);
  tabs->setObjectName("SSTab1");
  tabs->setExpanding(false);
  tabs->addTab(dialog.face.caption(label::automatic_to_entries));
  if (form.meaningsShown) tabs->addTab(dialog.face.caption(label::automatic_to_meanings));
  dialog.face.onDraw([tabs, &form] { tabs->setCurrentIndex(static_cast<int>(form.tab)); });
  QObject::connect(tabs, &QTabBar::currentChanged, &dialog, [&dialog, &form](int index) {
    if (!dialog.face.gate().isBusy())
      dialog.face.run([&] { entry::selectTab(form, static_cast<entry::AutomaticTab>(index)); });
  });
  return *tabs;
}

/// The catalogue at the left, what was taken out of it at the right, and the two commands between them.
QLayout* choiceLists(Dialog& dialog, entry::CatalogueChoice& lists, int catalogueCaption, int chosenCaption) {
  Face& face = dialog.face;
  const RowOperation choose = [&lists](std::size_t row) { entry::choose(lists, row); };
  const RowOperation giveBack = [&lists](std::size_t row) { entry::giveBack(lists, row); };
  QListWidget& items = itemList(face, "List1", catalogueCaption, lists.items, choose);
  QListWidget& chosen = itemList(face, "List2", chosenCaption, lists.chosen, giveBack);
  const auto mover = [&](const char* objectName, int caption, QListWidget& from,
                         const RowOperation& operation) {
    auto* button = new QPushButton(face.caption(caption), &dialog);
    name(*button, objectName, button->text());
    button->setAutoDefault(false);
    face.onDraw([button, &from] { button->setEnabled(from.count() > 0); });
    QObject::connect(button, &QPushButton::clicked, &dialog,
                     [&face, &from, operation] { take(face, from, operation); });
    return button;
  };
  auto* movers = new QVBoxLayout;
  movers->addStretch(1);
  movers->addWidget(mover("Choose", label::move_to_chosen, items, choose));
  movers->addWidget(mover("GiveBack", label::move_back, chosen, giveBack));
  movers->addStretch(1);
  auto* columns = new QHBoxLayout;
  columns->addLayout(face.below(catalogueCaption, items), 1);
  columns->addLayout(movers);
  columns->addLayout(face.below(chosenCaption, chosen), 1);
  return columns;
}

/// What the two windows that delete by a catalogue differ in.
struct Deletion {
  int propertiesTitle, subjectsTitle, chosenCaption;
  const char* command;
  int commandCaption;
};

/// The two lists, `options` below them where there are any, and the command on what was chosen.
void layOut(Dialog& dialog, const Deletion& deletion, bool properties, entry::CatalogueChoice& lists,
            QLayout* options, const Face::Operation& remove) {
  dialog.showTitle(properties ? deletion.propertiesTitle : deletion.subjectsTitle);
  auto* column = new QVBoxLayout(&dialog);
  column->addLayout(
      choiceLists(dialog, lists, properties ? label::properties : label::subjects, deletion.chosenCaption),
      1);
  if (options != nullptr) column->addLayout(options);
  column->addLayout(
      dialog.buttonRow({}, {&dialog.face.button(deletion.command, deletion.commandCaption, remove,
                                                [&lists] { return !lists.chosen.empty(); }),
                            &dialog.closeButton()}));
  dialog.resize(640, 460);
}

}  // namespace

void buildAutokat(Dialog& dialog, entry::frmAutokat& form) {
  dialog.showTitle(label::automatic_title);
  Face& face = dialog.face;
  auto* column = new QVBoxLayout(&dialog);
  column->addWidget(&automaticTabs(dialog, form));
  for (const AutomaticRow& row : automaticRows) column->addLayout(automaticLists(dialog, form, row), 1);
  column->addLayout(dialog.buttonRow(
      {&face.button(
          "ClearAll", label::automatic_clear, [&form] { entry::clearAllFlags(form); },
          [&form] { return !form.properties.flagged.empty() || !form.subjects.flagged.empty(); })},
      {&dialog.closeButton()}));
  dialog.resize(620, 560);
}

void buildDeleteEigenschaftSach(Dialog& dialog, entry::frmDeleteEigenschaftSach& form) {
  auto* scope = new QHBoxLayout;
  scope->addWidget(&dialog.face.radio(
      "Check1", label::delete_from_entries_only, [&form] { return !form.meaningsToo; },
      [&form] { form.meaningsToo = false; }));
  scope->addWidget(&dialog.face.radio(
      "Check2", label::delete_from_meanings_too, [&form] { return form.meaningsToo; },
      [&form] { form.meaningsToo = true; }));
  scope->addStretch(1);
  constexpr Deletion deletion{label::delete_properties_title, label::delete_subjects_title,
                              label::items_to_delete, "DeleteItems", label::delete_command};
  layOut(dialog, deletion, form.CatalogueDeleteMode, form.lists, scope,
         [&form] { entry::deleteItems(form); });
}

void buildDeleteEintragEigenschaftSach(Dialog& dialog, entry::frmDeleteEintragEigenschaftSach& form) {
  constexpr Deletion deletion{label::delete_by_property_title, label::delete_by_subject_title,
                              label::items_of_entries_to_delete, "DeleteEntries",
                              label::delete_entries_title};
  layOut(dialog, deletion, form.CatalogueDeleteMode, form.lists, nullptr,
         [&form] { entry::deleteEntries(form); });
}

}  // namespace desktop
