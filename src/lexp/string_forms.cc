#include "lexp/string_forms.h"

#include <algorithm>
#include <cstring>

#include "lexp/scratch_text.h"
#include "support/stemmer.h"
#include "support/text.h"

namespace torvane {

namespace {

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

}  // namespace

Value InverseStr::step(const char* text, Value) {
  ScratchText reversed;
  reversed.add(text);
  std::reverse(reversed.data(), reversed.data() + reversed.view().size());
  return Value::made_text(reversed.view());
}

Value StemWord::step(const char* text, Value input) {
  ScratchText word;
  word.add(text);
  word.add('\0');
  return stem(word.data()) ? Value::made_text(word.data()) : input;
}

Value LastWord::step(const char* text, Value input) {
  const char* start = text;
  for (const char* p = text; *p; ++p) {
    if (is_space(*p)) start = p + 1;
  }
  return rest_of_text(input, start);
}

Value RemovePunc::step(const char* text, Value) {
  ScratchText kept;
  bool in_word = false;
  for (; *text; ++text) {
    // Kept: remove-punc-cuts
    if (*text == '\'' && in_word) break;
    if (is_punct(*text) && *text != '-') continue;
    kept.add(*text);
    in_word = !is_space(*text);
  }
  return Value::made_text(kept.view());
}

void RemoveChar::init(World& world, IRSlist* args) {
  const char* chars = args->get_str_val();
  given_ = chars != nullptr;
  chars_ = or_empty(chars);
  LAdaptor::init(world, args);
}

Value RemoveChar::step(const char* text, Value) {
  if (!given_) return Value();
  ScratchText kept;
  for (; *text; ++text) {
    if (chars_.find(*text) == std::string::npos) kept.add(*text);
  }
  return Value::made_text(kept.view());
}

Value TwoTexts::eval(Value input, int type) {
  // Kept: comparisons-need-input
  if (!input || !a || !b) return Value();
  const char* left = a->eval(input, type).text();
  if (!left) return Value();
  const char* right = b->eval(input, type).text();
  return Value::truth(right && holds(left, right));
}

bool StrEq::holds(const char* left, const char* right) const {
  return same_word(left, right);
}

bool StrStr::holds(const char* left, const char* right) const {
  const char* left_end = left + std::strlen(left);
  const char* right_end = right + std::strlen(right);
  return right == right_end ||
         std::search(left, left_end, right, right_end, same_letter) != left_end;
}

bool StrPrefix::holds(const char* left, const char* right) const {
  return begins_with(right, left);
}

void StrIs::init(World&, IRSlist* args) {
  const char* wanted = args->get_str_val();
  given = wanted != nullptr;
  text = or_empty(wanted);
}

Value StrIs::eval(Value input, int type) {
  if (!accepts(type)) return Value();
  const char* given_text = input.text();
  return Value::truth(given && given_text && same_word(given_text, text.c_str()));
}

std::unique_ptr<LExp> make_str_is(World& world, const char* text) {
  auto exp = within_input(std::make_unique<StrIs>());
  exp->belong_to(world);
  exp->given = text != nullptr;
  exp->text = or_empty(text);
  return exp;
}

Value NullStr::eval(Value input, int type) {
  if (!accepts(type)) return Value();
  const char* text = input.text();
  return Value::truth(!text || !*text);
}

void LoopOnStr::init(World& world, IRSlist* args) {
  IRSlist* first = args->nth(0);
  if (first && first->is_atom()) delimiters_ = args->get_str_val();
  exp = get_exp(world, args->nth(0));
}

bool LoopOnStr::any_word(const char* text, int type, bool wanted) const {
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

Value ExistWord::eval(Value input, int type) {
  if (!accepts(type)) return Value();
  const char* text = input.text();
  return Value::truth(text && exp && any_word(text, type, true));
}

Value AllWords::eval(Value input, int type) {
  if (!accepts(type)) return Value();
  const char* text = input.text();
  return text && exp && !any_word(text, type, false) ? input : Value();
}

void FormatStr::init(World& world, IRSlist* args) {
  for (IRSlist* item : args->items) {
    if (item->is_atom()) {
      parts_.append({true, item->atom, {}});
    } else {
      parts_.append({false, {}, get_exp(world, item)});
    }
  }
}

Value FormatStr::eval(Value input, int type) {
  ScratchText joined;
  for (const Part& part : parts_) {
    if (part.is_literal) {
      joined.add(part.literal);
    } else if (const char* text = part.exp.eval(input, type).text()) {
      joined.add(text);
    }
  }
  return Value::made_text(joined.view());
}

Value RemovePrefix::eval(Value input, int type) {
  if (!accepts(type)) return Value();
  const char* text = input.text();
  const char* start = text ? prefix.eval(input, type).text() : nullptr;
  if (!start) return Value();
  std::size_t length = std::strlen(start);
  return std::strncmp(text, start, length) == 0 ? rest_of_text(input, text + length) : Value();
}

}  // namespace torvane
