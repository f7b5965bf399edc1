#include "desktop/shell/config_pages.h"

#include <QGroupBox>

#include "catalogue/label.h"
#include "desktop/kit/keys.h"
#include "desktop/shell/choice_list.h"
#include "desktop/shell/language_grid.h"

namespace desktop {

using frame::frmConfig;

QLayout* languageChoice(const ConfigWindow& window) {
  frmConfig& form = window.form;
  Face& face = window.face;
  if (form.session.project.ProjectType != 1) return nullptr;  // a work without a pair of languages
  auto* grids = new QHBoxLayout;
  grids->addWidget(languageGrid(
      face, {"Grid1", "UebersetzungVon", "RightToLeftFrom"}, label::wizard_source_language, form.languages,
      frame::textOf(form, "UebersetzungVon"), frame::truthOf(form, "RightToLeftFrom")));
  grids->addWidget(languageGrid(
      face, {"Grid2", "UebersetzungNach", "RightToLeftTo"}, label::wizard_target_language, form.languages,
      frame::textOf(form, "UebersetzungNach"), frame::truthOf(form, "RightToLeftTo")));
  auto* below = new QHBoxLayout;
  below->addWidget(
      &face.button("NewLanguage", label::wizard_new_language, [&form] { frame::addLanguage(form); }));
  below->addStretch(1);
  auto* column = new QVBoxLayout;
  column->addLayout(grids, 1);
  column->addLayout(below);
  return column;
}

QLayout* sortingAndFonts(const ConfigWindow& window) {
  frmConfig& form = window.form;
  Face& face = window.face;
  auto* lists = new QGridLayout;
  addChoiceList(face, *lists, {"List2", "SortOrder"}, label::wizard_sort_order, form.sortOrders,
                frame::textOf(form, "Sortierreihenfolge"),
                [&form](const std::string& text) { frame::setFieldText(form, "Sortierreihenfolge", text); });
  const auto addFonts = [&](const char* list, const char* text, int caption, const char* field) {
    addChoiceList(face, *lists, {list, text}, caption, form.fonts, frame::textOf(form, field));
  };
  addFonts("List3", "Label7", label::wizard_phonetic_font, "Lautschrift");
  addFonts("List4", "FontFrom", label::wizard_font_source, "SchriftVon");
  addFonts("List5", "FontTo", label::wizard_font_target, "SchriftNach");
  addFonts("List6", "FontRemark", label::wizard_font_note, "SchriftBemerkung");
  const std::string& phonetic = frame::textOf(form, "Lautschrift");
  QLineEdit& sample = face.line("TextBox3", label::config_phonetic_characters,
                                frame::textOf(form, "LautschriftZeichenArialUnicode"));
  face.onDraw([&sample, &phonetic] {
    QFont font = fontNamed(phonetic, true);
    font.setPointSizeF(font.pointSizeF() * 1.4);
    sample.setFont(font);
  });
  QLabel& head = face.shown("Label24", [&face, &phonetic] {
    return session::labelText(face.session(), label::config_phonetic_characters) + " (" + phonetic + "):";
  });
  head.setBuddy(&sample);
  auto* column = new QVBoxLayout;
  column->addLayout(lists, 1);
  column->addWidget(&head);
  column->addWidget(&sample);
  return column;
}

QLayout* articleList(const ConfigWindow& window) {
  frmConfig& form = window.form;
  Face& face = window.face;
  Grid& grid = face.grid("DataGrid2", label::config_articles);
  grid.setHeads({face.caption(label::config_articles)});
  face.onDraw([&form, &grid] {
    Grid::Rows rows;
    for (const std::string& article : form.articles) rows.push_back({article});
    grid.setRows(std::move(rows));
  });
  QLineEdit& article = face.line("TextBox2", label::config_new_article, form.articleBox,
                                 [&form](const std::string& text) { form.articleBox = text; });
  QPushButton& add = face.button(
      "AddArticle", label::add, [&form] { frame::addArticle(form); },
      [&form] { return !form.articleBox.empty(); });
  // Enter adds the article; the dialog's default button would close it.
  onKeys(article, {Qt::Key_Return, Qt::Key_Enter}, [&add] { add.click(); });
  auto* typed = face.labelled(label::config_new_article, article);
  typed->addWidget(&add);
  auto* column = new QVBoxLayout;
  column->addWidget(&grid, 1);
  column->addLayout(typed);
  return column;
}

QLayout* reportAttributes(const ConfigWindow& window) {
  frmConfig& form = window.form;
  Face& face = window.face;
  Grid& grid = face.grid("Data11", label::config_report_attributes);
  grid.setHeads({face.caption(label::config_report_object), face.caption(label::config_report_attribute),
                 face.caption(label::config_attribute_value)});
  constexpr int valueColumn = 2;
  grid.editableColumns = {false, false, true};
  grid.edited = [&face, &form](int row, int column, const std::string& text) {
    if (column == valueColumn)
      face.run([&] { frame::editReportAttribute(form, static_cast<std::size_t>(row), text); });
  };
  face.onDraw([&form, &grid] {
    Grid::Rows rows;
    for (const frame::ReportAttribute& each : form.reportAttributes)
      rows.push_back({each.Objekt, each.Eigenschaft, each.Eigenschaftswert});
    grid.setRows(std::move(rows));
  });
  auto* column = new QVBoxLayout;
  column->addWidget(&grid, 1);
  return column;
}

QLayout* programSettings(const ConfigWindow& window) {
  frmConfig& form = window.form;
  Face& face = window.face;
  bool& german = frame::truthOf(form, "Anwendungssprache");
  auto* language = new QGroupBox(face.caption(label::wizard_catalogue_language), &window.dialog);
  auto* choices = new QHBoxLayout(language);
  choices->addWidget(&face.radio(
      "Anwendungssprache", label::wizard_german, [&german] { return german; }, [&german] { german = true; }));
  choices->addWidget(&face.radio(
      "CatalogueEnglish", label::wizard_english, [&german] { return !german; },
      [&german] { german = false; }));
  choices->addStretch(1);
  QLabel& folder = face.shown("AppDataPath", [&form] { return form.dataFolder; });
  folder.setWordWrap(true);
  folder.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  auto* place = new QGroupBox(face.caption(label::config_data_folder), &window.dialog);
  auto* row = new QHBoxLayout(place);
  row->addWidget(&folder, 1);
  row->addWidget(
      &face.button("ChooseFolder", label::browse_files, [&form] { frame::chooseDataFolder(form); }));
  auto* column = new QVBoxLayout;
  column->addWidget(language);
  column->addWidget(place);
  column->addStretch(1);
  return column;
}

}  // namespace desktop
