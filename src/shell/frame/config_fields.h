#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// The settings of a dictionary as one flat table: what the dialog shows, reads and writes.
namespace frame {

enum class ConfigTab { languages, sound, sorting, publishing, entry, printFonts, author, reports, program };

enum class FieldKind {
  text,
  number,  ///< whole, 0 to 32767
  colour,  ///< red + 256 green + 65536 blue, as decimal text
  truth,
  option,  ///< a truth of a group of which just one is on
  date     ///< a day; its column holds a time stamp
};

struct ConfigField {
  std::string name;  ///< the column
  const char* table;
  FieldKind kind;
  ConfigTab tab;
  const char* control;      ///< the control's documented name; empty where it has none
  const char* group;        ///< of an option
  bool takesEmpty = false;  ///< the column holds an empty text, otherwise Null stands for it
};

/// All fields in the order in which they are written.
const std::vector<ConfigField>& configFields();
/// The place of a field in that table by its name, told without regard to case; throws 5 naming it.
std::size_t configField(std::string_view name);

/// The kinds of text of the printed page, each the prefix of six columns of `Druckschriften`.
inline constexpr std::array<const char*, 10> printFontKinds{
    "Objekt",   "Aussprache",           "Bedeutung", "Eigenschaft", "Sachgebiet",
    "Beispiel", "Beispieluebersetzung", "Bemerkung", "URL",         "Querverweis"};

}  // namespace frame
