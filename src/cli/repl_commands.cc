// The commands of the prompt.
#include <algorithm>
#include <fstream>
#include <iostream>
#include <string>

#include "cli/repl_session.h"
#include "formats/layout.h"
#include "formats/why_format.h"
#include "sources/explained.h"
#include "support/text.h"

namespace torvane {
namespace {

using Words = std::vector<std::string>;

bool has_sentence(const ReplSession& session) {
  if (session.text.empty()) std::cout << "no sentence was parsed yet\n";
  return !session.text.empty();
}

void help(ReplSession&, const Words&) {
  std::cout << "A line is a sentence and is drawn; (form) is run; and\n";
  for (const ReplCommand& command : repl_commands()) {
    std::string usage = "  :" + std::string(command.name) + " " + command.usage;
    usage.resize(std::max<std::size_t>(usage.size() + 1, 32), ' ');
    std::cout << usage << command.what << '\n';
  }
}

std::string word_text(const Sentence& sentence, int word) {
  if (word <= 0) return word == 0 ? "the root" : "nothing";
  return std::to_string(word) + " " + sentence.words[static_cast<std::size_t>(word - 1)].form;
}

/// Tells the words that stand elsewhere in the tree than before.
void tell_changes(const Sentence& before, const Sentence& now) {
  const auto same_form = [](const SentenceWord& a, const SentenceWord& b) {
    return a.form == b.form;
  };
  if (!std::equal(before.words.begin(), before.words.end(), now.words.begin(), now.words.end(),
                  same_form)) {
    std::cout << "it is cut into other words now\n";
    return;
  }
  bool any = false;
  for (std::size_t i = 0; i < now.words.size(); ++i) {
    const SentenceWord &was = before.words[i], &is = now.words[i];
    if (was.head == is.head && was.relation == is.relation && was.upos == is.upos) continue;
    any = true;
    std::cout << word_text(now, static_cast<int>(i) + 1) << ": " << was.upos << ' ' << was.relation
              << " of " << word_text(before, was.head) << " -> " << is.upos << ' ' << is.relation
              << " of " << word_text(now, is.head) << '\n';
  }
  if (!any) std::cout << "its tree is the same\n";
  if (before.cost && now.cost && cost_text(*before.cost) != cost_text(*now.cost))
    std::cout << "it costs " << cost_text(*now.cost) << ", and did " << cost_text(*before.cost)
              << '\n';
}

void reload(ReplSession& session, const Words&) {
  if (!session.load() || session.text.empty()) return;
  const Sentence before = session.sentence;
  session.parse(session.text);
  session.show();
  tell_changes(before, session.sentence);
}

void next(ReplSession& session, const Words&) {
  if (!has_sentence(session)) return;
  if (!session.next()) {
    std::cout << "there is no other tree\n";
    return;
  }
  session.show();
  if (session.sentence.cost) std::cout << "it costs " << cost_text(*session.sentence.cost) << '\n';
}

void tell_costs(ReplSession& session, const Words&) {
  if (!has_sentence(session)) return;
  std::string out;
  write_why_text(out, why_in_text(session.engine(), session.text));
  session.forget_trees();
  std::cout << out;
}

void tell_why(ReplSession& session, const Words& words) {
  if (words.empty()) return tell_costs(session, words);
  if (!has_sentence(session)) return;
  if (words.size() != 2) {
    std::cout << ":why takes two words\n";
    return;
  }
  std::string fault;
  const int modifier = word_meant(session.sentence, words[0], false, fault);
  const int head = modifier < 0 ? -1 : word_meant(session.sentence, words[1], true, fault);
  std::string out;
  if (head < 0) {
    out = fault + '\n';
  } else {
    constexpr std::size_t kMostLinks = 6;
    write_why_text(out, why_in_text(session.engine(), session.text, modifier, head), kMostLinks);
    session.forget_trees();
  }
  std::cout << out;
}

void tell_readings(ReplSession& session, const Words& words) {
  if (!has_sentence(session)) return;
  std::string out;
  for (int i = 1; i <= static_cast<int>(session.sentence.words.size()); ++i) {
    const std::string& form = session.sentence.words[static_cast<std::size_t>(i - 1)].form;
    if (!words.empty() && words[0] != form && words[0] != std::to_string(i)) continue;
    write_readings(out, why_in_text(session.engine(), session.text, i, 0));
  }
  session.forget_trees();
  std::cout << out;
}

void tell_items(ReplSession& session, const Words& words) {
  if (!has_sentence(session)) return;
  session.parse(session.text);
  session.run_form(words.empty() ? "(pn)" : "(pn \"^" + words[0] + "$\")");
}

void save(ReplSession& session, const Words& words) {
  if (!has_sentence(session)) return;
  if (words.size() != 1) {
    std::cout << ":save takes the name of a file\n";
    return;
  }
  const std::string& name = words[0];
  const std::size_t dot = name.rfind('.');
  const Format* by_name = dot == name.npos ? nullptr : find_format(name.substr(dot + 1));
  const Format& format = by_name ? *by_name : *session.format;
  std::string out;
  format.begin(out);
  format.write(out, session.sentence, page_of(session.page, name));
  format.end(out);
  std::ofstream file(name, std::ios::binary);
  file << out << std::flush;
  std::cout << (file ? "written as " + std::string(format.name) : "it cannot be written") << '\n';
}

void set(ReplSession& session, const Words& words) {
  if (words.size() != 2) {
    std::cout << "style " << (session.grammar.style.empty() ? "content" : session.grammar.style)
              << ", format " << session.format->name << ", counts "
              << (session.counts.empty() ? "none" : session.counts) << '\n';
    return;
  }
  if (words[0] == "format") {
    if (const Format* format = find_format(words[1])) {
      session.format = format;
      if (!session.text.empty()) session.show();
    } else {
      std::cout << "no format " << words[1] << '\n';
    }
    return;
  }
  std::string ReplSession::*text = words[0] == "counts" ? &ReplSession::counts : nullptr;
  std::string& value = text ? session.*text : session.grammar.style;
  if (!text && words[0] != "style") {
    std::cout << "style, format or counts can be set\n";
    return;
  }
  const std::string before = value;
  value = words[1] == "none" ? "" : words[1];
  if (!session.load()) {
    value = before;
  } else if (!session.text.empty()) {
    session.parse(session.text);
    session.show();
  }
}

void quit(ReplSession& session, const Words&) {
  session.ended = true;
}

constexpr ReplCommand kReplCommands[] = {
    {"next", "", "the next-best tree", next},
    {"why", "[MODIFIER HEAD]", "why the tree is as it is, or a word not under another", tell_why},
    {"cost", "", "what each dependency costs, and the best other head", tell_costs},
    {"readings", "[WORD]", "the readings of the words, also those that were dropped",
     tell_readings},
    {"items", "[CATEGORY]", "the phrases in the chart", tell_items},
    {"reload", "", "build the grammar anew, and tell what changed in the tree", reload},
    {"save", "FILE", "write the sentence, as the end of the name says", save},
    {"set", "style|format|counts VALUE", "another head style, way of drawing, or counts", set},
    {"help", "", "this", help},
    {"quit", "", "end, as Ctrl-D does", quit},
};

}  // namespace

std::span<const ReplCommand> repl_commands() {
  return kReplCommands;
}

}  // namespace torvane
