#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "browse/frmWoerter.h"
#include "store/dictionary.h"

/// An open dictionary with a browser on it.
class BrowserTest : public StoreTest {
 protected:
  void SetUp() override { create("Wörter.cvb"); }

  /// A sub-entry as the editor leaves it: the main entry knows that it has one.
  std::int64_t addSub(std::int64_t main, const std::string& headword) {
    const std::int64_t id = addEntry(headword, 2);
    db().Execute("update Woerterbuch set ID_Woerterbuch1 = " + std::to_string(main) +
                 " where ID_Woerterbuch = " + std::to_string(id));
    db().Execute("update Woerterbuch set Unterbegriff = -1 where ID_Woerterbuch = " + std::to_string(main));
    return id;
  }
  /// Main entries "e01", "e02" and so on, with as many digits as sort them.
  void addNumbered(int count) {
    const std::size_t width = std::max<std::size_t>(2, std::to_string(count).size());
    for (int n = 1; n <= count; ++n) {
      const std::string number = std::to_string(n);
      addEntry("e" + std::string(width - number.size(), '0') + number);
    }
  }
  void show(const std::string& pageSize = "50") {
    form.settings.pageSize = pageSize;
    browse::FormInit(form);
  }
  std::string page() const {
    std::string all;
    for (const std::string& text : form.list.List2) all += (all.empty() ? "" : "|") + text;
    return all;
  }
  /// The four lists have one length and each row's texts and numbers belong to one entry.
  void expectAligned() {
    const auto& list = form.list;
    ASSERT_EQ(list.List1.size(), list.size());
    ASSERT_EQ(list.List3.size(), list.size());
    ASSERT_EQ(list.List4.size(), list.size());
    for (std::size_t n = 0; n < list.size(); ++n) {
      const std::string id = std::to_string(list.List1[n]);
      const std::string headword = rows("select Begriff from Woerterbuch where ID_Woerterbuch = " + id);
      EXPECT_NE(list.List2[n].find(headword), std::string::npos) << list.List2[n] << " is not " << headword;
      EXPECT_EQ(rows("select ID_Woerterbuch1 from Woerterbuch where ID_Woerterbuch = " + id),
                std::to_string(list.List3[n]));
      EXPECT_EQ(rows("select DatabaseName from Woerterbuch where ID_Woerterbuch = " + id), list.List4[n]);
    }
  }
  int rowOf(std::int64_t id) const {
    for (std::size_t n = 0; n < form.list.size(); ++n)
      if (form.list.List1[n] == id) return static_cast<int>(n);
    return -1;
  }
  void select(std::int64_t id) { browse::selectRow(form, rowOf(id)); }
  bool act(int action) {
    s.entry.EntryAction = action;
    return browse::AddEditDeleteAction(form);
  }
  std::string column(const std::string& name, std::int64_t id) {
    return rows("select " + name + " from Woerterbuch where ID_Woerterbuch = " + std::to_string(id));
  }

  browse::frmWoerter form{s};
};
