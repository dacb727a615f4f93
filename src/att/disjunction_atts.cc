#include "att/disjunction_atts.h"

#include "att/attribute_type.h"
#include "att/offers.h"
#include "support/messages.h"

namespace torvane {

template <class Base>
void DisjunctionAtt<Base>::init(World&, IRSlist* facets) {
  this->read_facets(facets, "allowable-values", [this](IRSlist& facet) {
    // Kept: disj8-says-32
    constexpr int kMostValues = 32;  // for either width
    int count = names.read(facet);
    if (count > kMostValues)
      messages() << "The attribute " << this->name << " can only have up to " << kMostValues
                 << " values, " << count << " found.\n";
  });
}

// A defined 0 unifies only with 0.
template <class Base>
bool DisjunctionAtt<Base>::unify(AttVec* vec, int at, AttWord value, bool store) const {
  if (!vec->has(at)) {
    if (store) vec->set(at, value);
    return true;
  }
  AttWord current = this->get(vec);
  if (current == 0 && value == 0) return true;
  AttWord common = current & value;
  if (common == 0) return false;
  if (store) vec->set(at, common);
  return true;
}

template <class Base>
Subsumption DisjunctionAtt<Base>::compare(AttWord a, AttWord b) const {
  auto mine = static_cast<std::uint32_t>(a);
  auto theirs = static_cast<std::uint32_t>(b);
  if (mine == theirs) return Subsumption::equal;
  if (mine == 0 || theirs == 0) return Subsumption::incomparable;
  if ((theirs & ~mine) == 0) return Subsumption::more_general;
  if ((mine & ~theirs) == 0) return Subsumption::more_specific;
  return Subsumption::incomparable;
}

template <class Base>
const char* DisjunctionAtt<Base>::str_val(AttWord value, std::string& scratch) const {
  if (value == 0) return names.at(0);
  scratch.clear();
  for (AttWord i = 1; i <= 32 && names.at(i); ++i) {
    if (((value >> (i - 1)) & 1) == 0) continue;
    if (!scratch.empty()) scratch += ' ';
    scratch += names.at(i);
  }
  return scratch.c_str();
}

template <class Base>
AttWord DisjunctionAtt<Base>::make_val(IRSlist* form) const {
  if (form->is_atom()) return *form->atom == '~' ? 0 : get_val(form->atom);
  AttWord mask = 0;
  for (bool first = true; !form->empty(); first = false) {
    const char* token = form->get_str_val();
    if (!token) continue;
    if (first && *token == '~') return 0;
    mask |= get_val(token);
  }
  return mask;
}

// The table's entry 0 and a name that is not in it come out as bits 31 and 30.
template <class Base>
AttWord DisjunctionAtt<Base>::get_val(const char* token) const {
  token = or_empty(token);
  int found = names.find(token);
  if (found < 0 && *token != '~')
    messages() << this->type_name() << "::get_val: Unknown attribute value " << token << '\n';
  // Kept: unknown-value-sets-a-bit
  return std::uint32_t{1} << (static_cast<unsigned>(found - 1) & 31);
}

template class DisjunctionAtt<Long32Att>;
template class DisjunctionAtt<CharAtt>;

namespace {

constexpr Prototype kDisjunctionAttsTypes[] = {
    attribute_type<Disj8Att>(),
    attribute_type<DisjAtt>(),
};

}  // namespace

constinit const Offer offers::disjunction_atts{kDisjunctionAttsTypes};

}  // namespace torvane
