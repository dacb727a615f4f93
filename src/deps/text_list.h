// A list of texts as the value of a property; a tree owns it, with the texts.
#pragma once

#include "support/slist.h"
#include "support/value.h"

namespace torvane {

class TextList : public Slist<const char*> {};

namespace tags {
inline constexpr TypeTag text_list{"TSlist<const char*>*", nullptr, Life::sentence};  // by era
}
template <>
struct ValueTraits<TextList> : TagOf<TextList, tags::text_list> {};

}  // namespace torvane
