#pragma once

#include <string_view>

namespace torvane {

/// The page that people see, without anything from outside. Made of src/service/page.html.
std::string_view service_page();

}  // namespace torvane
