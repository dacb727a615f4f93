#include "lexp/lexp.h"

#include <optional>
#include <sstream>
#include <string>

#include "lexp/expressions.h"
#include "lexp/form.h"
#include "lexp/refusal.h"
#include "shell/macro.h"
#include "shell/object_factory.h"
#include "shell/tokenizer.h"
#include "shell/world.h"
#include "support/depth.h"
#include "support/messages.h"

namespace torvane {

namespace tags {
const TypeTag lexp{"LExp*"};
}

namespace {

// The depth also bounds how deep one compiled expression evaluates, copies and destroys itself.
thread_local DepthLimit compile_depth{"LExp::get_exp: the forms are nested too deeply", 2000};

ObjFactory& lexp_family(World& world) {
  ObjFactory*& family = expressions(world).family;
  if (!family)
    family = world.families.add(kExpressions, nullptr, [](Value prototype) {
      LExp* exp = prototype.as<LExp>();
      return exp ? Value::of(exp->copy().release()) : Value();
    });
  return *family;
}

[[gnu::noinline]] void report_no_form(const IRSlist& form) {
  messages() << "LExp::get_exp: " << (form.atom ? form.atom : "()") << " is not a LExp\n";
}

std::string text_of(const IRSlist& form) {
  std::ostringstream out;
  form.print_item(out);
  return out.str();
}

struct Expansion : Form<Expansion, CompExp> {
  static constexpr const char* kName = "prog";
};

// All expressions that a macro's expansion holds, as one.
[[gnu::noinline]] std::unique_ptr<LExp> compile_expansion(World& world, const std::string& text) {
  Array<ExpPtr> exps;
  IRSlistReader reader(world.double_byte);
  reader.tokenizer().stay_at(world.places.current);
  for (IRSlist* form = reader.start_string(text.c_str()); form; form = reader.next()) {
    if (auto exp = LExp::get_exp(world, form)) exps.append(std::move(exp));
  }
  if (exps.empty()) return nullptr;
  if (exps.count() == 1) return exps[0].release();
  auto all = within_input(std::make_unique<Expansion>());
  all->belong_to(world);
  all->exps = std::move(exps);
  return all;
}

std::unique_ptr<LExp> compile_head(World& world, IRSlist* form) {
  const char* head = form->get_str_val();
  if (!head) return nullptr;
  LExp* prototype = find_lexp_proto(world, head);
  if (!prototype) {
    // Kept: unknown-form-vanishes
    messages() << "LExp::get_exp:  unknown type: '" << head << "'\n";
    return nullptr;
  }
  std::unique_ptr<LExp> exp = prototype->copy();
  exp->in_type = prototype->in_type;
  exp->out_type = prototype->out_type;
  exp->own_reach = prototype->own_reach;
  exp->init(world, form);
  return exp;
}

}  // namespace

void LExp::init(World&, IRSlist*) {}

std::unique_ptr<LExp> LExp::get_exp(World& world, IRSlist* form) {
  if (!form) return nullptr;
  if (form->empty()) {
    report_no_form(*form);
    return nullptr;
  }
  DepthGuard guard(compile_depth);
  if (!guard) return nullptr;
  std::optional<ExpansionScope> outermost;
  if (compile_depth.depth == 1) outermost.emplace(world.macros);
  PlaceScope here(world.places, form->place);
  const bool quotes = world.places.kept;
  const std::string text = quotes ? text_of(*form) : std::string();
  const Macro* macro = world.macros.find(*form);
  std::unique_ptr<LExp> exp = macro ? compile_expansion(world, world.macros.expand(*macro, *form))
                                    : compile_head(world, form);
  if (!macro) world.places.keep(exp.get(), form->place);
  if (quotes && exp) expressions(world).form_texts.note(*exp, text);
  return exp;
}

std::string LExp::finding(Value input) {
  if (const char* found = input.text()) return "it is '" + std::string(found) + "'";
  return input ? std::string() : "there is none";
}

Value LExp::refuse(Value input, Refusal& refusal) {
  refusal.steps.push_back({this, finding(input)});
  return Value();
}

Value LExp::watch(Value input, int input_type, Refusal& refusal) {
  const Value value = eval(input, input_type);
  return value ? value : refuse(input, refusal);
}

std::unique_ptr<LExp> LExp::get_exp_from_text(World& world, const char* text) {
  if (!text) return nullptr;
  auto tokenizer = Tokenizer::make_default(world.double_byte);
  tokenizer->set_string_input(text, -1);
  IRSlist form;
  form.read(*tokenizer, '(', ')');
  return get_exp(world, &form);
}

void LExp::wrong_type(int input_type) const {
  const Types& types = expressions(*world_).types;
  messages() << name() << " received a wrong type of argument:'" << or_empty(types.name(input_type))
             << "' (" << input_type << ")\n"
             << "The expected type of argument is:'" << or_empty(types.name(in_type)) << "' ("
             << in_type << ")\n";
}

void LAdaptor::init(World& world, IRSlist* args) {
  sub = get_exp(world, args->nth(0));
  out_type = sub ? sub->out_type : mid_type;
}

Value LAdaptor::eval(Value input, int input_type) {
  if (!accepts(input_type)) return Value();
  Value converted = convert(input);
  return sub ? sub->eval(converted, mid_type) : converted;
}

Value LAdaptor::watch(Value input, int input_type, Refusal& refusal) {
  if (!accepts(input_type)) return Value();
  const Value converted = convert(input);
  const Value value = sub && converted ? sub->watch(converted, mid_type, refusal)
                      : sub            ? sub->eval(converted, mid_type)
                                       : converted;
  if (!value) refusal.steps.push_back({this, converted ? std::string() : "there is none"});
  return value;
}

Outlook LAdaptor::foresee(Value input, int input_type) {
  if (own_reach != Reach::input || !takes(input_type)) return Outlook::unknown;
  Value converted = convert(input);
  if (sub) return sub->foresee(converted, mid_type);
  return converted ? Outlook::value : Outlook::null;
}

void CompExp::init(World& world, IRSlist* args) {
  for (IRSlist* item : args->items) {
    if (auto exp = get_exp(world, item)) exps.append(std::move(exp));
  }
}

Value CompExp::eval(Value input, int input_type) {
  Value result = input;
  for (const ExpPtr& exp : exps) result = exp->eval(input, input_type);
  return result;
}

void BinaryFunc::init(World& world, IRSlist* args) {
  a = get_exp(world, args->nth(0));
  b = get_exp(world, args->nth(1));
}

void TernaryFunc::init(World& world, IRSlist* args) {
  a = get_exp(world, args->nth(0));
  b = get_exp(world, args->nth(1));
  c = get_exp(world, args->nth(2));
}

CharPred::CharPred() {
  in_type = type_id_of<const char*>();
}

void MArgExp::init(World& world, IRSlist* items) {
  int count = items->length();
  if (count > max_args) {
    messages() << "Incorrect number of arguments in " << name_text << ". Expected: " << max_args
               << " Actual: " << count << '\n';
    return;
  }
  for (IRSlist* item : items->items) args.append(get_exp(world, item));
}

Value MArgExp::eval(Value input, int input_type) {
  if (!accepts(input_type)) return Value();
  Value values[kMostArgs + 1];
  values[0] = input;
  int i = 0;
  for (const ExpPtr& arg : args) values[++i] = arg.eval(input, input_type);
  return apply(values);
}

bool register_lexp(World& world, std::unique_ptr<LExp> prototype, const char* name,
                   const char* doc) {
  if (!prototype) return false;
  prototype->belong_to(world);
  lexp_family(world);
  if (!name) name = prototype->name();
  if (!doc) doc = prototype->doc();
  if (!world.families.add_proto(kExpressions, name, Value::of(prototype.get()), doc)) return false;
  world.own(std::move(prototype));
  return true;
}

LExp* find_lexp_proto(World& world, const char* name) {
  auto* entry = lexp_family(world).find(name);
  return entry ? entry->value.as<LExp>() : nullptr;
}

}  // namespace torvane
