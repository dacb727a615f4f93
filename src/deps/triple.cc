#include "deps/triple.h"

#include "support/text.h"

namespace torvane {

TriplePart::TriplePart(World& world, IRSlist* item) {
  if (!item) return;
  if (item->is_atom()) {
    constant_ = item->atom;
  } else {
    exp_ = LExp::get_exp(world, item);
  }
}

Value TriplePart::eval(Value input, int type) const {
  return constant_ ? Value::buffer_text(constant_->c_str()) : exp_.eval(input, type);
}

Triple::Triple(World& world, IRSlist* form)
    : first(world, form->nth(0)), second(world, form->nth(1)), third(world, form->nth(2)) {}

float Triple::weight(Value input, int type) const {
  if (third.exp_) {
    Value value = third.exp_.eval(input, type);
    // Kept: weights-by-thousands
    return value.is(tags::integer) ? static_cast<float>(value.number() / 1000.0) : 0.0f;
  }
  if (!third.constant_) return 1.0f;
  float number = 0;
  scan_float(third.constant(), number);
  return number;
}

std::vector<Triple> read_triples(World& world, IRSlist* args) {
  std::vector<Triple> triples;
  for (IRSlist* item : args->items)
    if (item->is_list()) triples.emplace_back(world, item);
  return triples;
}

}  // namespace torvane
