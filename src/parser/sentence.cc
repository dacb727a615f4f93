// One sentence through the parser: words to the analyser, its items to their nodes.
#include <algorithm>
#include <limits>

#include "lexp/lexp.h"
#include "parser/grammar/contract.h"
#include "parser/parsing.h"
#include "parser/run/parse_run.h"
#include "shell/world.h"
#include "support/depth.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {
namespace {

constexpr int kDefaultWeight = 18;

/// As one made for this sentence: it takes the default that stands now.
TokenizerBase& sentence_tokenizer(World& world) {
  // Kept: return-is-no-blank
  std::unique_ptr<Tokenizer>& tokenizer = parsing(world).sentence_tokenizer;
  if (!tokenizer)
    tokenizer = std::make_unique<Tokenizer>(" \t\n", "(){}[];!?$`'\"-", "(){}[];,:?!@`\"-", "", 0,
                                            0, 4096, 512, world.double_byte);
  tokenizer->double_byte = world.double_byte;
  return *tokenizer;
}

/// The number behind `word` in a list "STRING NUMBER STRING NUMBER ...".
int frequency_weight(const char* list, const char* word) {
  std::string key;
  const char* p = list;
  auto read_atom = [&](std::string& out) {
    out.clear();
    while (is_space(*p) || *p == '(' || *p == ')') ++p;
    bool quoted = *p == '"';
    if (quoted) ++p;
    while (*p && (quoted ? *p != '"' : !is_space(*p) && *p != '(' && *p != ')')) {
      if (quoted && *p == '\\' && p[1]) ++p;
      out += *p++;
    }
    if (quoted && *p) ++p;
    return quoted || !out.empty();
  };
  std::string number;
  while (read_atom(key) && read_atom(number)) {
    float value = 0;
    if (key == word && scan_float(number.c_str(), value)) {
      constexpr float kMost = std::numeric_limits<std::int16_t>::max();
      return static_cast<int>(value > -kMost ? std::min(value, kMost) : -kMost);
    }
  }
  return kDefaultWeight;
}

/// What an item that was given a category weighs, by the `freq` list of its entry.
int category_weight(Lexicon* lexicon, const LexItem& item) {
  const LexEntry* entry = lexicon && item.entry_key ? lexicon->get_entry(item.entry_key) : nullptr;
  if (!entry) return kDefaultWeight;
  for (const Meaning* meaning : entry->meanings())
    if (same_word(meaning->type(), contract::kFrequencies))
      if (auto* freq = dynamic_cast<const StrMeaning*>(meaning))
        return frequency_weight(freq->text.c_str(), item.category);
  return kDefaultWeight;
}

}  // namespace

// Conditions, rules and tree rules may run any command. It is refused what would change the
// grammar, the chart or the analyser.
class TorvaneParser::SentenceInHand {
 public:
  explicit SentenceInHand(TorvaneParser& parser) : parsing_(parser.parsing_) { parsing_ = true; }
  ~SentenceInHand() { parsing_ = false; }
  SentenceInHand(const SentenceInHand&) = delete;
  SentenceInHand& operator=(const SentenceInHand&) = delete;

 private:
  bool& parsing_;
  Round round_;
};

template <class AddWords>
bool TorvaneParser::feed_with(AddWords add_words) {
  if (refuse_while_parsing(_world, "parse", grammar._lex)) return false;
  drop_result();
  if (!grammar._lex) return false;
  reset();
  lifetimes().settle();
  lift_depth_limits();
  SentenceInHand in_hand(*this);
  add_words(*grammar._lex);
  grammar._lex->analyze();
  return true;
}

bool TorvaneParser::feed(const char* text, TokenizerBase* tokenizer) {
  return feed_with([&](LexAnalyzer& lex) {
    TokenizerBase& tokens = tokenizer ? *tokenizer : sentence_tokenizer(_world);
    tokens.reset_tokens();
    tokens.set_string_input(or_empty(text), -1);
    while (const char* token = tokens.next_token()) {
      if (!*token && !tokens.more_input) break;
      if (tokens.white.has(static_cast<unsigned char>(*token))) {
        lex.add_gap(token);
      } else {
        lex.add_word(token);
      }
    }
    tokens.reset_tokens();
  });
}

bool TorvaneParser::feed_words(const std::vector<const char*>& words) {
  return feed_with([&](LexAnalyzer& lex) {
    for (const char* word : words) {
      lex.add_gap(" ");
      lex.add_word(word);
    }
  });
}

void TorvaneParser::parse(const char* text, TokenizerBase* tokenizer) {
  if (feed(text, tokenizer)) parse_items();
}

bool TorvaneParser::collect_items() {
  initial_.clear();
  const int n = grammar._lex->word_count();
  bool room = true;
  grammar._lex->for_each_item([&](LexItem* lexitem) {
    const AttVec* vec = lexitem->vec();
    bool in_sentence = lexitem->low >= 0 && lexitem->high >= lexitem->low - 1 && lexitem->high < n;
    if (!room || !in_sentence || !vec || vec->interpreters != grammar._att_type) return;
    const GCate* node = grammar.node_of_vec(*vec);
    if (!node) return;
    PItem* item = chart.make_lexical_item(*node, lexitem);
    if (!item) {
      room = false;
      return;
    }
    if (lexitem->category && *lexitem->category)
      lexitem->weight =
          static_cast<std::int16_t>(category_weight(grammar._lex->lexicon(), *lexitem));
    item->_weight += lexitem->weight;
    stamp_roles(*item);
    initial_.push_back({item, static_cast<int>(initial_.size())});
  });
  return room;
}

void TorvaneParser::parse_items() {
  if (refuse_while_parsing(_world, "parse", grammar._lex)) return;
  SentenceInHand in_hand(*this);
  drop_result();
  // Kept: too-many-readings
  if (!grammar._lex || !collect_items()) return;
  std::sort(initial_.begin(), initial_.end(), [](const Initial& a, const Initial& b) {
    if (a.item->_low != b.item->_low) return a.item->_low < b.item->_low;
    if (a.item->_weight != b.item->_weight) return a.item->_weight < b.item->_weight;
    return a.order < b.order;
  });
  ParseRun run(grammar, chart);
  for (const Initial& initial : initial_) run.receive(*initial.item->_node, initial.item, nullptr);
  if (!_constituency) parse_to_deps();
}

bool TorvaneParser::next_deps() {
  if (refuse_while_parsing(_world, "parse", grammar._lex) || !_deps) return false;
  SentenceInHand in_hand(*this);
  if (!next_trees_) next_trees_ = std::make_unique<NextTrees>(forest_, grammar, chart);
  if (!next_trees_->next()) return false;
  cost_ = next_trees_->cost();
  drop_result();
  build(next_trees_->roots());
  return true;
}

}  // namespace torvane
