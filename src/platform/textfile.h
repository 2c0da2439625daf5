// SPDX-License-Identifier: GPL-2.0-or-later
// Numbered text files in Windows-1252. A number stays taken until it is closed, whoever failed.
#pragma once

#include <cstdint>

#include "platform/services.h"
#include "platform/text.h"

namespace brelmon::textfile {

/// A number from 1 to 511, else 52. One that is open already fails with 55 before the path is
/// looked at; a file that can't be opened fails as IFileSystem::Open and takes no number.
void Open(std::int32_t number, const Text& path, FileMode mode);
/// Whether everything was read. A number that isn't open fails with 52.
bool AtEnd(std::int32_t number);
/// The next line without its end, which is CR LF or a lone CR. Past the end fails with 62.
Text LineInput(std::int32_t number);
/// The text and CR LF.
void PrintLine(std::int32_t number, const Text& line);
/// Closes and frees the number, also where what was written did not reach the file, which fails
/// with 61 or 57. A number that isn't open is left in peace.
void Close(std::int32_t number);
/// Forgets every open number, for a new set of services.
void CloseAll();

}  // namespace brelmon::textfile
