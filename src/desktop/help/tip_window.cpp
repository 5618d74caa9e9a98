#include "desktop/help/tip_window.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <functional>

#include "common/failure.h"
#include "desktop/window/icons.h"
#include "shell/tip_choice.h"
#include "shell/tip_of_the_day.h"

namespace sentrel {
namespace {

constexpr int kIconSize = 48;
constexpr int kMargin = 20;
constexpr int kGap = 16;
constexpr int kTextWidth = 430;
constexpr int kTextLines = 7;
constexpr double kTitleScale = 1.25;

std::vector<Tip> TipsIn(const QString& path) {
  QFile file(path);
  if (!file.open(QFile::ReadOnly)) throw Failure("There is no file " + path.toStdString());
  std::vector<Tip> tips = ReadTips(file.readAll().toStdString());
  if (tips.empty()) throw Failure("There are no tips in the file " + path.toStdString());
  return tips;
}

/// One tip at a time, with buttons to turn to others.
class TipWindow : public QDialog {
 public:
  TipWindow(QWidget& owner, TipChoice choice) : QDialog(&owner), choice_(std::move(choice)) {
    setObjectName("TipOfTheDay");
    QFont font = title_->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * kTitleScale);
    title_->setFont(font);
    title_->setWordWrap(true);
    title_->setObjectName("Title");
    text_->setWordWrap(true);
    text_->setObjectName("Text");
    for (QLabel* label : {title_, text_}) label->setTextFormat(Qt::PlainText);
    text_->setAlignment(Qt::AlignTop);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    text_->setMinimumSize(kTextWidth, kTextLines * fontMetrics().lineSpacing());
    atStart_->setObjectName("ShowAtStartup");
    Arrange();
    ShowTip();
  }

  QCheckBox& AtStart() { return *atStart_; }

 private:
  void Arrange() {
    auto* icon = new QLabel(this);
    icon->setPixmap(ToolIcon("Help:TipOfTheDay").pixmap(kIconSize, kIconSize));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    AddButton(*buttons, "Previous", "&Previous", [this] { choice_.Previous(); });
    AddButton(*buttons, "Next", "&Next", [this] { choice_.Next(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(kGap / 2);
    grid->addWidget(icon, 0, 0, 2, 1, Qt::AlignTop);
    grid->addWidget(title_, 0, 1);
    grid->addWidget(text_, 1, 1);
    grid->setRowStretch(1, 1);
    grid->addWidget(atStart_, 2, 1);
    grid->setRowMinimumHeight(3, kGap / 2);
    grid->addWidget(buttons, 4, 0, 1, 2);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    buttons->button(QDialogButtonBox::Close)->setFocus();
  }

  void AddButton(QDialogButtonBox& box, const char* name, const QString& caption,
                 std::function<void()> turn) {
    QPushButton* button = box.addButton(caption, QDialogButtonBox::ActionRole);
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, turn = std::move(turn)] {
      turn();
      ShowTip();
    });
  }

  void ShowTip() {
    title_->setText(QString::fromStdString(choice_.Current().title));
    text_->setText(QString::fromStdString(choice_.Current().text));
  }

  TipChoice choice_;
  QLabel* title_ = new QLabel(this);
  QLabel* text_ = new QLabel(this);
  QCheckBox* atStart_ = new QCheckBox("&Show tips at startup", this);
};

class OneTipDialog : public TipDialog {
 public:
  OneTipDialog(QWidget& owner, const RegistrySupport& registry, const Clock& clock)
      : owner_(owner), registry_(registry), clock_(clock) {}

  void SetProgramName(const std::string& text) override { program_ = QString::fromStdString(text); }
  void SetPath(const std::string& folder) override { folder_ = QString::fromStdString(folder); }

  void Show(const std::string& tipSet) override {
    const QString file = folder_ + "/tips/" + QString::fromStdString(tipSet) + ".txt";
    TipWindow window(owner_, TipChoice(TipsIn(file), clock_.Now()));
    window.setWindowTitle(program_ + " - Tip of the Day");
    window.AtStart().setChecked(TipsAtStart(registry_));
    QObject::connect(&window.AtStart(), &QCheckBox::toggled, &window,
                     [this](bool wanted) { SetTipsAtStart(registry_, wanted); });
    window.exec();
  }

 private:
  QWidget& owner_;
  RegistrySupport registry_;
  const Clock& clock_;
  QString program_;
  QString folder_;
};

}  // namespace

std::unique_ptr<TipDialog> TipWindowFactory::Create() {
  return std::make_unique<OneTipDialog>(owner_, registry_, clock_);
}

}  // namespace sentrel
