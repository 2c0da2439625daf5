// SPDX-License-Identifier: GPL-2.0-or-later
// The one way in which anything fails: a number, its source and its description.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

#include "platform/text.h"

namespace brelmon {

/// Numbers of run-time failures, as the platform gives them.
namespace failure {
inline constexpr std::int32_t kInvalidCall = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kSubscript = 9;
inline constexpr std::int32_t kDivisionByZero = 11;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kUserInterrupt = 18;
inline constexpr std::int32_t kInternal = 51;
inline constexpr std::int32_t kBadFileNumber = 52;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kBadFileMode = 54;
inline constexpr std::int32_t kFileAlreadyOpen = 55;
inline constexpr std::int32_t kDeviceIo = 57;
inline constexpr std::int32_t kFileExists = 58;
inline constexpr std::int32_t kDiskFull = 61;
inline constexpr std::int32_t kInputPastEnd = 62;
inline constexpr std::int32_t kPermissionDenied = 70;
inline constexpr std::int32_t kPathFileAccess = 75;
inline constexpr std::int32_t kPathNotFound = 76;
inline constexpr std::int32_t kObjectNotSet = 91;
inline constexpr std::int32_t kInvalidUseOfNull = 94;
inline constexpr std::int32_t kNoSuchResource = 326;
inline constexpr std::int32_t kInvalidPropertyValue = 380;
inline constexpr std::int32_t kFormAlreadyShown = 400;
inline constexpr std::int32_t kNoSuchObject = 424;
inline constexpr std::int32_t kCannotCreateObject = 429;
inline constexpr std::int32_t kNoSuchProperty = 438;
inline constexpr std::int32_t kNotSupported = 445;
inline constexpr std::int32_t kDuplicateKey = 457;
inline constexpr std::int32_t kPrinter = 482;
/// E_FAIL: a data source refused what it was asked.
inline constexpr std::int32_t kRefused = static_cast<std::int32_t>(0x80004005u);
}  // namespace failure

/// A failure on its way up. `Line` of `File` is where a tool raised it; line 0 when it came out of
/// the host.
class Failure : public std::exception {
 public:
  Failure(std::int32_t number, Text source, Text description, std::int32_t line = 0,
          const char* file = "");
  const char* what() const noexcept override { return what_.c_str(); }

  std::int32_t Number;
  Text Source;
  Text Description;
  std::int32_t Line;
  const char* File;  // from the repository's root; a constant of the component's

 private:
  std::string what_;  // number and description in UTF-8, for debuggers and test runners
};

/// The platform's own words for a number; "Application-defined or object-defined error" if unknown.
Text DescriptionOf(std::int32_t number);

/// Raises `number` in the platform's words, with the component's name as source.
[[noreturn]] void Raise(std::int32_t number, std::int32_t line = __builtin_LINE(),
                        const char* file = __builtin_FILE());
/// The same with a description of its own.
[[noreturn]] void Raise(std::int32_t number, Text description, std::int32_t line = __builtin_LINE(),
                        const char* file = __builtin_FILE());

/// The failure that stands for what is being handled; only inside a catch block.
/// Whatever else C++ can throw is translated (bad_alloc to 7, out_of_range to 9, the rest to 51).
Failure CurrentFailure();

}  // namespace brelmon
