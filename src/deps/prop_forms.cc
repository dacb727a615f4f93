// Reading and storing the properties of nodes.
#include <string>
#include <vector>

#include "deps/dep_forms.h"
#include "deps/offers.h"
#include "deps/props.h"
#include "deps/trees.h"
#include "deps/triple.h"
#include "lexp/expressions.h"

namespace torvane {

namespace {

// A form of one atom, as `ValType::parse` takes it.
struct AtomForm {
  explicit AtomForm(const char* text) {
    auto item = std::make_unique<IRSlist>();
    item->atom = const_cast<char*>(text);
    form.append(std::move(item));
  }
  IRSlist form;
};

// `(get-prop NAME [sub])`, or `(get-prop (NAME VALUE) [sub])` for the entry that has this value.
class GetProp : public DepTreeComponent<GetProp, Value> {
 public:
  static constexpr const char* kName = "get-prop";
  static constexpr const char* kUsage =
      "`(get-prop NAME [sub])` the value of the property; `(get-prop (NAME VALUE))` finds the "
      "entry with that value";

  GetProp() = default;
  GetProp(const GetProp& other) : DepTreeComponent(other), name_(other.name_) {
    wanted_.copy_into(other.wanted_, texts_);
  }

  void init(World& world, IRSlist* args) override {
    if (std::unique_ptr<IRSlist> first = args->pop_front()) {
      wanted_.copy_into(*first, texts_);
      name_ = PropName(trees(world).properties,
                       or_empty(wanted_.is_atom() ? wanted_.atom : wanted_.get_str_val()));
    }
    if (const ValType* prop_type = trees(world).properties.type(name_.id()))
      mid_type = expressions(world).types.id(prop_type->name());
    LAdaptor::init(world, args);
  }

  Value component(DepTree& node) const {
    const DepProp* prop = find_prop(node, name_.id());
    if (prop && wanted_.is_list()) prop = find_value(node);
    return prop ? prop->value : Value();
  }

 private:
  const DepProp* find_value(DepTree& node) const {
    IRSlist form;
    StrBufs texts;
    form.copy_into(wanted_, texts);
    const ValType* type = trees(world()).properties.type(name_.id());
    Value value = type->parse(&form, *node._deps);
    for (const DepProp& prop : node._props)
      if (prop.id == name_.id() && type->compare(prop.value, value) == 0) return &prop;
    return nullptr;
  }

  PropName name_;
  IRSlist wanted_;
  StrBufs texts_;
};

class SetProp : public DepTreeComponent<SetProp, DepTree> {
 public:
  static constexpr const char* kName = "set-prop";
  static constexpr const char* kUsage =
      "`(set-prop (NAME value [weight]) ...)` adds properties; each part is an atom or an "
      "expression; the node";

  void init(World& world, IRSlist* args) override {
    for (Triple& triple : read_triples(world, args)) {
      PropName name(trees(world).properties, or_empty(triple.first.constant()));
      entries_.push_back({std::move(name), std::move(triple)});
    }
    out_type = mid_type;
  }

  DepTree* component(DepTree& node) const {
    for (const Entry& entry : entries_) store(node, entry);
    return &node;
  }

 private:
  struct Entry {
    PropName name;
    Triple triple;
  };

  void store(DepTree& node, const Entry& entry) const {
    Value input = Value::of(&node);
    int id = id_of(entry, input);
    const ValType* type = trees(world()).properties.type(id);
    if (!type) return;
    Value value;
    if (const char* text = entry.triple.second.constant()) {
      AtomForm atom(text);
      value = type->parse(&atom.form, *node._deps);
    } else {
      Value given = entry.triple.second.eval(input, in_type);
      value = type->copy(given, *node._deps);
      if (given && !value) return;  // of another type
    }
    // Kept: set-prop-adds
    node._props.append({id, value, entry.triple.weight(input, in_type)});
  }

  int id_of(const Entry& entry, Value input) const {
    if (entry.triple.first.constant()) return entry.name.id();
    Value value = entry.triple.first.eval(input, in_type);
    if (value.is(tags::integer)) return static_cast<int>(value.number());
    return trees(world()).properties.id(or_empty(value.text()));
  }

  std::vector<Entry> entries_;
};

class DelProp : public DepTreeComponent<DelProp, DepTree> {
 public:
  static constexpr const char* kName = "del-prop";
  static constexpr const char* kUsage = "`(del-prop NAME [sub])` removes the property; the node";

  void init(World& world, IRSlist* args) override {
    name_ = PropName(trees(world).properties, or_empty(args->get_str_val()));
    LAdaptor::init(world, args);
  }

  DepTree* component(DepTree& node) const {
    // Kept: del-prop-takes-one
    if (const DepProp* prop = find_prop(node, name_.id()))
      node._props.remove_at(static_cast<int>(prop - node._props.begin()));
    return &node;
  }

 private:
  PropName name_;
};

class AddToDepPropList : public DepTreeComponent<AddToDepPropList, DepTree> {
 public:
  static constexpr const char* kName = "add-to-dep-prop-list";
  static constexpr const char* kUsage =
      "`(add-to-dep-prop-list NAME exp [sub])` adds the text that `exp` gives to a property that "
      "is a list of texts; the node";

  void init(World& world, IRSlist* args) override {
    name_ = PropName(trees(world).properties, or_empty(args->get_str_val()));
    exp_ = take_exp(world, *args);
    LAdaptor::init(world, args);
  }

  DepTree* component(DepTree& node) const {
    const char* text = exp_.eval(Value::of(&node), in_type).text();
    TextList* list = text ? list_of(node) : nullptr;
    if (list) list->append(node._deps->_strings.copy(text));
    return &node;
  }

 private:
  TextList* list_of(DepTree& node) const {
    const ValType* type = trees(world()).properties.type(name_.id());
    if (!type || !same_word(type->name(), type_name_of<TextList>())) return nullptr;
    for (const DepProp& prop : node._props)
      if (prop.id == name_.id() && prop.value) return prop.value.as<TextList>();
    TextList* list = &node._deps->_lists.emplace_back();
    node._props.append({name_.id(), node.era()->of(list), 1.0f});
    return list;
  }

  PropName name_;
  ExpPtr exp_;
};

constexpr Prototype kPropForms[] = {
    form<GetProp>(),
    form<SetProp>(),
    form<DelProp>(),
    form<AddToDepPropList>(),
};

}  // namespace

constinit const Offer offers::prop_forms{kPropForms};

}  // namespace torvane
