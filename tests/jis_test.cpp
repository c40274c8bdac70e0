// The info server as a client meets it: the real main window, started with a fixed clock and a
// recording voice, and plain TCP clients on 127.0.0.1 that read what it sends.

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QTcpServer>
#include <QTcpSocket>
#include <cerrno>

#include "form1_test_support.h"

namespace quillmere {
namespace {

using testing::kWelcome;

// A port the service may use: below 32768, which a 16-bit setting can hold, and free now.
int FreePort() {
  for (int i = 0; i < 200; ++i) {
    const int port = 20000 + (static_cast<int>(getpid()) * 37 + i * 101) % 12000;
    QTcpServer probe;
    if (probe.listen(QHostAddress::LocalHost, static_cast<quint16>(port))) return port;
  }
  return 0;
}

// A plain TCP client on 127.0.0.1 that reads only when asked, and never blocks: the service
// runs on this same thread, so every wait turns the event loop.
class Client {
 public:
  // `receiveBuffer` above 0 keeps the system's buffer for this client that small.
  explicit Client(int port, int receiveBuffer = 0) {
    fd_ = ::socket(AF_INET, SOCK_STREAM, 0);
    if (receiveBuffer > 0)
      ::setsockopt(fd_, SOL_SOCKET, SO_RCVBUF, &receiveBuffer, sizeof receiveBuffer);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_port = htons(static_cast<uint16_t>(port));
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    connected = ::connect(fd_, reinterpret_cast<sockaddr*>(&a), sizeof a) == 0;
    ::fcntl(fd_, F_SETFL, O_NONBLOCK);
  }
  ~Client() { Close(); }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;

  // Sends all of `data` as it can go, turning the event loop while the system's buffer is full.
  bool Send(std::string_view data) {
    while (!data.empty()) {
      const ssize_t n = ::send(fd_, data.data(), data.size(), MSG_NOSIGNAL);
      if (n > 0) {
        data.remove_prefix(static_cast<size_t>(n));
      } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
        if (!QTest::qWaitFor([&] { return Writable(); }, 5000)) return false;
      } else {
        return false;
      }
    }
    return true;
  }
  // Takes what has arrived, without waiting.
  void Poll() {
    char buffer[65536];
    for (;;) {
      const ssize_t n = ::recv(fd_, buffer, sizeof buffer, MSG_DONTWAIT);
      if (n > 0) {
        received.append(buffer, static_cast<size_t>(n));
      } else {
        if (n == 0 || (errno != EAGAIN && errno != EWOULDBLOCK)) closed = true;
        return;
      }
    }
  }
  int Records() const {
    return static_cast<int>(std::count(received.begin(), received.end(), '\n') / 14);
  }
  // Turns the event loop until `n` whole records have come; false when the time is up first.
  bool WaitRecords(int n, int ms = 5000) {
    return QTest::qWaitFor(
        [&] {
          Poll();
          return Records() >= n;
        },
        ms);
  }
  // True when nothing beyond `n` records comes within a short wait.
  bool NoMoreThan(int n) { return !WaitRecords(n + 1, 200) && Records() == n; }
  bool WaitClosed(int ms = 5000) {
    return QTest::qWaitFor(
        [&] {
          Poll();
          return closed;
        },
        ms);
  }
  void ShutdownWrite() { ::shutdown(fd_, SHUT_WR); }
  // Drops the connection with a reset instead of a close.
  void Reset() {
    linger l{1, 0};
    ::setsockopt(fd_, SOL_SOCKET, SO_LINGER, &l, sizeof l);
    Close();
  }
  void Close() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
  }

  bool connected = false;
  bool closed = false;
  std::string received;

 private:
  bool Writable() {
    pollfd p{fd_, POLLOUT, 0};
    return ::poll(&p, 1, 0) == 1;
  }
  int fd_ = -1;
};

class JisService : public testing::Form1Test {
 protected:
  void SetUp() override {
    Form1Test::SetUp();
    port = FreePort();
    ASSERT_NE(port, 0);
    Store({{"RunJIS", "1"}, {"JISPort", std::to_string(port)}});
  }
  void TearDown() override {
    EXPECT_EQ(messages.shown, std::vector<std::string>{});
    Form1Test::TearDown();
  }

  int port = 0;
};

