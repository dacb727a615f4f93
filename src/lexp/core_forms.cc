#include "lexp/control_forms.h"
#include "lexp/exec_commands.h"
#include "lexp/functions.h"
#include "lexp/stream_forms.h"
#include "lexp/variables.h"
#include "shell/exec.h"
#include "shell/macro.h"
#include "shell/object_factory.h"
#include "shell/world.h"

namespace torvane {

namespace {

constexpr Command kCommands[] = {
    {"declare-var", declare_var_command, "(declare-var varname) declare a variable."},
    {"defun", defun, "(defun funcname ( [args] ) LExp LExp ...) define a function."},
    {"eval", eval_command, "(eval LExp) Evaluate LExp with 0 as input."},
    {"foreach", foreach_command,
     "(foreach LIST :eval LEXP) Evaluate LExp with each of the string in the list."},
};

void register_sequence_forms(World& world) {
  register_lexp(world, within_input(std::make_unique<CompExp>()), nullptr,
                "(prog <lexp1> <lexp2> ... <lexpn>)\n"
                "  The input is passed to and evaluated by <lexp1>, then <lexp2>, ..., <lexpn>.\n"
                "  The return value is the result of <lexpn>");
  register_pure_form<Prog1Exp>(
      world,
      "(prog1 <lexp1> <lexp2> ... <lexpn>)\n"
      "  The input is passed to and evaluated by <lexp1>, then <lexp2>, ..., <lexpn>.\n"
      "  The return value is the result of <lexp1>");
  register_pure_form<FuncComp>(
      world,
      "(comp <lexp1> <lexp2> ... <lexpn>)\n"
      "  the input is passed to and evaluated by <lexp1>. the result is then\n"
      "  passed to <lexp2> for evaluation. ... the result of evaluating\n"
      "  <lexpn> is returned.");
}

void register_conditional_forms(World& world) {
  register_pure_form<IfAction>(
      world,
      "(if <lexp-cond>\n"
      "    <lexp-t>\n"
      "    <lexp-f>)\n"
      "  The input is passed to <lexp-cond> if the result is not 0, the input\n"
      "  is passed to <lexp-t>, otherwise to <lexp-f>. The result of <lexp-t>\n"
      "  or <lexp-f> is returned.");
  register_form<WhileAction>(
      world,
      "(while <lexp-cond> <lexp> <lexp> <lexp>)\n"
      "  The input is passed to <lexp-cond> if the result is not 0, the input\n"
      "  is passed to the <lexp>'s to be evaluated. Continues until <lexp-cond> fails");
  register_pure_form<WhenAction>(
      world,
      "(when <lexp-cond> <lexp> <lexp> <lexp>)\n"
      "  The input is passed to <lexp-cond> if the result is not 0, the input\n"
      "  is passed to the <lexp>'s to be evaluated.");
  register_form<OneOf>(
      world,
      "(one-of <lexp1> ... <lexpn> :is <pred>)\n"
      "Return a non zero value if the evaluation result of one of <lexp> satisfy <pred>");
  register_pure_form<CondAction>(
      world,
      "(cond\n"
      "  (<lexp-cond>  <lexp>  ... <lexp>)\n"
      "  (<lexp-cond>  <lexp>  ... <lexp>)\n"
      "   ... ...\n"
      "  (<lexp-cond>  <lexp>  ... <lexp>)\n"
      "  )\n"
      "  Sequentially test each of the <lexp-cond>s, when one of them\n"
      "  evaluates to true, the <lexp>s following the condtion are\n"
      "  evaluated. The rest of the cond are then skipped. The return value\n"
      "  is the result of the last <lexp> evaluated.");
}

void register_value_forms(World& world) {
  register_form<CollectExp>(world,
                            "(list <lexp1> <lexp2> ... <lexpn>)\n"
                            "  The argument is passed to each of the <lexp>s, the return value is\n"
                            "  collected in a Slist. The pointer to the Slist is returned.");
  register_pure_form<NegExp>(world, "(not <lexp>)\n  returns true if <lexp> evaluates to 0;");
  register_pure_form<OrExp>(
      world, "(or <lexp> <lexp> ... <lexp>)\n  returns true if one of <lexp>s evaluates to true.");
  register_pure_form<XorExp>(
      world,
      "(xor <lexp> <lexp> ... <lexp>)\n  returns true if odd number of <lexp>s evaluate to true.");
  register_pure_form<AndExp>(
      world, "(and <lexp> <lexp> ... <lexp>)\n  returns true if all of <lexp>s evaluate to true.");
  register_pure_form<AlwaysTrue>(world, "(t)\n  Always return 1");
  register_pure_form<AlwaysFalse>(world, "(nil)\n  Always return 0");
  register_pure_form<NilPred>(
      world, "(is-nil)\n  Returns true if the input is 0. Returns false otherwise.");
  register_pure_form<Ident>(world, "(ident)\n  Always return the input.");
  register_lexp(world, std::make_unique<AssignVar>(), nullptr, "(setq <var-name> <lexp>)");
  register_lexp(world, std::make_unique<GetVarVal>(), nullptr, "(get-val <var-name> [ <lexp> ])");
  register_lexp(world, within_input(std::make_unique<LetExp>()), nullptr,
                "(let (<varlist>) <lexp> <lexp> ...)");
}

}  // namespace

void register_core_forms(World& world) {
  register_sequence_forms(world);
  register_conditional_forms(world);
  register_value_forms(world);
  register_form<OneOfTwo>(world);
  register_form<TwoOfTwo>(world);
  register_form<ExecCommands>(world);
  register_form<OpenFile>(world);
  register_form<CloseFile>(world);
  register_form<SetTokenizerInput>(world);
  register_form<SetTokenizerStringInput>(world);
  register_form<EqExp>(world);
  world.interpreter.define(kCommands);
  register_macro_commands(world);
}

}  // namespace torvane
