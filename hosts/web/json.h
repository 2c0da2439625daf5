// SPDX-License-Identifier: GPL-2.0-or-later
// JSON for the page, written, and its answers, read.
#pragma once

#include <string>
#include <vector>

#include "platform/text.h"

namespace brelmon::web {

/// Writes one value; what is open is closed by whoever opened it.
class Json {
 public:
  Json& Begin() { return Open('{'); }
  Json& End() { return Close('}'); }
  Json& BeginArray() { return Open('['); }
  Json& EndArray() { return Close(']'); }
  Json& Key(std::string_view key);
  Json& Add(TextView text);
  Json& Add(std::string_view utf8);
  Json& Add(const char* utf8) { return Add(std::string_view(utf8)); }
  Json& Add(const std::string& utf8) { return Add(std::string_view(utf8)); }
  Json& Add(const Text& text) { return Add(TextView(text)); }
  Json& Add(bool flag) { return Raw(flag ? "true" : "false"); }
  Json& Add(std::int32_t number) { return Raw(std::to_string(number)); }
  Json& Add(std::size_t number) { return Raw(std::to_string(number)); }
  Json& Add(double number);  // what is no number becomes null
  Json& Add(float number) { return Add(static_cast<double>(number)); }
  /// Something that is JSON already.
  Json& Raw(std::string_view json);
  template <class T>
  Json& Put(std::string_view key, const T& value) {
    return Key(key).Add(value);
  }
  const std::string& Written() const { return out_; }

 private:
  Json& Open(char mark);
  Json& Close(char mark);
  void Separate();
  std::string out_;
  bool first_ = true;
};

/// What the page sends with a question or a deed: a flat object of texts, numbers, flags, and
/// arrays of numbers or texts. Absent keys give the default.
class Message {
 public:
  explicit Message(const std::string& json);
  ~Message();
  Message(const Message&) = delete;
  Message& operator=(const Message&) = delete;
  Text TextAt(const char* key) const;
  std::string Utf8At(const char* key) const;
  double NumberAt(const char* key, double otherwise = 0) const;
  int IntAt(const char* key, int otherwise = 0) const;
  bool FlagAt(const char* key) const;
  std::vector<double> NumbersAt(const char* key) const;
  std::vector<std::string> TextsAt(const char* key) const;

 private:
  struct Parsed;
  Parsed* parsed_;
};

std::string Base64(std::string_view bytes);

}  // namespace brelmon::web
