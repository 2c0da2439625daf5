// SPDX-License-Identifier: GPL-2.0-or-later
// The two lists, and the files that they name.
#include "hosts/publish/companions.h"

#include <algorithm>
#include <filesystem>

#include "hosts/common/paths.h"
#include "hosts/publish/mediakinds.h"
#include "media/MediaList.h"
#include "platform/failure.h"
#include "platform/textfile.h"
#include "quickload/QuickLoadFile.h"

namespace brelmon::publish {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kFileNumber = 1;

/// A file that is open for the length of a reading.
class OpenText {
 public:
  explicit OpenText(const Text& path) { textfile::Open(kFileNumber, path, FileMode::Input); }
  ~OpenText() { textfile::Close(kFileNumber); }
  OpenText(const OpenText&) = delete;
  OpenText& operator=(const OpenText&) = delete;
};

class Gatherer {
 public:
  Gatherer(const ModuleFolder& module, Report& report)
      : module_(module),
        directory_(host::Paths().ToWindows(module.Path()) + u"\\"),
        report_(report) {}

  Companions Gather() {
    if (const auto name = ListNamed(Text(kMediaListName))) ReadMedia(*name);
    if (const auto name = ListNamed(Text(QuickLoadFile::kFileName))) ReadQuickLoad(*name);
    AddLayerFiles();
    return std::move(found_);
  }

 private:
  /// A file that is there and may be published; nothing, told under `subject`, for any other.
  std::optional<std::string> Usable(const Text& windowsPath, const std::string& subject) {
    const auto path = host::Paths().ToSystem(windowsPath);
    std::error_code ignored;
    if (!path || !fs::is_regular_file(*path, ignored)) {
      const bool other = path && fs::exists(*path, ignored);
      report_.Add(subject,
                  other ? "it is no plain file and was left out" : "there is no such file");
      return {};
    }
    const auto inside = module_.Inside(*path);
    if (!inside) {
      report_.Add(subject, "it lies outside the module's folder (" + *path + ") and was left out");
    }
    return inside;
  }

  std::optional<std::string> ListNamed(const Text& name) {
    const auto path = host::Paths().ToSystem(directory_ + name);
    if (!path || !host::FileExists(*path)) return {};
    auto inside = Usable(directory_ + name, ToUtf8(name));
    if (inside) found_.texts.insert(*inside);
    return inside;
  }

  void ReadMedia(const std::string& name) {
    const OpenText file(directory_ + Text(kMediaListName));
    MediaListReader reader(kFileNumber, directory_);
    for (;;) {
      const std::int32_t before = reader.Line();
      try {
        const auto item = reader.Next();
        if (!item) return;
        AddMedia(*item);
      } catch (const Failure& failure) {
        if (reader.Line() == before) throw;  // the disk's fault, not the author's
        report_.Add(name + ":" + std::to_string(reader.Line()),
                    "the media viewer stops at this line; brelmon MODULE check tells why");
      }
    }
  }

  void AddMedia(const MediaItem& item) {
    if (item.Code == kWebsiteCode && !IsShortcutFile(item.Written)) {
      const std::string fault = FaultOfAddress(ToUtf8(item.Location));
      if (!fault.empty()) report_.Add(ToUtf8(item.Name), fault);
      return;
    }
    const auto inside = Usable(item.Location, ToUtf8(item.Written));
    if (!inside) return;
    found_.media.insert(*inside);
    const std::string fault = FaultOfFile(module_.Path() + "/" + *inside, ToUtf8(item.Name));
    if (!fault.empty()) report_.Add(*inside, fault);
  }

  void ReadQuickLoad(const std::string& name) {
    const OpenText file(directory_ + Text(QuickLoadFile::kFileName));
    QuickLoadReader reader(kFileNumber);
    try {
      while (const auto record = reader.Next()) {
        if (record->Is == QuickLoadRecord::Kind::Layer) {
          const auto layer = Usable(directory_ + record->Fields[1], ToUtf8(record->Fields[1]));
          if (layer) found_.layerFiles.insert(*layer);
        } else if (record->Is == QuickLoadRecord::Kind::Query) {
          found_.queries.push_back({ToUtf8(record->Fields[0]), record->Fields[1]});
        }
      }
    } catch (const Failure& failure) {
      report_.Add(name + ":" + std::to_string(reader.Line()),
                  "QuickLoad stops at this line; brelmon MODULE check tells why");
    }
  }

  void AddLayerFiles() {
    const auto options = fs::directory_options::skip_permission_denied;
    for (const auto& entry : fs::recursive_directory_iterator(module_.Path(), options)) {
      const Text extension = FromUtf8(entry.path().extension().string());
      std::error_code ignored;
      if (!EqualNoCase(extension, u".qlr") || !entry.is_regular_file(ignored)) continue;
      if (const auto inside = module_.Inside(entry.path().string())) {
        found_.layerFiles.insert(*inside);
      }
    }
  }

  const ModuleFolder& module_;
  const Text directory_;
  Report& report_;
  Companions found_;
};

}  // namespace

Companions CompanionsOf(const ModuleFolder& module, Report& report) {
  return Gatherer(module, report).Gather();
}

}  // namespace brelmon::publish
