#pragma once

#include "desktop/kit/dialog.h"
#include "entry/frmAutokat.h"
#include "entry/frmDeleteEigenschaftSach.h"
#include "entry/frmDeleteEintragEigenschaftSach.h"

/// The dialogs that carry items of the catalogues from one list to another.
namespace desktop {

void buildAutokat(Dialog& dialog, entry::frmAutokat& form);
void buildDeleteEigenschaftSach(Dialog& dialog, entry::frmDeleteEigenschaftSach& form);
void buildDeleteEintragEigenschaftSach(Dialog& dialog, entry::frmDeleteEintragEigenschaftSach& form);

}  // namespace desktop
