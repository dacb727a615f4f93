#include "lexp/integer_forms.h"
#include "lexp/print_forms.h"
#include "lexp/reg_forms.h"
#include "lexp/str_sim.h"
#include "lexp/string_forms.h"
#include "lexp/word_forms.h"
#include "lexp/word_list.h"

namespace torvane {

void register_string_forms(World& world) {
  register_pure_form<RegMatch>(world);
  register_form<RegSub>(world);
  register_pure_form<SuffixMatch>(world);
  register_pure_form<InWordList>(world);
  register_form<InverseStr>(world);
  register_form<StemWord>(world);
  register_form<LastWord>(world);
  register_pure_form<StrEq>(world);
  register_pure_form<StrStr>(world);
  register_pure_form<StrPrefix>(world);
  register_pure_form<StrIs>(world);
  register_form<PrintStr>(world);
  register_form<PadStr>(world);
  register_form<FlushOutput>(world);
  register_form<ExistWord>(world);
  register_form<AllWords>(world);
  register_form<Int2Str>(world);
  register_form<Ent2Str>(world);
  register_pure_form<NullStr>(world);
  register_form<RemovePunc>(world);
  register_form<RemoveChar>(world);
  register_form<FormatStr>(world);
  register_form<StrSim>(world);
  register_form<ContainToken>(world);
  register_form<WriteToFile>(world);
  register_form<RemovePrefix>(world);
  register_word_list_commands(world);
}

}  // namespace torvane
