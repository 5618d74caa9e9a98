#pragma once

#include <QString>
#include <QTemporaryDir>
#include <memory>

namespace sentrel {

/// Files that are written only to be opened in another program. They are in a folder that no other
/// user can read, and that is removed with this object. After a crash the system removes it, when
/// the user logs out or at its next start. Used on the event loop.
class OpenedFiles {
 public:
  /// Where to write a file of this name; never a file that exists. Throws Failure if the folder
  /// cannot be made.
  QString PathFor(const QString& name);

 private:
  std::unique_ptr<QTemporaryDir> folder_;  // made by the first file
};

}  // namespace sentrel
