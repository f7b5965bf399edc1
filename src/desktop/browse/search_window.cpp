#include "desktop/browse/search_window.h"

#include <QFontInfo>
#include <QGridLayout>

#include "catalogue/label.h"
#include "desktop/browse/result_binding.h"
#include "desktop/kit/keys.h"

namespace desktop {
namespace {

using browse::frmSearch;

/// The six texts to search, in two rows of three.
QWidget* options(Dialog& dialog, frmSearch& form) {
  auto* box = new QWidget(&dialog);
  auto* grid = new QGridLayout(box);
  grid->setContentsMargins(0, 0, 0, 0);
  for (int option = 1; option <= 6; ++option) {
    auto* button = new QRadioButton(box);
    button->setObjectName("Option" + QString::number(option));
    QObject::connect(button, &QRadioButton::clicked, &dialog,
                     [&dialog, &form, option] { dialog.face.run([&] { browse::setOption(form, option); }); });
    dialog.face.onDraw([button, &form, option] {
      const QString caption = qt(form.optionCaptions[static_cast<std::size_t>(option) - 1]);
      button->setText(caption);
      button->setAccessibleName(spoken(caption));
      button->setChecked(form.option == option);
    });
    grid->addWidget(button, (option - 1) / 3, (option - 1) % 3);
  }
  dialog.face.onDraw([box, &form] { box->setVisible(form.choicesShown); });
  return box;
}

QWidget* matchBox(Dialog& dialog, frmSearch& form) {
  Face& face = dialog.face;
  auto* box = new QWidget(&dialog);
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  const auto captions = [&form] {
    return std::vector<std::string>(form.matchCaptions.begin(), form.matchCaptions.end());
  };
  QComboBox& match = face.combo(
      "Combo1", label::search_match, captions,
      [&form] { return form.matchCaptions[static_cast<std::size_t>(form.match)]; },
      [&form](const std::string& text) {
        for (std::size_t n = 0; n < form.matchCaptions.size(); ++n)
          if (form.matchCaptions[n] == text) form.match = static_cast<browse::Match>(n);
      });
  QComboBox& font = face.combo(
      "FontList", label::search_font, [&form] { return form.fonts; }, [&form] { return form.searchFont; },
      [&form](const std::string& text) { form.searchFont = text; });
  // The dictionary's font may be missing here: then the one that takes its place is told.
  face.onDraw([&form, &font] {
    if (font.currentIndex() < 0) font.setCurrentText(QFontInfo(fontNamed(form.searchFont)).family());
  });
  QLabel& fontText = face.label(label::search_font);
  fontText.setBuddy(&font);
  font.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  font.setMinimumContentsLength(18);
  row->addLayout(face.labelled(label::search_match, match));
  row->addSpacing(12);
  row->addWidget(&fontText);
  row->addWidget(&font);
  row->addStretch(1);
  face.onDraw([&form, &match, &font, &fontText, box] {
    match.setEnabled(form.matchEnabled);
    font.setVisible(form.fontsShown);
    fontText.setVisible(form.fontsShown);
    box->setVisible(form.choicesShown);
  });
  return box;
}

template <class Form>
QWidget* hierarchyBox(Dialog& dialog, Form& form, const char* mainName, const char* subName,
                      std::function<void(browse::ResultGrid&, int)> clicked,
                      std::function<void(browse::ResultGrid&, int)> opened) {
  auto* box = new QWidget(&dialog);
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  const auto add = [&](const char* objectName, int caption, browse::ResultGrid& result) {
    Grid* grid = nullptr;
    row->addWidget(resultBox(dialog, objectName, caption, result, grid));
    if (clicked)
      grid->selected = [&dialog, clicked, &result](int at) { dialog.face.run([&] { clicked(result, at); }); };
    if (opened)
      grid->activated = [&dialog, opened, &result](int at) { dialog.face.run([&] { opened(result, at); }); };
  };
  add(mainName, label::main_entry, form.hierarchy.main);
  add(subName, label::sub_entries, form.hierarchy.subEntries);
  dialog.face.onDraw([box, &form] { box->setVisible(form.hierarchy.main.visible); });
  return box;
}

}  // namespace

void buildSearch(Dialog& dialog, frmSearch& form) {
  dialog.showTitle(form.mode == browse::SearchMode::goTo ? label::goto_title : label::search_title);
  Face& face = dialog.face;
  dialog.isOpen = [&form] { return form.visible; };
  dialog.close = [&form] { browse::closeSearch(form); };
  QLineEdit& box = face.line("TextBox1", label::search, form.searchText,
                             [&form](const std::string& text) { browse::TextBox1_Change(form, text); });
  box.setClearButtonEnabled(true);
  face.onDraw([&box, &form] { box.setFont(fontNamed(form.searchFont)); });
  const auto search = [&form] { browse::runSearch(form); };
  QPushButton& start =
      face.button("Command1_0", label::search, search, [&form] { return form.searchEnabled; });
  start.setVisible(form.mode == browse::SearchMode::full);
  QObject::connect(&box, &QLineEdit::returnPressed, &dialog, [&dialog, &form] {
    dialog.face.run([&] {
      if (form.mode == browse::SearchMode::full)
        browse::runSearch(form);
      else if (form.jumpEnabled || (browse::hasRow(form.hits, 0) && browse::selectHit(form, 0)))
        browse::jump(form);
    });
  });
  auto* typed = new QHBoxLayout;
  typed->addLayout(face.labelled(label::search, box), 1);
  typed->addWidget(&start);

  Grid *hits = nullptr, *owners = nullptr;
  std::function<void()> count;
  if (form.mode == browse::SearchMode::goTo) count = [&form] { browse::showCount(form); };
  QWidget* hitBox = resultBox(dialog, "DataGrid1", label::search_hits, form.hits, hits, count);
  QWidget* ownerBox = resultBox(dialog, "DataGrid2", label::search_owner, form.owners, owners);
  hits->selected = [&dialog, &form](int row) { dialog.face.run([&] { browse::selectHit(form, row); }); };
  owners->selected = [&dialog, &form](int row) { dialog.face.run([&] { browse::selectOwner(form, row); }); };
  const auto jump = [&dialog, &form](int) { dialog.face.run([&] { browse::jump(form); }); };
  hits->activated = jump;
  owners->activated = jump;
  onKeys(box, {Qt::Key_Down}, [&dialog, &form, hits] {
    if (!browse::hasRow(form.hits, 0)) return;
    hits->setFocus();
    if (form.hits.selected < 0) dialog.face.run([&] { browse::selectHit(form, 0); });
  });
  auto* lists = new QHBoxLayout;
  lists->addWidget(hitBox, 3);
  lists->addWidget(ownerBox, 2);
  QLabel& status = face.shown("StatusLabel", [&form] { return form.statusLabel; });
  auto* column = new QVBoxLayout(&dialog);
  column->addLayout(typed);
  column->addWidget(options(dialog, form));
  column->addWidget(matchBox(dialog, form));
  column->addLayout(lists, 3);
  column->addWidget(
      hierarchyBox(
          dialog, form, "DataGrid4", "DataGrid3",
          [&form](browse::ResultGrid& grid, int row) { browse::showRelated(form, grid, row); },
          [&form](browse::ResultGrid& grid, int row) { browse::jumpToRelated(form, grid, row); }),
      2);
  column->addLayout(dialog.buttonRow(
      {&status}, {&face.button(
                      "Command1_2", label::search_jump, [&form] { browse::jump(form); },
                      [&form] { return form.jumpEnabled; }),
                  &face.button("Command1_1", label::close, [&form] { browse::closeSearch(form); })}));
  box.setFocus();
  dialog.resize(780, 600);
}

void buildLookUp(Dialog& dialog, browse::frmSearchSelectedWord& form) {
  dialog.showTitle(label::lookup_title);
  Face& face = dialog.face;
  dialog.isOpen = [&form] { return form.visible; };
  dialog.close = [&form] { browse::closeLookup(form); };
  constexpr int captions[] = {label::lookup_in_texts, label::lookup_exact, label::lookup_contains};
  auto* lists = new QHBoxLayout;
  for (std::size_t n = 0; n < form.lists.size(); ++n) {
    const std::string objectName = "List" + std::to_string(n + 1);
    QListWidget& list = face.list(
        objectName.c_str(), captions[n], [&form, n] { return form.lists[n].List2; }, {},
        [&form, n](int row) { browse::selectRow(form, n, static_cast<std::size_t>(row)); });
    list.setFont(fontNamed(face.session().project.FontFrom));
    QObject::connect(&list, &QListWidget::itemActivated, &dialog,
                     [&dialog, &form] { dialog.face.run([&] { browse::jump(form); }); });
    lists->addLayout(face.below(captions[n], list));
  }
  QLabel& word = face.shown("Label1", [&form] { return form.Label1; });
  auto* column = new QVBoxLayout(&dialog);
  column->addWidget(&word);
  column->addLayout(lists, 3);
  column->addWidget(hierarchyBox(dialog, form, "DataGrid1", "DataGrid2", {}, {}), 2);
  column->addLayout(dialog.buttonRow(
      {},
      {&face.button(
           "Jump", label::search_jump, [&form] { browse::jump(form); }, [&form] { return form.jumpEnabled; }),
       &face.button("Close", label::close, [&form] { browse::closeLookup(form); })}));
  dialog.resize(780, 560);
}

}  // namespace desktop
