// Between the text of a tree and the tree, inside expressions: `str2deps`, `concat-depwords`.
#include <string>

#include "deps/dep_forms.h"
#include "deps/offers.h"
#include "shell/world.h"

namespace torvane {

namespace {

// The text of a tree as its Deps; null without a list in it.
class Str2Deps : public Form<Str2Deps, LAdaptor> {
 public:
  static constexpr const char* kName = "str2deps";
  static constexpr const char* kUsage = "`(str2deps [sub])` the tree that a text describes";
  Str2Deps() {
    in_type = type_id_of<const char*>();
    mid_type = type_id_of<Deps>();
  }

  Value convert(Value input) override {
    const char* text = input.text();
    if (!text) return Value();
    IRSlistReader reader(world().double_byte);
    const IRSlist* form = reader.start_string(text);
    if (!form || form->is_atom()) return Value();
    Ref<Deps> deps = make_ref<Deps>(world());
    deps->read(*form);
    result_ = HeldValue(Value::of(deps.get()));
    return result_.get();
  }

 private:
  HeldValue result_;  // the last one lives on until no expression runs
};

// Every letter and digit of the words, as far as the buffer goes.
struct ConcatDepWords : Adaptor<ConcatDepWords, Deps, Value, const char*> {
  static constexpr const char* kName = "concat-depwords";
  static constexpr const char* kUsage =
      "`(concat-depwords [sub])` the letters and digits of all words of a tree, up to 1023";
  static constexpr std::size_t kMostChars = 1023;

  Value step(Deps& deps) {
    std::string text;
    for (int i = 1; i < deps.word_count() && text.size() < kMostChars; ++i)
      for (const char* c = or_empty(deps.word(i)); *c && text.size() < kMostChars; ++c)
        if (is_alnum(*c)) text += *c;
    return Value::made_text(text);
  }
};

constexpr Prototype kDepsTextForms[] = {
    form<Str2Deps>(),
    form<ConcatDepWords>(),
};

}  // namespace

constinit const Offer offers::deps_text_forms{kDepsTextForms};

}  // namespace torvane
