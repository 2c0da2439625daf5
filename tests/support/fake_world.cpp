// SPDX-License-Identifier: GPL-2.0-or-later
// The services of the fake world.
#include "tests/support/fake_world.h"

#include <algorithm>

#include "frame/errorhandling.h"
#include "hosts/common/heldform.h"

namespace brelmon::test {
namespace {

Text Folded(Text text) {
  for (char16_t& unit : text) unit = FoldCase(unit);
  return text;
}

class Browser : public IGxDialog {
 public:
  explicit Browser(FakeWorld& world) : world_(world) {}
  void SetAllowMultiSelect(bool allow) override { multi_ = allow; }
  void SetStartingLocation(const Text& path) override { start_ = path; }
  void SetTitle(const Text& title) override { title_ = title; }
  void SetButtonCaption(const Text& caption) override { caption_ = caption; }
  void SetObjectFilter(GxFilter filter) override { filter_ = filter; }
  void SetName(const Text& name) override { name_ = name; }
  Text Name() override { return name_; }
  Text FinalLocation() override { return folder_; }
  bool DoModalOpen(std::int32_t, Ref<IEnumGxObject>& selection) override;
  bool DoModalSave(std::int32_t) override;

 private:
  Browsed Answer(const char* what);
  FakeWorld& world_;
  bool multi_ = false;
  Text start_, title_, caption_, name_, folder_;
  GxFilter filter_ = GxFilter::All;
};

class LayerFile : public IGxLayer, public IGxFile, public IGxObject {
 public:
  explicit LayerFile(FakeWorld& world, Text path = {}) : world_(world), path_(std::move(path)) {}
  Text FullName() override { return path_; }
  Text Path() override { return path_; }
  void SetPath(const Text& path) override { path_ = path; }
  Ref<ILayer> Layer() override {
    for (const auto& [path, layer] : world_.layerFiles) {
      if (EqualNoCase(path, path_)) return layer;
    }
    host::Fail(failure::kInvalidCall, "There is no layer file " + ToUtf8(path_));
  }

 private:
  FakeWorld& world_;
  Text path_;
};

class Chosen : public IEnumGxObject {
 public:
  Chosen(FakeWorld& world, std::vector<Text> paths) : world_(world), paths_(std::move(paths)) {}
  Ref<IGxObject> Next() override {
    if (next_ == paths_.size()) return {};
    return New<LayerFile>(world_, paths_[next_++]);
  }

 private:
  FakeWorld& world_;
  std::vector<Text> paths_;
  std::size_t next_ = 0;
};

Browsed Browser::Answer(const char* what) {
  Note(&world_.log, std::string(what) + " [" + ToUtf8(title_) + "] [" + ToUtf8(caption_) + "] at " +
                        ToUtf8(start_) + (multi_ ? " multi" : "") + " filter " +
                        std::to_string(static_cast<int>(filter_)) + " name " + ToUtf8(name_));
  if (world_.browsed.empty()) host::Fail(failure::kInternal, "A catalog dialog was not answered");
  auto answer = world_.browsed.front();
  world_.browsed.pop_front();
  return answer;
}

bool Browser::DoModalOpen(std::int32_t, Ref<IEnumGxObject>& selection) {
  auto answer = Answer("Open");
  if (!answer.ok) return false;
  selection = New<Chosen>(world_, std::move(answer.files));
  return true;
}

bool Browser::DoModalSave(std::int32_t) {
  const auto answer = Answer("Save");
  if (!answer.ok) return false;
  const Text& chosen = Of(answer.files, 0);
  const auto slash = chosen.rfind(u'\\');
  folder_ = chosen.substr(0, slash);
  name_ = chosen.substr(slash + 1);
  return true;
}

class ModelessFrame : public IModelessFrame, public IWindowPosition {
 public:
  explicit ModelessFrame(Log& log) : log_(log) {}
  void Create(const Ref<IObject>& form) override { form_.Take(form); }
  Text Caption() override { return caption_; }
  void SetCaption(const Text& caption) override { caption_ = caption; }
  bool Visible() override { return visible_; }
  void SetVisible(bool visible) override {
    form_.Show(visible);
    visible_ = visible;
    Note(&log_, "Frame [" + ToUtf8(caption_) + "] " + (visible ? "shown" : "hidden"));
  }
  std::int32_t Width() override { return form_.Width(); }
  std::int32_t Height() override { return form_.Height(); }
  bool Holds() const { return form_.Lock() != nullptr; }

