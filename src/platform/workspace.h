// SPDX-License-Identifier: GPL-2.0-or-later
// Where tables live, and the dissolve that makes new ones.
#pragma once

#include "platform/table.h"

namespace brelmon {

class IWorkspace;

class IWorkspaceFactory : public virtual IObject {
 public:
  /// For instance "Shapefile" or "Personal Geodatabase"; plural adds an s.
  virtual Text WorkspaceDescription(bool plural) = 0;
  /// Whether a folder is there and can hold tables.
  virtual bool IsWorkspace(const Text& path) = 0;
  /// Never unset: one whose folder isn't there says so by Exists.
  virtual Ref<IWorkspace> OpenFromFile(const Text& path, std::int32_t parentWindow) = 0;
};

class IWorkspace : public virtual IObject {
 public:
  virtual Ref<IWorkspaceFactory> WorkspaceFactory() = 0;  // of its kind; never unset
  virtual bool Exists() = 0;                              // looked at whenever it is asked
};

class IDataset : public virtual IObject {
 public:
  /// Unset for a dataset that is a workspace itself.
  virtual Ref<IWorkspace> Workspace() = 0;
  /// What finds it again, for IDatasetName; never unset.
  virtual Ref<IObject> FullName() = 0;
};

/// The name of a table to be made.
class IDatasetName : public virtual IObject {
 public:
  Text Name;                   // file name, extension included
  Ref<IObject> WorkspaceName;  // a workspace's FullName
};

class IBasicGeoprocessor : public virtual IObject {
 public:
  /// One record for each unique value of `field`, one column a term of `summary`
  /// ("Minimum.NET, Count.NET, ..."). Fails with its reason and leaves no half-written table.
  virtual Ref<ITable> Dissolve(const Ref<ITable>& input, bool useSelected, const Text& field,
                               const Text& summary, const Ref<IDatasetName>& output) = 0;
};

}  // namespace brelmon
