#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "desktop/forms/send_dialog.h"
#include "fakes/fake_console.h"
#include "fakes/fake_registry.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Looks at the dialog at the moment of the send.
struct WatchedSNMP : FakeSNMP {
  using FakeSNMP::FakeSNMP;
  std::int16_t SendTrap(const std::string& target, const std::string& community,
                        const std::vector<std::string>& OIDs,
                        const std::vector<std::string>& Values,
                        const std::vector<std::int16_t>& DataTypes) override {
    if (atSend) atSend();
    return FakeSNMP::SendTrap(target, community, OIDs, Values, DataTypes);
  }
  std::function<void()> atSend;
};

/// The dialog on the screen, used with mouse and keyboard.
struct SendDialogTest : testing::Test {
  /// Shows the dialog to a user until it closes; one that the user leaves open is cancelled.
  void Use(const std::function<void()>& user) {
    calls.calls.clear();
    SendDialog shown(snmp, box, registry, nullptr);
    form = &shown;
    bool used = false;
    QTimer::singleShot(0, &shown, [&] {
      EXPECT_TRUE(QTest::qWaitForWindowActive(form));
      user();
      used = true;
      if (form->isVisible()) shown.reject();
    });
    shown.SendTrap(trap);
    EXPECT_TRUE(used);
    form = nullptr;
  }
  template <typename Widget = QWidget>
  Widget& Find(const char* name) {
    return *form->findChild<Widget*>(name);
  }
  AutoComboBox& Box(const char* name) { return Find<AutoComboBox>(name); }
  void Type(const char* name, const char* text) {
    Box(name).lineEdit()->selectAll();
    QTest::keyClicks(Box(name).lineEdit(), text);
  }
  void Click(const char* name) { QTest::mouseClick(&Find(name), Qt::LeftButton); }
  std::vector<std::string> Entries(const char* name) {
    std::vector<std::string> entries;
    for (int i = 0; i < Box(name).count(); ++i)
      entries.push_back(Box(name).itemText(i).toStdString());
    return entries;
  }
  bool TargetHasFocus() { return QApplication::focusWidget() == &Box("Target"); }

  CallLog calls;
  WatchedSNMP snmp{calls};
  FakeMessageBox box{calls};
  FakeRegistry registry;
  TrapObject trap;
  SendDialog* form = nullptr;
};

TEST_F(SendDialogTest, HasItsTitleCaptionsAndDefaults) {
  Use([&] {
    EXPECT_EQ(form->windowTitle(), " Send Trap ...");
    EXPECT_TRUE(form->isModal());
    EXPECT_EQ(form->minimumSize(), form->maximumSize()) << "its size is fixed";
    EXPECT_FALSE(form->windowFlags() & Qt::WindowMinMaxButtonsHint);
    EXPECT_EQ(form->property("helpContext"), 9100);
    EXPECT_EQ(form->property("helpTopic"), "SendTrap");
    const std::tuple<const char*, const char*, const char*> labels[] = {
        {"Label1", "Hostname or IP Address", "Target"},
        {"Label2", "SNMP Community String", "Community"}};
    for (const auto& [label, caption, of] : labels) {
      EXPECT_EQ(Find<QLabel>(label).text(), caption);
      EXPECT_EQ(Find<QLabel>(label).buddy(), &Box(of));
      EXPECT_LT(Find(label).geometry().bottom(), Box(of).geometry().top());
    }
    EXPECT_TRUE(Find<QPushButton>("cmdSend").isDefault());
    EXPECT_EQ(Find<QPushButton>("cmdSend").text(), "Send");
    EXPECT_EQ(Find<QPushButton>("cmdCancel").text(), "Cancel");
    EXPECT_FALSE(Find("Message").isVisible());
    EXPECT_TRUE(TargetHasFocus());
    EXPECT_EQ(Box("Target").currentText(), "");
    EXPECT_EQ(Box("Community").currentText(), "public");
  });
  EXPECT_THAT(calls.calls, IsEmpty());
}

