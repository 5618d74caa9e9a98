#include "desktop/reception/reception_window.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include "common/moment_text.h"
#include "common/visible_text.h"
#include "desktop/window/window_place.h"
#include "reception/reception_report.h"

namespace sentrel {
namespace {

constexpr std::chrono::milliseconds kRefresh{500};

QString Text(const std::string& text) {
  return QString::fromStdString(text);
}

QLabel* PlainLabel(const char* name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

/// With room for a few sentences about the chosen line.
QLabel* AdviceLabel(const char* name) {
  QLabel* label = PlainLabel(name);
  label->setMinimumHeight(3 * label->fontMetrics().lineSpacing());
  label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  return label;
}

QWidget* PageOf(std::initializer_list<QWidget*> widgets) {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  for (QWidget* widget : widgets) layout->addWidget(widget);
  return page;
}

std::string LastText(const Reason& reason) {
  return reason.last ? TimeText(reason.last->arrival) : "";
}

std::string RateText(double rate) {
  return rate == 0 ? "" : QString::number(rate, 'f', rate < 10 ? 1 : 0).toStdString();
}

void SetWidths(ListView& list, std::initializer_list<const char*> samples) {
  int col = 0;
  for (const char* sample : samples) {
    list.setColumnWidth(col++, list.fontMetrics().horizontalAdvance(sample) + 20);
  }
}

/// Whether the two are one datagram: no two arrive in the same nanosecond.
bool IsSame(const SeenDatagram& a, const SeenDatagram& b) {
  return a.arrival == b.arrival && a.sender == b.sender;
}

const char* CureText(Cure cure) {
  switch (cure) {
    case Cure::kNone:
      break;
    case Cure::kDeviceFilter:
      return "Device filters ...";
    case Cure::kCommunityFilter:
      return "Communities ...";
    case Cure::kUsers:
      return "Version 3 users ...";
  }
  return "Change ...";
}

}  // namespace

ReceptionWindow::ReceptionWindow(ReceptionMonitor& monitor, Watch& watch, SelfCheck& check,
                                 QWidget* owner)
    : QDialog(owner),
      monitor_(monitor),
      watch_(watch),
      reasons_(monitor),
      pages_(new QTabWidget),
      check_(new CheckPage(check)) {
  setObjectName("Reception");
  setWindowTitle("Reception");
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setProperty("helpTopic", "Reception");
  pages_->setObjectName("Pages");
  pages_->addTab(MakeReasonsPage(), "&Counts");
  pages_->addTab(MakeRefusedPage(), "Re&fused");
  pages_->addTab(MakeWatchPage(), "&Watch");
  pages_->addTab(check_, "&I See Nothing");
  connect(check_, &CheckPage::Started, this, &ReceptionWindow::EmptyWatch);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  auto* copy = buttons->addButton("C&opy All as Text", QDialogButtonBox::ActionRole);
  copy->setObjectName("CopyAll");
  copy->setToolTip("Without communities and names of users");
  connect(copy, &QPushButton::clicked, this, &ReceptionWindow::CopyAll);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(pages_);
  layout->addWidget(buttons);
  for (auto* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
  ResizeOnScreen(*this, {900, 560});
  timer_.setInterval(kRefresh);
  connect(&timer_, &QTimer::timeout, this, &ReceptionWindow::Refresh);
}

QWidget* ReceptionWindow::MakeReasonsPage() {
  reasonsList_ = new ListView("Reasons", "Reasons",
                              {"What became of a datagram", "Count", "A second", "Last", "From"});
  SetWidths(*reasonsList_, {"Wrong passphrase or algorithm", "1000000000", "A second ..",
                            "2026-11-23 22:22:22.222", ""});
  for (const int col : {1, 2}) reasonsList_->AlignRight(col);
  remedy_ = AdviceLabel("Remedy");
  connect(reasonsList_, &QTableWidget::itemSelectionChanged, this, &ReceptionWindow::ShowRemedy);
  return PageOf({reasonsList_, remedy_});
}

QWidget* ReceptionWindow::MakeRefusedPage() {
  refusedList_ = new ListView("RefusedTraps", "Refused traps",
                              {"Time", "Sender", "Version", "Community or user", "Reason"});
  SetWidths(*refusedList_,
            {"22:22:22.222", "255.255.255.255", "v3 noAuthNoPriv", "Community or user", ""});
  auto* label = PlainLabel("RefusedLabel");
  label->setText(
      "The last 500 datagrams that the listener refused, the newest first, kept in memory only. "
      "What pause and the filters refuse is not among them: Watch shows that.");
  refusal_ = AdviceLabel("Refusal");
  connect(refusedList_, &QTableWidget::itemSelectionChanged, this, &ReceptionWindow::ShowRefusal);
  return PageOf({label, refusedList_, refusal_});
}

QWidget* ReceptionWindow::MakeWatchPage() {
  watchList_ = new ListView(
      "Watch", "Watch",
      {"Time", "Sender", "Version", "Community or user", "Notification", "What becomes of it"});
  SetWidths(*watchList_, {"22:22:22.222", "255.255.255.255", "v3 noAuthNoPriv", "Community or user",
                          "authenticationFailure", ""});
  watchState_ = PlainLabel("WatchState");
  startOrStop_ = new QPushButton;
  startOrStop_->setObjectName("StartOrStop");
  cure_ = new QPushButton;
  cure_->setObjectName("Cure");
  connect(startOrStop_, &QPushButton::clicked, this, &ReceptionWindow::StartOrStop);
  connect(watchList_, &QTableWidget::itemSelectionChanged, this, &ReceptionWindow::ShowCure);
  connect(cure_, &QPushButton::clicked, this, [this] {
    const auto row = static_cast<std::size_t>(watchList_->SelectedRow());
    if (row < watch_.Seen().size()) emit CureWanted(watch_.Seen()[row]);
  });
  auto* buttons = new QWidget;
  auto* layout = new QHBoxLayout(buttons);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(startOrStop_);
  layout->addWidget(cure_);
  layout->addStretch();
  return PageOf({watchState_, watchList_, buttons});
}

void ReceptionWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  Refresh();
  timer_.start();
}

void ReceptionWindow::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  timer_.stop();
  watch_.Stop();
}

void ReceptionWindow::Refresh() {
  RefreshReasons();
  RefreshRefused();
  RefreshWatch();
  check_->Refresh();
}

void ReceptionWindow::RefreshReasons() {
  reasons_.Sample(Reasons::Clock::now());
  shownReasons_ = reasons_.List();
  reasonsList_->setRowCount(static_cast<int>(shownReasons_.size()));
  for (int row = 0; row < reasonsList_->rowCount(); ++row) {
    const Reason& reason = shownReasons_[static_cast<std::size_t>(row)];
    reasonsList_->SetTexts(row, {reason.text, std::to_string(reason.count), RateText(reason.rate),
                                 LastText(reason), reason.last ? reason.last->sender : ""});
  }
  ShowRemedy();
}

void ReceptionWindow::ShowRemedy() {
  const auto row = static_cast<std::size_t>(reasonsList_->SelectedRow());
  if (row >= shownReasons_.size()) {
    return remedy_->setText("Choose a line to see what can be done about it.");
  }
  const Reason& reason = shownReasons_[row];
  remedy_->setText(Text(reason.remedy.empty() ? "All is well with these." : reason.remedy));
}

void ReceptionWindow::RefreshRefused() {
  auto refused = monitor_.Refused();
  auto added = refused.begin();
  const bool isFirst = shownRefused_.empty();
  while (added != refused.end() && (isFirst || !IsSame(*added, shownRefused_.front()))) ++added;
  for (auto seen = added; seen != refused.begin();) {
    --seen;
    refusedList_->AddOnTop({TimeOfDayText(seen->arrival), seen->sender, VersionText(*seen),
                            seen->community, RefusalText(*seen)});
  }
  refusedList_->setRowCount(static_cast<int>(refused.size()));
  shownRefused_ = std::move(refused);
  ShowRefusal();
}

void ReceptionWindow::ShowRefusal() {
  const auto row = static_cast<std::size_t>(refusedList_->SelectedRow());
  if (row >= shownRefused_.size()) {
    return refusal_->setText(
        "Choose a line to see the whole reason and what can be done about it.");
  }
  const SeenDatagram& seen = shownRefused_[row];
  refusal_->setText(
      Text(VisibleText(RefusalText(seen)) + "\n" + std::string(RemedyText(seen.outcome))));
}

void ReceptionWindow::RefreshWatch() {
  const auto now = Watch::Clock::now();
  watch_.Look(now);
  for (; forgottenRows_ < watch_.Forgotten(); ++forgottenRows_) {
    if (watchList_->rowCount() > 0) watchList_->removeRow(0);
  }
  const auto& seen = watch_.Seen();
  for (auto row = static_cast<std::size_t>(watchList_->rowCount()); row < seen.size(); ++row) {
    const WatchedDatagram& datagram = seen[row];
    watchList_->AddAtEnd({TimeOfDayText(datagram.seen.arrival), datagram.seen.sender,
                          VersionText(datagram.seen), datagram.seen.community,
                          datagram.notification, datagram.verdict});
  }
  const auto left = watch_.Left(now).count();
  const QString state =
      watch_.IsOn()
          ? QString("Watching for %1 more. Now send a trap from the device.")
                .arg(left > 60 ? QString("%1 minutes").arg(left / 60 + 1)
                               : QString("%1 seconds").arg(left))
          : QString(
                "Watch shows each datagram as it reaches the port, and what becomes of it: also "
                "what pause and the filters refuse, which leaves no trace otherwise. It ends by "
                "itself after ten minutes, and when this window is closed.");
  const QString missed =
      watch_.Missed() == 0
          ? QString()
          : QString(" %1 datagrams came too fast to be shown.").arg(watch_.Missed());
  watchState_->setText(state + missed);
  startOrStop_->setText(watch_.IsOn() ? "&Stop" : "&Start");
  ShowCure();
}

void ReceptionWindow::ShowCure() {
  const auto row = static_cast<std::size_t>(watchList_->SelectedRow());
  const Cure cure = row < watch_.Seen().size() ? watch_.Seen()[row].cure : Cure::kNone;
  cure_->setText(CureText(cure));
  cure_->setEnabled(cure != Cure::kNone);
}

void ReceptionWindow::StartOrStop() {
  if (watch_.IsOn()) {
    watch_.Stop();
  } else {
    EmptyWatch();
    watch_.Start(Watch::Clock::now());
  }
  RefreshWatch();
}

void ReceptionWindow::EmptyWatch() {
  watchList_->setRowCount(0);
  forgottenRows_ = 0;
}

void ReceptionWindow::CopyAll() const {
  QGuiApplication::clipboard()->setText(
      Text(ReceptionReport(reasons_.List(), monitor_.Refused(), watch_.Seen(), check_->Steps())));
}

}  // namespace sentrel
