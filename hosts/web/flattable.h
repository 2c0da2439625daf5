// SPDX-License-Identifier: GPL-2.0-or-later
// Reading FlatBuffers without their schema's code: every access is checked against its buffer.
#pragma once

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string_view>

namespace brelmon::web {

/// A vector of scalars, perhaps not aligned.
template <class T>
class FlatVector {
 public:
  FlatVector() = default;
  FlatVector(const char* data, std::uint32_t size) : data_(data), size_(size) {}
  std::uint32_t size() const { return size_; }
  const char* data() const { return data_; }
  T operator[](std::uint32_t at) const {
    T value;
    std::memcpy(&value, data_ + std::size_t{at} * sizeof(T), sizeof(T));
    return value;
  }

 private:
  const char* data_ = nullptr;
  std::uint32_t size_ = 0;
};

/// A table in a buffer. Fields are named by their slots, from 0; absent ones give the default.
class FlatTable {
 public:
  /// The root table of a buffer.
  explicit FlatTable(std::string_view buffer) : FlatTable(buffer, Load<std::uint32_t>(buffer, 0)) {}

  template <class T>
  T Scalar(int slot, T otherwise) const {
    const std::size_t at = Place(slot);
    return at == 0 ? otherwise : Load<T>(buffer_, at);
  }
  template <class T>
  FlatVector<T> Vector(int slot) const {
    const std::size_t at = Place(slot);
    if (at == 0) return {};
    const std::size_t vector = at + Load<std::uint32_t>(buffer_, at);
    const auto size = Load<std::uint32_t>(buffer_, vector);
    if ((buffer_.size() - vector - 4) / sizeof(T) < size) Refuse();
    return {buffer_.data() + vector + 4, size};
  }
  std::string_view Text(int slot) const {
    const FlatVector<char> text = Vector<char>(slot);
    return {text.data(), text.size()};
  }
  bool Has(int slot) const { return Place(slot) != 0; }
  /// The table that a slot leads to; it must be there.
  FlatTable Table(int slot) const {
    const std::size_t at = Place(slot);
    if (at == 0) Refuse();
    return {buffer_, at + Load<std::uint32_t>(buffer_, at)};
  }
  /// One of a vector of tables.
  FlatTable TableAt(int slot, std::uint32_t index) const {
    const FlatVector<std::uint32_t> offsets = Vector<std::uint32_t>(slot);
    if (index >= offsets.size()) Refuse();
    const auto at =
        static_cast<std::size_t>(offsets.data() - buffer_.data()) + 4 * std::size_t{index};
    return {buffer_, at + offsets[index]};
  }

 private:
  FlatTable(std::string_view buffer, std::size_t at) : buffer_(buffer), at_(at) {
    const auto back = static_cast<std::int64_t>(at) - Load<std::int32_t>(buffer, at);
    if (back < 0) Refuse();
    slots_ = static_cast<std::size_t>(back);
    slotBytes_ = Load<std::uint16_t>(buffer, slots_);
  }
  template <class T>
  static T Load(std::string_view buffer, std::size_t at) {
    if (at > buffer.size() || buffer.size() - at < sizeof(T)) Refuse();
    T value;
    std::memcpy(&value, buffer.data() + at, sizeof value);
    return value;
  }
  /// 0 for a field that isn't there.
  std::size_t Place(int slot) const {
    const std::size_t entry = 4 + 2 * static_cast<std::size_t>(slot);
    if (entry + 2 > slotBytes_) return 0;
    const auto offset = Load<std::uint16_t>(buffer_, slots_ + entry);
    return offset == 0 ? 0 : at_ + offset;
  }
  [[noreturn]] static void Refuse() { throw std::runtime_error("its structure is broken"); }

  std::string_view buffer_;
  std::size_t at_, slots_ = 0, slotBytes_ = 0;
};

}  // namespace brelmon::web
