// The settings that are one control each, as one table.

#include <QFormLayout>
#include <QGroupBox>

#include "catalogue/label.h"
#include "desktop/shell/config_pages.h"

namespace desktop {
namespace {

using frame::ConfigField;
using frame::FieldKind;
using frame::frmConfig;

/// A setting and how it is captioned; its tab, kind and documented control stand in configFields().
struct Control {
  const char* field;
  int caption;
  int group = 0;                         ///< caption of the box around; 0: none
  bool (*browse)(frmConfig&) = nullptr;  ///< what a button beside the control does
};

constexpr Control controls[] = {
    {"Kurzbeschreibung", label::wizard_description},

    {"khz11", label::config_11_khz, label::config_sampling_rate},
    {"khz22", label::config_22_khz, label::config_sampling_rate},
    {"khz44", label::config_44_khz, label::config_sampling_rate},
    {"bit8", label::config_8_bit, label::config_sample_depth},
    {"bit16", label::config_16_bit, label::config_sample_depth},
    {"EinKanal", label::config_mono, label::config_channels},
    {"ZweiKanal", label::config_stereo, label::config_channels},

    {"Stil1", label::config_page_display, label::config_entry_display},
    {"Stil2", label::config_page_display_compact, label::config_entry_display},
    {"ShowRating", label::config_show_rating, label::config_entry_display},
    {"UseRelativPath", label::config_relative_paths, label::config_published_paths},
    {"UseWebsitePath", label::config_website_paths, label::config_published_paths},
    {"UseAbsolutFilePath", label::config_absolute_paths, label::config_published_paths},
    {"ShowNewIcon", label::config_mark_new, label::config_new_entries},
    {"NewIconPath", label::config_new_icon, label::config_new_entries, frame::chooseNewIcon},
    {"NewNumberOfDays", label::config_new_days, label::config_new_entries},
    {"PictureAsURL", label::config_picture_as_link, label::config_pictures_and_links},
    {"ObjectAsAltText", label::config_headword_as_alt, label::config_pictures_and_links},
    {"ShowURLSeparate", label::config_links_apart, label::config_pictures_and_links},
    {"StyleSheetPath", label::config_style_sheet},
    {"XMLStyleSheetPath", label::config_xml_style_sheet},
    {"DateFormat", label::config_date_format},
    {"Blog", label::config_blog},

    {"EnumMeaning", label::config_number_meanings, label::config_editing},
    {"ShowMeaningsForEditing", label::config_show_meanings, label::config_editing},
    {"BegriffPruefung", label::config_check_headword, label::config_editing},
    {"VerwendungAbkuerzungen", label::config_abbreviations, label::config_editing},
    {"SteuerzeichenFeld", label::config_field_separator, label::config_text_files},
    {"SteuerzeichenSatz", label::config_record_separator, label::config_text_files},
    {"IgnoreAtSort", label::config_ignore_at_sort},

    {"Autorname", label::wizard_author_name},
    {"Copyright", label::wizard_author_copyright},
    {"AutorWebURL", label::wizard_author_site},
    {"AutorEMail", label::wizard_author_mail},

    {"LastReportTableUpdate", label::config_last_report_update},
};

const ConfigField& fieldOf(const Control& control) {
  return frame::configFields()[frame::configField(control.field)];
}

const char* objectNameOf(const ConfigField& field) {
  return *field.control != '\0' ? field.control : field.name.c_str();
}

QWidget& button(const ConfigWindow& window, const Control& control, const char* objectName) {
  frmConfig& form = window.form;
  if (fieldOf(control).kind == FieldKind::option)
    return window.face.radio(
        objectName, control.caption, [&form, &control] { return frame::truthOf(form, control.field); },
        [&form, &control] { frame::chooseOption(form, control.field); });
  return window.face.check(objectName, control.caption, frame::truthOf(form, control.field));
}

void addControl(const ConfigWindow& window, const Control& control, QFormLayout& rows) {
  const ConfigField& field = fieldOf(control);
  if (field.kind == FieldKind::truth || field.kind == FieldKind::option)
    return rows.addRow(&button(window, control, objectNameOf(field)));
  QLineEdit& box =
      window.face.line(objectNameOf(field), control.caption, frame::textOf(window.form, control.field));
  QLabel& caption = window.face.label(control.caption);
  caption.setBuddy(&box);
  if (control.browse == nullptr) return rows.addRow(&caption, &box);
  auto* both = new QHBoxLayout;
  both->addWidget(&box, 1);
  const std::string chooser = std::string("Choose") + control.field;
  both->addWidget(&window.face.button(chooser.c_str(), label::browse_files,
                                      [&form = window.form, &control] { control.browse(form); }));
  rows.addRow(&caption, both);
}

QFormLayout* formLayout(QWidget* parent = nullptr) {
  auto* rows = new QFormLayout(parent);
  rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  rows->setRowWrapPolicy(QFormLayout::WrapLongRows);
  return rows;
}

}  // namespace

QLayout* tableOfControls(const ConfigWindow& window, frame::ConfigTab tab) {
  auto* boxes = new QGridLayout;
  boxes->setColumnStretch(0, 1);
  boxes->setColumnStretch(1, 1);
  QFormLayout* apart = formLayout();
  QFormLayout* rows = nullptr;
  int group = 0, count = 0;
  for (const Control& control : controls) {
    if (fieldOf(control).tab != tab) continue;
    if (control.group == 0) {
      addControl(window, control, *apart);
      continue;
    }
    if (control.group != group) {
      group = control.group;
      auto* box = new QGroupBox(window.face.caption(group), &window.dialog);
      rows = formLayout(box);
      boxes->addWidget(box, count / 2, count % 2);
      ++count;
    }
    addControl(window, control, *rows);
  }
  auto* column = new QVBoxLayout;
  if (count > 0) column->addLayout(boxes);
  column->addLayout(apart);
  return column;
}

}  // namespace desktop
