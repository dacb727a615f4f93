#include "att/scalar_atts.h"

#include <cstdlib>

#include "att/attribute_type.h"
#include "att/offers.h"
#include "support/messages.h"

namespace torvane {

namespace {

// As atoi, of any text: what does not fit is cut to 32 bits.
AttWord number_in(const char* text) {
  return static_cast<std::uint32_t>(std::strtol(or_empty(text), nullptr, 10));
}

}  // namespace

void BinAtt::allocate(AttInterpreterList* owner) {
  owner->binary_atts.set(index);
  ++owner->bin_count;
  slot = index;
}

void BinAtt::set(AttVec* vec, AttWord value) const {
  if (value)
    vec->bin_values.set(index);
  else
    vec->bin_values.clear(index);
}

AttWord BinAtt::get_val(const char* token) const {
  token = or_empty(token);
  if (*token == '+') return 1;
  if (*token != '-')
    messages() << "BinAtt::get_val " << token << " is not a valid value for binary attribute\n";
  return 0;
}

void BinAtt::pack(const AttVec*, StrBufs&) const {
  messages() << "BinAtt::pack(const AttVec*, StrBufs&) should never be called\n";
}

bool BinAtt::unpack(AttVec*, const char*&, const char*) const {
  messages() << "BinAtt::unpack(AttVec*, const char*&) should never be called\n";
  return true;
}

void EnumAtt::init(World&, IRSlist* facets) {
  read_facets(facets, "allowable-values", [this](IRSlist& facet) { names.read(facet); });
}

AttWord EnumAtt::get_val(const char* token) const {
  token = or_empty(token);
  int found = names.find(token);
  if (found >= 0) return static_cast<AttWord>(found);
  if (*token != '~')
    messages() << "EnumAtt::get_val: " << token << " is not an allowable value of " << name << '\n';
  return 0;
}

// Kept: small-int-never-clashes
bool SmIntAtt::unify(AttVec* vec, int at, AttWord value, bool store) const {
  if (store && !vec->has(at)) vec->set(at, value);
  return 1;
}

const char* SmIntAtt::str_val(AttWord value, std::string& scratch) const {
  scratch = std::to_string(value & 0xff);
  return scratch.c_str();
}

AttWord SmIntAtt::make_val(IRSlist* form) const {
  return number_in(value_text(form));
}

Subsumption IntAtt::compare(AttWord a, AttWord b) const {
  auto mine = static_cast<std::uint32_t>(a);
  auto theirs = static_cast<std::uint32_t>(b);
  if (mine == theirs) return Subsumption::equal;
  // Kept: smaller-is-more-general
  return mine < theirs ? Subsumption::more_general : Subsumption::more_specific;
}

const char* IntAtt::str_val(AttWord value, std::string& scratch) const {
  scratch = std::to_string(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
  return scratch.c_str();
}

AttWord IntAtt::get_val(const char* token) const {
  return number_in(token);
}

namespace {

constexpr Prototype kScalarAttsTypes[] = {
    attribute_type<BinAtt>(),
    attribute_type<EnumAtt>(),
    attribute_type<SmIntAtt>(),
    attribute_type<IntAtt>(),
};

}  // namespace

constinit const Offer offers::scalar_atts{kScalarAttsTypes};

}  // namespace torvane
