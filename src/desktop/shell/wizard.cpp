#include "desktop/shell/wizard.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QTabWidget>

#include "catalogue/label.h"
#include "desktop/shell/choice_list.h"
#include "desktop/shell/language_grid.h"

namespace desktop {
namespace {

using frame::firstent;

struct Wizard {
  Dialog& dialog;
  Face& face;
  firstent& form;
};

QWidget* page(Wizard& wizard, QLayout* content) {
  auto* made = new QWidget(&wizard.dialog);
  made->setLayout(content);
  return made;
}

QWidget* languagePage(Wizard& wizard) {
  firstent& form = wizard.form;
  auto* grids = new QHBoxLayout;
  grids->addWidget(languageGrid(wizard.face, {"Grid1", "SourceLanguage", "RightToLeftFrom"},
                                label::wizard_source_language, form.languages, form.sourceLanguage,
                                form.rightToLeftFrom));
  grids->addWidget(languageGrid(wizard.face, {"Grid2", "TargetLanguage", "RightToLeftTo"},
                                label::wizard_target_language, form.languages, form.targetLanguage,
                                form.rightToLeftTo));
  auto* column = new QVBoxLayout;
  column->addLayout(grids, 1);
  auto* below = new QHBoxLayout;
  below->addWidget(
      &wizard.face.button("NewLanguage", label::wizard_new_language, [&form] { frame::addLanguage(form); }));
  below->addStretch(1);
  column->addLayout(below);
  return page(wizard, column);
}

QWidget* descriptionPage(Wizard& wizard) {
  Face& face = wizard.face;
  firstent& form = wizard.form;
  auto* column = new QVBoxLayout;
  column->addLayout(face.labelled(label::wizard_description,
                                  face.line("Description", label::wizard_description, form.description)));
  auto* language = new QGroupBox(face.caption(label::wizard_catalogue_language), &wizard.dialog);
  auto* choices = new QHBoxLayout(language);
  const auto choose = [&form](bool german) {
    form.german = german;
    frame::SelectCountry(form);
  };
  choices->addWidget(&face.radio(
      "CatalogueGerman", label::wizard_german, [&form] { return form.german; }, [choose] { choose(true); }));
  choices->addWidget(&face.radio(
      "CatalogueEnglish", label::wizard_english, [&form] { return !form.german; },
      [choose] { choose(false); }));
  choices->addStretch(1);
  column->addWidget(language);
  auto* order = new QGridLayout;
  addChoiceList(face, *order, {"List1", "Label4"}, label::wizard_sort_order, form.sortOrders, form.sortOrder);
  column->addLayout(order, 1);
  QLabel& sample = face.shown("DateSample", [&form, &face] {
    return session::labelText(face.session(), label::config_date_format) + ": " + form.dateSample;
  });
  column->addWidget(&sample);
  return page(wizard, column);
}

QWidget* fontPage(Wizard& wizard) {
  firstent& form = wizard.form;
  auto* lists = new QGridLayout;
  const auto add = [&](const char* list, const char* text, int caption, std::string& font) {
    addChoiceList(wizard.face, *lists, {list, text}, caption, form.fonts, font);
  };
  add("List2", "PhoneticFont", label::wizard_phonetic_font, form.phoneticFont);
  add("List3", "FontFrom", label::wizard_font_source, form.fontFrom);
  add("List4", "FontTo", label::wizard_font_target, form.fontTo);
  add("List5", "FontRemark", label::wizard_font_note, form.fontRemark);
  return page(wizard, lists);
}

QWidget* authorPage(Wizard& wizard) {
  Face& face = wizard.face;
  firstent& form = wizard.form;
  auto* rows = new QFormLayout;
  rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  const auto add = [&](const char* objectName, int caption, std::string& text) {
    QLineEdit& box = face.line(objectName, caption, text);
    rows->addRow(face.caption(caption), &box);
  };
  add("Author", label::wizard_author_name, form.author);
  add("Copyright", label::wizard_author_copyright, form.copyright);
  add("WebSite", label::wizard_author_site, form.webSite);
  add("Mail", label::wizard_author_mail, form.mail);
  return page(wizard, rows);
}

void buildSteps(Wizard& wizard, QTabWidget& tabs, QHBoxLayout& buttons) {
  Face& face = wizard.face;
  QPushButton& back = face.button(
      "Back", label::back, [&tabs] { tabs.setCurrentIndex(tabs.currentIndex() - 1); },
      [&tabs] { return tabs.currentIndex() > 0; });
  QPushButton& next = face.button(
      "Next", label::next, [&tabs] { tabs.setCurrentIndex(tabs.currentIndex() + 1); },
      [&tabs] { return tabs.currentIndex() + 1 < tabs.count(); });
  // The documented green; its text stays dark on it in every palette.
  next.setStyleSheet("QPushButton:enabled { background-color: #66ff66; color: black; }");
  QPushButton& finish =
      face.button("Command1", label::finish, [&form = wizard.form] { frame::finish(form); });
  // Enter goes on to the next page, and ends on the last.
  face.onDraw(
      [&tabs, &next, &finish] { (tabs.currentIndex() + 1 < tabs.count() ? next : finish).setDefault(true); });
  QObject::connect(&tabs, &QTabWidget::currentChanged, &wizard.dialog, [&face] {
    if (!face.gate().isBusy()) face.run([] {});
  });
  for (QPushButton* each : {&back, &next, &finish}) buttons.addWidget(each);
}

}  // namespace

void buildWizard(Dialog& dialog, firstent& form) {
  dialog.showTitle(label::wizard_title);
  Wizard wizard{dialog, dialog.face, form};
  dialog.isOpen = [&form] { return !form.finished && !form.cancelled; };
  dialog.close = [&form] { frame::cancel(form); };
  auto* tabs = new QTabWidget(&dialog);
  tabs->setObjectName("SSTab1");
  if (form.hasLanguages) tabs->addTab(languagePage(wizard), dialog.face.caption(label::wizard_languages));
  tabs->addTab(descriptionPage(wizard), dialog.face.caption(label::wizard_description));
  tabs->addTab(fontPage(wizard), dialog.face.caption(label::wizard_fonts));
  tabs->addTab(authorPage(wizard), dialog.face.caption(label::wizard_author));
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(&dialog.helpButton());
  buttons->addStretch(1);
  buildSteps(wizard, *tabs, *buttons);
  buttons->addWidget(&dialog.face.button("Cancel", label::cancel, dialog.close));
  auto* column = new QVBoxLayout(&dialog);
  column->addWidget(tabs, 1);
  column->addLayout(buttons);
  dialog.resize(820, 560);
}

}  // namespace desktop
