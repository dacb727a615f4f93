#include "lex/lexicon/meaning.h"

#include <sstream>
#include <utility>

#include "att/attributes.h"
#include "lex/lexicon/offers.h"
#include "lexp/form.h"
#include "lexp/shared_constant.h"
#include "shell/object_factory.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {

namespace {
constexpr const char* kMeanings = "Meaning";
}

Subsumption Meaning::compare(const Meaning* other) const {
  if (!other || byte_compare(type(), other->type()) != 0) return Subsumption::not_comparable;
  return Subsumption::equal;
}

std::unique_ptr<Meaning> Meaning::make(World& world, IRSlist* form) const {
  std::unique_ptr<Meaning> meaning = clone();
  meaning->init(world, form);
  return meaning;
}

void AVMeaning::print(std::ostream& out) const {
  vec->print(out, nullptr, true);
}

std::unique_ptr<Meaning> AVMeaning::clone() const {
  return std::make_unique<AVMeaning>(*this);
}

Subsumption AVMeaning::compare(const Meaning* other) const {
  const AVMeaning* avm = as_avm(other);
  return avm ? vec->compare(*avm->vec) : Subsumption::not_comparable;
}

bool AVMeaning::unifiable(const Meaning* other) const {
  if (!other || byte_compare(type(), other->type()) != 0) return false;
  // Two kinds of one name but of different classes count as unifiable.
  const AVMeaning* avm = as_avm(other);
  // Kept: foreign-avm-unifies
  return !avm || vec->unifiable(*avm->vec);
}

void AVMeaning::init(World&, IRSlist* form) {
  if (IRSlist* first = form->nth(0)) vec->read(first);
}

void StrMeaning::print(std::ostream& out) const {
  out << text;
}

std::unique_ptr<Meaning> StrMeaning::clone() const {
  return std::make_unique<StrMeaning>(*this);
}

Subsumption StrMeaning::compare(const Meaning* other) const {
  if (!other || byte_compare(type(), other->type()) != 0 || is_avm(other))
    return Subsumption::not_comparable;
  const char* mine = kept_text();
  const char* theirs = other->kept_text();
  if (mine && theirs)
    return byte_compare(mine, theirs) == 0 ? Subsumption::equal : Subsumption::incomparable;
  if (!mine && !theirs) return Subsumption::equal;
  return mine ? Subsumption::more_specific : Subsumption::more_general;
}

void StrMeaning::init(World&, IRSlist* form) {
  std::ostringstream out;
  form->print(out);
  text = out.str();
  has_text = true;
}

std::unique_ptr<Meaning> make_meaning(World& world, IRSlist* form) {
  ObjFactory* family = world.families.find(kMeanings);
  if (!family) {
    messages() << "lexicon: needs maker for Meaning\n";
    return nullptr;
  }
  const auto* entry = family->find(form->peek_str_val());
  const Meaning* prototype = entry ? entry->value.as<Meaning>() : nullptr;
  // Kept: unknown-sense-is-lost
  if (!prototype) return nullptr;
  form->pop_front();
  return prototype->make(world, form);
}

void add_kind(World& world, const char* name, std::unique_ptr<Meaning> prototype, const char* doc) {
  world.families.open(kMeanings, "Maker for different kinds of meanings in lexicons", nullptr);
  if (world.families.add_proto(kMeanings, name, Value::of(prototype.get()), doc))
    world.own(std::move(prototype));
}

namespace {

Value make_avmeaning_proto(World& world, IRSlist* form) {
  if (form->length() != 2) return Value();
  AttInterpreterList* att_type = find_att_list(world, form->get_str_val());
  const char* name = form->get_str_val();
  if (att_type && name) add_kind(world, name, std::make_unique<AVMeaning>(att_type), nullptr);
  return Value();
}

Value make_str_meaning_proto(World& world, IRSlist* form) {
  if (form->length() != 1) return Value();
  const char* kind = form->get_str_val();
  if (kind) add_kind(world, kind, std::make_unique<StrMeaning>(Name(kind)), nullptr);
  return Value();
}

struct MeaningType : Adaptor<MeaningType, Meaning, Value, const char*> {
  static constexpr const char* kName = "meaning-type";
  static constexpr const char* kUsage = "`(meaning-type [exp])` the kind of a meaning";
  Value step(Meaning& meaning) const { return Value::constant(meaning.type()); }
};

constinit const TypeTag kSharedMeaning{"Meaning*", &tags::meaning, Life::counted,
                                       SharedConstant<Meaning>::retain,
                                       SharedConstant<Meaning>::drop};

/// A meaning as a constant of the expression language.
class AVMConst : public Form<AVMConst, LConst> {
 public:
  static constexpr const char* kName = "avm";
  static constexpr const char* kUsage = "`(avm (KIND BODY))` a constant meaning";
  AVMConst() { out_type = type_id_of<Meaning>(); }
  AVMConst(const AVMConst& other) : Form(other) {
    if (const Meaning* meaning = other.meaning_.get()) give(meaning->clone());
  }
  void init(World& world, IRSlist* args) override {
    IRSlist* first = args->nth(0);
    if (first) give(make_meaning(world, first->is_list() ? first : args));
  }

 private:
  void give(std::unique_ptr<Meaning> meaning) {
    meaning_ = SharedConstant<Meaning>(std::move(meaning));
    value = Value::of_kind(meaning_.get(), kSharedMeaning);
  }

  SharedConstant<Meaning> meaning_;
};

constexpr Command kMeaningCommands[] = {
    {"make-avmeaning-proto", make_avmeaning_proto, nullptr,
     "`(make-avmeaning-proto ATT-TYPE KIND)` a kind of meaning that is a vector of that type"},
    {"make-str-meaning-proto", make_str_meaning_proto,
     "(make-str-meaning-proto type) --- define type to be a type of str-meaning."},
};

constexpr Prototype kMeaningForms[] = {
    pure_form<MeaningType>(),
    form<AVMConst>(),
};

}  // namespace

constinit const Offer offers::meaning{kMeaningForms, kMeaningCommands};

}  // namespace torvane
