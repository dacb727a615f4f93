// What concerns whole files: parentheses, quotes, and files that load each other.
#include <algorithm>
#include <map>
#include <set>

#include "check/grammar_sources.h"

namespace torvane {
namespace {

/// A command `load` and the file that it reads.
struct Loading {
  std::uint32_t line;
  const SourceFile* file;
};

using Graph = std::map<const SourceFile*, std::vector<Loading>>;

const SourceFile* find_file(const std::vector<SourceFile>& files, std::string_view name) {
  for (const SourceFile& file : files)
    if (file.path == name || file.path.ends_with("/" + std::string(name))) return &file;
  return nullptr;
}

Graph loads_of(const GrammarSources& sources) {
  Graph graph;
  sources.each_command([&](const SourceFile& file, const SourceForm& form) {
    if (!GrammarSources::same_name(form.head(), "load")) return;
    for (std::size_t i = 1; i < form.items.size(); ++i)
      if (const SourceFile* loaded = find_file(sources.files, form.text(i)))
        graph[&file].push_back({form.items[i].line, loaded});
  });
  return graph;
}

bool leads_to(const Graph& graph, const SourceFile* from, const SourceFile* to,
              std::set<const SourceFile*>& seen) {
  if (from == to) return true;
  if (!seen.insert(from).second) return false;
  const auto loads = graph.find(from);
  return loads != graph.end() &&
         std::any_of(loads->second.begin(), loads->second.end(),
                     [&](const Loading& next) { return leads_to(graph, next.file, to, seen); });
}

}  // namespace

void check_shape(GrammarSources& sources) {
  for (const SourceFile& file : sources.files)
    sources.found.insert(sources.found.end(), file.shape.begin(), file.shape.end());
}

void check_loading(GrammarSources& sources) {
  const Graph graph = loads_of(sources);
  for (const auto& [file, loads] : graph)
    for (const Loading& load : loads) {
      std::set<const SourceFile*> seen;
      if (!leads_to(graph, load.file, file, seen)) continue;
      sources.error(*file, load.line,
                    load.file == file ? "the file loads itself"
                                      : "the files load each other: " + load.file->path +
                                            " leads back to this one");
    }
}

}  // namespace torvane
