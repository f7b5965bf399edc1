#pragma once

#include <string>
#include <string_view>

struct sqlite3;

/// Text order of the dictionary files.
namespace engine::text {

/// The collation of a connect string (";LANGID=0x0407;CP=1252;COUNTRY=0"): "vc_0407". Case does not
/// count, accents do. All twenty documented locales and any other LANGID that ICU knows; throws 5 for a
/// string without LANGID and for an unknown one.
std::string collationName(std::string_view locale);
/// The version of ICU's rules for a collation: indexes made under another one have to be rebuilt.
/// Throws 5 for an unknown collation, as do the functions below.
std::string collationVersion(const std::string& collation);
/// Registers collations on demand, the LIKE of both interfaces and every function of functions.h.
void registerText(sqlite3* connection);

/// Compares under a collation: negative, 0, positive.
int compare(const std::string& collation, std::string_view a, std::string_view b);
/// Whether text matches a LIKE pattern of an interface (1: * ? # [list] [!list]; 2: % _); see like.h.
bool like(std::string_view text, std::string_view pattern, int interfaceNumber, const std::string& collation);

}  // namespace engine::text
