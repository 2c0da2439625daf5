// SPDX-License-Identifier: GPL-2.0-or-later
// What a page of the About box is called outside.
#pragma once

#include "platform/text.h"

namespace brelmon {

/// An address as it stands; a document, such as "docs/students.html", as the file: URL of the one
/// installed with the component. Empty for none, and where the registry doesn't tell where the
/// component is.
Text PageAddress(TextView page);

/// The file: URL of a path on a drive, "." and ".." resolved.
Text FileUrl(TextView path);

}  // namespace brelmon
