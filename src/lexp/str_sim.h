// How alike two words are, by the trigrams that they share.
#pragma once

#include "lexp/form.h"

namespace torvane {

/// The Dice coefficient on the trigrams of two words, from 0 to 1000.
int trigram_similarity(const char* a, const char* b);

class StrSim : public Form<StrSim, BinaryFunc> {
 public:
  static constexpr const char* kName = "str-sim";
  StrSim() { out_type = type_id_of<int>(); }
  Value eval(Value input, int type) override;
};

}  // namespace torvane
