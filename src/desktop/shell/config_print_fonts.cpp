// The tab of the print fonts: one line a kind of text, and the attributes of the chosen one below.

#include <QColorDialog>
#include <QHeaderView>
#include <QSpinBox>
#include <algorithm>

#include "catalogue/label.h"
#include "desktop/shell/config_pages.h"

namespace desktop {
namespace {

using frame::frmConfig;
using frame::PrintFont;

/// In the order of printFontKinds.
constexpr int kindCaptions[] = {
    label::headword, label::pronunciation,       label::meaning, label::property, label::subject,
    label::example,  label::example_translation, label::note,    label::web_link, label::cross_reference};
static_assert(std::size(kindCaptions) == frame::printFontKinds.size());

/// The colour as it is stored, red lowest.
QColor colourOf(const PrintFont& font) {
  return {static_cast<int>(font.colour & 0xFF), static_cast<int>(font.colour >> 8 & 0xFF),
          static_cast<int>(font.colour >> 16 & 0xFF)};
}
std::int64_t stored(const QColor& colour) {
  return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

struct PrintFonts {
  const ConfigWindow& window;
  Grid& grid;
};

std::size_t chosenKind(const Grid& grid) {
  return static_cast<std::size_t>(std::max(grid.currentRow(), 0));
}
PrintFont chosenFont(frmConfig& form, const Grid& grid) {
  return frame::ShowPrintFontAttributes(form, chosenKind(grid));
}
/// Changes one attribute of the chosen kind of text.
void change(frmConfig& form, const Grid& grid, const std::function<void(PrintFont&)>& attribute) {
  PrintFont font = chosenFont(form, grid);
  attribute(font);
  frame::setPrintFont(form, chosenKind(grid), font);
}

Grid& overview(const ConfigWindow& window) {
  Face& face = window.face;
  Grid& grid = face.grid("PrintFonts", label::config_print_fonts);
  grid.setHeads({face.caption(label::print_font_text), face.caption(label::print_font_name),
                 face.caption(label::print_font_size), face.caption(label::print_font_bold),
                 face.caption(label::print_font_italic), face.caption(label::print_font_underlined),
                 face.caption(label::print_font_colour)});
  constexpr int firstNarrow = 2, lastNarrow = 5;
  for (int column = firstNarrow; column <= lastNarrow; ++column)
    grid.horizontalHeader()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
  grid.selected = [&face](int) { face.run([] {}); };
  face.onDraw([&form = window.form, &face, &grid] {
    const auto tick = [](bool on) { return std::string(on ? "✓" : ""); };
    Grid::Rows rows;
    for (std::size_t kind = 0; kind < frame::printFontKinds.size(); ++kind) {
      const PrintFont font = frame::ShowPrintFontAttributes(form, kind);
      rows.push_back({session::labelText(face.session(), kindCaptions[kind]), font.font,
                      std::to_string(font.size), tick(font.bold), tick(font.italic), tick(font.underlined),
                      colourOf(font).name().toStdString()});
    }
    grid.setRows(std::move(rows));
    if (grid.currentRow() < 0) grid.setCurrentRow(0);
  });
  return grid;
}

QCheckBox& styleBox(const PrintFonts& fonts, const char* objectName, int caption, bool PrintFont::*style) {
  const auto& [window, grid] = fonts;
  auto* box = new QCheckBox(window.face.caption(caption), &window.dialog);
  name(*box, objectName, box->text());
  window.face.onDraw(
      [box, &form = window.form, &grid, style] { box->setChecked(chosenFont(form, grid).*style); });
  QObject::connect(box, &QCheckBox::clicked, &window.dialog,
                   [&form = window.form, &face = window.face, &grid, style](bool on) {
                     face.run([&] { change(form, grid, [&](PrintFont& font) { font.*style = on; }); });
                   });
  return *box;
}

QSpinBox& sizeBox(const PrintFonts& fonts) {
  const auto& [window, grid] = fonts;
  constexpr int largest = 200;
  auto* box = new QSpinBox(&window.dialog);
  name(*box, "PrintFontSize", window.face.caption(label::print_font_size));
  box->setRange(1, largest);
  box->setSuffix(" pt");
  window.face.onDraw([box, &form = window.form, &grid] { box->setValue(chosenFont(form, grid).size); });
  QObject::connect(box, &QSpinBox::valueChanged, &window.dialog,
                   [&form = window.form, &face = window.face, &grid](int size) {
                     if (!face.gate().isBusy())
                       face.run([&] { change(form, grid, [&](PrintFont& font) { font.size = size; }); });
                   });
  return *box;
}

QComboBox& fontBox(const PrintFonts& fonts) {
  const auto& [window, grid] = fonts;
  frmConfig& form = window.form;
  return window.face.combo(
      "PrintFontName", label::print_font_name,
      [&form, &grid] {
        std::vector<std::string> names = form.fonts;
        const std::string chosen = chosenFont(form, grid).font;
        // A font of another computer can stay.
        if (std::ranges::find(names, chosen) == names.end()) names.insert(names.begin(), chosen);
        return names;
      },
      [&form, &grid] { return chosenFont(form, grid).font; },
      [&form, &grid](const std::string& text) {
        change(form, grid, [&](PrintFont& font) { font.font = text; });
      });
}

QPushButton& colourButton(const PrintFonts& fonts) {
  const auto& [window, grid] = fonts;
  frmConfig& form = window.form;
  Dialog& dialog = window.dialog;
  QPushButton& button = window.face.button("PrintFontColour", label::print_font_choose_colour, [&] {
    const QColor chosen = QColorDialog::getColor(colourOf(chosenFont(form, grid)), &dialog);
    if (chosen.isValid()) change(form, grid, [&](PrintFont& font) { font.colour = stored(chosen); });
  });
  window.face.onDraw([&button, &form, &grid] {
    QPixmap swatch(button.iconSize());
    swatch.fill(colourOf(chosenFont(form, grid)));
    button.setIcon(swatch);
  });
  return button;
}

/// The caption of the chosen kind of text as it will be printed, on paper.
QLabel& sampleOf(const PrintFonts& fonts) {
  const auto& [window, grid] = fonts;
  QLabel& sample = window.face.shown("PrintFontSample", [&face = window.face, &grid] {
    return session::labelText(face.session(), kindCaptions[chosenKind(grid)]);
  });
  sample.setAutoFillBackground(true);
  sample.setMargin(6);
  sample.setFrameShape(QFrame::StyledPanel);
  window.face.onDraw([&sample, &form = window.form, &grid] {
    const PrintFont chosen = chosenFont(form, grid);
    QFont font = fontNamed(chosen.font);
    font.setPointSize(std::clamp(chosen.size, 1, 36));
    font.setBold(chosen.bold);
    font.setItalic(chosen.italic);
    font.setUnderline(chosen.underlined);
    sample.setFont(font);
    QPalette paper = sample.palette();
    paper.setColor(QPalette::Window, Qt::white);
    paper.setColor(QPalette::WindowText, colourOf(chosen));
    sample.setPalette(paper);
  });
  return sample;
}

}  // namespace

QLayout* printFonts(const ConfigWindow& window) {
  Grid& grid = overview(window);
  const PrintFonts fonts{window, grid};
  Face& face = window.face;
  auto* font = new QHBoxLayout;
  font->addLayout(face.labelled(label::print_font_name, fontBox(fonts)), 1);
  font->addLayout(face.labelled(label::print_font_size, sizeBox(fonts)));
  font->addWidget(&colourButton(fonts));
  auto* style = new QHBoxLayout;
  style->addWidget(&styleBox(fonts, "PrintFontBold", label::print_font_bold, &PrintFont::bold));
  style->addWidget(&styleBox(fonts, "PrintFontItalic", label::print_font_italic, &PrintFont::italic));
  style->addWidget(
      &styleBox(fonts, "PrintFontUnderlined", label::print_font_underlined, &PrintFont::underlined));
  style->addWidget(&sampleOf(fonts), 1);
  auto* column = new QVBoxLayout;
  column->addWidget(&grid, 1);
  column->addLayout(font);
  column->addLayout(style);
  return column;
}

}  // namespace desktop
