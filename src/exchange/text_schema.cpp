#include "exchange/text_schema.h"

#include <fstream>
#include <sstream>

#include "base/error.h"
#include "base/paths.h"
#include "base/text.h"
#include "shell/session/routines.h"

namespace exchange {

namespace {

constexpr const char* lineEnd = "\r\n";
constexpr const char* utf8CodePage = "65001";

std::string schemaPath(const std::string& textFile) {
  const std::string folder = base::folderOf(textFile);
  return (folder.empty() ? "." : folder) + "/schema.ini";
}

std::string formatLine(const std::string& separator) {
  if (separator.empty()) return "Format=TabDelimited";
  if (separator == ",") return "Format=CSVDelimited";
  return "Format=Delimited(" + separator + ")";
}

[[noreturn]] void notUnderstood(const std::string& path, const std::string& line) {
  throw base::Error(5, "schema.ini is not understood: \"" + line + "\" in " + path + ".");
}

std::string separatorOf(const std::string& path, const std::string& line, const std::string& format) {
  const std::string lowered = base::lower(format);
  if (lowered == "tabdelimited") return "";
  if (lowered == "csvdelimited") return ",";
  if (lowered.rfind("delimited(", 0) == 0 && lowered.back() == ')')
    return format.substr(10, format.size() - 11);
  notUnderstood(path, line);
}

void takeEntry(TextLayout& layout, const std::string& path, const std::string& line) {
  const auto equals = line.find('=');
  if (equals == std::string::npos) notUnderstood(path, line);
  const std::string key = base::lower(base::trim(line.substr(0, equals)));
  const std::string value = base::trim(line.substr(equals + 1));
  if (key == "colnameheader")
    layout.header = base::equalsIgnoreCase(value, "true");
  else if (key == "format")
    layout.separator = separatorOf(path, line, value);
  else if (key == "characterset")
    layout.characterSet = value == utf8CodePage ? "UTF-8" : value;
  else if (key == "decimalsymbol")
    layout.decimalSymbol = value;
  else if (key != "maxscanrows")
    notUnderstood(path, line);
}

}  // namespace

void MakeSchema(const std::string& textFile, const TextLayout& layout) {
  const std::string set = layout.characterSet == "UTF-8" ? utf8CodePage : layout.characterSet;
  std::string text = "[" + base::fileName(textFile) + "]" + lineEnd;
  text += std::string("ColNameHeader = ") + (layout.header ? "True" : "False") + lineEnd;
  text += formatLine(layout.separator) + lineEnd;
  text += std::string("MaxScanRows = 0") + lineEnd;
  text += "CharacterSet = " + set + lineEnd;
  text += "DecimalSymbol=" + layout.decimalSymbol + lineEnd;
  session::writeWhole(schemaPath(textFile), text);
}

TextLayout readSchema(const std::string& textFile) {
  const std::string path = schemaPath(textFile);
  std::ifstream file(path, std::ios::binary);
  if (!file) throw base::Error(53, "There is no schema.ini beside " + textFile + ".");
  TextLayout layout;
  bool ours = false, found = false;
  const std::string section = "[" + base::fileName(textFile) + "]";
  for (std::string line; std::getline(file, line);) {
    line = base::trim(base::replaceAll(line, "\r", ""));
    if (line.empty()) continue;
    if (line.front() == '[')
      found |= ours = base::equalsIgnoreCase(line, section);
    else if (ours)
      takeEntry(layout, path, line);
  }
  if (!found) throw base::Error(53, "schema.ini does not describe " + textFile + ".");
  return layout;
}

}  // namespace exchange
