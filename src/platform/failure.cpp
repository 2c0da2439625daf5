// SPDX-License-Identifier: GPL-2.0-or-later
// Failures: the platform's words for their numbers, and the translation of foreign exceptions.
#include "platform/failure.h"

#include <algorithm>
#include <array>
#include <new>
#include <stdexcept>
#include <utility>

namespace brelmon {
namespace {

constexpr TextView kSource = u"BrelmonOpenTable";

struct Words {
  std::int32_t number;
  TextView description;
};
constexpr std::array kWords = {
    Words{failure::kInvalidCall, u"Invalid procedure call or argument"},
    Words{failure::kOverflow, u"Overflow"},
    Words{failure::kOutOfMemory, u"Out of memory"},
    Words{failure::kSubscript, u"Subscript out of range"},
    Words{failure::kDivisionByZero, u"Division by zero"},
    Words{failure::kTypeMismatch, u"Type mismatch"},
    Words{failure::kUserInterrupt, u"User interrupt occurred"},
    Words{failure::kInternal, u"Internal error"},
    Words{failure::kBadFileNumber, u"Bad file name or number"},
    Words{failure::kFileNotFound, u"File not found"},
    Words{failure::kBadFileMode, u"Bad file mode"},
    Words{failure::kFileAlreadyOpen, u"File already open"},
    Words{failure::kDeviceIo, u"Device I/O error"},
    Words{failure::kDiskFull, u"Disk full"},
    Words{failure::kInputPastEnd, u"Input past end of file"},
    Words{failure::kPermissionDenied, u"Permission denied"},
    Words{failure::kPathFileAccess, u"Path/File access error"},
    Words{failure::kPathNotFound, u"Path not found"},
    Words{failure::kObjectNotSet, u"Object variable or With block variable not set"},
    Words{failure::kInvalidUseOfNull, u"Invalid use of Null"},
    Words{failure::kInvalidPropertyValue, u"Invalid property value"},
    Words{failure::kNoSuchObject, u"Object required"},
    Words{failure::kNoSuchProperty, u"Object doesn't support this property or method"},
    Words{failure::kNotSupported, u"Object doesn't support this action"},
    Words{failure::kDuplicateKey,
          u"This key is already associated with an element of this collection"},
    Words{failure::kPrinter, u"Printer error"},
    Words{failure::kRefused, u"Unspecified error"},
};

Failure Translated(std::int32_t number, TextView detail = {}) {
  Text description = DescriptionOf(number);
  if (!detail.empty()) description.append(u": ").append(detail);
  return Failure(number, Text(kSource), std::move(description));
}

}  // namespace

Failure::Failure(std::int32_t number, Text source, Text description, std::int32_t line,
                 const char* file)
    : Number(number),
      Source(std::move(source)),
      Description(std::move(description)),
      Line(line),
      File(file),
      what_(std::to_string(Number) + ": " + ToUtf8(Description)) {}

Text DescriptionOf(std::int32_t number) {
  const auto hit = std::ranges::find(kWords, number, &Words::number);
  return Text(hit == kWords.end() ? u"Application-defined or object-defined error"
                                  : hit->description);
}

void Raise(std::int32_t number, std::int32_t line, const char* file) {
  Raise(number, DescriptionOf(number), line, file);
}

void Raise(std::int32_t number, Text description, std::int32_t line, const char* file) {
  throw Failure(number, Text(kSource), std::move(description), line, file);
}

Failure CurrentFailure() {
  try {
    throw;
  } catch (const Failure& failure) {
    return failure;
  } catch (const std::bad_alloc&) {
    return Translated(failure::kOutOfMemory);
  } catch (const std::out_of_range&) {
    return Translated(failure::kSubscript);
  } catch (const std::exception& other) {
    return Translated(failure::kInternal, FromUtf8(other.what()));
  } catch (...) {
    return Translated(failure::kInternal);
  }
}

}  // namespace brelmon
