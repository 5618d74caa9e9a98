// SENTREL_SOAK_MINUTES says how long; a few seconds without it. SENTREL_SOAK_SEED sets another
// course.

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QDir>
#include <QElapsedTimer>
#include <QPixmapCache>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <optional>

#include "app/program.h"
#include "common/atomic_file.h"
#include "fakes/shell.h"
#include "memory.h"
#include "storm.h"
#include "user.h"

namespace sentrel {
namespace {

namespace fs = std::filesystem;

constexpr int kActsInRound = 250;
constexpr int kShortRounds = 4;
/// What caches of the toolkit may still take in the second half.
constexpr std::size_t kHeapMargin = 6 << 20;
constexpr std::size_t kResidentMargin = 24 << 20;

/// Of the senders of version 3 among the samples one is known, one has another phrase, and one is
/// unknown.
constexpr const char* kUsers =
    "createUser -e 0x8000000001020304 sha SHA auth-pass-phrase\n"
    "createUser -e 0x8000000001020304 aes SHA-256 another-phrase AES priv-pass-phrase\n"
    "createUser good SHA auth-pass-phrase AES priv-pass-phrase\n";
constexpr const char* kSoakOid = "1.3.6.1.4.1.58213.77";

void Write(const std::string& path, const std::string& text) {
  MakeFolderFor(path);
  WriteFile(path, text);
}

/// A home of its own for a program that has not started yet, and no program of the desktop.
struct Home {
  Home() {
    for (const auto& [name, folder] : {std::pair{"HOME", ""},
                                       {"XDG_DATA_HOME", "data"},
                                       {"XDG_CACHE_HOME", "cache"},
                                       {"XDG_RUNTIME_DIR", "run"},
                                       {"SNMPCONFPATH", "snmp"},
                                       {"SNMP_PERSISTENT_DIR", "sender"},
                                       {"PATH", "none"}}) {
      qputenv(name, root.filePath(folder).toUtf8());
    }
    Write(Path("snmp/sentrel.conf"), kUsers);
    QDir::setCurrent(root.path());
    QFile::remove(QCoreApplication::applicationDirPath() + "/test_soak.Toolbars");
  }
  std::string Path(const char* name) const { return root.filePath(name).toStdString(); }
  QStringList Files() const {
    QStringList files;
    for (const char* name : {"a.txt", "b", "<b>c<i>.html", "none/d.pdf", "e e.xlsx", "f.log"}) {
      files << root.filePath(name);
    }
    return files;
  }

  QTemporaryDir root;
};

struct Memory {
  std::size_t heap;
  std::size_t resident;
};

class SoakTest : public testing::Test {
 protected:
  SoakTest() {
    fmt::print("Seed {}, {} minutes\n", seed, minutes);
    bool started = false;
    QTimer::singleShot(0, &program.Window(), [&] { started = program.Start(); });
    user.SetLimits({{"Main:Exit"}, home.Files()});
    user.Act([&] { return started; }, [] {});  // a tip is shown
    storm.emplace(program.Listener().Port(), seed, FilesIn(SAMPLES));
  }
  ~SoakTest() override { program.Window().close(); }

  ListenerCounters Counters() const { return program.Listener().Counters(); }
  std::uint64_t Received() const { return Counters().Received() - ofOthers; }
  std::uint64_t Accepted() const { return Counters().Of(Outcome::kAccepted); }
  QAction& Tool(const char* id) { return *program.Window().findChild<QAction*>(id); }

