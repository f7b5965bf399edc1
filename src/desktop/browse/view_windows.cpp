#include "desktop/browse/view_windows.h"

#include <QCloseEvent>
#include <QTreeWidget>

#include "catalogue/label.h"
#include "desktop/application.h"
#include "desktop/browse/result_binding.h"

namespace desktop {
namespace {

/// The outline as a tree: lines of indent 0 with those of indent 1 below them.
void fillTree(QTreeWidget& tree, const browse::frmTreeView& form) {
  tree.clear();
  QTreeWidgetItem* top = nullptr;
  for (std::size_t n = 0; n < form.lines.size(); ++n) {
    auto* item =
        form.indents[n] == 0 || top == nullptr ? new QTreeWidgetItem(&tree) : new QTreeWidgetItem(top);
    if (form.indents[n] == 0) top = item;
    item->setText(0, qt(form.lines[n]));
    item->setData(0, Qt::UserRole, static_cast<int>(n));
    if (browse::canExpand(form, static_cast<int>(n)))
      item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    item->setExpanded(form.expanded[n]);
    if (static_cast<int>(n) == form.selected) tree.setCurrentItem(item);
  }
}

int lineOf(const QTreeWidgetItem* item) {
  return item == nullptr ? -1 : item->data(0, Qt::UserRole).toInt();
}

}  // namespace

ViewWindow::ViewWindow(Application& app, platform::Form& form)
    : form_(form), face_(app.gate, *this, form.formName) {
  if (auto* table = dynamic_cast<browse::frmView*>(&form)) build(*table);
  if (auto* tree = dynamic_cast<browse::frmTreeView*>(&form)) build(*tree);
}

void ViewWindow::build(browse::frmView& form) {
  Grid& grid = face_.grid("DataGrid1", label::view_title);
  grid.edited = [this, &form](int row, int column, const std::string& text) {
    face_.run([&] { browse::editCell(form, row, static_cast<std::size_t>(column), text); });
  };
  grid.editable = [&form](int row, int column) {
    return browse::canEdit(form, row, static_cast<std::size_t>(column));
  };
  face_.onDraw([this, &form, &grid] {
    setWindowTitle(qt(form.caption));
    showResult(grid, form.Adodc1);
  });
  readOnWhenIdle(*this, face_, grid, form.Adodc1);
  grid.selected = [&form](int row) { form.Adodc1.selected = row; };
  auto* commands = new QHBoxLayout;
  commands->addStretch(1);
  commands->addWidget(&face_.button("Requery", label::tree_refresh, [&form] { browse::requery(form); }));
  commands->addWidget(&face_.button("Close", label::close, [this] { closing_ = true; }));
  auto* column = new QVBoxLayout(this);
  column->addWidget(&grid, 1);
  column->addLayout(commands);
  resize(900, 520);
}

void ViewWindow::build(browse::frmTreeView& form) {
  auto* tree = new QTreeWidget(this);
  name(*tree, "outline1", face_.caption(label::tree_title));
  tree->setHeaderHidden(true);
  tree->setUniformRowHeights(true);
  tree->setExpandsOnDoubleClick(false);
  QObject::connect(tree, &QTreeWidget::itemExpanded, this, [this, &form](QTreeWidgetItem* item) {
    face_.run([&] { browse::expandLine(form, lineOf(item)); });
  });
  QObject::connect(tree, &QTreeWidget::currentItemChanged, this, [this, &form](QTreeWidgetItem* item) {
    if (item != nullptr) face_.run([&] { browse::selectLine(form, lineOf(item)); });
  });
  QObject::connect(tree, &QTreeWidget::itemActivated, this, [this, &form](QTreeWidgetItem* item) {
    face_.run([&] {
      if (browse::canExpand(form, lineOf(item)))
        browse::expandLine(form, lineOf(item));
      else
        browse::jump(form);
    });
  });
  face_.onDraw([this, tree, &form, shown = std::vector<std::string>{"-"}]() mutable {
    setWindowTitle(qt(form.caption));
    if (shown != form.lines) fillTree(*tree, form);
    shown = form.lines;
  });
  auto* commands = new QHBoxLayout;
  commands->addWidget(&face_.button("Rebuild", label::tree_refresh, [&form] { browse::BuildTree(form); }));
  commands->addStretch(1);
  commands->addWidget(&face_.button(
      "Jump", label::search_jump, [&form] { browse::jump(form); }, [&form] { return form.jumpEnabled; }));
  commands->addWidget(&face_.button("Close", label::close, [this] { closing_ = true; }));
  auto* column = new QVBoxLayout(this);
  column->addWidget(tree, 1);
  column->addLayout(commands);
  resize(520, 560);
}

void ViewWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  face_.run([this] { closing_ = true; });
}

}  // namespace desktop
