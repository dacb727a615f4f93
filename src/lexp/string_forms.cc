// Small predicates and transformations of texts.
#include <algorithm>
#include <cstring>
#include <string>

#include "lexp/form.h"
#include "lexp/offers.h"
#include "support/stemmer.h"
#include "support/text.h"

namespace torvane {

namespace {

// The rest of a text from `rest` on, with the life of the whole.
Value rest_of_text(Value whole, const char* rest) {
  const TypeTag* tag = whole.tag();
  bool by_start = tag == &tags::name || tag == &tags::held_text;
  return Value::of_text(rest, by_start ? tags::buffer_text : *tag);
}

bool same_letter(char a, char b) {
  return lower(a) == lower(b);
}

// Whether `text` begins with `start`, without regard to case.
bool begins_with(const char* text, const char* start) {
  for (; *start; ++start, ++text) {
    if (!same_letter(*text, *start)) return false;
  }
  return true;
}

/// The input reversed.
class InverseStr : public TextAdaptor<InverseStr> {
 public:
  static constexpr const char* kName = "inverse";
  static constexpr const char* kUsage = "`(inverse [exp])` the text reversed";
  Value step(const char* text, Value) {
    std::string reversed = text;
    std::reverse(reversed.begin(), reversed.end());
    return Value::made_text(reversed);
  }
};

/// The stem, or the input if it is no plain word.
class StemWord : public TextAdaptor<StemWord> {
 public:
  static constexpr const char* kName = "stem-word";
  static constexpr const char* kUsage = "`(stem-word [exp])` the stem of an English word";
  Value step(const char* text, Value input) {
    std::string word = text;
    return stem(word.data()) ? Value::made_text(word.c_str()) : input;
  }
};

/// What stands behind the last white character.
class LastWord : public TextAdaptor<LastWord> {
 public:
  static constexpr const char* kName = "last-word";
  static constexpr const char* kUsage =
      "`(last-word [exp])` the part behind the last white character";
  Value step(const char* text, Value input) {
    const char* start = text;
    for (const char* p = text; *p; ++p) {
      if (is_space(*p)) start = p + 1;
    }
    return rest_of_text(input, start);
  }
};

/// Without punctuation and without what an apostrophe ties to a word.
class RemovePunc : public TextAdaptor<RemovePunc> {
 public:
  static constexpr const char* kName = "remove-punc";
  static constexpr const char* kUsage =
      "`(remove-punc [exp])` the text without punctuation but \"-\", and without a clitic";
  Value step(const char* text, Value) {
    std::string kept;
    bool in_word = false;
    for (; *text; ++text) {
      // Kept: remove-punc-cuts
      if (*text == '\'' && in_word) break;
      if (is_punct(*text) && *text != '-') continue;
      kept += *text;
      in_word = !is_space(*text);
    }
    return Value::made_text(kept);
  }
};

class RemoveChar : public TextAdaptor<RemoveChar> {
 public:
  static constexpr const char* kName = "remove-char";
  static constexpr const char* kUsage =
      "`(remove-char CHARS [exp])` the text without these characters";
  void init(World& world, IRSlist* args) override {
    const char* chars = args->get_str_val();
    given_ = chars != nullptr;
    chars_ = or_empty(chars);
    LAdaptor::init(world, args);
  }
  Value step(const char* text, Value) {
    if (!given_) return Value();
    std::string kept;
    for (; *text; ++text) {
      if (chars_.find(*text) == std::string::npos) kept += *text;
    }
    return Value::made_text(kept);
  }

 private:
  bool given_ = false;
  std::string chars_;
};

/// A comparison of the texts that two expressions give; 0 on an input of 0, or when a text is
/// missing.
class TwoTexts : public BinaryFunc {
 public:
  Value eval(Value input, int type) override {
    // Kept: comparisons-need-input
    if (!input || !a || !b) return Value();
    const char* left = a->eval(input, type).text();
    if (!left) return Value();
    const char* right = b->eval(input, type).text();
    return Value::truth(right && holds(left, right));
  }

 protected:
  virtual bool holds(const char* left, const char* right) const = 0;
};

class StrEq : public Form<StrEq, TwoTexts> {
 public:
  static constexpr const char* kName = "str-eq";
  static constexpr const char* kUsage = "`(str-eq a b)` the texts are equal without regard to case";

 protected:
  bool holds(const char* left, const char* right) const override { return same_word(left, right); }
};

/// The second occurs in the first.
class StrStr : public Form<StrStr, TwoTexts> {
 public:
  static constexpr const char* kName = "strstr";
  static constexpr const char* kUsage = "`(strstr a b)` text b occurs in text a";

 protected:
  bool holds(const char* left, const char* right) const override {
    const char* left_end = left + std::strlen(left);
    const char* right_end = right + std::strlen(right);
    return right == right_end ||
           std::search(left, left_end, right, right_end, same_letter) != left_end;
  }
};

/// The first is the start of the second.
class StrPrefix : public Form<StrPrefix, TwoTexts> {
 public:
  static constexpr const char* kName = "str-prefix";
  static constexpr const char* kUsage = "`(str-prefix a b)` text a begins text b";