TEST_F(SendDialogTest, EnterSendsWithThePanelOverAllOfTheDialog) {
  snmp.atSend = [&] {
    EXPECT_TRUE(Find("Message").isVisible());
    EXPECT_EQ(Find<QLabel>("Message").text(), "Sending SNMP Trap ...");
    EXPECT_EQ(Find("Message").geometry(), form->rect());
    for (const char* covered : {"Target", "Community", "cmdSend", "cmdCancel"}) {
      EXPECT_EQ(form->childAt(Find(covered).geometry().center()), &Find("Message")) << covered;
    }
    EXPECT_EQ(form->cursor().shape(), Qt::WaitCursor);
  };
  Use([&] {
    Type("Target", "  192.0.2.1 ");
    Type("Community", "private");
    QTest::keyClick(Box("Community").lineEdit(), Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
  });
  EXPECT_THAT(calls.calls, ElementsAre("SendTrap 192.0.2.1 private"));
  Use([&] {
    EXPECT_EQ(Box("Target").currentText(), "192.0.2.1");
    EXPECT_EQ(Box("Community").currentText(), "private");
    EXPECT_THAT(Entries("Target"), ElementsAre("192.0.2.1"));
  });
}

TEST_F(SendDialogTest, PendingEventsAreHandledBeforeTheSendButNoKeys) {
  bool trapTaken = false;
  snmp.atSend = [&] { EXPECT_TRUE(trapTaken); };
  snmp.sendResult = 1;
  Use([&] {
    Type("Target", "192.0.2.1");
    QMetaObject::invokeMethod(
        form, [&] { trapTaken = true; }, Qt::QueuedConnection);
    Click("cmdSend");
  });
  EXPECT_THAT(calls.calls, ElementsAre("SendTrap 192.0.2.1 public", "MessageBox"));
}

TEST_F(SendDialogTest, AFailureLeavesTheDialogForAnotherTry) {
  snmp.sendResult = 1;
  Use([&] {
    Type("Target", "192.0.2.9");
    Box("Community").setFocus();
    Click("cmdSend");
    EXPECT_FALSE(Find("Message").isVisible());
    EXPECT_EQ(form->cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(TargetHasFocus());
    EXPECT_EQ(Box("Target").currentText(), "192.0.2.9");
    snmp.sendResult = 0;
    Click("cmdSend");
    EXPECT_FALSE(form->isVisible());
  });
}

TEST_F(SendDialogTest, CancelEscapeAndTheTitleBarCloseWithoutSending) {
  const std::function<void()> ways[] = {
      [&] { Click("cmdCancel"); },
      [&] { QTest::keyClick(Box("Target").lineEdit(), Qt::Key_Escape); },
      [&] { form->close(); },
  };
  for (const auto& close : ways) {
    Use([&] {
      Type("Target", "192.0.2.1");
      close();
      EXPECT_FALSE(form->isVisible());
    });
    EXPECT_THAT(calls.calls, IsEmpty());
  }
  EXPECT_EQ(registry.changes, 0);
}

struct RememberingDialog : SendDialogTest {
  RememberingDialog() {
    for (const char* host : {"192.0.2.10", "noc.example", "192.0.2.1"}) {
      Use([&] {
        Type("Target", host);
        snmp.hosts[host] = "192.0.2.1";
        Box("Target").completer()->popup()->hide();
        Click("cmdSend");
      });
    }
  }
};

TEST_F(RememberingDialog, DropsDownWhatWasSentToNewestFirst) {
  Use([&] {
    EXPECT_THAT(Entries("Target"), ElementsAre("192.0.2.1", "noc.example", "192.0.2.10"));
    QTest::keyClick(&Box("Target"), Qt::Key_Down);
    EXPECT_EQ(Box("Target").currentText(), "noc.example");
    Click("cmdSend");
  });
  EXPECT_THAT(calls.calls, ElementsAre("ResolveHost noc.example", "SendTrap 192.0.2.1 public"));
}

TEST_F(RememberingDialog, CompletesWhileTyping) {
  Use([&] {
    Type("Target", "n");
    QAbstractItemView* popup = Box("Target").completer()->popup();
    ASSERT_TRUE(popup->isVisible());
    QTest::keyClick(popup, Qt::Key_Down);
    QTest::keyClick(popup, Qt::Key_Return);
    EXPECT_EQ(Box("Target").currentText(), "noc.example");
    EXPECT_TRUE(form->isVisible());
  });
}

TEST_F(RememberingDialog, WhatIsTypedIsSentWhateverIsOffered) {
  Use([&] {
    Type("Target", "192.0.2");
    EXPECT_TRUE(Box("Target").completer()->popup()->isVisible());
    QTest::keyClicks(Box("Target").completer()->popup(), ".1");
    QTest::keyClick(Box("Target").completer()->popup(), Qt::Key_Return);
    EXPECT_FALSE(form->isVisible()) << "one Enter is enough";
  });
  EXPECT_THAT(calls.calls, ElementsAre("SendTrap 192.0.2.1 public"));
  Use([&] {
    Type("Community", "PUBLIC");
    QTest::keyClick(Box("Community").lineEdit(), Qt::Key_Return);
  });
  EXPECT_THAT(calls.calls, ElementsAre("SendTrap 192.0.2.1 PUBLIC")) << "case counts";
}

}  // namespace
}  // namespace sentrel
