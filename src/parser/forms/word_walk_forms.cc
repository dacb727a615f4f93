// The forms that look at the words of an item and around it, past the words that are skipped.
#include "lexp/form.h"
#include "lexp/refusal.h"
#include "parser/chart/chart.h"
#include "parser/forms/offers.h"
#include "parser/torvane_parser.h"

namespace torvane {
namespace {

/// The words of the sentence that an item is of.
class Words {
 public:
  Words(World& world, const PItem& item) {
    const GCate* node = node_of(item);
    const TorvaneParser* parser = node ? nullptr : current_parser(world);
    if (node || parser) lex_ = (node ? node->_grammar : parser->grammar)._lex;
  }
  LexAnalyzer* lex() const { return lex_; }
  const char* word(int i) const { return lex_ ? lex_->word(i) : nullptr; }
  bool skipped(int i) const { return lex_ && lex_->skipped.test(i); }
  int last() const { return lex() ? lex()->last_position() : 0; }
  /// The nearest word before `i` that is not skipped; 0 if there is none.
  int before(int i) const {
    for (--i; i > 0 && skipped(i);) --i;
    return i > 0 && word(i) ? i : 0;
  }
  int behind(int i, bool no_skip) const {
    for (++i; !no_skip && i <= last() && skipped(i);) ++i;
    return i > 0 && word(i) ? i : 0;
  }
  Value value(const char* text) const { return text ? lex()->text_value(text) : Value(); }
  bool holds(const ExpPtr& condition, const char* text) const {
    return passes(condition, value(text), type_id_of<const char*>());
  }

 private:
  LexAnalyzer* lex_ = nullptr;
};

struct PItemHeadWord : Adaptor<PItemHeadWord, PItem, Value, const char*> {
  static constexpr const char* kName = "pitem-head-word";
  static constexpr const char* kUsage = "`(pitem-head-word [exp])` the item's words";
  Value step(PItem& item) const {
    LexAnalyzer* lex = Words(this->world(), item).lex();
    // Kept: head-word-is-all-words
    return lex ? lex->text_value(lex->surface(item._low, item._high)) : Value();
  }
};

struct PItemPrecedingWord : Adaptor<PItemPrecedingWord, PItem, Value, const char*> {
  static constexpr const char* kName = "pitem-preceding-word";
  static constexpr const char* kUsage =
      "`(pitem-preceding-word [exp])` the nearest word before the item that is not skipped";
  Value step(PItem& item) const {
    Words words(this->world(), item);
    return words.value(words.word(words.before(item._low)));
  }
};

/// The condition is the next step; it also says whether the last word of the item itself will do.
struct PItemFollowingWord : Form<PItemFollowingWord, LAdaptor> {
  static constexpr const char* kName = "pitem-following-word";
  static constexpr const char* kUsage =
      "`(pitem-following-word [:no-skip] [cond])` the next word that is not skipped";
  PItemFollowingWord() {
    in_type = type_id_of<PItem>();
    mid_type = type_id_of<const char*>();
  }
  void init(World& world, IRSlist* args) override {
    no_skip_ = args->take_flag(":no-skip");
    LAdaptor::init(world, args);
  }
  Value eval(Value input, int input_type) override {
    if (!accepts(input_type)) return Value();
    const PItem* item = input.as<PItem>();
    if (!item) return Value();
    Words words(this->world(), *item);
    const char* last = words.word(item->_high);
    if (sub && last && words.holds(sub, last)) return words.value(last);
    Value next = convert(input);
    return sub && next ? sub.eval(next, mid_type) : next;
  }
  Value watch(Value input, int input_type, Refusal& refusal) override {
    // It is no adaptor where the last word is of the row: as a whole it is told.
    return LExp::watch(input, input_type, refusal);  // NOLINT(bugprone-parent-virtual-call)
  }
  Value convert(Value input) override {
    const PItem* item = input.as<PItem>();
    if (!item) return Value();
    Words words(this->world(), *item);
    return words.value(words.word(words.behind(item->_high, no_skip_)));
  }

 protected:
  std::string finding(Value input) override { return LExp::finding(convert(input)); }

 private:
  bool no_skip_ = false;
};

/// A form on an item with a condition on words.
template <class D>
struct WordForm : Form<D> {
  WordForm() { this->in_type = this->out_type = type_id_of<PItem>(); }
  void init(World& world, IRSlist* args) override {
    no_skip_ = args->take_flag(":no-skip");
    if (auto form = args->pop_front()) condition_ = LExp::get_exp(world, form.get());
  }
  Value eval(Value input, int input_type) override {
    if (!this->accepts(input_type)) return Value();
    PItem* item = input.as<PItem>();
    return item && static_cast<D*>(this)->apply(*item, Words(this->world(), *item)) ? input
                                                                                    : Value();
  }

 protected:
  bool no_skip_ = false;
  ExpPtr condition_;
};

struct PItemFollowedByOrEndWithWord : WordForm<PItemFollowedByOrEndWithWord> {
  static constexpr const char* kName = "pitem-followed-by-or-end-with-word";
  static constexpr const char* kUsage =
      "`(pitem-followed-by-or-end-with-word [:no-skip] cond)` the item ends the sentence, or a "
      "word at its end passes";
  bool apply(const PItem& item, const Words& words) const {
    // Kept: followed-by-end
    for (int i = item._high; i <= words.last(); ++i) {
      if (!words.word(i) || (!no_skip_ && words.skipped(i))) continue;
      if (words.holds(condition_, words.word(i))) return true;
      if (i > item._high) return false;
    }
    return true;
  }
};

struct IncludeFollowingWord : WordForm<IncludeFollowingWord> {
  static constexpr const char* kName = "include-following-word";
  static constexpr const char* kUsage =
      "`(include-following-word [cond])` the item takes in the next word";
  bool apply(PItem& item, const Words& words) const {
    int i = words.behind(item._high, false);
    // Kept: include-following-is-true
    if (i > 0 && words.holds(condition_, words.word(i))) {
      item._high = static_cast<std::int16_t>(i);
      if (item.stored_in) item.stored_in->note_shift();
    }
    return true;
  }
};

struct IncludePrecedingWord : WordForm<IncludePrecedingWord> {
  static constexpr const char* kName = "include-preceding-word";
  static constexpr const char* kUsage =
      "`(include-preceding-word)` the item takes in the word before it";
  bool apply(PItem& item, const Words& words) const {
    int i = words.before(item._low);
    // Kept: include-preceding-unasked
    if (i > 0) {
      item._low = static_cast<std::int16_t>(i);
      if (item.stored_in) item.stored_in->note_shift();
    }
    return true;
  }
};

constexpr Prototype kWordWalkForms[] = {
    form<PItemHeadWord>(),        form<PItemPrecedingWord>(),
    form<PItemFollowingWord>(),   form<PItemFollowedByOrEndWithWord>(),
    form<IncludeFollowingWord>(), form<IncludePrecedingWord>(),
};

}  // namespace

constinit const Offer offers::word_walk_forms{kWordWalkForms};

}  // namespace torvane
