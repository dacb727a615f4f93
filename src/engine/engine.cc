#include "engine/engine.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <set>
#include <sstream>
#include <tuple>

#include "att/contract.h"
#include "engine/all_offers.h"
#include "engine/file_version.h"
#include "engine/sentence_of.h"
#include "parser/torvane_parser.h"
#include "store/header_file.h"
#include "support/depth.h"
#include "support/lifetime.h"
#include "support/messages.h"
#include "support/text.h"
#include "triples/db/triple_db.h"

namespace torvane {

namespace {

/// The trees of the sentence in hand, also of a parser that prints constituents.
const Deps& result_of(TorvaneParser& parser) {
  if (!parser._deps) parser.parse_to_deps();
  return *parser._deps;
}

bool same_tree(const Sentence& a, const Sentence& b) {
  return std::equal(a.words.begin(), a.words.end(), b.words.begin(), b.words.end(),
                    [](const SentenceWord& one, const SentenceWord& other) {
                      auto tie = [](const SentenceWord& w) {
                        return std::tie(w.head, w.relation, w.upos, w.xpos, w.lemma, w.features);
                      };
                      return tie(one) == tie(other);
                    });
}

/// Takes out of the tree what hangs in it as words do that a parse took into none.
void drop_outside_words(DepTree& top, const Labels& labels) {
  std::vector<DepTree*> waiting{&top}, outside;
  while (!waiting.empty()) {
    DepTree* node = waiting.back();
    waiting.pop_back();
    const bool has_category = node->_cat && std::strcmp(node->_cat, contract::kNoCategory) != 0;
    if (node != &top && node->empty() && !has_category && node->word() &&
        labels.outside_relation(node->word()) == or_empty(node->_rel))
      outside.push_back(node);
    node->for_each_child([&](DepTree* child) { waiting.push_back(child); });
  }
  for (DepTree* node : outside) node->detach();
}

/// The words with the blanks between them.
std::string text_of(const Deps& deps) {
  std::string text;
  for (int i = 1; i < deps.word_count(); ++i) {
    if (i > 1) text += deps.gap(i);
    text += or_empty(deps.word(i));
  }
  return text;
}

}  // namespace

Engine::Engine() : Engine(World::Console::of_process()) {}

Engine::Engine(const World::Console& console) : world_(console) {
  WorldScope here(world_);
  for (const Offer* offer : all_offers()) offer->enter(world_);
}

Engine::~Engine() {
  WorldScope here(world_);
  counts_.reset();
}

void Engine::start(const char* data_dir) {
  WorldScope here(world_);
  world_.files.set(data_dir);
  Ref<Stream> start_up = world_.files.open("torvane.lsp");
  Exec& exec = world_.interpreter;
  exec.prompt = false;
  exec.frees_values = true;
  exec.load(start_up.get());
  exec.frees_values = false;
}

void Engine::run(const char* text) {
  WorldScope here(world_);
  world_.interpreter.load_string(text);
}

void Engine::parse(const char* text, SentenceTree& tree) {
  WorldScope here(world_);
  parse_sentence(world_, text, tree);
}

std::string Engine::load(const std::vector<std::string>& files,
                         const std::vector<std::string>& folders) {
  WorldScope here(world_);
  world_.files.only(folders);
  world_.places.name_from(folders);
  Exec& exec = world_.interpreter;
  exec.prompt = false;
  for (const std::string& file : files) {
    Ref<Stream> stream = Stream::open_input(file.c_str());
    if (!stream->good()) return file + " cannot be read";
    exec.frees_values = true;
    exec.load(stream.get());
    exec.frees_values = false;
    loaded_.push_back(file);
  }
  TorvaneParser* parser = current_parser(world_);
  if (!parser || !parser->grammar._lex) return "the grammar makes no parser";
  if (Lexicon* words = parser->grammar._lex->lexicon()) words->keep_entries();
  parser->grammar.frames_by_name = true;
  labels_ = std::make_unique<Labels>(world_);
  return {};
}

std::string Engine::grammar_version() const {
  std::set<std::string> files = world_.files.all_found();
  files.insert(loaded_.begin(), loaded_.end());
  return version_of(files);
}

std::string Engine::use_counts(const std::string& folder) {
  constexpr long kBuckets = 59999;
  constexpr long kIdBuckets = 200011;
  WorldScope here(world_);
  std::ostringstream faults;
  {
    MessagesTo kept(faults);
    FileSearch files;
    files.only({folder});
    HeaderFile header(files, "triples.hdr", world_.double_byte);
    counts_ = std::make_unique<TripleDb>(kBuckets, kIdBuckets, false);
    counts_->link_file(world_.objects, header, OpenMode::read);
  }
  const std::string fault = faults.str();
  if (!counts_->has_file())
    return folder + " has no counts that can be read: " + fault.substr(0, fault.find('\n'));
  DepCosts& costs = current_parser(world_)->costs;
  costs._reldb = counts_.get();
  costs.use = CountsUse::advise;
  costs.fixed_counts = true;  // they have no name by which a command could reach them
  return {};
}

Sentence Engine::parse(std::string_view text) {
  has_next_ = false;
  Sentence whole;
  std::size_t from = 0, gap_from = 0, words = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool starts_word = !is_space(text[at]) && (at == 0 || is_space(text[at - 1]));
    if (!starts_word || ++words <= max_words) continue;
    words = 1;
    std::size_t end = at;
    while (end > from && is_space(text[end - 1])) --end;
    append(whole, parse_piece(text.substr(from, end - from)),
           text.substr(gap_from, from - gap_from));
    gap_from = end;
    from = at;
  }
  has_next_ = from == 0;
  if (has_next_) return parse_piece(text);
  append(whole, parse_piece(text.substr(from)), text.substr(gap_from, from - gap_from));
  whole.cut = "words";
  return whole;
}

