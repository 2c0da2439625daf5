// SPDX-License-Identifier: GPL-2.0-or-later
// Constant members, life cycle and Enabled of the commands.
#include "frame/command.h"

#include "frame/documentmodel.h"
#include "frame/resources.h"

namespace brelmon {

Ref<StdPicture> LoadResPicture(std::int32_t id) {
  if (ResourceBytes(std::to_string(id) + ".bmp").empty()) Raise(failure::kNoSuchResource);
  return New<StdPicture>(id);
}

BrelmonCommand::BrelmonCommand(TextView className, Guarded guarded, const char* file)
    : info_(CommandNamed(className)), guarded_(guarded), file_(file) {
  Block(u"Class_Initialize", [&] { m_pBitmap = LoadResPicture(info_.BitmapId); });
}

bool BrelmonCommand::Enabled() {
  return Block(u"ICommand_Enabled", [&] { return IsEnabled(info_.Rule, m_pMxDoc); });
}

bool BrelmonCommand::Checked() {
  return Block(u"ICommand_Checked", [] { return false; });
}

Text BrelmonCommand::Name() {
  return Block(u"ICommand_Name", [&] { return Text(info_.Name); });
}

Text BrelmonCommand::Caption() {
  return Block(u"ICommand_Caption", [&] { return Text(info_.Caption); });
}

Text BrelmonCommand::Tooltip() {
  return Block(u"ICommand_Tooltip", [&] { return Text(info_.Tooltip); });
}

Text BrelmonCommand::Message() {
  return Block(u"ICommand_Message", [&] { return Text(info_.Message); });
}

Text BrelmonCommand::HelpFile() {
  return Block(u"ICommand_HelpFile", [] { return Text(); });
}

std::int32_t BrelmonCommand::HelpContextID() {
  return Block(u"ICommand_HelpContextID", [] { return 0; });
}

std::int32_t BrelmonCommand::Bitmap() {
  return Block(u"ICommand_Bitmap", [&] { return m_pBitmap->Handle(); });
}

Text BrelmonCommand::Category() {
  return Block(u"ICommand_Category", [&] { return Text(info_.Category); });
}

void BrelmonCommand::OnCreate(const Ref<IObject>& hook) {
  Block(u"ICommand_OnCreate", [&] {
    m_pApp = hook.As<IApplication>();
    m_pMxDoc = m_pApp->Document().As<IMxDocument>();
    Created();
  });
}

}  // namespace brelmon
