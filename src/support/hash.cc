#include "support/hash.h"

namespace torvane {

int next_prime(int n) {
  for (int prime : {101, 1997, 9973, 19997, 29989, 59999, 89989, 99991})
    if (prime >= n) return prime;
  return n;
}

}  // namespace torvane
