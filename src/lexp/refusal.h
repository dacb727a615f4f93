// Why a condition gave null: which of its parts that is due to.
#pragma once

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace torvane {

class LExp;

/// What an evaluation by `LExp::watch` left behind when it gave null.
struct Refusal {
  struct Step {
    const LExp* exp;
    std::string finding;   ///< what the form found; may be empty
    bool is_call = false;  ///< of a defined function
  };
  std::vector<Step> steps;  ///< from the innermost form to the whole
};

/// The texts of the forms that expressions were compiled from, to be quoted. An expression that was
/// copied since has none.
class FormTexts {
 public:
  void note(const LExp& exp, std::string text) { texts_[&exp] = std::move(text); }
  /// Empty if it is not known.
  std::string text_of(const LExp& exp) const {
    const auto found = texts_.find(&exp);
    return found == texts_.end() ? std::string() : found->second;
  }

 private:
  std::unordered_map<const LExp*, std::string> texts_;
};

}  // namespace torvane
