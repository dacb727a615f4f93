#include "shell/places.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "parser/forms/test_grammar.h"
#include "shell/placed_messages.h"

namespace torvane {
namespace {

/// The places of "FILE:LINE" without the folder.
std::string last_name(const std::string& place) {
  return place.substr(place.rfind('/') + 1);
}

struct PlacesTest : testing::Test {
  void load(const std::string& text) {
    folder.write("own.lsp", text);
    grammar.world.interpreter.load(Stream::open_input((folder / "own.lsp").c_str()).get());
  }
  std::string place(const void* thing) {
    const Places& places = grammar.world.places;
    return last_name(places.text(places.of(thing)));
  }

  ScratchFolder folder;
  TestGrammar grammar{"(def-category N) (def-category V)"};
};

TEST_F(PlacesTest, LinksAndConditionsAndTheirPartsAreFound) {
  grammar.world.places.kept = true;
  load(R"((defmacro twice (x)
  (and x x))
; a comment "
(def-modifiers V
  ((N (dep-type subj)
      (modifier-cond (and (pitem-attvec (t))
                          (t)))
      (merged-cond
        (twice
          (t)))))
  (:head)) (roots (V
   (t))) "a text
over lines" (def-conj-constraints
 N)
)");
  const Link& link = *grammar.node("V").links_at(0).front();
  EXPECT_EQ(place(&link), "own.lsp:5");
  const auto& both = dynamic_cast<const CompExp&>(*link._modifier_cond.get());
  EXPECT_EQ(place(&both), "own.lsp:6");
  EXPECT_EQ(place(both.exps[0].get()), "own.lsp:6");
  EXPECT_EQ(place(both.exps[1].get()), "own.lsp:7");
  const auto& expanded = dynamic_cast<const CompExp&>(*link._merged_cond.get());
  EXPECT_EQ(place(expanded.exps[1].get()), "own.lsp:9") << "in a macro, the place of the call";
  EXPECT_EQ(place(grammar.grammar()._roots[0].filter.get()), "own.lsp:12");
  EXPECT_EQ(place(&grammar.world), "");
}

TEST_F(PlacesTest, NothingIsKeptUnlessAsked) {
  load("(roots (V (t)))");
  EXPECT_EQ(place(grammar.grammar()._roots[0].filter.get()), "");
}

TEST_F(PlacesTest, AMessageTellsTheInnermostFormAndTheOneOfTheFile) {
  std::ostringstream out;
  grammar.world.places.want_in_messages(out);
  {
    WorldScope placed(grammar.world);
    load(R"((def-modifiers V
  ((N (modifier-cond
    (nosuch))))
  (:head (Nope)))
(unheard
  of)
(defmacro call (x) (unheard x))
(call
  of))");
    grammar.world.interpreter.load_string("(unheard)");
  }
  std::string text = out.str();
  const std::string path = folder / "";
  for (std::size_t at; (at = text.find(path)) != text.npos;) text.erase(at, path.size());
  EXPECT_EQ(text, R"(LExp::get_exp:  unknown type: 'nosuch'
  at own.lsp:3, in (def-modifiers V ...)
Node: Nope is not defined
  at own.lsp:4, in (def-modifiers V ...)
unknown function unheard
of
  at own.lsp:5, in (unheard of)
unknown function unheard
of
  at own.lsp:8, in (call of)
unknown function unheard

)");
}

}  // namespace
}  // namespace torvane
