#include "lex/lexicon/endings.h"

#include <cstring>

#include "att/contract.h"
#include "lex/lexicon/offers.h"
#include "lexp/form.h"
#include "shell/named_objects.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {
namespace {

bool is_vowel(char c) {
  return c != '\0' && std::strchr(contract::kVowels, lower(c)) != nullptr;
}

std::unique_ptr<Ending> make_ending(const EndingTable& table, const char* type) {
  switch (type[0]) {
    case 'd':
      return std::make_unique<EndingDouble>(table);
    case 'e':
      return std::make_unique<EndingES>(table);
    case 'p':
      return std::make_unique<Ending>(table);
    default:
      messages() << "Ending type '" << type << "' is not defined.\n";
      return nullptr;
  }
}

}  // namespace

bool Ending::matches(const char* word, std::size_t length) const {
  if (length <= suffix_.size()) return false;
  const char* end = word + length - suffix_.size();
  for (std::size_t i = 0; i < suffix_.size(); ++i)
    // Kept: capital-suffix-never-fits
    if (lower(end[i]) != suffix_[i]) return false;
  return true;
}

const char* Ending::strip(const char* word) const {
  std::size_t length = std::strlen(word);
  return length > suffix_.size() ? candidate(word, length - suffix_.size(), replacement_) : nullptr;
}

const char* Ending::candidate(const char* word, std::size_t keep, std::string_view tail) const {
  std::string& work = table_.work_;
  work.assign(word, keep);
  work += tail;
  if (condition_) {
    // The condition may look words up itself, in the same buffer.
    std::string root = work;
    if (!holds(*condition_, Value::buffer_text(root.c_str()), type_id_of<const char*>()))
      return nullptr;
    work = std::move(root);
  }
  return work.c_str();
}

bool Ending::init(IRSlist* form) {
  if (!read_change(form)) return false;
  condition_ = table_.condition(form->get_str_val());
  return true;
}

bool Ending::read_change(IRSlist* form) {
  suffix_ = or_empty(form->get_str_val());
  if (suffix_.size() > UINT8_MAX) {
    messages() << "The ending '" << suffix_ << "' is too long\n";
    return false;
  }
  name_ = or_empty(form->get_str_val());
  replacement_ = or_empty(form->get_str_val());
  return true;
}

bool EndingES::matches(const char* word, std::size_t length) const {
  if (length <= 3 || !Ending::matches(word, length)) return false;
  char c = lower(word[length - 3]);
  for (char b : before_)
    if (lower(b) == c) return true;
  return false;
}

bool EndingES::init(IRSlist* form) {
  // What stands before the suffix comes last, so that only a fifth atom leaves room for a
  // condition.
  bool with_condition = form->length() > 4;
  if (!(with_condition ? Ending::init(form) : read_change(form))) return false;
  before_ = or_empty(form->get_str_val());
  return true;
}

bool EndingDouble::matches(const char* word, std::size_t length) const {
  if (!Ending::matches(word, length)) return false;
  const std::size_t n = length - suffix_length();
  return n > 3 && lower(word[n - 1]) == lower(word[n - 2]) && is_vowel(word[n - 3]);
}

const char* EndingDouble::strip(const char* word) const {
  std::size_t length = std::strlen(word);
  std::size_t off = suffix_length() + 1;
  // Kept: double-without-replacement
  return length > off ? candidate(word, length - off, {}) : nullptr;
}

void EndingTable::read(World& world, IRSlist* form) {
  while (std::unique_ptr<IRSlist> item = form->pop_front()) {
    if (item->is_atom() || item->empty()) continue;
    PlaceScope here(world.places, item->place);
    const IRSlist* head = item->nth(0);
    if (head->is_atom() && same_word(head->atom, ":conditions")) {
      item->pop_front();
      read_conditions(world, item.get());
    } else {
      read_ending(item.get());
    }
  }
}

void EndingTable::read_conditions(World& world, IRSlist* form) {
  while (std::unique_ptr<IRSlist> pair = form->pop_front()) {
    std::unique_ptr<IRSlist> names = pair->pop_front();
    std::unique_ptr<IRSlist> exp_form = pair->pop_front();
    if (!names || !exp_form) continue;
    std::shared_ptr<LExp> exp = LExp::get_exp(world, exp_form.get());
    if (!exp) continue;
    if (names->is_atom()) conditions_.emplace_back(names->atom, exp);
    for (const IRSlist* item : names->items)
      if (item->is_atom()) conditions_.emplace_back(item->atom, exp);
  }
}

void EndingTable::read_ending(IRSlist* form) {
  const char* type = form->get_str_val();
  if (!type) return;
  std::unique_ptr<Ending> ending = make_ending(*this, type);
  if (ending && ending->init(form)) endings_.push_back(std::move(ending));
}

LExp* EndingTable::condition(const char* name) const {
  for (const auto& [known, exp] : conditions_)
    if (same_word(known.c_str(), name)) return exp.get();
  return nullptr;
}

EndingWalk::EndingWalk(const EndingTable& table, const char* word)
    : table_(table), word_(word), length_(std::strlen(word)) {
  if (length_ == 0) cursor_ = table_.endings().size();
  if (current() && !current()->matches(word_, length_)) next();
}

const Ending* EndingWalk::current() const {
  return cursor_ < table_.endings().size() ? table_.endings()[cursor_].get() : nullptr;
}

void EndingWalk::next() {
  do {
    ++cursor_;
  } while (current() && !current()->matches(word_, length_));
}

namespace {

Value def_endings(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  if (!name) return Value();
  auto* table = world.objects.find_as<EndingTable>(name, "EndingTable", false);
  if (!table) {
    table = world.own_object(name, std::make_unique<EndingTable>(), "EndingTable");
    if (!table) return Value();
  }
  table->read(world, form);
  return Value::of(table);
}

constexpr Command kEndingsCommands[] = {
    {"def-endings", def_endings, "(def-endings ending1 ...) define a set of endings."},
};

}  // namespace

constinit const Offer offers::endings{kEndingsCommands};

}  // namespace torvane
