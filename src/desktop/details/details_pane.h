#pragma once

#include <QAction>
#include <QObject>

#include "controls/table.h"
#include "desktop/details/details_panel.h"
#include "desktop/window/trap_window.h"
#include "settings/registry_support.h"

namespace sentrel {

/// The details of the selected trap beside the table of the main window: off at first, made when
/// they are first shown, and where and as large as they were left in the last run. Used on the
/// event loop only.
class DetailsPane : public QObject {
  Q_OBJECT
 public:
  /// All of these must outlive the pane.
  DetailsPane(TrapWindow& window, const Table& table, MibLibrary& names, const MibFacts& facts,
              Registry& registry);

  /// Adds the command to the View menu, and shows the details where they were shown in the last
  /// run.
  void Start();

 private:
  void Toggle(bool shown);
  void Open();
  void Make();
  void Follow(int row);
  void PutRight(bool right);
  std::string Stored(const char* name) const;
  void Store(const char* name, const std::string& text);
  void StoreSize();

  TrapWindow& window_;
  const Table& table_;
  MibLibrary& names_;
  const MibFacts& facts_;
  RegistrySupport store_;
  QAction* command_ = nullptr;
  QSplitter* panes_ = nullptr;
  DetailsPanel* panel_ = nullptr;
};

}  // namespace sentrel
