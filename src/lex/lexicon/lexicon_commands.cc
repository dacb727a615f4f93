// The commands that make a lexicon, fill it and print it.
#include <utility>

#include "lex/lexicon/dict_on_disk.h"
#include "lex/lexicon/lexicon.h"
#include "lex/lexicon/lexicon_files.h"
#include "lex/lexicon/offers.h"
#include "lexp/form.h"
#include "shell/named_objects.h"
#include "shell/world.h"

namespace torvane {
namespace {

Lexicon* take_lexicon(World& world, IRSlist* form) {
  return world.objects.find_as<Lexicon>(form->get_str_val(), "Lexicon", true);
}

Value make_lexicon(World& world, IRSlist* form) {
  std::unique_ptr<IRSlist> endings = form->take_keyword_node(":ending-table");
  const char* name = form->get_str_val();
  if (!name) return Value();
  auto lexicon = std::make_unique<Lexicon>(world, static_cast<int>(form->get_long_val()));
  if (endings && endings->is_list()) {
    auto table = std::make_unique<EndingTable>();
    table->read(world, endings.get());
    lexicon->set_endings(std::move(table));
  } else if (endings) {
    // A table of its own name is looked up, but only a list gives a lexicon endings.
    // Kept: named-endings-ignored
    world.objects.find(endings->atom, "EndingTable", true);
  }
  return Value::of(world.own_object(name, std::move(lexicon), "Lexicon"));
}

Value lex(World& world, IRSlist* form) {
  Lexicon* lexicon = take_lexicon(world, form);
  if (!lexicon) return Value();
  // Kept: lex-adds-load-lex-reports
  while (std::unique_ptr<IRSlist> item = form->pop_front()) lexicon->read_entry(item.get(), false);
  return Value();
}

Value load_lex(World& world, IRSlist* form) {
  long no_dup = 1;
  if (const char* text = form->take_keyword_str(":no-dup")) scan_long(text, no_dup);
  Lexicon* lexicon = take_lexicon(world, form);
  Ref<Stream> in = lexicon ? take_input(world, form) : Ref<Stream>();
  if (in && in->in()) lexicon->load(*in->in(), no_dup != 0, world.places.begin_file(in->path()));
  return Value();
}

Value lex_entry(World& world, IRSlist* form) {
  Lexicon* lexicon = take_lexicon(world, form);
  if (!lexicon) return Value();
  while (std::unique_ptr<IRSlist> word = form->pop_front())
    if (const LexEntry* entry = lexicon->get_entry(word->atom))
      lexicon->print_entry(world.out(), entry);
  return Value();
}

Value clear_lexicon(World& world, IRSlist* form) {
  if (Lexicon* lexicon = take_lexicon(world, form)) lexicon->clear();
  return Value();
}

Value link_lex_file(World& world, IRSlist* form) {
  Lexicon* lexicon = take_lexicon(world, form);
  const char* header = lexicon ? form->get_str_val() : nullptr;
  if (!header) return Value();
  auto dictionary = std::make_unique<DictOnDisk>(world.files, header);
  if (dictionary->good()) lexicon->add_dictionary(std::move(dictionary));
  return Value();
}

Value print_lex(World& world, IRSlist* form) {
  Lexicon* lexicon = take_lexicon(world, form);
  Ref<Stream> out = lexicon ? take_output(world, form) : Ref<Stream>();
  if (out) lexicon->print_sorted(*out->out());
  return Value();
}

/// The root of a word, by a lexicon that is known when the form is compiled.
class GetRoot : public Form<GetRoot, LAdaptor> {
 public:
  static constexpr const char* kName = "get-root";
  static constexpr const char* kUsage =
      "`(get-root LEXICON exp)` the key of the first entry that the word reduces to, or the word";
  GetRoot() { in_type = mid_type = type_id_of<const char*>(); }
  void init(World& world, IRSlist* args) override {
    lexicon_ = take_lexicon(world, args);
    LAdaptor::init(world, args);
  }
  Value convert(Value input) override {
    if (!lexicon_ || !input.text()) return Value();
    // A copy, since the condition of an ending may bring us here again.
    std::string word = input.text();
    return Value::made_text(lexicon_->get_root(word.c_str()));
  }

 private:
  Lexicon* lexicon_ = nullptr;
};

constexpr Command kLexiconCommands[] = {
    {"make-lexicon", make_lexicon,
     "(make-lexicon <name> <size>)  <name> is the name of the lexicon, which is accessible as a "
     "named object.  <size> is the size of the internal hashtable"},
    {"lex", lex, "(lex <lexicon>  <entry>  ... ...  <entry>)  Load the entries into <lexicon>."},
    {"load-lex", load_lex, "(load-lex <lexicon> <file>) --- load entries in <file> into <lexicon>"},
    {"lex-entry", lex_entry,
     "(lex-entry lexicon-name word1 word2 ...) print the entries for word1 word2 ... in the "
     "lexicon"},
    {"clear-lexicon", clear_lexicon,
     "(clear-lexicon lexicon-name) remove the entries in the lexicon (the disk file is "
     "unchanged)."},
    {"link-lex-file", link_lex_file,
     "(link-lex-file lexicon-name header.hdr) Link a lexicon to a disk file so that if an entry is "
     "not found, the disk file will be searched."},
    {"print-lex", print_lex,
     "(print-lex <lexicon> [file]) --- print the entries in the lexicon to a file"},
};

constexpr Prototype kLexiconCommandsForms[] = {
    form<GetRoot>(),
};

}  // namespace

constinit const Offer offers::lexicon_commands{kLexiconCommandsForms, kLexiconCommands};

}  // namespace torvane
