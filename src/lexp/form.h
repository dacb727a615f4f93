// The idioms in which forms are written. A form says its name, its usage, its types and its one
// step; the base does what all forms share, and its file's table enters it into the language.
#pragma once

#include <memory>
#include <type_traits>

#include "lexp/lexp.h"
#include "shell/offer.h"

namespace torvane {

/// The name of T in the configuration language, such as "LexItem*": taken from its tag, so that a
/// registration cannot misspell one by accident.
template <class T>
const char* type_name_of() {
  if constexpr (std::is_same_v<T, const char*>) {
    return "char*";
  } else if constexpr (std::is_integral_v<T>) {
    return "int";
  } else if constexpr (std::is_same_v<T, Value> || std::is_void_v<T>) {
    return nullptr;
  } else {
    return ValueTraits<T>::tag().name;
  }
}
template <class T>
int type_id_of() {
  static const int id = own_type_id(type_name_of<T>());
  return id;
}

/// Supplies `name` and `copy` of a form class D whose members copy deeply by themselves. A class
/// that is entered also has a line for the reference, or a text that `objects` prints, or both:
///   static constexpr const char* kName = "pitem-low";
///   static constexpr const char* kUsage = "`(pitem-low [exp])` the first word index";
///   static constexpr const char* kDoc = "(pitem-low [<lexp>])";
template <class D, class Base = LExp>
class Form : public Base {
 public:
  using Base::Base;
  const char* name() const override { return D::kName; }
  std::unique_ptr<LExp> copy() const override {
    return std::make_unique<D>(static_cast<const D&>(*this));
  }
};

namespace form_detail {
template <class R>
Value to_value(R result) {
  if constexpr (std::is_same_v<R, Value>) {
    return result;
  } else if constexpr (std::is_same_v<R, bool>) {
    return Value::truth(result);
  } else if constexpr (std::is_integral_v<R>) {
    return Value::integer(result);
  } else if constexpr (std::is_pointer_v<R>) {
    return Value::of(result);
  }
}
template <class A>
struct Pointee {
  using type = std::remove_const_t<std::remove_pointer_t<A>>;
};
template <>
struct Pointee<const char*> {
  using type = const char*;
};
template <class A>
A from_value(Value v) {
  if constexpr (std::is_same_v<A, Value>) {
    return v;
  } else if constexpr (std::is_same_v<A, const char*>) {
    return v.text();
  } else if constexpr (std::is_integral_v<A>) {
    return static_cast<A>(v.number());
  } else {
    return v.template as<typename Pointee<A>::type>();
  }
}
}  // namespace form_detail

/// An adaptor from a T (by reference; a null or foreign input gives 0) to an R:
///   struct PItemLow : Adaptor<PItemLow, PItem, int> {
///     static constexpr const char* kName = "pitem-low";
///     int step(PItem& item) const { return item._low; }
///   };
/// R is an integer, `const char*` never (give a Value with the text's life), a pointer, or a Value
/// with the declared type `Out`.
template <class D, class T, class R, class Out = std::remove_const_t<std::remove_pointer_t<R>>>
class Adaptor : public Form<D, LAdaptor> {
 public:
  Adaptor() {
    this->in_type = type_id_of<T>();
    this->mid_type = type_id_of<Out>();
  }
  Value convert(Value input) override {
    T* object = input.as<T>();
    if (!object) return Value();
    return form_detail::to_value(static_cast<D*>(this)->step(*object));
  }
};

/// An adaptor from a text to a text (a null or foreign input gives 0):
///   Value step(const char* text, Value input)
template <class D>
class TextAdaptor : public Form<D, LAdaptor> {
 public:
  TextAdaptor() { this->in_type = this->mid_type = type_id_of<const char*>(); }
  Value convert(Value input) override {
    const char* text = input.text();
    return text ? static_cast<D*>(this)->step(text, input) : Value();
  }
};

namespace form_detail {
template <class D>
constexpr const char* usage_of() {
  if constexpr (requires { D::kUsage; }) return D::kUsage;
  return nullptr;
}
template <class D>
constexpr const char* doc_of() {
  if constexpr (requires { D::kDoc; }) return D::kDoc;
  return nullptr;
}
}  // namespace form_detail

/// The row of a form class for its file's table. The form itself, without its parts, reaches so
/// far.
template <class D, Reach reach = Reach::anything>
constexpr Prototype form() {
  using namespace form_detail;
  return {kExpressions, D::kName, usage_of<D>(), doc_of<D>(),
          [](World& world, const Prototype& row) {
            auto prototype = std::make_unique<D>();
            if (reach != Reach::anything) prototype->own_reach = reach;
            register_lexp(world, std::move(prototype), row.name, row.doc);
          }};
}

/// The same for a form that looks at its input and changes nothing, as far as its parts do not.
template <class D>
constexpr Prototype pure_form() {
  return form<D, Reach::input>();
}

namespace form_detail {
// Calls `fn` with its arguments; a function may take its world in front of them.
template <class R, class In, class... A, class Fn, std::size_t... I>
Value call(Fn fn, const Value* v, std::index_sequence<I...>) {
  if constexpr (std::is_void_v<R>) {
    fn(from_value<In>(v[0]), from_value<A>(v[I + 1])...);
    return Value();
  } else {
    return to_value<R>(fn(from_value<In>(v[0]), from_value<A>(v[I + 1])...));
  }
}
template <class Out, class In, class... A>
void enter_call(World& world, const Prototype& row, MArgExp::Fn fn) {
  static_assert(sizeof...(A) <= MArgExp::kMostArgs);
  // Kept: zero-arguments-take-one
  auto exp = std::make_unique<MArgExp>(row.name, fn,
                                       sizeof...(A) == 0 ? 1 : static_cast<int>(sizeof...(A)));
  exp->in_type = type_id_of<typename Pointee<In>::type>();
  exp->out_type = type_id_of<typename Pointee<Out>::type>();
  (exp->arg_types.append(type_id_of<typename Pointee<A>::type>()), ...);
  register_lexp(world, std::move(exp), row.name, row.doc);
}
/// What a function is declared to give: its own result, if no other type is named.
template <class R, class Out>
using Declared = std::conditional_t<std::is_void_v<Out>, R, Out>;
template <auto fn, class Out, class R, class In, class... A>
void enter_function(World& world, const Prototype& row, R (*)(In, A...)) {
  enter_call<Declared<R, Out>, In, A...>(world, row, [](World&, const Value* v) {
    return call<R, In, A...>(fn, v, std::index_sequence_for<A...>{});
  });
}
template <auto fn, class Out, class R, class In, class... A>
void enter_function(World& world, const Prototype& row, R (*)(World&, In, A...)) {
  enter_call<Declared<R, Out>, In, A...>(world, row, [](World& its_world, const Value* v) {
    auto bound = [&](In input, A... args) { return fn(its_world, input, args...); };
    return call<R, In, A...>(bound, v, std::index_sequence_for<A...>{});
  });
}
}  // namespace form_detail

/// The row of a plain function: `R fn([World& world,] In input, A1, ...)`, with In and the Ai of
/// types T*, const char*, integers or Value. Arity and type names come from the signature; a Value
/// that is given may be declared as an `Out`.
template <auto fn, class Out = void>
constexpr Prototype function(const char* name, const char* usage, const char* doc = nullptr) {
  return {kExpressions, name, usage, doc, [](World& world, const Prototype& row) {
            form_detail::enter_function<fn, Out>(world, row, fn);
          }};
}

}  // namespace torvane