// The record of the window's first tick: 2006-07-05 12:00:00 UT at 30 N, 80 W, where the
// Non-A region is in force.
const char* const kNoonRecord =
    "Year = 2006\r\nMonth = 07\r\nDay = 05\r\nHour = 12\r\nMinute = 00\r\nSecond = 00\r\n"
    "JUPALT = -69\r\nJUPAZ = 320\r\nSUNALT = 20\r\nSUNAZ = 074\r\nCML3 = 203.7\r\n"
    "IOPHASE = 007.0\r\nLMSTTIME =  LMST: 01:33:22\r\nACTIVEMODE = Non-A   \r\n";

TEST_F(JisService, RecordOnConnectingAndNoOtherWithoutPush) {
  QTcpServer nextPort;  // the port after JISPort may be taken: the service needs only its own
  nextPort.listen(QHostAddress::LocalHost, static_cast<quint16>(port + 1));
  Form1& f = Start();
  EXPECT_TRUE(f.jis().JISRunning);
  Client c(port);
  ASSERT_TRUE(c.connected);
  ASSERT_TRUE(c.WaitRecords(1));
  EXPECT_EQ(c.received, kNoonRecord);
  EXPECT_EQ(f.state().LastJISSend, clock.now);
  Tick(3600);
  Tick(3600);
  EXPECT_TRUE(c.NoMoreThan(1));
}

TEST_F(JisService, OnlyACapitalJAsks) {
  Start();
  Client c(port);
  ASSERT_TRUE(c.WaitRecords(1));
  const struct {
    const char* sent;
    int records;
  } requests[] = {
      {"j", 0}, {"J", 1}, {"JJ", 1}, {"xJyJz\r\n", 1}, {"\r\n", 0}, {"jis", 0}, {"\x00J", 1},
  };
  int expected = 1;
  for (const auto& r : requests) {
    const std::string sent = r.sent[0] ? r.sent : std::string("\0J", 2);
    ASSERT_TRUE(c.Send(sent));
    expected += r.records;
    EXPECT_TRUE(c.WaitRecords(expected)) << sent;
    EXPECT_TRUE(c.NoMoreThan(expected)) << sent;
  }
}

TEST_F(JisService, PushFollowsTheClock) {
  const struct {
    const char *push, *minutes;
    int stepSeconds, ticks, pushed;
  } cases[] = {
      {"0", "0", 1, 3, 0},     // no push at all
      {"1", "0", 1, 3, 3},     // every tick
      {"1", "0", 0, 3, 0},     // the clock must move on: the comparison is strict
      {"1", "10", 299, 4, 1},  // at 897 s only, counted from the record on connecting
      {"-1", "1", 61, 3, 3},   // any value but 0 turns it on
      {"1", "-5", 0, 2, 2},    // a negative period pushes on every tick
  };
  for (const auto& c : cases) {
    Store({{"PushJIS", c.push}, {"JISMin", c.minutes}});
    Start();
    Tick(7200);  // with nobody connected there is nothing to push
    Client client(port);
    ASSERT_TRUE(client.WaitRecords(1));
    for (int i = 0; i < c.ticks; ++i) Tick(c.stepSeconds);
    EXPECT_TRUE(client.WaitRecords(1 + c.pushed, 2000)) << c.push << " " << c.minutes;
    EXPECT_TRUE(client.NoMoreThan(1 + c.pushed)) << c.push << " " << c.minutes;
    form.reset();
  }
}

TEST_F(JisService, FixedTimeGivesTheFixedInstant) {
  Start();
  Client c(port);
  ASSERT_TRUE(c.WaitRecords(1));
  Type("ft");
  Type("12/25/2010 06:30:00");
  clock.now += 1;  // the clock runs on; the record stays with the fixed instant
  ASSERT_TRUE(c.Send("J"));
  ASSERT_TRUE(c.WaitRecords(2));
  const std::string second = c.received.substr(std::string(kNoonRecord).size());
  EXPECT_EQ(second.substr(0, second.find("JUPALT")),
            "Year = 2010\r\nMonth = 12\r\nDay = 25\r\nHour = 06\r\nMinute = 30\r\nSecond = 00\r\n");
}

