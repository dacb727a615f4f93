#include "deps/val_types.h"

#include "deps/deps.h"
#include "deps/print_text.h"
#include "deps/text_list.h"
#include "lexp/tuples.h"
#include "support/text.h"

namespace torvane {

namespace {

int order(Word a, Word b) {
  return a < b ? -1 : a > b;
}

Value new_list(Deps& owner, TextList*& list) {
  list = &owner._lists.emplace_back();
  return owner.eras.now()->of(list);
}

}  // namespace

void IntValue::print(std::ostream& out, Value value) const {
  out << static_cast<int>(value.number());
}

Value IntValue::copy(Value value, Deps&) const {
  return value.is(tags::integer) ? value : Value();
}

Value IntValue::parse(IRSlist* form, Deps&) const {
  return Value::integer(form->empty() ? 0 : static_cast<int>(form->get_long_val()));
}

int IntValue::compare(Value a, Value b) const {
  return order(a.number(), b.number());
}

void StrValue::print(std::ostream& out, Value value) const {
  if (const char* text = value.text()) write_atom(out, text);
}

Value StrValue::copy(Value value, Deps& owner) const {
  return owner.text_value(owner._strings.copy(value.text()));
}

Value StrValue::parse(IRSlist* form, Deps& owner) const {
  return owner.text_value(owner._strings.copy(form->get_str_val()));
}

int StrValue::compare(Value a, Value b) const {
  if (!a || !b) return order(a.number(), b.number());
  return byte_compare(or_empty(a.text()), or_empty(b.text()));
}

void StrListValue::print(std::ostream& out, Value value) const {
  const auto* list = value.as<TextList>();
  if (!list) return;
  out << '(';
  const char* gap = "";
  for (const char* text : *list) {
    out << gap;
    write_atom(out, text);
    gap = " ";
  }
  out << ')';
}

Value StrListValue::copy(Value value, Deps& owner) const {
  const auto* source = value.as<TextList>();
  const auto* collected = value.as<ValueList>();
  if (!source && !collected) return Value();
  TextList* list;
  Value result = new_list(owner, list);
  auto add = [&](const char* text) {
    if (text) list->append(owner._strings.copy(text));
  };
  if (source)
    for (const char* text : *source) add(text);
  else
    for (const HeldValue& element : collected->values) add(element.get().text());
  return result;
}

Value StrListValue::parse(IRSlist* form, Deps& owner) const {
  const IRSlist* first = form->nth(0);
  if (!first) return Value();
  TextList* list;
  Value result = new_list(owner, list);
  for (const IRSlist* item : first->is_list() ? first->items : form->items)
    if (item->is_atom()) list->append(owner._strings.copy(item->atom));
  return result;
}

int StrListValue::compare(Value a, Value b) const {
  const auto* left = a.as<TextList>();
  const auto* right = b.as<TextList>();
  if (!left || !right) return order(a.number(), b.number());
  auto other = right->begin();
  for (const char* text : *left) {
    if (other == right->end()) return 1;
    if (int c = byte_compare(text, *other)) return c;
    ++other;
  }
  return other == right->end() ? 0 : -1;
}

void DepTreeValue::print(std::ostream& out, Value value) const {
  if (DepTree* node = dep_tree_of(value)) write_atom(out, node->label());
}

Value DepTreeValue::copy(Value value, Deps& owner) const {
  DepTree* node = dep_tree_of(value);
  return Value::of(node && node->_deps == &owner ? node : nullptr);
}

Value DepTreeValue::parse(IRSlist* form, Deps& owner) const {
  return Value::of(owner.find_label(form->get_str_val()));
}

int DepTreeValue::compare(Value a, Value b) const {
  return order(a.word(), b.word());
}

}  // namespace torvane
