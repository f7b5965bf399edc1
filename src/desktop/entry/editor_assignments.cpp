// The editor's tabs of properties and subject fields, of the entry and of its meanings.

#include <QGridLayout>
#include <QShortcut>

#include "catalogue/label.h"
#include "desktop/entry/editor_tabs.h"
#include "entry/classification.h"
#include "entry/meanings.h"

namespace desktop {
namespace {

using entry::Owner;

struct Names {
  const char *catalogueProperties, *properties, *addProperty, *removeProperty;
  const char *catalogueSubjects, *subjects, *addSubject, *removeSubject;
};

bool isShown(const Editor& editor, Owner owner) {
  const entry::Tab tab = owner == Owner::entry ? entry::Tab::properties : entry::Tab::meaningProperties;
  return editor.form.visible && editor.form.tab == tab;
}

/// Two buttons between a catalogue and what is assigned of it.
QVBoxLayout* arrows(Editor editor, const char* add, const char* remove, Face::Operation adding,
                    Face::Operation removing) {
  auto* column = new QVBoxLayout;
  column->addStretch(1);
  column->addWidget(&editor.face.button(add, label::add, std::move(adding)));
  column->addWidget(&editor.face.button(remove, label::remove, std::move(removing)));
  column->addStretch(1);
  return column;
}

/// A catalogue on the left; a double click or Enter assigns.
QListWidget& catalogueList(Editor editor, const char* objectName, int caption, Owner owner,
                           std::vector<std::string> (*items)(entry::frmEintrag&), Face::Operation assign) {
  QListWidget& list =
      editor.face.list(objectName, caption,
                       [editor, items, owner] {
                         return isShown(editor, owner) ? items(editor.form) : std::vector<std::string>{};
                       },
                       {}, {});
  QObject::connect(&list, &QListWidget::itemActivated, &editor.dialog,
                   [editor, assign = std::move(assign)] { editor.face.run(assign); });
  return list;
}

std::string textOf(const QListWidget& list) {
  return list.currentItem() == nullptr ? std::string() : list.currentItem()->text().toStdString();
}

void addProperties(Editor editor, Owner owner, const Names& names, QGridLayout& grid, int row) {
  Grid& assigned = editor.face.grid(names.properties, label::properties);
  assigned.setHeads({editor.face.caption(label::property), editor.face.caption(label::property_value)});
  assigned.editableColumns = {false, true};
  auto list = std::make_shared<QListWidget*>(nullptr);
  const auto add = [editor, owner, holder = list] {
    entry::addProperty(editor.form, textOf(**holder), owner);
  };
  QListWidget& catalogue = catalogueList(editor, names.catalogueProperties, label::properties, owner,
                                         entry::catalogueProperties, add);
  *list = &catalogue;
  const auto nameAt = [&assigned](int at) {
    return assigned.model()->index(at, 0).data().toString().toStdString();
  };
  const auto remove = [editor, owner, &assigned, nameAt] {
    if (assigned.currentRow() >= 0) entry::removeProperty(editor.form, nameAt(assigned.currentRow()), owner);
  };
  assigned.edited = [editor, owner, nameAt](int at, int, const std::string& value) {
    const std::string property = nameAt(at);
    editor.face.run([&] { entry::setPropertyValue(editor.form, property, value, owner); });
  };
  assigned.activated = [editor, remove](int) { editor.face.run(remove); };
  editor.face.onDraw([editor, owner, &assigned] {
    if (!isShown(editor, owner)) return;
    Grid::Rows rows;
    for (const entry::PropertyRow& each : entry::propertyRows(editor.form, owner))
      rows.push_back({each.name, each.value});
    assigned.setRows(std::move(rows));
  });
  grid.addLayout(editor.face.below(label::properties, catalogue), row, 0);
  grid.addLayout(arrows(editor, names.addProperty, names.removeProperty, add, remove), row, 1);
  grid.addWidget(&assigned, row, 2);
}

void addSubjects(Editor editor, Owner owner, const Names& names, QGridLayout& grid, int row) {
  auto list = std::make_shared<QListWidget*>(nullptr);
  const auto add = [editor, owner, list] { entry::addSubject(editor.form, textOf(**list), owner); };
  QListWidget& catalogue =
      catalogueList(editor, names.catalogueSubjects, label::subjects, owner, entry::catalogueSubjects, add);
  *list = &catalogue;
  QListWidget& assigned = editor.face.list(
      names.subjects, owner == Owner::entry ? label::entry_subjects : label::meaning_subjects,
      [form = &editor.form, owner] { return owner == Owner::entry ? form->List6 : form->List5; }, {}, {});
  const auto remove = [editor, owner, &assigned] {
    entry::removeSubject(editor.form, textOf(assigned), owner);
  };
  QObject::connect(&assigned, &QListWidget::itemActivated, &editor.dialog,
                   [editor, remove] { editor.face.run(remove); });
  auto* erase = new QShortcut(QKeySequence(Qt::Key_Delete), &assigned, nullptr, nullptr, Qt::WidgetShortcut);
  QObject::connect(erase, &QShortcut::activated, &editor.dialog,
                   [editor, remove] { editor.face.run(remove); });
  grid.addLayout(editor.face.below(label::subjects, catalogue), row, 0);
  grid.addLayout(arrows(editor, names.addSubject, names.removeSubject, add, remove), row, 1);
  grid.addLayout(
      editor.face.below(owner == Owner::entry ? label::entry_subjects : label::meaning_subjects, assigned),
      row, 2);
}

QGridLayout* assignments(Editor editor, Owner owner, const Names& names) {
  auto* grid = new QGridLayout;
  addProperties(editor, owner, names, *grid, 0);
  addSubjects(editor, owner, names, *grid, 1);
  grid->setColumnStretch(0, 2);
  grid->setColumnStretch(2, 3);
  return grid;
}

}  // namespace

QWidget* propertiesTab(Editor& editor) {
  return tabPage(editor, entry::Tab::properties,
                 assignments(editor, Owner::entry,
                             {"DBList9", "DBGridEigenschaftWert", "AddProperty", "RemoveProperty", "DBList11",
                              "List6", "AddSubject", "RemoveSubject"}));
}

QWidget* meaningPropertiesTab(Editor& editor) {
  Grid& meanings = editor.face.grid("DataGrid4", label::meanings_of_entry);
  meanings.setHeads({editor.face.caption(label::meanings_of_entry)});
  asTarget(editor, meanings);
  meanings.selected = [editor](int row) {
    editor.face.run([&] { entry::selectMeaningForProperties(editor.form, static_cast<std::size_t>(row)); });
  };
  editor.face.onDraw([editor, &meanings] {
    if (!isShown(editor, Owner::meaning)) return;
    Grid::Rows rows;
    for (const entry::MeaningRow& each : entry::meaningRows(editor.form)) rows.push_back({each.text});
    meanings.setRows(std::move(rows));
  });
  QLabel& chosen =
      editor.face.shown("WindowedLabel2", [&form = editor.form] { return form.meaningPropertiesLabel; });
  chosen.setWordWrap(true);
  auto* column = new QVBoxLayout;
  column->addWidget(&meanings, 1);
  column->addWidget(&chosen);
  column->addLayout(
      assignments(editor, Owner::meaning,
                  {"DBList5", "DBGridWortbedEigenschaftWert", "AddMeaningProperty", "RemoveMeaningProperty",
                   "DBList7", "List5", "AddMeaningSubject", "RemoveMeaningSubject"}),
      3);
  return tabPage(editor, entry::Tab::meaningProperties, column);
}

}  // namespace desktop
