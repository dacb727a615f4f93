#include "parser/run/merge.h"

#include <gtest/gtest.h>

#include "parser/forms/test_grammar.h"

namespace torvane {
namespace {

/// A subject before its verb; the text is of the link.
std::string subject(const std::string& link) {
  return "(def-category N) (def-category V (visible-atts (num)))"
         "(def-modifiers V (? (N (dep-type subj) " +
         link + ")) (:head))";
}

const Link& first_link(TestGrammar& made) {
  return *made.node("V").links_at(0).front();
}

TEST(Merge, EveryTestBetweenModifierAndHead) {
  struct {
    const char* link;
    TestItem modifier, head;
    const char* merged;
  } const cases[] = {
      // The link's weight, and one for every two words between the heads.
      {"", {"N", 1, 1}, {"V", 2, 2}, "1-2 w=1 ()"},
      {"(dep-weight 2.5)", {"N", 1, 1}, {"V", 6, 6}, "1-6 w=4.5 ()"},
      {"", {"N", 1, 1}, {"V", 21, 21}, "1-21 w=11 ()"},
      {"", {"N", 1, 1}, {"V", 22, 22}, "none"},
      // What percolates has to agree; what does not may differ.
      {"(percolate (num))", {"N", 1, 1, "(num sg)"}, {"V", 2, 2}, "1-2 w=1 ((num sg))"},
      {"(percolate (num))", {"N", 1, 1, "(num sg)"}, {"V", 2, 2, "(num pl)"}, "none"},
      {"", {"N", 1, 1, "(num sg)"}, {"V", 2, 2, "(num pl)"}, "1-2 w=1 ((num pl))"},
      {"(merged-cond (int 0))", {"N", 1, 1}, {"V", 2, 2}, "none"},
      // Case: needed, not given, not asked for.
      {"(percolate (cm))", {"N", 1, 1, "-cm"}, {"V", 2, 2}, "none"},
      {"(percolate (cm))", {"N", 1, 1, "-cm"}, {"V", 2, 2, "-govern"}, "1-2 w=1 (-cm -govern)"},
      {"(percolate (cm))", {"N", 1, 1, "-cm"}, {"V", 2, 2, "-cm"}, "1-2 w=1 (-cm)"},
      // A displaced constituent is filled if the link or the modifier asks for it; never two.
      {"(check-slash np)", {"N", 1, 1}, {"V", 2, 2, "(move ((slash np)))"}, "1-2 w=1 ()"},
      {"", {"N", 1, 1, "(check np)"}, {"V", 2, 2, "(move ((slash np)))"}, "1-2 w=1 ()"},
      {"(check-slash wh)",
       {"N", 1, 1},
       {"V", 2, 2, "(move ((slash np)))"},
       "1-2 w=1 ((move ((slash np))))"},
      {"(check-slash np)", {"N", 1, 1}, {"V", 2, 2, "(move ((slash np)) ((slash np)))"}, "none"},
  };
  for (const auto& [link, modifier, head, merged] : cases) {
    TestGrammar made(subject(link));
    PItem* item = merge(made.chart(), made.grammar(), *made.item(modifier), *made.item(head),
                        nullptr, 0, first_link(made));
    EXPECT_EQ(TestGrammar::text_of(item), merged) << link << ' ' << modifier.atts << head.atts;
  }
}

TEST(Merge, StaysInsideIsolatedWords) {
  TestGrammar made(subject(""));
  made.chart().spans.span_limits(1) = {-1, 2};
  PItem* noun = made.item({"N", 1, 1});
  const Link& link = first_link(made);
  auto under = [&](PItem* verb) {
    return merge(made.chart(), made.grammar(), *noun, *verb, nullptr, 0, link);
  };
  EXPECT_TRUE(under(made.item({"V", 2, 2})));
  EXPECT_FALSE(under(made.item({"V", 3, 3})));
  made.chart().reset();
  noun = made.item({"N", 1, 1});
  EXPECT_TRUE(under(made.item({"V", 3, 3})));
}

TEST(Merge, AnAdjunctGoesBelowTheHeadAsAGuest) {
  TestGrammar made(subject(""));
  PItem* verb = made.item({"V", 3, 3});
  PItem* adjunct = made.item({"N", 2, 2});
  PItem* merged = merge(made.chart(), made.grammar(), *made.item({"N", 1, 1}), *verb, adjunct, 0,
                        first_link(made));
  ASSERT_TRUE(merged);
  EXPECT_EQ(merged->_low, 1);
  EXPECT_EQ(merged->_head_child->_modifier, adjunct);
  EXPECT_EQ(merged->_head_child->_link->kind(), LinkKind::guest);
  EXPECT_EQ(merged->_head_child->_head_child, verb);
}

// Not even where both share the list already: each unification adds the records once more.
TEST(Merge, TracesGrowWhenTheyMeetThemselves) {
  TestGrammar made("(def-category V)");
  PItem* item = made.item({"V", 1, 1, "(move ((slash np) (role obj)))"});
  stamp_roles(*item);
  Ref<AttVec> copy = make_ref<AttVec>(*item->_atts);
  for (const char* wanted : {"((move ((slash np) (trace (obj) (obj)))))",
                             "((move ((slash np) (trace (obj) (obj) (obj)))))"}) {
    ASSERT_TRUE(copy->unify(*item->_atts, nullptr, true));
    std::ostringstream out;
    copy->print(out);
    EXPECT_EQ(out.str(), wanted);
  }
}

}  // namespace
}  // namespace torvane
