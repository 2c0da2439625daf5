// SPDX-License-Identifier: GPL-2.0-or-later
// JSON both ways.
#include "hosts/web/json.h"

#include <rapidjson/document.h>

#include <charconv>
#include <cmath>
#include <cstdio>

namespace brelmon::web {

void Json::Separate() {
  if (!first_) out_ += ',';
  first_ = false;
}

Json& Json::Open(char mark) {
  Separate();
  out_ += mark;
  first_ = true;
  return *this;
}

Json& Json::Close(char mark) {
  out_ += mark;
  first_ = false;
  return *this;
}

Json& Json::Key(std::string_view key) {
  Add(key);
  out_ += ':';
  first_ = true;
  return *this;
}

Json& Json::Add(TextView text) { return Add(std::string_view(ToUtf8(text))); }

Json& Json::Add(std::string_view utf8) {
  Separate();
  out_ += '"';
  for (const char c : utf8) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      (out_ += '\\') += c;
    } else if (byte < 0x20) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", byte);
      out_ += escape;
    } else {
      out_ += c;
    }
  }
  out_ += '"';
  return *this;
}

Json& Json::Add(double number) {
  if (!std::isfinite(number)) return Raw("null");
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, number);
  return Raw({text, static_cast<std::size_t>(end.ptr - text)});
}

Json& Json::Raw(std::string_view json) {
  Separate();
  out_ += json;
  return *this;
}

struct Message::Parsed {
  rapidjson::Document document;

  const rapidjson::Value* Find(const char* key) const {
    if (!document.IsObject()) return nullptr;
    const auto hit = document.FindMember(key);
    return hit == document.MemberEnd() ? nullptr : &hit->value;
  }
};

Message::Message(const std::string& json) : parsed_(new Parsed) {
  parsed_->document.Parse(json.data(), json.size());
}

Message::~Message() { delete parsed_; }

std::string Message::Utf8At(const char* key) const {
  const auto* value = parsed_->Find(key);
  return value && value->IsString() ? std::string(value->GetString(), value->GetStringLength())
                                    : std::string();
}

Text Message::TextAt(const char* key) const { return FromUtf8(Utf8At(key)); }

double Message::NumberAt(const char* key, double otherwise) const {
  const auto* value = parsed_->Find(key);
  return value && value->IsNumber() ? value->GetDouble() : otherwise;
}

int Message::IntAt(const char* key, int otherwise) const {
  const double number = NumberAt(key, otherwise);
  return std::abs(number) < 1e9 ? static_cast<int>(number) : otherwise;
}

bool Message::FlagAt(const char* key) const {
  const auto* value = parsed_->Find(key);
  return value && value->IsBool() && value->GetBool();
}

std::vector<double> Message::NumbersAt(const char* key) const {
  std::vector<double> numbers;
  const auto* value = parsed_->Find(key);
  if (!value || !value->IsArray()) return numbers;
  for (const auto& each : value->GetArray()) {
    if (each.IsNumber()) numbers.push_back(each.GetDouble());
  }
  return numbers;
}

std::vector<std::string> Message::TextsAt(const char* key) const {
  std::vector<std::string> texts;
  const auto* value = parsed_->Find(key);
  if (!value || !value->IsArray()) return texts;
  for (const auto& each : value->GetArray()) {
    if (each.IsString()) texts.emplace_back(each.GetString(), each.GetStringLength());
  }
  return texts;
}

std::string Base64(std::string_view bytes) {
  static const char* const kLetters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string out;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t three = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      three = three << 8 | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0u);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      out += i + k > bytes.size() ? '=' : kLetters[three >> (18 - 6 * k) & 63];
    }
  }
  return out;
}

}  // namespace brelmon::web
