#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/session/session.h"

/// The key that every list orders and filters by. A main entry's key is its headword without the
/// ignorable prefix and without a leading article; a sub-entry's is its main entry's key, its priority in
/// digits and its own headword without the prefix, so that it stands right below the main entry.
namespace entry {

struct frmEintrag;

/// Most characters of a headword that the sort order skips.
inline constexpr std::size_t longestPrefix = 3;

struct SplitHeadword {
  std::string prefix;  ///< at most longestPrefix characters
  std::string rest;
};
/// Splits off the leading characters that occur in `ignoreAtSort`, told apart by case.
SplitHeadword splitHeadword(std::string_view headword, std::string_view ignoreAtSort);

/// The articles of the open dictionary, in its order.
std::vector<std::string> readArticles(session::Session& s);
/// Takes a leading article and its blank off the sort key of a main entry, told apart by case; of several
/// that fit, the last decides. Sub-entries keep theirs. Throws 3315 for a headword that is nothing else.
void StripArticleFromSortBegriff(session::Session& s, std::int64_t lWortID);
/// The same with the articles read before.
void stripArticle(session::Session& s, std::int64_t lWortID, const std::vector<std::string>& articles);

/// Writes prefix and key of the entry in the editor, from its record as the save left it, and after the
/// change of a main entry the keys of its sub-entries. A step that fails is reported and leaves its row
/// as it was; the others run. True when none failed.
bool SortierBegriffEintragen(frmEintrag& form, std::int64_t lWortID);

}  // namespace entry
