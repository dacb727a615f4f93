// The type names of the expression language and their numbers. Nothing fixes the set: a name gets a
// number when it is first used. -1 means any type.
#pragma once

namespace torvane {

inline constexpr int kAnyType = -1;

/// The number of a name, new if need be, from 1 on, without regard to case; -1 for null.
int type_id(const char* name);
/// "void*" for -1; "" after "Unknown type id: " for 0 and other negative numbers; null beyond the
/// table.
const char* type_name(int id);

}  // namespace torvane
