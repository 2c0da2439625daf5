// SPDX-License-Identifier: GPL-2.0-or-later
// Embedded pictures as controls hold them.
#include "forms/pictures.h"

#include <map>

#include "frame/resources.h"

namespace brelmon {

Picture PictureOf(std::string_view fileName, TextView description) {
  static std::map<std::pair<std::string, Text>, Picture> pictures;
  const auto bytes = ResourceBytes(fileName);
  if (bytes.empty()) return nullptr;
  Picture& held = pictures[{std::string(fileName), Text(description)}];
  if (!held) {
    const std::string_view stem = fileName.substr(0, fileName.rfind('.'));
    held = std::make_shared<PictureData>(
        PictureData{std::string(bytes), std::string(ResourceBytes(std::string(stem) + ".svg")),
                    Text(description)});
  }
  return held;
}

Picture CornerBars() { return PictureOf("corner.bmp", u"Corner of a sizable window"); }

}  // namespace brelmon
