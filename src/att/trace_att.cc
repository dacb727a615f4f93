// The attribute of displaced constituents.
#include <algorithm>

#include "att/attribute_type.h"
#include "att/nested_atts.h"
#include "att/offers.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {

bool TraceAtt::unify(AttVec* vec, int at, AttWord value, bool store) const {
  if (auto known = unify_outside(vec, at, value, store)) return *known;
  if (!store) return true;
  Ref<TraceChain> added(object(value));
  TraceChain* chain = vec->own_trace(at);
  // Pushed on the front one by one, they stand in reverse.
  const int n = added->records.count();
  for (int i = n; i-- > 0;) chain->records.append(added->records[i]);
  std::rotate(chain->records.begin(), chain->records.end() - n, chain->records.end());
  return true;
}

void TraceAtt::print(std::ostream& out, const AttVec* vec) const {
  AttWord value = get(vec);
  std::string scratch;
  if (!value)
    out << '~' << name;
  else if (shows(value))
    out << '(' << name << ' ' << str_val(value, scratch) << ')';
}

const char* TraceAtt::str_val(AttWord value, std::string& scratch) const {
  if (!value) return nullptr;
  scratch.clear();
  for (const TraceRecord& record : object(value)->records) {
    if (!scratch.empty()) scratch += ' ';
    scratch += '(';
    append_quoted(scratch, or_empty(record.role.c_str()), QuoteComma::yes);
    scratch += ')';
  }
  return scratch.c_str();
}

AttWord TraceAtt::make_val(IRSlist* form) const {
  if (form->empty() && (!form->is_atom() || *form->atom == '~')) return 0;
  return bad_form("TraceAtt::make_val(IRSlist*) fails with argument: ", *form);
}

// Nothing was packed: that it was defined is all that is left.
// Kept: trace-is-not-packed
bool TraceAtt::unpack(AttVec* vec, const char*&, const char*) const {
  set(vec, 0);
  return true;
}

bool TraceAtt::shows(AttWord value) const {
  return !value || !object(value)->records.empty();
}

namespace {

constexpr Prototype kTraceAttTypes[] = {
    attribute_type<TraceAtt>(),
};

}  // namespace

constinit const Offer offers::trace_att{kTraceAttTypes};

}  // namespace torvane
