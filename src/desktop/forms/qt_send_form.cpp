#include "desktop/forms/qt_send_form.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace sentrel {
namespace {

constexpr int kLettersOfABox = 50;

template <typename Widget>
Widget* Named(const char* name, Widget* widget) {
  widget->setObjectName(name);
  return widget;
}

QLabel* Above(QtAutoCombo* box, const char* name, const QString& caption) {
  auto* label = Named(name, new QLabel(caption));
  label->setBuddy(box);
  return label;
}

QLabel* MessagePanel(QWidget* parent) {
  auto* panel = Named("Message", new QLabel(parent));
  panel->setAlignment(Qt::AlignCenter);
  panel->setAutoFillBackground(true);
  QFont font = panel->font();
  font.setPointSizeF(font.pointSizeF() * 1.25);
  panel->setFont(font);
  panel->hide();
  return panel;
}

}  // namespace

QtSendForm::QtSendForm(SNMP& snmp, MessageBox& messageBox, Registry& registry, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowCloseButtonHint),
      form_(*this, snmp, messageBox, registry),
      target_(Named("Target", new QtAutoCombo(form_.Target()))),
      community_(Named("Community", new QtAutoCombo(form_.Community()))) {
  setObjectName("SendForm");
  setWindowTitle(" Send Trap ...");
  LayOut();
  message_ = MessagePanel(this);
}

void QtSendForm::LayOut() {
  auto* send = Named("cmdSend", new QPushButton("Send"));
  auto* cancel = Named("cmdCancel", new QPushButton("Cancel"));
  send->setDefault(true);
  cancel->setAutoDefault(false);
  connect(send, &QPushButton::clicked, this, [this] { form_.cmdSend_Click(); });
  connect(cancel, &QPushButton::clicked, this, [this] { form_.cmdCancel_Click(); });

  const int gap = style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing) * 2;
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(Above(target_, "Label1", "Hostname or IP Address"));
  rows->addWidget(target_);
  rows->addSpacing(gap);
  rows->addWidget(Above(community_, "Label2", "SNMP Community String"));
  rows->addWidget(community_);
  rows->addSpacing(gap);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(send);
  buttons->addWidget(cancel);
  rows->addLayout(buttons);
  for (QtAutoCombo* box : {target_, community_}) {
    box->setMinimumWidth(fontMetrics().averageCharWidth() * kLettersOfABox);
  }
  rows->setSizeConstraint(QLayout::SetFixedSize);
}

void QtSendForm::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  form_.Form_Resize();
}

void QtSendForm::done(int result) {
  QDialog::done(result);
  form_.Form_Unload();
}

void QtSendForm::ShowModal() {
  FocusTarget();
  exec();
}

void QtSendForm::SetHelpContext(int number) {
  setProperty("helpContext", number);
}

Area QtSendForm::InnerArea() const {
  return {0, 0, width(), height()};
}

void QtSendForm::FocusTarget() {
  target_->setFocus();
  target_->lineEdit()->selectAll();
}

void QtSendForm::MoveMessage(const Area& area) {
  message_->setGeometry(area.left, area.top, area.width, area.height);
}

void QtSendForm::ShowMessage(const std::string& caption) {
  message_->setText(QString::fromStdString(caption));
  message_->raise();
  message_->show();
}

void QtSendForm::HideMessage() {
  message_->hide();
}

void QtSendForm::SetHourglass(bool on) {
  if (on) {
    setCursor(Qt::WaitCursor);
  } else {
    unsetCursor();
  }
}

void QtSendForm::ProcessEvents() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtSendForm::Unload() {
  done(Accepted);
}

}  // namespace sentrel
