// SPDX-License-Identifier: GPL-2.0-or-later
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <set>

#include "platform/component.h"
#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeWorld;

struct ItemDef : public IItemDef {
  Text id;
  bool group = false;
  int touched = 0;
  void SetID(const Text& progId) override {
    id = progId;
    ++touched;
  }
  void SetGroup(bool isGroup) override {
    group = isGroup;
    ++touched;
  }
  void SetSubType(std::int32_t) override { ADD_FAILURE() << "the bar has no subtypes"; }
};

class Component : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    library = dlopen(BRELMON_COMPONENT, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
  }
  template <class Fn>
  Fn Export(const char* name) {
    return reinterpret_cast<Fn>(dlsym(library, name));
  }
  IServiceSink* Sink() {
    void* sink = nullptr;
    const Guid any{};
    EXPECT_EQ(getClassObject(&any, &kIID_IServiceSink, &sink), hresult::kOk);
    return static_cast<IServiceSink*>(sink);
  }
  Ref<IObject> Create(const Text& className) {
    const auto entry = world.registry.find(u"CR\\BrelmonOpenTable." + className + u"\\CLSID\\");
    if (entry == world.registry.end()) return {};
    Guid id;
    EXPECT_TRUE(ToGuid(entry->second.ToText(), id));
    void* factory = nullptr;
    EXPECT_EQ(getClassObject(&id, &kIID_IClassFactory, &factory), hresult::kOk);
    return factory ? static_cast<IClassFactory*>(factory)->CreateInstance() : nullptr;
  }
  void SetUp() override {
    Sink()->Attach(CurrentServices(), u"Z:\\lib\\component.so");
    ASSERT_EQ(Export<DllRegisterServerFn>("DllRegisterServer")(), hresult::kOk);
  }
  void TearDown() override { Sink()->Detach(); }

  inline static void* library = nullptr;
  FakeWorld world;
  DllGetClassObjectFn getClassObject = Export<DllGetClassObjectFn>("DllGetClassObject");
};

TEST_F(Component, RegistersTwentyOneClassesAndTakesThemOutAgain) {
  std::set<Text> ids;
  for (const auto& [key, value] : world.registry) {
    if (key.ends_with(u"\\CLSID\\")) ids.insert(value.ToText());
    if (key.ends_with(u"\\Version\\")) {
      EXPECT_EQ(value.ToText(), u"1.09.0059");
    }
  }
  EXPECT_EQ(ids.size(), 21u);
  EXPECT_EQ(Export<DllUnregisterServerFn>("DllUnregisterServer")(), hresult::kOk);
}

TEST_F(Component, TheToolbarHasTwelveItemsInFiveGroups) {
  const auto bar = Create(u"toolBarBrelmon").As<IToolBarDef>();
  EXPECT_EQ(bar->Name(), u"BrelmonCommands_BrelmonToolBar");
  EXPECT_EQ(bar->Caption(), u"Brelmon Tools");
  std::string order;
  for (std::int32_t pos = 0; pos < bar->ItemCount(); ++pos) {
    const auto item = New<ItemDef>();
    bar->GetItemInfo(pos, item);
    const std::string id = ToUtf8(item->id);
    order += (item->group ? "| " : "") + id.substr(id.find('.') + 1) + " ";
    EXPECT_TRUE(Create(FromUtf8(id.substr(id.find('.') + 1))).Offers<ICommand>()) << id;
  }
  EXPECT_EQ(order,
            "OpenTable cmdMediaViewer cmdStats cmdSumBrelmon cmdQuickLoad "
            "| cmdSelByAttBrelmon cmdSelByLocation cmdSelByGraphic "
            "| cmdSelectNone cmdSelectSwitch | cmdDeleteSelLayers | cmdAbout ");
  for (const std::int32_t pos : {bar->ItemCount(), -1}) {
    const auto item = New<ItemDef>();
    bar->GetItemInfo(pos, item);
    EXPECT_EQ(item->touched, 0);
  }
  EXPECT_TRUE(world.trails.empty());
}

