// Lines of a picture made of characters.
#pragma once

#include <string>

namespace torvane {

/// What a cell of the picture has lines to.
enum BoxLine : unsigned char { kUp = 1, kDown = 2, kLeft = 4, kRight = 8 };

/// Appends the character that has these lines.
inline void add_box(std::string& out, unsigned char lines, bool ascii) {
  static constexpr const char* kSigns[] = {" ", "│", "│", "│", "─", "┘", "┐", "┤",
                                           "─", "└", "┌", "├", "─", "┴", "┬", "┼"};
  if (!ascii) {
    out += kSigns[lines & 15];
  } else if (lines == 0) {
    out += ' ';
  } else {
    const bool stands = lines & (kUp | kDown), lies = lines & (kLeft | kRight);
    out += stands && lies ? '+' : stands ? '|' : '-';
  }
}

}  // namespace torvane
