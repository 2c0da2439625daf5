// SPDX-License-Identifier: GPL-2.0-or-later
// What the twenty commands have in common; a command adds its click.
#pragma once

#include "frame/commandtable.h"
#include "frame/guard.h"
#include "platform/map.h"

namespace brelmon {

/// A picture of the component's, by the id of its resource.
class StdPicture : public virtual IObject {
 public:
  explicit StdPicture(std::int32_t handle) : handle_(handle) {}
  std::int32_t Handle() const { return handle_; }

 private:
  std::int32_t handle_;
};

/// Fails with 326 (no such resource).
Ref<StdPicture> LoadResPicture(std::int32_t id);

/// Constants come from the command table. The objects of OnCreate are kept for the command's
/// whole life; maps, layers and tables never are.
class BrelmonCommand : public ICommand {
 public:
  bool Enabled() override;
  bool Checked() override;
  Text Name() override;
  Text Caption() override;
  Text Tooltip() override;
  Text Message() override;
  Text HelpFile() override;
  std::int32_t HelpContextID() override;
  std::int32_t Bitmap() override;
  Text Category() override;
  void OnCreate(const Ref<IObject>& hook) override;

  enum class Guarded { Yes, No };

 protected:
  /// `file` is the command's own module, for the labels of its failures.
  explicit BrelmonCommand(TextView className, Guarded guarded = Guarded::Yes,
                          const char* file = __builtin_FILE());

  /// What a command creates or sets behind the objects of OnCreate, under the same guard block.
  virtual void Created() {}
  /// Drops the bitmap, guarded; then `more` for what else the class lets go. For destructors: not
  /// even a failing error dialog gets out.
  template <class More>
  void Terminate(More more) {
    Guard::Ignore([&] {
      Block(u"Class_Terminate", [&] {
        m_pBitmap.Reset();
        more();
      });
    });
  }

  Ref<IApplication> m_pApp;
  Ref<IMxDocument> m_pMxDoc;
  Ref<StdPicture> m_pBitmap;

 private:
  template <class Body>
  std::invoke_result_t<Body> Block(TextView procedure, Body body) {
    return guarded_ == Guarded::Yes ? Guard::Top(procedure, body, file_) : body();
  }

  const CommandInfo& info_;
  Guarded guarded_;
  const char* file_;
};

}  // namespace brelmon