TEST_F(Component, CommandsLiveAndDieWithTheirForms) {
  const auto canUnload = Export<DllCanUnloadNowFn>("DllCanUnloadNow");
  world.map->AddFeatureLayer(u"layer");
  EXPECT_EQ(canUnload(), hresult::kOk);
  for (const Text className : {u"cmdStats", u"cmdSelByAttBrelmon", u"cmdQuickLoad"}) {
    auto command = Create(className).As<ICommand>();
    command->OnCreate(world.application);
    EXPECT_TRUE(command->Enabled()) << ToUtf8(className);
    const std::string bitmap = Sink()->PictureBytes(command->Bitmap());
    EXPECT_EQ(bitmap.substr(0, 2), "BM");
    EXPECT_EQ(canUnload(), hresult::kFalse);
    command.Reset();
    EXPECT_EQ(canUnload(), hresult::kOk) << ToUtf8(className);
  }
  EXPECT_TRUE(world.trails.empty()) << Trails(world);
}

TEST_F(Component, TenClicksTellOfAFailureInAPlainBox) {
  world.files[u"C:\\Module\\QuickLoad.txt"] = "";
  const std::pair<const char*, const char*> handlers[] = {
      {"layertools", "OpenTable"},     {"layertools", "cmdSelectAll"},
      {"layertools", "cmdSelectNone"}, {"layertools", "cmdSelectSwitch"},
      {"quickload", "cmdQuickLoad"},   {"quickload", "cmdQLAddSpatial"},
      {"quickload", "cmdQLAddQuery"},  {"quickload", "cmdQLAddLayer"},
      {"forms", "cmdAbout"},           {"quickload", "cmdQLDelete"}};
  for (const auto& [room, name] : handlers) {
    world.boxes.clear();
    const auto command = Create(FromUtf8(name)).As<ICommand>();
    // The editors ask for the path first; what fails is a dialog that nobody answers.
    if (std::string(name).starts_with("cmdQL")) command->OnCreate(world.application);
    command->OnClick();
    ASSERT_EQ(world.boxes.size(), 1u) << name;
    const std::string module = std::string("src/") + room + "/" + name + ".cpp ";
    EXPECT_TRUE(ToUtf8(world.boxes[0].text).starts_with("Class_Terminate " + module))
        << ToUtf8(world.boxes[0].text);
    EXPECT_EQ(world.boxes[0].style, 0);
    EXPECT_TRUE(world.trails.empty()) << Trails(world);
  }
  Create(u"cmdStats").As<ICommand>()->OnClick();
  EXPECT_EQ(world.trails.size(), 1u);
}

TEST_F(Component, RefusesWhatItDoesNotHave) {
  void* object = &object;
  const Guid unknown{1, 2, 3, {}};
  EXPECT_EQ(getClassObject(&unknown, &kIID_IClassFactory, &object), hresult::kClassNotAvailable);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(getClassObject(&unknown, &unknown, &object), hresult::kNoInterface);
  EXPECT_EQ(getClassObject(nullptr, &kIID_IClassFactory, &object), hresult::kPointer);
  EXPECT_EQ(Sink()->PictureBytes(99), "");
}

TEST_F(Component, WithoutServicesThereAreNoClasses) {
  Sink()->Detach();
  EXPECT_EQ(Export<DllRegisterServerFn>("DllRegisterServer")(), hresult::kFail);
  Guid id;
  ASSERT_TRUE(ToGuid(world.registry[u"CR\\BrelmonOpenTable.cmdStats\\CLSID\\"].ToText(), id));
  void* object = nullptr;
  EXPECT_EQ(getClassObject(&id, &kIID_IClassFactory, &object), hresult::kClassNotAvailable);
}

}  // namespace
}  // namespace brelmon
