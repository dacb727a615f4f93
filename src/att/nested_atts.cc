// What nested attributes share: facets, printing, and the attribute of one vector.
#include "att/nested_atts.h"

#include <bit>
#include <sstream>

#include "att/attribute_type.h"
#include "att/attributes.h"
#include "att/nesting.h"
#include "att/offers.h"

namespace torvane {

bool is_signed_name(const IRSlist* item) {
  return item && item->is_atom() &&
         (*item->atom == '+' || *item->atom == '-' || *item->atom == '~');
}

template <class T>
void ComplexAtt<T>::init(World& world, IRSlist* facets) {
  this->read_facets(facets, "interpreter",
                    [&](IRSlist& facet) { nested = find_att_list(world, facet.get_str_val()); });
}

template <class T>
void ComplexAtt<T>::print(std::ostream& out, const AttVec* vec) const {
  AttWord value = this->get(vec);
  if (!value) {
    out << '~' << this->name;
  } else if (this->shows(value)) {
    // Kept: empty-nested-is-hidden
    out << '(' << this->name;
    print_vectors(out, *this->object(value), " ");
    out << ')';
  }
}

template class ComplexAtt<AttVec>;
template class ComplexAtt<AttVecList>;

void print_vectors(std::ostream& out, const AttVec& vec, const char* before) {
  out << before;
  vec.print(out);
}

namespace {

// A value that is unified with itself stays as it is, but for the traces in it, to which their own
// records are added. Traces stand in displaced constituents, so that few vectors tell; aliases that
// use one another can be as a tree of any size, but have none.
constexpr int kMostLookedAt = 1000;

bool has_trace(const AttVecList& list, int& left);

bool has_trace(const AttVec& vec, int& left) {
  if (--left < 0 || !vec.interpreters) return false;
  const AttInterpreterList& type = *vec.interpreters;
  for (int w = 0; w < vec.defined.word_count(); ++w)
    for (std::uint32_t bits = vec.defined.word(w) & type.counted_atts.word(w); bits;
         bits &= bits - 1) {
      const int index = w * 32 + std::countr_zero(bits);
      const AttWord value = vec.get(index);
      if (!value) continue;
      const Holds holds = type.slots[index].holds;
      if (holds == Holds::trace) return true;
      if (holds == Holds::vec && has_trace(*reinterpret_cast<const AttVec*>(value), left))
        return true;
      if (holds == Holds::list && has_trace(*reinterpret_cast<const AttVecList*>(value), left))
        return true;
    }
  return false;
}

bool has_trace(const AttVecList& list, int& left) {
  for (const Ref<AttVec>& vec : list.vecs)
    if (vec && has_trace(*vec, left)) return true;
  return false;
}

template <class T>
bool grows_by_itself(const T& value) {
  int left = kMostLookedAt;
  return has_trace(value, left);
}

}  // namespace

template <class D, class Base>
void NestedAtt<D, Base>::generalize(AttVec* a, const AttVec* b) const {
  AttWord mine = a->get(this->index), theirs = b->get(this->index);
  if (!mine || !theirs) return AttInterpreter::generalize(a, b);
  if (mine == theirs) return;
  if (NestingGuard guard; guard) derived().generalize_with(a, *this->object(theirs));
}

template <class D, class Base>
void NestedAtt<D, Base>::subtract(AttVec* a, const AttVec* b) const {
  AttWord theirs = b->get(this->index);
  if (!a->get(this->index) || !theirs) return AttInterpreter::subtract(a, b);
  if (NestingGuard guard; guard) derived().subtract_from(a, *this->object(theirs));
}

template <class D, class Base>
bool NestedAtt<D, Base>::unify(AttVec* vec, int at, AttWord value, bool store) const {
  if (auto known = this->unify_outside(vec, at, value, store)) return *known;
  if (value == this->get(vec) && !(store && grows_by_itself(*this->object(value)))) return true;
  NestingGuard guard;
  return guard && derived().unify_with(vec, at, *this->object(value), store);
}

template <class D, class Base>
void NestedAtt<D, Base>::modify(AttVec* vec, int at, AttWord value) const {
  AttWord current = vec->get(at);
  if (!value || !current) return vec->set(at, value);
  if (value == current) return;
  NestingGuard guard;
  if (guard) derived().modify_with(*vec->own<typename Base::Nested>(at), *this->object(value));
}

template <class D, class Base>
Subsumption NestedAtt<D, Base>::compare(AttWord a, AttWord b) const {
  if (!a || !b || a == b) return AttInterpreter::compare(a, b);
  NestingGuard guard;
  return guard ? derived().compare_with(*this->object(a), *this->object(b))
               : Subsumption::incomparable;
}

template class NestedAtt<VecAtt, ComplexAtt<AttVec>>;
template class NestedAtt<ListAtt, ListOfVecsAtt>;
template class NestedAtt<StackAtt, ListOfVecsAtt>;

void VecAtt::generalize_with(AttVec* a, const AttVec& theirs) const {
  a->own<AttVec>(index)->generalize(theirs);
}

void VecAtt::subtract_from(AttVec* a, const AttVec& theirs) const {
  AttWord mine = a->get(index);
  if (object(mine) == &theirs || object(mine)->compare(theirs) == Subsumption::equal)
    a->undefine(index);
  else
    a->own<AttVec>(index)->subtract(theirs);
}

bool VecAtt::unify_with(AttVec* vec, int at, const AttVec& theirs, bool store) const {
  return mine(vec, at, store).unify(theirs, nullptr, store);
}

void VecAtt::modify_with(AttVec& mine, const AttVec& theirs) const {
  mine.modify(theirs);
}

Subsumption VecAtt::compare_with(const AttVec& mine, const AttVec& theirs) const {
  return mine.compare(theirs);
}

const char* VecAtt::str_val(AttWord value, std::string& scratch) const {
  if (!value) return nullptr;
  std::ostringstream out;
  print_vectors(out, *object(value), "");
  scratch = out.str();
  return scratch.c_str();
}

// A printed vector stands in a list of its own, `(v (+a (k x)))`, a written one does not: `(v +a (k
// x))`.
AttWord VecAtt::make_val(IRSlist* form) const {
  if (form->empty()) return 0;
  NestingGuard guard;
  if (!guard) return 0;
  IRSlist* only = form->length() == 1 ? form->nth(0) : nullptr;
  const IRSlist* first = only && only->is_list() ? only->nth(0) : nullptr;
  bool printed = first && (first->is_list() || is_signed_name(first));
  return word(new AttVec(printed ? only : form, nested_type()));
}

void VecAtt::pack(const AttVec* vec, StrBufs& out) const {
  if (const AttVec* value = object(get(vec))) pack_nested(*value, out);
}

bool VecAtt::unpack(AttVec* vec, const char*& p, const char* end) const {
  Ref<AttVec> value = make_ref<AttVec>(nested_type());
  if (!unpack_nested(*value, p, end)) return false;
  set(vec, word(value.get()));
  return true;
}

AttWord VecAtt::share(AttWord value) const {
  if (!value || !object(value)->handed_out) return CountedAtt::share(value);
  NestingGuard guard;
  return guard ? word(make_ref<AttVec>(*object(value)).leak()) : 0;
}

bool VecAtt::shows(AttWord value) const {
  return !value || !object(value)->is_empty();
}

void pack_nested(const AttVec& vec, StrBufs& out) {
  NestingGuard guard;
  if (guard) vec.pack(out);
}

bool unpack_nested(AttVec& vec, const char*& p, const char* end) {
  NestingGuard guard;
  return guard && vec.unpack(p, end);
}

namespace {

constexpr Prototype kNestedAttsTypes[] = {
    attribute_type<VecAtt>(),
};

}  // namespace

constinit const Offer offers::nested_atts{kNestedAttsTypes};

}  // namespace torvane
