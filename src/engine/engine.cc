#include "engine/engine.h"

#include "engine/registrations.h"
#include "support/messages.h"

namespace torvane {

Engine::Engine() : Engine(World::Console::of_process()) {}

Engine::Engine(const World::Console& console) : world_(console) {
  MessagesTo here(world_.err());
  for (const Registration& row : registrations()) row.run(world_);
}

void Engine::start(const char* data_dir) {
  MessagesTo here(world_.err());
  world_.files.set(data_dir);
  Ref<Stream> start_up = world_.files.open("torvane.lsp");
  Exec& exec = world_.interpreter;
  exec.prompt = false;
  exec.frees_values = true;
  exec.load(start_up.get());
  exec.frees_values = false;
}

void Engine::run(const char* text) {
  MessagesTo here(world_.err());
  world_.interpreter.load_string(text);
}

void Engine::parse(const char* text, SentenceTree& tree) {
  MessagesTo here(world_.err());
  parse_sentence(world_, text, tree);
}

}  // namespace torvane
