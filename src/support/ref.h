// Counted ownership: an object that knows its owners, and the handle that counts.
#pragma once

#include <cstdint>
#include <utility>

namespace torvane {

/// Base of an object with a count of owners. The owner that drops it last ends it:
/// through `T::end(T*)` if T has one of its own (a pool), else with delete.
template <class T>
class Counted {
 public:
  void retain() const { ++refcount; }
  void drop() const {
    if (--refcount == 0 && !lent) T::end(const_cast<T*>(static_cast<const T*>(this)));
  }
  /// More than one owner: whoever wants to change the object copies it first.
  bool shared() const { return refcount > 1; }
  static void end(T* object) { delete object; }

  mutable std::int32_t refcount = 0;
  mutable bool lent = false;  ///< stays for a while without an owner, too: see `lend`

 protected:
  Counted() = default;
  Counted(const Counted&) {}
  Counted& operator=(const Counted&) { return *this; }
  ~Counted() = default;
};

/// A handle that holds one count of `T`; null owns nothing.
template <class T>
class Ref {
 public:
  Ref() = default;
  explicit Ref(T* object) : object_(object) {
    if (object_) object_->retain();
  }
  Ref(const Ref& other) : Ref(other.object_) {}
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Ref& operator=(Ref other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Ref() {
    if (object_) object_->drop();
  }

  T* get() const { return object_; }
  T* operator->() const { return object_; }
  T& operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }
  void reset() { Ref().swap(*this); }
  void swap(Ref& other) noexcept { std::swap(object_, other.object_); }
  /// Gives the count away: the caller owns it now.
  T* leak() { return std::exchange(object_, nullptr); }

  friend bool operator==(const Ref& a, const Ref& b) { return a.object_ == b.object_; }

 private:
  T* object_ = nullptr;
};

template <class T, class... Args>
Ref<T> make_ref(Args&&... args) {
  return Ref<T>(new T(std::forward<Args>(args)...));
}

}  // namespace torvane
