// SPDX-License-Identifier: GPL-2.0-or-later
// Folders and databases as workspaces, and the names under which datasets are found.
#pragma once

#include "hosts/common/paths.h"
#include "platform/workspace.h"

namespace brelmon::host {

/// The FullName of a workspace or dataset.
struct DatasetPath : public virtual IObject {
  DatasetPath(std::string systemPath, Text name)
      : SystemPath(std::move(systemPath)), Name(std::move(name)) {}
  std::string SystemPath;  // of the folder or database, or of the file that holds the dataset
  Text Name;               // of the dataset inside; empty for a workspace
};

/// Description in the singular, such as "Shapefile".
Ref<IWorkspaceFactory> NewWorkspaceFactory(Text description, Paths paths = Paths());

/// A workspace that exists as long as its folder or file does. It offers IDataset too.
Ref<IWorkspace> NewWorkspace(std::string systemPath, Text description, Paths paths = Paths());

}  // namespace brelmon::host
