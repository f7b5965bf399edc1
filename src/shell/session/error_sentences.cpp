#include "shell/session/error_sentences.h"

#include <algorithm>
#include <cstddef>

#include "catalogue/dialog.h"

namespace session {
namespace {

struct Sentence {
  int number;
  int text;  ///< key of dialog texts
};

constexpr Sentence sentences[] = {
    {5, dialog::error_not_possible},
    {6, dialog::error_number_too_large},
    {7, dialog::error_memory},
    {9, dialog::error_no_such_place},
    {11, dialog::error_not_possible},
    {13, dialog::error_wrong_kind},
    {51, dialog::error_within_program},
    {53, dialog::error_file_not_found},
    {61, dialog::error_disk_full},
    {70, dialog::error_access_denied},
    {75, dialog::error_access_denied},
    {76, dialog::error_folder_not_found},
    {94, dialog::error_value_missing},
    {3010, dialog::error_name_taken},
    {3011, dialog::error_not_in_dictionary},
    {3012, dialog::error_name_taken},
    {3020, dialog::error_no_record},
    {3021, dialog::error_no_record},
    {3022, dialog::error_duplicate_value},
    {3027, dialog::error_read_only},
    {3029, dialog::error_bad_login},
    {3034, dialog::error_changes_lost},
    {3044, dialog::error_folder_not_found},
    {3045, dialog::error_in_use},
    {3048, dialog::error_too_many_files},
    {3058, dialog::error_value_missing},
    {3061, dialog::error_statement},
    {3065, dialog::error_statement},
    {3070, dialog::error_statement},
    {3075, dialog::error_statement},
    {3078, dialog::error_not_in_dictionary},
    {3163, dialog::error_text_too_long},
    {3167, dialog::error_record_gone},
    {3200, dialog::error_record_needed},
    {3201, dialog::error_owner_missing},
    {3204, dialog::error_file_exists},
    {3211, dialog::error_changed_meanwhile},
    {3219, dialog::error_statement},
    {3260, dialog::error_in_use},
    {3274, dialog::error_source},
    {3314, dialog::error_value_missing},
    {3315, dialog::error_value_missing},
    {3343, dialog::error_no_dictionary},
    {3420, dialog::error_not_open},
};

/// Whether a text of the catalogue stands in the error's: a whole one, as pieces are common words.
bool isWorded(const Session& s, const std::string& text) {
  return std::ranges::any_of(s.texts.DialogTxt, [&](const auto& each) {
    const std::string& known = each.second;
    return (known.ends_with('.') || known.ends_with(':')) && text.find(known) != std::string::npos;
  });
}

}  // namespace

std::string errorSentence(const Session& s, const base::Error& error) {
  const auto found = std::ranges::find(sentences, error.number(), &Sentence::number);
  if (found == std::end(sentences)) return "";
  const auto place = static_cast<std::size_t>(found->text);
  if (place >= s.texts.DialogTxt.size() || isWorded(s, error.text())) return "";
  return s.texts.DialogTxt[place].second;
}

}  // namespace session
