// The value classes, under the names by which `defattribute` finds them.
#include "att/disjunction_atts.h"
#include "att/nested_atts.h"
#include "att/scalar_atts.h"
#include "att/text_atts.h"
#include "shell/object_factory.h"
#include "shell/world.h"

namespace torvane {

namespace {

// Kept: att-intepreter
constexpr const char* kFamily = "AttIntepreter";  // as grammar files know it

template <class... Class>
void add_prototypes(World& world) {
  (world.families.add_proto(kFamily, Class::kType,
                            Value::of<AttInterpreter>(world.own(std::make_unique<Class>())),
                            nullptr),
   ...);
}

}  // namespace

void register_attribute_types(World& world) {
  world.families.add(kFamily, nullptr, nullptr);
  add_prototypes<BinAtt, EnumAtt, SmIntAtt, Disj8Att, DisjAtt, IntAtt, StrAtt, EntAtt, VecAtt,
                 ListAtt, StackAtt, TraceAtt>(world);
}

}  // namespace torvane