TEST_F(JisService, AFailedStartIsToldOnceAndTheProgramRuns) {
  QTcpServer other;
  ASSERT_TRUE(other.listen(QHostAddress::LocalHost, static_cast<quint16>(port)));
  const std::string p = std::to_string(port), start = "The info server could not start: ";
  const auto badPort = [&](const std::string& stored) {
    return start + "the stored JISPort \"" + stored + "\" is not a port number from 1 to 32767.";
  };
  const struct {
    std::string ip, port, said;
  } cases[] = {
      {"127.0.0.1", p, start + "port " + p + " on 127.0.0.1 is already in use by another program."},
      {"localhost", p,
       start + "the address \"localhost\" is not a numeric address such as 127.0.0.1."},
      {"127.0.0.1", "0", badPort("0")},
      {"127.0.0.1", "70000", badPort("70000")},
      {"127.0.0.1", "99999", badPort("99999")},
      {"127.0.0.1", "abc", badPort("abc")},
      {"127.0.0.1", "-4711", badPort("-4711")},
  };
  for (const auto& c : cases) {
    Store({{"JISIP", c.ip}, {"JISPort", c.port}});
    Form1& f = Start();
    EXPECT_FALSE(f.jis().JISRunning) << c.said;
    EXPECT_EQ(voice->Texts(), (std::vector<std::string>{kWelcome, c.said}));
    EXPECT_TRUE(f.Timer1().isActive());
    form.reset();
  }
  // A switch that is no number is told once, after the welcome; the service stays off.
  const auto notNumber = [](const std::string& key, const std::string& stored) {
    return "The stored " + key + " \"" + stored + "\" is not a number from -32768 to 32767, so ";
  };
  const auto badMinutes = [](const std::string& stored) {
    return "The stored JISMin \"" + stored +
           "\" is not a number of minutes from 0 to 32767, so records are pushed every second.";
  };
  const struct {
    std::map<std::string, std::string> stored;
    std::string said;
  } switches[] = {
      {{{"RunJIS", "True"}}, notNumber("RunJIS", "True") + "the info server does not start."},
      {{{"RunJIS", "1e9"}}, notNumber("RunJIS", "1e9") + "the info server does not start."},
      {{{"PushJIS", "yes"}}, notNumber("PushJIS", "yes") + "no records are pushed."},
      {{{"PushJIS", "1"}, {"JISMin", "abc"}}, badMinutes("abc")},
      {{{"PushJIS", "1"}, {"JISMin", "-5"}}, badMinutes("-5")},
  };
  for (const auto& sw : switches) {
    settings = MemorySettings();
    Store(sw.stored);
    Start();
    EXPECT_EQ(voice->Texts(), (std::vector<std::string>{kWelcome, sw.said})) << sw.said;
    Tick(1);
    EXPECT_EQ(voice->Texts().size(), 2u) << "told once: " << sw.said;
    form.reset();
  }
  settings = MemorySettings();
  // Not asked to run: no service and no word about it.
  Store({{"RunJIS", "0"}, {"JISIP", "127.0.0.1"}, {"JISPort", p}});
  other.close();
  Form1& f = Start();
  EXPECT_FALSE(f.jis().JISRunning);
  EXPECT_EQ(voice->Texts(), std::vector<std::string>{kWelcome});
  EXPECT_FALSE(Client(port).connected);
}

TEST_F(JisService, ListensOnlyOnTheStoredAddress) {
  QTcpServer probe;
  if (!probe.listen(QHostAddress::LocalHostIPv6, 0)) GTEST_SKIP() << "no ::1 here";
  probe.close();
  Store({{"JISIP", "::1"}});
  Form1& f = Start();
  ASSERT_TRUE(f.jis().JISRunning);
  EXPECT_FALSE(Client(port).connected);  // 127.0.0.1 is another address
  QTcpSocket six;
  six.connectToHost(QHostAddress::LocalHostIPv6, static_cast<quint16>(port));
  EXPECT_TRUE(QTest::qWaitFor([&] { return six.bytesAvailable() > 0; }, 5000));
}

// ---------------------------------------------------------------------------------------------
// Abuse: each case bounded in count, each wait bounded in time.

TEST_F(JisService, MegabytesWithoutJAskForNothing) {
  Form1& f = Start();
  Client c(port);
  ASSERT_TRUE(c.WaitRecords(1));
  const std::string block(64 * 1024, 'x');
  for (int i = 0; i < 128; ++i) ASSERT_TRUE(c.Send(block));  // 8 MB
  EXPECT_TRUE(c.NoMoreThan(1));
  ASSERT_TRUE(c.Send("J"));
  EXPECT_TRUE(c.WaitRecords(2));
  EXPECT_TRUE(f.jis().Connected());
}

