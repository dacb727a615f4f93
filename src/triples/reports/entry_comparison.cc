// `cmp-tripledb-entries`: the features of two words side by side, in a colour for each.
#include <array>
#include <string>

#include "shell/world.h"
#include "triples/reports/my_ostream.h"
#include "triples/reports/offers.h"
#include "triples/reports/relation_texts.h"
#include "triples/reports/report_parts.h"

namespace torvane {
namespace {

constexpr float kShownAbove = 5.0F;

/// Walks two sorted sequences at once, `order` of two elements being <0, 0, >0.
template <class T, class Order, class Both, class One>
void merge_walk(T* a, T* a_end, T* b, T* b_end, Order order, Both both, One one) {
  while (a != a_end || b != b_end) {
    int which = a == a_end ? 1 : b == b_end ? -1 : order(*a, *b);
    if (which == 0)
      both(*a++, *b++);
    else if (which < 0)
      one(*a++, 1);
    else
      one(*b++, 2);
  }
}

class Comparison {
 public:
  Comparison(World& world, TripleDb& db, IRSlist& form) : out(world.out()), texts_(db, form) {
    const char* keywords[] = {":color0", ":color1", ":color2"};
    for (std::size_t i = 0; i < colors_.size(); ++i)
      if (const char* color = form.take_keyword_str(keywords[i])) colors_[i] = color;
  }

  void print(TripleDbInfo& first, TripleDbInfo& second) {
    merge_walk(
        first.rels.begin(), first.rels.end(), second.rels.begin(), second.rels.end(),
        [](const RelInfo& a, const RelInfo& b) { return a.id < b.id ? -1 : a.id > b.id; },
        [&](const RelInfo& a, const RelInfo& b) { print_shared(a, b); },
        [&](const RelInfo& rel, std::size_t side) { print_lone(rel, side); });
  }
  MyOStream out;

 private:
  const char* color(std::size_t i) const { return colors_[i].c_str(); }

  void print_word(const WordCount& word, std::size_t side) {
    out << "<font color=" << color(side) << ">" << word.word << " " << word.freq << "</font>,\n";
  }

  void print_both(const WordCount& a, const WordCount& b) {
    // Kept: font-stays-open
    out << "<font color=" << color(0) << ">" << a.word << " <font color=" << color(1) << ">"
        << a.freq << "</font>/<font color=" << color(2) << ">" << b.freq << "</font>,\n";
  }

  void print_shared(const RelInfo& a, const RelInfo& b) {
    if (!(a.freq > kShownAbove)) return;
    out << texts_.text_of(a.id).c_str();
    merge_walk(
        a.begin(), a.end(), b.begin(), b.end(),
        [](const WordCount& x, const WordCount& y) { return compare_words(x.word, y.word); },
        [&](const WordCount& x, const WordCount& y) { print_both(x, y); },
        [&](const WordCount& word, std::size_t side) { print_word(word, side); });
    out << "\n<p>\n";
  }

  void print_lone(const RelInfo& rel, std::size_t side) {
    if (!(rel.freq > kShownAbove)) return;
    out << texts_.text_of(rel.id).c_str() << "<br>";
    for (const WordCount& word : rel) print_word(word, side);
    out << "\n<p>\n";
  }

  RelationTexts texts_;
  std::array<std::string, 3> colors_{"#bb4444", "#44bb44", "#4444bb"};
};

Value cmp_tripledb_entries(World& world, IRSlist* form) {
  TripleDb* db = take_triple_db(world, form);
  if (!db) return Value();
  Comparison comparison(world, *db, *form);
  const char* word1 = form->get_str_val();
  const char* word2 = form->get_str_val();
  comparison.out << "<h3> Comparison between '" << word1 << "' and '" << word2 << "'</h3>";
  TripleDbInfo* first = db->find(word1);
  TripleDbInfo* second = db->find(word2);
  if (first && second) {
    db->load_details(*first);
    db->load_details(*second);
    comparison.print(*first, *second);
  }
  comparison.out.flush();
  return Value();
}

constexpr Command kEntryComparisonCommands[] = {
    {"cmp-tripledb-entries", cmp_tripledb_entries,
     "(cmp-tripledb-entries db word1 word2 :codes ((id translation) ...))."},
};

}  // namespace

constinit const Offer offers::entry_comparison{kEntryComparisonCommands};

}  // namespace torvane
