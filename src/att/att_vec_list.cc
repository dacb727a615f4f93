// The counted values of list and trace attributes, and the tags under which values of vectors
// travel.
#include "att/att_vec.h"
#include "support/pool.h"

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
  tag.era_of = [](Word word) { return reinterpret_cast<const AttVec*>(word)->era.get(); };
  return tag;
}

// Emptied lists and chains wait with their room, so much of it in all.
constexpr int kMostWaiting = 10000;
constexpr int kMostRoom = 400000;

template <class T>
struct Waiting {
  Array<T*> objects;
  int room = 0;
  ~Waiting() {
    for (T* object : objects) delete object;
  }
};
template <class T>
Waiting<T>& waiting() {
  static thread_local Waiting<T> objects;
  return objects;
}

template <class T>
Ref<T> take(int (*room)(const T&)) {
  Waiting<T>& pool = waiting<T>();
  if (pool.objects.empty()) return Ref<T>(new T);
  T* object = pool.objects.back();
  pool.objects.pop_back();
  pool.room -= room(*object);
  return Ref<T>(object);
}

template <class T>
void give(T* object, int room) {
  Waiting<T>& pool = waiting<T>();
  if (!BlockPool::kRecycles || pool.objects.count() >= kMostWaiting ||
      room > kMostRoom - pool.room) {
    delete object;
    return;
  }
  pool.room += room;
  pool.objects.append(object);
}

int room_of(const AttVecList& list) {
  return list.vecs.capacity();
}
int room_of(const TraceChain& chain) {
  return chain.records.capacity();
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
  return take<AttVecList>(room_of);
}

void AttVecList::destroy(AttVecList* list) {
  list->vecs.clear();
  give(list, room_of(*list));
}

Ref<TraceChain> TraceChain::make() {
  return take<TraceChain>(room_of);
}

void TraceChain::destroy(TraceChain* chain) {
  chain->records.clear();
  give(chain, room_of(*chain));
}

}  // namespace torvane
