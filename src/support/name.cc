#include "support/name.h"

#include <mutex>

#include "support/name_table.h"

namespace torvane {

Name::Name(const char* text) {
  if (!text) return;
  static std::mutex mutex;
  static NameTable<bool> names(1997, byte_compare);
  std::lock_guard lock(mutex);
  const auto* entry = names.find(text);
  if (!entry) entry = names.insert(text, true);
  text_ = entry->key;
}

}  // namespace torvane
