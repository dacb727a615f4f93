// Explanations of a sentence as it stands in a text, with its own signs.
#pragma once

#include <string>

#include "engine/engine.h"

namespace torvane {

WhyTree why_in_text(Engine& engine, const std::string& text);
/// Words count from 1; head 0: why the modifier is not the root.
WhyPair why_in_text(Engine& engine, const std::string& text, int modifier, int head);

/// The word that somebody means by its number or its form; `root` or 0: 0, if that is allowed. -1
/// with what is wrong in `fault`.
int word_meant(const Sentence& sentence, const std::string& written, bool root_allowed,
               std::string& fault);

}  // namespace torvane
