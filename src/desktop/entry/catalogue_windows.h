#pragma once

#include <memory>

#include "desktop/kit/dialog.h"
#include "entry/frmAutokat.h"
#include "entry/frmDeleteEigenschaftSach.h"
#include "entry/frmDeleteEintragEigenschaftSach.h"

/// The dialogs that carry items of the catalogues from one list to another.
namespace desktop {

std::unique_ptr<Dialog> makeAutokat(Gate& gate, QWidget* parent, entry::frmAutokat& form);
std::unique_ptr<Dialog> makeDeleteEigenschaftSach(Gate& gate, QWidget* parent,
                                                  entry::frmDeleteEigenschaftSach& form);
std::unique_ptr<Dialog> makeDeleteEintragEigenschaftSach(Gate& gate, QWidget* parent,
                                                         entry::frmDeleteEintragEigenschaftSach& form);

}  // namespace desktop
