// How vectors are read from forms and printed.
#include <bit>

#include "att/att_interpreter_list.h"
#include "att/nesting.h"
#include "support/messages.h"

namespace torvane {

void AttVec::read(IRSlist* form) {
  if (!form || !interpreters) return;
  while (auto item = form->pop_front()) {
    const char* att_name = item->is_atom() ? item->atom : item->get_str_val();
    if (!att_name) {
      messages() << "() is used as attribute name.\n";
      return;
    }
    int index;
    if (AttInterpreter* att = interpreters->lookup(att_name, &index)) {
      AttWord value = att->make_val(item.get());
      att->unify(this, index, value, true);
      att->drop_unstored(value);
    } else if (AttVec* alias = interpreters->find_alias(att_name)) {
      unify(*alias, nullptr, true);
    } else {
      messages() << "Unknown attribute " << att_name << '\n';
    }
  }
}

void AttVec::print(std::ostream& out, const LBitSet* mask, bool use_aliases) const {
  NestingGuard guard;
  if (!guard) return;
  out << '(';
  if (use_aliases && interpreters && interpreters->aliases.count() > 0) {
    AttVec rest(*this);
    bool first = true;
    interpreters->aliases.for_each([&](const auto& alias) {
      Subsumption order = rest.compare(*alias.value);
      if (order != Subsumption::equal && order != Subsumption::more_specific) return;
      out << (first ? "" : " ") << alias.key;
      first = false;
      rest.subtract(*alias.value);
    });
    rest.print_atts(out, mask, first);
  } else {
    print_atts(out, mask, true);
  }
  out << ')';
}

void AttVec::print_atts(std::ostream& out, const LBitSet* mask, bool first) const {
  LBitSetIterator bits(defined);
  for (int index = bits.next(); index >= 0; index = bits.next()) {
    const AttInterpreter& att = *interpreters->atts[index];
    if ((mask && !mask->test(index)) || !att.shows(get(index))) continue;
    if (!first) out << ' ';
    first = false;
    att.print(out, this);
  }
}

}  // namespace torvane
