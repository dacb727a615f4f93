#include "text/sentences.h"

#include <utility>

#include "support/text.h"
#include "text/plain_text.h"

namespace torvane {

namespace {
constexpr std::size_t kLongestWord = 100;
}

SentenceCutter::SentenceCutter(Engine& engine, std::size_t most_words)
    : engine_(engine), most_words_(most_words) {}

void SentenceCutter::add_line(std::string_view line) {
  if (!pending_.empty()) pending_ += ' ';
  for (std::size_t at = 0; at < line.size();) {
    std::size_t end = at;
    while (end < line.size() && !is_space(line[end])) ++end;
    if (end == at) {
      if (!pending_.empty()) pending_ += line[at];
      ++at;
      continue;
    }
    for (std::string_view token = line.substr(at, end - at); !token.empty();) {
      const std::size_t length = joint_in(token);
      add_token(token.substr(0, length));
      token.remove_prefix(length);
    }
    at = end;
  }
}

/// Bytes of a token up to where the next sentence begins without a blank; else all.
std::size_t SentenceCutter::joint_in(std::string_view token) {
  for (std::size_t i = 1; i < token.size() && token.size() <= kLongestWord; ++i) {
    if (!is_punct(token[i - 1]) || !is_alpha(token[i])) continue;
    std::string parted(token);
    if (engine_.joint(parted.insert(i, 1, ' '))) return i;
  }
  return token.size();
}

void SentenceCutter::add_token(std::string_view token) {
  tokens_.push_back({pending_.size(), pending_.size() + token.size()});
  pending_ += token;
  read(token, 0);
  if (tokens_.size() >= most_words_) cut(0);
}

// Tokens that belong to the next sentence are read once more, as its beginning.
void SentenceCutter::read(std::string_view token, std::size_t depth) {
  const int given_back = engine_.boundary(PlainText(token).text());
  if (given_back < 0 || static_cast<std::size_t>(given_back) >= tokens_.size() || depth > 8) return;
  cut(static_cast<std::size_t>(given_back));
  const std::vector<Token> again = tokens_;
  tokens_.clear();
  for (const Token& one : again) {
    tokens_.push_back(one);
    read(std::string(pending_, one.begin, one.end - one.begin), depth + 1);
  }
}

void SentenceCutter::cut(std::size_t tokens_kept) {
  const std::size_t taken = tokens_.size() - tokens_kept;
  if (taken == 0) return;
  const std::size_t end = tokens_[taken - 1].end;
  const std::size_t begin = tokens_.front().begin;
  const std::size_t next = tokens_kept > 0 ? tokens_[taken].begin : pending_.size();
  ready_.push_back({pending_.substr(begin, end - begin), std::exchange(starts_paragraph_, false),
                    tokens_kept == 0 || next > end});
  pending_.erase(0, next);
  tokens_.erase(tokens_.begin(), tokens_.begin() + static_cast<std::ptrdiff_t>(taken));
  for (Token& token : tokens_) {
    token.begin -= next;
    token.end -= next;
  }
}

void SentenceCutter::end_paragraph() {
  cut(0);
  pending_.clear();
  engine_.boundary("\n");  // what no sentence has: the boundary starts anew
  starts_paragraph_ = true;
}

bool SentenceCutter::next(CutSentence& sentence) {
  if (ready_.empty()) return false;
  sentence = std::move(ready_.front());
  ready_.pop_front();
  return true;
}

}  // namespace torvane
