#include "benchmarks.h"
namespace sentrel::bench {
int RunResponse() {
  return 0;
}
}  // namespace sentrel::bench
