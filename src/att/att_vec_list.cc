// The counted values of list and trace attributes, and the tags under which values of vectors
// travel.
#include "att/att_vec.h"
#include "att/block_pool.h"
#include "support/name_table.h"

namespace torvane {

namespace {

template <class T>
constexpr TypeTag counted_tag(const char* name) {
  TypeTag tag{name};
  tag.life = Life::counted;
  tag.retain = [](Word word) { reinterpret_cast<const T*>(word)->retain(); };
  tag.release = [](Word word) { reinterpret_cast<const T*>(word)->release(); };
  return tag;
}

constexpr TypeTag vec_tag() {
  TypeTag tag = counted_tag<AttVec>("AttVec*");
  tag.of_sentence = [](Word word) { return reinterpret_cast<const AttVec*>(word)->of_sentence; };
  return tag;
}

// Emptied lists and chains wait with their room; a long one is let go.
constexpr int kMostRoom = 64;
constexpr int kMostWaiting = 10000;

template <class T>
Array<T*>& waiting() {
  static auto& objects = *new Array<T*>;
  return objects;
}

template <class T>
Ref<T> take() {
  Array<T*>& objects = waiting<T>();
  if (objects.empty()) return Ref<T>(new T);
  T* object = objects.back();
  objects.pop_back();
  return Ref<T>(object);
}

template <class T>
void give(T* object, int room) {
  if (!BlockPool::recycles() || room > kMostRoom || waiting<T>().count() >= kMostWaiting)
    delete object;
  else
    waiting<T>().append(object);
}

}  // namespace

namespace tags {
constinit const TypeTag att_vec = vec_tag();
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

void AttVecList::destroy(AttVecList* list) {
  list->vecs.clear();
  give(list, list->vecs.capacity());
}

Ref<TraceChain> TraceChain::make() {
  return take<TraceChain>();
}

void TraceChain::destroy(TraceChain* chain) {
  chain->records.clear();
  give(chain, chain->records.capacity());
}

const char* intern_string(const char* text) {
  if (!text) return nullptr;
  static auto& strings = *new NameTable<bool>(1997, byte_compare);
  auto* entry = strings.find(text);
  if (!entry) entry = strings.insert(text, true);
  return entry->key;
}

}  // namespace torvane
