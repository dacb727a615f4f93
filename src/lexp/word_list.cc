#include "lexp/word_list.h"

#include <algorithm>
#include <memory>

#include "lexp/offers.h"
#include "shell/file_search.h"
#include "shell/named_objects.h"
#include "shell/world.h"
#include "support/hash.h"

namespace torvane {

namespace tags {
const TypeTag word_list{kWordListType};
}

namespace {

constexpr long kLargestHint = 1L << 18;

bool same_letters(std::string_view a, const char* b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (lower(a[i]) != lower(b[i])) return false;
  }
  return true;
}

Value make_word_list(World& world, IRSlist* form) {
  bool case_sensitive = form->take_flag(":case-sensitive");
  long size = 0;
  if (const char* text = form->take_keyword_str(":hashsize")) scan_long(text, size);
  const char* name = form->get_str_val();
  if (!name) return Value();
  auto list = std::make_unique<WordList>(case_sensitive, size);
  list->add_items(world, *form);
  world.own_object(name, std::move(list), kWordListType);
  return Value();
}

Value add_to_word_list(World& world, IRSlist* form) {
  auto* list = world.objects.find_as<WordList>(form->get_str_val(), kWordListType, true);
  if (list) list->add_items(world, *form);
  return Value();
}

constexpr Command kWordListCommands[] = {
    {"make-word-list", make_word_list,
     "(make-word-list NAME :hashsize SIZE [:case-sensitive] FILE FILE (WORD WORD ...))"},
    {"add-to-word-list", add_to_word_list, "(add-to-word-list NAME FILE FILE (WORD WORD ...))"},
};

}  // namespace

WordList::WordList(bool case_sensitive, long expected) : case_sensitive_(case_sensitive) {
  std::size_t slots = 16;
  while (slots < 2 * static_cast<std::size_t>(std::clamp(expected, 0L, kLargestHint))) slots *= 2;
  resize(slots);
}

bool WordList::equal(const Slot& slot, std::uint32_t hash, std::string_view word) const {
  if (slot.hash != hash || slot.length != word.size()) return false;
  return case_sensitive_ ? std::equal(word.begin(), word.end(), slot.word)
                         : same_letters(word, slot.word);
}

WordList::Slot& WordList::place(std::uint32_t hash, std::string_view word) {
  std::size_t mask = slots_.size() - 1;
  for (std::size_t i = int_hash(hash) >> shift_;; i = (i + 1) & mask) {
    Slot& slot = slots_[i];
    if (!slot.word || equal(slot, hash, word)) return slot;
  }
}

void WordList::resize(std::size_t slots) {
  std::vector<Slot> old(slots);
  old.swap(slots_);
  shift_ = 32;
  for (std::size_t n = slots; n > 1; n /= 2) --shift_;
  for (const Slot& slot : old) {
    if (slot.word) place(slot.hash, {slot.word, slot.length}) = slot;
  }
}

void WordList::add(const char* text) {
  std::string_view word = text;
  std::uint32_t hash = string_hash(word);
  if (place(hash, word).word) return;
  if (2 * static_cast<std::size_t>(++count_) > slots_.size()) resize(2 * slots_.size());
  place(hash, word) = {hash, static_cast<std::uint32_t>(word.size()), texts_.copy(word)};
  longest_ = std::max(longest_, word.size());
}

const char* WordList::find(std::string_view word) const {
  return const_cast<WordList*>(this)->place(string_hash(word), word).word;
}

bool WordList::holds_suffix_of(std::string_view text) const {
  if (count_ == 0) return false;
  for (std::size_t length = 0; length <= std::min(longest_, text.size()); ++length) {
    if (find(text.substr(text.size() - length))) return true;
  }
  return false;
}

void WordList::add_file(World& world, const char* name) {
  Ref<Stream> stream = world.files.open(name);
  if (!stream) return;
  StrBufs line(256);
  while (const char* word = line.read_line(*stream->in())) {
    if (*word) add(word);
    line.reset();
  }
}

void WordList::add_items(World& world, const IRSlist& items) {
  for (const IRSlist* item : items.items) {
    if (item->is_atom()) add_file(world, item->atom);
    for (const IRSlist* word : item->items) {
      if (word->is_atom()) add(word->atom);
    }
  }
}

constinit const Offer offers::word_list{kWordListCommands};

}  // namespace torvane
