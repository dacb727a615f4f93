#include "engine/engine.h"

#include "engine/all_offers.h"

namespace torvane {

Engine::Engine() : Engine(World::Console::of_process()) {}

Engine::Engine(const World::Console& console) : world_(console) {
  WorldScope here(world_);
  for (const Offer* offer : all_offers()) offer->enter(world_);
}

void Engine::start(const char* data_dir) {
  WorldScope here(world_);
  world_.files.set(data_dir);
  Ref<Stream> start_up = world_.files.open("torvane.lsp");
  Exec& exec = world_.interpreter;
  exec.prompt = false;
  exec.frees_values = true;
  exec.load(start_up.get());
  exec.frees_values = false;
}

void Engine::run(const char* text) {
  WorldScope here(world_);
  world_.interpreter.load_string(text);
}

void Engine::parse(const char* text, SentenceTree& tree) {
  WorldScope here(world_);
  parse_sentence(world_, text, tree);
}

}  // namespace torvane
