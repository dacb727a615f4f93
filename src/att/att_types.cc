// The value classes, under the names by which `defattribute` finds them.
#include "att/disjunction_atts.h"
#include "att/nested_atts.h"
#include "att/scalar_atts.h"
#include "att/text_atts.h"
#include "shell/object_factory.h"

namespace torvane {

namespace {

// Kept: att-intepreter
constexpr const char* kFamily = "AttIntepreter";  // as grammar files know it

template <class... Class>
void add_prototypes() {
  (ObjFactory::proto(kFamily, Class::kType, Value::of<AttInterpreter>(new Class), nullptr), ...);
}

}  // namespace

void register_attribute_types() {
  static bool done = false;
  if (done) return;
  done = true;
  ObjFactory::add_family(kFamily, nullptr, nullptr);
  add_prototypes<BinAtt, EnumAtt, SmIntAtt, Disj8Att, DisjAtt, IntAtt, StrAtt, EntAtt, VecAtt,
                 ListAtt, StackAtt, TraceAtt>();
}

}  // namespace torvane
