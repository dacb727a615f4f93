// The form `word-sim`: how similar two words are.
#include <algorithm>
#include <limits>

#include "lexp/form.h"
#include "shell/named_objects.h"
#include "shell/world.h"
#include "wordsim/offers.h"
#include "wordsim/sim_word_db.h"

namespace torvane {
namespace {

/// The similarity of two words in a database that is known when the form is compiled, as a whole
/// number: of use where a database's scores are scaled.
class WordSim : public Form<WordSim, MArgExp> {
 public:
  static constexpr const char* kName = "word-sim";
  static constexpr const char* kUsage =
      "`(word-sim DB pos word word)` the similarity of two words in a database of similar words, "
      "cut to a whole number; 0 if a result is null";
  WordSim() : Form(kName, nullptr, kTexts) { out_type = type_id_of<int>(); }

  void init(World& world, IRSlist* arguments) override {
    db_ = world.objects.find_as<SimWordDb>(arguments->get_str_val(), "SimWordDb", true);
    MArgExp::init(world, arguments);
  }
  Value eval(Value input, int input_type) override {
    if (!accepts(input_type) || !db_ || args.count() < kTexts) return Value();
    const char* texts[kTexts];
    for (int i = 0; i < kTexts; ++i) texts[i] = args[i].eval(input, input_type).text();
    int pos = pos_index(texts[0]);
    if (pos < 0 || !texts[1] || !texts[2]) return Value();
    constexpr double kMost = std::numeric_limits<int>::max();
    double sim = db_->get_sim(texts[1], texts[2], pos);
    // Kept: word-sim-cuts
    return Value::integer(static_cast<int>(std::clamp(sim, -kMost, kMost)));
  }

 private:
  static constexpr int kTexts = 3;  // part of speech and two words

  SimWordDb* db_ = nullptr;
};

constexpr Prototype kWordSimForms[] = {
    form<WordSim>(),
};

}  // namespace

constinit const Offer offers::word_sim{kWordSimForms};

}  // namespace torvane
