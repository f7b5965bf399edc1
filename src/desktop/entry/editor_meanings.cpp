// The editor's tabs of meanings and examples.

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGroupBox>
#include <QMimeData>
#include <QSplitter>

#include "catalogue/label.h"
#include "desktop/entry/editor_tabs.h"
#include "entry/meanings.h"

namespace desktop {
namespace {

constexpr std::size_t meaningsListed = 200;

/// Takes a meaning that is dragged from the list of all meanings.
class DropOnBox : public QObject {
 public:
  DropOnBox(Editor editor, QLineEdit& box) : QObject(&box), editor_(editor) {
    box.setAcceptDrops(true);
    box.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::DragEnter) {
      static_cast<QDragEnterEvent*>(event)->acceptProposedAction();
      return true;
    }
    if (event->type() != QEvent::Drop) return QObject::eventFilter(object, event);
    auto* drop = static_cast<QDropEvent*>(event);
    const auto* list = qobject_cast<QListWidget*>(drop->source());
    if (list == nullptr || list->currentItem() == nullptr) return false;
    editor_.face.run([&] {
      entry::pickMeaning(editor_.form, list->currentItem()->text().toStdString());
      entry::dropPickedMeaning(editor_.form);
    });
    drop->acceptProposedAction();
    return true;
  }

 private:
  Editor editor_;
};

Grid::Rows textsOf(const std::vector<entry::MeaningRow>& meanings) {
  Grid::Rows rows;
  for (const entry::MeaningRow& each : meanings) rows.push_back({each.text});
  return rows;
}

/// The meanings of the entry as a grid; its rows follow the form.
Grid& meaningGrid(Editor editor, const char* objectName) {
  Grid& grid = editor.face.grid(objectName, label::meanings_of_entry);
  grid.setHeads({editor.face.caption(label::meanings_of_entry)});
  asTarget(editor, grid);
  editor.face.onDraw([editor, &grid] {
    if (!grid.isVisibleTo(&editor.dialog) && grid.model()->rowCount() > 0) return;
    grid.setRows(editor.form.Adodc2.isOpen() ? textsOf(entry::meaningRows(editor.form)) : Grid::Rows{});
  });
  return grid;
}

}  // namespace

QWidget* meaningsTab(Editor& editor) {
  Face& face = editor.face;
  entry::frmEintrag& form = editor.form;
  QLineEdit& box = face.line("TextBox2", label::meaning, form.meaningBox,
                             [&form](const std::string& text) { entry::meaningBoxChanged(form, text); });
  asTarget(editor, box);
  new DropOnBox(editor, box);
  QPushButton& add = face.button(
      "AddMeaning", label::add, [&form] { entry::addMeaning(form); },
      [&form] { return !form.meaningBox.empty(); });
  QObject::connect(&box, &QLineEdit::returnPressed, &add, &QPushButton::click);

  QListWidget& all = face.list("DataGrid3", label::meanings_of_dictionary,
                               [&form] {
                                 return form.tab == entry::Tab::meanings && form.visible
                                            ? entry::dictionaryMeanings(form, meaningsListed)
                                            : std::vector<std::string>{};
                               },
                               {}, {});
  all.setDragEnabled(true);
  all.setToolTip(face.caption(label::drag_meaning));
  asTarget(editor, all);
  const auto take = [editor](const QListWidgetItem* item) {
    editor.face.run([&] {
      entry::pickMeaning(editor.form, item->text().toStdString());
      entry::dropPickedMeaning(editor.form);
    });
  };
  QObject::connect(&all, &QListWidget::itemActivated, &editor.dialog, take);

  Grid& meanings = meaningGrid(editor, "DataGrid2");
  meanings.edited = [editor](int row, int, const std::string& text) {
    editor.face.run([&] { entry::editMeaning(editor.form, static_cast<std::size_t>(row), text); });
  };
  QPushButton& remove = face.button(
      "RemoveMeaning", label::remove,
      [editor, &meanings] {
        if (meanings.currentRow() >= 0)
          entry::editMeaning(editor.form, static_cast<std::size_t>(meanings.currentRow()), "");
      },
      [&meanings] { return meanings.model()->rowCount() > 0; });

  auto* typed = new QHBoxLayout;
  typed->addLayout(face.labelled(label::meaning, box), 1);
  typed->addWidget(&add);
  auto* own = new QVBoxLayout;
  own->addWidget(&meanings, 1);
  auto* commands = new QHBoxLayout;
  commands->addStretch(1);
  commands->addWidget(&remove);
  own->addLayout(commands);
  auto* lists = new QHBoxLayout;
  lists->addLayout(own, 1);
  lists->addLayout(face.below(label::meanings_of_dictionary, all), 1);
  auto* column = new QVBoxLayout;
  column->addLayout(typed);
  column->addLayout(lists, 1);
  return tabPage(editor, entry::Tab::meanings, column);
}

