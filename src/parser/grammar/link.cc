#include "parser/grammar/link.h"

#include <cstring>
#include <string_view>

#include "parser/grammar/contract.h"
#include "parser/grammar/g_cate.h"
#include "support/text.h"

namespace torvane {
namespace {

LinkKind kind_of(const char* type) {
  std::string_view name = or_empty(type);
  if (name == contract::kGuest) return LinkKind::guest;
  if (name == contract::kSubcat) return LinkKind::subcat;
  return name.starts_with(contract::kComplement) ? LinkKind::complement : LinkKind::plain;
}

}  // namespace

void Link::set_type(const char* type) {
  type_ = Name(type);
  kind_ = kind_of(type);
}

void Link::set_weight(float weight) {
  weight_ = weight;
  if (_child) _child->reinsert_out_link(this);
}

}  // namespace torvane
