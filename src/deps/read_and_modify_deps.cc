// The form `read-and-modify-deps`: a list of tree rules run over a stream of trees.
#include "deps/dep_forms.h"
#include "deps/deps_modifier.h"
#include "deps/offers.h"
#include "shell/named_objects.h"
#include "shell/streams.h"
#include "shell/world.h"
#include "support/depth.h"

namespace torvane {

namespace {

class ReadAndModifyDeps : public Form<ReadAndModifyDeps> {
 public:
  static constexpr const char* kName = "read-and-modify-deps";
  static constexpr const char* kUsage =
      "`(read-and-modify-deps NAME [exp])` runs the tree rules of that name on each tree read from "
      "the stream that `exp` gives, or from standard input";

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

constexpr Prototype kReadAndModifyDepsForms[] = {
    form<ReadAndModifyDeps>(),
};

}  // namespace

constinit const Offer offers::read_and_modify_deps{kReadAndModifyDepsForms};

}  // namespace torvane
