// SPDX-License-Identifier: GPL-2.0-or-later
// The host's application: document, status bar, templates, commands of its own, frame windows.
#pragma once

#include <cstdint>

#include "platform/object.h"
#include "platform/text.h"

namespace brelmon {

class IStatusBar : public virtual IObject {
 public:
  /// Repaints its own widget only: no user event runs while a tool holds the thread.
  /// The bar stands at `minimum` and is full at `maximum`; each step adds `step`. A maximum that is
  /// no more than the minimum is a bar that only shows the message. `onePanel` has no meaning where
  /// there is one panel. Shown again, it begins anew.
  virtual void ShowProgressBar(const Text& message, std::int32_t minimum, std::int32_t maximum,
                               std::int32_t step, bool onePanel) = 0;
  virtual void StepProgressBar() = 0;  // nothing beyond the maximum, nor while it is hidden
  virtual void HideProgressBar() = 0;  // nothing while it is hidden
};

class ICommandItem : public virtual IObject {
 public:
  /// As a click on it. What it does, and whether it is over when the call returns, is the host's.
  virtual void Execute() = 0;
};

/// Identifiers of the host's own commands that the tools run.
namespace hostcommand {
inline constexpr TextView kStatistics = u"{3E58D6D0-DF7A-11D1-ADD9-080009EC732A}";
inline constexpr TextView kSelectByLocation = u"{82B9951B-DD63-11D1-AA7F-00C04FA37860}";
inline constexpr TextView kSelectByAttributes = u"{54EBEEE6-DC82-11D1-AA7F-00C04FA37860}";
}  // namespace hostcommand

class ICommandBars : public virtual IObject {
 public:
  /// The host's command of that identifier; unset if it has none.
  virtual Ref<ICommandItem> Find(const Ref<UID>& uid) = 0;
};

class IDocument : public virtual IObject {
 public:
  virtual Ref<ICommandBars> CommandBars() = 0;  // never unset
};

/// Paths of templates; the last is the full path of the open map document.
class ITemplates : public virtual IObject {
 public:
  virtual std::int32_t Count() = 0;  // at least 1
  /// Index from 0; fails with 9 out of bounds, and with a description of its own where the open
  /// document was never saved.
  virtual Text Item(std::int32_t index) = 0;
};

class IApplication : public virtual IObject {
 public:
  virtual Ref<IDocument> Document() = 0;  // these three are never unset
  virtual Ref<IStatusBar> StatusBar() = 0;
  virtual Ref<ITemplates> Templates() = 0;
  /// Handle of the main window, for dialogs to be owned by; 0 where there is none.
  virtual std::int32_t hWnd() = 0;
};

/// A window beside the host that a form lives in. Its own close button only hides it. It holds the
/// form while it is visible; the form holds it at all times.
class IModelessFrame : public virtual IObject {
 public:
  /// Once, before anything else; the frame is hidden at first. Fails with 5 for what is no form.
  virtual void Create(const Ref<IObject>& form) = 0;
  virtual Text Caption() = 0;
  virtual void SetCaption(const Text& caption) = 0;
  virtual bool Visible() = 0;
  virtual void SetVisible(bool visible) = 0;
};

/// Also offered by a modeless frame: the size of its client window in pixels of 15 twips.
class IWindowPosition : public virtual IObject {
 public:
  virtual std::int32_t Width() = 0;
  virtual std::int32_t Height() = 0;
};

}  // namespace brelmon
