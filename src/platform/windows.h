// SPDX-License-Identifier: GPL-2.0-or-later
// Windows of the host that tools open: attribute tables, catalog dialogs, its summarize dialog.
#pragma once

#include "platform/map.h"

namespace brelmon {

/// An attribute table window. A new one is bound to nothing.
class ITableWindow : public virtual IObject {
 public:
  /// The open window of that layer or table; unset if there is none.
  virtual Ref<ITableWindow> FindViaFeatureLayer(const Ref<IFeatureLayer>& layer, bool exact) = 0;
  virtual Ref<ITableWindow> FindViaStandaloneTable(const Ref<IStandaloneTable>& table,
                                                   bool exact) = 0;
  virtual void SetFeatureLayer(const Ref<IFeatureLayer>& layer) = 0;
  virtual void SetStandaloneTable(const Ref<IStandaloneTable>& table) = 0;
  virtual void SetApplication(const Ref<IApplication>& application) = 0;
  virtual void Show(bool show) = 0;
  virtual void Unload() = 0;
};

/// Settings of a table window; their meaning is the host's. The same object offers both.
class ITableWindow2 : public virtual IObject {
 public:
  virtual void SetTableSelectionAction(std::int32_t action) = 0;
  virtual void SetLayerDisplay(bool flag) = 0;
  virtual void SetTableDisplay(bool first, bool second) = 0;
};

class IGxObject : public virtual IObject {
 public:
  virtual Text FullName() = 0;  // full path
};

/// A file by path, settable before anything is read.
class IGxFile : public virtual IObject {
 public:
  virtual Text Path() = 0;
  virtual void SetPath(const Text& path) = 0;
};

/// The layer inside a layer file; the same object offers IGxFile and IGxObject.
class IGxLayer : public virtual IObject {
 public:
  /// Fails with its reason for a file that can't be read or that holds several layers.
  virtual Ref<ILayer> Layer() = 0;
};

class IEnumGxObject : public virtual IObject {
 public:
  virtual Ref<IGxObject> Next() = 0;  // unset at the end
};

/// What a catalog dialog admits.
enum class GxFilter { All, TextFiles, LayerFiles, Tables };

class IGxDialog : public virtual IObject {
 public:
  virtual void SetAllowMultiSelect(bool allow) = 0;
  virtual void SetStartingLocation(const Text& path) = 0;
  virtual void SetTitle(const Text& title) = 0;
  virtual void SetButtonCaption(const Text& caption) = 0;
  virtual void SetObjectFilter(GxFilter filter) = 0;
  virtual void SetName(const Text& name) = 0;
  virtual Text Name() = 0;
  virtual Text FinalLocation() = 0;  // folder of the answer to DoModalSave
  /// False when cancelled.
  virtual bool DoModalOpen(std::int32_t parentWindow, Ref<IEnumGxObject>& selection) = 0;
  virtual bool DoModalSave(std::int32_t parentWindow) = 0;
};

/// The host's own summarize dialog.
class ISummarizeDialog : public virtual IObject {
 public:
  virtual void SetApplication(const Ref<IApplication>& application) = 0;
  virtual void SetTable(const Ref<ITable>& table) = 0;
  virtual void SetField(const Ref<IField>& field) = 0;
  virtual void SetFlag(bool flag) = 0;
  virtual void DoModal(std::int32_t parentWindow) = 0;
};

}  // namespace brelmon
