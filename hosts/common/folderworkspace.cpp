// SPDX-License-Identifier: GPL-2.0-or-later
// Workspaces by path.
#include "hosts/common/folderworkspace.h"

namespace brelmon::host {
namespace {

class PathWorkspace : public IWorkspace, public IDataset {
 public:
  PathWorkspace(std::string path, Text description, Paths paths)
      : path_(std::move(path)), description_(std::move(description)), paths_(std::move(paths)) {}

  Ref<IWorkspaceFactory> WorkspaceFactory() override {
    return NewWorkspaceFactory(description_, paths_);
  }
  bool Exists() override { return FolderExists(path_) || FileExists(path_); }
  Ref<IWorkspace> Workspace() override { return {}; }
  Ref<IObject> FullName() override { return New<DatasetPath>(path_, Text()); }

 private:
  std::string path_;
  Text description_;
  Paths paths_;
};

class PathWorkspaceFactory : public IWorkspaceFactory {
 public:
  PathWorkspaceFactory(Text description, Paths paths)
      : description_(std::move(description)), paths_(std::move(paths)) {}

  Text WorkspaceDescription(bool plural) override {
    return plural ? description_ + u"s" : description_;
  }
  bool IsWorkspace(const Text& path) override {
    const auto system = paths_.ToSystem(path);
    return system && FolderExists(*system);
  }
  Ref<IWorkspace> OpenFromFile(const Text& path, std::int32_t) override {
    // What is no path here is a workspace that doesn't exist.
    return NewWorkspace(paths_.ToSystem(path).value_or(std::string()), description_, paths_);
  }

 private:
  Text description_;
  Paths paths_;
};

}  // namespace

Ref<IWorkspaceFactory> NewWorkspaceFactory(Text description, Paths paths) {
  return New<PathWorkspaceFactory>(std::move(description), std::move(paths));
}

Ref<IWorkspace> NewWorkspace(std::string systemPath, Text description, Paths paths) {
  return New<PathWorkspace>(std::move(systemPath), std::move(description), std::move(paths));
}

}  // namespace brelmon::host
