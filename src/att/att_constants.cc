// The forms that are constants: a vector, a set of attributes, the index of an attribute.
#include "att/att_pred.h"
#include "att/attributes.h"
#include "att/offers.h"

namespace torvane {

namespace {

// A vector. What is done to it stays done, since it is the expression's own from one evaluation to
// the next.
class AttVecConst : public Form<AttVecConst, LConst> {
 public:
  static constexpr const char* kName = "attvec";
  static constexpr const char* kUsage = "`(attvec [type] (item ...))` a constant vector";
  AttVecConst() { out_type = type_id_of<AttVec>(); }
  void init(World& world, IRSlist* args) override {
    vec_ = read_vector(world, *args);
    value = Value::of(vec_.get());
  }

 private:
  Ref<AttVec> vec_;
};

// A set of attributes that lives as long as anybody holds it.
struct HeldSet : LBitSet, Counted<HeldSet> {
  explicit HeldSet(LBitSet set) : LBitSet(std::move(set)) {}
};
HeldSet* held_set(Word word) {
  return static_cast<HeldSet*>(reinterpret_cast<LBitSet*>(word));
}

constinit const TypeTag kHeldSet{"LBitSet*", &tags::bit_set, Life::counted,
                                 [](Word word) { held_set(word)->retain(); },
                                 [](Word word) { held_set(word)->drop(); }};

}  // namespace

template <>
struct ValueTraits<HeldSet> {
  using Base = LBitSet;
  static const TypeTag& tag() { return kHeldSet; }
};

namespace {

class AttSetConst : public Form<AttSetConst, LConst> {
 public:
  static constexpr const char* kName = "att-set";
  static constexpr const char* kUsage =
      "`(att-set [type] [not] (att ...))` a set of attributes, or with `not` all others";
  AttSetConst() { out_type = type_id_of<LBitSet>(); }
  void init(World& world, IRSlist* args) override {
    bool negated = take_not(*args);
    AttInterpreterList* type = take_att_type(world, *args);
    negated = take_not(*args) || negated;
    LBitSet set = find_att_set(type, args->pop_front().get());
    set_ = make_ref<HeldSet>(negated ? set.complement() : set);
    value = Value::of(set_.get());
  }

 private:
  static bool take_not(IRSlist& args) {
    if (!same_word(args.nth_str_val(0), "not")) return false;
    args.pop_front();
    return true;
  }

  Ref<HeldSet> set_;
};

class AttIndex : public Form<AttIndex, LConst> {
 public:
  static constexpr const char* kName = "att-index";
  static constexpr const char* kUsage =
      "`(att-index [type] att)` the attribute's index, -1 if unknown";
  AttIndex() { out_type = type_id_of<int>(); }
  void init(World& world, IRSlist* args) override {
    const AttInterpreterList* current = attributes(world).current;
    const char* type = args->length() > 1 ? args->get_str_val()
                       : current          ? current->name.c_str()
                                          : nullptr;
    value = Value::integer(get_att(world, type, args->get_str_val()));
  }
};

constexpr Prototype kAttConstantsForms[] = {
    form<AttVecConst>(),
    form<AttSetConst>(),
    form<AttIndex>(),
};

}  // namespace

constinit const Offer offers::att_constants{kAttConstantsForms};

}  // namespace torvane
