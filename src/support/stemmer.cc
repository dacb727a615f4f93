#include "support/stemmer.h"

#include <cstdint>
#include <cstring>
#include <string_view>

#include "support/text.h"

namespace torvane {

namespace {

// Words are lower-case letters by the time they are looked at.
constexpr bool is_vowel(char c) {
  constexpr std::uint32_t kVowels = 1u << ('a' - 'a') | 1u << ('e' - 'a') | 1u << ('i' - 'a') |
                                    1u << ('o' - 'a') | 1u << ('u' - 'a');
  return c >= 'a' && (kVowels >> (c - 'a') & 1);
}
constexpr bool is_one_of(char c, std::string_view set) {
  return c != '\0' && set.find(c) != std::string_view::npos;
}

// A word under the knife. `end` is the offset of its last letter, -1 before the first; a test of
// the root moves it, and where the test fails it stays moved, so that the later steps compare their
// suffixes there.
struct Stem {
  char* text;
  std::ptrdiff_t end;
  std::ptrdiff_t length;
};

// The number of vowel-consonant sequences.
int word_size(const char* word) {
  int size = 0;
  int state = 0;
  for (; *word; ++word) {
    if (state == 1) {
      if (!is_vowel(*word)) {
        state = 2;
        ++size;
      }
    } else if (state == 0) {
      state = is_vowel(*word) ? 1 : 2;
    } else if (is_vowel(*word) || *word == 'y') {
      state = 1;
    }
  }
  return size;
}

bool contains_vowel(Stem& word) {
  const char* root = word.text;
  if (*root == '\0') return false;
  return is_vowel(*root) || std::strpbrk(root + 1, "aeiouy") != nullptr;
}

// A letter that is absent, before the front of the word, is no vowel.
// Kept: stem-end-stays-moved
bool ends_with_cvc(Stem& word) {
  auto length = static_cast<std::ptrdiff_t>(std::strlen(word.text));
  if (length < 2) return false;
  auto letter = [&](std::ptrdiff_t i) { return i < 0 ? '\0' : word.text[i]; };
  word.end = length - 2;
  if (is_one_of(letter(length - 1), "aeiouwxy")) return false;
  word.end = length - 3;
  return is_one_of(letter(length - 2), "aeiouy") && !is_vowel(letter(length - 3));
}

bool add_an_e(Stem& word) {
  return word_size(word.text) == 1 && ends_with_cvc(word);
}
bool remove_an_e(Stem& word) {
  return word_size(word.text) == 1 && !ends_with_cvc(word);
}

struct Rule {
  int id;
  std::string_view old_end;
  std::string_view new_end;
  int min_root_size;
  bool (*condition)(Stem&) = nullptr;
};

constexpr Rule kStep1a[] = {
    {101, "sses", "ss", -1}, {102, "ies", "i", -1}, {103, "ss", "ss", -1}, {104, "s", "", -1}, {}};

constexpr Rule kStep1b[] = {{105, "eed", "ee", 0},
                            {106, "ed", "", -1, contains_vowel},
                            {107, "ing", "", -1, contains_vowel},
                            {}};

constexpr Rule kStep1b1[] = {{108, "at", "ate", -1},       {109, "bl", "ble", -1},
                             {110, "iz", "ize", -1},       {111, "bb", "b", -1},
                             {112, "dd", "d", -1},         {113, "ff", "f", -1},
                             {114, "gg", "g", -1},         {115, "mm", "m", -1},
                             {116, "nn", "n", -1},         {117, "pp", "p", -1},
                             {118, "rr", "r", -1},         {119, "tt", "t", -1},
                             {120, "ww", "w", -1},         {121, "xx", "x", -1},
                             {122, "", "e", -1, add_an_e}, {}};

constexpr Rule kStep1c[] = {{123, "y", "i", -1, contains_vowel}, {}};

// Kept: stem-fulnes
constexpr Rule kStep2[] = {
    {203, "ational", "ate", 0}, {204, "tional", "tion", 0}, {205, "enci", "ence", 0},
    {206, "anci", "ance", 0},   {207, "izer", "ize", 0},    {208, "abli", "able", 0},
    {209, "alli", "al", 0},     {210, "entli", "ent", 0},   {211, "eli", "e", 0},
    {213, "ousli", "ous", 0},   {214, "ization", "ize", 0}, {215, "ation", "ate", 0},
    {216, "ator", "ate", 0},    {217, "alism", "al", 0},    {218, "iveness", "ive", 0},
    {219, "fulnes", "ful", 0},  {220, "ousness", "ous", 0}, {221, "aliti", "al", 0},
    {222, "iviti", "ive", 0},   {223, "biliti", "ble", 0},  {}};

constexpr Rule kStep3[] = {{301, "icate", "ic", 0}, {302, "ative", "", 0},
                           {303, "alize", "al", 0}, {304, "iciti", "ic", 0},
                           {305, "ical", "ic", 0},  {308, "ful", "", 0},
                           {309, "ness", "", 0},    {}};

// Kept: stem-sion-tion
constexpr Rule kStep4[] = {{401, "al", "", 1},    {402, "ance", "", 1}, {403, "ence", "", 1},
                           {405, "er", "", 1},    {406, "ic", "", 1},   {407, "able", "", 1},
                           {408, "ible", "", 1},  {409, "ant", "", 1},  {410, "ement", "", 1},
                           {411, "ment", "", 1},  {412, "ent", "", 1},  {423, "sion", "s", 1},
                           {424, "tion", "t", 1}, {415, "ou", "", 1},   {416, "ism", "", 1},
                           {417, "ate", "", 1},   {418, "iti", "", 1},  {419, "ous", "", 1},
                           {420, "ive", "", 1},   {421, "ize", "", 1},  {}};

constexpr Rule kStep5a[] = {{501, "e", "", 1}, {502, "e", "", -1, remove_an_e}, {}};
constexpr Rule kStep5b[] = {{503, "ll", "l", 1}, {}};

// Applies the first rule of a table whose suffix stands at the end and whose root passes; its id,
// or 0.
int replace_end(Stem& word, const Rule* rules) {
  // A suffix has to reach to where the word ends, so none is found at an end that was moved.
  if (word.end != word.length - 1) return 0;
  const char last = word.length > 0 ? word.text[word.end] : '\0';
  for (const Rule* rule = rules; rule->id; ++rule) {
    const std::size_t size = rule->old_end.size();
    const std::ptrdiff_t ending = word.length - static_cast<std::ptrdiff_t>(size);
    if (size > 0 && (rule->old_end.back() != last || ending < 0 ||
                     std::memcmp(word.text + ending, rule->old_end.data(), size) != 0))
      continue;
    char cut = word.text[ending];
    word.text[ending] = '\0';
    if (word_size(word.text) > rule->min_root_size && (!rule->condition || rule->condition(word))) {
      rule->new_end.copy(word.text + ending, rule->new_end.size());
      word.length = ending + static_cast<std::ptrdiff_t>(rule->new_end.size());
      word.end = word.length - 1;
      word.text[word.length] = '\0';
      return rule->id;
    }
    word.text[ending] = cut;
    if (word.end != word.length - 1) return 0;
  }
  return 0;
}

}  // namespace

int stem(char* word) {
  char* p = word;
  for (; *p; ++p) {
    if (!is_alpha(*p)) return 0;
    *p = lower(*p);
  }
  Stem w{word, p - word - 1, p - word};
  replace_end(w, kStep1a);
  int rule = replace_end(w, kStep1b);
  if (rule == 106 || rule == 107) replace_end(w, kStep1b1);
  for (const Rule* step : {kStep1c, kStep2, kStep3, kStep4, kStep5a, kStep5b}) replace_end(w, step);
  return 1;
}

}  // namespace torvane
