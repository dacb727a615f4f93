#include "sources/explained.h"

#include <algorithm>

#include "support/text.h"
#include "text/plain_text.h"

namespace torvane {

WhyTree why_in_text(Engine& engine, const std::string& text) {
  const PlainText plain(text);
  WhyTree why = engine.why(plain.text());
  plain.restore(why.sentence);
  return why;
}

WhyPair why_in_text(Engine& engine, const std::string& text, int modifier, int head) {
  const PlainText plain(text);
  WhyPair why = engine.why(plain.text(), modifier, head);
  plain.restore(why.sentence);
  return why;
}

int word_meant(const Sentence& sentence, const std::string& written, bool root_allowed,
               std::string& fault) {
  const int count = static_cast<int>(sentence.words.size());
  const bool is_number = !written.empty() && std::all_of(written.begin(), written.end(), is_digit);
  if (is_number && written.size() < 6) {
    const int number = std::stoi(written);
    if (number >= (root_allowed ? 0 : 1) && number <= count) return number;
  }
  int found = -1, more = -1;
  for (const bool any_case : {false, true}) {
    for (int i = 1; i <= count && found < 0; ++i) {
      const std::string& form = sentence.words[static_cast<std::size_t>(i - 1)].form;
      if (any_case ? !same_word(form.c_str(), written.c_str()) : form != written) continue;
      found = i;
      for (int k = i + 1; k <= count && more < 0; ++k)
        if (sentence.words[static_cast<std::size_t>(k - 1)].form == form) more = k;
    }
  }
  if (more > 0) {
    fault = "the word " + written + " stands at " + std::to_string(found) + " and " +
            std::to_string(more) + ": say which";
    return -1;
  }
  if (found > 0) return found;
  if (root_allowed && written == "root") return 0;
  fault = is_number ? "the sentence has " + std::to_string(count) + " words"
                    : "the sentence has no word " + written;
  return -1;
}

}  // namespace torvane
