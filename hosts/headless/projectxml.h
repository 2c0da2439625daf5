// SPDX-License-Identifier: GPL-2.0-or-later
// A project file as XML, for what of it no layer object holds.
#pragma once

#include <string>

namespace pugi {
class xml_document;
}

namespace brelmon::headless {

/// Reads a .qgs, .qgz or .qlr file with a layer tree. Throws std::runtime_error with the file's
/// name and the reason for any other. Gives the file's text.
std::string ReadProjectXml(const std::string& file, pugi::xml_document& document);

}  // namespace brelmon::headless
