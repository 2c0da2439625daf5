// SPDX-License-Identifier: GPL-2.0-or-later
// Kinds by extension.
#include "hosts/publish/mediakinds.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace brelmon::publish {
namespace {

enum class Kind { Shown, Page, SomeBrowsers, Movie, Program, Shortcut, Other };

struct Extensions {
  Kind kind;
  std::string_view all;  // between blanks
};

constexpr std::array<Extensions, 6> kExtensions = {{
    {Kind::Shown,
     " pdf png jpg jpeg gif svg webp bmp ico txt mp4 m4v webm mp3 wav m4a ogg oga flac "},
    {Kind::Page, " htm html xhtml "},
    {Kind::SomeBrowsers, " mov ogv avif tif tiff jp2 "},
    {Kind::Movie, " avi mpg mpeg wmv mkv flv swf asf rm "},
    {Kind::Program, " exe com bat cmd msi jar vbs ps1 sh scr lnk app "},
    {Kind::Shortcut, " url "},
}};

std::string Lower(std::string text) {
  for (char& unit : text) unit = unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit + 32) : unit;
  return text;
}

Kind KindOf(const std::string& extension) {
  if (extension.find(' ') != std::string::npos) return Kind::Other;
  const std::string wanted = " " + extension + " ";
  for (const Extensions& each : kExtensions) {
    if (each.all.find(wanted) != std::string_view::npos) return each.kind;
  }
  return Kind::Other;
}

/// The address in a shortcut file; empty where there is none.
std::string AddressIn(const std::string& shortcut) {
  std::ifstream file(shortcut, std::ios::binary);
  std::string line;
  while (std::getline(file, line)) {
    while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.pop_back();
    if (Lower(line.substr(0, 4)) == "url=") return line.substr(4);
  }
  return {};
}

/// As the media list writes it.
std::string LineOf(const std::string& name, std::string address) {
  for (std::size_t at = address.find(':'); at != std::string::npos; at = address.find(':', at)) {
    address.replace(at, 1, "\u00DF");
  }
  return name + ":" + address + ",3";
}

}  // namespace

std::string FaultOfFile(const std::string& systemPath, const std::string& name) {
  std::string extension = Lower(std::filesystem::path(systemPath).extension().string());
  if (!extension.empty()) extension.erase(0, 1);
  switch (KindOf(extension)) {
    case Kind::Shown:
      return {};
    case Kind::Page:
      return "pictures and other files that this page needs weren't published with it";
    case Kind::SomeBrowsers:
      return "not every browser shows a ." + extension + " file; the others offer it for saving";
    case Kind::Movie:
      return "no browser plays a ." + extension + " file; make an .mp4 of it";
    case Kind::Program:
      return "a browser starts no programs; it offers the file for saving";
    case Kind::Shortcut: {
      const std::string address = AddressIn(systemPath);
      const std::string fault = "a browser doesn't follow a shortcut file";
      return address.empty() ? fault
                             : fault + "; write in media_list.txt: " + LineOf(name, address);
    }
    default:
      return "a browser doesn't show a" +
             (extension.empty() ? " file" : " ." + extension + " file") +
             " of this kind; it offers it for saving";
  }
}

std::string FaultOfAddress(const std::string& address) {
  const std::string lower = Lower(address);
  if (lower.rfind("https://", 0) == 0) return {};
  if (lower.rfind("http://", 0) == 0) return {};
  return "a page opens addresses that begin with https:// or http:// only";
}

}  // namespace brelmon::publish
