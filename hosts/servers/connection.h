// SPDX-License-Identifier: GPL-2.0-or-later
// Connections to a server: few for the whole process, each in a read-only transaction while it is
// used.
#pragma once

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/servers/address.h"

struct pg_conn;
struct pg_result;

namespace brelmon::servers {

/// Called again and again while a server is waited for; what it throws ends the server's query and
/// goes on to whoever asked. Empty for nothing.
void SetWhileWaiting(std::function<void()> step);

/// Ends what servers are at for this process. For a signal's handler: it only looks at memory that
/// stays and asks the servers.
void CancelAll();

/// Whether a query text of the user's may be what a failure comes from: then it is a refusal of the
/// query.
enum class Blame { Table, QueryText, QueryValues };

/// Rows of texts, each null where the server says so.
class Answer {
 public:
  explicit Answer(pg_result* result) : result_(result, Clear) {}
  int Rows() const;
  bool IsNull(int row, int column) const;
  std::string_view At(int row, int column) const;
  bool IsTrue(int row, int column) const { return At(row, column) == "t"; }

 private:
  static void Clear(pg_result* result);
  std::unique_ptr<pg_result, void (*)(pg_result*)> result_;
};

class Connection;

/// One read-only transaction. Every failure bears a number: 53 where the server isn't reached, 57
/// where it breaks off, 70 where it denies the right, E_FAIL where it refuses the query.
class Transaction {
 public:
  /// `settings` hold for its length: "name = value".
  explicit Transaction(const Address& address, const std::vector<std::string>& settings = {});
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  /// One statement; what is behind it is an error. Arguments stand for $1, $2...
  Answer Ask(const std::string& statement, const std::vector<std::string>& arguments = {},
             Blame blame = Blame::Table);

  /// One COPY of rows in binary form; the pieces are then asked for.
  void StartCopy(const std::string& query, Blame blame);
  /// The next piece, valid until the next call; nothing at the end.
  std::optional<std::string_view> NextPiece();

 private:
  void Begin(const std::vector<std::string>& settings);
  void Await();
  [[noreturn]] void Break();

  Address address_;
  std::unique_ptr<Connection> connection_;
  Blame blame_ = Blame::Table;
  bool copying_ = false;
  char* piece_ = nullptr;
};

}  // namespace brelmon::servers
