// The forms in which a grammar's conditions read an item, and change it in flight.
#include <string>

#include "lexp/form.h"
#include "parser/chart/p_item.h"
#include "parser/forms/offers.h"
#include "parser/grammar/syntax_atts.h"
#include "support/text.h"

namespace torvane {
namespace {

struct PItem2AttVec : Adaptor<PItem2AttVec, PItem, AttVec*> {
  static constexpr const char* kName = "pitem-attvec";
  static constexpr const char* kDoc =
      "(pitem-attvec) converts a PItem to its attribute value vector";
  AttVec* step(PItem& item) const { return item._atts.get(); }
};

struct PItem2Modifier : Adaptor<PItem2Modifier, PItem, PItem*> {
  static constexpr const char* kName = "pitem-modifier";
  static constexpr const char* kDoc = "(pitem-modifier) converts a PItem to its modifier";
  PItem* step(PItem& item) const { return item._head_child ? item._modifier : nullptr; }
};

struct PItem2DepRel : Adaptor<PItem2DepRel, PItem, const Link*> {
  static constexpr const char* kName = "pitem-deprel";
  static constexpr const char* kDoc = "(pitem-deprel) converts a PItem to its deprel";
  const Link* step(PItem& item) const { return item._link; }
};

struct PItemHeadChild : Adaptor<PItemHeadChild, PItem, PItem*> {
  static constexpr const char* kName = "pitem-head-child";
  static constexpr const char* kUsage =
      "`(pitem-head-child [exp])` the item that the modifiers were added to";
  PItem* step(PItem& item) const { return head_child(&item); }
};

struct PItemModifiee : Adaptor<PItemModifiee, PItem, PItem*> {
  static constexpr const char* kName = "pitem-modifiee";
  static constexpr const char* kUsage =
      "`(pitem-modifiee [exp])` the item without the modifier of the last step";
  PItem* step(PItem& item) const { return modifiee(&item); }
};

/// The modifier that came by a relation, on the way down the head children.
struct GetModifierByType : Adaptor<GetModifierByType, PItem, PItem*> {
  static constexpr const char* kName = "get-modifier-by-type";
  static constexpr const char* kUsage =
      "`(get-modifier-by-type REL [exp])` the modifier of that relation";
  void init(World& world, IRSlist* args) override {
    type_ = Name(or_empty(args->get_str_val()));
    LAdaptor::init(world, args);
  }
  PItem* step(PItem& item) const {
    for (PItem* x = &item; x->_head_child && x->_link; x = x->_head_child)
      if (x->_link->type() == type_) return x->_modifier;
    return nullptr;
  }

 private:
  Name type_;
};

struct PItemLow : Adaptor<PItemLow, PItem, int> {
  static constexpr const char* kName = "pitem-low";
  static constexpr const char* kUsage = "`(pitem-low [exp])` the first word index";
  int step(PItem& item) const { return item._low; }
};

struct PItemHigh : Adaptor<PItemHigh, PItem, int> {
  static constexpr const char* kName = "pitem-high";
  static constexpr const char* kUsage = "`(pitem-high [exp])` the last word index";
  int step(PItem& item) const { return item._high; }
};

struct PItemLength : Adaptor<PItemLength, PItem, int> {
  static constexpr const char* kName = "pitem-length";
  static constexpr const char* kUsage = "`(pitem-length [exp])` the number of words less one";
  // Kept: pitem-length-one-less
  int step(PItem& item) const { return item._high - item._low; }
};

struct DepRelType : Adaptor<DepRelType, Link, Value, const char*> {
  static constexpr const char* kName = "deprel-type";
  static constexpr const char* kUsage = "`(deprel-type [exp])` the name of a relation";
  Value step(Link& link) const { return Value::constant(link.type().c_str()); }
};

/// A direct form on an item; 0 for anything else.
template <class D>
struct ItemForm : Form<D> {
  ItemForm() { this->in_type = type_id_of<PItem>(); }
  Value eval(Value input, int input_type) override {
    if (!this->accepts(input_type)) return Value();
    PItem* item = input.as<PItem>();
    return item ? static_cast<D*>(this)->apply(*item) : Value();
  }
};

struct PItemAddWeight : ItemForm<PItemAddWeight> {
  static constexpr const char* kName = "pitem-add-weight";
  static constexpr const char* kUsage = "`(pitem-add-weight N)` adds to the item's weight";
  PItemAddWeight() { out_type = in_type; }
  void init(World&, IRSlist* args) override { weight_ = args->get_float_val(); }
  Value apply(PItem& item) const {
    item._weight += weight_;
    return Value::of(&item);
  }

 private:
  float weight_ = 0;
};

struct HeadFirst : ItemForm<HeadFirst> {
  static constexpr const char* kName = "head-first";
  static constexpr const char* kUsage =
      "`(head-first)` no step of the head's chain reaches further left";
  Value apply(const PItem& item) const {
    for (const PItem* x = &item; x->_head_child; x = x->_head_child)
      if (x->_head_child->_low > x->_low) return Value();
    return Value::truth(true);
  }
};

struct HeadLast : ItemForm<HeadLast> {
  static constexpr const char* kName = "head-last";
  static constexpr const char* kUsage =
      "`(head-last)` no step of the head's chain reaches further right";
  Value apply(const PItem& item) const {
    for (const PItem* x = &item; x->_head_child; x = x->_head_child)
      if (x->_high > x->_head_child->_high) return Value();
    return Value::truth(true);
  }
};

/// Lets the first displaced constituent of an item remember the modifier it was merged with.
struct SetTraceAttOfPred : ItemForm<SetTraceAttOfPred> {
  static constexpr const char* kName = "set-trace-att-of-pred";
  static constexpr const char* kUsage =
      "`(set-trace-att-of-pred)` the first displaced constituent remembers the modifier";
  SetTraceAttOfPred() { out_type = in_type; }
  Value apply(PItem& item) const {
    const SyntaxAtts& syn = syntax_atts(*item._atts);
    AttVecList* move = own_list(*item._atts, syn.move);
    AttVec* element = move ? move->own(0) : nullptr;
    if (element && readable(*element, syn.trace)) {
      Ref<TraceChain> trace(element->own_trace(syn.trace));
      if (!trace) {
        trace = TraceChain::make();
        store_att(*element, syn.trace, trace.get());
      }
      Name role = trace->records.empty() ? Name() : trace->records[0].role;
      trace->records.insert_at(0, {role, item._head_child ? item._modifier : nullptr});
    }
    return Value::of(&item);
  }
};

constexpr Prototype kPitemForms[] = {
    pure_form<PItem2AttVec>(),
    form<PItem2Modifier>(),
    form<PItem2DepRel>(),
    form<PItemHeadChild>(),
    form<PItemModifiee>(),
    form<GetModifierByType>(),
    pure_form<PItemLow>(),
    pure_form<PItemHigh>(),
    pure_form<PItemLength>(),
    form<DepRelType>(),
    form<PItemAddWeight, Reach::change>(),
    form<HeadFirst>(),
    form<HeadLast>(),
    form<SetTraceAttOfPred>(),
};

}  // namespace

constinit const Offer offers::pitem_forms{kPitemForms};

}  // namespace torvane