QWidget* examplesTab(Editor& editor) {
  Face& face = editor.face;
  entry::frmEintrag& form = editor.form;
  Grid& meanings = meaningGrid(editor, "DataGrid5");
  meanings.selected = [editor](int row) {
    editor.face.run([&] { entry::selectMeaning(editor.form, static_cast<std::size_t>(row)); });
  };
  QLabel& selected = face.shown("SelectedMeaning", [&form] { return form.selectedMeaningLabel; });
  selected.setWordWrap(true);

  Grid& examples = face.grid("DataGrid1", label::examples);
  examples.setHeads({face.caption(label::example), face.caption(label::example_translation)});
  examples.setRightToLeft({sourceFromRight(face.session()), targetFromRight(face.session())});
  examples.selected = [editor](int row) {
    editor.face.run([&] { entry::selectExample(editor.form, static_cast<std::size_t>(row)); });
  };
  examples.edited = [editor](int row, int column, const std::string& text) {
    const auto change = column == 0 ? entry::editExampleSentence : entry::editExampleTranslation;
    editor.face.run([&] { change(editor.form, static_cast<std::size_t>(row), text); });
  };
  face.onDraw([editor, &examples] {
    Grid::Rows rows;
    if (editor.form.Adodc5.isOpen())
      for (const entry::ExampleRow& each : entry::exampleRows(editor.form))
        rows.push_back({each.sentence, each.translation});
    examples.setRows(std::move(rows));
  });
  QLineEdit& sentence = face.line("Text5", label::example, form.exampleBox);
  QLineEdit& translation = face.line("Text6", label::example_translation, form.translationBox);
  asSource(editor, sentence);
  asTarget(editor, translation);
  QPushButton& add = face.button(
      "AddExample", label::add, [&form] { entry::addExample(form); },
      [&form] { return form.exampleCommandsEnabled; });
  QObject::connect(&translation, &QLineEdit::returnPressed, &add, &QPushButton::click);
  QObject::connect(&sentence, &QLineEdit::returnPressed, &translation,
                   [&translation] { translation.setFocus(); });
  QPushButton& remove = face.button(
      "RemoveExample", label::remove, [&form] { entry::deleteExample(form); },
      [&form] { return form.deleteExampleEnabled; });
  face.onDraw([&form, &sentence, &translation] {
    sentence.setEnabled(form.exampleCommandsEnabled);
    translation.setEnabled(form.exampleCommandsEnabled);
  });

  auto* typed = new QHBoxLayout;
  typed->addLayout(face.below(label::example, sentence), 1);
  typed->addLayout(face.below(label::example_translation, translation), 1);
  typed->addWidget(&add, 0, Qt::AlignBottom);
  typed->addWidget(&remove, 0, Qt::AlignBottom);
  auto* column = new QVBoxLayout;
  column->addWidget(&meanings, 2);
  column->addWidget(&selected);
  column->addWidget(&examples, 3);
  column->addLayout(typed);
  return tabPage(editor, entry::Tab::examples, column);
}

}  // namespace desktop
