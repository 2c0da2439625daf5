// SPDX-License-Identifier: GPL-2.0-or-later
// The printer: the system's default one, or the PDF file that BRELMON_PRINTER names.
#pragma once

#include <memory>

#include "platform/services.h"

namespace brelmon::qgis {

/// BRELMON_PRINTER is a path that ends in .pdf, or the name of a printer; empty means no printer.
std::unique_ptr<IPrinter> NewPrinter();

}  // namespace brelmon::qgis
