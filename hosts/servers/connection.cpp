// SPDX-License-Identifier: GPL-2.0-or-later
// The server's client library, asked without blocking so that a user can end the waiting.
#include "hosts/servers/connection.h"

#include <libpq-fe.h>
#include <poll.h>

#include <array>
#include <atomic>

#include "hosts/common/hostfailure.h"
#include "hosts/servers/allowed.h"
#include "hosts/servers/complaint.h"

namespace brelmon::servers {
namespace {

constexpr int kStepMilliseconds = 50;
constexpr const char* kConnectSeconds = "10";
constexpr const char* kUnansweredMilliseconds = "30000";
constexpr std::size_t kMostIdle = 4;

std::function<void()>& WhileWaiting() {
  static std::function<void()> step;
  return step;
}

/// What can be cancelled at any time, from a signal's handler too.
using Slot = std::atomic<PGcancel*>;
std::array<Slot, 64>& Slots() {
  static std::array<Slot, 64> slots;
  return slots;
}
// Made before any signal can look at them.
const auto& kSlotsMade = Slots();

bool Cancel(PGcancel* cancel) {
  std::array<char, 256> complaint{};
  return PQcancel(cancel, complaint.data(), complaint.size()) != 0;
}

using Result = std::unique_ptr<PGresult, decltype(&PQclear)>;

/// Weak encryption is no wish that a module may have.
std::string SslModeOf(const Address& address) {
  return address.SslMode == "disable" || address.SslMode == "allow" ? "prefer" : address.SslMode;
}

}  // namespace

class Connection {
 public:
  explicit Connection(const Address& address) : key_(KeyOf(address)) {
    const std::string refusal = RefusalToCall(address);
    if (!refusal.empty()) host::Fail(failure::kFileNotFound, refusal);
    const std::string ssl = SslModeOf(address);
    const std::array<std::pair<const char*, std::string>, 11> words = {{
        {"service", address.Service},
        {"host", address.Host},
        {"port", address.Port},
        {"dbname", address.Database},
        {"user", address.User},
        {"password", address.Password},
        {"sslmode", ssl},
        {"application_name", "brelmon"},
        {"client_encoding", "UTF8"},
        {"connect_timeout", kConnectSeconds},
        {"tcp_user_timeout", kUnansweredMilliseconds},
    }};
    std::vector<const char*> names, values;
    for (const auto& [name, value] : words) {
      if (value.empty()) continue;
      names.push_back(name);
      values.push_back(value.c_str());
    }
    names.push_back(nullptr);
    values.push_back(nullptr);
    connection_ = PQconnectdbParams(names.data(), values.data(), 0);
    if (PQstatus(connection_) != CONNECTION_OK) {
      const std::string reason = FirstLine(PQerrorMessage(connection_));
      PQfinish(connection_);
      host::Fail(failure::kFileNotFound, reason);
    }
    PQsetNoticeProcessor(
        connection_, [](void*, const char*) {}, nullptr);
    Register();
  }
  ~Connection() {
    Unregister();
    PQfinish(connection_);
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Connections of one key may stand in for each other.
  static std::string KeyOf(const Address& address) {
    std::string key;
    for (const std::string& word : {address.Service, address.Host, address.Port, address.Database,
                                    address.User, address.Password, address.SslMode}) {
      key += word + '\0';
    }
    return key;
  }
  const std::string& Key() const { return key_; }
  PGconn* Native() { return connection_; }
  bool Lost() const { return PQstatus(connection_) != CONNECTION_OK; }

  /// The statement's one result. What the waiting throws ends the statement first.
  Result Run(const std::string& statement, const std::vector<const char*>& arguments) {
    // One statement in a message: another one behind it is a syntax error.
    if (PQsendQueryParams(connection_, statement.c_str(), static_cast<int>(arguments.size()),
                          nullptr, arguments.data(), nullptr, nullptr, 0) == 0) {
      return {nullptr, PQclear};
    }
    return Last();
  }
  /// Several statements without arguments.
  bool RunAll(const char* statements) {
    if (PQsendQuery(connection_, statements) == 0) return false;
    return PQresultStatus(Last().get()) == PGRES_COMMAND_OK;
  }
  /// The last result of what was sent, or the one that opens a copy.
  Result Last() {
    Result last(nullptr, PQclear);
    for (;;) {
      while (PQisBusy(connection_) != 0 && !Lost()) Await();
      PGresult* next = PQgetResult(connection_);
      if (next == nullptr) return last;
      last.reset(next);
      if (PQresultStatus(next) == PGRES_COPY_OUT || PQstatus(connection_) == CONNECTION_BAD) {
        return last;
      }
    }
  }
  /// Until the server has sent something more. Ends the statement where the waiting throws.
  void Await() {
    try {
      if (WhileWaiting()) WhileWaiting()();
    } catch (...) {
      Stop();
      throw;
    }
    pollfd one{PQsocket(connection_), POLLIN, 0};
    ::poll(&one, 1, WhileWaiting() ? kStepMilliseconds : -1);
    // A connection that breaks is lost from then on; the next result says why.
    if (one.revents != 0) PQconsumeInput(connection_);
  }
  /// Ends what runs; afterwards the connection can be asked again, or is lost.
  void Stop() {
    if (cancel_ != nullptr) Cancel(cancel_);
    for (;;) {
      const Result rest(PQgetResult(connection_), PQclear);
      if (!rest || Lost()) return;
      if (PQresultStatus(rest.get()) != PGRES_COPY_OUT) continue;
      char* piece = nullptr;
      while (PQgetCopyData(connection_, &piece, 0) > 0) PQfreemem(piece);
    }
  }

 private:
  void Register() {
    cancel_ = PQgetCancel(connection_);
    for (Slot& slot : Slots()) {
      PGcancel* none = nullptr;
      if (slot.compare_exchange_strong(none, cancel_)) return;
    }
  }
  void Unregister() {
    for (Slot& slot : Slots()) {
      PGcancel* mine = cancel_;
      slot.compare_exchange_strong(mine, nullptr);
    }
    PQfreeCancel(cancel_);
  }

  std::string key_;
  PGconn* connection_ = nullptr;
  PGcancel* cancel_ = nullptr;
};

namespace {

/// Connections that nobody uses at the moment, the latest in front.
std::list<std::unique_ptr<Connection>>& Idle() {
  // Never destroyed: who is left at the end is the server's to miss.
  static auto* idle = new std::list<std::unique_ptr<Connection>>;
  return *idle;
}

std::unique_ptr<Connection> TakeIdle(const std::string& key) {
  for (auto each = Idle().begin(); each != Idle().end(); ++each) {
    if ((*each)->Key() != key) continue;
    auto taken = std::move(*each);
    Idle().erase(each);
    return taken;
  }
  return nullptr;
}

}  // namespace

void SetWhileWaiting(std::function<void()> step) { WhileWaiting() = std::move(step); }

void CancelAll() {
  for (Slot& slot : Slots()) {
    if (PGcancel* cancel = slot.load()) Cancel(cancel);
  }
}

int Answer::Rows() const { return PQntuples(result_.get()); }
bool Answer::IsNull(int row, int column) const {
  return PQgetisnull(result_.get(), row, column) != 0;
}
std::string_view Answer::At(int row, int column) const {
  return {PQgetvalue(result_.get(), row, column),
          static_cast<std::size_t>(PQgetlength(result_.get(), row, column))};
}
void Answer::Clear(pg_result* result) { PQclear(result); }

Transaction::Transaction(const Address& address, const std::vector<std::string>& settings)
    : address_(address), connection_(TakeIdle(Connection::KeyOf(address))) {
  if (connection_) {
    // A server that was restarted since has forgotten its connections.
    try {
      Begin(settings);
      return;
    } catch (const Failure&) {
      if (!connection_->Lost()) throw;
    }
  }
  connection_ = std::make_unique<Connection>(address);
  Begin(settings);
}

void Transaction::Begin(const std::vector<std::string>& settings) {
  // A transaction that has asked something can't be made one that writes any more. Backslashes in
  // texts are backslashes, rows come in the order in which they lie, and groups are made where the
  // partitions are.
  std::string begin =
      "BEGIN TRANSACTION READ ONLY; SELECT 1; SET LOCAL standard_conforming_strings = on; "
      "SET LOCAL synchronize_seqscans = off; SET LOCAL enable_partitionwise_aggregate = on";
  for (const std::string& setting : settings) begin += "; SET LOCAL " + setting;
  blame_ = Blame::Table;
  if (!connection_->RunAll(begin.c_str())) Break();
}

Transaction::~Transaction() {
  if (piece_ != nullptr) PQfreemem(piece_);
  try {
    if (!connection_) return;
    if (copying_) connection_->Stop();
    if (connection_->Lost() || !connection_->RunAll("COMMIT")) return;
    Idle().push_front(std::move(connection_));
    if (Idle().size() > kMostIdle) Idle().pop_back();
  } catch (...) {
    // Who waits no longer loses the connection.
    connection_.reset();
  }
}

Answer Transaction::Ask(const std::string& statement, const std::vector<std::string>& arguments,
                        Blame blame) {
  blame_ = blame;
  std::vector<const char*> texts;
  for (const std::string& argument : arguments) texts.push_back(argument.c_str());
  Result result = connection_->Run(statement, texts);
  const ExecStatusType status = PQresultStatus(result.get());
  if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK) {
    FailAs(ComplaintOf(connection_->Native(), result.get()), address_, blame);
  }
  return Answer(result.release());
}

void Transaction::StartCopy(const std::string& query, Blame blame) {
  blame_ = blame;
  const Result result = connection_->Run("COPY (" + query + ") TO STDOUT (FORMAT binary)", {});
  if (PQresultStatus(result.get()) != PGRES_COPY_OUT) {
    FailAs(ComplaintOf(connection_->Native(), result.get()), address_, blame);
  }
  copying_ = true;
}

std::optional<std::string_view> Transaction::NextPiece() {
  if (piece_ != nullptr) PQfreemem(piece_);
  piece_ = nullptr;
  for (;;) {
    const int size = PQgetCopyData(connection_->Native(), &piece_, 1);
    if (size > 0) return std::string_view(piece_, static_cast<std::size_t>(size));
    if (size < 0 || connection_->Lost()) break;
    Await();
  }
  copying_ = false;
  const Result end = connection_->Last();
  if (PQresultStatus(end.get()) != PGRES_COMMAND_OK) {
    FailAs(ComplaintOf(connection_->Native(), end.get()), address_, blame_);
  }
  return {};
}

/// What ends the waiting has ended the copy.
void Transaction::Await() {
  copying_ = false;
  connection_->Await();
  copying_ = true;
}

void Transaction::Break() { FailAs(ComplaintOf(connection_->Native(), nullptr), address_, blame_); }

}  // namespace brelmon::servers
