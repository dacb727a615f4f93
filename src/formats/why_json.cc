// Explanations as JSON.
#include "formats/json_string.h"
#include "formats/layout.h"
#include "formats/why_format.h"

namespace torvane {
namespace {

/// An object or list under way: puts the commas.
class Json {
 public:
  explicit Json(std::string& out, char open = '{') : out_(out), close_(open == '{' ? '}' : ']') {
    out_ += open;
  }
  ~Json() { out_ += close_; }
  Json(const Json&) = delete;
  Json& operator=(const Json&) = delete;

  std::string& item() {
    if (!first_) out_ += ',';
    first_ = false;
    return out_;
  }
  std::string& key(const char* name) {
    add_json_string(item(), name);
    return out_ += ':';
  }
  void text(const char* name, const std::string& text) {
    if (!text.empty()) add_json_string(key(name), text);
  }
  void number(const char* name, int number) { key(name) += std::to_string(number); }
  void cost(const char* name, float cost) { key(name) += cost_text(cost); }
  void truth(const char* name, bool truth) { key(name) += truth ? "true" : "false"; }

 private:
  std::string& out_;
  char close_;
  bool first_ = true;
};

template <class All, class Write>
void add_list(Json& json, const char* name, const All& all, Write write) {
  std::string& out = json.key(name);
  Json list(out, '[');
  for (const auto& one : all) write(list.item(), one);
}

void add_place(Json& json, const WhyPlace& place) {
  if (place.line == 0) return;
  json.text("file", place.file);
  json.number("line", place.line);
  json.text("in", place.form);
}

void write_reason(std::string& out, const WhyReason& reason) {
  Json json(out);
  json.text("kind", name_of(reason.kind));
  json.text("text", reason.text);
  if (!reason.details.empty())
    add_list(json, "details", reason.details,
             [](std::string& to, const std::string& detail) { add_json_string(to, detail); });
  add_place(json, reason.place);
}

void write_link(std::string& out, const WhyLink& link) {
  Json json(out);
  json.text("relation", link.relation);
  json.text("child", link.child);
  json.text("parent", link.parent);
  json.truth("before", link.before);
  json.number("position", link.position);
  add_place(json, link.place);
  write_reason(json.key("reason"), link.reason);
}

void write_reading(std::string& out, const WhyReading& reading) {
  Json json(out);
  json.number("first", reading.first);
  json.number("last", reading.last);
  json.text("root", reading.root);
  json.text("category", reading.category);
  json.text("attributes", reading.attributes);
  if (!reading.lost) return;
  json.truth("lost", true);
  json.text("rule", reading.lost_by);
  add_place(json, reading.place);
}

void write_costs(std::string& out, const WhyCosts& costs) {
  Json json(out);
  json.cost("total", costs.total);
  add_list(json, "rows", costs.rows, [](std::string& to, const WhyCost& row) {
    Json one(to);
    one.number("word", row.word);
    one.number("head", row.head);
    one.text("relation", row.relation);
    one.cost("cost", row.cost);
  });
}

void add_words(Json& json, const Sentence& sentence) {
  json.text("text", sentence.text);
  add_list(json, "words", sentence.words,
           [](std::string& to, const SentenceWord& word) { add_json_string(to, word.form); });
}

}  // namespace

void write_why_json(std::string& out, const WhyPair& why) {
  {
    Json json(out);
    add_words(json, why.sentence);
    json.number("modifier", why.modifier);
    json.number("head", why.head);
    json.text("fault", why.fault);
    if (why.fault.empty()) {
      json.number("shown", why.shown);
      json.number("own", why.own);
      write_reason(json.key("answer"), why.answer);
      if (why.dearer) json.cost("dearer", *why.dearer);
      add_list(json, "modifier-readings", why.modifier_readings, write_reading);
      add_list(json, "head-readings", why.head_readings, write_reading);
      add_list(json, "links", why.links, write_link);
      write_costs(json.key("chosen"), why.chosen);
      if (why.dearer) write_costs(json.key("wanted"), why.wanted);
    }
  }
  out += '\n';
}

void write_why_json(std::string& out, const WhyTree& why) {
  {
    Json json(out);
    add_words(json, why.sentence);
    json.text("fault", why.fault);
    if (why.fault.empty()) {
      add_list(json, "heads", why.words, [](std::string& to, const WhyWord& word) {
        Json one(to);
        one.number("head", word.head);
        one.text("relation", word.relation);
        one.cost("cost", word.cost);
        if (!word.dearer) return;
        one.cost("dearer", *word.dearer);
        one.number("other-head", word.other_head);
        one.text("other-relation", word.other_relation);
      });
      write_costs(json.key("costs"), why.costs);
    }
  }
  out += '\n';
}

}  // namespace torvane
