#include "text/plain_text.h"

#include <algorithm>

#include "text/utf8.h"

namespace torvane {
namespace {

struct Sign {
  std::string_view original;
  std::string_view plain;  ///< blanks around it part it from the words beside it
};

constexpr Sign kSigns[] = {
    {"\u2018", "'"},  {"\u2019", "'"},  {"\u201a", "'"},   {"\u201b", "'"},   {"\u2032", "'"},
    {"\u201c", "\""}, {"\u201d", "\""}, {"\u201e", "\""},  {"\u201f", "\""},  {"\u2033", "\""},
    {"\u00ab", "\""}, {"\u00bb", "\""}, {"\u2010", "-"},   {"\u2011", "-"},   {"\u2012", "-"},
    {"\u2013", "-"},  {"\u2212", "-"},  {"\u2014", " - "}, {"\u2015", " - "}, {"\u2026", " ... "},
    {"\u00a0", " "},  {"\u1680", " "},  {"\u2000", " "},   {"\u2001", " "},   {"\u2002", " "},
    {"\u2003", " "},  {"\u2004", " "},  {"\u2005", " "},   {"\u2006", " "},   {"\u2007", " "},
    {"\u2008", " "},  {"\u2009", " "},  {"\u200a", " "},   {"\u2028", " "},   {"\u2029", " "},
    {"\u202f", " "},  {"\u205f", " "},  {"\u3000", " "},   {"\u0085", " "},
};

const Sign* find_sign(std::string_view character) {
  for (const Sign& sign : kSigns)
    if (sign.original == character) return &sign;
  return nullptr;
}

bool is_plain(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return c != '\0' && static_cast<unsigned char>(c) < 0x80; });
}

bool starts_with_blank(std::string_view text) {
  const char c = text.front();
  if (c == ' ' || (c >= '\t' && c <= '\r') || c == '\0') return true;
  const std::size_t length = utf8_length(text);
  const Sign* sign = length > 1 ? find_sign(text.substr(0, length)) : nullptr;
  return sign && sign->plain == " ";
}

}  // namespace

PlainText::PlainText(std::string_view original) : original_(original) {
  if (is_plain(original)) {
    text_ = original;
    return;
  }
  text_.reserve(original.size());
  places_.reserve(original.size());
  for (std::size_t at = 0; at < original.size();) {
    const std::size_t length = std::max<std::size_t>(utf8_length(original.substr(at)), 1);
    const std::string_view character = original.substr(at, length);
    if (const Sign* sign = length > 1 ? find_sign(character) : nullptr) {
      add(sign->plain, at, at + length);
    } else if (character.front() == '\0') {
      add(" ", at, at + 1);
    } else {
      for (std::size_t i = 0; i < length; ++i) add(character.substr(i, 1), at + i, at + i + 1);
    }
    at += length;
  }
}

void PlainText::add(std::string_view plain, std::size_t begin, std::size_t end) {
  text_ += plain;
  places_.insert(places_.end(), plain.size(),
                 {static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(end)});
}

void PlainText::restore(Sentence& sentence) const {
  if (places_.empty()) return;
  std::size_t done = 0;
  for (SentenceWord& word : sentence.words) {
    if (word.begin >= word.end || word.end > places_.size()) continue;
    // Of one sign that the grammar took for several words, the first one has it.
    const std::size_t begin = std::max<std::size_t>(places_[word.begin].begin, done);
    const std::size_t end = std::max<std::size_t>(places_[word.end - 1].end, begin);
    done = end;
    word.begin = begin;
    word.end = end;
    if (begin < end) word.form = original_.substr(begin, end - begin);
    word.space_after = end >= original_.size() || starts_with_blank(original_.substr(end));
  }
  sentence.text = original_;
  name_ranges(sentence);
}

}  // namespace torvane
