// What the sources of the nested attributes share.
#pragma once

#include <ostream>

#include "att/att_vec.h"
#include "support/depth.h"

namespace torvane {

/// The guard of every walk from a vector to those inside it.
DepthLimit& nesting_limit();

/// Writes each vector with `before` in front of it.
void print_vectors(std::ostream& out, const AttVec& vec, const char* before);
void print_vectors(std::ostream& out, const AttVecList& list, const char* before);

void pack_nested(const AttVec& vec, StrBufs& out);
/// False if the bytes are cut off or nest too deep.
bool unpack_nested(AttVec& vec, const char*& p, const char* end);

}  // namespace torvane
