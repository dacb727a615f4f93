#include "deps/trel.h"

#include "deps/dep_forms.h"
#include "deps/offers.h"
#include "deps/triple.h"

namespace torvane {

namespace tags {
const TypeTag trel = counted_tag<TRel>("TRel*");
}

void TRel::assert_in(Deps& deps) const {
  Deps::Assertion assertion{deps._strings.copy(name.c_str()), {}};
  for (const Triple& triple : triples) {
    assertion.args.push_back({deps._strings.copy(triple.left.c_str()),
                              deps._strings.copy(triple.right.c_str()), triple.weight});
  }
  deps._assertions.append(std::move(assertion));
}

namespace {

std::string text_of(Value value) {
  if (const char* text = value.text()) return text;
  return value.is(tags::integer) ? std::to_string(value.number()) : "";
}

// What the two forms that fill relations share.
class TRelForm : public LExp {
 public:
  TRelForm() { out_type = type_id_of<TRel>(); }

 protected:
  void add_triples(TRel& rel, Value input, int type) const {
    for (const Triple& triple : triples_) {
      std::string left = text_of(triple.first.eval(input, type));
      std::string right = text_of(triple.second.eval(input, type));
      rel.triples.push_back({std::move(left), std::move(right), triple.weight(input, type)});
    }
  }

  std::vector<Triple> triples_;
};

class MakeRel : public Form<MakeRel, TRelForm> {
 public:
  static constexpr const char* kName = "make-rel";
  static constexpr const char* kUsage =
      "`(make-rel NAME (left right [weight]) ...)` a relation with these triples; each part is an "
      "atom or an expression, whose number as a weight counts thousandths";

  void init(World& world, IRSlist* args) override {
    property_ = or_empty(args->get_str_val());
    triples_ = read_triples(world, args);
  }

  Value eval(Value input, int type) override {
    Ref<TRel> rel = make_ref<TRel>(property_);
    add_triples(*rel, input, type);
    result_ = HeldValue(Value::of(rel.get()));
    return result_.get();
  }

 private:
  std::string property_;
  HeldValue result_;  // the last one lives on until no expression runs
};

class AddPropvals : public Form<AddPropvals, TRelForm> {
 public:
  static constexpr const char* kName = "add-propvals";
  static constexpr const char* kUsage =
      "`(add-propvals exp (left right [weight]) ...)` adds triples to the relation that `exp` "
      "gives";

  void init(World& world, IRSlist* args) override {
    rel_ = take_exp(world, *args);
    triples_ = read_triples(world, args);
  }

  Value eval(Value input, int type) override {
    Value value = rel_.eval(input, type);
    auto* rel = value.as<TRel>();
    if (!rel) return Value();
    add_triples(*rel, input, type);
    return value;
  }

 private:
  ExpPtr rel_;
};

struct AddRelToDeps : DepTreeComponent<AddRelToDeps, DepTree> {
  static constexpr const char* kName = "add-rel-to-deps";
  static constexpr const char* kUsage =
      "`(add-rel-to-deps exp [sub])` asserts of the node's tree the relation that `exp` gives; the "
      "node";

  void init(World& world, IRSlist* args) override {
    rel_ = take_exp(world, *args);
    LAdaptor::init(world, args);
  }

  DepTree* component(DepTree& node) const {
    const TRel* rel = rel_.eval(Value::of(&node), in_type).as<TRel>();
    if (!rel) return nullptr;
    rel->assert_in(*node._deps);
    return &node;
  }

 private:
  ExpPtr rel_;
};

constexpr Prototype kTrelForms[] = {
    form<MakeRel>(),
    form<AddPropvals>(),
    form<AddRelToDeps>(),
};

}  // namespace

constinit const Offer offers::trel{kTrelForms};

}  // namespace torvane
