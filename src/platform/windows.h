// SPDX-License-Identifier: GPL-2.0-or-later
// Windows of the host that tools open: attribute tables, catalog dialogs, its summarize dialog.
#pragma once

#include "platform/map.h"

namespace brelmon {

/// An attribute table window. A new one is bound to nothing.
class ITableWindow : public virtual IObject {
 public:
  /// The open window of that layer or table; unset if there is none.
  /// `exact` has no meaning where each layer has one window at most.
  virtual Ref<ITableWindow> FindViaFeatureLayer(const Ref<IFeatureLayer>& layer, bool exact) = 0;
  virtual Ref<ITableWindow> FindViaStandaloneTable(const Ref<IStandaloneTable>& table,
                                                   bool exact) = 0;
  /// What it will show; the last of the two setters counts.
  virtual void SetFeatureLayer(const Ref<IFeatureLayer>& layer) = 0;
  virtual void SetStandaloneTable(const Ref<IStandaloneTable>& table) = 0;
  virtual void SetApplication(const Ref<IApplication>& application) = 0;  // whose window owns it
  /// Opens it, or brings it to the front; false hides it. Fails with 91 while bound to nothing.
  virtual void Show(bool show) = 0;
  /// Closes it; a window that isn't open stays so.
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
  /// Fails with 5 and its reason for a file that can't be read, or that holds none or several.
  virtual Ref<ILayer> Layer() = 0;
};

class IEnumGxObject : public virtual IObject {
 public:
  virtual Ref<IGxObject> Next() = 0;  // unset at the end
};

/// What a catalog dialog admits.
enum class GxFilter { All, TextFiles, LayerFiles, Tables };

/// The host's own dialog for choosing files. Nothing is read or written by it.
class IGxDialog : public virtual IObject {
 public:
  virtual void SetAllowMultiSelect(bool allow) = 0;
  /// Folder that it begins in; one that isn't there is passed over.
  virtual void SetStartingLocation(const Text& path) = 0;
  virtual void SetTitle(const Text& title) = 0;
  virtual void SetButtonCaption(const Text& caption) = 0;
  virtual void SetObjectFilter(GxFilter filter) = 0;
  virtual void SetName(const Text& name) = 0;  // the file name that is proposed for saving
  virtual Text Name() = 0;                     // the file name that was chosen
  virtual Text FinalLocation() = 0;            // folder of the answer to DoModalSave
  /// False when cancelled; `selection` holds what was chosen, else it stays as it was. The parent
  /// is IApplication::hWnd's, 0 for none.
  virtual bool DoModalOpen(std::int32_t parentWindow, Ref<IEnumGxObject>& selection) = 0;
  virtual bool DoModalSave(std::int32_t parentWindow) = 0;
};

/// The host's own summarize dialog. All setters come before it is shown; what it does is its own.
class ISummarizeDialog : public virtual IObject {
 public:
  virtual void SetApplication(const Ref<IApplication>& application) = 0;
  virtual void SetTable(const Ref<ITable>& table) = 0;
  virtual void SetField(const Ref<IField>& field) = 0;
  virtual void SetFlag(bool flag) = 0;
  /// Fails with 445 where the host has no such dialog.
  virtual void DoModal(std::int32_t parentWindow) = 0;
};

}  // namespace brelmon