 private:
  Log& log_;
  host::HeldForm form_;
  Text caption_;
  bool visible_ = false;
};

class UniqueValuesOf : public IDataStatistics,
                       public IEnumValue,
                       public std::enable_shared_from_this<UniqueValuesOf> {
 public:
  void SetField(const Text& name) override { field_ = name; }
  void SetCursor(const Ref<ICursor>& cursor) override { cursor_ = cursor; }
  Ref<IEnumValue> UniqueValues() override {
    Read();
    return Ref<UniqueValuesOf>(shared_from_this());
  }
  std::int32_t UniqueValueCount() override {
    Read();
    return static_cast<std::int32_t>(values_.size());
  }
  Value Next() override { return next_ < values_.size() ? values_[next_++] : Value(); }

 private:
  void Read() {
    if (read_) return;
    read_ = true;
    if (!cursor_) host::Fail(failure::kInvalidCall, "There is no cursor");
    std::map<Text, bool> seen;
    const std::int32_t index = cursor_.As<FakeCursor>()->FindField(field_);
    if (index < 0) host::Fail(failure::kInvalidCall, "The cursor has no such field");
    while (const auto row = cursor_->NextRow()) {
      const Value value = row->Value(index);
      if (!value.IsNull() && seen.emplace(value.ToText(), true).second) values_.push_back(value);
    }
  }
  Text field_;
  Ref<ICursor> cursor_;
  std::vector<Value> values_;
  std::size_t next_ = 0;
  bool read_ = false;
};

class ShapefileFolder : public IWorkspaceFactory, public IWorkspace, public IDataset {
 public:
  ShapefileFolder(FakeWorld& world, Text folder) : world_(world), folder_(std::move(folder)) {}
  Text WorkspaceDescription(bool plural) override { return plural ? u"Shapefiles" : u"Shapefile"; }
  bool IsWorkspace(const Text& path) override { return world_.HasFolder(path); }
  Ref<IWorkspace> OpenFromFile(const Text& path, std::int32_t) override {
    return New<ShapefileFolder>(world_, path);
  }
  Ref<IWorkspaceFactory> WorkspaceFactory() override {
    return New<ShapefileFolder>(world_, Text());
  }
  bool Exists() override { return world_.HasFolder(folder_); }
  Ref<IWorkspace> Workspace() override { return {}; }
  Ref<IObject> FullName() override { return New<UID>(folder_); }

 private:
  FakeWorld& world_;
  Text folder_;
};

class Stream : public IByteStream {
 public:
  Stream(FakeWorld& world, std::string& bytes, bool reads)
      : world_(world), bytes_(bytes), at_(reads ? 0 : bytes.size()), writes_(!reads) {}
  std::string Read(std::size_t size) override {
    const std::string read = bytes_.substr(std::min(at_, bytes_.size()), size);
    at_ += read.size();
    return read;
  }
  void Write(const std::string& bytes) override { bytes_ += bytes; }
  void Close() override {
    if (writes_ && world_.diskFull) host::Fail(failure::kDiskFull);
  }

