// SPDX-License-Identifier: GPL-2.0-or-later
// What the component carries: every picture is there and has the shape its user counts on.
#include "frame/resources.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace brelmon {
namespace {

std::uint32_t Number(std::string_view bytes, std::size_t at, int size) {
  std::uint32_t number = 0;
  for (int i = size - 1; i >= 0; --i) {
    number = number << 8 | static_cast<unsigned char>(bytes.at(at + static_cast<std::size_t>(i)));
  }
  return number;
}

void ExpectBitmap(const std::string& name, std::uint32_t width, std::uint32_t height) {
  SCOPED_TRACE(name);
  const std::string_view bytes = ResourceBytes(name);
  ASSERT_GT(bytes.size(), 54u);
  EXPECT_EQ(bytes.substr(0, 2), "BM");
  EXPECT_EQ(Number(bytes, 2, 4), bytes.size());
  EXPECT_EQ(Number(bytes, 18, 4), width);
  EXPECT_EQ(Number(bytes, 22, 4), height);
  EXPECT_EQ(Number(bytes, 28, 2), 24u);
}

TEST(Resources, ToolbarImagesAre16By16AndDiffer) {
  for (int id = 101; id <= 120; ++id) {
    ExpectBitmap(std::to_string(id) + ".bmp", 16, 16);
    for (int other = 101; other < id; ++other) {
      EXPECT_NE(ResourceBytes(std::to_string(id) + ".bmp"),
                ResourceBytes(std::to_string(other) + ".bmp"));
    }
  }
}

}  // namespace
}  // namespace brelmon
