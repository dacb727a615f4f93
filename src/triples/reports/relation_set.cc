#include "triples/reports/relation_set.h"

#include <memory>
#include <string>

#include "lexp/form.h"

namespace torvane {
namespace {

/// The ids whose names pass; all for a null expression.
LBitSet ids_that_pass(TripleDb& db, const ExpPtr& exp) {
  LBitSet ids;
  if (!exp) return ids.complement();
  const int end = db.ids.count();
  for (int id = 1; id < end; ++id) {
    std::string text = or_empty(db.id_to_string(id));
    if (passes(exp, Value::buffer_text(text.c_str()), type_id_of<const char*>())) ids.set(id);
  }
  return ids;
}

/// A name without "-" stands for both directions, one with "-" for the inverse.
void add_name(TripleDb& db, const char* name, LBitSet& direct, LBitSet& inverse) {
  int id = db.feature_id(name, false);
  if (id > 0) direct.set(id);
  if (id != 0) inverse.set(std::abs(id));
}

ExpPtr take_expression(World& world, IRSlist& form, const char* keyword) {
  std::unique_ptr<IRSlist> node = form.take_keyword_node(keyword);
  return node ? LExp::get_exp(world, node.get()) : nullptr;
}

}  // namespace

RelationSet::RelationSet(World& world, TripleDb& db, IRSlist& form) {
  std::unique_ptr<IRSlist> names = form.take_keyword_node(":rels");
  ExpPtr feature = take_expression(world, form, ":feature");
  ExpPtr inv_feature = take_expression(world, form, ":inv-feature");
  everything_ = !names && !feature && !inv_feature;
  if (everything_) return;
  direct_ = ids_that_pass(db, feature);
  inverse_ = inv_feature ? ids_that_pass(db, inv_feature) : direct_;
  if (!names) return;
  LBitSet named, named_inverse;
  if (names->is_atom()) add_name(db, names->atom, named, named_inverse);
  for (const IRSlist* name : names->items) add_name(db, name->atom, named, named_inverse);
  direct_ &= named;
  inverse_ &= named_inverse;
}

}  // namespace torvane
