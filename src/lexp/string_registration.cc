#include "lexp/integer_forms.h"
#include "lexp/print_forms.h"
#include "lexp/reg_forms.h"
#include "lexp/str_sim.h"
#include "lexp/string_forms.h"
#include "lexp/word_forms.h"
#include "lexp/word_list.h"

namespace torvane {

void register_string_forms() {
  static bool registered = false;
  if (registered) return;
  registered = true;
  register_pure_form<RegMatch>();
  register_form<RegSub>();
  register_pure_form<SuffixMatch>();
  register_pure_form<InWordList>();
  register_form<InverseStr>();
  register_form<StemWord>();
  register_form<LastWord>();
  register_pure_form<StrEq>();
  register_pure_form<StrStr>();
  register_pure_form<StrPrefix>();
  register_pure_form<StrIs>();
  register_form<PrintStr>();
  register_form<PadStr>();
  register_form<FlushOutput>();
  register_form<ExistWord>();
  register_form<AllWords>();
  register_form<Int2Str>();
  register_form<Ent2Str>();
  register_pure_form<NullStr>();
  register_form<RemovePunc>();
  register_form<RemoveChar>();
  register_form<FormatStr>();
  register_form<StrSim>();
  register_form<ContainToken>();
  register_form<WriteToFile>();
  register_form<RemovePrefix>();
  register_word_list_commands();
}

}  // namespace torvane
