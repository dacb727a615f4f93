#include "check/message_findings.h"

#include <algorithm>
#include <string>

#include "support/nearest.h"

namespace torvane {
namespace {

using Names = KnownNames::Names;

/// A message with a name in it, between two texts, and among which names it was looked for.
struct NamedFault {
  std::string_view before, behind;
  Names KnownNames::*known;
};

constexpr NamedFault kNamedFaults[] = {
    {"unknown function ", " ", &KnownNames::commands},
    {"unknown type: '", "'", &KnownNames::forms},
    {"LExp::get_exp: ", " is not a LExp", &KnownNames::forms},
    {"The pattern ", " is not defined", &KnownNames::patterns},
    {"Node: ", " is not defined", &KnownNames::categories},
    {"Unknown attribute value ", " ", &KnownNames::values},
    {"Unknown attribute ", " ", &KnownNames::attributes},
    {"The attribute ", " is not found", &KnownNames::attributes},
    {"the attribute name '", "'", &KnownNames::attributes},
    {"show attributes: ", " is not", &KnownNames::attributes},
    {"percolating attributes: ", " is not", &KnownNames::attributes},
    {"lexical attributes: ", " is not", &KnownNames::attributes},
    {"GCate::get_atts: ", " is not", &KnownNames::attributes},
    {"make_att_set ", " is not", &KnownNames::attributes},
    {"EnumAtt::get_val: ", " is not", &KnownNames::values},
    {"get_attitp:  unknown type: ", " ", &KnownNames::att_types},
    {"The named object '", "'", &KnownNames::objects},
    {"The lexicon file ", " is not", &KnownNames::objects},
    {"the lexical rule set '", "'", &KnownNames::objects},
};

/// Not faults: what commands tell of their work.
constexpr std::string_view kProgress[] = {"Making Index file", "Expand macro: ", " entries"};

/// The second definition does nothing, or the value does.
constexpr std::string_view kWarnings[] = {"Duplicate entry: "};

template <class Texts>
bool has_one(std::string_view message, const Texts& texts) {
  return std::any_of(std::begin(texts), std::end(texts),
                     [&](std::string_view text) { return message.find(text) != message.npos; });
}

std::string in_one_line(std::string_view text) {
  while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) text.remove_suffix(1);
  std::string line(text);
  std::replace(line.begin(), line.end(), '\n', ' ');
  constexpr std::size_t kLongest = 300;
  if (line.size() > kLongest) line.replace(kLongest, line.npos, " ...");
  return line;
}

std::string hint(const std::string& message, const KnownNames& names) {
  for (const NamedFault& fault : kNamedFaults) {
    std::size_t begin = message.find(fault.before);
    if (begin == message.npos) continue;
    begin += fault.before.size();
    const std::string written = message.substr(begin, message.find(fault.behind, begin) - begin);
    return hint_for(written, names.*fault.known);
  }
  return {};
}

}  // namespace

void add_messages(const World& world, const std::vector<PlacedMessage>& messages,
                  const KnownNames& names, const std::string& first, Findings& found) {
  for (const PlacedMessage& message : messages) {
    if (has_one(message.text, kProgress)) continue;
    const std::string text = in_one_line(message.text);
    const bool has_place = static_cast<bool>(message.place);
    found.push_back({has_place ? std::string(world.places.file_of(message.place)) : first,
                     has_place ? message.place.line() : 1,
                     has_one(text, kWarnings) ? Severity::warning : Severity::error,
                     text + hint(text, names)});
  }
}

}  // namespace torvane
