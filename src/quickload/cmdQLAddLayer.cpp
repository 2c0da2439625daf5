// SPDX-License-Identifier: GPL-2.0-or-later
// The click of "QL Edit - Add Layer".
#include "quickload/cmdQLAddLayer.h"

#include "platform/collection.h"
#include "platform/services.h"
#include "platform/windows.h"
#include "quickload/QuickLoadFile.h"
#include "quickload/QuickLoadMessages.h"
#include "util/aml_func_mod.h"
#include "util/documentdirectory.h"

namespace brelmon {
namespace {

constexpr std::int32_t kSlots = 1001;

/// What one run accepts, and what it has to say about it.
class References {
 public:
  explicit References(Text directory) : directory_(std::move(directory)) {}

  /// A run that accepts more than there are slots fails with 9 and writes nothing.
  void Look(const Ref<IGxObject>& file) {
    const auto layer = file.As<IGxLayer>()->Layer();
    const Text name = layer->Name();
    const bool valid = layer->Valid();
    const Text path = file->FullName();
    const bool inside = FindNoCase(path, directory_) != Text::npos;
    if (inside && valid) Accept(name, path);
    if (!inside) TellOutside(name, path);
    if (!valid) TellInvalid(name);
  }

  std::vector<QuickLoadRecord> Records() {
    names_.resize(static_cast<std::size_t>(index_ + 1));
    std::vector<QuickLoadRecord> records;
    for (std::size_t slot = 0; slot < names_.size(); ++slot) {
      records.push_back({QuickLoadRecord::Kind::Layer, {names_[slot], relativePaths_[slot]}, 0});
    }
    return records;
  }

  void Show() const {
    if (problems_)
      QuickLoadMessages::ShowReport(errorReport_, Text(QuickLoadMessages::kErrorReport));
    if (good_) QuickLoadMessages::ShowReport(goodReport_, u"QuickLoad.txt Edit Report:");
  }

 private:
  void Accept(const Text& name, const Text& path) {
    good_ = true;
    goodReport_ += u"--> " + name + kEnd_;
    ++index_;
    At(names_, index_) = name;
    At(relativePaths_, index_) = path.substr(directory_.size());
  }

  void TellOutside(const Text& name, const Text& path) {
    problems_ = true;
    errorReport_ +=
        u"--> Layer '" + name +
        u"' was not located within the current project directory. "
        u"Layer reference locations are stored relative to the location of the MxD file, so that "
        u"the tool can find the "
        u"files based only on the location of the current project file." +
        kEnd_ +
        u"*** The current project is located in the following "
        u"directory:" +
        kEnd_ + directory_ + kEnd_ + u"*** Layer '" + name + u"'is located at: " + kEnd_ + path +
        kEnd_ + kEnd_;
  }

  void TellInvalid(const Text& name) {
    problems_ = true;
    errorReport_ += u"--> Layer '" + name +
                    u"' is invalid.  This most likely means that the actual data "
                    u"is not available, as might happen if only the 'Layer' file was copied and "
                    u"none of the referenced data files." +
                    kEnd_ + kEnd_;
  }

  const Text kEnd_{kCrLf};
  const Text kRule_ = kEnd_ + Text(54, u'-') + kEnd_;
  Text directory_;
  std::vector<Text> names_{kSlots}, relativePaths_{kSlots};
  std::int32_t index_ = -1;  // last used slot
  bool problems_ = false, good_ = false;
  Text errorReport_ =
      u"There were problems with the following layers.  They have not been added to the "
      u"'QuickLoad.txt' file." +
      kRule_;
  Text goodReport_ = u"The following layers have been added to the 'QuickLoad.txt' file:" + kRule_;
};

/// What the user chose; unset when the browser was cancelled.
Ref<IEnumGxObject> Browse(const Ref<IApplication>& application, const Text& path) {
  const auto browser = HostObjects().NewGxDialog();
  browser->SetAllowMultiSelect(true);
  browser->SetStartingLocation(path);
  browser->SetTitle(u"Please select the Layer references to add to 'QuickLoad.txt' file:");
  browser->SetButtonCaption(u"Add to QL...");
  browser->SetObjectFilter(GxFilter::LayerFiles);
  Ref<IEnumGxObject> selection;
  return browser->DoModalOpen(application->hWnd(), selection) ? selection : nullptr;
}

}  // namespace

cmdQLAddLayer::cmdQLAddLayer() : BrelmonCommand(u"cmdQLAddLayer") {}

cmdQLAddLayer::~cmdQLAddLayer() {
  Terminate([&] {
    m_pApp.Reset();
    m_pMxDoc.Reset();
  });
}

void cmdQLAddLayer::OnClick() {
  Guard::PlainBox([&] {
    const Text directory = DocumentDirectory(m_pApp);
    const Text path = directory + Text(QuickLoadFile::kFileName);
    const bool exists = ExistFileDir(path);

    References references(directory);
    const auto selection = Browse(m_pApp, path);
    if (!selection) {
      MsgBox(u"No Layer references added to QuickLoad.txt file.  Bailing out...", box::kInformation,
             u"QuickLoad Cancelled:");
      return;
    }
    while (const auto file = selection->Next()) references.Look(file);

    const auto records = references.Records();
    if (!records.empty()) {
      if (!exists && !QuickLoadMessages::MayCreate(path)) return;
      QuickLoadFile::Append(path, records);
    }
    references.Show();
  });
}

}  // namespace brelmon
