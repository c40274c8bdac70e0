#pragma once
// JIS, the info server: one client at a time over TCP gets the live record on connecting, on
// asking with a "J", and by push from the tick. It is also the one door from the network into
// the program, so every buffer it keeps is bounded and nothing in it ever waits on a client.

#include <QTcpServer>
#include <QTcpSocket>
#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "infoserver/jis_record.h"
#include "stormmodel/settings_store.h"

namespace quillmere {

class InfoServer : public QObject {
 public:
  // At most this much is read from a client per event; the rest waits in the system's buffer.
  static constexpr qint64 kReadChunk = 64 * 1024;
  // While more than this waits to go out to a client that does not read, records are skipped.
  static constexpr qint64 kMaxQueued = 64 * 1024;

  // `record` composes the record from the values as they stand; `now` is the system clock;
  // `LastJISSend` is the program's mark of the last record sent.
  InfoServer(std::function<std::string()> record, std::function<double()> now, double& LastJISSend);
  ~InfoServer() override;

  void LoadJISSettings(const SettingsStore& store, const std::string& AppTitle);
  // Opens the service on JISIP and JISPort. When it cannot, JISRunning stays false and
  // StartFailure() says why, in words for the user.
  void StartJIS();
  // Sends one record to the connected client, if there is one.
  void SendJISInfo();

  bool Connected() const;
  const std::string& StartFailure() const { return failure_; }
  // What waits in this program to go out to the client.
  qint64 QueuedForClient() const { return client_ ? client_->bytesToWrite() : 0; }

  JISSettings settings;
  int16_t JISRunning = 0;

 private:
  void Socket1_ConnectRequest();
  void Socket1_DataArrival(QTcpSocket* socket);
  void ClientGone(QTcpSocket* socket);
  void DropClient();

  std::function<std::string()> record_;
  std::function<double()> now_;
  double& LastJISSend_;
  QTcpServer listener_;           // Socket1(0)
  QTcpSocket* client_ = nullptr;  // Socket1(1): the one connection, owned by the listener
  std::string failure_;
  std::array<char, kReadChunk> input_{};
};

}  // namespace quillmere
