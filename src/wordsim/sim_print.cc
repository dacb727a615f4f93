#include "wordsim/sim_print.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "support/text.h"

namespace torvane {
namespace {

constexpr int kShortList = 4;  // a list of so few words is left out of a page

/// One list as text: its groups where their first members stand, each word once.
class ListPrinter {
 public:
  ListPrinter(const SimWordDb& db, const SimRecord& record, int pos, std::ostream& out)
      : db_(db), sims_(record.sims[pos]), out_(out), seen_(sims_.count()) {
    for (const LBitSet* group : record.groups[pos]) {
      int first = LBitSetIterator(*group).next();
      if (first >= 0) groups_.emplace_back(first, group);
    }
    std::stable_sort(groups_.begin(), groups_.end(),
                     [](const Group& a, const Group& b) { return a.first < b.first; });
  }

  void print() {
    auto group = groups_.begin();
    for (int i = 0; i < sims_.count(); ++i) {
      for (; group != groups_.end() && group->first == i; ++group) print_group(*group->second);
      if (seen_.test(i)) continue;
      out_ << "  ";
      print_pair(i, quoted(db_.get_string(sims_[i].word), QuoteComma::yes));
      out_ << '\n';
    }
  }

 private:
  using Group = std::pair<int, const LBitSet*>;  // with its first member

  void print_group(const LBitSet& group) {
    int shown = 0;
    LBitSetIterator members(group);
    for (int i = members.next(); i >= 0 && i < sims_.count(); i = members.next()) {
      if (seen_.test(i)) continue;
      out_ << (shown++ == 0 ? "  (" : " ");
      // Kept: grouped-words-unquoted
      print_pair(i, or_empty(db_.get_string(sims_[i].word)));
    }
    if (shown > 0) out_ << ")\n";
  }
  void print_pair(int i, std::string_view word) {
    seen_.set(i);
    out_ << word << ' ' << float_text(sims_[i].sim);
  }

  const SimWordDb& db_;
  const Array<SimPair>& sims_;
  std::ostream& out_;
  LBitSet seen_;
  std::vector<Group> groups_;
};

/// One list as rows of a page.
class RowPrinter {
 public:
  RowPrinter(const SimWordDb& db, const SimRecord& record, int pos, const SimPageStyle& style,
             std::ostream& out)
      : db_(db), sims_(record.sims[pos]), style_(style), out_(out) {
    for (const LBitSet* group : record.groups[pos])
      if (groups_.size() + 1 < style.colors.size()) groups_.push_back(group);
  }

  void print() const {
    for (int i = 0; i < sims_.count(); ++i) {
      const char* word = or_empty(db_.get_string(sims_[i].word));
      std::string key = word;
      std::replace(key.begin(), key.end(), ' ', '+');
      out_ << style_.url << '"' << key << "\">";
      print_word(word, i);
      out_ << "</a> " << float_text(sims_[i].sim) << ",\n";
    }
  }

 private:
  /// Once in the colour of each of its groups; a word that no coloured group holds, once.
  void print_word(const char* word, int i) const {
    int times = 0;
    for (std::size_t k = 0; k < groups_.size(); ++k) {
      if (!groups_[k]->test(i)) continue;
      if (times++ > 0) out_ << '/';
      print_in(style_.colors[k + 1], word);
    }
    if (times > 0) return;
    if (style_.colors.empty())
      out_ << word;
    else
      print_in(style_.colors[0], word);
  }
  void print_in(const char* color, const char* word) const {
    out_ << "<font color=" << color << '>' << word << "</font>";
  }

  const SimWordDb& db_;
  const Array<SimPair>& sims_;
  const SimPageStyle& style_;
  std::ostream& out_;
  std::vector<const LBitSet*> groups_;  // those that have a colour
};

}  // namespace

void print_similar_words(const SimWordDb& db, const SimRecord& record, std::ostream& out) {
  bool begun = false;
  for (int pos = 0; pos < kPartsOfSpeech; ++pos) {
    if (record.sims[pos].empty()) continue;
    if (!std::exchange(begun, true))
      out << '(' << quoted(db.get_string(record.word), QuoteComma::yes);
    out << "\n (" << kPartOfSpeechNames[pos] << ' ' << float_text(record.desc[pos]) << '\n';
    ListPrinter(db, record, pos, out).print();
    out << "  )\n";
  }
  if (begun) out << ")\n";
}

void print_similar_words_in_html(const SimWordDb& db, const SimRecord& record,
                                 const SimPageStyle& style, std::ostream& out) {
  out << "<h3>" << or_empty(db.get_string(record.word)) << "</h3>\n";
  for (int pos = 0; pos < kPartsOfSpeech; ++pos) {
    if (record.sims[pos].count() <= kShortList) continue;
    out << "\n<h4>" << kPartOfSpeechNames[pos] << "</h4>\n";
    RowPrinter(db, record, pos, style, out).print();
  }
}

}  // namespace torvane
