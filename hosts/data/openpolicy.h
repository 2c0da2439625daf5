// SPDX-License-Identifier: GPL-2.0-or-later
// What of a module may be opened, and with what: files of this computer, a few formats, no options
// that do more than read. The one place that decides it, for vectors and for rasters.
#pragma once

#include <gdal_priv.h>

#include <string>

#include "hosts/data/sourceaddress.h"

namespace brelmon::data {

inline constexpr const char* kTooManyFiles = "too many files are open";

enum class Content { Rows, Pixels };

/// For a process in which GDAL is ours alone, before anything else is asked of it: registers the
/// drivers of the allowed formats and no others, and takes away network file systems, downloads,
/// plug-ins, settings files and what reads beside a file. Further calls do nothing.
void ConfineGdal();

/// Why the data isn't opened, in words that follow "not opened: "; empty where nothing speaks
/// against it, also where there is no such file. Looks at the path, the files beside it, the open
/// options, the format and at a database's schema.
std::string RefusalOf(const SourceAddress& address, Content content);

/// Of a source that couldn't be opened: whether it is one that may be, and is not whole. What isn't
/// read at all is left to a host that reads it.
bool IsDamaged(const SourceAddress& address, Content content);

/// Opens for reading, after RefusalOf and with the allowed drivers alone; null with the reason in
/// `problem`.
GDALDatasetUniquePtr OpenData(const SourceAddress& address, Content content, std::string& problem);

/// For a text that a module brings: no file and no web address is asked for what it stands for.
/// Null where it isn't understood.
std::unique_ptr<OGRSpatialReference> ReferenceSystemIn(const std::string& definition);

}  // namespace brelmon::data
