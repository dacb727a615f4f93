#include "why/quotes.h"

#include <sstream>
#include <utility>
#include <vector>

#include "att/att_interpreter_list.h"
#include "lexp/expressions.h"
#include "shell/world.h"
#include "support/text.h"

namespace torvane {
namespace {

std::string value_text(const AttVec& vec, int att) {
  LBitSet only;
  only.set(att);
  std::ostringstream out;
  vec.print(out, &only);
  std::string text = out.str();
  if (text.size() > 1) text = text.substr(1, text.size() - 2);  // without the parentheses
  const std::string name = vec.interpreters->at(att)->name;
  if (text.starts_with("(" + name + " "))
    return text.substr(name.size() + 2, text.size() - name.size() - 3);
  return text;
}

}  // namespace

std::string quoted(const Grammar& grammar, int low, int high) {
  std::string text = "'";
  for (int i = low; i <= high; ++i)
    text.append(i > low ? " " : "").append(or_empty(grammar.word(i)));
  return text + "'";
}

std::string fillers(const GCate& node, int position) {
  std::string text;
  for (const Link* link : node.links_at(position)) {
    text += text.empty() ? "" : ", ";
    text += link->_child ? link->_child->_name : "(nothing)";
    if (link->type()) text.append(" (").append(link->type().c_str()).append(")");
  }
  return text.empty() ? "nothing" : text;
}

std::string link_text(const Link& link) {
  std::string text = link._child ? link._child->_name : "(nothing)";
  if (link.type()) text.append(" as ").append(link.type().c_str());
  return text + " of " + link._parent->_name;
}

WhyReason condition_reason(World& world, const std::string& whose, const Refusal& refusal,
                           const ExpPtr& condition) {
  WhyReason reason;
  reason.kind = WhyKind::condition;
  const FormTexts& texts = expressions(world).form_texts;
  const auto text_of = [&](const LExp& exp) {
    const std::string text = texts.text_of(exp);
    return text.empty() ? "(" + std::string(exp.name()) + " ...)" : text;
  };
  reason.text = whose + " is false: " + text_of(*condition.get());
  const auto& steps = refusal.steps;
  for (const Refusal::Step& step : steps)
    if (reason.place.line == 0) reason.place = place_of(world, step.exp);
  if (reason.place.line == 0) reason.place = place_of(world, condition.get());
  for (std::size_t i = steps.size(); i-- > 0;) {
    const Refusal::Step& step = steps[i];
    const bool is_body = i + 1 < steps.size() && steps[i + 1].is_call;
    const bool says_more = i == 0 || step.is_call || !step.finding.empty();
    if (is_body) {
      std::string& call = reason.details.empty() ? reason.text : reason.details.back();
      call += ", which is " + text_of(*step.exp);
    } else if (says_more && step.exp != condition.get()) {
      reason.details.push_back(text_of(*step.exp));
    }
    if (says_more && !step.finding.empty())
      (reason.details.empty() ? reason.text : reason.details.back()) += ": " + step.finding;
  }
  return reason;
}

WhyPlace place_of(World& world, const void* thing) {
  WhyPlace place;
  const std::string text = world.places.text(world.places.of(thing));
  const std::size_t colon = text.rfind(':');
  if (colon == text.npos) return place;
  place.file = text.substr(0, colon);
  long line = 0;
  if (scan_long(text.c_str() + colon + 1, line)) place.line = static_cast<int>(line);
  return place;
}

std::string clashes(const AttVec& a, const AttVec& b, const AttSet& atts) {
  std::string text;
  if (!a.interpreters || a.interpreters != b.interpreters) return text;
  LBitSetIterator both(a.defined & b.defined);
  for (int att; (att = both.next()) >= 0;) {
    if (!atts.test(att)) continue;
    LBitSet only;
    only.set(att);
    if (a.unifiable(b, &only)) continue;
    text.append(text.empty() ? "" : "; ").append(a.interpreters->at(att)->name).append(": ");
    text.append(value_text(b, att)).append(" against ").append(value_text(a, att));
  }
  return text;
}

}  // namespace torvane
