// SPDX-License-Identifier: GPL-2.0-or-later
// Files that a user picks, as catalog objects.
#include "hosts/headless/catalog.h"

#include <filesystem>

#include "hosts/common/hostfailure.h"
#include "hosts/headless/layerfactory.h"

namespace brelmon::headless {
namespace {

class GxFile : public IGxFile, public IGxObject {
 public:
  Text FullName() override { return path_; }
  Text Path() override { return path_; }
  void SetPath(const Text& path) override { path_ = path; }

 private:
  Text path_;
};

class GxLayerFile : public GxFile, public IGxLayer {
 public:
  explicit GxLayerFile(host::Paths paths) : paths_(std::move(paths)) {}
  void SetPath(const Text& path) override {
    GxFile::SetPath(path);
    layer_.Reset();
  }
  Ref<ILayer> Layer() override {
    if (!layer_) {
      const auto system = paths_.ToSystem(Path());
      if (!system || !host::FileExists(*system)) {
        host::Fail(failure::kFileNotFound, "There is no layer file " + ToUtf8(Path()) + ".");
      }
      layer_ = LayerOfFile(*system);
    }
    return layer_;
  }

 private:
  host::Paths paths_;
  Ref<ILayer> layer_;
};

class ChosenObjects : public IEnumGxObject {
 public:
  explicit ChosenObjects(std::vector<Ref<IGxObject>> objects) : objects_(std::move(objects)) {}
  Ref<IGxObject> Next() override {
    return next_ < objects_.size() ? objects_[next_++] : Ref<IGxObject>();
  }

 private:
  std::vector<Ref<IGxObject>> objects_;
  std::size_t next_ = 0;
};

class AnsweredDialog : public IGxDialog {
 public:
  AnsweredDialog(std::shared_ptr<CatalogAnswers> answers, host::Paths paths)
      : answers_(std::move(answers)), paths_(std::move(paths)) {}
  void SetAllowMultiSelect(bool allow) override { multiSelect_ = allow; }
  void SetStartingLocation(const Text&) override {}
  void SetTitle(const Text& title) override { title_ = title; }
  void SetButtonCaption(const Text&) override {}
  void SetObjectFilter(GxFilter filter) override { filter_ = filter; }
  void SetName(const Text& name) override { name_ = name; }
  Text Name() override { return name_; }
  Text FinalLocation() override { return location_; }

  bool DoModalOpen(std::int32_t, Ref<IEnumGxObject>& selection) override {
    const auto chosen = answers_->Take(title_);
    if (!chosen) return false;
    if (chosen->empty() || (chosen->size() > 1 && !multiSelect_)) {
      host::Fail(failure::kInvalidCall, "The dialog takes one file.");
    }
    std::vector<Ref<IGxObject>> objects;
    for (const std::string& file : *chosen) objects.push_back(Chosen(file));
    selection = New<ChosenObjects>(std::move(objects));
    return true;
  }

  bool DoModalSave(std::int32_t) override {
    const auto chosen = answers_->Take(title_);
    if (!chosen) return false;
    if (chosen->size() != 1) host::Fail(failure::kInvalidCall, "The dialog takes one file.");
    const std::filesystem::path file(Absolute(chosen->front()));
    if (!host::FolderExists(file.parent_path().string())) {
      host::Fail(failure::kPathNotFound, "There is no folder " + file.parent_path().string() + ".");
    }
    name_ = FromUtf8(file.filename().string());
    location_ = paths_.ToWindows(file.parent_path().string());
    return true;
  }

 private:
  static std::string Absolute(const std::string& file) {
    return host::TrueCase(std::filesystem::absolute(file).string());
  }

  /// What the dialog would have offered; a file that it would not have shown fails.
  Ref<IGxObject> Chosen(const std::string& file) {
    const std::string path = Absolute(file);
    if (!host::FileExists(path)) {
      host::Fail(failure::kFileNotFound, "There is no file " + file + ".");
    }
    const Text extension = FromUtf8(std::filesystem::path(path).extension().string());
    const bool layerFile = EqualNoCase(extension, u".qlr");
    if (filter_ == GxFilter::LayerFiles && !layerFile) {
      host::Fail(failure::kInvalidCall, file + " is no layer file (.qlr).");
    }
    const Ref<IGxObject> object =
        layerFile ? NewGxLayer(paths_).As<IGxObject>() : Ref<IGxObject>(New<GxFile>());
    object.As<IGxFile>()->SetPath(paths_.ToWindows(path));
    return object;
  }

  std::shared_ptr<CatalogAnswers> answers_;
  host::Paths paths_;
  Text title_, name_, location_;
  GxFilter filter_ = GxFilter::All;
  bool multiSelect_ = false;
};

}  // namespace

std::optional<std::vector<std::string>> CatalogAnswers::Take(const Text& title) {
  if (answers_.empty()) {
    host::Fail(failure::kNotSupported,
               "Nobody is there to choose a file: \"" + ToUtf8(title) + "\"");
  }
  auto answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

Ref<IGxDialog> NewGxDialog(std::shared_ptr<CatalogAnswers> answers, host::Paths paths) {
  return New<AnsweredDialog>(std::move(answers), std::move(paths));
}

Ref<IGxLayer> NewGxLayer(host::Paths paths) { return New<GxLayerFile>(std::move(paths)); }

}  // namespace brelmon::headless
