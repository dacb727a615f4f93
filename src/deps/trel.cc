#include "deps/trel.h"

#include "deps/dep_forms.h"
#include "deps/triple.h"

namespace torvane {

namespace tags {
const TypeTag trel{"TRel*", nullptr, Life::counted,
                   [](Word word) { reinterpret_cast<const TRel*>(word)->retain(); },
                   [](Word word) { reinterpret_cast<const TRel*>(word)->release(); }};
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

// `(make-rel NAME TRIPLE ...)`
class MakeRel : public Form<MakeRel, TRelForm> {
 public:
  static constexpr const char* kName = "make-rel";

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

// `(add-propvals EXP TRIPLE ...)`
class AddPropvals : public Form<AddPropvals, TRelForm> {
 public:
  static constexpr const char* kName = "add-propvals";

  void init(World& world, IRSlist* args) override {
    rel_ = get_exp(world, args->nth(0));
    args->pop_front();
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

// `(add-rel-to-deps EXP [sub])`
struct AddRelToDeps : DepTreeComponent<AddRelToDeps, DepTree> {
  static constexpr const char* kName = "add-rel-to-deps";

  void init(World& world, IRSlist* args) override {
    rel_ = get_exp(world, args->nth(0));
    args->pop_front();
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

}  // namespace

void register_trel_forms(World& world) {
  register_form<MakeRel>(world);
  register_form<AddPropvals>(world);
  register_form<AddRelToDeps>(world);
}

}  // namespace torvane
