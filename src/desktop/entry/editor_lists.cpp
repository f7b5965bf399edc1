// The editor's tabs of web links, attachments and cross-references.

#include <QGridLayout>
#include <QMenu>

#include "catalogue/label.h"
#include "catalogue/menu.h"
#include "desktop/entry/editor_tabs.h"
#include "entry/attachments.h"
#include "entry/links.h"
#include "store/rows.h"

namespace desktop {
namespace {

using Command = bool (*)(entry::frmEintrag&);

struct Item {
  int caption;
  Command command;
};

/// The menu of a row: the same commands as the buttons below the grid.
void addRowMenu(Editor editor, Grid& grid, std::vector<Item> items) {
  grid.menu = [editor, items = std::move(items)](int, const QPoint& where) {
    auto* menu = new QMenu(&editor.dialog);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Item& item : items)
      QObject::connect(menu->addAction(qt(session::menuText(editor.face.session(), item.caption))),
                       &QAction::triggered, &editor.dialog,
                       [editor, command = item.command] { editor.face.run([&] { command(editor.form); }); });
    menu->popup(where);
  };
}

QPushButton& commandButton(Editor editor, const char* objectName, int caption, Command command,
                           Face::Condition enabled = {}) {
  return editor.face.button(
      objectName, caption, [form = &editor.form, command] { command(*form); }, std::move(enabled));
}

void addBox(Face& face, QGridLayout& grid, int row, int column, int caption, QWidget& box) {
  QLabel& text = face.label(caption);
  text.setBuddy(&box);
  grid.addWidget(&text, row, column);
  grid.addWidget(&box, row, column + 1);
}

/// Enter leads from each box to the next, and from the last to the button.
void leadEnter(std::initializer_list<QLineEdit*> boxes, QPushButton& end) {
  QLineEdit* before = nullptr;
  for (QLineEdit* box : boxes) {
    if (before != nullptr)
      QObject::connect(before, &QLineEdit::returnPressed, box, [box] { box->setFocus(); });
    before = box;
  }
  QObject::connect(before, &QLineEdit::returnPressed, &end, &QPushButton::click);
}

/// Tab goes through the controls as they stand.
void orderTabs(std::initializer_list<QWidget*> controls) {
  QWidget* before = nullptr;
  for (QWidget* each : controls) {
    if (before != nullptr) QWidget::setTabOrder(before, each);
    before = each;
  }
}

QHBoxLayout* rightAligned(std::initializer_list<QWidget*> buttons) {
  auto* row = new QHBoxLayout;
  row->addStretch(1);
  for (QWidget* each : buttons) row->addWidget(each);
  return row;
}

}  // namespace

QWidget* linksTab(Editor& editor) {
  Face& face = editor.face;
  entry::frmEintrag& form = editor.form;
  Grid& grid = face.grid("DBGridURL", label::web_links);
  grid.setHeads({face.caption(label::link_name), face.caption(label::link_address),
                 face.caption(label::link_note), face.caption(label::link_rating)});
  grid.selected = [editor](int row) {
    editor.face.run([&] { entry::selectLink(editor.form, static_cast<std::size_t>(row)); });
  };
  grid.activated = [editor](int) { editor.face.run([&] { entry::openLink(editor.form); }); };
  addRowMenu(editor, grid,
             {{menu::mnuEditURL, entry::mnuEditURL}, {menu::mnuDeleteURL, entry::mnuDeleteURL}});
  face.onDraw([&form, &grid] {
    Grid::Rows rows;
    if (form.links.isOpen())
      for (const entry::LinkRow& each : entry::linkRows(form))
        rows.push_back({each.name, each.address, each.note, std::to_string(each.rating)});
    grid.setRows(std::move(rows));
  });
  const auto selected = [&form] { return form.SelectedLinkId != 0; };
  auto* boxes = new QGridLayout;
  QLineEdit& name = face.line("Text7", label::link_name, form.linkNameBox);
  QLineEdit& address = face.line("Text8", label::link_address, form.linkAddressBox);
  QLineEdit& note = face.line("Text9", label::link_note, form.linkNoteBox);
  addBox(face, *boxes, 0, 0, label::link_name, name);
  addBox(face, *boxes, 1, 0, label::link_address, address);
  addBox(face, *boxes, 2, 0, label::link_note, note);
  QComboBox& rating = face.combo(
      "Combo1", label::link_rating, [] { return std::vector<std::string>{"0", "1", "2", "3", "4", "5"}; },
      [&form] { return std::to_string(form.linkRatingBox); },
      [&form](const std::string& text) { form.linkRatingBox = std::stoi(text); });
  addBox(face, *boxes, 3, 0, label::link_rating, rating);
  QPushButton& open = commandButton(editor, "OpenLink", label::show, entry::openLink, selected);
  QPushButton& edit = commandButton(editor, "EditLink", label::edit, entry::mnuEditURL, selected);
  QPushButton& remove = commandButton(editor, "DeleteLink", label::remove, entry::mnuDeleteURL, selected);
  QPushButton& save = commandButton(editor, "Command5", label::save, entry::Command5);
  leadEnter({&name, &address, &note}, save);
  orderTabs({&grid, &open, &edit, &remove, &name, &address, &note, &rating, &save});
  auto* column = new QVBoxLayout;
  column->addWidget(&grid, 1);
  column->addLayout(rightAligned({&open, &edit, &remove}));
  column->addLayout(boxes);
  column->addLayout(rightAligned({&save}));
  return tabPage(editor, entry::Tab::links, column);
}

