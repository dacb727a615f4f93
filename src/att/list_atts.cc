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
bool unify_elements(AttVecList& mine, const AttVecList& theirs, int n, int store) {
  for (int i = 0; i < n; ++i) {
    AttVec* element = store ? mine.own(i) : mine.at(i);
    const AttVec* other = theirs.at(i);
    if (element && other && !element->unify(*other, nullptr, store)) return false;
  }
  return true;
}

// The codes of the first n pairs, combined: incomparable as soon as two disagree.
int compare_elements(const AttVecList& a, const AttVecList& b, int n) {
  int result = subsume::kEqual;
  for (int i = 0; i < n; ++i) {
    if (a.at(i) == b.at(i) || !a.at(i) || !b.at(i)) continue;
    int code = a.at(i)->compare(*b.at(i));
    if (code == subsume::kEqual) continue;
    if (code == subsume::kNotComparable || (result != subsume::kEqual && result != code))
      return subsume::kIncomparable;
    result = code;
    if (result == subsume::kIncomparable) break;
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

void ListAtt::generalize(AttVec* a, const AttVec* b) const {
  if (a->get(index) == 0 || b->get(index) == 0) return AttInterpreter::generalize(a, b);
  if (a->get(index) == b->get(index)) return;
  NestingGuard guard;
  if (!guard) return;
  const AttVecList& theirs = *object(b->get(index));
  int n = object(a->get(index))->length();
  if (n != theirs.length())
    a->undefine(index);
  else
    generalize_elements(*a->own_list(index), theirs, n);
}

void ListAtt::subtract(AttVec* a, const AttVec* b) const {
  if (a->get(index) == 0 || b->get(index) == 0) return AttInterpreter::subtract(a, b);
  NestingGuard guard;
  if (!guard) return;
  const AttVecList& theirs = *object(b->get(index));
  int n = object(a->get(index))->length();
  if (n != theirs.length()) return;
  AttVecList& mine = *a->own_list(index);
  subtract_elements(mine, theirs, n);
  if (all_empty(mine)) a->undefine(index);
}

int ListAtt::unify(AttVec* vec, int at, AttWord value, int store) const {
  if (!vec->has(at)) {
    if (store) vec->set(at, value);
    return 1;
  }
  AttWord current = get(vec);
  if (!value || !current) return value == current;
  if (value == current) return 1;
  NestingGuard guard;
  if (!guard) return 0;
  const AttVecList& theirs = *object(value);
  int n = object(current)->length();
  if (n != theirs.length()) return 0;
  return unify_elements(store ? *vec->own_list(at) : *object(current), theirs, n, store);
}

void ListAtt::modify(AttVec* vec, int at, AttWord value) const {
  AttWord current = vec->get(at);
  if (!value || !current) return vec->set(at, value);
  if (value == current) return;
  NestingGuard guard;
  if (!guard) return;
  AttVecList& mine = *vec->own_list(at);
  const AttVecList& theirs = *object(value);
  int n = common_length(mine, theirs);
  for (int i = 0; i < n; ++i)
    if (AttVec* element = mine.own(i); element && theirs.at(i)) element->modify(*theirs.at(i));
  for (int i = n, length = theirs.length(); i < length; ++i)
    if (theirs.at(i)) mine.vecs.append(make_ref<AttVec>(*theirs.at(i)));
}

int ListAtt::compare(AttWord a, AttWord b) const {
  if (!a || !b || a == b) return AttInterpreter::compare(a, b);
  NestingGuard guard;
  if (!guard || object(a)->length() != object(b)->length()) return subsume::kIncomparable;
  return compare_elements(*object(a), *object(b), object(a)->length());
}

const char* ListAtt::str_val(AttWord value, std::string& scratch) const {
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

AttWord ListAtt::make_val(IRSlist* form) const {
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

void ListAtt::pack(const AttVec* vec, StrBufs& out) const {
  constexpr int kMostPacked = 0x7fff;
  const AttVecList* value = object(get(vec));
  if (!value) return;
  int n = std::min(value->length(), kMostPacked);
  out.add_be16(static_cast<std::uint16_t>(n));
  for (int i = 0; i < n; ++i)
    if (value->at(i)) pack_nested(*value->at(i), out);
}

bool ListAtt::unpack(AttVec* vec, const char*& p, const char* end) const {
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

bool ListAtt::shows(AttWord value) const {
  return !value || !all_empty(*object(value));
}

void StackAtt::generalize(AttVec* a, const AttVec* b) const {
  if (a->get(index) == 0 || b->get(index) == 0) return AttInterpreter::generalize(a, b);
  if (a->get(index) == b->get(index)) return;
  NestingGuard guard;
  if (!guard) return;
  AttVecList& mine = *a->own_list(index);
  const AttVecList& theirs = *object(b->get(index));
  int n = common_length(mine, theirs);
  generalize_elements(mine, theirs, n);
  while (mine.length() > n) mine.vecs.pop_back();
}

void StackAtt::subtract(AttVec* a, const AttVec* b) const {
  if (a->get(index) == 0 || b->get(index) == 0) return AttInterpreter::subtract(a, b);
  NestingGuard guard;
  if (!guard) return;
  AttVecList& mine = *a->own_list(index);
  const AttVecList& theirs = *object(b->get(index));
  subtract_elements(mine, theirs, common_length(mine, theirs));
}

int StackAtt::unify(AttVec* vec, int at, AttWord value, int store) const {
  if (!vec->has(at)) {
    if (store) vec->set(at, value);
    return 1;
  }
  AttWord current = get(vec);
  if (!value || !current) return value == current;
  if (value == current) return 1;
  NestingGuard guard;
  if (!guard) return 0;
  AttVecList& mine = store ? *vec->own_list(at) : *object(current);
  const AttVecList& theirs = *object(value);
  int n = common_length(mine, theirs);
  if (!unify_elements(mine, theirs, n, store)) return 0;
  if (store)
    for (int i = n, length = theirs.length(); i < length; ++i) mine.vecs.append(theirs.vecs[i]);
  return 1;
}

int StackAtt::compare(AttWord a, AttWord b) const {
  if (!a || !b || a == b) return AttInterpreter::compare(a, b);
  NestingGuard guard;
  if (!guard) return subsume::kIncomparable;
  const AttVecList& mine = *object(a);
  const AttVecList& theirs = *object(b);
  int result = compare_elements(mine, theirs, common_length(mine, theirs));
  if (mine.length() == theirs.length()) return result;
  int by_length = mine.length() > theirs.length() ? subsume::kMoreSpecific : subsume::kMoreGeneral;
  if (result != subsume::kEqual && result != by_length) return subsume::kIncomparable;
  return by_length;
}

namespace {

constexpr Prototype kTypes[] = {
    attribute_type<ListAtt>(),
    attribute_type<StackAtt>(),
};

}  // namespace

constinit const Offer offers::list_atts{kTypes};

}  // namespace torvane
