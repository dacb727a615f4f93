// The commands that make tokenizers and try them out.
#include <iostream>

#include "shell/named_objects.h"
#include "shell/offers.h"
#include "shell/tokenizer.h"
#include "shell/world.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {

namespace {

// One marker pair from a list of two atoms, the opening one first; null for anything else.
LongQuote* make_long_quote(const IRSlist& form) {
  const char* open = form.nth_str_val(0);
  const char* close = form.nth_str_val(1);
  if (form.length() != 2 || !open || !close || !*open || !*close) return nullptr;
  return new LongQuote{open, close};
}

constexpr int kBufferSize = 512;

// From what stands behind the keywords; null after a message.
template <class Kind>
std::unique_ptr<Kind> make_from_classes(const World& world, const IRSlist& form,
                                        const IRSlist* long_quotes, int token_chunk) {
  constexpr int kClasses = 6;
  const char* classes[kClasses];
  bool complete = form.length() == kClasses;
  for (int i = 0; i < kClasses; ++i) {
    classes[i] = form.nth_str_val(i);
    complete = complete && classes[i];
  }
  if (!complete) {
    // Kept: socket-tokenizer-message
    messages() << "(def-tokenizer ...) incorrect number of arguments\n";
    return nullptr;
  }
  auto tokenizer =
      std::make_unique<Kind>(classes[0], classes[1], classes[2], classes[3], *classes[4],
                             *classes[5], token_chunk, kBufferSize, world.double_byte);
  if (long_quotes)
    for (const IRSlist* item : long_quotes->items)
      if (LongQuote* marker = make_long_quote(*item)) tokenizer->long_quotes.append(marker);
  return tokenizer;
}

template <class Kind>
Value define_tokenizer(World& world, IRSlist* form, const char* type, int token_chunk) {
  // Kept: tokenizer-name-by-keyword
  const char* name = form->take_keyword_str(":name");
  std::unique_ptr<IRSlist> long_quotes = form->take_keyword_node(":long-quotes");
  const char* separator = form->take_keyword_str(":separator");
  std::unique_ptr<Kind> tokenizer =
      separator ? std::make_unique<Kind>(separator, 4096, kBufferSize, world.double_byte)
                : make_from_classes<Kind>(world, *form, long_quotes.get(), token_chunk);
  if (tokenizer && name) world.own_object<Kind, TokenizerBase>(name, std::move(tokenizer), type);
  return Value();
}

Value def_tokenizer(World& world, IRSlist* form) {
  return define_tokenizer<Tokenizer>(world, form, "Tokenizer/TokenizerBase", 4096);
}

Value def_socket_tokenizer(World& world, IRSlist* form) {
  return define_tokenizer<SocketTokenizer>(world, form, "SocketTokenizer/TokenizerBase", 512);
}

Value double_byte(World& world, IRSlist* form) {
  if (!form->has_keyword(":tokenizer")) {
    world.double_byte = form->get_long_val() != 0;
    return Value();
  }
  const char* name = form->take_keyword_str(":tokenizer");
  if (auto* tokenizer = world.objects.find_as<TokenizerBase>(name, "Tokenizer", true))
    tokenizer->double_byte = form->get_long_val() != 0;
  return Value();
}

Value test_tokenizer(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  auto* tokenizer = world.objects.find_as<TokenizerBase>(name, "Tokenizer", true);
  Ref<Stream> stream = world.input_stream(form->get_str_val());
  if (!tokenizer || !stream) return Value();
  tokenizer->set_input(stream.get());
  while (const char* token = tokenizer->next_token()) {
    if (tokenizer->token_length() == 0 && !tokenizer->more_input) break;
    world.out() << '|' << token << "|\n";
    if (tokenizer->pushed_back.empty()) tokenizer->reset_tokens();
  }
  world.out().flush();
  // The stream ends here; standard input stays for whoever reads on.
  if (!stream->is_standard()) {
    tokenizer->set_input(nullptr);
    tokenizer->more_input = false;
  }
  return Value();
}

constexpr const char* kTokenizerDoc =
    "(def-tokenizer <name>\n"
    "  white-chars\n"
    "  start-chars\n"
    "  middle-chars\n"
    "  quote-chars\n"
    "  escape-chars\n"
    "  comment-chars\n"
    "  )\n"
    "   defines a tokenizer";

constexpr const char* kSocketTokenizerDoc =
    "(def-socket-tokenizer <name>\n"
    "  white-chars\n"
    "  start-chars\n"
    "  middle-chars\n"
    "  quote-chars\n"
    "  escape-chars\n"
    "  comment-chars\n"
    "  )\n"
    "   defines a socket-tokenizer";

constexpr Command kTokenizerCommands[] = {
    {"def-tokenizer", def_tokenizer, kTokenizerDoc},
    {"def-socket-tokenizer", def_socket_tokenizer, kSocketTokenizerDoc},
    {"double-byte", double_byte, "(double-byte tokenizer 0|1)"},
    {"test-tokenizer", test_tokenizer, "(test-tokenizer TOKENIZER INPUT_STREAM)"},
};

}  // namespace

constinit const Offer offers::tokenizer_commands{kTokenizerCommands};

}  // namespace torvane