QWidget* attachmentsTab(Editor& editor) {
  Face& face = editor.face;
  entry::frmEintrag& form = editor.form;
  Grid& grid = face.grid("dbGridAttachment", label::attachments);
  grid.setHeads({face.caption(label::attachment_name), face.caption(label::attachment_file),
                 face.caption(label::attachment_note)});
  grid.selected = [editor](int row) {
    editor.face.run([&] { entry::selectAttachment(editor.form, static_cast<std::size_t>(row)); });
  };
  grid.activated = [editor](int) { editor.face.run([&] { entry::openAttachment(editor.form); }); };
  addRowMenu(editor, grid,
             {{menu::mnuEditAttachment, entry::mnuEditAttachment},
              {menu::mnuDeleteAttachment, entry::mnuDeleteAttachment}});
  face.onDraw([&form, &grid] {
    Grid::Rows rows;
    if (form.attachments.isOpen())
      for (const entry::AttachmentRow& each : entry::attachmentRows(form))
        rows.push_back({each.name, each.file, each.note});
    grid.setRows(std::move(rows));
  });
  const auto selected = [&form] { return form.SelectedAttachmentId != 0; };
  auto* boxes = new QGridLayout;
  QLineEdit& file = face.line("Text11", label::attachment_file, form.attachmentFileBox);
  QPushButton& browse = commandButton(editor, "Command9", label::browse_files, entry::Command9);
  QLineEdit& name = face.line("Text12", label::attachment_name, form.attachmentNameBox);
  QLineEdit& note = face.line("Text10", label::attachment_note, form.attachmentNoteBox);
  addBox(face, *boxes, 0, 0, label::attachment_file, file);
  boxes->addWidget(&browse, 0, 2);
  addBox(face, *boxes, 1, 0, label::attachment_name, name);
  addBox(face, *boxes, 2, 0, label::attachment_note, note);
  QRadioButton& copied = face.radio(
      "Option1", label::copy_file_to_dictionary, [&form] { return form.attachmentIsCopied; },
      [&form] { form.attachmentIsCopied = true; });
  QRadioButton& left = face.radio(
      "Option2", label::leave_file_in_place, [&form] { return !form.attachmentIsCopied; },
      [&form] { form.attachmentIsCopied = false; });
  auto* where = new QVBoxLayout;
  where->addWidget(&copied);
  where->addWidget(&left);
  QPushButton& open = commandButton(editor, "OpenAttachment", label::show, entry::openAttachment, selected);
  QPushButton& edit =
      commandButton(editor, "EditAttachment", label::edit, entry::mnuEditAttachment, selected);
  QPushButton& remove =
      commandButton(editor, "DeleteAttachment", label::remove, entry::mnuDeleteAttachment, selected);
  QPushButton& save = commandButton(editor, "Command8", label::save, entry::Command8);
  leadEnter({&file, &name, &note}, save);
  orderTabs({&grid, &open, &edit, &remove, &file, &browse, &name, &note, &copied, &left, &save});
  auto* column = new QVBoxLayout;
  column->addWidget(&grid, 1);
  column->addLayout(rightAligned({&open, &edit, &remove}));
  column->addLayout(boxes);
  column->addLayout(where);
  column->addLayout(rightAligned({&save}));
  return tabPage(editor, entry::Tab::attachments, column);
}

QWidget* crossReferencesTab(Editor& editor) {
  Grid& grid = editor.face.grid("DBGridQuerverweise", label::cross_references);
  grid.setHeads({editor.face.caption(label::cross_references)});
  asSource(editor, grid);
  editor.face.onDraw([form = &editor.form, &grid] {
    Grid::Rows rows;
    auto& set = form->crossReferences;
    store::forEachRow(
        set, [&](const engine::Recordset& row) { rows.push_back({row["Querverweis"].textOrEmpty()}); });
    if (!rows.empty()) set.MoveFirst();
    grid.setRows(std::move(rows));
  });
  auto* column = new QVBoxLayout;
  column->addWidget(&grid, 1);
  return tabPage(editor, entry::Tab::crossReferences, column);
}

}  // namespace desktop
