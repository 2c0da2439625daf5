// SPDX-License-Identifier: GPL-2.0-or-later
// The printer that the user chooses, or a PDF file where there is none.
#pragma once

#include <memory>

#include "platform/services.h"

namespace brelmon::qgis {

/// Asks at the first call for a document. BRELMON_PRINTER answers in advance: a path that ends in
/// .pdf, or the name of a printer.
std::unique_ptr<IPrinter> NewPrinter();

}  // namespace brelmon::qgis
