#include "att/text_atts.h"

#include <cstdio>
#include <cstring>
#include <sstream>

#include "att/attribute_type.h"
#include "att/offers.h"
#include "support/messages.h"

namespace torvane {

namespace {

const char* text_of(AttWord value) {
  return Name::of_word(value).c_str();
}
AttWord word_of(const char* text) {
  return Name(text).word();
}

}  // namespace

void StrAtt::print(std::ostream& out, const AttVec* vec) const {
  if (const char* text = text_of(get(vec)))
    // Kept: string-value-unescaped
    out << '(' << name << " \"" << text << "\")";
  else
    out << '~' << name;
}

const char* StrAtt::str_val(AttWord value, std::string&) const {
  return text_of(value);
}

AttWord StrAtt::make_val(IRSlist* form) const {
  if (!form->is_atom()) return word_of(form->get_str_val());
  return *form->atom == '~' ? 0 : word_of(form->atom);
}

AttWord StrAtt::get_val(const char* token) const {
  return word_of(token);
}

void StrAtt::pack(const AttVec* vec, StrBufs& out) const {
  out.add_text(text_of(get(vec)));
}

bool StrAtt::unpack(AttVec* vec, const char*& p, const char* end) const {
  const void* zero = std::memchr(p, 0, static_cast<std::size_t>(end - p));
  if (!zero) return false;
  set(vec, word_of(p));
  p = static_cast<const char*>(zero) + 1;
  return true;
}

Value StrAtt::to_value(AttWord value) const {
  return Value::constant(text_of(value));
}

void EntAtt::init(World&, IRSlist* facets) {
  while (facets && !facets->empty()) {
    auto facet = facets->pop_front();
    const char* facet_name = facet->is_atom() ? facet->atom : facet->get_str_val();
    if (same_word(facet_name, "default"))
      default_value = make_val(facet.get());
    else
      messages() << "EntAtt::EntAtt unknown facet " << or_empty(facet_name) << '\n';
  }
}

bool EntAtt::unify(AttVec* vec, int at, AttWord value, bool store) const {
  if (!unifier || !vec->has(at)) return AttInterpreter::unify(vec, at, value, store);
  AttWord result = unifier(get(vec), value);
  if (result == 0) return false;
  if (store) vec->set(at, result);
  return true;
}

const char* EntAtt::str_val(AttWord value, std::string& scratch) const {
  if (value == 0) return "~";
  if (printer) {
    std::ostringstream out;
    printer(value, out);
    scratch = out.str();
  } else {
    char digits[2 * sizeof value + 1];
    std::snprintf(digits, sizeof digits, "%jx", static_cast<std::uintmax_t>(value));
    scratch = digits;
  }
  return scratch.c_str();
}

// Nothing was packed: that it was defined is all that is left.
// Kept: entity-is-not-packed
bool EntAtt::unpack(AttVec* vec, const char*&, const char*) const {
  set(vec, 0);
  return true;
}

Value EntAtt::to_value(AttWord value) const {
  return viewer && value ? viewer(value) : Value::integer(static_cast<Word>(value));
}

EntAtt* ent_att(AttInterpreter* att) {
  return att && att->holds == Holds::entity ? static_cast<EntAtt*>(att) : nullptr;
}

namespace {

constexpr Prototype kTextAttsTypes[] = {
    attribute_type<StrAtt>(),
    attribute_type<EntAtt>(),
};

}  // namespace

constinit const Offer offers::text_atts{kTextAttsTypes};

}  // namespace torvane
