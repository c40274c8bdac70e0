#include "infoserver/info_server.h"

#include <QHostAddress>
#include <cstring>
#include <utility>

namespace quillmere {
namespace {

std::string Why(const QTcpServer& server, const std::string& ip, int port) {
  const std::string portText = std::to_string(port);
  switch (server.serverError()) {
    case QAbstractSocket::AddressInUseError:
      return "port " + portText + " on " + ip + " is already in use by another program.";
    case QAbstractSocket::SocketAccessError:
      return "the system does not allow this program to listen on port " + portText + ".";
    case QAbstractSocket::SocketAddressNotAvailableError:
      return "the address " + ip + " does not belong to this computer.";
    default:
      return server.errorString().toStdString() + ".";
  }
}

}  // namespace

InfoServer::InfoServer(std::function<std::string()> record, std::function<double()> now,
                       double& LastJISSend)
    : record_(std::move(record)), now_(std::move(now)), LastJISSend_(LastJISSend) {
  connect(&listener_, &QTcpServer::newConnection, this, [this] { Socket1_ConnectRequest(); });
}

InfoServer::~InfoServer() {
  DropClient();
}

void InfoServer::LoadJISSettings(const SettingsStore& store, const std::string& AppTitle) {
  settings = ReadJISSettings(store, AppTitle);
}

void InfoServer::StartJIS() {
  DropClient();
  listener_.close();
  JISRunning = 0;
  failure_.clear();
  const std::string& ip = settings.JISIP;
  const std::string start = "The info server could not start: ";
  QHostAddress address;
  if (!address.setAddress(QString::fromStdString(ip).trimmed())) {
    failure_ = start + "the address \"" + ip + "\" is not a numeric address such as 127.0.0.1.";
    return;
  }
  // Port 0 would let the system pick one that no client knows.
  if (settings.JISPort <= 0) {
    failure_ = start + "the stored JISPort \"" + settings.JISPortText +
               "\" is not a port number from 1 to 32767.";
    return;
  }
  if (!listener_.listen(address, static_cast<quint16>(settings.JISPort))) {
    failure_ = start + Why(listener_, ip, settings.JISPort);
    return;
  }
  JISRunning = -1;
}

bool InfoServer::Connected() const {
  return client_ && client_->state() == QAbstractSocket::ConnectedState;
}

void InfoServer::SendJISInfo() {
  if (!Connected()) return;
  // A client that does not read gets no growing queue: its records are skipped until it reads.
  if (client_->bytesToWrite() > kMaxQueued) return;
  const std::string record = record_();
  client_->write(record.data(), static_cast<qint64>(record.size()));
  // Into the system's buffer at once, without waiting: a client that half-closes after asking
  // still gets its answer, because the connection can end before the next turn of the loop.
  client_->flush();
  LastJISSend_ = now_();
}

void InfoServer::Socket1_ConnectRequest() {
  while (QTcpSocket* next = listener_.nextPendingConnection()) {
    if (!JISRunning) {
      next->abort();
      next->deleteLater();
      continue;
    }
    DropClient();  // the earlier client goes without a word
    client_ = next;
    client_->setReadBufferSize(kReadChunk);
    // The system's own queue toward a client that does not read stays small as well.
    client_->setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, int{kMaxQueued});
    connect(next, &QTcpSocket::readyRead, this, [this, next] { Socket1_DataArrival(next); });
    connect(next, &QTcpSocket::disconnected, this, [this, next] { ClientGone(next); });
    SendJISInfo();
  }
}

void InfoServer::Socket1_DataArrival(QTcpSocket* socket) {
  // The read buffer holds at most one chunk, so this loop is short; whatever it read is dropped,
  // and any number of "J" in it asks for one record.
  bool asked = false;
  qint64 n;
  while ((n = socket->read(input_.data(), kReadChunk)) > 0)
    asked = asked || std::memchr(input_.data(), 'J', static_cast<size_t>(n)) != nullptr;
  if (asked && socket == client_) SendJISInfo();
}

void InfoServer::ClientGone(QTcpSocket* socket) {
  if (socket == client_) client_ = nullptr;
  socket->disconnect(this);
  socket->deleteLater();
}

void InfoServer::DropClient() {
  if (!client_) return;
  QTcpSocket* old = std::exchange(client_, nullptr);
  old->disconnect(this);
  old->flush();  // what was written reaches the system's buffer, then the connection closes
  old->abort();
  old->deleteLater();
}

}  // namespace quillmere
