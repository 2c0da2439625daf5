// SPDX-License-Identifier: GPL-2.0-or-later
// Endings by kind of media, and schemes. The execute bit says nothing: on a memory stick all files
// bear it.
#include "hosts/common/mediapolicy.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

namespace brelmon::host {
namespace {

constexpr std::array<std::string_view, 8> kEndings = {
    " .kml .kmz ",
    " .jpg .jpeg .png .gif .tif .tiff .bmp .svg .jp2 .webp ",
    " .avi .mov .mp4 .m4v .mpg .mpeg .wmv .webm .mkv .ogv .mp3 .ogg .wav ",
    " .url .htm .html ",
    " .xls .xlsx .ods .csv .dbf ",
    " .doc .docx .rtf .odt .txt ",
    " .pdf ",
    " .ppt .pptx .pps .ppsx .odp ",
};
constexpr std::array<std::string_view, 3> kSchemes = {"http", "https", "mailto"};

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char unit) {
    return static_cast<char>(unit >= 'A' && unit <= 'Z' ? unit + 32 : unit);
  });
  return text;
}

bool IsControl(char unit) { return static_cast<unsigned char>(unit) < 0x20 || unit == 0x7F; }

bool HasKnownEnding(const std::filesystem::path& file) {
  const std::string ending = Lower(file.extension().string());
  if (ending.size() < 2 || ending.find(' ') != std::string::npos) return false;
  return std::any_of(kEndings.begin(), kEndings.end(), [&](std::string_view each) {
    return each.find(" " + ending + " ") != std::string_view::npos;
  });
}

std::string RefusalOfFile(const std::string& path) {
  const std::filesystem::path file(path);
  if (file.filename().string().starts_with('-')) return "its name begins with a dash";
  if (!HasKnownEnding(file)) return "files of that ending are not opened from a module";
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return {};
  if (!std::filesystem::is_regular_file(file, error)) return "it is no regular file";
  const auto real = std::filesystem::canonical(file, error);
  return !error && HasKnownEnding(real) ? "" : "it is a link to something else";
}

std::string RefusalOfAddress(const std::string& address) {
  const std::string scheme = Lower(address.substr(0, address.find(':')));
  if (address.find(':') == std::string::npos) return "it is neither a file nor a web address";
  const bool known = std::find(kSchemes.begin(), kSchemes.end(), scheme) != kSchemes.end();
  return known ? "" : "addresses that begin with \"" + scheme + ":\" are not opened from a module";
}

}  // namespace

std::string RefusalToOpen(const std::string& target) {
  std::string reason;
  if (target.empty() || std::any_of(target.begin(), target.end(), IsControl)) {
    reason = "its name holds a character that no name should hold";
  } else {
    reason = target[0] == '/' ? RefusalOfFile(target) : RefusalOfAddress(target);
  }
  return reason.empty() ? "" : target + " is not opened: " + reason + ".";
}

}  // namespace brelmon::host
