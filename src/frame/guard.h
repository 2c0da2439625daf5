// SPDX-License-Identifier: GPL-2.0-or-later
// Guard blocks. A procedure hands its body to one of these, with its own name:
//
//   Text toolBarBrelmon::Name() {
//     return Guard::Top(u"IToolBarDef_Name", [] { return Text(kToolBarName); });
//   }
//
// The result after a failure is the type's default: false, 0, "", no object.
#pragma once

#include <cstdint>
#include <type_traits>

#include "platform/failure.h"
#include "platform/text.h"

namespace brelmon::Guard {

namespace detail {
/// Both are for catch blocks only. The first reports through ReportTrailError.
void Report(bool isTop, TextView procedure, const char* file);
void ReportPlainBox(const char* file);
}  // namespace detail

/// Top of a chain: the failure is shown and ends here.
template <class Body>
std::invoke_result_t<Body> Top(TextView procedure, Body body, const char* file = __builtin_FILE()) {
  try {
    return body();
  } catch (...) {
    detail::Report(true, procedure, file);
  }
  return std::invoke_result_t<Body>();
}

/// Lower down: the failure goes on, with this procedure's line on its trail.
template <class Body>
std::invoke_result_t<Body> Inner(TextView procedure, Body body,
                                 const char* file = __builtin_FILE()) {
  try {
    return body();
  } catch (...) {
    detail::Report(false, procedure, file);
    throw;  // not reached: the report raises
  }
}

/// Begins the text of a plain box, whatever command it belongs to.
inline constexpr TextView kPlainBoxLabel = u"Class_Terminate";

/// The ten click handlers that tell of a failure in a bare message box.
template <class Body>
void PlainBox(Body body, const char* file = __builtin_FILE()) {
  try {
    body();
  } catch (...) {
    detail::ReportPlainBox(file);
  }
}

/// Top of a chain that looks for one number first and answers it with `refused`.
template <class Body, class Refused>
void TopUnless(std::int32_t number, Refused refused, TextView procedure, Body body,
               const char* file = __builtin_FILE()) {
  try {
    body();
  } catch (...) {
    if (CurrentFailure().Number == number) {
      refused();
    } else {
      detail::Report(true, procedure, file);
    }
  }
}

/// One statement of a stretch in which failures are ignored. Gives the failure's number, 0 if
/// none: the stretch may read it.
template <class Statement>
std::int32_t Ignore(Statement statement) {
  try {
    statement();
  } catch (...) {
    return CurrentFailure().Number;
  }
  return 0;
}

}  // namespace brelmon::Guard
