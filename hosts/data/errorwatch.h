// SPDX-License-Identifier: GPL-2.0-or-later
// What GDAL complains of while rows are read. Its last error is overwritten by the next message, a
// warning among them; this one keeps the first failure.
#pragma once

#include <cpl_error.h>

#include <string>

namespace brelmon::data {

/// Hears for as long as it lives, of this thread; those that live later hear first and alone.
class ErrorWatch {
 public:
  ErrorWatch() { CPLPushErrorHandlerEx(Hear, this); }
  ~ErrorWatch() { CPLPopErrorHandler(); }
  ErrorWatch(const ErrorWatch&) = delete;
  ErrorWatch& operator=(const ErrorWatch&) = delete;

  /// Empty where nothing failed.
  const std::string& Failure() const { return failure_; }

 private:
  static void CPL_STDCALL Hear(CPLErr grade, CPLErrorNum, const char* text) {
    auto& failure = static_cast<ErrorWatch*>(CPLGetErrorHandlerUserData())->failure_;
    if (grade < CE_Failure || !failure.empty()) return;
    failure = *text ? text : "unknown error";
  }

  std::string failure_;
};

}  // namespace brelmon::data
