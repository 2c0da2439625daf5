// SPDX-License-Identifier: GPL-2.0-or-later
// Commands of QGIS under the identifiers that tools ask for.
#include "hosts/qgis/document/commandbars.h"

#include <qgisinterface.h>
#include <qgsdockwidget.h>

#include <QAction>
#include <QPointer>
#include <array>

#include "hosts/common/hostfailure.h"
#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
namespace {

struct HostCommand {
  TextView identifier;
  std::array<const char*, 2> actions;  // object names; the first that is there is run
  const char* panel;                   // what the action opens, if that is a panel
};

constexpr std::array kCommands = {
    HostCommand{hostcommand::kStatistics,
                {"mActionStatisticalSummary", ""},
                "StatisticalSummaryDockWidget"},
    HostCommand{
        hostcommand::kSelectByLocation,
        {"mProcessingUserMenu_native:selectbylocation", "mProcessingAlg_native:selectbylocation"},
        ""},
    HostCommand{hostcommand::kSelectByAttributes, {"mActionSelectByExpression", ""}, ""},
};

class CommandItem : public virtual ICommandItem {
 public:
  CommandItem(QAction* action, QgsDockWidget* panel) : action_(action), panel_(panel) {}
  void Execute() override {
    if (panel_) return panel_->setUserVisible(true);
    if (!action_) host::Fail(failure::kNoSuchObject, u"QGIS no longer has the command.");
    if (!action_->isEnabled()) {
      host::Fail(failure::kInvalidCall, u"QGIS has its command '" + FromQt(action_->toolTip()) +
                                            u"' disabled at the moment.");
    }
    action_->trigger();
  }

 private:
  QPointer<QAction> action_;
  QPointer<QgsDockWidget> panel_;
};

class CommandBars : public virtual ICommandBars {
 public:
  Ref<ICommandItem> Find(const Ref<UID>& uid) override {
    for (const HostCommand& command : kCommands) {
      if (EqualNoCase(command.identifier, uid->Value)) return Present(command);
    }
    return {};
  }

 private:
  static Ref<ICommandItem> Present(const HostCommand& command) {
    const QWidget& window = *Iface().mainWindow();
    auto* panel = window.findChild<QgsDockWidget*>(QString::fromLatin1(command.panel));
    if (*command.panel && panel) return New<CommandItem>(nullptr, panel);
    for (const char* name : command.actions) {
      if (!*name) continue;
      if (auto* action = window.findChild<QAction*>(QString::fromLatin1(name))) {
        return New<CommandItem>(action, nullptr);
      }
    }
    return {};
  }
};

}  // namespace

Ref<ICommandBars> NewCommandBars() { return New<CommandBars>(); }

}  // namespace brelmon::qgis
