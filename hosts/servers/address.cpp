// SPDX-License-Identifier: GPL-2.0-or-later
// Reading a data source word by word.
#include "hosts/servers/address.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string_view>

namespace brelmon::servers {
namespace {

class Reader {
 public:
  explicit Reader(std::string_view source) : source_(source) {}

  Address Read() {
    const std::map<std::string_view, std::string Address::*> plain = {
        {"service", &Address::Service}, {"host", &Address::Host},
        {"port", &Address::Port},       {"dbname", &Address::Database},
        {"user", &Address::User},       {"password", &Address::Password},
        {"sslmode", &Address::SslMode}, {"key", &Address::KeyColumn}};
    while (SkipBlanks()) {
      const std::string_view name = Name();
      if (name == "sql") {
        address_.Filter = source_.substr(at_);
        break;
      }
      if (name == "table") {
        ReadTable();
        continue;
      }
      const std::string value = Value(" ");
      if (const auto known = plain.find(name); known != plain.end()) {
        address_.*(known->second) = value;
      } else if (name == "srid") {
        address_.Srid = std::atoi(value.c_str());
      } else {
        Judge(name, value);
      }
    }
    KeyAlone();
    if (address_.Problem.empty() && address_.Table.empty()) {
      address_.Problem = "its data source names no table";
    }
    return address_;
  }

 private:
  /// What can't be left out of account.
  void Judge(std::string_view name, const std::string& value) {
    if (name == "authcfg" && !value.empty()) {
      address_.Problem = "its user and password are kept in QGIS; put them into ~/.pgpass";
    }
    if (name == "hostaddr") address_.Problem = "its server is given by a number, not by its name";
  }

  bool SkipBlanks() {
    at_ = std::min(source_.find_first_not_of(" \t\r\n", at_), source_.size());
    return at_ < source_.size();
  }
  /// Up to the equals sign, which is skipped.
  std::string_view Name() {
    const std::size_t from = at_;
    const std::size_t end = std::min(source_.find('=', at_), source_.size());
    at_ = std::min(end + 1, source_.size());
    return source_.substr(from, end - from);
  }
  /// In quotation marks of either kind, with backslashes before what would end it, or bare.
  std::string Value(std::string_view ends) {
    std::string value;
    const char mark = at_ < source_.size() ? source_[at_] : ' ';
    if (mark != '\'' && mark != '"') {
      const std::size_t end = std::min(source_.find_first_of(ends, at_), source_.size());
      value = source_.substr(at_, end - at_);
      at_ = end;
      return value;
    }
    for (++at_; at_ < source_.size() && source_[at_] != mark; ++at_) {
      if (source_[at_] == '\\' && at_ + 1 < source_.size()) ++at_;
      value += source_[at_];
    }
    at_ = std::min(at_ + 1, source_.size());
    return value;
  }
  void ReadTable() {
    address_.Table = Value(" .(");
    if (at_ < source_.size() && source_[at_] == '.') {
      ++at_;
      address_.Schema = address_.Table;
      address_.Table = Value(" (");
    }
    if (address_.Table.starts_with('(')) address_.Problem = "it is a query, not a table";
    if (!SkipBlanks() || source_[at_] != '(') return;
    for (++at_; at_ < source_.size() && source_[at_] != ')'; ++at_) {
      if (source_[at_] == '\\' && at_ + 1 < source_.size()) ++at_;
      address_.GeometryColumn += source_[at_];
    }
    at_ = std::min(at_ + 1, source_.size());
  }
  /// Keys of several columns, `"a","b"`, number nothing.
  void KeyAlone() {
    std::string& key = address_.KeyColumn;
    if (!key.starts_with('"')) return;
    const std::size_t end = key.find('"', 1);
    if (end == std::string::npos || end + 1 < key.size()) {
      key.clear();
      return;
    }
    key = key.substr(1, end - 1);
  }

  std::string_view source_;
  std::size_t at_ = 0;
  Address address_;
};

}  // namespace

std::string Address::Shown() const {
  std::string server =
      Host.empty() ? (Service.empty() ? "this computer" : "service " + Service) : Host;
  if (!Port.empty() && !Host.empty() && Host[0] != '/') server += ":" + Port;
  return "the database " + (Database.empty() ? "" : "\"" + Database + "\" ") + "of " + server;
}

Address ReadAddress(const std::string& dataSource) { return Reader(dataSource).Read(); }

}  // namespace brelmon::servers
