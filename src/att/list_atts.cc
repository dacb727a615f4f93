// Lists and stacks of vectors.
#include <algorithm>
#include <sstream>

#include "att/attribute_type.h"
#include "att/nested_atts.h"
#include "att/nesting.h"
#include "att/offers.h"
#include "support/big_endian.h"

namespace torvane {

namespace {

int common_length(const AttVecList& a, const AttVecList& b) {
  return std::min(a.length(), b.length());
}

// Unifies the first n elements pairwise; with `store` the list is already of one owner.
bool unify_elements(AttVecList& mine, const AttVecList& theirs, int n, bool store) {
  for (int i = 0; i < n; ++i) {
    AttVec* element = store ? mine.own(i) : mine.at(i);
    const AttVec* other = theirs.at(i);
    if (element && other && !element->unify(*other, nullptr, store)) return false;
  }
  return true;
}

// The codes of the first n pairs, combined: incomparable as soon as two disagree.
Subsumption compare_elements(const AttVecList& a, const AttVecList& b, int n) {
  Subsumption result = Subsumption::equal;
  for (int i = 0; i < n; ++i) {
    if (a.at(i) == b.at(i) || !a.at(i) || !b.at(i)) continue;
    Subsumption code = a.at(i)->compare(*b.at(i));
    if (code == Subsumption::equal) continue;
    if (code == Subsumption::not_comparable || (result != Subsumption::equal && result != code))
      return Subsumption::incomparable;
    result = code;
    if (result == Subsumption::incomparable) break;
  }
  return result;
}

void subtract_elements(AttVecList& mine, const AttVecList& theirs, int n) {
  for (int i = 0; i < n; ++i)
    if (AttVec* element = mine.own(i); element && theirs.at(i)) element->subtract(*theirs.at(i));
}

void generalize_elements(AttVecList& mine, const AttVecList& theirs, int n) {
  for (int i = 0; i < n; ++i)
    if (AttVec* element = mine.own(i); element && theirs.at(i)) element->generalize(*theirs.at(i));
}

bool all_empty(const AttVecList& list) {
  return std::all_of(list.vecs.begin(), list.vecs.end(),
                     [](const Ref<AttVec>& vec) { return !vec || vec->is_empty(); });
}

}  // namespace

void print_vectors(std::ostream& out, const AttVecList& list, const char* before) {
  for (const Ref<AttVec>& vec : list.vecs)
    if (vec) print_vectors(out, *vec, before);
}

const char* ListOfVecsAtt::str_val(AttWord value, std::string& scratch) const {
  if (!value) return nullptr;
  std::ostringstream out;
  const char* before = "";
  for (const Ref<AttVec>& vec : object(value)->vecs) {
    if (!vec) continue;
    print_vectors(out, *vec, before);
    before = " ";
  }
  scratch = out.str();
  return scratch.c_str();
}

AttWord ListOfVecsAtt::make_val(IRSlist* form) const {
  if (form->empty()) return 0;
  NestingGuard guard;
  if (!guard) return 0;
  Ref<AttVecList> list_value = AttVecList::make();
  while (auto item = form->pop_front())
    list_value->vecs.append(make_ref<AttVec>(item.get(), nested_type()));
  AttVecList* value = list_value.leak();
  --value->refcount;  // whoever stores it counts it
  return word(value);
}

void ListOfVecsAtt::pack(const AttVec* vec, StrBufs& out) const {
  constexpr int kMostPacked = 0x7fff;
  const AttVecList* value = object(get(vec));
  if (!value) return;
  int n = std::min(value->length(), kMostPacked);
  out.add_be16(static_cast<std::uint16_t>(n));
  for (int i = 0; i < n; ++i)
    if (value->at(i)) pack_nested(*value->at(i), out);
}

bool ListOfVecsAtt::unpack(AttVec* vec, const char*& p, const char* end) const {
  if (end - p < 2) return false;
  int n = static_cast<std::int16_t>(load_be16(p));
  p += 2;
  Ref<AttVecList> value = AttVecList::make();
  for (int i = 0; i < n; ++i) {
    Ref<AttVec> element = make_ref<AttVec>(nested_type());
    if (!unpack_nested(*element, p, end)) return false;
    value->vecs.append(std::move(element));
  }
  set(vec, word(value.get()));
  return true;
}

bool ListOfVecsAtt::shows(AttWord value) const {
  return !value || !all_empty(*object(value));
}

void ListOfVecsAtt::modify_with(AttVecList& mine, const AttVecList& theirs) const {
  int n = common_length(mine, theirs);
  for (int i = 0; i < n; ++i)
    if (AttVec* element = mine.own(i); element && theirs.at(i)) element->modify(*theirs.at(i));
  for (int i = n, length = theirs.length(); i < length; ++i)
    if (theirs.at(i)) mine.vecs.append(make_ref<AttVec>(*theirs.at(i)));
}

void ListAtt::generalize_with(AttVec* a, const AttVecList& theirs) const {
  int n = theirs.length();
  if (object(a->get(index))->length() != n)
    a->undefine(index);
  else
    generalize_elements(*a->own<AttVecList>(index), theirs, n);
}

void ListAtt::subtract_from(AttVec* a, const AttVecList& theirs) const {
  int n = theirs.length();
  if (object(a->get(index))->length() != n) return;
  AttVecList& mine = *a->own<AttVecList>(index);
  subtract_elements(mine, theirs, n);
  if (all_empty(mine)) a->undefine(index);
}

bool ListAtt::unify_with(AttVec* vec, int at, const AttVecList& theirs, bool store) const {
  int n = theirs.length();
  return object(get(vec))->length() == n && unify_elements(mine(vec, at, store), theirs, n, store);
}

Subsumption ListAtt::compare_with(const AttVecList& mine, const AttVecList& theirs) const {
  if (mine.length() != theirs.length()) return Subsumption::incomparable;
  return compare_elements(mine, theirs, mine.length());
}

void StackAtt::generalize_with(AttVec* a, const AttVecList& theirs) const {
  AttVecList& mine = *a->own<AttVecList>(index);
  int n = common_length(mine, theirs);
  generalize_elements(mine, theirs, n);
  while (mine.length() > n) mine.vecs.pop_back();
}

void StackAtt::subtract_from(AttVec* a, const AttVecList& theirs) const {
  AttVecList& mine = *a->own<AttVecList>(index);
  subtract_elements(mine, theirs, common_length(mine, theirs));
}

bool StackAtt::unify_with(AttVec* vec, int at, const AttVecList& theirs, bool store) const {
  AttVecList& own = mine(vec, at, store);
  int n = common_length(own, theirs);
  if (!unify_elements(own, theirs, n, store)) return false;
  if (store)
    for (int i = n, length = theirs.length(); i < length; ++i) own.vecs.append(theirs.vecs[i]);
  return true;
}

Subsumption StackAtt::compare_with(const AttVecList& mine, const AttVecList& theirs) const {
  Subsumption result = compare_elements(mine, theirs, common_length(mine, theirs));
  if (mine.length() == theirs.length()) return result;
  Subsumption by_length =
      mine.length() > theirs.length() ? Subsumption::more_specific : Subsumption::more_general;
  if (result != Subsumption::equal && result != by_length) return Subsumption::incomparable;
  return by_length;
}

namespace {

constexpr Prototype kListAttsTypes[] = {
    attribute_type<ListAtt>(),
    attribute_type<StackAtt>(),
};

}  // namespace

constinit const Offer offers::list_atts{kListAttsTypes};

}  // namespace torvane
