#pragma once

#include <QWidget>

#include "desktop/kit/dialog.h"
#include "entry/frmEintrag.h"

namespace desktop {

/// The tabs of the editor, each made once over the form; the dialog owns them.
struct Editor {
  Dialog& dialog;
  Face& face;
  entry::frmEintrag& form;
};

/// A tab's page: the headword in large letters above what `content` holds.
QWidget* tabPage(Editor& editor, entry::Tab tab, QLayout* content);

QWidget* entryTab(Editor& editor);
QWidget* meaningsTab(Editor& editor);
QWidget* examplesTab(Editor& editor);
QWidget* linksTab(Editor& editor);
QWidget* propertiesTab(Editor& editor);
QWidget* meaningPropertiesTab(Editor& editor);
QWidget* crossReferencesTab(Editor& editor);
QWidget* attachmentsTab(Editor& editor);

/// Fonts and writing direction of the source language, the target language and the notes.
void asSource(Editor& editor, QWidget& box);
void asTarget(Editor& editor, QWidget& box);
void asNote(Editor& editor, QWidget& box);

}  // namespace desktop
