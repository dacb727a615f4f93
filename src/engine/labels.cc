#include "engine/labels.h"

#include <algorithm>

#include "lexp/form.h"
#include "shell/world.h"
#include "support/text.h"

namespace torvane {
namespace {

ExpPtr function(World& world, const char* name) {
  if (!find_lexp_proto(world, name)) return {};
  return LExp::get_exp_from_text(world, ("(" + std::string(name) + ")").c_str());
}

std::string text_of(Value value) {
  return or_empty(value.text());
}

bool is_punctuation(std::string_view word) {
  return !word.empty() && std::all_of(word.begin(), word.end(), [](char c) {
    return !is_alnum(c) && !is_space(c) && static_cast<unsigned char>(c) < 128;
  });
}

/// Whether the one is the other with blanks put in.
bool differ_by_blanks(std::string_view parted, std::string_view token) {
  std::size_t at = 0;
  for (char c : parted) {
    if (is_space(c)) continue;
    if (at == token.size() || token[at] != c) return false;
    ++at;
  }
  return at == token.size();
}

}  // namespace

Labels::Labels(World& world)
    : category_(function(world, "universal-category")),
      relation_(function(world, "universal-relation")),
      features_(function(world, "universal-features")),
      lemma_(function(world, "universal-lemma")),
      clitic_(function(world, "clitic")),
      word_joints_(function(world, "word-joints")),
      one_word_(function(world, "one-word")),
      outside_category_(function(world, "outside-category")),
      outside_relation_(function(world, "outside-relation")),
      boundary_(function(world, "sentence-boundary")),
      joint_(function(world, "sentence-joint")) {}

std::string Labels::label(const ExpPtr& function, DepTree& node) {
  if (!function) return {};
  TextScope texts;
  return text_of(function.eval(Value::of(&node), type_id_of<RSTree>()));
}

std::string Labels::outside_category(std::string_view word) const {
  TextScope texts;
  std::string label =
      text_of(outside_category_.eval(Value::made_text(word), type_id_of<const char*>()));
  if (!label.empty()) return label;
  return is_punctuation(word) ? "PUNCT" : "X";
}

std::string Labels::outside_relation(std::string_view word) const {
  TextScope texts;
  std::string label =
      text_of(outside_relation_.eval(Value::made_text(word), type_id_of<const char*>()));
  if (!label.empty()) return label;
  return is_punctuation(word) ? "punct" : "dep";
}

std::string Labels::clitic(std::string_view token) const {
  if (!clitic_) return {};
  TextScope texts;
  std::string small(token);
  std::transform(small.begin(), small.end(), small.begin(), lower);
  return text_of(clitic_.eval(Value::made_text(small), type_id_of<const char*>()));
}

std::string Labels::with_joints(std::string_view text) const {
  if (!word_joints_) return std::string(text);
  std::string parted;
  parted.reserve(text.size() + text.size() / 8);
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at;
    while (end < text.size() && !is_space(text[end])) ++end;
    if (end > at) {
      TextScope texts;
      const std::string_view token = text.substr(at, end - at);
      const std::string answer =
          text_of(word_joints_.eval(Value::made_text(token), type_id_of<const char*>()));
      parted += differ_by_blanks(answer, token) ? answer : token;
      at = end;
    } else {
      parted += text[at++];
    }
  }
  return parted;
}

bool Labels::is_one_word(std::string_view tokens) const {
  if (!one_word_) return false;
  TextScope texts;
  return one_word_.eval(Value::made_text(tokens), type_id_of<const char*>()).word() != 0;
}

int Labels::boundary(std::string_view token) const {
  TextScope texts;
  return static_cast<int>(
      boundary_.eval(Value::made_text(token), type_id_of<const char*>()).number());
}

bool Labels::joint(std::string_view token) const {
  if (!joint_) return false;
  TextScope texts;
  return static_cast<bool>(joint_.eval(Value::made_text(token), type_id_of<const char*>()));
}

}  // namespace torvane
