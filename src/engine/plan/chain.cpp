#include <algorithm>
#include <iterator>

#include "engine/plan/binder.h"

/// Joins of joins as one chain. SQLite runs a chain of left joins by index look-ups, but fills a nested
/// join into a temporary table first, which costs a pass over whole tables for a single row.
namespace engine::plan {
namespace {

bool reads(const Term& term, const Refs& members) {
  return std::any_of(term.refs.begin(), term.refs.end(), [&](int id) { return members.count(id) != 0; });
}

/// Whether the term can not be true when `member` is compared with one of `others` that is missing.
bool fallsWith(const Term& term, int member, const Refs& others) {
  if (!term.link) return false;
  return (term.link->left == member && others.count(term.link->right) != 0) ||
         (term.link->right == member && others.count(term.link->left) != 0);
}

Term presence(const Member& member) {
  return {"(" + member.present + " IS NOT NULL)", {member.id}, std::nullopt, false};
}

/// Puts a member that the terms tie to what stands already before those that are tied to it alone.
void sortByLinks(std::vector<Member>& core, const std::vector<Term>& terms) {
  const auto tiedTo = [&](const Member& member, const Refs& absent) {
    return std::any_of(terms.begin(), terms.end(), [&](const Term& term) {
      return term.refs.count(member.id) != 0 && term.refs.size() > 1 && !reads(term, absent);
    });
  };
  for (std::size_t at = 0; at + 1 < core.size(); ++at) {
    const auto next =
        std::find_if(core.begin() + static_cast<std::ptrdiff_t>(at), core.end(), [&](const Member& member) {
          Refs absent;
          for (std::size_t other = at; other < core.size(); ++other)
            if (core[other].id != member.id) absent.insert(core[other].id);
          return tiedTo(member, absent);
        });
    if (next != core.end()) std::rotate(core.begin() + static_cast<std::ptrdiff_t>(at), next, next + 1);
  }
}

/// Outer joins for the members of an inner join that may be missing only together. Each asks that the
/// rest of them can be found too; the rest bears the same names inside that question.
void spreadCore(std::vector<Member>& core, std::vector<Term> terms) {
  sortByLinks(core, terms);
  Refs placed, rest;
  for (const Member& member : core) rest.insert(member.id);
  for (std::size_t i = 0; i < core.size(); ++i) {
    Member& member = core[i];
    rest.erase(member.id);
    const auto later = std::stable_partition(terms.begin(), terms.end(),
                                             [&](const Term& term) { return !reads(term, rest); });
    member.on.assign(std::make_move_iterator(terms.begin()), std::make_move_iterator(later));
    terms.erase(terms.begin(), later);
    const bool guarded = std::any_of(member.on.begin(), member.on.end(),
                                     [&](const Term& term) { return fallsWith(term, member.id, placed); });
    if (i > 0 && !guarded) member.on.push_back(presence(core[0]));
    if (i + 1 < core.size()) {
      Term question{"(EXISTS (SELECT 1 FROM ", {}, std::nullopt, false};
      for (std::size_t other = i + 1; other < core.size(); ++other)
        question.text += (other > i + 1 ? ", " : "") + core[other].text;
      if (!terms.empty()) question.text += " WHERE " + conjunction(terms);
      question.text += "))";
      for (const Term& term : terms) join(question.refs, term.refs);
      for (int id : rest) question.refs.erase(id);
      member.on.push_back(std::move(question));
    }
    member.outer = true;
    placed.insert(member.id);
  }
}

}  // namespace

Chain innerJoin(Chain left, Chain right, std::vector<Term> on) {
  std::move(right.members.begin(), right.members.end(), std::back_inserter(left.members));
  std::move(right.where.begin(), right.where.end(), std::back_inserter(left.where));
  std::move(on.begin(), on.end(), std::back_inserter(left.where));
  return left;
}

bool leftJoin(Chain& left, Chain& right, const std::vector<Term>& on) {
  std::vector<Term> terms = right.where;
  terms.insert(terms.end(), on.begin(), on.end());
  std::vector<Member> core, outer;
  Refs all, outerIds;
  for (const Member& member : right.members) {
    (member.outer ? outer : core).push_back(member);
    all.insert(member.id);
    if (member.outer) outerIds.insert(member.id);
  }
  // A condition on what may be missing already decides about the whole row; the chain can not say that.
  if (std::any_of(terms.begin(), terms.end(), [&](const Term& term) { return reads(term, outerIds); }))
    return false;

  spreadCore(core, std::move(terms));
  for (Member& member : outer) {
    const bool guarded = std::any_of(member.on.begin(), member.on.end(),
                                     [&](const Term& term) { return fallsWith(term, member.id, all); });
    if (!guarded) member.on.push_back(presence(core[0]));
  }
  std::move(outer.begin(), outer.end(), std::back_inserter(core));
  for (Member& member : core) {
    for (Key& key : member.keys) key.outer = true;
    left.members.push_back(std::move(member));
  }
  return true;
}

}  // namespace engine::plan
