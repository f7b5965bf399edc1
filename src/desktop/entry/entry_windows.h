#pragma once

#include "desktop/kit/dialog.h"
#include "entry/frmDeleteEntries.h"
#include "entry/frmFastEntry.h"
#include "entry/frmHistory.h"
#include "entry/frmNewKateg.h"
#include "entry/frmRelink.h"
#include "entry/frmServices.h"

/// The small dialogs on entries and catalogues, each made over its form.
namespace desktop {

void buildRelink(Dialog& dialog, entry::frmRelink& form);
void buildFastEntry(Dialog& dialog, entry::frmFastEntry& form);
void buildHistory(Dialog& dialog, entry::frmHistory& form);
void buildDeleteEntries(Dialog& dialog, entry::frmDeleteEntries& form);
void buildNewKateg(Dialog& dialog, entry::frmNewKateg& form);
void buildServices(Dialog& dialog, entry::frmServices& form);

}  // namespace desktop
