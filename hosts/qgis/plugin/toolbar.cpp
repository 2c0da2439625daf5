// SPDX-License-Identifier: GPL-2.0-or-later
// Actions for commands: built from the toolbar's definition, asked and clicked one at a time.
#include "hosts/qgis/plugin/toolbar.h"

#include <qgisinterface.h>

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTimer>
#include <QToolBar>

#include "frame/commandtable.h"
#include "hosts/common/baritems.h"
#include "hosts/common/componentloader.h"
#include "hosts/common/enabledquestion.h"
#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/services/errordialog.h"
#include "hosts/qgis/view/pictures.h"

namespace brelmon::qgis {
namespace {

QString ActionText(const Text& caption) {
  return ToQt(caption).replace(QLatin1Char('&'), QLatin1String("&&"));
}

struct Button {
  Ref<ICommand> command;
  QAction* action = nullptr;
  host::EnabledQuestion<QuietErrors> enabled;
};

class ToolbarOfQgis : public Toolbar {
 public:
  ToolbarOfQgis(QgisInterface& iface, host::Component& component,
                const Ref<IApplication>& application)
      : iface_(iface), component_(component), application_(application) {
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Ask(); });
    BuildMenu();
    BuildBar();
    AddCommandsOffTheBar();
    AskSoon();
  }
  ~ToolbarOfQgis() override {
    for (Button& button : buttons_) delete button.action;
    delete bar_;
    delete menu_;
  }
  void AskSoon() override {
    if (!timer_.isActive()) timer_.start(0);
  }

 private:
  void BuildBar() {
    const auto definition = component_.CreateObject(ProgIdOf(kToolBarClass)).As<IToolBarDef>(0);
    bar_ = iface_.addToolBar(ToQt(definition->Caption()));
    bar_->setObjectName(QStringLiteral("BrelmonTools"));
    for (const auto& [className, beginsGroup] : host::ItemsOf(*definition)) {
      if (beginsGroup) {
        bar_->addSeparator();
        menu_->addSeparator();
      }
      QAction* action = Add(className);
      bar_->addAction(action);
      menu_->addAction(action);
    }
  }

  // In QGIS's own menu bar: by keys, and for its locator to find.
  void BuildMenu() {
    menu_ = new QMenu(QStringLiteral("&Brelmon Tools"), iface_.mainWindow());
    menu_->setObjectName(QStringLiteral("BrelmonToolsMenu"));
    QAction* help = iface_.helpMenu()->menuAction();
    static_cast<QMainWindow*>(iface_.mainWindow())->menuBar()->insertMenu(help, menu_);
  }

  void AddCommandsOffTheBar() {
    Text category;
    for (const CommandInfo& info : CommandTable()) {
      const Text className(info.ClassName);
      if (Has(ToQt(className))) continue;
      if (category != info.Category) menu_->addSeparator();
      category = info.Category;
      menu_->addAction(Add(className));
    }
  }

  bool Has(const QString& className) const {
    return std::any_of(buttons_.begin(), buttons_.end(), [&](const Button& button) {
      return button.action->objectName() == className;
    });
  }

  QAction* Add(const Text& className) {
    Button button;
    button.command = component_.CreateObject(ProgIdOf(className)).As<ICommand>(0);
    ICommand& command = *button.command;
    button.action = new QAction(ActionText(command.Caption()), iface_.mainWindow());
    button.action->setObjectName(ToQt(className));
    button.action->setToolTip(ToQt(command.Tooltip()));
    button.action->setStatusTip(ToQt(command.Message()));
    button.action->setIcon(PictureOf(command));
    button.action->setEnabled(false);
    command.OnCreate(application_);
    QObject::connect(button.action, &QAction::triggered, button.action,
                     [this, at = buttons_.size()] { Click(at); });
    buttons_.push_back(std::move(button));
    return buttons_.back().action;
  }

  QIcon PictureOf(ICommand& command) {
    const std::int32_t handle = command.Bitmap();
    return IconOf({component_.PictureBytes(handle), component_.PictureDrawing(handle), {}});
  }

  void Click(std::size_t at) {
    if (running_) return;
    running_ = true;
    // The command outlives its click, whatever becomes of the plug-in meanwhile.
    const Ref<ICommand> command = buttons_[at].command;
    const QPointer<QAction> action = buttons_[at].action;
    InTurn([&] { command->OnClick(); });
    if (!action) return;  // and this object with it
    running_ = false;
    AskSoon();
  }

  void Ask() {
    if (running_) return;
    for (Button& button : buttons_) {
      if (ErrorDialogIsOpen()) return;  // its closing asks again
      button.action->setEnabled(
          button.enabled.Ask([&] { return button.command; },
                             [](const Failure& failure) { TellFailure(failure.Description); }));
    }
  }

  QgisInterface& iface_;
  host::Component& component_;
  Ref<IApplication> application_;
  QPointer<QToolBar> bar_;
  QPointer<QMenu> menu_;
  std::vector<Button> buttons_;
  QTimer timer_;
  bool running_ = false;
};

}  // namespace

std::unique_ptr<Toolbar> Toolbar::Make(QgisInterface& iface, host::Component& component,
                                       const Ref<IApplication>& application) {
  return std::make_unique<ToolbarOfQgis>(iface, component, application);
}

}  // namespace brelmon::qgis
