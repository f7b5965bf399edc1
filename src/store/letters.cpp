#include "store/letters.h"

#include <array>
#include <string>

#include "base/text.h"

namespace store {
namespace {

struct Letter {
  const char* letter;
  std::array<const char*, 5> further;
};
// À has no place left in the first row and stays out.
constexpr Letter letters[] = {
    {"A", {"Å", "Á", "Â", "Ã", "Ä"}},
    {"B", {}},
    {"C", {"Ç"}},
    {"D", {"Ð"}},
    {"E", {"È", "É", "Ê", "Ë"}},
    {"F", {}},
    {"G", {}},
    {"H", {}},
    {"I", {"Ì", "Í", "Î", "Ï"}},
    {"J", {}},
    {"K", {}},
    {"L", {}},
    {"M", {}},
    {"N", {"Ñ"}},
    {"O", {"Ò", "Ó", "Ô", "Õ", "Ö"}},
    {"P", {}},
    {"Q", {}},
    {"R", {}},
    {"S", {}},
    {"T", {}},
    {"U", {"Ù", "Ú", "Û", "Ü"}},
    {"V", {}},
    {"W", {}},
    {"X", {}},
    {"Y", {"Ý"}},
    {"Z", {}},
};

std::string letterField(std::size_t n) {
  return "FilterBuchstabe" + std::to_string(n);
}

}  // namespace

void GenerateBuchstabenFilter(engine::Database& db) {
  engine::Recordset rows = db.OpenRecordset("Buchstaben");
  for (const Letter& row : letters) {
    rows.AddNew();
    rows.set(letterField(1), row.letter);
    for (std::size_t i = 0; i < row.further.size() && row.further[i] != nullptr; ++i)
      rows.set(letterField(i + 2), row.further[i]);
    rows.Update();
  }
}

void BuchstabenZuweisung(session::Session& s, std::string_view caption) {
  engine::Recordset rows = s.files.CurrentDB.OpenRecordset("Buchstaben");
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    if (rows[letterField(1)].textOrEmpty() != caption) continue;
    for (std::size_t n = 2; n <= s.filter.FilterBuchstabe.size(); ++n) {
      const std::string further = rows[letterField(n)].textOrEmpty();
      s.filter.FilterBuchstabe[n - 1] = further.empty() ? " " : further;
    }
  }
}

}  // namespace store
