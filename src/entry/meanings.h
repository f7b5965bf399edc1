#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "entry/frmEintrag.h"

/// Meanings and examples in the entry editor. What is typed here is stored at once. Rows count from 0 in
/// the order that the grids show. The commands report failures and return whether all went well.
namespace entry {

struct MeaningRow {
  std::int64_t id = 0;
  std::string text;
};
struct ExampleRow {
  std::int64_t id = 0;
  std::string sentence, translation;
};
std::vector<MeaningRow> meaningRows(frmEintrag& form);
std::vector<ExampleRow> exampleRows(frmEintrag& form);

/// Stores the text of the meaning box as a new meaning of the entry; an empty one adds nothing.
bool addMeaning(frmEintrag& form);
/// Narrows the list of all meanings to those that begin with the meaning box's text.
void meaningBoxChanged(frmEintrag& form, const std::string& text);
/// The first `limit` texts of the list of all meanings as it is narrowed.
std::vector<std::string> dictionaryMeanings(frmEintrag& form, std::size_t limit);
/// A click on a meaning of that list, and its drop on the meaning box.
void pickMeaning(frmEintrag& form, const std::string& text);
void dropPickedMeaning(frmEintrag& form);
/// Changes a meaning; an emptied one is deleted after a question, or keeps its text.
bool editMeaning(frmEintrag& form, std::size_t row, const std::string& text);
/// Takes a meaning as the one whose examples are worked on.
bool selectMeaning(frmEintrag& form, std::size_t row);

/// Stores the two example boxes as a new example of the selected meaning. A double quote in them makes the
/// statement fail.
bool addExample(frmEintrag& form);
void selectExample(frmEintrag& form, std::size_t row);
/// Deletes the selected example.
bool deleteExample(frmEintrag& form);
/// An example can not lose its sentence.
bool editExampleSentence(frmEintrag& form, std::size_t row, const std::string& text);
bool editExampleTranslation(frmEintrag& form, std::size_t row, const std::string& text);

// Bindings; they throw.
void SetADODC2(frmEintrag& form, std::int64_t lWortID);
void SetADODC3(frmEintrag& form);
void SetADODC4(frmEintrag& form, std::int64_t lWortbedeutungID);
/// No meaning is selected and the example commands rest.
void clearMeaningSelection(frmEintrag& form);
/// Brings grid, flat row and search text up to date after a change of examples.
void AddChanges(frmEintrag& form);

}  // namespace entry
