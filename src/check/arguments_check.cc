// The number and kind of the arguments of commands and forms.
#include <algorithm>
#include <array>
#include <optional>

#include "check/grammar_sources.h"
#include "engine/all_offers.h"
#include "lexp/lexp.h"
#include "support/text.h"

namespace torvane {
namespace {

/// A command's arguments: each `a` an atom, `n` a number, `l` a list, `.` either; what stands
/// behind
/// `?` may be left out, and `*` allows any number more.
struct Signature {
  std::string_view command, arguments;
};

constexpr Signature kSignatures[] = {
    {"alias", "a.?l"},
    {"block", ".*"},
    {"check-arg", "n"},
    {"check-slash", "a*"},
    {"conj-atts", "ll"},
    {"def-att-list", "al*"},
    {"def-category", "a*"},
    {"def-conj-constraints", "al*"},
    {"def-modifiers", "al*"},
    {"def-rules", "a*"},
    {"def-subcat", "aa*"},
    {"def-subclass", "al*"},
    {"def-tree-rules", "a*"},
    {"defattribute", "aa*"},
    {"defmacro", "al.*"},
    {"defun", "al.*"},
    {"dep-type", "a"},
    {"dep-weight", "n"},
    {"full-pitem-cond", "l"},
    {"head-cond", "l"},
    {"insert-lex-rules", "aa*"},
    {"lex", "a*"},
    {"load-lex", "aa*"},
    {"make-avmeaning-proto", "aa"},
    {"make-lex-analyzer", "a*"},
    {"make-lexicon", "an*"},
    {"make-str-meaning-proto", "a"},
    {"max-dist", "n"},
    {"merged-cond", "l"},
    {"minimal-modifier-cond", "l"},
    {"modifiee-cond", "l"},
    {"modifier-cond", "l"},
    {"percolate", ".*"},
    {"set-deps-modifier", "aa"},
    {"set-reldb", "aa"},
    {"subcat-atts", ".*"},
    {"visible-atts", ".*"},
};

/// Commands whose arguments from the nth on are expressions.
struct Expressions {
  std::string_view command;
  std::size_t from;
};
constexpr Expressions kExpressionArguments[] = {
    {"full-pitem-cond", 1}, {"head-cond", 1},     {"merged-cond", 1}, {"minimal-modifier-cond", 1},
    {"modifiee-cond", 1},   {"modifier-cond", 1}, {"defun", 3},       {"eval", 1},
};

/// Forms all of whose lists are expressions, though no usage line says so.
const KnownNames::Names kPlainForms{"and",  "comp",  "if",   "list",  "not", "or",
                                    "prog", "prog1", "when", "while", "xor", "pitem-attvec"};

struct Count {
  std::size_t least = 0;
  std::optional<std::size_t> most;
  bool has_lists = false;  ///< among the arguments are lists that are no expressions
};

/// Reads a usage line: `(NAME a [b] (c ...) ...)`.
Count count_of(std::string_view usage) {
  Count count;
  std::size_t most = 0, brackets = 0, lists = 0;
  bool any = false, in_word = false, is_name = true;
  for (const char c : usage.substr(std::min(usage.size(), usage.find('(') + 1))) {
    if (c == ')' && lists == 0) break;
    const bool starts = !in_word && lists == 0 && !is_space(c) && c != '[' && c != ']' && c != '.';
    any = any || (c == '.' && lists == 0);
    if (starts && !is_name) {
      ++most;
      count.least += brackets == 0 ? 1 : 0;
    }
    if (starts) is_name = false;
    brackets += c == '[' ? 1 : c == ']' ? -1 : 0;
    lists += c == '(' ? 1 : c == ')' ? -1 : 0;
    count.has_lists = count.has_lists || c == '(';
    in_word = !is_space(c) && c != '[' && c != ']' && (lists > 0 || c != ')');
  }
  if (any)
    count.least = 0;
  else
    count.most = most;
  return count;
}

class Arguments {
 public:
  explicit Arguments(GrammarSources& sources) : sources_(sources) {
    sources.each_command([this](const SourceFile&, const SourceForm& form) {
      if (GrammarSources::same_name(form.head(), "defmacro")) macros_.emplace_back(form.text(1));
    });
  }

  void look_at(const SourceFile& file, const SourceForm& form) {
    file_ = &file;
    each_list(form, [this](const SourceForm& list) { command(list); });
  }

 private:
  void command(const SourceForm& form) {
    for (const Signature& known : kSignatures)
      if (GrammarSources::same_name(form.head(), known.command)) signature(form, known.arguments);
    for (const Expressions& known : kExpressionArguments)
      if (GrammarSources::same_name(form.head(), known.command))
        for (std::size_t i = known.from; i < form.items.size(); ++i) expression(form.items[i]);
    if (GrammarSources::same_name(form.head(), "roots")) roots(form);
    if (GrammarSources::same_name(form.head(), "def-tree-rules"))
      for (const SourceForm& rule : form.items)
        for (const SourceForm& part : rule.items) expression(part);
    if (knows({"def-rules", "insert-lex-rules"}, form.head()))
      for (const SourceForm& rule : form.items) action(rule);
  }

