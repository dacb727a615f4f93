// Whether the build runs under the address sanitizer. It is to see what is freed, so nothing is
// used again then; and its frames are larger.
#pragma once

namespace torvane {

#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kAddressSanitizer = true;
#elif defined(__has_feature)
inline constexpr bool kAddressSanitizer = __has_feature(address_sanitizer);
#else
inline constexpr bool kAddressSanitizer = false;
#endif

}  // namespace torvane
