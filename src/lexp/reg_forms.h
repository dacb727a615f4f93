// Forms that match and rewrite texts by regular expressions.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "lexp/form.h"
#include "support/regexp.h"

namespace torvane {

class RegMatch : public Form<RegMatch, CharPred> {
 public:
  static constexpr const char* kName = "reg-match";
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int type) override;

 private:
  std::vector<std::shared_ptr<regexp>> patterns_;
};

/// The input with the first match, or all of them, replaced.
class RegSub : public Form<RegSub, CharPred> {
 public:
  static constexpr const char* kName = "reg-sub";
  RegSub() { out_type = type_id_of<const char*>(); }
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int type) override;

 private:
  void rewrite(const char* text);

  std::shared_ptr<regexp> pattern_;
  std::optional<std::string> replacement_;
  bool global_ = false;
  std::string rewritten_;
};

}  // namespace torvane
