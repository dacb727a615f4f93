#include "shell/world.h"

#include <iostream>

#include "shell/placed_messages.h"
#include "shell/tokenizer.h"
#include "support/messages.h"

namespace torvane {

namespace {
bool names_standard_stream(const char* name) {
  // Kept: dash-is-standard-stream
  return !name || *name == '-';
}
}  // namespace

World::Console World::Console::of_process() {
  return {&std::cin, &std::cout, &std::cerr};
}

World::World(const Console& console)
    : interpreter(*this),
      console_(console),
      standard_input_(Stream::standard(console.in, nullptr)),
      standard_output_(Stream::standard(nullptr, console.out)) {}

// What stands higher leans on what stands below it, and later things on earlier ones.
World::~World() {
  WorldScope here(*this);
  for (const std::unique_ptr<WorldPart>& part : parts_)
    if (part) part->drop_values();
  lifetimes.end_all();
  while (!owned_.empty()) owned_.pop_back();
  for (std::size_t i = parts_.size(); i > 0; --i) parts_[i - 1].reset();
  lifetimes.end_all();
}

WorldMessages::WorldMessages(World& world)
    : placed_(world.places.messages()),
      messages_(placed_ ? placed_->stream() : world.err(), placed_) {}

WorldMessages::~WorldMessages() {
  if (placed_) placed_->end();
}

void World::flush() {
  for (const std::unique_ptr<WorldPart>& part : parts_)
    if (part) part->flush();
}

Ref<Stream> World::input_stream(const char* name) {
  return names_standard_stream(name) ? standard_input_ : files.open(name);
}

Ref<Stream> World::make_ostream(const char* name) const {
  if (names_standard_stream(name)) return standard_output_;
  Ref<Stream> stream = Stream::open_output(name);
  if (stream->good()) return stream;
  messages() << "make_ostream: cannot open the file '" << name << "'\n";
  return Ref<Stream>();
}

}  // namespace torvane
