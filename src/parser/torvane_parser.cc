#include "parser/torvane_parser.h"

#include <algorithm>

#include "parser/forest/choose_roots.h"
#include "parser/parsing.h"

namespace torvane {

TorvaneParser& Parsing::make_parser(World& world, int hashtable_size) {
  parsers_.push_back(std::make_unique<TorvaneParser>(world, hashtable_size));
  // Kept: last-parser-is-current
  return *parsers_.back();
}

bool Parsing::is_parsing() const {
  return std::any_of(parsers_.begin(), parsers_.end(),
                     [](const auto& one) { return one->is_parsing(); });
}

TorvaneParser* current_parser(World& world) {
  return parsing(world).current();
}

bool refuse_while_parsing(World& world, const char* what, const LexAnalyzer* lex) {
  bool busy = parsing(world).is_parsing() || (lex && lex->is_analyzing());
  if (busy) messages() << what << ": a sentence is being parsed\n";
  return busy;
}

TorvaneParser::TorvaneParser(World& world, int hashtable_size)
    : _world(world), grammar(hashtable_size), costs(world, parsing(world).costs) {}

void TorvaneParser::reset() {
  if (refuse_while_parsing(_world, "reset-parser", grammar._lex)) return;
  next_trees_.reset();
  forest_.clear();
  chart.reset();
  costs.reset();
  if (grammar._lex) grammar._lex->reset();
}

void TorvaneParser::drop_result() {
  if (!_deps) return;
  if (_deps->shared() || lifetimes().expression_waits()) {
    // What is on its way through that expression may belong to it.
    std::uint64_t birth = _deps->eras.birth();
    _deps->eras.renew();
    lifetimes().drop(birth, tags::deps.drop, Value::of(_deps.leak()).word());
  } else {
    _deps->clear();
  }
}

void TorvaneParser::parse_to_deps() {
  if (!grammar._lex) return;
  next_trees_.reset();
  forest_.clear();
  forest_.collect_roots(grammar, chart);
  choose_roots(grammar, _word_weight, forest_, cover_);
  cost_ = 0;
  for (const TNode* root : forest_._roots)
    cost_ += static_cast<float>(root->_root_penalty) + root->_weight;
  build(forest_._roots);
}

void TorvaneParser::build(const Slist<TNode*>& roots) {
  if (!_deps || _deps->shared()) _deps = make_ref<Deps>(_world);
  if (!_deps->is_clear()) _deps->clear();
  _deps->_att_type = grammar._att_type;
  _deps->set_words(*grammar._lex);
  builder_.build(roots, *_deps);
  if (_deps_modifier && _deps->_root) _deps_modifier->modify(_deps->_root);
}

}  // namespace torvane