Sentence Engine::parse(const std::vector<std::string>& words) {
  has_next_ = words.size() <= max_words;
  if (has_next_) return parse_piece(words);
  Sentence whole;
  for (auto from = words.begin(); from != words.end();) {
    const auto to =
        from + std::min<std::ptrdiff_t>(words.end() - from, static_cast<std::ptrdiff_t>(max_words));
    append(whole, parse_piece(std::vector<std::string>(from, to)),
           from == words.begin() ? "" : " ");
    from = to;
  }
  whole.cut = "words";
  return whole;
}

Sentence Engine::rewrite(const std::string& tree_text) {
  WorldScope here(world_);
  const Round round;
  IRSlistReader reader(world_.double_byte);
  const IRSlist* form = reader.start_string(tree_text.c_str());
  if (!form || form->is_atom()) return {};
  const TorvaneParser& parser = *current_parser(world_);
  const Ref<Deps> deps = make_ref<Deps>(world_);
  deps->_att_type = parser.grammar._att_type;
  lift_depth_limits();
  deps->read(*form);
  drop_outside_words(*static_cast<DepTree*>(deps->_root), *labels_);
  if (parser._deps_modifier) parser._deps_modifier->modify(deps->_root);
  return sentence_of(*deps, text_of(*deps), *labels_);
}

GrammarNames Engine::names() {
  WorldScope here(world_);
  GrammarNames names;
  const TorvaneParser* parser = current_parser(world_);
  if (!parser) return names;
  parser->grammar._nodes.for_each(
      [&](const auto& entry) { names.categories.emplace_back(entry.key); });
  if (const AttInterpreterList* type = parser->grammar._att_type)
    for (const AttInterpreter* att : type->atts) names.attributes.push_back(att->name);
  if (parser->grammar._lex && parser->grammar._lex->lexicon())
    parser->grammar._lex->lexicon()->for_each(
        [&](const LexEntry& entry) { names.words.push_back(entry.key); });
  return names;
}

void Engine::stop() {
  if (TorvaneParser* parser = current_parser(world_)) parser->chart.stop();
}

int Engine::boundary(std::string_view token) {
  WorldScope here(world_);
  return labels_->finds_sentences() ? labels_->boundary(token) : -1;
}

bool Engine::joint(std::string_view token) {
  WorldScope here(world_);
  return labels_->joint(token);
}

Sentence Engine::parse_piece(std::string_view text) {
  WorldScope here(world_);
  TorvaneParser& parser = *current_parser(world_);
  if (!parser.feed(labels_->with_joints(text).c_str(), nullptr)) {
    has_next_ = false;
    return {};
  }
  parser.parse_items();
  text_ = text;
  words_.clear();
  given_.clear();
  return result();
}

Sentence Engine::parse_piece(const std::vector<std::string>& words) {
  WorldScope here(world_);
  TorvaneParser& parser = *current_parser(world_);
  std::vector<const char*> forms;
  forms.reserve(words.size());
  for (const std::string& word : words) forms.push_back(word.c_str());
  if (!parser.feed_words(forms)) {
    has_next_ = false;
    return {};
  }
  parser.parse_items();
  text_.clear();
  words_ = words;
  given_.clear();
  return result();
}

Sentence Engine::result() {
  TorvaneParser& parser = *current_parser(world_);
  const Deps& deps = result_of(parser);
  Sentence sentence =
      words_.empty() ? sentence_of(deps, text_, *labels_) : sentence_of(deps, words_, *labels_);
  sentence.cost = parser.cost();
  if (parser.chart.is_exhausted()) sentence.cut = parser.chart.is_stopped() ? "stopped" : "items";
  return sentence;
}

// Many derivations give the same tree.
std::optional<Sentence> Engine::next() {
  constexpr int kMostAlike = 200;
  if (!has_next_) return {};
  WorldScope here(world_);
  if (given_.empty()) given_.push_back(result());
  for (int tries = 0; tries < kMostAlike && current_parser(world_)->next_deps(); ++tries) {
    Sentence sentence = result();
    const bool is_new = std::none_of(given_.begin(), given_.end(), [&](const Sentence& other) {
      return same_tree(sentence, other);
    });
    if (!is_new) continue;
    given_.push_back(sentence);
    return sentence;
  }
  has_next_ = false;
  return {};
}

}  // namespace torvane
