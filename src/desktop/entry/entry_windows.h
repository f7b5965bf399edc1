#pragma once

#include <memory>

#include "desktop/kit/dialog.h"
#include "entry/frmDeleteEntries.h"
#include "entry/frmFastEntry.h"
#include "entry/frmHistory.h"
#include "entry/frmNewKateg.h"
#include "entry/frmRelink.h"
#include "entry/frmServices.h"

/// The small dialogs on entries and catalogues, each made over its form.
namespace desktop {

std::unique_ptr<Dialog> makeRelink(Gate& gate, QWidget* parent, entry::frmRelink& form);
std::unique_ptr<Dialog> makeFastEntry(Gate& gate, QWidget* parent, entry::frmFastEntry& form);
std::unique_ptr<Dialog> makeHistory(Gate& gate, QWidget* parent, entry::frmHistory& form);
std::unique_ptr<Dialog> makeDeleteEntries(Gate& gate, QWidget* parent, entry::frmDeleteEntries& form);
std::unique_ptr<Dialog> makeNewKateg(Gate& gate, QWidget* parent, entry::frmNewKateg& form);
std::unique_ptr<Dialog> makeServices(Gate& gate, QWidget* parent, entry::frmServices& form);

}  // namespace desktop
