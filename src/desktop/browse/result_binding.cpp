#include "desktop/browse/result_binding.h"

#include <QElapsedTimer>
#include <QTimer>

namespace desktop {

void showResult(Grid& grid, browse::ResultGrid& result) {
  QStringList heads;
  for (const browse::GridColumn& column : result.columns) heads << qt(column.caption);
  if (heads != grid.heads()) grid.setHeads(heads);
  grid.setSource(result.known, [&result](std::int64_t row, int column) {
    return browse::gridCell(result, row, static_cast<std::size_t>(column));
  });
  grid.setCurrentRow(static_cast<int>(result.selected));
}

namespace {

/// Looks for further rows as long as nobody notices.
void readOnForAWhile(browse::ResultGrid& result) {
  constexpr std::int64_t rowsAtATime = 100;
  constexpr qint64 unnoticed = 12;  // milliseconds
  QElapsedTimer since;
  for (since.start(); !result.complete && since.elapsed() < unnoticed;) browse::readOn(result, rowsAtATime);
}

}  // namespace

void readOnWhenIdle(QWidget& window, Face& face, const Grid& grid, browse::ResultGrid& result,
                    std::function<void()> readOn) {
  constexpr int soon = 200;  // milliseconds
  auto* whenIdle = new QTimer(&window);
  whenIdle->setSingleShot(true);
  if (!readOn) readOn = [&result] { readOnForAWhile(result); };
  QObject::connect(whenIdle, &QTimer::timeout, &window, [whenIdle, &face, &grid, readOn] {
    // Drawing would take back what is being typed into a cell.
    if (grid.isEditing())
      whenIdle->start(soon);
    else
      face.run(readOn);
  });
  face.onDraw([whenIdle, &result] { result.complete ? whenIdle->stop() : whenIdle->start(0); });
}

QWidget* resultBox(Dialog& dialog, const char* objectName, int caption, browse::ResultGrid& result,
                   Grid*& made, std::function<void()> readOn) {
  Face& face = dialog.face;
  auto* box = new QWidget(&dialog);
  auto* column = new QVBoxLayout(box);
  column->setContentsMargins(0, 0, 0, 0);
  auto* text = new QLabel(box);
  text->setTextFormat(Qt::PlainText);
  made = &face.grid(objectName, caption);
  text->setBuddy(made);
  column->addWidget(text);
  column->addWidget(made, 1);
  readOnWhenIdle(*box, face, *made, result, std::move(readOn));
  face.onDraw([box, text, grid = made, &result, usual = face.caption(caption)] {
    box->setVisible(result.visible);
    text->setText(result.label.empty() ? usual : qt(result.label));
    showResult(*grid, result);
  });
  return box;
}

}  // namespace desktop
