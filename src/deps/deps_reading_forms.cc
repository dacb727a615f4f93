// Trees from text, inside expressions: out of a string, and a stream of them for a list of rules.
#include <string>

#include "deps/dep_forms.h"
#include "deps/deps_modifier.h"
#include "shell/named_objects.h"
#include "shell/streams.h"
#include "shell/world.h"
#include "support/depth.h"

namespace torvane {

namespace {

// The text of a tree as its Deps; null without a list in it.
class Str2Deps : public Form<Str2Deps, LAdaptor> {
 public:
  static constexpr const char* kName = "str2deps";
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
  static constexpr std::size_t kMostChars = 1023;

  Value step(Deps& deps) {
    std::string text;
    for (int i = 1; i < deps.word_count() && text.size() < kMostChars; ++i)
      for (const char* c = or_empty(deps.word(i)); *c && text.size() < kMostChars; ++c)
        if (is_alnum(*c)) text += *c;
    return Value::made_text(text);
  }
};

// `(read-and-modify-deps MODIFIER [STREAM-EXP])`
class ReadAndModifyDeps : public Form<ReadAndModifyDeps> {
 public:
  static constexpr const char* kName = "read-and-modify-deps";

  void init(World& world, IRSlist* args) override {
    modifier_ = world.objects.find_as<DepsModifier>(args->get_str_val(), "TreeModifier", true);
    stream_ = get_exp(world, args->nth(0));
  }

  Value eval(Value input, int type) override {
    if (!modifier_) return Value();
    Value given = stream_.eval(input, type);
    if (given && !given.as<Stream>()) return Value();
    Ref<Stream> stream(given ? given.as<Stream>() : world().standard_input());
    DepsModifier& modifier = *modifier_;
    IRSlistReader reader(world().double_byte);
    Ref<Deps> deps;
    Round round;
    for (const IRSlist* form = reader.start_stream(stream.get()); form; form = reader.next()) {
      if (form->is_atom() || !reader.found_form()) continue;
      // A tree that somebody keeps stays as it is.
      if (!deps || deps->shared()) deps = make_ref<Deps>(world());
      lift_depth_limits();
      deps->read(*form);
      modifier.modify(deps->_root);
      round.next();
    }
    return Value();
  }

 private:
  DepsModifier* modifier_ = nullptr;
  ExpPtr stream_;
};

}  // namespace

void register_deps_reading_forms(World& world) {
  register_form<ReadAndModifyDeps>(world);
  register_form<Str2Deps>(world);
  register_form<ConcatDepWords>(world);
}

}  // namespace torvane
