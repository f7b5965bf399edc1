#include <algorithm>

#include "engine/plan/binder.h"

namespace engine::plan {
namespace {

/// The column as one of the nested select's.
void point(Bound& bound, const std::string& text, int member) {
  bound.text = text;
  bound.condition = bound.affinity = bound.aggregate = bound.isNull = false;
  bound.direct = true;
  bound.constant.reset();
  bound.parameter = -1;
  bound.link.reset();
  bound.refs = {member};
}

/// Hands out the row identities of the tables inside as k0, k1, ...; maps the old numbers to the new keys.
std::string exportKeys(Binder& binder, const Body& body, const std::string& alias, Member& member,
                       std::map<int, int>& renumbered) {
  std::string columns;
  for (const Member& inner : body.chain.members) {
    for (const Key& key : inner.keys) {
      const std::string name = "k" + std::to_string(member.keys.size());
      columns += ", " + key.rowid + " AS " + name;
      Key exported = key;
      exported.id = binder.nextId++;
      exported.rowid = alias + "." + name;
      renumbered[key.id] = exported.id;
      if (!key.outer && member.present.empty()) member.present = exported.rowid;
      member.keys.push_back(std::move(exported));
    }
  }
  return columns;
}

/// Order terms become columns of the nested select, an output where one says the same.
std::string exportOrder(Body& body, const std::string& alias, int member) {
  std::string columns;
  std::vector<OrderTerm> kept;
  for (OrderTerm& term : body.order) {
    const auto same = std::find_if(body.outputs.begin(), body.outputs.end(), [&](const Column& output) {
      return output.value.text == term.value.text;
    });
    std::string name = "c" + std::to_string(same - body.outputs.begin());
    if (same == body.outputs.end()) {
      // Behind DISTINCT a further column would make rows differ.
      if (body.distinct) continue;
      name = "o" + std::to_string(kept.size());
      columns += ", " + value(term.value) + " AS " + name;
    }
    point(term.value, alias + "." + name, member);
    term.value.key = -1;
    kept.push_back(std::move(term));
  }
  body.order = std::move(kept);
  return columns;
}

void replace(Body& body, Member member, const std::map<int, int>& renumbered) {
  const std::string alias = "q" + std::to_string(member.id);
  for (std::size_t i = 0; i < body.outputs.size(); ++i) {
    Bound& bound = body.outputs[i].value;
    const auto key = renumbered.find(bound.key);
    bound.key = key == renumbered.end() ? -1 : key->second;
    point(bound, alias + ".c" + std::to_string(i), member.id);
  }
  body.chain = {};
  body.chain.members.push_back(std::move(member));
  body.groupBy.clear();
  body.having.clear();
  body.repeats.clear();
  body.top.reset();
  body.aggregated = body.distinct = false;
}

}  // namespace

void nest(Binder& binder, Body& body) {
  Member member;
  member.id = binder.nextId++;
  member.keyed = body.keyed();
  const std::string alias = "q" + std::to_string(member.id);
  std::map<int, int> renumbered;
  std::string order, limit, further;
  if (body.top) {
    order = orderText(body);
    if (!order.empty()) order = " ORDER BY " + order;
    limit = " LIMIT " + std::to_string(*body.top);
  }
  if (member.keyed) {
    further = exportKeys(binder, body, alias, member, renumbered);
  } else {
    member.present = alias + ".here";
    further = ", 1 AS here";
  }
  // exportOrder points the terms and outputs elsewhere, so the text is made from a copy of them.
  Body inside = body;
  further += exportOrder(body, alias, member.id);
  member.text = "(" + bodyText(inside, false, further) + order + limit + ") AS " + alias;
  replace(body, std::move(member), renumbered);
}

void nestText(Binder& binder, Body& body, const std::string& text) {
  Member member;
  member.id = binder.nextId++;
  member.keyed = false;
  const std::string alias = "q" + std::to_string(member.id);
  member.present = alias + ".here";
  member.text = "(" + text + ") AS " + alias;
  replace(body, std::move(member), {});
}

}  // namespace engine::plan
