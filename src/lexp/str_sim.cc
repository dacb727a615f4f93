// How alike two words are, by the trigrams that they share.
#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "lexp/form.h"
#include "lexp/offers.h"
#include "support/text.h"

namespace torvane {

namespace {

using Trigram = std::array<char, 4>;  // with a zero byte
using Trigrams = std::vector<Trigram>;

struct BytesHash : std::hash<std::string_view> {
  using is_transparent = void;
};

Trigrams make_trigrams(std::string_view word) {
  std::string padded = " ";
  padded.append(word).append(" ");
  Trigrams all;
  for (std::size_t i = 0; i + 3 <= padded.size(); ++i) {
    all.push_back({padded[i], padded[i + 1], padded[i + 2], 0});
  }
  std::sort(all.begin(), all.end(), [](const Trigram& a, const Trigram& b) {
    int order = stricmp(a.data(), b.data());
    return order != 0 ? order < 0 : byte_compare(a.data(), b.data()) < 0;
  });
  return all;
}

// Makes each word's trigrams once.
class TrigramCache {
 public:
  const Trigrams& of(std::string_view word) {
    auto place = made_.find(word);
    if (place == made_.end()) place = made_.emplace(word, make_trigrams(word)).first;
    return place->second;
  }

 private:
  std::unordered_map<std::string, Trigrams, BytesHash, std::equal_to<>> made_;
};

// The Dice coefficient on the trigrams of two words, from 0 to 1000.
int trigram_similarity(const Trigrams& left, const Trigrams& right) {
  float shared = 0;
  float total = 0;
  auto x = left.begin();
  auto y = right.begin();
  while (x != left.end() && y != right.end()) {
    int order = stricmp(x->data(), y->data());
    if (order == 0) shared += 2.0f;
    if (order <= 0) ++x, ++total;
    if (order >= 0) ++y, ++total;
  }
  total += static_cast<float>((left.end() - x) + (right.end() - y));
  // Kept: str-sim-of-empty
  return total > 0 ? static_cast<int>(shared * 1000 / total) : 0;
}

class StrSim : public Form<StrSim, BinaryFunc> {
 public:
  static constexpr const char* kName = "str-sim";
  static constexpr const char* kUsage =
      "`(str-sim a b)` likeness of two words by trigrams, 0 to 1000";
  StrSim() { out_type = type_id_of<int>(); }
  Value eval(Value input, int type) override {
    const char* left = a.eval(input, type).text();
    const char* right = b.eval(input, type).text();
    if (!left || !right) return Value::integer(!left && !right ? 1000 : 0);
    return Value::integer(trigram_similarity(trigrams_->of(left), trigrams_->of(right)));
  }

 private:
  // Shared by all forms of a world, since they are copies of one.
  std::shared_ptr<TrigramCache> trigrams_ = std::make_shared<TrigramCache>();
};

constexpr Prototype kStrSimForms[] = {
    form<StrSim>(),
};

}  // namespace

constinit const Offer offers::str_sim{kStrSimForms};

}  // namespace torvane
