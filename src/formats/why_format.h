// Explanations as text for a reader, and as JSON.
#pragma once

#include <cstddef>
#include <string>

#include "engine/why.h"

namespace torvane {

/// `most_links`: how many links of a pair are told, those that came furthest; 0: all.
void write_why_text(std::string& out, const WhyPair& why, std::size_t most_links);
void write_why_text(std::string& out, const WhyTree& why);
/// One object, on a line of its own.
void write_why_json(std::string& out, const WhyPair& why);
void write_why_json(std::string& out, const WhyTree& why);

}  // namespace torvane
