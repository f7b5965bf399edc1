#include "store/locale.h"

#include <algorithm>

#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/texts.h"

namespace store {
namespace {

struct SortOrder {
  int caption;
  const char* locale;
};
/// In the order in which a caption is sought.
constexpr SortOrder sortOrders[] = {
    {label::sort_general, ";LANGID=0x0409;CP=1252;COUNTRY=0"},
    {label::sort_arabic, ";LANGID=0x0401;CP=1256;COUNTRY=0"},
    {label::sort_czech, ";LANGID=0x0405;CP=1250;COUNTRY=0"},
    {label::sort_russian, ";LANGID=0x0419;CP=1251;COUNTRY=0"},
    {label::sort_dutch, ";LANGID=0x0413;CP=1252;COUNTRY=0"},
    {label::sort_greek, ";LANGID=0x0408;CP=1253;COUNTRY=0"},
    {label::sort_hebrew, ";LANGID=0x040D;CP=1255;COUNTRY=0"},
    {label::sort_hungarian, ";LANGID=0x040E;CP=1250;COUNTRY=0"},
    {label::sort_icelandic, ";LANGID=0x040F;CP=1252;COUNTRY=0"},
    {label::sort_danish, ";LANGID=0x0406;CP=1252;COUNTRY=0"},
    {label::sort_swedish, ";LANGID=0x041D;CP=1252;COUNTRY=0"},
    {label::sort_polish, ";LANGID=0x0415;CP=1250;COUNTRY=0"},
    {label::sort_spanish, ";LANGID=0x040A;CP=1252;COUNTRY=0"},
    {label::sort_turkish, ";LANGID=0x041F;CP=1254;COUNTRY=0"},
    {label::sort_korean, ";LANGID=0x0412;CP=949;COUNTRY=0"},
    {label::sort_thai, ";LANGID=0x041E;CP=874;COUNTRY=0"},
    {label::sort_japanese, ";LANGID=0x0411;CP=932;COUNTRY=0"},
    {label::sort_finnish, ";LANGID=0x041D;CP=1252;COUNTRY=0"},  // Finnish is ordered as Swedish
    {label::sort_chinese_simplified, ";LANGID=0x0804;CP=936;COUNTRY=0"},
    {label::sort_chinese_traditional, ";LANGID=0x0404;CP=950;COUNTRY=0"},
};

std::optional<std::size_t> placeAmong(const std::vector<std::string>& captions, std::string_view caption) {
  const auto found = std::ranges::find(captions, caption);
  if (found == captions.end()) return std::nullopt;
  return static_cast<std::size_t>(found - captions.begin());
}

// The captions in the language that is not in force.
std::vector<std::string> captionsInOtherLanguage(session::Session& s) {
  session::commitGathered(s);  // a file can not be attached amid gathered writes
  engine::Database system =
      s.files.Workspace->OpenDatabase(s.files.paths.real(s.folders.SystemDBPath).string(), false, true);
  const std::string column = s.texts.UILanguage == 2 ? "BeschriftungDtsch" : "BeschriftungEngl";
  auto rows =
      system.OpenRecordset("SELECT DISTINCTROW labelTxt." + column + " FROM labelTxt ORDER BY labelTxt.ID;");
  std::vector<std::string> labels;
  for (; !rows.EndOfFile(); rows.MoveNext()) labels.push_back(rows.value(0).textOrEmpty());
  std::vector<std::string> captions;
  for (const SortOrder& order : sortOrders)
    captions.push_back(labels.at(static_cast<std::size_t>(order.caption)));
  return captions;
}

}  // namespace

std::optional<std::size_t> placeOfSortOrder(session::Session& s, std::string_view caption) {
  if (caption.empty()) return std::nullopt;
  if (const auto place = placeAmong(sortOrderCaptions(s), caption)) return place;
  return placeAmong(captionsInOtherLanguage(s), caption);
}

std::optional<std::string> localeOfSortOrder(session::Session& s, std::string_view caption) {
  const auto place = placeOfSortOrder(s, caption);
  if (!place) return std::nullopt;
  return sortOrders[*place].locale;
}

std::vector<std::string> sortOrderCaptions(const session::Session& s) {
  std::vector<std::string> captions;
  for (const SortOrder& order : sortOrders) captions.push_back(session::labelText(s, order.caption));
  return captions;
}

void DefSortOrder(session::Session& s, std::string_view caption) {
  if (const auto locale = localeOfSortOrder(s, caption)) s.files.CurrentLocale = *locale;
}

}  // namespace store
