#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "entry/frmEintrag.h"

/// Properties and subject fields of an entry and of its meanings, assigned out of the two catalogues of the
/// dictionary. Assignments are stored at once. A name that the catalogue does not have selects nothing, and
/// a command with nothing selected does nothing and returns false. Failures are reported.
namespace entry {

struct PropertyRow {
  std::string name, value;
};
/// The assigned properties in the grid's order.
std::vector<PropertyRow> propertyRows(frmEintrag& form, Owner owner);
/// The names of the two catalogues in their order.
std::vector<std::string> catalogueProperties(frmEintrag& form);
std::vector<std::string> catalogueSubjects(frmEintrag& form);

/// Takes a meaning of the entry as the one that the meaning's commands work on.
bool selectMeaningForProperties(frmEintrag& form, std::size_t row);

/// Assigns by name; what is assigned already is refused with a message that names it.
bool addProperty(frmEintrag& form, const std::string& name, Owner owner);
bool addSubject(frmEintrag& form, const std::string& name, Owner owner);
bool removeProperty(frmEintrag& form, const std::string& name, Owner owner);
bool removeSubject(frmEintrag& form, const std::string& name, Owner owner);
/// The value of an assigned property: any text of at most 50 characters.
bool setPropertyValue(frmEintrag& form, const std::string& name, const std::string& value, Owner owner);

// Steps; they throw.
void AttribSubjectRefill(frmEintrag& form);
void FillEigenschaftSachgebietList(frmEintrag& form, std::int64_t lWortID);
void ClearLists(frmEintrag& form);
/// No meaning is selected for its properties any more.
void clearMeaningLists(frmEintrag& form);
/// Gives a new entry the catalogue's items that are marked for every new entry.
void EigenschaftenSachgebieteAutomatischAnBegriff(frmEintrag& form, std::int64_t lWortID);
/// Gives a new meaning the items that are marked for every new meaning, where it lacks them.
void EigenschaftenSachgebieteAutomatischZuWortbedeutung(frmEintrag& form, std::int64_t lWortbedeutungID);

}  // namespace entry
