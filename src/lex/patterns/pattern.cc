#include "lex/patterns/pattern.h"

#include "lex/patterns/offers.h"
#include "lexp/form.h"
#include "shell/object_factory.h"
#include "shell/world.h"
#include "support/depth.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {

namespace {

constexpr int kMostNesting = 1000;
thread_local DepthLimit pattern_depth{"make_pattern: the patterns are nested too deeply",
                                      kMostNesting};

LPattern* find_prototype(const ObjFactory& family, const char* head) {
  auto* entry = family.find(head);
  return entry ? entry->value.as<LPattern>() : nullptr;
}

}  // namespace

void LPattern::match(MatchRun& run, MatchList& results) const {
  run.start(reach_);
  int last = run.analyzer.last_position();
  for (int i = 1; i <= last; ++i) {
    MatchList here;
    if (front_to_back_) {
      find(run, Anchor::start, i, here);
    } else {
      find(run, Anchor::end, last + 1 - i, here);
    }
    results.append(here);
  }
  run.limit(results);
}

void LPattern::match_at(MatchRun& run, Anchor anchor, int pos, MatchList& results) const {
  run.start(reach_);
  find(run, anchor, pos, results);
  run.limit(results);
}

bool LPattern::take_option(World& world, IRSlist* args) {
  IRSlist* front = args->nth(0);
  const char* word = front->is_atom() ? front->atom : front->nth_str_val(0);
  if (front->is_atom() && same_word(word, ":front-to-back")) {
    front_to_back_ = true;
  } else if (front->is_atom() && same_word(word, ":overlapping")) {
    overlapping_ = true;
  } else if (front->is_list() && same_word(word, "constraint")) {
    constraint_ = LExp::get_exp(world, front->nth(1));
  } else {
    return false;
  }
  args->pop_front();
  return true;
}

bool LPattern::take_number(IRSlist* args, const char* keyword, long& number) {
  IRSlist* front = args->nth(0);
  if (!front->is_atom() || !same_word(front->atom, keyword)) return false;
  args->pop_front();
  number = args->get_long_val();
  return true;
}

bool LPattern::passes_constraint(Match& match) const {
  return passes(constraint_, Value::of(&match), type_id_of<Match>());
}

void AtomicPat::init(World& world, IRSlist* args) {
  exp_ = LExp::get_exp(world, args->nth(0));
}

void WordPat::find(MatchRun& run, Anchor, int pos, MatchList& results) const {
  const char* word = run.analyzer.word(pos);
  if (word && passes(exp_, run.analyzer.text_value(word), type_id_of<const char*>()))
    results.add(Match::make(&run.analyzer, pos, pos));
}

std::unique_ptr<LPattern> make_pattern(World& world, IRSlist* form) {
  ObjFactory* family = world.families.find("LPattern");
  if (!family) {
    messages() << "need to call pattern_init()\n";
    return nullptr;
  }
  if (!form) return nullptr;
  PlaceScope here(world.places, form->place);
  if (form->is_atom()) {
    auto word = std::make_unique<WordPat>(make_str_is(world, form->atom));
    word->settle_reach();
    return word;
  }
  IRSlist* head = form->nth(0);
  if (!head || !head->is_atom()) {
    std::ostream& out = messages() << "Unable to make pattern: ";
    form->print_item(out);
    out << '\n';
    return nullptr;
  }
  LPattern* prototype = find_prototype(*family, head->atom);
  if (!prototype) {
    messages() << "The pattern " << head->atom << " is not defined\n";
    return nullptr;
  }
  DepthGuard guard(pattern_depth);
  if (!guard) return nullptr;
  form->pop_front();
  std::unique_ptr<LPattern> pattern = prototype->clone();
  pattern->init(world, form);
  pattern->settle_reach();
  return pattern;
}

namespace {

constexpr Prototype kPatternPatterns[] = {
    pattern<WordPat>("word", "(word LEXP) matches a word that satisfies LEXP"),
};

}  // namespace

constinit const Offer offers::pattern{kPatternPatterns};

}  // namespace torvane