  /// What stands behind the pattern of a rule.
  void action(const SourceForm& rule) {
    bool has_pattern = false;
    for (std::size_t i = 1; i < rule.items.size(); ++i) {
      const SourceForm& part = rule.items[i];
      if (part.head().starts_with(':')) continue;
      if (has_pattern) expression(part);
      has_pattern = true;
    }
  }

  void roots(const SourceForm& form) {
    for (const SourceForm& root : form.items)
      for (std::size_t i = 1; i < root.items.size(); ++i) {
        if (i > 2) error(root.items[i], "a root has a condition and a penalty, and no more");
        expression(root.items[i]);
      }
  }

  void signature(const SourceForm& form, std::string_view wanted) {
    const std::size_t given = form.items.size() - 1;
    const std::size_t least = std::min(wanted.find_first_of("?*"), wanted.size());
    const std::size_t most = static_cast<std::size_t>(
        std::count_if(wanted.begin(), wanted.end(), [](char c) { return c != '?' && c != '*'; }));
    const bool any = wanted.ends_with('*');
    if (given < least) return number(form, least, any || most > least ? "at least " : "", given);
    if (!any && given > most) return number(form, most, least < most ? "at most " : "", given);
    for (std::size_t i = 1, at = 0; i <= given && at < wanted.size(); ++i, ++at) {
      if (wanted[at] == '?') ++at;
      if (at >= wanted.size() || wanted[at] == '*') break;
      kind(form, form.items[i], wanted[at]);
    }
  }

  void number(const SourceForm& form, std::size_t wanted, std::string_view how, std::size_t given) {
    error(form, std::string(form.head()) + " takes " + std::string(how) + std::to_string(wanted) +
                    (wanted == 1 ? " argument, and has " : " arguments, and has ") +
                    std::to_string(given));
  }

  void kind(const SourceForm& form, const SourceForm& item, char wanted) {
    float number = 0;
    if (wanted == 'l' && !item.is_list)
      error(item,
            std::string(form.head()) + ": '" + item.atom + "' stands where a list is expected");
    else if ((wanted == 'a' || wanted == 'n') && item.is_list)
      error(item, std::string(form.head()) + ": a list stands where " +
                      (wanted == 'a' ? "a name" : "a number") + " is expected");
    else if (wanted == 'n' && !scan_float(item.atom.c_str(), number))
      error(item, std::string(form.head()) + ": '" + item.atom + "' is no number, and reads as 0");
  }

  void expression(const SourceForm& form) {
    const std::string name(form.head());
    const LExp* prototype = name.empty() ? nullptr : find_lexp_proto(sources_.world, name.c_str());
    if (!prototype || knows(macros_, name)) return;
    bool goes_on = knows(kPlainForms, name);
    if (const char* usage = usage_of(name)) {
      Count count = count_of(usage);
      const bool adapts = dynamic_cast<const LAdaptor*>(prototype) != nullptr;
      if (name == "str") count.least = 0;  // no text at all, which is not the empty one
      // Usage lines may leave out what an adaptor passes its result on to.
      if (adapts && count.most == count.least) ++*count.most;
      // A name or a list, as it may be.
      if (count.has_lists) count = {std::min<std::size_t>(count.least, 1), {}, true};
      const std::size_t given = form.items.size() - 1;
      if (given < count.least)
        number(form, count.least, count.most == count.least ? "" : "at least ", given);
      else if (count.most && given > *count.most)
        number(form, *count.most, count.most == count.least ? "" : "at most ", given);
      goes_on = goes_on || !count.has_lists;
    }
    if (!goes_on) return;
    for (std::size_t i = 1; i < form.items.size(); ++i) expression(form.items[i]);
  }

  static const char* usage_of(std::string_view name) {
    for (const Offer* offer : all_offers())
      for (const Prototype& row : offer->prototypes)
        if (std::string_view(row.family) == kExpressions &&
            GrammarSources::same_name(row.name, name))
          return row.usage;
    return nullptr;
  }

  void error(const SourceForm& form, std::string text) {
    sources_.error(*file_, form.line, std::move(text));
  }

  GrammarSources& sources_;
  KnownNames::Names macros_;
  const SourceFile* file_ = nullptr;
};

}  // namespace

void check_arguments(GrammarSources& sources) {
  Arguments arguments(sources);
  sources.each_command([&](const SourceFile& file, const SourceForm& form) {
    if (!GrammarSources::same_name(form.head(), "defmacro")) arguments.look_at(file, form);
  });
}

}  // namespace torvane
