// The counted values of list and trace attributes, and the tags under which values of vectors
// travel.
#include <memory>
#include <utility>

#include "att/att_vec.h"
#include "support/pool.h"

namespace torvane {

namespace {

// Emptied lists and chains wait with their room, 3 MB of it at most. Sentences of 40 words have
// some of more than 60 elements: a parse that is to allocate nothing needs those too.
template <class T>
using Spare = Spares<std::unique_ptr<T>, 2500>;
constexpr int kMostRoom = 160;

template <class T>
Ref<T> take() {
  std::unique_ptr<T> spare = Spare<T>::take();
  return Ref<T>(spare ? spare.release() : new T);
}

template <class T, class Element>
void give(T* object, Array<Element>& elements) {
  elements.clear();
  std::unique_ptr<T> emptied(object);
  if (elements.capacity() <= kMostRoom) Spare<T>::give(std::move(emptied));
}

}  // namespace

namespace tags {
constinit const TypeTag att_vec =
    counted_tag<AttVec>("AttVec*", [](const AttVec& vec) { return vec.era.get(); });
constinit const TypeTag att_vec_list = counted_tag<AttVecList>("AttVecList*");
constinit const TypeTag trace_chain = counted_tag<TraceChain>("TraceChain*");
}  // namespace tags

AttVec* AttVecList::own(int i) {
  if (i < 0 || i >= vecs.count()) return nullptr;
  Ref<AttVec>& vec = vecs[i];
  if (vec && vec->shared()) vec = make_ref<AttVec>(*vec);
  return vec.get();
}

Ref<AttVecList> AttVecList::make() {
  return take<AttVecList>();
}

void AttVecList::end(AttVecList* list) {
  give(list, list->vecs);
}

Ref<TraceChain> TraceChain::make() {
  return take<TraceChain>();
}

void TraceChain::end(TraceChain* chain) {
  give(chain, chain->records);
}

}  // namespace torvane
