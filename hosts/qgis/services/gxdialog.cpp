// SPDX-License-Identifier: GPL-2.0-or-later
// Catalog dialogs over QFileDialog.
#include "hosts/qgis/services/gxdialog.h"

#include <QFileDialog>
#include <QFileInfo>

#include "hosts/common/paths.h"
#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/services/gxlayer.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {
namespace {

class GxFileObject : public virtual IGxObject {
 public:
  explicit GxFileObject(Text path) : path_(std::move(path)) {}
  Text FullName() override { return path_; }

 private:
  Text path_;
};

class EnumGxObject : public virtual IEnumGxObject {
 public:
  explicit EnumGxObject(std::vector<Ref<IGxObject>> objects) : objects_(std::move(objects)) {}
  Ref<IGxObject> Next() override {
    return next_ < objects_.size() ? objects_[next_++] : Ref<IGxObject>();
  }

 private:
  std::vector<Ref<IGxObject>> objects_;
  std::size_t next_ = 0;
};

QString NameFilter(GxFilter filter) {
  switch (filter) {
    case GxFilter::TextFiles:
      return QObject::tr("Text files") + QStringLiteral(" (*.txt *.TXT)");
    case GxFilter::LayerFiles:
      return QObject::tr("Layer definitions") + QStringLiteral(" (*.qlr *.QLR)");
    case GxFilter::Tables:
      return QObject::tr("dBASE tables") + QStringLiteral(" (*.dbf *.DBF)");
    case GxFilter::All:
      break;
  }
  return QObject::tr("All files") + QStringLiteral(" (*)");
}

class GxDialog : public virtual IGxDialog {
 public:
  void SetAllowMultiSelect(bool allow) override { many_ = allow; }
  void SetStartingLocation(const Text& path) override { start_ = path; }
  void SetTitle(const Text& title) override { title_ = title; }
  void SetButtonCaption(const Text& caption) override { button_ = caption; }
  void SetObjectFilter(GxFilter filter) override { filter_ = filter; }
  void SetName(const Text& name) override { name_ = name; }
  Text Name() override { return name_; }
  Text FinalLocation() override { return location_; }

  bool DoModalOpen(std::int32_t, Ref<IEnumGxObject>& selection) override {
    QFileDialog dialog(OwnerWindow());
    dialog.setFileMode(many_ ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    if (!Run(dialog)) return false;
    std::vector<Ref<IGxObject>> objects;
    for (const QString& file : dialog.selectedFiles()) objects.push_back(ObjectAt(file));
    selection = New<EnumGxObject>(std::move(objects));
    return true;
  }

  // The tool itself asks what to do about a name that is taken.
  bool DoModalSave(std::int32_t) override {
    QFileDialog dialog(OwnerWindow());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (filter_ == GxFilter::Tables) dialog.setDefaultSuffix(QStringLiteral("dbf"));
    if (!Run(dialog) || dialog.selectedFiles().isEmpty()) return false;
    const QFileInfo chosen(dialog.selectedFiles().front());
    name_ = FromQt(chosen.fileName());
    location_ = host::Paths().ToWindows(chosen.absolutePath().toStdString());
    return true;
  }

 private:
  Ref<IGxObject> ObjectAt(const QString& file) const {
    const Text path = host::Paths().ToWindows(QFileInfo(file).absoluteFilePath().toStdString());
    if (filter_ != GxFilter::LayerFiles) return New<GxFileObject>(path);
    const auto layer = NewGxLayer();
    layer.As<IGxFile>(0)->SetPath(path);
    return layer.As<IGxObject>(0);
  }

  bool Admits(const QString& suffix) const {
    return filter_ == GxFilter::All || NameFilter(filter_).contains(QLatin1String("*.") + suffix);
  }

  void SetStart(QFileDialog& dialog) const {
    const auto system = host::Paths().ToSystem(start_);
    if (!system) return;
    const QFileInfo info(QString::fromStdString(*system));
    dialog.setDirectory(info.isDir() ? info.absoluteFilePath() : info.absolutePath());
    if (info.isFile() && Admits(info.suffix())) dialog.selectFile(info.fileName());
  }

  bool Run(QFileDialog& dialog) const {
    CheckTurn();
    dialog.setObjectName(QStringLiteral("BrelmonGxDialog"));
    // Qt's own takes the button's caption and an owner; the desktop's native ones needn't.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setWindowTitle(ToQt(title_));
    dialog.setNameFilter(NameFilter(filter_));
    SetStart(dialog);
    if (!name_.empty()) dialog.selectFile(ToQt(name_));
    if (!button_.empty()) dialog.setLabelText(QFileDialog::Accept, ToQt(button_));
    dialog.setWindowModality(Qt::WindowModal);
    PushModalWindow(&dialog);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    PopModalWindow(&dialog);
    return accepted;
  }

  bool many_ = false;
  Text start_, title_, button_, name_, location_;
  GxFilter filter_ = GxFilter::All;
};

}  // namespace

Ref<IGxDialog> NewGxDialog() { return New<GxDialog>(); }

}  // namespace brelmon::qgis