TEST_F(JisService, AClientThatNeverReadsGetsNoGrowingQueue) {
  Form1& f = Start();
  Client c(port, 4096);
  ASSERT_TRUE(c.WaitRecords(1));
  const size_t recordSize = std::string(kNoonRecord).size();
  qint64 most = 0;
  for (int i = 0; i < 30000; ++i) {  // ~6 MB of records asked for, one "J" per read
    ASSERT_TRUE(c.Send("J"));
    QCoreApplication::processEvents();
    most = std::max(most, f.jis().QueuedForClient());
  }
  EXPECT_LE(most, InfoServer::kMaxQueued + static_cast<qint64>(recordSize));
  EXPECT_GT(most, InfoServer::kMaxQueued / 2);  // the queue did fill: the cap is what held it
  // Keys and the tick still work meanwhile.
  Tick(1);
  EXPECT_EQ(f.findChild<QLineEdit*>("txtS")->text(), "01");
  Type("je");
  EXPECT_EQ(voice->Texts(), std::vector<std::string>{"Jupiter  elevation  -69.2"});
  // Now it reads: what came is whole records only, and a new request is answered.
  ASSERT_TRUE(QTest::qWaitFor(
      [&] {
        c.Poll();
        return f.jis().QueuedForClient() == 0;
      },
      10000));
  ASSERT_TRUE(c.Send("J"));
  const int before = c.Records();
  ASSERT_TRUE(c.WaitRecords(before + 1));
  ASSERT_EQ(c.received.size() % recordSize, 0u);
  const std::string tickRecord = c.received.substr(c.received.size() - recordSize);
  for (size_t at = 0; at < c.received.size(); at += recordSize) {
    const std::string r = c.received.substr(at, recordSize);
    ASSERT_TRUE(r == kNoonRecord || r == tickRecord) << "record " << at / recordSize;
  }
  EXPECT_LT(c.Records(), 30000);  // records were skipped, not queued
}

TEST_F(JisService, HalfCloseStillGetsItsAnswer) {
  Start();
  Client c(port);
  ASSERT_TRUE(c.WaitRecords(1));
  ASSERT_TRUE(c.Send("J"));
  c.ShutdownWrite();
  EXPECT_TRUE(c.WaitRecords(2));
  EXPECT_TRUE(c.WaitClosed());
  EXPECT_EQ(c.Records(), 2);
  Client next(port);
  EXPECT_TRUE(next.WaitRecords(1));
}

TEST_F(JisService, AThousandConnectsAndDrops) {
  Form1& f = Start();
  for (int i = 0; i < 1000; ++i) {
    Client c(port);
    ASSERT_TRUE(c.connected) << i;
    if (i % 2) c.Reset();
    QCoreApplication::processEvents();
  }
  Client last(port);
  ASSERT_TRUE(last.WaitRecords(1));
  ASSERT_TRUE(last.Send("J"));
  EXPECT_TRUE(last.WaitRecords(2));
  EXPECT_TRUE(f.jis().Connected());
  EXPECT_TRUE(f.Timer1().isActive());
}

TEST_F(JisService, EachNewClientTakesOverAndTheLastLeaves) {
  Form1& f = Start();
  std::vector<std::unique_ptr<Client>> clients;
  for (int i = 0; i < 40; ++i) clients.push_back(std::make_unique<Client>(port));
  auto settled = [&] {
    int records = 0, closed = 0;
    for (auto& c : clients) {
      c->Poll();
      records += c->Records();
      closed += c->closed;
    }
    return records == 40 && closed == 39;
  };
  ASSERT_TRUE(QTest::qWaitFor(settled, 10000));
  // Each had its record before the next took over, and no word on leaving; the last one asks.
  for (auto& c : clients) {
    EXPECT_EQ(c->received, kNoonRecord);
    if (!c->closed) {
      ASSERT_TRUE(c->Send("J"));
      EXPECT_TRUE(c->WaitRecords(2));
      EXPECT_TRUE(f.jis().Connected());
      c->Close();
    }
  }
  EXPECT_TRUE(QTest::qWaitFor([&] { return !f.jis().Connected(); }, 5000));
  Tick(1);  // nobody to send to
}

}  // namespace
}  // namespace quillmere
