#include "desktop/filter/filter_bar.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QToolButton>

namespace sentrel {
namespace {

constexpr std::chrono::milliseconds kSlice{8};
constexpr std::chrono::milliseconds kCountInterval{500};
constexpr int kMargin = 4;

QString Text(const std::string& text) {
  return QString::fromStdString(text);
}

/// The tint of a box whose text is wrong, on the desktop's own page.
QColor WrongPage(const QColor& page) {
  constexpr double kShare = 0.25;
  return QColor::fromRgbF(static_cast<float>(page.redF() * (1 - kShare) + kShare),
                          static_cast<float>(page.greenF() * (1 - kShare)),
                          static_cast<float>(page.blueF() * (1 - kShare)));
}

}  // namespace

FilterBar::FilterBar(Table& table, TableFilter& filter, TableView& view, QWidget* parent)
    : QWidget(parent),
      table_(table),
      filter_(filter),
      view_(view),
      box_(new QLineEdit),
      state_(new QLabel),
      completer_(new QCompleter(this)),
      offers_(new QStringListModel(this)) {
  setObjectName("FilterBar");
  setProperty("helpTopic", "Filter");
  box_->setObjectName("Filter");
  box_->setAccessibleName("Filter");
  box_->setClearButtonEnabled(true);
  box_->setPlaceholderText("Show only: from:10.1.0.0/16 trap:linkDown -community:public \"Gi0/7\"");
  box_->installEventFilter(this);
  state_->setObjectName("FilterState");
  state_->setTextFormat(Qt::PlainText);
  auto* label = new QLabel("&Filter:");
  label->setBuddy(box_);
  auto* close = new QToolButton;
  close->setObjectName("CloseFilter");
  close->setText("Close");
  close->setToolTip("Show all traps (Esc)");
  close->setAutoRaise(true);
  connect(close, &QToolButton::clicked, this, &FilterBar::Close);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(2 * kMargin, kMargin, kMargin, kMargin);
  layout->addWidget(label);
  layout->addWidget(box_, 1);
  layout->addWidget(state_);
  layout->addWidget(close);
  completer_->setModel(offers_);
  completer_->setWidget(box_);
  completer_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  connect(completer_, qOverload<const QString&>(&QCompleter::activated), this, &FilterBar::PutIn);
  connect(box_, &QLineEdit::textEdited, this, [this] {
    Apply();
    Offer();
  });
  connect(&slice_, &QTimer::timeout, this, &FilterBar::Continue);
  count_.setInterval(kCountInterval);
  connect(&count_, &QTimer::timeout, this, &FilterBar::ShowState);
  connect(new QShortcut(Qt::Key_F3, &view_, nullptr, nullptr, Qt::WindowShortcut),
          &QShortcut::activated, this, [this] { Step(1); });
  connect(new QShortcut(Qt::SHIFT | Qt::Key_F3, &view_, nullptr, nullptr, Qt::WindowShortcut),
          &QShortcut::activated, this, [this] { Step(-1); });
  auto* slash = new QShortcut(Qt::Key_Slash, &view_, nullptr, nullptr, Qt::WidgetShortcut);
  connect(slash, &QShortcut::activated, this, &FilterBar::Open);
  auto* escape = new QShortcut(Qt::Key_Escape, &view_, nullptr, nullptr, Qt::WidgetShortcut);
  connect(escape, &QShortcut::activated, this, [this] {
    if (isVisible()) Close();
  });
  hide();
}

void FilterBar::Open() {
  show();
  box_->setFocus();
  box_->selectAll();
}

void FilterBar::Close() {
  const bool wasOn = filter_.IsOn();
  const bool hasUsersSelection = filter_.HasUsersSelection();
  completer_->popup()->hide();
  box_->clear();
  Apply();
  hide();
  view_.setFocus();
  if (!wasOn) return;
  view_.ReturnTo(place_);
  // Whoever has chosen another row wants to see what is around it.
  if (hasUsersSelection && table_.RowSel() > 0) view_.MoveCursorTo(table_.RowSel(), true);
}

void FilterBar::Apply() {
  if (!filter_.IsOn()) place_ = view_.TopPlace();
  const auto error = filter_.SetText(box_->text().toStdString(), std::chrono::system_clock::now());
  ShowError(error ? &*error : nullptr);
  if (error) return;
  std::vector<QString> marks;
  for (const std::string& word : filter_.InForce().Words()) marks.push_back(Text(word));
  view_.SetMarks(marks);
  Continue();
}

void FilterBar::Continue() {
  if (filter_.Continue(kSlice)) {
    slice_.start(0);
  } else {
    slice_.stop();
  }
  ShowState();
}

void FilterBar::ShowError(const query::QueryError* error) {
  isWrong_ = error != nullptr;
  QPalette colors = palette();
  if (isWrong_) colors.setColor(QPalette::Base, WrongPage(colors.color(QPalette::Base)));
  box_->setPalette(colors);
  box_->setToolTip(isWrong_ ? Text(error->text) : "");
  box_->setAccessibleDescription(isWrong_ ? Text(error->text) : "");
  if (isWrong_) state_->setText(Text(error->text));
}

void FilterBar::ShowState() {
  if (!filter_.IsOn()) {
    count_.stop();
    if (!isWrong_) state_->clear();
    return;
  }
  count_.start();
  const int shown = table_.Rows() - 1;
  if (!isWrong_) state_->setText(QString("%1 of %2").arg(shown).arg(shown + table_.Shelved()));
}

void FilterBar::Offer() {
  const QString before = box_->text().left(box_->cursorPosition());
  const std::string text = before.toStdString();
  const query::Completion completion = query::Complete(text, text.size(), filter_.NamesInUse());
  QStringList offers;
  for (const std::string& offer : completion.texts) offers << Text(offer);
  offers_->setStringList(offers);
  offeredAt_ = completion.at;
  if (offers.isEmpty()) return completer_->popup()->hide();
  completer_->complete();
}

void FilterBar::PutIn(const QString& text) {
  const QString before = box_->text().left(box_->cursorPosition());
  const QString behind = box_->text().mid(box_->cursorPosition());
  const QString kept = Text(before.toStdString().substr(0, offeredAt_));
  box_->setText(kept + text + behind);
  box_->setCursorPosition(static_cast<int>((kept + text).size()));
  Apply();
}

/// From the last row on to the first one, and the other way round.
void FilterBar::Step(int rows) {
  const int count = table_.Rows() - 1;
  if (count == 0 || !filter_.IsOn()) return;
  view_.MoveCursorTo((table_.RowSel() - 1 + rows + count) % count + 1, false);
}

void FilterBar::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  // The tint is of the desktop's colours.
  if (event->type() == QEvent::PaletteChange && !isWrong_) box_->setPalette(palette());
}

bool FilterBar::eventFilter(QObject* watched, QEvent* event) {
  if (watched == box_ && event->type() == QEvent::KeyPress) {
    switch (static_cast<QKeyEvent*>(event)->key()) {
      case Qt::Key_Escape:
        Close();
        return true;
      case Qt::Key_Down:
      case Qt::Key_Return:
      case Qt::Key_Enter:
        view_.setFocus();
        return true;
      default:
        break;
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace sentrel