  /// Lets every trap in, and logs none.
  void OpenGate() {
    Settings& options = program.Options();
    options.SetDeviceFilterActive(false);
    options.CommunityStrings()->Clear();
    options.SetLoggingEnabled(false);
    options.SetRaw(false);
    if (options.Paused()) Tool("Edit:Pause").trigger();
  }
  /// Everything that was sent has become rows. The gate is open.
  void Settle() {
    ASSERT_TRUE(QTest::qWaitFor([&] { return Received() == storm->Sent(); }, 60'000));
    const std::string text = "mark " + std::to_string(++marks);
    storm->SendMarker(kSoakOid, text);
    const Table& rows = program.Traps();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return rows.Rows() > 1 && rows.RowData(1).ends_with("=" + text); }, 120'000));
    ASSERT_TRUE(QTest::qWaitFor([&] { return storm->Answers() == storm->Informs(); }, 10'000));
    EXPECT_EQ(Received(), storm->Sent());
    EXPECT_EQ(Counters().systemDrops, 0U);
    EXPECT_EQ(Counters().Of(Outcome::kQueueFull), 0U);
    EXPECT_LE(rows.Rows(), kMostTraps + 1);
  }
  void Play(QStringList forbidden) {
    user.SetLimits({std::move(forbidden), home.Files()});
    const std::uint64_t end = user.Acts() + kActsInRound;
    user.Act([&] { return user.Acts() >= end; }, [&] { storm->Blow(Received()); });
  }

  /// The user may do anything: open, close and change whatever there is.
  void FreeRound() {
    Play({"Main:Exit"});
    OpenGate();
    Settle();
  }
  /// All traps pass and are logged, whatever else the user does.
  void CountedRound() {
    std::string log = home.Path("counted.log");
    fs::remove(log);
    program.Options().SetLogFilename(log);
    program.Options().SetLoggingEnabled(true);
    const std::uint64_t before = Accepted();
    Play({"Main:Exit", "Main:Settings", "Edit:Pause"});
    Settle();
    program.Options().SetLoggingEnabled(false);
    const QByteArray text = QByteArray::fromStdString(ReadFile(log));
    EXPECT_TRUE(text.endsWith("\r\n"));
    EXPECT_EQ(text.count("   127.0.0.1\r\n"), static_cast<qsizetype>(Accepted() - before));
  }
  void SendVersion3Inform() {
    QProcess sender;
    const QString target = QString("127.0.0.1:%1").arg(program.Listener().Port());
    const QString options =
        "-v3 -r0 -t5 -u good -l authPriv -a SHA -A auth-pass-phrase -x AES -X priv-pass-phrase";
    sender.start(SNMPINFORM, options.split(' ')
                                 << target << QStringList{"1", "1.3.6.1.6.3.1.1.5.1"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return sender.state() == QProcess::NotRunning; }, 20'000));
    EXPECT_EQ(sender.exitCode(), 0);
    ofOthers = Counters().Received() - storm->Sent();
  }
  /// The user's MIB modules come and go while the program runs.
  void RenewModules() {
    program.Options().SetRaw(false);
    fs::remove_all(home.Path("data/sentrel/mibs"));
    const std::string name = "soak" + std::to_string(++marks);
    Write(home.Path("data/sentrel/mibs/soak"),
          "SOAK-MIB DEFINITIONS ::= BEGIN IMPORTS enterprises FROM SNMPv2-SMI;\n" + name +
              " OBJECT IDENTIFIER ::= { enterprises 58213 77 } END\n");
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
          storm->SendMarker(kSoakOid, "x");
          return program.Traps().Cell(1, 4).find(name) != std::string::npos;
        },
        20'000))
        << name << " is not in " << program.Traps().Cell(1, 4);
  }
  /// In a state that is the same each time.
  Memory Measure() {
    RenewModules();
    for (int i = 0; i < kMostTraps + 50; ++i) {
      storm->SendMarker(kSoakOid, "fills the table");
      while (Received() + 50 < storm->Sent()) QCoreApplication::processEvents();
    }
    Settle();
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window != &program.Window()) window->close();
    }
    program.Window().resize(1000, 700);
    QGuiApplication::clipboard()->clear();
    QPixmapCache::clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTest::qWait(1);
    return {HeapInUse(), ResidentMemory()};
  }
  void PlayHalf() {
    QElapsedTimer time;
    time.start();
    for (int round = 0; !HasFailure(); round += 2) {
      if (minutes == 0 && round >= kShortRounds / 2) return;
      if (minutes > 0 && time.elapsed() >= qint64{minutes} * 30'000) return;
      FreeRound();
      CountedRound();
      SendVersion3Inform();
      Settle();
    }
  }

  const std::uint32_t seed = qEnvironmentVariableIntValue("SENTREL_SOAK_SEED");
  const int minutes = qEnvironmentVariableIntValue("SENTREL_SOAK_MINUTES");
  Home home;
  Program program{{.port = 0,
                   .sendPort = test::FreePort(),
                   .machineFolder = home.Path("machine"),
                   .userFolder = home.Path("user")}};
  User user{program.Window(), seed};
  std::optional<Storm> storm;
  /// Datagrams that the storm did not send.
  std::uint64_t ofOthers = 0;
  int marks = 0;
};

TEST_F(SoakTest, NothingIsLostMiscountedOrHeld) {
  PlayHalf();
  const Memory before = Measure();
  PlayHalf();
  const Memory after = Measure();
  const ListenerCounters counters = Counters();
  fmt::print("{} acts, {} dialogs, {} datagrams, {} informs answered:", user.Acts(), user.Dialogs(),
             storm->Sent(), counters.answeredInforms);
  for (std::size_t i = 0; i < kOutcomes; ++i) {
    fmt::print(" {} {},", counters.outcomes[i], OutcomeText(static_cast<Outcome>(i)));
  }
  fmt::print("\nHeap {} KiB, then {}; resident {} KiB, then {}\n", before.heap >> 10,
             after.heap >> 10, before.resident >> 10, after.resident >> 10);
  for (const Outcome outcome : {Outcome::kAccepted, Outcome::kTruncated, Outcome::kMalformed,
                                Outcome::kWrongDigest, Outcome::kUnknownUser}) {
    EXPECT_GT(counters.Of(outcome), 0U) << OutcomeText(outcome);
  }
  EXPECT_GT(user.Dialogs(), 10U);
  EXPECT_LE(after.heap, before.heap + kHeapMargin);
  EXPECT_LE(after.resident, before.resident + kResidentMargin);
}

}  // namespace
}  // namespace sentrel
