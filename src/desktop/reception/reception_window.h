#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include "desktop/reception/check_page.h"
#include "desktop/reception/list_view.h"
#include "reception/reasons.h"
#include "reception/watch.h"

namespace sentrel {

/// "Where is my trap?": what the listener has counted, what it refused, and what reaches the socket
/// while someone watches. Modeless, and at work only while it is seen. Used on the event loop only.
class ReceptionWindow : public QDialog {
  Q_OBJECT
 public:
  /// The first three must outlive the window.
  ReceptionWindow(ReceptionMonitor& monitor, Watch& watch, SelfCheck& check, QWidget* owner);

  /// Brings the page of the check to the front.
  void ShowCheck() { pages_->setCurrentWidget(check_); }

 signals:
  /// The user wants to change what keeps this datagram out: nothing else happens by itself.
  void CureWanted(const WatchedDatagram& datagram);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget* MakeReasonsPage();
  QWidget* MakeRefusedPage();
  QWidget* MakeWatchPage();
  void Refresh();
  void RefreshReasons();
  void RefreshRefused();
  void RefreshWatch();
  void ShowRemedy();
  void ShowRefusal();
  void ShowCure();
  void StartOrStop();
  void EmptyWatch();
  void CopyAll() const;

  ReceptionMonitor& monitor_;
  Watch& watch_;
  Reasons reasons_;
  std::vector<Reason> shownReasons_;
  std::vector<SeenDatagram> shownRefused_;
  /// Rows of the watch that have been taken out of its list.
  std::size_t forgottenRows_ = 0;
  QTimer timer_;
  QTabWidget* pages_;
  CheckPage* check_;
  ListView* reasonsList_;
  ListView* refusedList_;
  ListView* watchList_;
  QLabel* remedy_;
  QLabel* refusal_;
  QLabel* watchState_;
  QPushButton* startOrStop_;
  QPushButton* cure_;
};

}  // namespace sentrel
