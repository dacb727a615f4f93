// torvane serve: becomes the program torvane-serve beside it. What that one links to would make
// every other run start later.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/serve_options.h"

namespace torvane {
namespace {

int serve(const CLI::App& app) {
  std::error_code unknown;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", unknown);
  std::vector<std::string> arguments = {(self.parent_path() / "torvane-serve").string()};
  for (const CLI::Option* option : app.get_options())
    if (option->count() > 0)
      arguments.push_back("--" + option->get_lnames().front() + '=' + option->results().back());
  std::vector<char*> texts;
  texts.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) texts.push_back(argument.data());
  texts.push_back(nullptr);
  execv(texts.front(), texts.data());
  std::cerr << "torvane: " << arguments.front() << ": " << std::strerror(errno) << '\n';
  return kInputOutput;
}

}  // namespace

std::function<int()> declare_serve(CLI::App& app) {
  auto options = std::make_shared<ServeOptions>();
  declare_serve_options(app, *options);
  return [&app, options] { return serve(app); };
}

}  // namespace torvane