 private:
  FakeWorld& world_;
  std::string& bytes_;
  std::size_t at_;
  bool writes_;
};

}  // namespace

struct FakeWorld::Impl : IMessageBox,
                         IScreen,
                         IClipboard,
                         IPrinter,
                         IClock,
                         IFileSystem,
                         IRegistry,
                         IShell,
                         IHostObjects,
                         IFormHost {
  explicit Impl(FakeWorld& owner) : world(owner) {}
  FakeWorld& world;
  Log log;

  int Show(const Text& text, int style, const Text& title) override {
    world.boxes.push_back({text, style, title});
    Note(&log, "Box [" + ToUtf8(title) + "]");
    if (world.answers.empty()) return (style & 15) == box::kYesNo ? box::kAnswerNo : box::kAnswerOk;
    const int answer = world.answers.front();
    world.answers.pop_front();
    return answer;
  }
  void Beep() override { Note(&log, "Beep"); }
  void SetMousePointer(Pointer pointer) override {
    world.pointer = pointer;
    Note(&log, "Pointer " + std::to_string(static_cast<int>(pointer)));
  }
  void Clear() override { world.clipboard.clear(); }
  void SetText(const Text& text) override { world.clipboard = text; }
  void SetFontSize(double points) override {
    if (world.printerMissing) host::Fail(failure::kPrinter);
    Note(&log, "Printer font " + std::to_string(static_cast<int>(points)));
  }
  void Print(const Text& text) override { world.printed.push_back(text); }
  void EndDoc() override { Note(&log, "Printer end"); }
  Date Now() override { return world.now; }

  std::int32_t Attributes(const Text& path) override {
    if (world.FileAt(path)) return 0;
    if (world.HasFolder(path)) return 16;
    host::Fail(failure::kFileNotFound);
  }
  std::unique_ptr<IByteStream> Open(const Text& path, FileMode mode) override {
    if (!world.HasFolder(path.substr(0, path.rfind(u'\\')))) host::Fail(failure::kPathNotFound);
    if (world.HasFolder(path)) host::Fail(failure::kPathFileAccess);
    std::string* bytes = world.FileAt(path);
    if (!bytes && mode == FileMode::Input) host::Fail(failure::kFileNotFound);
    if (!bytes) bytes = &world.files[path];
    if (mode == FileMode::Output) bytes->clear();
    return std::make_unique<Stream>(world, *bytes, mode == FileMode::Input);
  }
  /// In the case under which the file is kept.
  Text FromTyped(const Text& typed) override { return typed; }
  std::int32_t GetLongPathName(const Text& path, Text& buffer) override {
    buffer = path;
    for (const auto& [each, bytes] : world.files) {
      if (EqualNoCase(each, path)) buffer = each;
    }
    return static_cast<std::int32_t>(buffer.size());
  }
  std::int32_t GetTempPath(Text& buffer) override {
    buffer = world.tempPath;
    return static_cast<std::int32_t>(buffer.size());
  }

  static Text RegistryKey(RegistryRoot root, const Text& key, const Text& name) {
    static const Text roots[] = {u"CR\\", u"CU\\", u"LM\\"};
    return roots[static_cast<int>(root)] + key + u"\\" + name;
  }
  bool Query(RegistryRoot root, const Text& key, const Text& name, Value& value) override {
    const auto hit = world.registry.find(RegistryKey(root, key, name));
    if (hit == world.registry.end()) return false;
    value = hit->second;
    return true;
  }
  void Write(RegistryRoot root, const Text& key, const Text& name, const Text& value) override {
    world.registry[RegistryKey(root, key, name)] = value;
  }
  void DeleteTree(RegistryRoot root, const Text& key) override {
    const Text exact = RegistryKey(root, key, {});
    std::erase_if(world.registry, [&](const auto& it) { return it.first.starts_with(exact); });
  }

  void Execute(const Text& file, const Text& directory, int showMode) override {
    world.executed.push_back({file, directory});
    Note(&log, "Execute mode " + std::to_string(showMode));
  }
  void Run(const Text& program) override {
    if (program.empty()) host::Fail(failure::kInvalidCall);
    world.ran.push_back(program);
  }
  bool GetUserName(Text& name) override {
    name = world.userName + Text(1, u'\0');
    return !world.userName.empty();
  }

  struct ErrorDialog : IErrorDialog {
    explicit ErrorDialog(FakeWorld& owner) : world(owner) {}
    FakeWorld& world;
    Text text;
    void SetText(const Text& newText) override { text = newText; }
    void SetVisible(bool visible) override {
      if (visible) world.trails.push_back(text);
    }
  };
  Ref<IErrorDialog> NewErrorDialog() override {
    Note(&log, "NewErrorDialog");
    return New<ErrorDialog>(world);
  }
  Ref<IModelessFrame> NewModelessFrame() override {
    auto frame = New<ModelessFrame>(log);
    world.frames.push_back(frame);
    return frame;
  }
  Ref<ITableWindow> NewTableWindow() override {
    auto window = New<FakeTableWindow>(world.tableWindows);
    world.tableWindows.push_back(window);
    return window;
  }
  Ref<IDataStatistics> NewDataStatistics() override { return New<UniqueValuesOf>(); }
  Ref<IStandaloneTable> NewStandaloneTable() override {
    auto table = New<FakeStandaloneTable>();
    table->unbound = true;
    return table;
  }
  Ref<IWorkspaceFactory> NewShapefileWorkspaceFactory() override {
    return New<ShapefileFolder>(world, Text());
  }
  Ref<IBasicGeoprocessor> NewBasicGeoprocessor() override {
    if (!world.geoprocessor) host::Fail(failure::kNotSupported);
    return world.geoprocessor;
  }
  Ref<IEnvelope> NewEnvelope() override { return New<FakeEnvelope>(); }
  Ref<IGxDialog> NewGxDialog() override { return New<Browser>(world); }
  Ref<IGxLayer> NewGxLayer() override { return New<LayerFile>(world); }
  Ref<ISummarizeDialog> NewSummarizeDialog() override {
    if (!world.summarizeDialog) host::Fail(failure::kNotSupported);
    return world.summarizeDialog;
  }

  void ShowModal(Form& form) override {
    const auto user = world.users.find(form.Name());
    if (user == world.users.end()) {
      host::Fail(failure::kInternal, u"Nobody answers the form " + form.Name());
    }
    user->second(form);
    if (form.Visible()) host::Fail(failure::kInternal, u"The form stayed open: " + form.Name());
  }
};

namespace {

class ProgressBar : public IStatusBar {
 public:
  explicit ProgressBar(Log& log) : log_(log) {}
  void ShowProgressBar(const Text& message, std::int32_t minimum, std::int32_t maximum,
                       std::int32_t step, bool onePanel) override {
    steps_ = 0;
    Note(&log_, "Bar [" + ToUtf8(message) + "] " + std::to_string(minimum) + ".." +
                    std::to_string(maximum) + " by " + std::to_string(step) +
                    (onePanel ? " one panel" : ""));
  }
  void StepProgressBar() override { ++steps_; }
  void HideProgressBar() override {
    Note(&log_, "Bar hidden after " + std::to_string(steps_));
    steps_ = 0;
  }

