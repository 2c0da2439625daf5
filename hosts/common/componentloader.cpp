// SPDX-License-Identifier: GPL-2.0-or-later
// The four exports, by name.
#include "hosts/common/componentloader.h"

#include <dlfcn.h>

#include <cstdlib>
#include <stdexcept>

#include "hosts/common/hostfailure.h"
#include "hosts/common/paths.h"

namespace brelmon::host {
namespace {

template <class Function>
Function Export(void* library, const char* name) {
  void* symbol = ::dlsym(library, name);
  if (symbol == nullptr) {
    throw std::runtime_error(std::string("the library lacks the export ") + name);
  }
  return reinterpret_cast<Function>(symbol);
}

class LoadedComponent : public Component {
 public:
  LoadedComponent(void* library, const std::string& path, const Services& services)
      : own_(services),
        registry_(services.registry),
        getClassObject_(Export<DllGetClassObjectFn>(library, "DllGetClassObject")),
        canUnloadNow_(Export<DllCanUnloadNowFn>(library, "DllCanUnloadNow")) {
    const auto registerServer = Export<DllRegisterServerFn>(library, "DllRegisterServer");
    Export<DllUnregisterServerFn>(library, "DllUnregisterServer");
    if (registry_ == nullptr) throw std::runtime_error("the component needs a registry");
    const Guid any;
    void* sink = nullptr;
    if (getClassObject_(&any, &kIID_IServiceSink, &sink) != hresult::kOk || sink == nullptr) {
      throw std::runtime_error(
          "the component was built against another platform than this program: build both from "
          "the same sources, with the same compiler");
    }
    sink_ = static_cast<IServiceSink*>(sink);
    sink_->Attach(services, Paths().ToWindows(std::filesystem::absolute(path).string()));
    if (registerServer() != hresult::kOk) {
      sink_->Detach();
      throw std::runtime_error("the component can't register its classes");
    }
  }
  ~LoadedComponent() override { sink_->Detach(); }
  LoadedComponent(const LoadedComponent&) = delete;
  LoadedComponent& operator=(const LoadedComponent&) = delete;

  Ref<IObject> CreateObject(const Text& progId) override {
    const std::string name = ToUtf8(progId);
    Value registered;
    Guid classId;
    if (!registry_->Query(RegistryRoot::ClassesRoot, progId + u"\\CLSID", u"", registered) ||
        !ToGuid(Bare(registered.ToText()), classId)) {
      Fail(failure::kCannotCreateObject, "No class is registered under the name " + name + ".");
    }
    void* factory = nullptr;
    if (getClassObject_(&classId, &kIID_IClassFactory, &factory) != hresult::kOk ||
        factory == nullptr) {
      Fail(failure::kCannotCreateObject, "The component has no class for the name " + name + ".");
    }
    return static_cast<IClassFactory*>(factory)->CreateInstance();
  }

  std::string PictureBytes(std::int32_t handle) override { return sink_->PictureBytes(handle); }
  std::string PictureDrawing(std::int32_t handle) override { return sink_->PictureDrawing(handle); }
  bool CanUnload() override { return canUnloadNow_() == hresult::kOk; }

 private:
  /// Registry texts may keep a closing NUL.
  static Text Bare(Text text) {
    while (!text.empty() && text.back() == u'\0') text.pop_back();
    return text;
  }

  ServicesScope own_;
  IRegistry* registry_;
  DllGetClassObjectFn getClassObject_;
  DllCanUnloadNowFn canUnloadNow_;
  IServiceSink* sink_ = nullptr;
};

}  // namespace

std::string Component::Find(const std::filesystem::path& folder, const std::filesystem::path& way) {
#ifdef BRELMON_TEST_DOORS
  if (const char* given = std::getenv("BRELMON_COMPONENT"); given != nullptr && *given != '\0') {
    return std::filesystem::absolute(given).string();
  }
#endif
  return (folder / way).lexically_normal().string();
}

std::unique_ptr<Component> Component::Load(const std::string& libraryPath,
                                           const Services& services) {
  // Never closed: objects of its classes may outlive whoever loaded it.
  void* library = ::dlopen(libraryPath.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (library == nullptr) {
    const char* reason = ::dlerror();
    throw std::runtime_error("can't load the component: " +
                             std::string(reason != nullptr ? reason : libraryPath));
  }
  try {
    return std::make_unique<LoadedComponent>(library, libraryPath, services);
  } catch (const std::runtime_error& reason) {
    throw std::runtime_error(libraryPath + ": " + reason.what());
  }
}

}  // namespace brelmon::host
