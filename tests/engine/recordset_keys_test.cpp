#include "engine/recordset_keys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <random>

namespace {

using engine::KeyList;
using Key = std::vector<std::int64_t>;

/// The same list, kept plainly: nothing stands for a removed entry.
struct Model {
  std::vector<std::optional<Key>> entries;

  std::vector<std::int64_t> slots() const {
    std::vector<std::int64_t> live;
    for (std::size_t i = 0; i < entries.size(); ++i) {
      if (entries[i]) live.push_back(static_cast<std::int64_t>(i));
    }
    return live;
  }
};

void compare(const KeyList& keys, const Model& model) {
  const std::vector<std::int64_t> live = model.slots();
  ASSERT_EQ(keys.size(), static_cast<std::int64_t>(live.size()));
  for (std::size_t position = 0; position < live.size(); ++position) {
    const Key& expected = *model.entries[static_cast<std::size_t>(live[position])];
    ASSERT_EQ(keys.slotAt(static_cast<std::int64_t>(position)), live[position]);
    ASSERT_EQ(keys.position(live[position]), static_cast<std::int64_t>(position));
    ASSERT_EQ(keys.entry(live[position]), expected);
    ASSERT_EQ(keys.find(expected), live[position]);
  }
  for (std::int64_t slot = 0; slot < keys.slots(); ++slot) {
    const auto next = std::ranges::lower_bound(live, slot);
    ASSERT_EQ(keys.skipForward(slot), next == live.end() ? keys.slots() : *next);
    const auto behind = std::ranges::upper_bound(live, slot);
    ASSERT_EQ(keys.skipBackward(slot), behind == live.begin() ? -1 : *std::prev(behind));
    ASSERT_EQ(keys.isHole(slot), !model.entries[static_cast<std::size_t>(slot)].has_value());
  }
}

/// Random lists of keys with `sources` rowids below `spread`, changed at random.
void exercise(std::size_t sources, std::int64_t spread, unsigned seed) {
  std::mt19937 random(seed);
  const auto upTo = [&](std::int64_t limit) {
    return std::uniform_int_distribution<std::int64_t>(0, limit - 1)(random);
  };
  KeyList keys(sources);
  Model model;
  for (int step = 0; step < 400; ++step) {
    const std::vector<std::int64_t> live = model.slots();
    const std::int64_t choice = upTo(10);
    if (choice < 6 || live.empty()) {
      Key key(sources);
      std::ranges::generate(key,
                            [&] { return upTo(20) == 0 && sources > 1 ? KeyList::missing : upTo(spread); });
      const bool taken = std::ranges::any_of(model.entries, [&](const auto& entry) { return entry == key; });
      ASSERT_EQ(keys.find(key) != KeyList::none, taken);
      if (taken) continue;
      keys.append(key);
      model.entries.emplace_back(key);
    } else if (choice < 9) {
      const auto slot = live[static_cast<std::size_t>(upTo(static_cast<std::int64_t>(live.size())))];
      const Key key = *model.entries[static_cast<std::size_t>(slot)];
      keys.remove(slot);
      model.entries[static_cast<std::size_t>(slot)].reset();
      ASSERT_EQ(keys.find(key), KeyList::none);
      ASSERT_NE(keys.findRemoved(key), KeyList::none);
    } else {
      const auto slot = live[static_cast<std::size_t>(upTo(static_cast<std::int64_t>(live.size())))];
      Key key = *model.entries[static_cast<std::size_t>(slot)];
      key.back() = spread + step;
      keys.replace(slot, sources - 1, key.back());
      model.entries[static_cast<std::size_t>(slot)] = key;
    }
    if (step % 40 == 0) compare(keys, model);
  }
  compare(keys, model);
}

}  // namespace

TEST(KeyList, FollowsAPlainListThroughRandomChanges) {
  for (unsigned seed = 1; seed <= 10; ++seed) {
    exercise(1, 500, seed);                    // dense rowids: inverse by array
    exercise(1, std::int64_t{1} << 30, seed);  // scattered ones: sorted inverse
    exercise(1, std::int64_t{1} << 40, seed);  // ones that need 8 bytes
    exercise(3, 12, seed);
    exercise(2, std::int64_t{1} << 33, seed);
  }
}

TEST(KeyList, FindsTheLaterRowThatGotTheRowidOfARemovedOne) {
  KeyList keys(1);
  for (std::int64_t rowid = 1; rowid <= 300; ++rowid) keys.append(std::array{rowid});
  keys.remove(299);
  keys.append(std::array<std::int64_t, 1>{300});
  EXPECT_EQ(keys.find(std::array<std::int64_t, 1>{300}), 300);
  for (std::int64_t rowid = 301; rowid <= 400; ++rowid) keys.append(std::array{rowid});
  EXPECT_EQ(keys.find(std::array<std::int64_t, 1>{300}), 300);
}

TEST(KeyList, TakesFourBytesARowidUntilOneNeedsEight) {
  KeyList keys(1);
  keys.reserve(1000);
  for (std::int64_t rowid = 1; rowid <= 1000; ++rowid) keys.append(std::array{rowid * 2'000'000});
  EXPECT_EQ(keys.bytes(), 4000U);
  keys.append(std::array{std::int64_t{1} << 40});
  EXPECT_EQ(keys.rowid(999, 0), 2'000'000'000);
  EXPECT_EQ(keys.rowid(1000, 0), std::int64_t{1} << 40);
}