 private:
  Log& log_;
  int steps_ = 0;
};

class Application : public IApplication,
                    public ITemplates,
                    public std::enable_shared_from_this<Application> {
 public:
  explicit Application(FakeWorld& world) : world_(world), bar_(New<ProgressBar>(world.log)) {}
  Ref<IDocument> Document() override { return world_.document; }
  Ref<IStatusBar> StatusBar() override { return bar_; }
  Ref<ITemplates> Templates() override { return Ref<Application>(shared_from_this()); }
  std::int32_t hWnd() override { return 42; }
  std::int32_t Count() override { return 2; }
  Text Item(std::int32_t index) override {
    const std::vector<Text> paths = {u"C:\\Templates\\Normal.qgs", world_.path};
    return Of(paths, index);
  }

 private:
  FakeWorld& world_;
  Ref<IStatusBar> bar_;
};

}  // namespace

FakeWorld::FakeWorld()
    : impl_(std::make_unique<Impl>(*this)), log(impl_->log), before_(CurrentServices()) {
  Services services;
  services.messageBox = impl_.get();
  services.screen = impl_.get();
  services.clipboard = impl_.get();
  services.printer = impl_.get();
  services.clock = impl_.get();
  services.files = impl_.get();
  services.registry = impl_.get();
  services.shell = impl_.get();
  services.objects = impl_.get();
  services.forms = impl_.get();
  SetServices(services);
  document = New<FakeDocument>();
  document->log = &log;
  document->findCommand = [this](const Text& identifier) {
    const auto hit = hostCommands.find(identifier);
    return hit == hostCommands.end() ? Ref<ICommandItem>() : hit->second;
  };
  map = document->AddMap(u"Layers");
  application = New<Application>(*this);
  now = ToDate(CivilTime{2026, 11, 16, 14, 15, 7});
}

FakeWorld::~FakeWorld() {
  for (const auto& frame : frames) {  // frame and form keep each other
    if (frame.As<ModelessFrame>()->Holds()) frame->SetVisible(false);
  }
  ErrorHandling::Reset();  // its dialog is this world's
  SetServices(before_);
}

std::string* FakeWorld::FileAt(const Text& filePath) {
  for (auto& [each, bytes] : files) {
    if (EqualNoCase(each, filePath)) return &bytes;
  }
  return nullptr;
}

bool FakeWorld::HasFolder(const Text& folder) const {
  Text prefix = Folded(folder);
  if (prefix.empty()) return false;
  if (prefix.back() != u'\\') prefix += u'\\';
  const auto below = [&](const Text& each) { return Folded(each).starts_with(prefix); };
  return below(path) ||
         std::any_of(files.begin(), files.end(), [&](const auto& it) { return below(it.first); });
}

std::string Trails(const FakeWorld& world) {
  std::string all;
  for (const Text& trail : world.trails) all += ToUtf8(trail);
  return all;
}

std::string Boxes(const FakeWorld& world) {
  std::string all;
  for (const auto& box : world.boxes) all += ToUtf8(u"[" + box.title + u"] " + box.text) + "\n";
  return all;
}

int FailureIn(const FakeWorld& world) {
  const std::string all = Trails(world), head = "Error Number \r\n\t";
  const auto at = all.find(head);
  return at == std::string::npos ? 0 : std::stoi(all.substr(at + head.size()));
}

}  // namespace brelmon::test
