// SPDX-License-Identifier: GPL-2.0-or-later
// Layer files by their paths.
#include "hosts/web/catalog.h"

#include "hosts/common/hostfailure.h"
#include "hosts/common/paths.h"

namespace brelmon::web {
namespace {

class GxLayer : public IGxFile, public IGxObject, public IGxLayer {
 public:
  explicit GxLayer(const Catalog& catalog) : catalog_(catalog) {}
  Text FullName() override { return path_; }
  Text Path() override { return path_; }
  void SetPath(const Text& path) override {
    path_ = path;
    layer_.Reset();
  }
  Ref<ILayer> Layer() override {
    if (!layer_) layer_ = Read();
    return layer_;
  }

 private:
  Ref<ILayer> Read() const {
    const std::string wanted = host::Paths().ToSystem(path_).value_or("");
    for (const LayerFile& file : catalog_.layerFiles) {
      if (catalog_.folder + "/" + file.path != wanted) continue;
      if (!file.layer) {
        host::Fail(failure::kInvalidCall, ToUtf8(path_) + ": " + file.problem);
      }
      const auto layer = NewItem(*file.layer, catalog_.sources).TryAs<ILayer>();
      if (layer) return layer;
      host::Fail(failure::kInvalidCall, ToUtf8(path_) + ": the file holds a table, no layer");
    }
    host::Fail(failure::kFileNotFound, "There is no layer file " + ToUtf8(path_) + ".");
  }

  const Catalog& catalog_;
  Text path_;
  Ref<ILayer> layer_;
};

class GxDialog : public IGxDialog {
 public:
  void SetAllowMultiSelect(bool) override {}
  void SetStartingLocation(const Text&) override {}
  void SetTitle(const Text& title) override { title_ = title; }
  void SetButtonCaption(const Text&) override {}
  void SetObjectFilter(GxFilter) override {}
  void SetName(const Text& name) override { name_ = name; }
  Text Name() override { return name_; }
  Text FinalLocation() override { return {}; }
  bool DoModalOpen(std::int32_t, Ref<IEnumGxObject>&) override { Refuse(); }
  bool DoModalSave(std::int32_t) override { Refuse(); }

 private:
  [[noreturn]] void Refuse() const {
    host::Fail(failure::kNotSupported,
               "A page has no dialog to choose files: \"" + ToUtf8(title_) + "\"");
  }
  Text title_, name_;
};

}  // namespace

Ref<IGxLayer> NewGxLayer(const Catalog& catalog) { return New<GxLayer>(catalog); }
Ref<IGxDialog> NewGxDialog() { return New<GxDialog>(); }

}  // namespace brelmon::web
