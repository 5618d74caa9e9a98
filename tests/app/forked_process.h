#pragma once

#include <QProcess>

namespace sentrel {

/// A process that is forked, not made by vfork: what the thread sanitizer keeps of its parent would
/// otherwise be changed by the child.
class ForkedProcess : public QProcess {
 public:
  ForkedProcess() {
    setChildProcessModifier([] {});
  }
};

}  // namespace sentrel