 protected:
  bool holds(const char* left, const char* right) const override {
    return begins_with(right, left);
  }
};

class StrIs : public Form<StrIs, CharPred> {
 public:
  static constexpr const char* kName = "str=";
  static constexpr const char* kUsage =
      "`(str= TEXT)` 1 if the input equals TEXT without regard to case";
  void init(World&, IRSlist* args) override {
    const char* wanted = args->get_str_val();
    given = wanted != nullptr;
    text = or_empty(wanted);
  }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    const char* given_text = input.text();
    return Value::truth(given && given_text && same_word(given_text, text.c_str()));
  }

  bool given = false;
  std::string text;
};

class NullStr : public Form<NullStr, CharPred> {
 public:
  static constexpr const char* kName = "null-str";
  static constexpr const char* kUsage = "`(null-str)` 1 if the text is null or empty";
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    const char* text = input.text();
    return Value::truth(!text || !*text);
  }
};

/// Hands the words of the input to an expression one by one.
class LoopOnStr : public CharPred {
 public:
  void init(World& world, IRSlist* args) override {
    IRSlist* first = args->nth(0);
    if (first && first->is_atom()) delimiters_ = args->get_str_val();
    exp = get_exp(world, args->nth(0));
  }

  ExpPtr exp;

 protected:
  /// True at the first word for which the truth of the expression is `wanted`.
  bool any_word(const char* text, int type, bool wanted) const {
    const char* delimiters = delimiters_.c_str();
    for (text += std::strspn(text, delimiters); *text; text += std::strspn(text, delimiters)) {
      std::size_t length = std::strcspn(text, delimiters);
      TextScope scope;
      Value word = Value::made_text({text, length});
      text += length;
      if (static_cast<bool>(exp->eval(word, type)) == wanted) return true;
    }
    return false;
  }

 private:
  std::string delimiters_ = " \t\n\r";
};

class ExistWord : public Form<ExistWord, LoopOnStr> {
 public:
  static constexpr const char* kName = "exist-word";
  static constexpr const char* kUsage =
      "`(exist-word [DELIMS] exp)` 1 if `exp` holds for a word of the text";
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    const char* text = input.text();
    return Value::truth(text && exp && any_word(text, type, true));
  }
};

class AllWords : public Form<AllWords, LoopOnStr> {
 public:
  static constexpr const char* kName = "all-words";
  static constexpr const char* kUsage =
      "`(all-words [DELIMS] exp)` the text if `exp` holds for each of its words";
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    const char* text = input.text();
    return text && exp && !any_word(text, type, false) ? input : Value();
  }
};

/// Literal texts and the texts that expressions give, joined.
class FormatStr : public Form<FormatStr> {
 public:
  static constexpr const char* kName = "format";
  static constexpr const char* kUsage = "`(format TEXT-or-exp ...)` the parts joined";
  FormatStr() { out_type = type_id_of<const char*>(); }
  void init(World& world, IRSlist* args) override {
    for (IRSlist* item : args->items) {
      if (item->is_atom()) {
        parts_.append({true, item->atom, {}});
      } else {
        parts_.append({false, {}, get_exp(world, item)});
      }
    }
  }
  Value eval(Value input, int type) override {
    std::string joined;
    for (const Part& part : parts_) {
      if (part.is_literal) {
        joined += part.literal;
      } else if (const char* text = part.exp.eval(input, type).text()) {
        joined += text;
      }
    }
    return Value::made_text(joined);
  }

 private:
  struct Part {
    bool is_literal;
    std::string literal;
    ExpPtr exp;
  };
  Array<Part> parts_;
};

class RemovePrefix : public Form<RemovePrefix, CharPred> {
 public:
  static constexpr const char* kName = "remove-prefix";
  static constexpr const char* kUsage =
      "`(remove-prefix exp)` the rest of the text behind the prefix that `exp` gives, else 0";
  RemovePrefix() { out_type = type_id_of<const char*>(); }
  void init(World& world, IRSlist* args) override { prefix = get_exp(world, args->nth(0)); }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    const char* text = input.text();
    const char* start = text ? prefix.eval(input, type).text() : nullptr;
    if (!start) return Value();
    std::size_t length = std::strlen(start);
    return std::strncmp(text, start, length) == 0 ? rest_of_text(input, text + length) : Value();
  }

  ExpPtr prefix;
};

constexpr Prototype kStringForms[] = {
    form<InverseStr>(), form<StemWord>(),     form<LastWord>(),    form<RemovePunc>(),
    form<RemoveChar>(), pure_form<StrEq>(),   pure_form<StrStr>(), pure_form<StrPrefix>(),
    pure_form<StrIs>(), pure_form<NullStr>(), form<ExistWord>(),   form<AllWords>(),
    form<FormatStr>(),  form<RemovePrefix>(),
};

}  // namespace

std::unique_ptr<LExp> make_str_is(World& world, const char* text) {
  auto exp = within_input(std::make_unique<StrIs>());
  exp->belong_to(world);
  exp->given = text != nullptr;
  exp->text = or_empty(text);
  return exp;
}

constinit const Offer offers::string_forms{kStringForms};

}  // namespace torvane
