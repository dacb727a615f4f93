#include "service/api.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "formats/format.h"
#include "formats/svg.h"
#include "formats/why_format.h"
#include "sources/explained.h"
#include "sources/given_text.h"
#include "sources/sources.h"
#include "support/text.h"

namespace torvane {
namespace {

using Json = nlohmann::json;
using Clock = EnginePool::Clock;

constexpr int kMostTrees = 50;

std::string text_of(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// The members of a request, each of the kind that it must be of.
class Members {
 public:
  explicit Members(std::string_view body)
      : json_(Json::parse(body.begin(), body.end(), nullptr, false)) {
    if (!json_.is_object()) fault = "the body is no JSON object";
  }

  std::string text(const char* name, std::string otherwise = {}) {
    const Json* member = find(name);
    if (member && !member->is_string()) fault = std::string(name) + " is no string";
    return member && member->is_string() ? member->get<std::string>() : std::move(otherwise);
  }
  int number(const char* name, int least, int most, int otherwise) {
    const Json* member = find(name);
    if (!member) return otherwise;
    const bool fits = member->is_number_integer() && *member >= least && *member <= most;
    if (!fits)
      fault = std::string(name) + " is no number from " + std::to_string(least) + " to " +
              std::to_string(most);
    return fits ? member->get<int>() : otherwise;
  }
  bool truth(const char* name) {
    const Json* member = find(name);
    if (member && !member->is_boolean()) fault = std::string(name) + " is neither true nor false";
    return member && member->is_boolean() && member->get<bool>();
  }
  bool has(const char* name) { return find(name) != nullptr; }
  /// To be called behind all others: what nobody asked for is wrong.
  const std::string& check() {
    if (json_.is_object())
      for (const auto& [name, value] : json_.items())
        if (fault.empty() && std::find(known_.begin(), known_.end(), name) == known_.end())
          fault = "there is no member " + name;
    return fault;
  }

  std::string fault;

 private:
  const Json* find(const char* name) {
    known_.emplace_back(name);
    if (!json_.is_object()) return nullptr;
    const auto member = json_.find(name);
    return member == json_.end() ? nullptr : &*member;
  }

  Json json_;
  std::vector<std::string> known_;
};

std::size_t count_words(std::string_view text) {
  std::size_t words = 0;
  bool inside = false;
  for (char c : text) {
    if (!is_space(c) && !inside) ++words;
    inside = !is_space(c);
  }
  return words;
}

// A style is a part of a file's name.
bool is_style(const std::string& style) {
  return std::all_of(style.begin(), style.end(), [](char c) { return is_alnum(c) || c == '-'; });
}

/// A sentence as `write_json` writes it, with its drawing as a further member if that is wanted.
std::string sentence_json(const Sentence& sentence, bool with_drawing, const Page& page) {
  std::string text;
  write_json(text, sentence);
  text.pop_back();
  if (!with_drawing) return text;
  std::string drawing;
  add_svg(drawing, sentence, page, true);
  text.pop_back();
  return text + ",\"svg\":" + text_of(drawing) + '}';
}

}  // namespace

struct Api::ParseRequest {
  std::string text, from, to, style;
  int best = 0;
  bool drawing = false;
  Page page;
};

Answer refusal(int status, std::string_view error) {
  return {status, text_of({{"error", error}}) + '\n'};
}

Api::Api(const GrammarChoice& choice, std::size_t threads, const RequestLimits& limits)
    : choice_(choice), threads_(threads), limits_(limits) {}

std::string Api::fault() {
  std::string fault;
  pool(choice_.style, fault);
  return fault;
}

EnginePool* Api::pool(const std::string& style, std::string& fault) {
  GrammarChoice choice = choice_;
  choice.style = style;
  fault = find_grammar(choice).fault;
  if (!fault.empty()) return nullptr;
  EnginePool* engines;
  {
    const std::lock_guard lock(mutex_);
    std::unique_ptr<EnginePool>& place = pools_[style];
    if (!place) place = std::make_unique<EnginePool>(choice, threads_);
    engines = place.get();
  }
  fault = engines->fault();
  return fault.empty() ? engines : nullptr;
}

Answer Api::parse(std::string_view body) {
  Members members(body);
  ParseRequest request;
  request.text = members.text("text");
  request.from = members.text("from", "text");
  request.to = members.text("to");
  request.style = members.text("style", choice_.style);
  request.best = members.number("best", 1, kMostTrees, 0);
  request.drawing = members.truth("drawing");
  request.page.width = static_cast<std::size_t>(members.number("width", 1, 1000, 100));
  if (members.fault.empty() && !members.has("text")) members.fault = "text is missing";
  if (!members.check().empty()) return refusal(400, members.fault);
  const std::vector<std::string> kinds = {"text", "lines", "tokens"};
  if (std::find(kinds.begin(), kinds.end(), request.from) == kinds.end())
    return refusal(400, "from is none of text, lines, tokens");
  if (!request.to.empty() && !find_format(request.to))
    return refusal(400, "there is no format " + request.to);
  if (!is_style(request.style)) return refusal(400, "there is no style " + request.style);
  if (count_words(request.text) > limits_.words)
    return refusal(422, "the text has more than " + std::to_string(limits_.words) + " words");
  return parse_tasks(request);
}

Answer Api::too_late() const {
  return refusal(504, "it took longer than " + std::to_string(limits_.seconds) + " seconds");
}

Answer Api::parse_tasks(const ParseRequest& request) {
  const auto latest = Clock::now() + std::chrono::seconds(limits_.seconds);
  std::string fault;
  EnginePool* engines = pool(request.style, fault);
  if (!engines) return refusal(400, fault);
  std::vector<Task> tasks;
  const auto cut = [&](Engine& engine) {
    GivenText given(request.text);
    const std::unique_ptr<Source> source = make_source(request.from, given, engine);
    for (Task task; source->next(task);) {
      if (task.id.empty()) task.id = std::to_string(tasks.size() + 1);
      tasks.push_back(std::move(task));
    }
  };
  if (!engines->run(cut, latest)) return too_late();

  const Format* format = request.to.empty() ? nullptr : find_format(request.to);
  std::string out;
  if (format) format->begin(out);
  const auto write = [&](const Sentence& sentence) {
    if (format) return format->write(out, sentence, request.page);
    if (!out.empty()) out += ',';
    out += sentence_json(sentence, request.drawing, request.page);
  };
  for (const Task& task : tasks) {
    const auto trees = [&](Engine& engine) {
      Sentence sentence = parse_task(engine, task);
      for (sentence.best = std::min(request.best, 1);; ++sentence.best) {
        write(sentence);
        if (sentence.best >= request.best) return;
        std::optional<Sentence> next = next_tree(engine, task);
        if (!next) return;
        next->best = sentence.best;
        sentence = std::move(*next);
      }
    };
    if (!engines->run(trees, latest)) return too_late();
  }
  if (!format) return {200, "{\"sentences\":[" + out + "]}\n"};
  format->end(out);
  return {200, text_of({{"output", out}}) + '\n'};
}

Answer Api::why(std::string_view body) {
  const auto latest = Clock::now() + std::chrono::seconds(limits_.seconds);
  Members members(body);
  const std::string text = members.text("text");
  const std::string style = members.text("style", choice_.style);
  const int most = static_cast<int>(choice_.max_words);
  const int modifier = members.number("modifier", 1, most, 0);
  const int head = members.number("head", 0, most, 0);
  if (members.fault.empty() && text.empty()) members.fault = "text is missing";
  if (members.fault.empty() && members.has("head") && modifier == 0)
    members.fault = "modifier is missing";
  if (!members.check().empty()) return refusal(400, members.fault);
  if (!is_style(style)) return refusal(400, "there is no style " + style);
  if (count_words(text) > choice_.max_words)
    return refusal(422, "the sentence has more than " + std::to_string(most) + " words");
  std::string fault, out;
  EnginePool* engines = pool(style, fault);
  if (!engines) return refusal(400, fault);
  const auto explain = [&](Engine& engine) {
    const auto write = [&](const auto& reasons) {
      fault = reasons.fault;
      write_why_json(out, reasons);
    };
    modifier > 0 ? write(why_in_text(engine, text, modifier, head))
                 : write(why_in_text(engine, text));
  };
  if (!engines->run(explain, latest)) return too_late();
  return fault.empty() ? Answer{200, out} : refusal(422, fault);
}

Answer Api::health() const {
  return {200, text_of({{"status", "ok"}, {"grammar", choice_.grammar}}) + '\n'};
}

}  // namespace torvane
