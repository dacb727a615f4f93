// A chart for tests: words, items put in by hand, and what patterns and expressions make of them.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "lex/antecedent_list.h"
#include "lex/item_forms.h"
#include "lex/lexical_rules.h"
#include "lex/llrule.h"
#include "lex/patterns.h"
#include "lex/rule_actions.h"
#include "lex/sentence_boundary.h"
#include "lexp/form.h"
#include "shell/exec.h"

namespace torvane {

inline void register_rule_modules() {
  register_core_forms();
  register_constant_forms();
  register_string_forms();
  register_integer_forms();
  register_patterns();
  register_rule_actions();
  register_item_forms();
  register_antecedent_forms();
  register_lexical_rule_commands();
  register_llrule_commands();
  register_sentence_boundary_forms();
  register_sentence_separator();
}

/// What the body writes on the error stream.
template <class Body>
std::string errors_of(Body body) {
  testing::internal::CaptureStderr();
  body();
  return testing::internal::GetCapturedStderr();
}

inline std::unique_ptr<LExp> compile(const char* text) {
  return LExp::get_exp_from_text(text);
}

/// A pattern from its text: a list, or a word.
inline std::unique_ptr<LPattern> pattern_of(const std::string& text) {
  IRSlistReader reader;
  return make_pattern(reader.start_string((text + " ").c_str()));
}

class Chart {
 public:
  explicit Chart(const std::string& sentence) {
    register_rule_modules();
    std::istringstream in(sentence);
    for (std::string word; in >> word;) {
      analyzer.add_gap(" ");
      analyzer.add_word(word.c_str());
    }
    analyzer.ends_at.resize(static_cast<std::size_t>(analyzer.word_count()) + 1);
    analyzer.starts_at.resize(static_cast<std::size_t>(analyzer.word_count()) + 1);
  }

  LexItem* make(int low, int high, const char* root) {
    StrMeaning meaning("sense");
    meaning.text = root;
    meaning.has_text = true;
    return analyzer.make_item(root, &meaning, low, high, Slist<const char*>());
  }
  LexItem* add(int low, int high, const char* root) {
    return analyzer.add_item(make(low, high, root), 1);
  }
  Ref<Match> match(int low, int high, LexItem* item = nullptr) {
    return Match::make(&analyzer, low, high, item);
  }

  /// The matches of a pattern, as `print` writes them.
  std::string matches(const std::string& pattern) {
    std::unique_ptr<LPattern> compiled = pattern_of(pattern);
    MatchList list;
    MatchRun run(analyzer);
    if (compiled) compiled->match(run, list);
    return text_of(list);
  }
  /// The same at one position.
  std::string matches_at(Anchor anchor, int pos, const std::string& pattern) {
    MatchList list;
    MatchRun run(analyzer);
    pattern_of(pattern)->find(run, anchor, pos, list);
    return text_of(list);
  }

  Value eval(const char* exp, const Ref<Match>& on) {
    std::unique_ptr<LExp> compiled = compile(exp);
    return compiled ? compiled->eval(Value::of(on.get()), type_id_of<Match>()) : Value();
  }
  Value eval(const char* exp, LexItem* on) {
    std::unique_ptr<LExp> compiled = compile(exp);
    return compiled ? compiled->eval(Value::of(on), type_id_of<LexItem>()) : Value();
  }

  /// Roots of the chart's items, in its order: "1-1 a, 2-3 b".
  std::string items() const {
    std::string text;
    analyzer.for_each_item([&](const LexItem* item) {
      if (!text.empty()) text += ", ";
      text +=
          std::to_string(item->low) + "-" + std::to_string(item->high) + " " + or_empty(item->root);
    });
    return text;
  }

  Lexicon lexicon{101};
  LexAnalyzer analyzer{&lexicon, 20};

 private:
  static std::string text_of(const MatchList& list) {
    std::ostringstream out;
    for (const Ref<Match>& m : list) {
      if (out.tellp() > 0) out << ' ';
      m->print(out);
    }
    return out.str();
  }
};

}  // namespace torvane
